#include "storage/Backups.h"

#include "app/ground/AppGround.h"
#include "app/ground/Rescue.h"
#include "files/Files.h"
#include "platform/Services.h"
#include "storage/VocabularyFiles.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMap>
#include <QMutex>
#include <QRegularExpression>

#include <algorithm>

namespace {

struct LastBackup
{
    QMutex mutex;
    QString fileName;
    /** Invalid before the first backup of the run. */
    QDateTime time;
    bool keepsAll = false;
};

LastBackup &lastBackup()
{
    static LastBackup last;
    return last;
}

/** The name of the file of which this is a backup; empty if it is none. */
QString backedUpName(const QString &backup)
{
    static const QRegularExpression form(QStringLiteral("^(.*)-\\d{4}(?:-\\d\\d){5}\\.tavv$"),
                                         QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(QFileInfo(backup).fileName());
    return match.hasMatch() ? match.captured(1) + QStringLiteral(".tavv") : QString();
}

/** The files among the paths that must not go without a copy: the newest of each name, or all of them. */
QStringList irreplaceable(QStringList paths, bool isAll)
{
    if (isAll)
        return paths;
    // Their stamps sort by time.
    std::sort(paths.begin(), paths.end());
    QMap<QString, QString> newest;
    for (const QString &path : std::as_const(paths)) {
        if (const QString name = backedUpName(path); !name.isEmpty())
            newest.insert(name, path);
    }
    return newest.values();
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
            else if (entry.created.isValid() && entry.created.msecsTo(now) > thirtyDays)
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
    bool keepsAll = false;
    {
        LastBackup &last = lastBackup();
        const QMutexLocker lock(&last.mutex);
        keepsAll = last.keepsAll;
    }
    for (const QString &path : irreplaceable(content.old, keepsAll))
        rescue::keepFile(path);
    for (const QString &path : content.old)
        std::ignore = files::remove(path);
}

QString newestBackupThatOpens(const QString &fileName)
{
    const QString folder = AppGround::backupFolderPath();
    const files::Result<QList<files::Entry>> entries = files::list(folder);
    QStringList names;
    if (entries) {
        for (const files::Entry &entry : *entries) {
            if (backedUpName(entry.name) == fileName)
                names.append(entry.name);
        }
    }
    std::sort(names.rbegin(), names.rend());
    for (const QString &name : std::as_const(names)) {
        const QString path = folder + u'/' + name;
        const files::Result<QByteArray> bytes = files::read(path, maxReadableFile);
        if (bytes && decompressed(*bytes))
            return path;
    }
    return {};
}

void keepAllBackups()
{
    LastBackup &last = lastBackup();
    const QMutexLocker lock(&last.mutex);
    last.keepsAll = true;
}

void forgetLastBackup()
{
    LastBackup &last = lastBackup();
    const QMutexLocker lock(&last.mutex);
    last.fileName.clear();
    last.time = {};
    last.keepsAll = false;
}

} // namespace storage
