#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class ArchiveTable;

/**
 * One object of a keyed archive that is being read. What a key holds may be absent; if it is of another kind
 * than is asked for, or leads nowhere, the archive as a whole counts as unreadable, and what was read is to
 * be thrown away.
 */
class ArchiveDecoder
{
public:
    using Read = std::function<void(const ArchiveDecoder &)>;

    /** Larger archives are not read; one of 100,000 words takes a third. */
    static constexpr qsizetype maxBytes = qsizetype(64) * 1024 * 1024;

    /** Reads the root object, which must be of that class. False when the archive is unreadable. */
    static bool unarchive(QByteArrayView archive, QLatin1StringView rootClass, const Read &read);

    std::optional<QString> text(QLatin1StringView key) const;
    std::optional<QStringList> textSet(QLatin1StringView key) const;
    /** Absent: 0. So is what does not fit. */
    qint64 integer(QLatin1StringView key) const;
    /** Absent: false. */
    bool flag(QLatin1StringView key) const;
    /** Absent: invalid. */
    QDateTime date(QLatin1StringView key) const;
    /** Reads the object, which must be of that class. Absent: nothing is called. */
    void object(QLatin1StringView key, QLatin1StringView className, const Read &read) const;
    /** Reads each object of a list; all must be of that class. */
    void objects(QLatin1StringView key, QLatin1StringView className, const Read &read) const;

private:
    /** The fields are a node of the archive's container. */
    ArchiveDecoder(ArchiveTable &table, void *fields)
        : m_table(table)
        , m_fields(fields)
    {
    }

    ArchiveTable &m_table;
    void *m_fields;
};
