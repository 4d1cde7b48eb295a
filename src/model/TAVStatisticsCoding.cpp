#include "model/CodingNumbers.h"
#include "model/FieldSink.h"
#include "model/FieldSource.h"
#include "model/TAVStatistics.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"

using namespace Qt::StringLiterals;

namespace {

/** The keys of the counts, by level. */
constexpr std::array<QLatin1StringView, TAVDailyStatisticsSnapshot::numberOfLevels> mapKeys = {
    "noU"_L1, "noUST"_L1, "noST"_L1, "noMT"_L1, "noLT"_L1, "noN"_L1};
constexpr std::array<QLatin1StringView, TAVDailyStatisticsSnapshot::numberOfLevels> archiveKeys = {
    "numberOfUnknownWords"_L1, "numberOfUltraShortTermWords"_L1, "numberOfShortTermWords"_L1,
    "numberOfMidTermWords"_L1, "numberOfLongTermWords"_L1,       "numberOfNativeWords"_L1};
/** Its count is kept in 32 bits in archives. */
constexpr int narrowLevel = 1;

constexpr QLatin1StringView snapshotClass = "TAVDailyStatisticsSnapshot"_L1;

/** Days are kept in a short float, which rounds a present-day stamp by up to 64 seconds. */
QDateTime dayFromSeconds(double seconds)
{
    const QDateTime day = coding::dateFromSeconds(seconds);
    return coding::dateFromSeconds(day.isValid() ? double(float(seconds)) : 0.0);
}

} // namespace

TAVSnapshotRef TAVDailyStatisticsSnapshot::initWithDictionary(const QJsonObject &dictionary)
{
    MapSource source(dictionary);
    return initWithFields(source);
}

TAVSnapshotRef TAVDailyStatisticsSnapshot::initWithFields(FieldSource &source)
{
    const auto snapshot = std::make_shared<TAVDailyStatisticsSnapshot>();
    snapshot->setDay(coding::dateFromSeconds(0));
    while (source.next()) {
        if (source.key() == "day")
            snapshot->setDay(dayFromSeconds(source.real().value_or(0)));
        const auto *const key = std::find(mapKeys.begin(), mapKeys.end(), QLatin1StringView(source.key()));
        if (key != mapKeys.end())
            snapshot->setNumberOfWordsInLevel(int(key - mapKeys.begin()), source.integer());
    }
    return snapshot;
}

QJsonObject TAVDailyStatisticsSnapshot::dictionaryRepresentation() const
{
    return MapSink::mapOf([this](FieldSink &sink) { writeFields(sink); });
}

void TAVDailyStatisticsSnapshot::writeFields(FieldSink &sink) const
{
    sink.real("day"_L1, coding::secondsFromDate(m_day));
    for (int level = 0; level < numberOfLevels; ++level) {
        if (const qint64 number = numberOfWordsInLevel(level); number > 0)
            sink.integer(mapKeys[size_t(level)], number);
    }
}

TAVSnapshotRef TAVDailyStatisticsSnapshot::initWithCoder(const ArchiveDecoder &decoder)
{
    const auto snapshot = std::make_shared<TAVDailyStatisticsSnapshot>();
    for (int level = 0; level < numberOfLevels; ++level) {
        const qint64 number = decoder.integer(archiveKeys[size_t(level)]);
        snapshot->setNumberOfWordsInLevel(level, level == narrowLevel ? qint64(qint32(number)) : number);
    }
    const QDateTime day = decoder.date("day"_L1);
    snapshot->setDay(day.isValid() ? day : coding::dateFromSeconds(0));
    return snapshot;
}

void TAVDailyStatisticsSnapshot::encodeWithCoder(ArchiveEncoder &encoder) const
{
    for (int level = 0; level < numberOfLevels; ++level)
        encoder.integer(archiveKeys[size_t(level)], numberOfWordsInLevel(level));
    encoder.date("day"_L1, m_day);
}

std::shared_ptr<TAVStatistics> TAVStatistics::initWithDictionary(const QJsonObject &dictionary)
{
    MapSource source(dictionary);
    return initWithFields(source);
}

std::shared_ptr<TAVStatistics> TAVStatistics::initWithFields(FieldSource &source)
{
    const auto statistics = std::make_shared<TAVStatistics>();
    while (source.next()) {
        if (source.key() == "dailySnapshots") {
            TAVSnapshotList snapshots;
            source.records([&snapshots](FieldSource &snapshot) {
                snapshots.append(TAVDailyStatisticsSnapshot::initWithFields(snapshot));
            });
            statistics->m_dailySnapshots = snapshots;
        }
    }
    return statistics;
}

QJsonObject TAVStatistics::dictionaryRepresentation() const
{
    return MapSink::mapOf([this](FieldSink &sink) { writeFields(sink); });
}

void TAVStatistics::writeFields(FieldSink &sink) const
{
    sink.records("dailySnapshots"_L1, m_dailySnapshots.size(),
                 [this](FieldSink &snapshot, qsizetype i) { m_dailySnapshots.at(i)->writeFields(snapshot); });
}

std::shared_ptr<TAVStatistics> TAVStatistics::initWithCoder(const ArchiveDecoder &decoder)
{
    const auto statistics = std::make_shared<TAVStatistics>();
    decoder.objects("dailySnapshots"_L1, snapshotClass, [&statistics](const ArchiveDecoder &snapshot) {
        statistics->m_dailySnapshots.append(TAVDailyStatisticsSnapshot::initWithCoder(snapshot));
    });
    return statistics;
}

void TAVStatistics::encodeWithCoder(ArchiveEncoder &encoder) const
{
    encoder.objects(
        "dailySnapshots"_L1, snapshotClass, m_dailySnapshots.size(),
        [this](ArchiveEncoder &snapshot, qsizetype i) { m_dailySnapshots.at(i)->encodeWithCoder(snapshot); });
}
