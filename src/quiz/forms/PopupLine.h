#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
struct RunProgress;

/** One line that tells how far the popup quiz has come, with the way to end it. */
class PopupLine : public QWidget
{
    Q_OBJECT

public:
    explicit PopupLine(QWidget *parent);

    void setProgress(const RunProgress &progress);

signals:
    void endChosen();

private:
    QLabel *m_label = nullptr;
    QPushButton *m_endButton = nullptr;
};
