#pragma once

#include <QColor>
#include <QWidget>

/** A ribbon in the theme colour. */
class TAVBookmarkView : public QWidget
{
    Q_OBJECT

public:
    /** Takes the stored theme. */
    explicit TAVBookmarkView(QWidget *parent = nullptr);

    /** Stores the number as it comes; one outside 0 to 5 shows black. */
    void setColor(qint64 number);
    QColor color() const { return m_color; }
    static QColor colorForNumber(qint64 number);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color;
};
