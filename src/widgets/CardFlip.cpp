#include "widgets/CardFlip.h"

#include "platform/Services.h"
#include "widgets/CardFlipOverlay.h"

#include <QCoreApplication>
#include <QEasingCurve>
#include <QEvent>
#include <QGraphicsEffect>
#include <QPainter>

#include <cmath>
#include <numbers>

namespace {

constexpr double perspectiveDepth = 1.0 / 1500.0;
constexpr std::chrono::milliseconds frame{16};

/** Keeps a widget from being drawn; hiding it would take its focus away. */
class Unseen : public QGraphicsEffect
{
public:
    using QGraphicsEffect::QGraphicsEffect;

protected:
    void draw(QPainter *) override {}
};

double eased(double fraction)
{
    static const QEasingCurve curve = [] {
        QEasingCurve easeInEaseOut(QEasingCurve::BezierSpline);
        easeInEaseOut.addCubicBezierSegment({0.42, 0.0}, {0.58, 1.0}, {1.0, 1.0});
        return easeInEaseOut;
    }();
    return curve.valueForProgress(std::clamp(fraction, 0.0, 1.0));
}

/** Up from 0 to 1 and down again. */
double autoreversed(double progress)
{
    return progress < 0.5 ? 2.0 * progress : 2.0 - 2.0 * progress;
}

} // namespace

CardFlip::CardFlip(QWidget *card, QObject *parent)
    : QObject(parent)
    , m_card(card)
{
    connect(card, &QObject::destroyed, this, [this] {
        removeOverlay();
        m_isFlipping = false;
    });
}

CardFlip::~CardFlip()
{
    removeOverlay();
}

CardFlip::LayerState CardFlip::flipAnimation(double fraction, bool beginningOnTop, double scaleFactor)
{
    const double progress = eased(fraction);
    LayerState state;
    state.angle = std::numbers::pi * (beginningOnTop ? -progress : 1.0 - progress);
    state.scale = 1.0 + (scaleFactor - 1.0) * autoreversed(progress);
    state.isVisible = beginningOnTop ? progress < 0.5 : progress >= 0.5;
    return state;
}

double CardFlip::opacityPulse(double fraction)
{
    return std::min(1.0, 2.0 * autoreversed(eased(fraction)));
}

QTransform CardFlip::layerTransform(const LayerState &state, double depth, double width)
{
    // A card so wide that its edge would swing past the viewer's eye is seen from farther away.
    const double farthest = 1.0 / std::max(1.0, defaultScale * width);
    const double term = std::clamp(depth, -farthest, farthest);
    return QTransform(state.scale * std::cos(state.angle), 0.0,
                      -term * state.scale * std::sin(state.angle), //
                      0.0, state.scale, 0.0,                       //
                      0.0, 0.0, 1.0);
}

QPixmap CardFlip::takeStill() const
{
    const qreal ratio = m_card->devicePixelRatioF();
    QPixmap still((QSizeF(m_card->size()) * ratio).toSize());
    still.setDevicePixelRatio(ratio);
    still.fill(Qt::transparent);
    m_card->render(&still, {}, {}, QWidget::DrawChildren);
    return still;
}

void CardFlip::flipFirstHalf()
{
    if (m_isFlipping || !m_card)
        return;
    m_isFlipping = true;
    m_oldFace = m_card->isVisible() ? takeStill() : QPixmap();
}

void CardFlip::flipSecondHalf()
{
    if (!m_isFlipping || !m_card)
        return;
    // What the caller has just changed must stand in its place before it is drawn.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    if (m_overlay) {
        m_card->graphicsEffect()->setEnabled(false);
        m_overlay->setNewFace(takeStill());
        m_card->graphicsEffect()->setEnabled(true);
    } else if (m_card->isVisible() && !m_oldFace.isNull() && !m_card->size().isEmpty()) {
        start(takeStill());
    } else {
        finish();
    }
}

void CardFlip::start(const QPixmap &newFace)
{
    m_window = m_card->window();
    const QRect place(m_card->mapTo(m_window, QPoint()), m_card->size());
    m_overlay = new CardFlipOverlay(m_window, place, m_oldFace, newFace);
    m_overlay->setDepth(m_reverseDirection ? perspectiveDepth : -perspectiveDepth);
    m_overlay->setPulsesOpacity(m_pulsesOpacity);
    m_card->setGraphicsEffect(new Unseen(m_card));
    m_overlay->show();
    m_card->installEventFilter(this);
    m_window->installEventFilter(this);
    m_start = platform::clock().now();
    m_timer = platform::clock().startTimer(frame, true, [this] { step(); });
}

void CardFlip::step()
{
    const QDateTime now = platform::clock().now();
    // Somebody may set the clock back.
    m_start = std::min(m_start, now);
    const double fraction = double(m_start.msecsTo(now)) / 1000.0 / defaultDuration;
    if (fraction >= 1.0 || !m_overlay)
        finish();
    else
        m_overlay->setFraction(fraction);
}

void CardFlip::removeOverlay()
{
    m_timer.reset();
    m_oldFace = {};
    if (m_window)
        m_window->removeEventFilter(this);
    if (m_overlay) {
        // It may be asked to go from within an event of its window.
        m_overlay->hide();
        m_overlay->deleteLater();
        m_overlay.clear();
    }
    if (m_card) {
        m_card->removeEventFilter(this);
        m_card->setGraphicsEffect(nullptr);
    }
}

void CardFlip::finish()
{
    if (!m_isFlipping)
        return;
    removeOverlay();
    m_isFlipping = false;
    emit animationDidStop();
}

bool CardFlip::eventFilter(QObject *watched, QEvent *event)
{
    const bool cardMoves = event->type() == QEvent::Move && watched == m_card;
    if (m_isFlipping && (cardMoves || event->type() == QEvent::Resize || event->type() == QEvent::Hide)) {
        removeOverlay();
        m_isFlipping = false;
        // The window may be hiding because it is being destroyed, and its owner with it.
        QMetaObject::invokeMethod(this, &CardFlip::animationDidStop, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
