#include "storage/Backups.h"

#include "app/ground/AppGround.h"
#include "platform/Services.h"

#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMutex>

namespace {

struct LastBackup
{
    QMutex mutex;
    QString fileName;
    /** Invalid before the first backup of the run. */
    QDateTime time;
};

LastBackup &lastBackup()
{
    static LastBackup last;
    return last;
}

QString backupName(const QString &fileName, const QDateTime &now)
{
    const QString extension = QStringLiteral(".tavv");
    const QDateTime local = now.toTimeZone(platform::clock().timeZone());
    const QString stamp = local.toString(QStringLiteral("yyyy-MM-dd-HH-mm-ss"));
    return QString(fileName).replace(extension, QStringLiteral("-%1%2").arg(stamp, extension));
}

/** Whether a backup of the file is to be made now; if so, it counts as the last one from here on. */
bool takeTurn(const QString &fileName, const QDateTime &now)
{
    constexpr qint64 quarterOfAnHour = 900 * 1000;
    LastBackup &last = lastBackup();
    const QMutexLocker lock(&last.mutex);
    // The name comes first: a language that is saved after every answer is backed up once, not every quarter
    // of an hour.
    if (last.fileName == fileName)
        return false;
    if (last.time.isValid() && last.time.msecsTo(now) <= quarterOfAnHour)
        return false;
    last.fileName = fileName;
    last.time = now;
    return true;
}

} // namespace

namespace storage {

void backUpIfDue(const QString &savedPath)
{
    const QString fileName = QFileInfo(savedPath).fileName();
    const QDateTime now = platform::clock().now();
    if (takeTurn(fileName, now))
        QFile::copy(savedPath, AppGround::backupFolderPath() + u'/' + backupName(fileName, now));
}

void tidyBackupsIn(const QString &folder)
{
    constexpr qint64 thirtyDays = qint64(2592000) * 1000;
    const QDateTime now = platform::clock().now();
    quint64 total = 0;
    QStringList old;
    // System entries are counted too: dead links and the like are no folders either.
    QDirIterator entries(folder, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        ++total;
        const bool isFolder = info.isDir() && !info.isSymLink();
        if (!isFolder && info.lastModified().isValid() && info.lastModified().msecsTo(now) > thirtyDays)
            old.append(info.filePath());
    }
    // Below 20 entries this wraps around to a huge number, so that every old backup may go.
    const quint64 mostToDelete = total - 20;
    if (quint64(old.size()) >= mostToDelete)
        return;
    for (const QString &path : std::as_const(old))
        QFile::remove(path);
}

void forgetLastBackup()
{
    LastBackup &last = lastBackup();
    const QMutexLocker lock(&last.mutex);
    last.fileName.clear();
    last.time = {};
}

} // namespace storage
