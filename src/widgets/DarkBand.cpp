#include "widgets/DarkBand.h"

#include <QPalette>

DarkBand::DarkBand(QWidget *parent)
    : QWidget(parent)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, QColor::fromRgbF(0.2, 0.2, 0.2));
    colors.setColor(QPalette::WindowText, QColor::fromRgbF(0.93, 0.93, 0.93));
    setPalette(colors);
    setAutoFillBackground(true);
}
