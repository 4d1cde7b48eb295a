#include "support/GuiTest.h"
#include "widgets/Icons.h"
#include "widgets/TAVBookmarkView.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVPieChart.h"
#include "widgets/TAVProgressBar.h"

#include <cmath>
#include <numbers>

namespace {

class DrawnPieces : public ServicesTest
{
protected:
    /** The widget alone, on a ground that shows where nothing was drawn. */
    static QImage drawn(QWidget &widget, const QColor &ground = Qt::transparent)
    {
        QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(ground);
        widget.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
};

testing::AssertionResult isNear(const QColor &seen, const QColor &wanted)
{
    const int difference =
        std::max({std::abs(seen.red() - wanted.red()), std::abs(seen.green() - wanted.green()),
                  std::abs(seen.blue() - wanted.blue()), std::abs(seen.alpha() - wanted.alpha())});
    return (difference <= 3 ? testing::AssertionSuccess() : testing::AssertionFailure())
           << seen.name(QColor::HexArgb).toStdString() << " beside "
           << wanted.name(QColor::HexArgb).toStdString();
}

QColor rgb(double red, double green, double blue)
{
    return QColor::fromRgbF(float(red), float(green), float(blue));
}

} // namespace

TEST_F(DrawnPieces, cardShowsVerdictAndQuestion)
{
    struct Case
    {
        void (TAVCardView::*set)();
        QColor start;
        QColor end;
    };
    const Case cases[] = {
        {&TAVCardView::setColorCorrect, rgb(0.8, 0.91, 0.86), rgb(0.74, 0.84, 0.8)},
        {&TAVCardView::setColorWrong, rgb(0.91, 0.81, 0.8), rgb(0.87, 0.77, 0.76)},
        {&TAVCardView::setColorMisspelled, rgb(1.0, 0.95, 0.79), rgb(0.95, 0.91, 0.75)},
        {&TAVCardView::setColorSynonym, rgb(0.83, 0.89, 0.91), rgb(0.8, 0.85, 0.87)},
        {&TAVCardView::setColorNeutral, rgb(0.9, 0.9, 0.9), rgb(0.82, 0.82, 0.82)},
    };
    const QColor rightStart = rgb(0.98, 0.98, 0.98);
    const QColor rightEnd = rgb(0.9, 0.9, 0.9);
    TAVCardView card;
    card.resize(400, 200);
    for (const Case &c : cases) {
        (card.*c.set)();
        card.setIsSplit(true);
        QImage image = drawn(card);
        EXPECT_TRUE(isNear(image.pixelColor(100, 198), c.start));
        EXPECT_TRUE(isNear(image.pixelColor(100, 1), c.end));
        EXPECT_TRUE(isNear(image.pixelColor(198, 198), c.start));
        EXPECT_TRUE(isNear(image.pixelColor(300, 198), rightStart));
        EXPECT_TRUE(isNear(image.pixelColor(300, 1), rightEnd));
        // The inner corners are square, the outer ones round, the divider and the outline sharp.
        EXPECT_TRUE(isNear(image.pixelColor(202, 198), rightStart));
        EXPECT_TRUE(isNear(image.pixelColor(200, 100), rgb(0.2, 0.2, 0.2)));
        EXPECT_TRUE(isNear(image.pixelColor(100, 0), Qt::white));
        EXPECT_TRUE(isNear(image.pixelColor(399, 100), Qt::white));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(image.pixelColor(399, 199).alpha(), 0);

        card.setIsSplit(false);
        image = drawn(card);
        EXPECT_TRUE(isNear(image.pixelColor(300, 198), c.start));
        EXPECT_TRUE(isNear(image.pixelColor(200, 1), c.end));
    }
    card.setColorCorrect();
    card.setColorRightSide(true);
    const QImage image = drawn(card);
    EXPECT_TRUE(isNear(image.pixelColor(100, 198), rightStart));
    EXPECT_TRUE(isNear(image.pixelColor(200, 1), rightEnd));

    // At an odd width, too, the divider is one sharp line.
    card.setIsSplit(true);
    card.resize(401, 200);
    EXPECT_TRUE(isNear(drawn(card).pixelColor(200, 100), rgb(0.2, 0.2, 0.2)));
}

TEST_F(DrawnPieces, progressStaysInItsBar)
{
    TAVProgressBar bar;
    bar.resize(200, 10);
    EXPECT_DOUBLE_EQ(bar.progressFraction(), 0.3);
    struct Case
    {
        quint64 progress;
        quint64 total;
        int filledTo; // pixels
    };
    for (const Case &c :
         {Case{15, 30, 100}, Case{31, 30, 200}, Case{0, 30, 0}, Case{0, 0, 0}, Case{1, 0, 200}}) {
        bar.setTotal(c.total);
        bar.setProgress(c.progress, 0);
        const QImage image = drawn(bar, Qt::black);
        const auto isFilled = [&image](int x) { return image.pixelColor(x, 5).red() > 60; };
        EXPECT_TRUE(c.filledTo == 0 || isFilled(c.filledTo - 3)) << c.progress << " of " << c.total;
        EXPECT_TRUE(c.filledTo == 200 || !isFilled(c.filledTo + 3)) << c.progress << " of " << c.total;
    }
    EXPECT_TRUE(std::isinf(bar.progressFraction()));
}

TEST_F(DrawnPieces, pieGoesRoundFromTheTop)
{
    TAVPieChart pie;
    pie.resize(110, 110);
    const auto colorAt = [&pie](const QImage &image, double degrees) {
        const double angle = degrees * std::numbers::pi / 180.0;
        return image.pixelColor(int(55 + 40 * std::cos(angle)), int(55 - 40 * std::sin(angle)));
    };
    QImage image = drawn(pie);
    EXPECT_TRUE(isNear(colorAt(image, 95), TAVPieChart::correctColor()));
    EXPECT_TRUE(isNear(colorAt(image, 335), TAVPieChart::correctColor()));
    EXPECT_TRUE(isNear(colorAt(image, 360), TAVPieChart::misspelledColor()));
    EXPECT_TRUE(isNear(colorAt(image, 30), TAVPieChart::wrongColor()));
    EXPECT_TRUE(isNear(colorAt(image, 85), TAVPieChart::wrongColor()));

    pie.setCorrectPercent(1.0);
    pie.setMisspelledPercent(0.0);
    image = drawn(pie);
    for (int degrees = 0; degrees < 360; degrees += 5)
        EXPECT_TRUE(isNear(colorAt(image, degrees), TAVPieChart::correctColor())) << degrees;
    // A quiz over nothing divides by nothing.
    pie.setCorrectPercent(std::nan(""));
    EXPECT_EQ(colorAt(drawn(pie), 45).alpha(), 0);
}

TEST_F(DrawnPieces, everyRibbonShowsTheStoredTheme)
{
    TAVBookmarkView first;
    EXPECT_TRUE(isNear(first.color(), rgb(0.1, 0.1, 0.1)));
    first.setColor(3);
    EXPECT_TRUE(isNear(TAVBookmarkView().color(), rgb(0.27, 0.35, 0.04)));
    for (const qint64 number : {-1, 6, 4711}) {
        first.setColor(number);
        EXPECT_TRUE(isNear(first.color(), rgb(0.1, 0.1, 0.1)));
        EXPECT_EQ(services.settings.value(QStringLiteral("backgroundColor")), number);
    }
}

TEST_F(DrawnPieces, picturesFollowThePalette)
{
    const auto inkOf = [](const QIcon &icon) {
        const QImage image = icon.pixmap(48, 48).toImage();
        QColor ink(Qt::transparent);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() > ink.alpha())
                    ink = image.pixelColor(x, y);
            }
        }
        return ink;
    };
    const QPalette before = QApplication::palette();
    const QIcon icon = Icons::icon(QStringLiteral("add"));
    for (const QColor &text : {QColor(20, 20, 20), QColor(230, 230, 230)}) {
        QPalette palette = before;
        palette.setColor(QPalette::WindowText, text);
        QApplication::setPalette(palette);
        EXPECT_TRUE(isNear(inkOf(icon), text));
        EXPECT_TRUE(isNear(inkOf(Icons::icon(QStringLiteral("add"), Qt::black)), Qt::black));
    }
    QApplication::setPalette(before);

    QSet<QByteArray> levels;
    for (int level = -1; level <= 7; ++level) {
        const QImage image = Icons::pixmap(Icons::levelName(level), {32, 32}, 1.0, Qt::black).toImage();
        levels.insert(QByteArray(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes()));
    }
    EXPECT_EQ(levels.size(), 6);
    EXPECT_TRUE(Icons::icon(QStringLiteral("no_such_picture")).isNull());
    EXPECT_EQ(Icons::pixmap(QStringLiteral("add"), {24, 24}, 2.0, Qt::black).size(), QSize(48, 48));
}
