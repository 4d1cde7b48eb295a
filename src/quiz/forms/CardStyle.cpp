#include "quiz/forms/CardStyle.h"

#include "widgets/CardText.h"
#include "widgets/Icons.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace CardStyle {

QPalette palette(const QPalette &system)
{
    QPalette palette(QColor(0xf0, 0xf0, 0xf0), QColor(0xe6, 0xe6, 0xe6));
    const QColor text(0x22, 0x22, 0x24);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 110));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0, 0, 0, 100));
    palette.setColor(QPalette::Highlight, system.color(QPalette::Highlight));
    palette.setColor(QPalette::HighlightedText, system.color(QPalette::HighlightedText));
    return palette;
}

void enlarge(QWidget *widget, double factor, bool bold)
{
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    widget->setFont(font);
}

void makeDefault(QPushButton *button, bool isDefault)
{
    if (!isDefault) {
        button->setPalette(QPalette());
        return;
    }
    QPalette palette = button->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        // Styles lighten a button's colour, on which its light text could not be read.
        palette.setColor(group, QPalette::Button,
                         palette.color(QPalette::Active, QPalette::Highlight).darker(130));
        palette.setColor(group, QPalette::ButtonText,
                         palette.color(QPalette::Active, QPalette::HighlightedText));
    }
    button->setPalette(palette);
}

QPixmap picture(const QString &name, int size, qreal devicePixelRatio)
{
    return Icons::pixmap(name, QSize(size, size), devicePixelRatio, CardText::textColor());
}

void setPicture(QLabel *label, const QString &name, int size, double opacity)
{
    const QPixmap opaque = picture(name, size, label->devicePixelRatioF());
    if (opacity >= 1.0) {
        label->setPixmap(opaque);
        return;
    }
    QPixmap faded(opaque.size());
    faded.setDevicePixelRatio(opaque.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(opacity);
    painter.drawPixmap(0, 0, opaque);
    painter.end();
    label->setPixmap(faded);
}

void setDot(QLabel *label, const QColor &color)
{
    constexpr int size = 12;
    const double ratio = label->devicePixelRatioF();
    QPixmap dot(QSize(size, size) * ratio);
    dot.setDevicePixelRatio(ratio);
    dot.fill(Qt::transparent);
    QPainter painter(&dot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(0, 0, size, size);
    painter.end();
    label->setPixmap(dot);
}

void keepPlaceWhenHidden(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

void setTextColor(QLabel *label, const QColor &color)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
}

} // namespace CardStyle
