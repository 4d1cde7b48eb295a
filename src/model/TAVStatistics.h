#pragma once

#include "model/MemoryLevels.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>

#include <array>
#include <memory>
#include <optional>

class ArchiveDecoder;
class ArchiveEncoder;
class FieldSink;
class FieldSource;
class TAVDailyStatisticsSnapshot;
class TAVLexicon;

using TAVSnapshotRef = std::shared_ptr<TAVDailyStatisticsSnapshot>;
using TAVSnapshotList = QList<TAVSnapshotRef>;

/** How many words stood on each level at the end of one day. */
class TAVDailyStatisticsSnapshot
{
public:
    static constexpr int numberOfLevels = levels::number;

    /** Today, with all counts 0. */
    TAVDailyStatisticsSnapshot();
    /** Today, with the present counts of the vocabulary. */
    explicit TAVDailyStatisticsSnapshot(const TAVLexicon &vocabulary);
    TAVDailyStatisticsSnapshot(const TAVDailyStatisticsSnapshot &) = default;
    TAVDailyStatisticsSnapshot &operator=(const TAVDailyStatisticsSnapshot &) = default;

    static TAVSnapshotRef initWithDictionary(const QJsonObject &dictionary);
    static TAVSnapshotRef initWithFields(FieldSource &source);
    QJsonObject dictionaryRepresentation() const;
    void writeFields(FieldSink &sink) const;
    static TAVSnapshotRef initWithCoder(const ArchiveDecoder &decoder);
    void encodeWithCoder(ArchiveEncoder &encoder) const;

    /** Local midnight of the day. */
    QDateTime day() const { return m_day; }
    void setDay(const QDateTime &day) { m_day = day; }
    /** Level is 0 to 5. */
    qint64 numberOfWordsInLevel(int level) const { return m_numberOfWords.at(size_t(level)); }
    void setNumberOfWordsInLevel(int level, qint64 number) { m_numberOfWords.at(size_t(level)) = number; }
    qint64 numberOfAllExceptUnknown() const;

    /** 0 for days within an hour of each other, so that rounded and shifted stamps still match. */
    int compareDates(const TAVDailyStatisticsSnapshot &other) const;
    QString description() const;

private:
    QDateTime m_day;
    std::array<qint64, numberOfLevels> m_numberOfWords = {};
};

/** A vocabulary's history, one snapshot for each day on which it was used. */
class TAVStatistics
{
public:
    TAVStatistics() = default;

    static std::shared_ptr<TAVStatistics> initWithDictionary(const QJsonObject &dictionary);
    static std::shared_ptr<TAVStatistics> initWithFields(FieldSource &source);
    QJsonObject dictionaryRepresentation() const;
    void writeFields(FieldSink &sink) const;
    static std::shared_ptr<TAVStatistics> initWithCoder(const ArchiveDecoder &decoder);
    void encodeWithCoder(ArchiveEncoder &encoder) const;

    const TAVSnapshotList &dailySnapshots() const { return m_dailySnapshots; }
    void setDailySnapshots(const TAVSnapshotList &snapshots) { m_dailySnapshots = snapshots; }

    /** Replaces the last entry if it is of the same day, else appends. Alerts when the clock went backwards.
     */
    void addDailySnapshot(TAVSnapshotRef snapshot);
    /** Absent while nothing is recorded. */
    TAVSnapshotRef lastSnapshot() const;

    /** Words that left level 0; negative when more have fallen back. */
    qint64 wordsLearnedToday() const;
    qint64 wordsLearnedThisWeek() const;
    qint64 wordsLearnedThisMonth() const;
    qint64 wordsLearnedTotal() const;
    qint64 numberOfDaysRecorded() const { return m_dailySnapshots.size(); }
    /** With copies filling the days without activity. */
    TAVSnapshotList dailySnapshotsIncludingNullDays() const;
    /** Thinned by halving to about n entries; the newest always stays. */
    TAVSnapshotList interpolatedSnapshots(qint64 n) const;
    /** Estimated share of a language that so many words cover, 0 to 100. */
    static double percentOfLanguage(qint64 numberOfWords);

private:
    qint64 wordsLearnedSince(qint64 spanInSeconds) const;

    TAVSnapshotList m_dailySnapshots;
};
