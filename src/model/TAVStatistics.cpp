#include "model/TAVStatistics.h"

#include "app/ground/AppGround.h"
#include "model/CodingNumbers.h"
#include "model/TAVLexicon.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"

#include <cmath>
#include <iterator>
#include <numeric>

namespace {

constexpr qint64 millisecondsPerSecond = 1000;
constexpr qint64 secondsPerHour = 3600;
constexpr qint64 secondsPerDay = 86400;

/** How far the snapshot's day lies before today; negative for one in the future. */
qint64 ageInMilliseconds(const TAVDailyStatisticsSnapshot &snapshot, const QDateTime &today)
{
    return snapshot.day().msecsTo(today);
}

QString textOfDay(const TAVDailyStatisticsSnapshot &snapshot)
{
    return snapshot.day().toTimeZone(platform::clock().timeZone()).toString();
}

void alertClockWentBackwards(const TAVDailyStatisticsSnapshot &last, const TAVDailyStatisticsSnapshot &now)
{
    const QString text = QStringLiteral(
        "The last time we met was %1 but now is %2. So either your time settings are wrong or we are in the "
        "middle of a horrifying worm whole causing time and space to collapse. Anyway your statistics will "
        "not work proberly.");
    platform::services().alerts->show(
        {.title = QStringLiteral("Check your Date and Time settings"),
         .text = text.arg(textOfDay(last), textOfDay(now)),
         .buttons = {QStringLiteral("OK I change my settings"), QStringLiteral("OMG we're all gonna die!")}});
}

} // namespace

TAVDailyStatisticsSnapshot::TAVDailyStatisticsSnapshot()
    : m_day(AppGround::todaysDate())
{
}

TAVDailyStatisticsSnapshot::TAVDailyStatisticsSnapshot(const TAVLexicon &vocabulary)
    : TAVDailyStatisticsSnapshot()
{
    for (int level = 0; level < numberOfLevels; ++level)
        setNumberOfWordsInLevel(level, vocabulary.wordsOfLevel(quint64(level)).size());
}

qint64 TAVDailyStatisticsSnapshot::numberOfAllExceptUnknown() const
{
    return std::accumulate(m_numberOfWords.begin() + 1, m_numberOfWords.end(), qint64(0), coding::sum);
}

int TAVDailyStatisticsSnapshot::compareDates(const TAVDailyStatisticsSnapshot &other) const
{
    const qint64 difference = m_day.toMSecsSinceEpoch() / millisecondsPerSecond -
                              other.m_day.toMSecsSinceEpoch() / millisecondsPerSecond;
    return int(difference > secondsPerHour) - int(difference < -secondsPerHour);
}

QString TAVDailyStatisticsSnapshot::description() const
{
    QStringList counts;
    for (const qint64 number : m_numberOfWords)
        counts.append(QString::number(number));
    return QStringLiteral("%1 [%2 %3 %4  %5 %6 %7]")
        .arg(m_day.toString(), counts[0], counts[1], counts[2], counts[3], counts[4], counts[5]);
}

void TAVStatistics::addDailySnapshot(TAVSnapshotRef snapshot)
{
    if (!snapshot) {
        platform::diagnosticLog(QStringLiteral("Statistics > addDailySnap > tried to insert NIL"));
        return;
    }
    const int order = m_dailySnapshots.isEmpty() ? -1 : lastSnapshot()->compareDates(*snapshot);
    if (order == 0) {
        m_dailySnapshots.last() = std::move(snapshot);
        return;
    }
    if (order > 0)
        alertClockWentBackwards(*lastSnapshot(), *snapshot);
    m_dailySnapshots.append(std::move(snapshot));
}

TAVSnapshotRef TAVStatistics::lastSnapshot() const
{
    return m_dailySnapshots.isEmpty() ? nullptr : m_dailySnapshots.last();
}

qint64 TAVStatistics::wordsLearnedToday() const
{
    const TAVSnapshotRef last = lastSnapshot();
    if (!last || ageInMilliseconds(*last, AppGround::todaysDate()) > secondsPerHour * millisecondsPerSecond)
        return 0;
    const qsizetype count = m_dailySnapshots.size();
    const qint64 before = count > 1 ? m_dailySnapshots.at(count - 2)->numberOfAllExceptUnknown() : 0;
    return coding::difference(last->numberOfAllExceptUnknown(), before);
}

qint64 TAVStatistics::wordsLearnedSince(qint64 spanInSeconds) const
{
    const TAVSnapshotRef last = lastSnapshot();
    if (!last)
        return 0;
    if (m_dailySnapshots.size() == 1)
        return last->numberOfAllExceptUnknown();
    const QDateTime today = AppGround::todaysDate();
    const auto isOldEnough = [&today, span = spanInSeconds * millisecondsPerSecond](const TAVSnapshotRef &s) {
        return ageInMilliseconds(*s, today) >= span;
    };
    const auto found = std::find_if(m_dailySnapshots.crbegin(), m_dailySnapshots.crend(), isOldEnough);
    const TAVSnapshotRef start = found != m_dailySnapshots.crend() ? *found : m_dailySnapshots.first();
    return coding::difference(last->numberOfAllExceptUnknown(), start->numberOfAllExceptUnknown());
}

qint64 TAVStatistics::wordsLearnedThisWeek() const
{
    return wordsLearnedSince(6 * secondsPerDay);
}

qint64 TAVStatistics::wordsLearnedThisMonth() const
{
    return wordsLearnedSince(29 * secondsPerDay);
}

qint64 TAVStatistics::wordsLearnedTotal() const
{
    const TAVSnapshotRef last = lastSnapshot();
    return last ? last->numberOfAllExceptUnknown() : 0;
}

TAVSnapshotList TAVStatistics::dailySnapshotsIncludingNullDays() const
{
    // Nobody has learned for that many days: the stamps are damaged, and filling the gap would take all
    // memory.
    constexpr qint64 maxFillers = 100000;
    TAVSnapshotList all;
    qint64 fillers = 0;
    for (const TAVSnapshotRef &snapshot : m_dailySnapshots) {
        if (!all.isEmpty()) {
            const TAVSnapshotRef earlier = all.last();
            const qint64 days =
                earlier->day().msecsTo(snapshot->day()) / (secondsPerDay * millisecondsPerSecond);
            const bool fits = days - 1 <= maxFillers - fillers;
            for (qint64 day = 1; fits && day < days; ++day, ++fillers) {
                const auto filler = std::make_shared<TAVDailyStatisticsSnapshot>(*earlier);
                filler->setDay(earlier->day().addSecs(day * secondsPerDay));
                all.append(filler);
            }
        }
        all.append(snapshot);
    }
    return all;
}

TAVSnapshotList TAVStatistics::interpolatedSnapshots(qint64 n) const
{
    TAVSnapshotList thinned = m_dailySnapshots;
    for (qint64 excess = thinned.size() - n; excess >= 10 && thinned.size() > 1;) {
        TAVSnapshotList evenOnes;
        for (qsizetype i = 0; i < thinned.size(); i += 2)
            evenOnes.append(thinned.at(i));
        excess -= thinned.size() - evenOnes.size();
        thinned = evenOnes;
    }
    if (const TAVSnapshotRef last = lastSnapshot(); last && !thinned.contains(last))
        thinned.append(last);
    return thinned;
}

double TAVStatistics::percentOfLanguage(qint64 numberOfWords)
{
    struct Section
    {
        qint64 end;
        qint64 start;
        double slope;
        double fraction;
    };
    static constexpr Section sections[] = {
        {100, 0, 0.0025, 0.0},
        {500, 100, 0.000375, 0.25},
        {1000, 500, 0.0004, 0.4},
        {2000, 1000, 0.0001, 0.6},
        {10000, 2000, 0.0000125, 0.7},
        {20000, 10000, 0.00001, 0.8},
        {100000, 20000, 0.00000125, 0.9},
    };
    if (numberOfWords == 0)
        return 0;
    const auto section =
        std::find_if(std::begin(sections), std::end(sections),
                     [numberOfWords](const Section &candidate) { return numberOfWords < candidate.end; });
    const double x = section != std::end(sections)
                         ? double(numberOfWords - section->start) * section->slope + section->fraction
                         : 1.0;
    // An S-shaped curve over minus pi to pi: a vocabulary of middling size gains fastest.
    const float y = std::tanh(float(x * 6.28318530718 - 3.14159265359));
    return (double(y) * 0.5 + 0.5) * 100;
}
