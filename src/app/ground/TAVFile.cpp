#include "app/ground/TAVFile.h"

#include "platform/DiagnosticLog.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString nameWithoutExtension(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

QVariantMap attributesOf(const QFileInfo &info)
{
    QVariantMap attributes{
        {QStringLiteral("size"), info.size()},
        {QStringLiteral("modificationDate"), info.lastModified()},
        {QStringLiteral("isDirectory"), info.isDir()},
        {QStringLiteral("isSymbolicLink"), info.isSymLink()},
        {QStringLiteral("permissions"), int(info.permissions())},
        {QStringLiteral("ownerId"), info.ownerId()},
        {QStringLiteral("groupId"), info.groupId()},
    };
    const QDateTime creation = info.birthTime();
    attributes.insert(QStringLiteral("creationDate"), creation.isValid() ? creation : info.lastModified());
    return attributes;
}

int compareDates(const QDateTime &a, const QDateTime &b)
{
    // A file that could not be examined counts as the oldest.
    if (!a.isValid() || !b.isValid())
        return int(a.isValid()) - int(b.isValid());
    return a < b ? -1 : int(b < a);
}

} // namespace

TAVFile::TAVFile(const QString &path)
{
    setFilePath(path);
}

void TAVFile::setFilePath(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        platform::diagnosticLog(QStringLiteral("File %1 not found").arg(path));
        return;
    }
    m_filePath = path;
    m_fileName = nameWithoutExtension(info.fileName());
    m_fileAttributes = attributesOf(info);
    m_fileModDate = info.lastModified();
}

QString TAVFile::relativePath() const
{
    return m_filePath.mid(QCoreApplication::applicationDirPath().size() + 1);
}

int TAVFile::compareNames(const TAVFile &other) const
{
    const int order = m_fileName.compare(other.m_fileName, Qt::CaseInsensitive);
    return order < 0 ? -1 : int(order > 0);
}

int TAVFile::compareModDates(const TAVFile &other) const
{
    return compareDates(m_fileModDate, other.m_fileModDate);
}

int TAVFile::compareModDatesFromYoungToOld(const TAVFile &other) const
{
    return compareDates(other.m_fileModDate, m_fileModDate);
}

QString TAVFile::description() const
{
    const QString date = m_fileModDate.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss 'UTC'"));
    return QStringLiteral("FileName: %1 ModDate: %2").arg(m_fileName, date);
}
