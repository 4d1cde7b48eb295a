#pragma once

#include <QWidget>

class QButtonGroup;

/** A row of joined buttons of which exactly one is on. */
class SegmentControl : public QWidget
{
    Q_OBJECT

public:
    explicit SegmentControl(QWidget *parent = nullptr);

    /** Appends a segment; the first one starts switched on. */
    void addSegment(const QString &text);
    void setSegmentEnabled(int segment, bool enabled);
    int selectedSegment() const;
    void setSelectedSegment(int segment);

private:
    QButtonGroup *m_group = nullptr;
};
