#include "quiz/forms/LevelButton.h"

#include "quiz/forms/CardStyle.h"
#include "widgets/Icons.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int pictureSize = 40;
constexpr int padding = 8;
constexpr int radius = 8;

} // namespace

LevelButton::LevelButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void LevelButton::setActive(bool active)
{
    setChecked(active);
    m_alpha = active ? alphaOn : alphaOff;
    update();
}

QSize LevelButton::sizeHint() const
{
    return {std::max(96, fontMetrics().horizontalAdvance(text()) + 2 * padding),
            pictureSize + fontMetrics().height() + 3 * padding};
}

void LevelButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    QPainterPath frame;
    frame.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
    if (isChecked())
        painter.fillPath(frame, QColor(255, 255, 255, 190));
    else if (underMouse())
        painter.fillPath(frame, QColor(255, 255, 255, 90));
    if (isChecked())
        painter.strokePath(frame, accent);
    if (hasFocus()) {
        painter.setPen(QColor(0, 0, 0, 110));
        painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), radius - 3, radius - 3);
    }

    painter.setOpacity(m_alpha);
    const QRect picture((width() - pictureSize) / 2, padding, pictureSize, pictureSize);
    painter.drawPixmap(picture,
                       CardStyle::picture(Icons::levelName(m_level), pictureSize, devicePixelRatioF()));
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect name(0, picture.bottom() + padding, width(), fontMetrics().height());
    painter.drawText(name, Qt::AlignCenter, fontMetrics().elidedText(text(), Qt::ElideRight, width() - 4));
}
