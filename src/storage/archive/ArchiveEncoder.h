#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class ArchiveWriter;
struct ArchiveFields;

/** One object of a keyed archive that is being written. Keys stand in the order of the calls. */
class ArchiveEncoder
{
public:
    using Write = std::function<void(ArchiveEncoder &)>;
    using NumberedWrite = std::function<void(ArchiveEncoder &, qsizetype)>;

    /** The whole archive of one root object of that class. */
    static QByteArray archive(QLatin1StringView rootClass, const Write &write);

    void text(QLatin1StringView key, const std::optional<QString> &value);
    void textSet(QLatin1StringView key, const QStringList &values);
    void integer(QLatin1StringView key, qint64 value);
    void flag(QLatin1StringView key, bool value);
    /** Invalid: absent. */
    void date(QLatin1StringView key, const QDateTime &value);
    void object(QLatin1StringView key, QLatin1StringView className, const Write &write);
    void objects(QLatin1StringView key, QLatin1StringView className, qsizetype count,
                 const NumberedWrite &write);

private:
    friend class ArchiveWriter;
    ArchiveEncoder(ArchiveWriter &writer, ArchiveFields &fields)
        : m_writer(writer)
        , m_fields(fields)
    {
    }

    /** The value is an object of the container. */
    void add(QLatin1StringView key, quint32 value);

    ArchiveWriter &m_writer;
    ArchiveFields &m_fields;
};
