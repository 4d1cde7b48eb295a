#pragma once

#include <QPixmap>
#include <QPoint>
#include <QWidget>

/** Draws the turning card over its window. Mouse and focus pass it by. */
class CardFlipOverlay : public QWidget
{
    Q_OBJECT

public:
    /** Covers the window; card is the card's rectangle in it. */
    CardFlipOverlay(QWidget *window, const QRect &card, const QPixmap &oldFace, const QPixmap &newFace);

    /** The term of the perspective: negative brings the right edge of the old face to the front. */
    void setDepth(double depth) { m_depth = depth; }
    void setPulsesOpacity(bool pulses) { m_pulsesOpacity = pulses; }
    void setNewFace(const QPixmap &newFace);
    /** Shows the turn at a fraction 0 to 1 of its time. */
    void setFraction(double fraction);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QTransform transform() const;
    QRect coveredArea() const;

    QRect m_card;
    QPixmap m_oldFace;
    QPixmap m_newFace;
    double m_fraction = 0.0;
    double m_depth = 0.0;
    bool m_pulsesOpacity = false;
};
