#include "widgets/TAVPieChart.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr double radius = 50.0;

/** Angles in degrees, counter-clockwise from three o'clock. */
void drawWedge(QPainter &painter, const QPointF &middle, double from, double to, const QColor &color,
               double lineWidth)
{
    constexpr double unitsPerDegree = 16.0;
    const int start = int(std::lround(from * unitsPerDegree));
    const int span = int(std::lround(to * unitsPerDegree)) - start;
    if (span <= 0)
        return;
    const QRectF circle(middle - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    painter.setBrush(color);
    painter.setPen(QPen(color, lineWidth));
    if (span >= int(360 * unitsPerDegree))
        painter.drawEllipse(circle);
    else
        painter.drawPie(circle, start, span);
}

} // namespace

TAVPieChart::TAVPieChart(QWidget *parent)
    : QWidget(parent)
{
}

void TAVPieChart::setCorrectPercent(double share)
{
    m_correctPercent = share;
    update();
}

void TAVPieChart::setMisspelledPercent(double share)
{
    m_misspelledPercent = share;
    update();
}

QColor TAVPieChart::correctColor()
{
    return QColor::fromRgbF(0.0, 0.55, 0.47);
}

QColor TAVPieChart::wrongColor()
{
    return QColor::fromRgbF(0.68, 0.2, 0.29);
}

QColor TAVPieChart::misspelledColor()
{
    return QColor::fromRgbF(0.81, 0.69, 0.14);
}

QSize TAVPieChart::sizeHint() const
{
    return {int(2 * radius) + 4, int(2 * radius) + 4};
}

void TAVPieChart::paintEvent(QPaintEvent *)
{
    // A quiz of no words has no shares.
    if (!std::isfinite(m_correctPercent) || !std::isfinite(m_misspelledPercent))
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(rect()).center();
    const double correctEnd = 90.0 + 360.0 * std::clamp(m_correctPercent, 0.0, 1.0);
    const double misspelledEnd = std::clamp(correctEnd + 360.0 * m_misspelledPercent, correctEnd, 450.0);
    drawWedge(painter, middle, 90.0, correctEnd, correctColor(), 1.0);
    drawWedge(painter, middle, correctEnd, misspelledEnd, misspelledColor(), 2.0);
    drawWedge(painter, middle, misspelledEnd, 450.0, wrongColor(), 1.0);
}
