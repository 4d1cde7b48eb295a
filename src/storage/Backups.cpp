#include "storage/Backups.h"

#include "app/ground/AppGround.h"
#include "files/Files.h"
#include "platform/Services.h"

#include <QDateTime>
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

/** Returns whether a backup of the file is due, which then counts as made. */
bool takeTurn(const QString &fileName, const QDateTime &now)
{
    constexpr qint64 quarterOfAnHour = 900'000;
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

struct FolderContent
{
    /** All entries, folders too. */
    quint64 total = 0;
    /** The paths of those that are no folders and older than 30 days. */
    QStringList old;
};

/** What the folder and the folders below it hold, hidden files left out. */
FolderContent contentOf(const QString &folder, const QDateTime &now)
{
    constexpr qint64 thirtyDays = qint64(2592000) * 1000;
    FolderContent content;
    QStringList folders = {folder};
    while (!folders.isEmpty()) {
        const QString parent = folders.takeFirst();
        const files::Result<QList<files::Entry>> entries = files::list(parent);
        if (!entries)
            continue;
        for (const files::Entry &entry : *entries) {
            if (entry.name.startsWith(u'.'))
                continue;
            ++content.total;
            const QString path = parent + u'/' + entry.name;
            if (entry.isFolder)
                folders.append(path);
            else if (entry.modified.isValid() && entry.modified.msecsTo(now) > thirtyDays)
                content.old.append(path);
        }
    }
    return content;
}

} // namespace

namespace storage {

void backUpIfDue(const QString &savedPath)
{
    const QString fileName = QFileInfo(savedPath).fileName();
    const QDateTime now = platform::clock().now();
    if (!takeTurn(fileName, now))
        return;
    const QString backup = AppGround::backupFolderPath() + u'/' + backupName(fileName, now);
    // The save has succeeded, whatever becomes of its copy.
    std::ignore = files::copy(savedPath, backup);
}

void tidyBackupsIn(const QString &folder)
{
    const FolderContent content = contentOf(folder, platform::clock().now());
    // Below 20 entries this wraps around to a huge number, so that every old backup may go.
    const quint64 numberToStayBelow = content.total - 20;
    if (quint64(content.old.size()) >= numberToStayBelow)
        return;
    for (const QString &path : content.old)
        std::ignore = files::remove(path);
}

void forgetLastBackup()
{
    LastBackup &last = lastBackup();
    const QMutexLocker lock(&last.mutex);
    last.fileName.clear();
    last.time = {};
}

} // namespace storage
