#include "widgets/TAVBookmarkView.h"

#include "app/ground/SettingsTable.h"

#include <QPainter>
#include <QPainterPath>

TAVBookmarkView::TAVBookmarkView(QWidget *parent)
    : QWidget(parent)
{
    setColor(settings::backgroundColor.value());
}

void TAVBookmarkView::setColor(qint64 number)
{
    m_color = colorForNumber(number);
    settings::backgroundColor.set(number);
    update();
}

QColor TAVBookmarkView::colorForNumber(qint64 number)
{
    switch (number) {
    case 1: // blue
        return QColor::fromRgbF(0.22, 0.22, 0.35);
    case 2: // purple
        return QColor::fromRgbF(0.51, 0.21, 0.28);
    case 3: // green
        return QColor::fromRgbF(0.27, 0.35, 0.04);
    case 4: // red
        return QColor::fromRgbF(0.25, 0.19, 0.12);
    case 5: // violet
        return QColor::fromRgbF(0.28, 0.01, 0.14);
    default: // black
        return QColor::fromRgbF(0.1, 0.1, 0.1);
    }
}

QSize TAVBookmarkView::sizeHint() const
{
    return {28, 64};
}

void TAVBookmarkView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF band = rect();
    const double notch = std::min(band.width(), band.height()) * 0.35;
    QPainterPath ribbon(band.topLeft());
    ribbon.lineTo(band.topRight());
    ribbon.lineTo(band.bottomRight());
    ribbon.lineTo(band.center().x(), band.bottom() - notch);
    ribbon.lineTo(band.bottomLeft());
    ribbon.closeSubpath();
    painter.fillPath(ribbon, m_color);
    // A hairline lifts the darkest theme from a dark window.
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.15F);
    painter.strokePath(ribbon, QPen(edge, 1.0));
}
