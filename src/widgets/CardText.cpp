#include "widgets/CardText.h"

QFont CardText::font(const QString &text, qsizetype limit)
{
    return QFont(QStringLiteral("Helvetica"), text.size() < limit ? 18 : 14);
}

QColor CardText::textColor()
{
    return Qt::black;
}

QColor CardText::fadedTextColor()
{
    return QColor::fromRgbF(0.0, 0.0, 0.0, 0.5);
}
