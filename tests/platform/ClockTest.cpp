#include "platform/Clock.h"
#include "platform/MainDispatcher.h"

#include "support/WaitUntil.h"

#include <gtest/gtest.h>

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
    platform::MainDispatcher dispatcher;
    std::unique_ptr<platform::Clock> clock = platform::makeSystemClock(dispatcher);
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

TEST_F(ClockTest, theZoneIsTheSystemsHoweverItIsNamed)
{
    const QByteArray before = qgetenv("TZ");
    const bool wasSet = qEnvironmentVariableIsSet("TZ");
    const struct
    {
        const char *name;
        int offset;
        bool hasRules;
    } cases[] = {
        {"Asia/Tokyo", 9 * 3600, true},
        {"/usr/share/zoneinfo/Asia/Tokyo", 9 * 3600, false},
        {":/usr/share/zoneinfo/Asia/Tokyo", 9 * 3600, false},
        {"UTC-14", 14 * 3600, false},
        {"UTC+3", -3 * 3600, false},
        {"<+0545>-5:45", 5 * 3600 + 45 * 60, false},
        {"", 0, false},
        {"No/Where", 0, false},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.name);
        qputenv("TZ", each.name);
        const QTimeZone zone = clock->timeZone();
        EXPECT_TRUE(zone.isValid());
        EXPECT_EQ(zone.offsetFromUtc(clock->now()), each.offset);
        EXPECT_TRUE(QDate(2026, 11, 23).startOfDay(zone).isValid());
        EXPECT_TRUE(!each.hasRules || zone.id() == each.name);
    }
    wasSet ? qputenv("TZ", before) : qunsetenv("TZ");
}

} // namespace
