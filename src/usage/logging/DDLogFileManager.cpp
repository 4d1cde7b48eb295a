#include "usage/logging/DDLogFileManager.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>

namespace {

const QString dateFormat = QStringLiteral("yyyy'-'MM'-'dd' 'HH'-'mm");

QString defaultLogsDirectory(const QString &applicationName)
{
    const platform::Folders *folders = platform::services().folders;
    const QStringList support = folders ? folders->applicationSupportDirectories() : QStringList();
    const QString base =
        support.isEmpty() ? QDir::tempPath() : support.constFirst() + QStringLiteral("/Tavimo");
    return base + QStringLiteral("/Logs/") + applicationName;
}

} // namespace

DDLogFileManagerDefault::DDLogFileManagerDefault(const QString &logsDirectory, const QString &applicationName)
    : m_logsDirectory(logsDirectory.isEmpty() ? defaultLogsDirectory(applicationName) : logsDirectory)
    , m_applicationName(applicationName)
{
}

QString DDLogFileManagerDefault::processName()
{
    const QString name = QFile::decodeName(program_invocation_short_name);
    return name.isEmpty() ? QStringLiteral("<UnnamedApp>") : name;
}

void DDLogFileManagerDefault::setMaximumNumberOfLogFiles(int number)
{
    m_maximumNumberOfLogFiles = number;
    deleteOldLogFiles();
}

bool DDLogFileManagerDefault::isLogFile(const QString &fileName) const
{
    const QString extension = QStringLiteral(".log");
    if (!fileName.startsWith(m_applicationName) || !fileName.endsWith(extension))
        return false;
    const qsizetype length = fileName.size() - m_applicationName.size() - extension.size();
    if (length < qsizetype(qstrlen(" yyyy-MM-dd HH-mm")))
        return false;
    const QStringList parts = fileName.mid(m_applicationName.size(), length).split(u' ');
    if (parts.size() != 3 && parts.size() != 4)
        return false;
    return QDateTime::fromString(parts.at(1) + u' ' + parts.at(2), dateFormat).isValid();
}

QList<DDLogFileInfo> DDLogFileManagerDefault::sortedLogFileInfos() const
{
    QList<DDLogFileInfo> infos;
    const QDir folder(m_logsDirectory);
    const QStringList names = folder.entryList(QDir::Files, QDir::NoSort);
    for (const QString &name : names) {
        if (isLogFile(name))
            infos.append(DDLogFileInfo(folder.filePath(name)));
    }
    std::stable_sort(infos.begin(), infos.end(),
                     [](const DDLogFileInfo &a, const DDLogFileInfo &b) { return a.isYoungerThan(b); });
    return infos;
}

QString DDLogFileManagerDefault::createNewLogFile()
{
    if (!QFile::exists(m_logsDirectory) && QDir().mkpath(m_logsDirectory))
        QFile::setPermissions(m_logsDirectory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString stamp = platform::systemTime().toString(dateFormat);
    const QString stem = m_logsDirectory + u'/' + m_applicationName + u' ' + stamp;
    QString path = stem + QStringLiteral(".log");
    for (int number = 2; QFile::exists(path); ++number)
        path = stem + u' ' + QString::number(number) + QStringLiteral(".log");

    QFile file(path);
    // What stands in a log is the user's own business, as are the words.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
        return {};
    file.close();
    deleteOldLogFiles();
    return path;
}

void DDLogFileManagerDefault::deleteOldLogFiles()
{
    if (m_maximumNumberOfLogFiles == 0)
        return;
    QList<DDLogFileInfo> infos = sortedLogFileInfos();
    // The file that is being written does not count.
    if (!infos.isEmpty() && !infos.constFirst().isArchived())
        infos.removeFirst();
    for (qsizetype i = m_maximumNumberOfLogFiles; i < infos.size(); ++i) {
        QFile file(infos.at(i).filePath());
        if (!file.remove())
            platform::diagnosticLog(QStringLiteral("DDLogFileManagerDefault: Error deleting file (%1): %2")
                                        .arg(file.fileName(), file.errorString()));
    }
}
