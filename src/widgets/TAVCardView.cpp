#include "widgets/TAVCardView.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double cornerRadius = 10.0;
/** What squares off the inner corners of the right half. */
constexpr double innerCornerCover = 30.0;

QColor grey(double white)
{
    const auto part = float(white);
    return QColor::fromRgbF(part, part, part);
}

/** The start colour lies at the lower edge. */
QLinearGradient upwardGradient(const QRectF &area, const QColor &start, const QColor &end)
{
    QLinearGradient gradient(area.bottomLeft(), area.topLeft());
    gradient.setColorAt(0.0, start);
    gradient.setColorAt(1.0, end);
    return gradient;
}

QPainterPath roundedPath(const QRectF &area)
{
    QPainterPath path;
    path.addRoundedRect(area, cornerRadius, cornerRadius);
    return path;
}

} // namespace

TAVCardView::TAVCardView(QWidget *parent)
    : QWidget(parent)
    , m_rightStartColor(grey(0.98))
    , m_rightEndColor(grey(0.9))
{
    setColorNeutral();
}

void TAVCardView::setIsSplit(bool split)
{
    m_isSplit = split;
    update();
}

void TAVCardView::setColorRightSide(bool rightSide)
{
    m_colorRightSide = rightSide;
    update();
}

void TAVCardView::setColorNeutral()
{
    setLeftColors(grey(0.9), grey(0.82));
}

void TAVCardView::setColorCorrect()
{
    setLeftColors(QColor::fromRgbF(0.8, 0.91, 0.86), QColor::fromRgbF(0.74, 0.84, 0.8));
}

void TAVCardView::setColorWrong()
{
    setLeftColors(QColor::fromRgbF(0.91, 0.81, 0.8), QColor::fromRgbF(0.87, 0.77, 0.76));
}

void TAVCardView::setColorMisspelled()
{
    setLeftColors(QColor::fromRgbF(1.0, 0.95, 0.79), QColor::fromRgbF(0.95, 0.91, 0.75));
}

void TAVCardView::setColorSynonym()
{
    setLeftColors(QColor::fromRgbF(0.83, 0.89, 0.91), QColor::fromRgbF(0.8, 0.85, 0.87));
}

void TAVCardView::setLeftColors(const QColor &start, const QColor &end)
{
    m_leftStartColor = start;
    m_leftEndColor = end;
    update();
}

void TAVCardView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // The hairline falls on whole pixels.
    const QRectF card = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const QPainterPath outline = roundedPath(card);
    if (m_isSplit) {
        painter.fillPath(outline, upwardGradient(card, m_leftStartColor, m_leftEndColor));
        drawRightHalf(painter, card);
    } else if (m_colorRightSide) {
        painter.fillPath(outline, upwardGradient(card, m_rightStartColor, m_rightEndColor));
    } else {
        painter.fillPath(outline, upwardGradient(card, m_leftStartColor, m_leftEndColor));
    }
    painter.setPen(QPen(Qt::white, 1.0));
    painter.drawPath(outline);
}

void TAVCardView::drawRightHalf(QPainter &painter, const QRectF &card) const
{
    // At an odd width the exact middle would smear the divider over two pixels.
    const int middle = width() / 2;
    const double left = middle + 0.5;
    const QRectF half(QPointF(left, card.top()), card.bottomRight());
    QPainterPath path = roundedPath(half);
    path.addRect(QRectF(half.topLeft(), QSizeF(std::min(innerCornerCover, half.width()), half.height())));
    path.setFillRule(Qt::WindingFill);
    painter.fillPath(path, upwardGradient(half, m_rightStartColor, m_rightEndColor));
    painter.setPen(QPen(grey(0.2), 1.0, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(half.topLeft(), half.bottomLeft());
}
