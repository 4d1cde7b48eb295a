#include "widgets/CardFlip.h"
#include "support/GuiTest.h"
#include "widgets/CardFlipOverlay.h"
#include "widgets/TAVCardView.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include <numbers>

using namespace std::chrono_literals;

namespace {

constexpr double pi = std::numbers::pi;

class CardFlipTest : public ServicesTest
{
protected:
    CardFlipTest()
    {
        window->resize(500, 320);
        card->setGeometry(100, 60, 300, 200);
        card->setColorCorrect();
        answer->setGeometry(20, 150, 200, 24);
        window->show();
        window->activateWindow();
        answer->setFocus();
        processEvents();
    }

    void startFlip()
    {
        flip.flipFirstHalf();
        card->setColorWrong();
        flip.flipSecondHalf();
    }
    CardFlipOverlay *overlay() const { return window ? window->findChild<CardFlipOverlay *>() : nullptr; }
    /** What the user sees at a place of the window. */
    QColor seen(int x, int y) const { return window->grab().toImage().pixelColor(x, y); }
    bool isGreen(const QColor &color) const { return color.green() > color.red() + 8; }
    bool isRed(const QColor &color) const { return color.red() > color.green() + 8; }

    QPointer<QWidget> window = new QWidget;
    QPointer<TAVCardView> card = new TAVCardView(window);
    QPointer<QLineEdit> answer = new QLineEdit(card);
    CardFlip flip{card};
    QSignalSpy stops{&flip, &CardFlip::animationDidStop};
    std::unique_ptr<QWidget> owner{window};
};

} // namespace

TEST(CardFlipLayers, turnHalfwayRoundAndGrowOnTheWay)
{
    constexpr double before = 0.5 - 1e-6;
    constexpr double after = 0.5 + 1e-6;
    struct Case
    {
        double fraction;
        bool onTop;
        double angle;
        double scale;
        bool isVisible;
    };
    for (const Case &c : {Case{0.0, true, 0.0, 1.0, true}, Case{0.0, false, pi, 1.0, false},
                          Case{before, true, -pi / 2, 1.3, true}, Case{before, false, pi / 2, 1.3, false},
                          Case{after, true, -pi / 2, 1.3, false}, Case{after, false, pi / 2, 1.3, true},
                          Case{1.0, true, -pi, 1.0, false}, Case{1.0, false, 0.0, 1.0, true}}) {
        const CardFlip::LayerState state = CardFlip::flipAnimation(c.fraction, c.onTop, 1.3);
        EXPECT_NEAR(state.angle, c.angle, 1e-4) << c.fraction;
        EXPECT_NEAR(state.scale, c.scale, 1e-4) << c.fraction;
        EXPECT_EQ(state.isVisible, c.isVisible) << c.fraction << c.onTop;
        EXPECT_DOUBLE_EQ(CardFlip::flipAnimation(c.fraction, c.onTop, 1.0).scale, 1.0);
    }
    // Slow at the ends, fast in the middle.
    EXPECT_LT(std::abs(CardFlip::flipAnimation(0.1, true, 1.3).angle), 0.05 * pi);
    EXPECT_GT(CardFlip::opacityPulse(0.5), 0.99);
    EXPECT_LT(CardFlip::opacityPulse(0.0) + CardFlip::opacityPulse(1.0), 0.01);
}

TEST(CardFlipLayers, theDepthDecidesWhichEdgeComesToTheFront)
{
    for (const double depth : {-1.0 / 1500.0, 1.0 / 1500.0}) {
        const CardFlip::LayerState state = CardFlip::flipAnimation(0.4, true, 1.3);
        const QTransform transform = CardFlip::layerTransform(state, depth, 600);
        const auto heightAt = [&transform](double x) {
            return transform.map(QPointF(x, 100)).y() - transform.map(QPointF(x, -100)).y();
        };
        EXPECT_EQ(heightAt(300) > heightAt(-300), depth < 0) << depth;
    }
    // However wide, no edge passes the eye, where everything would turn over.
    const QTransform wide = CardFlip::layerTransform({-pi / 2 + 0.01, 1.3, true}, -1.0 / 1500.0, 8000);
    EXPECT_GT(wide.map(QPointF(4000, 1)).y(), 0.0);
}

TEST_F(CardFlipTest, oldFaceTurnsAwayAndNewFaceIn)
{
    const QImage resting = window->grab().toImage();
    startFlip();
    ASSERT_TRUE(overlay());
    QImage image = window->grab().toImage();
    for (const QPoint &place : {QPoint(150, 80), QPoint(99, 80), QPoint(300, 250), QPoint(100, 60)})
        EXPECT_LE(std::abs(qGreen(image.pixel(place)) - qGreen(resting.pixel(place))), 3)
            << "a jump at the start";

    services.clock.advance(374ms);
    EXPECT_TRUE(isGreen(seen(250, 80)));
    EXPECT_FALSE(isGreen(seen(150, 80))) << "the resting card shows under the turning one";
    EXPECT_TRUE(isGreen(seen(250, 45))) << "it grows beyond the card";
    services.clock.advance(20ms);
    EXPECT_TRUE(isRed(seen(250, 80)));

    // Focus and typing are not disturbed.
    EXPECT_EQ(window->focusWidget(), answer);
    QTest::keyClicks(answer, QStringLiteral("ab"));
    services.clock.advance(353ms);
    EXPECT_TRUE(flip.isFlipping());
    services.clock.advance(16ms);
    EXPECT_FALSE(flip.isFlipping());
    EXPECT_EQ(stops.count(), 1);
    EXPECT_EQ(answer->text(), QStringLiteral("ab"));
    processEvents();
    EXPECT_FALSE(overlay());
    EXPECT_TRUE(isRed(seen(150, 80)));
    EXPECT_EQ(services.clock.pendingCount(), 0);
}

TEST_F(CardFlipTest, aSecondStepInMidFlightChangesOnlyTheNewFace)
{
    flip.flipSecondHalf();
    EXPECT_FALSE(overlay()) << "nothing to turn without a first half";
    startFlip();
    services.clock.advance(100ms);
    flip.flipFirstHalf();
    card->setColorCorrect();
    flip.flipSecondHalf();
    EXPECT_EQ(window->findChildren<CardFlipOverlay *>().size(), 1);
    services.clock.advance(400ms);
    EXPECT_TRUE(isGreen(seen(250, 80)));
    services.clock.advance(300ms);
    EXPECT_EQ(stops.count(), 1);
    EXPECT_FALSE(flip.isFlipping());
}

TEST_F(CardFlipTest, whateverHappensToItsWindowEndsTheFlipCleanly)
{
    const std::pair<const char *, std::function<void()>> events[] = {
        {"card hidden", [this] { card->hide(); }},
        {"card resized", [this] { card->resize(280, 190); }},
        {"window resized", [this] { window->resize(600, 400); }},
        {"window hidden", [this] { window->hide(); }},
        {"finished", [this] { flip.finish(); }},
    };
    for (const auto &[what, happens] : events) {
        window->show();
        card->show();
        stops.clear();
        startFlip();
        services.clock.advance(200ms);
        ASSERT_TRUE(flip.isFlipping()) << what;
        happens();
        processEvents();
        EXPECT_FALSE(flip.isFlipping()) << what;
        EXPECT_FALSE(overlay()) << what;
        EXPECT_FALSE(card->graphicsEffect()) << what << ": the card stays unseen";
        EXPECT_EQ(stops.count(), 1) << what;
        EXPECT_EQ(services.clock.pendingCount(), 0) << what;
    }
    // A hidden card has nothing to turn; the step is over at once.
    card->hide();
    stops.clear();
    startFlip();
    EXPECT_FALSE(flip.isFlipping());
    EXPECT_EQ(stops.count(), 1);
}

TEST_F(CardFlipTest, cardOrWindowMayBeDestroyedInMidFlight)
{
    startFlip();
    services.clock.advance(200ms);
    delete card;
    EXPECT_FALSE(flip.isFlipping());
    processEvents();
    EXPECT_FALSE(overlay());
    services.clock.advance(1s);
    EXPECT_EQ(stops.count(), 0);

    auto *other = new TAVCardView(window);
    other->setGeometry(100, 60, 300, 200);
    other->show();
    CardFlip otherFlip(other);
    otherFlip.flipFirstHalf();
    otherFlip.flipSecondHalf();
    ASSERT_TRUE(otherFlip.isFlipping());
    owner.reset();
    EXPECT_FALSE(otherFlip.isFlipping());
    services.clock.advance(1s);
    EXPECT_EQ(services.clock.pendingCount(), 0);
}
