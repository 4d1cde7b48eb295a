#pragma once

#include "platform/Clock.h"

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QTransform>
#include <QWidget>

#include <memory>

class CardFlipOverlay;

/**
 * Turns a card around: a still of the old face turns away, a still of the new one turns in. The caller takes
 * the first still, changes the card, and starts the turn; while it runs the card is drawn by an overlay on
 * its window, but keeps its place, its focus and what is typed into it. Hiding or resizing the card or its
 * window ends the turn.
 */
class CardFlip : public QObject
{
    Q_OBJECT

public:
    /** One layer's part of the turn. */
    struct LayerState
    {
        double angle = 0.0; // radians around the vertical axis
        double scale = 1.0;
        bool isVisible = true; // a layer is seen only from its front
    };

    /** The card may be destroyed at any time; the flip then ends without a signal. */
    explicit CardFlip(QWidget *card, QObject *parent = nullptr);
    ~CardFlip() override;

    static constexpr double defaultDuration = 0.75; // seconds
    static constexpr double defaultScale = 1.3;

    /** The layer's state at a fraction 0 to 1 of the time, eased in and out. */
    static LayerState flipAnimation(double fraction, bool beginningOnTop, double scaleFactor);
    /** How solid the turning faces are at a fraction of the time when the opacity pulses; 0 to 1. */
    static double opacityPulse(double fraction);
    /** Places a layer that is centred at the origin and so wide; depth is the perspective's term. */
    static QTransform layerTransform(const LayerState &state, double depth, double width);

    bool isFlipping() const { return m_isFlipping; }
    /** Takes the still of the old face, unless a flip is running already. */
    void flipFirstHalf();
    /**
     * Takes the still of the new face and starts to turn. While the card turns already, the new face is
     * exchanged and the turn goes on. Without a first half it does nothing.
     */
    void flipSecondHalf();
    /** From the next start on, turns the other way round. */
    void setReverseDirection(bool reverse) { m_reverseDirection = reverse; }
    /** From the next start on, the turning faces fade in from the old face and out into the new one. */
    void setPulsesOpacity(bool pulses) { m_pulsesOpacity = pulses; }
    /** Ends a running flip at once, as if its time were over. */
    void finish();

signals:
    void animationDidStop();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPixmap takeStill() const;
    void start(const QPixmap &newFace);
    void step();
    void removeOverlay();

    QPointer<QWidget> m_card;
    QPointer<QWidget> m_window;
    QPixmap m_oldFace;
    QPointer<CardFlipOverlay> m_overlay;
    std::unique_ptr<platform::Timer> m_timer;
    QDateTime m_start;
    bool m_isFlipping = false;
    bool m_reverseDirection = false;
    bool m_pulsesOpacity = false;
};
