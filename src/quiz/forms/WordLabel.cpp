#include "quiz/forms/WordLabel.h"

#include "widgets/CardText.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <cmath>

namespace {

constexpr int minFontSize = 8;
/** More text than this can't be read on a card, and would take long to lay out. */
constexpr qsizetype maxShownLength = 2000;

/** Breaks the text between words, or within one that is too long for a line. Gives the height of all lines.
 */
double breakIntoLines(QTextLayout &layout, const QFont &font, const QString &text, Qt::Alignment alignment,
                      double width)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    layout.setTextOption(option);
    layout.setFont(font);
    layout.setText(QString(text).replace(QLatin1Char('\n'), QChar::LineSeparator));
    layout.beginLayout();
    double height = 0.0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0.0, height});
        height += line.height();
    }
    layout.endLayout();
    return height;
}

bool fits(const QFont &font, const QString &text, const QSize &size)
{
    QTextLayout layout;
    return breakIntoLines(layout, font, text, Qt::AlignLeft, size.width()) <= size.height();
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
    QString shown = text().left(maxShownLength);
    QFont font = this->font();
    while (!fits(font, shown, size) && font.pointSize() > minFontSize)
        font.setPointSize(font.pointSize() - 1);
    if (fits(font, shown, size) && shown.size() == text().size())
        return {font, shown};
    // Halving finds the longest beginning that fits together with the ellipsis.
    qsizetype fitting = 0;
    for (qsizetype tooLong = shown.size() + 1; tooLong - fitting > 1;) {
        const qsizetype middle = (fitting + tooLong) / 2;
        (fits(font, shown.left(middle) + QChar(0x2026), size) ? fitting : tooLong) = middle;
    }
    return {font, shown.left(fitting) + QChar(0x2026)};
}

void WordLabel::paintEvent(QPaintEvent *)
{
    const QRect place = contentsRect();
    const auto [font, shown] = fitted(place.size());
    if (shown.size() != text().size() && toolTip().isEmpty())
        setToolTip(text().left(maxShownLength).toHtmlEscaped());
    QTextLayout layout;
    const double height = breakIntoLines(layout, font, shown, alignment(), place.width());
    const QRectF lines = QStyle::alignedRect(Qt::LeftToRight, alignment() & Qt::AlignVertical_Mask,
                                             QSize(place.width(), int(std::ceil(height))), place);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, lines.topLeft());
}
