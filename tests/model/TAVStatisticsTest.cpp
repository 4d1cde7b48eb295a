#include "model/TAVStatistics.h"
#include "model/TAVLexicon.h"
#include "support/TestServices.h"
#include "support/Words.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

TAVSnapshotRef snapshot(const QDateTime &day, qint64 learned)
{
    auto made = std::make_shared<TAVDailyStatisticsSnapshot>();
    made->setDay(day);
    made->setNumberOfWordsInLevel(0, 1000);
    made->setNumberOfWordsInLevel(1, learned);
    return made;
}

} // namespace

class TAVStatisticsTest : public ServicesTest
{
protected:
    QDateTime today() const { return QDateTime(services.clock.now().date(), QTime(), Qt::UTC); }

    /** Entries of so many words learned, by age in days. */
    TAVStatistics history(const QList<std::pair<int, qint64>> &learnedByAge) const
    {
        TAVStatistics statistics;
        for (const auto &[age, learned] : learnedByAge)
            statistics.addDailySnapshot(snapshot(today().addDays(-age), learned));
        return statistics;
    }
};

TEST_F(TAVStatisticsTest, answersOfOneDayShareAnEntry)
{
    const TAVWordRef word = makeWord({});
    const TAVLexiconRef vocabulary = makeVocabulary({word});
    services.clock.setTimeZone(QTimeZone("Europe/Berlin"));
    const auto answerAt = [&](const QDate &date, const QTime &time) {
        services.clock.setNow(QDateTime(date, time, QTimeZone("Europe/Berlin")));
        vocabulary->answeredWord(word, 1);
        return vocabulary->statistics()->numberOfDaysRecorded();
    };
    // The clock goes forward in the night of the 29th.
    const qint64 before = answerAt(QDate(2027, 3, 28), QTime(0, 5));
    EXPECT_EQ(answerAt(QDate(2027, 3, 28), QTime(23, 55)), before);
    EXPECT_EQ(vocabulary->statistics()->lastSnapshot()->numberOfWordsInLevel(2), 1);
    EXPECT_EQ(answerAt(QDate(2027, 3, 29), QTime(0, 5)), before + 1);
    EXPECT_EQ(vocabulary->statistics()->lastSnapshot()->day(),
              QDateTime(QDate(2027, 3, 29), QTime(), QTimeZone("Europe/Berlin")));
}

TEST_F(TAVStatisticsTest, snapshotWithinAnHourReplacesTheLast)
{
    struct Case
    {
        qint64 seconds;
        qsizetype entries;
        qsizetype alerts;
    };
    const Case cases[] = {{1800, 1, 0},  {3600, 1, 0},  {3601, 2, 0},
                          {-3600, 1, 0}, {-3601, 2, 1}, {-7200, 2, 1}};
    for (const Case &row : cases) {
        services.alerts.shown.clear();
        TAVStatistics statistics;
        statistics.addDailySnapshot(snapshot(today(), 1));
        statistics.addDailySnapshot(snapshot(today().addSecs(row.seconds), 2));
        EXPECT_EQ(statistics.numberOfDaysRecorded(), row.entries) << row.seconds;
        EXPECT_EQ(services.alerts.shown.size(), row.alerts) << row.seconds;
        EXPECT_EQ(statistics.wordsLearnedTotal(), 2) << row.seconds;
        statistics.addDailySnapshot(snapshot(today().addSecs(row.seconds), 3));
        EXPECT_EQ(services.alerts.shown.size(), row.alerts) << "no second alert " << row.seconds;
    }
    const platform::Alert alert = services.alerts.shown.first();
    EXPECT_EQ(alert.title, u"Check your Date and Time settings"_s);
    EXPECT_TRUE(alert.text.startsWith(u"The last time we met was Wed Nov 18 00:00:00 2026"_s));
    EXPECT_TRUE(alert.text.contains(u" but now is Tue Nov 17 22:00:00 2026"_s));
    EXPECT_TRUE(alert.text.endsWith(u"your statistics will not work proberly."_s));
    EXPECT_EQ(alert.buttons, QStringList({u"OK I change my settings"_s, u"OMG we're all gonna die!"_s}));
}

TEST_F(TAVStatisticsTest, countsWhatWasLearned)
{
    struct Case
    {
        QList<std::pair<int, qint64>> learnedByAge;
        qint64 today;
        qint64 week;
        qint64 month;
        qint64 total;
    };
    const Case cases[] = {
        {{}, 0, 0, 0, 0},
        {{{0, 7}}, 7, 7, 7, 7},
        {{{1, 7}}, 0, 7, 7, 7},
        {{{1, 7}, {0, 4}}, -3, -3, -3, 4},
        {{{40, 1}, {29, 10}, {28, 15}, {6, 20}, {5, 30}, {1, 40}, {0, 100}}, 60, 80, 90, 100},
        {{{40, 1}, {30, 5}}, 0, 0, 0, 5},
    };
    for (const Case &row : cases) {
        const TAVStatistics statistics = history(row.learnedByAge);
        EXPECT_EQ(statistics.wordsLearnedToday(), row.today);
        EXPECT_EQ(statistics.wordsLearnedThisWeek(), row.week);
        EXPECT_EQ(statistics.wordsLearnedThisMonth(), row.month);
        EXPECT_EQ(statistics.wordsLearnedTotal(), row.total);
    }
}

TEST_F(TAVStatisticsTest, daysWithoutActivityRepeatTheLast)
{
    const TAVSnapshotList filled = history({{5, 1}, {4, 2}, {1, 3}}).dailySnapshotsIncludingNullDays();
    ASSERT_EQ(filled.size(), 5);
    const qint64 expected[] = {1, 2, 2, 2, 3};
    for (qsizetype i = 0; i < filled.size(); ++i) {
        EXPECT_EQ(filled[i]->numberOfAllExceptUnknown(), expected[i]) << i;
        EXPECT_EQ(filled[i]->day(), today().addDays(i - 5)) << i;
    }

    // The clock goes forward on the second day; the days in between are counted in seconds all the same.
    const QTimeZone berlin("Europe/Berlin");
    TAVStatistics spring;
    for (const QDate &day : {QDate(2027, 3, 27), QDate(2027, 3, 31)})
        spring.addDailySnapshot(snapshot(QDateTime(day, QTime(), berlin), 1));
    const TAVSnapshotList days = spring.dailySnapshotsIncludingNullDays();
    ASSERT_EQ(days.size(), 4);
    EXPECT_EQ(days[2]->day(), QDateTime(QDate(2027, 3, 29), QTime(1, 0), berlin));

    // Stamps of a damaged file don't fill the memory.
    TAVStatistics damaged;
    for (int i = 0; i < 100; ++i) {
        damaged.addDailySnapshot(snapshot(QDateTime::fromSecsSinceEpoch(-62135596800LL, Qt::UTC), 1));
        damaged.addDailySnapshot(snapshot(QDateTime::fromSecsSinceEpoch(253402300799LL, Qt::UTC), 1));
    }
    EXPECT_LT(damaged.dailySnapshotsIncludingNullDays().size(), 200000);
}

TEST_F(TAVStatisticsTest, longHistoryIsHalved)
{
    struct Case
    {
        int entries;
        QList<qint64> firstAges;
        qsizetype left;
    };
    const std::pair<int, qsizetype> cases[] = {{0, 0}, {39, 39}, {40, 21}, {41, 21}, {100, 26}};
    for (const auto &[entries, left] : cases) {
        QList<std::pair<int, qint64>> learned;
        for (int i = 0; i < entries; ++i)
            learned.append({entries - i, i});
        const TAVStatistics statistics = history(learned);
        const TAVSnapshotList thinned = statistics.interpolatedSnapshots(30);
        EXPECT_EQ(thinned.size(), left) << entries;
        EXPECT_EQ(thinned.isEmpty() ? nullptr : thinned.last(), statistics.lastSnapshot());
        const qint64 step = entries == 100 ? 4 : entries < 40 ? 1 : 2;
        EXPECT_TRUE(thinned.isEmpty() || thinned[1]->numberOfAllExceptUnknown() == step) << entries;
    }
}

TEST_F(TAVStatisticsTest, shareOfTheLanguageFollowsTheCurve)
{
    // The fraction of the way at the ends of its straight sections, and within them.
    const std::pair<qint64, double> cases[] = {
        {1, 0.0025},  {99, 0.2475},        {100, 0.25},   {500, 0.4},     {750, 0.5},
        {1000, 0.6},  {1999, 0.6999},      {2000, 0.7},   {10000, 0.8},   {15000, 0.85},
        {20000, 0.9}, {99999, 0.99999875}, {100000, 1.0}, {5000000, 1.0},
    };
    for (const auto &[words, fraction] : cases) {
        const double expected = 100 / (1 + std::exp(-2 * M_PI * (2 * fraction - 1)));
        EXPECT_NEAR(TAVStatistics::percentOfLanguage(words), expected, 1e-4) << words;
    }
    EXPECT_EQ(TAVStatistics::percentOfLanguage(0), 0.0);
}
