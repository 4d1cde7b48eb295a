#include "widgets/CardFlipOverlay.h"

#include "widgets/CardFlip.h"

#include <QPainter>

CardFlipOverlay::CardFlipOverlay(QWidget *window, const QRect &card, const QPixmap &oldFace,
                                 const QPixmap &newFace)
    : QWidget(window)
    , m_card(card)
    , m_oldFace(oldFace)
    , m_newFace(newFace)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(window->rect());
}

void CardFlipOverlay::setNewFace(const QPixmap &newFace)
{
    m_newFace = newFace;
    update(coveredArea());
}

void CardFlipOverlay::setFraction(double fraction)
{
    const QRect before = coveredArea();
    m_fraction = fraction;
    update(before.united(coveredArea()));
}

QTransform CardFlipOverlay::transform() const
{
    const bool firstHalf = CardFlip::flipAnimation(m_fraction, true, CardFlip::defaultScale).isVisible;
    const CardFlip::LayerState state = CardFlip::flipAnimation(m_fraction, firstHalf, CardFlip::defaultScale);
    const QPointF middle = QRectF(m_card).center();
    return CardFlip::layerTransform(state, m_depth, m_card.width()) *
           QTransform::fromTranslate(middle.x(), middle.y());
}

QRect CardFlipOverlay::coveredArea() const
{
    const QRectF layer(-m_card.width() / 2.0, -m_card.height() / 2.0, m_card.width(), m_card.height());
    const QRect turning = transform().mapRect(layer).toAlignedRect().adjusted(-1, -1, 1, 1);
    return m_pulsesOpacity ? turning.united(m_card) : turning;
}

void CardFlipOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const bool firstHalf = CardFlip::flipAnimation(m_fraction, true, CardFlip::defaultScale).isVisible;
    const QPixmap &face = firstHalf ? m_oldFace : m_newFace;
    if (m_pulsesOpacity) {
        // The resting face fades as the turning one comes, so that nothing jumps at either end.
        const double opacity = CardFlip::opacityPulse(m_fraction);
        painter.setOpacity(1.0 - opacity);
        painter.drawPixmap(m_card.topLeft(), face);
        painter.setOpacity(opacity);
    }
    painter.setTransform(transform(), true);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.drawPixmap(QPointF(-m_card.width() / 2.0, -m_card.height() / 2.0), face);
}
