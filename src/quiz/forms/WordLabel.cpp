#include "quiz/forms/WordLabel.h"

#include "widgets/CardText.h"

#include <QPainter>
#include <QStyle>
#include <QTextOption>

namespace {

constexpr int leastFont = 8;
/** More text than this can't be read on a card, and would take long to lay out. */
constexpr qsizetype longestText = 2000;

int wrapFlags(Qt::Alignment alignment)
{
    return int(alignment) | Qt::TextWrapAnywhere | Qt::TextWordWrap;
}

bool fits(const QFont &font, const QString &text, const QSize &size, Qt::Alignment alignment)
{
    const QRect bounds =
        QFontMetrics(font).boundingRect(QRect(0, 0, size.width(), 100'000), wrapFlags(alignment), text);
    return bounds.width() <= size.width() && bounds.height() <= size.height();
}

} // namespace

WordLabel::WordLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void WordLabel::setWord(const QString &text, qsizetype lengthOfSmallFont)
{
    setFont(CardText::font(text, lengthOfSmallFont));
    setText(text);
    setToolTip(QString());
}

QSize WordLabel::sizeHint() const
{
    return {200, QFontMetrics(font()).height() + 4};
}

QSize WordLabel::minimumSizeHint() const
{
    return {40, QFontMetrics(font()).height() + 2};
}

std::pair<QFont, QString> WordLabel::fitted(const QSize &size) const
{
    QString shown = text().left(longestText);
    QFont font = this->font();
    while (!fits(font, shown, size, alignment()) && font.pointSize() > leastFont)
        font.setPointSize(font.pointSize() - 1);
    if (fits(font, shown, size, alignment()) && shown.size() == text().size())
        return {font, shown};
    // Halving finds the longest beginning that fits together with the ellipsis.
    qsizetype fitting = 0;
    for (qsizetype tooLong = shown.size() + 1; tooLong - fitting > 1;) {
        const qsizetype middle = (fitting + tooLong) / 2;
        (fits(font, shown.left(middle) + QChar(0x2026), size, alignment()) ? fitting : tooLong) = middle;
    }
    return {font, shown.left(fitting) + QChar(0x2026)};
}

void WordLabel::paintEvent(QPaintEvent *)
{
    const QRect place = contentsRect();
    const auto [font, shown] = fitted(place.size());
    if (shown.size() != text().size() && toolTip().isEmpty())
        setToolTip(text().left(longestText).toHtmlEscaped());
    QPainter painter(this);
    painter.setFont(font);
    painter.setPen(palette().color(foregroundRole()));
    const auto alignmentHere =
        QStyle::visualAlignment(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight, alignment());
    painter.drawText(place, wrapFlags(alignmentHere), shown);
}
