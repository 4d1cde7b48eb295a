#pragma once

#include "platform/OrderedSet.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <functional>

/**
 * Takes the fields of a record under their keys. So a record lists its fields once, whether they become a map
 * or the text of a file.
 */
class FieldSink
{
public:
    using Record = std::function<void(FieldSink &)>;
    using NumberedRecord = std::function<void(FieldSink &, qsizetype)>;

    FieldSink() = default;
    FieldSink(const FieldSink &) = delete;
    FieldSink &operator=(const FieldSink &) = delete;
    virtual ~FieldSink() = default;

    virtual void text(QLatin1StringView key, const QString &value) = 0;
    virtual void texts(QLatin1StringView key, const platform::TextSet &values) = 0;
    virtual void integer(QLatin1StringView key, qint64 value) = 0;
    /** The value must be finite. */
    virtual void real(QLatin1StringView key, double value) = 0;
    virtual void flag(QLatin1StringView key, bool value) = 0;
    virtual void record(QLatin1StringView key, const Record &write) = 0;
    virtual void records(QLatin1StringView key, qsizetype count, const NumberedRecord &write) = 0;
};

/** The fields as a map of JSON types. */
class MapSink : public FieldSink
{
public:
    static QJsonObject mapOf(const Record &write);

    void text(QLatin1StringView key, const QString &value) override;
    void texts(QLatin1StringView key, const platform::TextSet &values) override;
    void integer(QLatin1StringView key, qint64 value) override;
    void real(QLatin1StringView key, double value) override;
    void flag(QLatin1StringView key, bool value) override;
    void record(QLatin1StringView key, const Record &write) override;
    void records(QLatin1StringView key, qsizetype count, const NumberedRecord &write) override;

private:
    QJsonObject m_map;
};

/**
 * The fields as compact JSON in UTF-8. A save after each answer has no time to build maps of tens of
 * thousands of words first.
 */
class JsonTextSink : public FieldSink
{
public:
    static QByteArray textOf(const Record &write);

    void text(QLatin1StringView key, const QString &value) override;
    void texts(QLatin1StringView key, const platform::TextSet &values) override;
    void integer(QLatin1StringView key, qint64 value) override;
    void real(QLatin1StringView key, double value) override;
    void flag(QLatin1StringView key, bool value) override;
    void record(QLatin1StringView key, const Record &write) override;
    void records(QLatin1StringView key, qsizetype count, const NumberedRecord &write) override;

private:
    void appendKey(QLatin1StringView key);
    void appendText(QStringView text);
    void appendRecord(const Record &write);

    void append(QByteArrayView bytes);
    /** Where so many bytes may be written next; m_length tells how many were. */
    char *room(qsizetype size);

    /** Larger than what stands in it, as growing it for each piece would take longer than filling it. */
    QByteArray m_buffer;
    qsizetype m_length = 0;
    bool m_isFirst = true;
};
