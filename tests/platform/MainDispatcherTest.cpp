#include "platform/MainDispatcher.h"
#include "platform/Clock.h"
#include "platform/Queues.h"

#include "support/WaitUntil.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>

using namespace std::chrono_literals;
using platform::ClosedGate;

namespace {

class MainDispatcherTest : public ::testing::Test
{
protected:
    std::function<void()> note(const char *name)
    {
        return [this, name] { noted.append(QLatin1String(name)); };
    }
    /** Long enough for what is due after a millisecond; the event loop runs meanwhile, as under an alert. */
    static void letFallDue()
    {
        const QDeadlineTimer due(60ms);
        EXPECT_TRUE(waitUntil([&] { return due.hasExpired(); }));
    }

    platform::MainDispatcher dispatcher;
    std::unique_ptr<platform::Clock> clock = platform::makeSystemClock(dispatcher);
    std::unique_ptr<platform::Queues> queues = platform::makeSystemQueues(dispatcher);
    QStringList noted;
};

TEST_F(MainDispatcherTest, behindAClosedGateEverythingWaitsAndRunsAfterInOneOrder)
{
    auto first = std::make_optional<ClosedGate>(dispatcher);
    auto second = std::make_optional<ClosedGate>(dispatcher);
    int ticks = 0;
    const auto ticking = clock->startTimer(1ms, true, [&] { ++ticks; });
    auto dropped = clock->startTimer(1ms, false, note("dropped"));
    auto context = std::make_unique<QObject>();
    queues->mainAsync(context.get(), note("context gone"));
    std::optional<ClosedGate> closedByCall;
    int ticksBefore = -1;
    letFallDue();
    clock->callAfter(1ms, nullptr, [&] {
        noted.append(QStringLiteral("delayed"));
        ticksBefore = ticks;
        closedByCall.emplace(dispatcher);
    });
    letFallDue();
    std::thread([&] { queues->mainAsync(nullptr, note("posted")); }).join();
    letFallDue();
    const auto timer = clock->startTimer(1ms, false, note("timer"));
    letFallDue();
    dropped.reset();
    context.reset();
    second.reset();
    letFallDue();
    EXPECT_TRUE(noted.isEmpty());
    EXPECT_EQ(ticks, 0);

    // Posted, but not due before the gate opens: it still comes last.
    queues->mainAsync(nullptr, note("last"));
    first.reset();
    EXPECT_TRUE(noted.isEmpty()) << "whoever closed the gate comes to its end first";
    ASSERT_TRUE(waitUntil([&] { return closedByCall.has_value(); }));
    letFallDue();
    EXPECT_EQ(noted.join(u' '), QStringLiteral("delayed")) << "a call that closes the gate holds the rest";
    EXPECT_EQ(ticksBefore, 1) << "however often it fell due";
    closedByCall.reset();
    ASSERT_TRUE(waitUntil([&] { return noted.size() == 4 && ticks > 2; }));
    EXPECT_EQ(noted.join(u' '), QStringLiteral("delayed posted timer last"));
}

TEST_F(MainDispatcherTest, aClosedGateHoldsNeitherTheBackgroundNorThePlatformsChores)
{
    const ClosedGate gate(dispatcher);
    std::atomic<int> early = 0;
    std::atomic<int> late = 0;
    std::thread([&] {
        queues->globalAsyncAfter(1ms, [&] { ++early; });
        queues->globalAsyncAfter(10min, [&] { ++late; });
        dispatcher.postPastGate(note("chore"));
        // Armed past the gate, run behind it.
        clock->callAfter(1ms, nullptr, note("delayed"));
    }).join();
    ASSERT_TRUE(waitUntil([&] { return early == 1 && !noted.isEmpty(); }));
    letFallDue();
    EXPECT_EQ(noted.join(u' '), QStringLiteral("chore"));
    EXPECT_EQ(late, 0);
    // What is still to come is dropped at the end.
    queues->globalAsyncAfter(1ms, [&] { ++late; });
    EXPECT_TRUE(queues->finish(20s));
    letFallDue();
    queues.reset();
    EXPECT_EQ(late, 0);
}

} // namespace
