#include "platform/Clock.h"

#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

using namespace std::chrono_literals;

namespace {

class ClockTest : public ::testing::Test
{
protected:
    /** A call that notes its name. */
    std::function<void()> note(const char *name)
    {
        return [this, name] { noted.append(QLatin1String(name)); };
    }
    QStringList noted;
    std::unique_ptr<platform::Clock> clock = platform::makeSystemClock();
};

TEST_F(ClockTest, timersFireUntilTheirOwnerLetsGo)
{
    std::unique_ptr<platform::Timer> repeating;
    int count = 0;
    repeating = clock->startTimer(1ms, true, [&] {
        if (++count == 3)
            repeating.reset();
    });
    auto once = clock->startTimer(1ms, false, note("once"));
    auto dropped = clock->startTimer(1ms, false, note("dropped"));
    dropped.reset();
    {
        QObject context;
        clock->callAfter(1ms, &context, note("context gone"));
    }
    std::thread([&] { clock->callAfter(1ms, nullptr, note("from a thread")); }).join();
    clock->callAfter(30ms, nullptr, note("last"));
    ASSERT_TRUE(waitUntil([&] { return noted.contains(QLatin1String("last")); }));
    EXPECT_EQ(count, 3);
    noted.sort();
    EXPECT_EQ(noted.join(u' '), QStringLiteral("from a thread last once"));
}

TEST_F(ClockTest, nothingFiresWhileHeldAndWhatFellDueComesAfterInOrder)
{
    clock->hold();
    clock->hold();
    int ticks = 0;
    const auto ticking = clock->startTimer(1ms, true, [&] { ++ticks; });
    std::optional<int> ticksAtHold;
    auto dropped = clock->startTimer(1ms, false, note("dropped"));
    clock->callAfter(3ms, nullptr, [&] {
        noted.append(QStringLiteral("a"));
        clock->hold();
        ticksAtHold = ticks;
    });
    clock->callAfter(8ms, nullptr, note("b"));
    clock->callAfter(13ms, nullptr, note("c"));

    const auto letFallDue = [&] {
        // The program's clock is held, so the passing of time is taken from the event loop.
        const QDeadlineTimer due(60ms);
        EXPECT_TRUE(waitUntil([&] { return due.hasExpired(); }));
    };
    letFallDue();
    dropped.reset();
    clock->release();
    letFallDue();
    EXPECT_TRUE(noted.isEmpty());
    EXPECT_EQ(ticks, 0);

    clock->release();
    EXPECT_TRUE(noted.isEmpty()) << "not from inside release()";
    ASSERT_TRUE(waitUntil([&] { return ticksAtHold.has_value(); }));
    letFallDue();
    EXPECT_EQ(noted.join(u' '), QStringLiteral("a")) << "a call that holds the clock holds the rest";
    EXPECT_EQ(ticks, 1) << "however often it fell due";
    clock->release();
    ASSERT_TRUE(waitUntil([&] { return noted.size() == 3 && ticks > 2; }));
    EXPECT_EQ(noted.join(u' '), QStringLiteral("a b c"));
}

} // namespace
