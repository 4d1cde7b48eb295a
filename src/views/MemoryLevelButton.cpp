#include "views/MemoryLevelButton.h"

#include <QEvent>
#include <QLocale>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int buttonHeight = 34;
constexpr int pictureSize = 20;
constexpr int margin = 12;
constexpr int markerWidth = 3;

} // namespace

MemoryLevelButton::MemoryLevelButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void MemoryLevelButton::setCount(qint64 count)
{
    if (m_count == count)
        return;
    m_count = count;
    setAccessibleDescription(QLocale().toString(count));
    update();
}

QSize MemoryLevelButton::sizeHint() const
{
    const int textWidth = fontMetrics().horizontalAdvance(text());
    return {textWidth + pictureSize + 4 * margin + fontMetrics().horizontalAdvance(QLatin1String("00,000")),
            buttonHeight};
}

QSize MemoryLevelButton::minimumSizeHint() const
{
    return {120, buttonHeight};
}

bool MemoryLevelButton::event(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        update();
    return QAbstractButton::event(event);
}

void MemoryLevelButton::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    const QRectF area = QRectF(rect()).adjusted(0.5, 1.5, -0.5, -1.5);
    if (isChecked() || isDown() || underMouse()) {
        QColor fill = isChecked() || isDown() ? accent : palette().color(QPalette::WindowText);
        fill.setAlphaF(isChecked() ? 0.18f : isDown() ? 0.12f : 0.06f);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(area, 5, 5);
    }
    const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
    if (isChecked()) {
        QRectF marker(area.left() + 2, area.top() + 6, markerWidth, area.height() - 12);
        if (rightToLeft)
            marker.moveRight(area.right() - 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(accent);
        painter.drawRoundedRect(marker, 1.5, 1.5);
    }
    if (hasFocus()) {
        painter.setPen(QPen(accent, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area, 5, 5);
    }

    const auto place = [this](const QRect &logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const QRect picture = place({margin, (height() - pictureSize) / 2, pictureSize, pictureSize});
    icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);

    const QString number = QLocale().toString(m_count);
    const int numberWidth = fontMetrics().horizontalAdvance(number);
    QColor numberColor = palette().color(QPalette::WindowText);
    numberColor.setAlphaF(0.6f);
    painter.setPen(numberColor);
    painter.drawText(place({width() - margin - numberWidth - 2, 0, numberWidth + 2, height()}),
                     Qt::AlignCenter, number);

    QFont nameFont = font();
    nameFont.setBold(isChecked());
    painter.setFont(nameFont);
    painter.setPen(palette().color(QPalette::WindowText));
    const int nameStart = margin + pictureSize + margin - 2;
    const QRect name = place({nameStart, 0, width() - nameStart - numberWidth - 2 * margin, height()});
    painter.drawText(name, int(Qt::AlignVCenter) | int(rightToLeft ? Qt::AlignRight : Qt::AlignLeft),
                     QFontMetrics(nameFont).elidedText(text(), Qt::ElideRight, name.width()));
}
