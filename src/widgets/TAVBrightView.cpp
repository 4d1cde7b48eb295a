#include "widgets/TAVBrightView.h"

#include <QPaintEvent>
#include <QPainter>

TAVBrightView::TAVBrightView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TAVBrightView::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), QColor::fromRgbF(0.95, 0.95, 0.95));
}
