#include "widgets/DarkBand.h"

#include <QPainter>

namespace {

constexpr double cornerRadius = 8.0;

} // namespace

DarkBand::DarkBand(QWidget *parent)
    : QWidget(parent)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, QColor::fromRgbF(0.2, 0.2, 0.2));
    colors.setColor(QPalette::WindowText, QColor::fromRgbF(0.93, 0.93, 0.93));
    setPalette(colors);
}

void DarkBand::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().window());
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}
