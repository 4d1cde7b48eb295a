#pragma once

#include <QDateTime>
#include <QString>
#include <QVariantMap>

/** One file on disk, as a listing of languages finds it. */
class TAVFile
{
public:
    explicit TAVFile(const QString &path);

    /** A path at which nothing exists leaves a line in the diagnostic log and changes nothing. */
    void setFilePath(const QString &path);

    QString filePath() const { return m_filePath; }
    /** The path from the application's own folder on; means nothing for a file outside of it. */
    QString relativePath() const;
    /** The last path component without its extension: a vocabulary's display name. */
    QString fileName() const { return m_fileName; }
    /** Invalid if the file could not be examined. */
    QDateTime fileModDate() const { return m_fileModDate; }
    QVariantMap fileAttributes() const { return m_fileAttributes; }

    /** Filled by whoever loads the file. */
    QString languageName() const { return m_languageName; }
    void setLanguageName(const QString &name) { m_languageName = name; }
    qint64 numberOfWords() const { return m_numberOfWords; }
    void setNumberOfWords(qint64 number) { m_numberOfWords = number; }
    QString yourInputSourceName() const { return m_yourInputSourceName; }
    void setYourInputSourceName(const QString &name) { m_yourInputSourceName = name; }
    QString foreignInputSourceName() const { return m_foreignInputSourceName; }
    void setForeignInputSourceName(const QString &name) { m_foreignInputSourceName = name; }

    /** Each returns -1, 0 or 1. */
    int compareNames(const TAVFile &other) const;
    int compareModDates(const TAVFile &other) const;
    int compareModDatesFromYoungToOld(const TAVFile &other) const;

    QString description() const;

private:
    QString m_filePath;
    QString m_fileName;
    QDateTime m_fileModDate;
    QVariantMap m_fileAttributes;
    QString m_languageName;
    qint64 m_numberOfWords = 0;
    QString m_yourInputSourceName;
    QString m_foreignInputSourceName;
};
