#pragma once

#include "platform/Clock.h"

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class CardFlipOverlay;

/**
 * Turns a card around: a still of the old face turns away, a still of the new one turns in. The caller takes
 * the first still, changes the card, and starts the turn; while it runs an overlay covers the card, which
 * keeps its focus and its place.
 */
class CardFlip : public QObject
{
    Q_OBJECT

public:
    /** One layer's part of the turn, as the overlay draws it. */
    struct LayerState {
        double angle = 0.0; // radians around the vertical axis
        double scale = 1.0;
        double opacity = 1.0;
    };

    /** The card must outlive this object or own it. */
    explicit CardFlip(QWidget *card, QObject *parent = nullptr);
    ~CardFlip() override;

    static constexpr double defaultDuration = 0.75;
    static constexpr double defaultScale = 1.3;

    /** The layer's state at a fraction 0 to 1 of the time, eased in and out. */
    static LayerState flipAnimation(double fraction, bool beginningOnTop, double scaleFactor);

    bool isFlipping() const { return m_isFlipping; }
    /** Takes the still of the old face, unless a flip is running already. */
    void flipFirstHalf();
    /** Takes the still of the new face and starts to turn. Without a first half it does nothing. */
    void flipSecondHalf();
    /** Turns the other way round at the next start, for reading backwards. */
    void setReverseDirection(bool reverse) { m_reverseDirection = reverse; }
    /** The faces fade in and out on the way. */
    void setPulsesOpacity(bool pulses) { m_pulsesOpacity = pulses; }
    /** Ends a running flip at once, as if its time were over. */
    void finish();

signals:
    void animationDidStop();

private:
    void step();

    QPointer<QWidget> m_card;
    QPixmap m_topStill;
    QPointer<CardFlipOverlay> m_overlay;
    std::unique_ptr<platform::Timer> m_timer;
    QDateTime m_start;
    bool m_isFlipping = false;
    bool m_isTurning = false;
    bool m_reverseDirection = false;
    bool m_pulsesOpacity = false;
};
