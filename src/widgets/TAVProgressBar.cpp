#include "widgets/TAVProgressBar.h"

#include <QPainter>

#include <cmath>

TAVProgressBar::TAVProgressBar(QWidget *parent)
    : QWidget(parent)
    , m_backgroundColor(QColor::fromRgbF(1.0, 1.0, 1.0, 0.15))
    , m_progressColor(QColor::fromRgbF(1.0, 1.0, 1.0, 0.25))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TAVProgressBar::setProgress(quint64 reached, quint64 correct)
{
    m_progress = reached;
    m_correct = correct;
    updateFraction();
}

void TAVProgressBar::setTotal(quint64 total)
{
    m_total = total;
    updateFraction();
}

void TAVProgressBar::updateFraction()
{
    m_progressFraction = double(m_progress) / double(m_total);
    update();
}

QSize TAVProgressBar::sizeHint() const
{
    return {200, 10};
}

void TAVProgressBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QRectF bar = rect();
    painter.setBrush(m_backgroundColor);
    painter.drawRoundedRect(bar, m_cornerRadius, m_cornerRadius);
    // Zero of zero is no number; the step after the last question is more than the whole.
    if (std::isnan(m_progressFraction) || m_progressFraction <= 0.0)
        return;
    bar.setWidth(bar.width() * std::min(m_progressFraction, 1.0));
    painter.setBrush(m_progressColor);
    painter.drawRoundedRect(bar, m_cornerRadius, m_cornerRadius);
}
