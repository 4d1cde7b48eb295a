#pragma once

#include <QDateTime>
#include <QString>
#include <QVariantMap>

#include <optional>

/** What is known of one log file; asked of the file system once and then kept until reset(). */
class DDLogFileInfo
{
public:
    explicit DDLogFileInfo(const QString &filePath)
        : m_filePath(filePath)
    {
    }

    QString filePath() const { return m_filePath; }
    QString fileName() const;
    QVariantMap fileAttributes() const;
    /** The modification date where the file system keeps no other. */
    QDateTime creationDate() const;
    QDateTime modificationDate() const;
    quint64 fileSize() const;
    /** Seconds since its creation. */
    double age() const;
    /** A file that takes no more lines. */
    bool isArchived() const;
    void setArchived(bool archived);

    void reset();
    /** A new name in the same folder; a file that has it already is replaced. */
    void renameFile(const QString &newFileName);

    /** Whether this one was made later. */
    bool isYoungerThan(const DDLogFileInfo &other) const;

private:
    struct Attributes
    {
        QDateTime creationDate;
        QDateTime modificationDate;
        quint64 fileSize = 0;
    };
    const Attributes &attributes() const;

    QString m_filePath;
    mutable std::optional<Attributes> m_attributes;
};
