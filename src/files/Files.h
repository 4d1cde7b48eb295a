#pragma once

#include "files/Result.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

/**
 * Files of the user, read and written whole. Any thread may call: each operation holds the lock of its file
 * from the first to the last byte, so that a reader never meets half a write. No lock outlasts its operation.
 */
namespace files {

/** The bytes of a regular file, which are not kept in the system's cache. */
Result<QByteArray> read(const QString &path, qint64 maxBytes);

/**
 * Replaces the bytes of a file where it lies, without a temporary one, or makes the file. A link is followed:
 * people link such files into folders that other programs keep in step. Where there is no room, the file
 * stays as it was; after any other failure in the middle it may be damaged. On success the bytes are on the
 * disk.
 */
Result<> writeInPlace(const QString &path, const QByteArray &bytes);

/** The same, but a file that is made is the user's alone. */
Result<> writePrivate(const QString &path, const QByteArray &bytes);

/** Makes a new file with the bytes and the mode of another; never replaces one. A failure leaves none behind.
 */
Result<> copy(const QString &from, const QString &to);

/** Removes a file, or a link itself; never a folder. */
Result<> remove(const QString &path);

/** Makes the last folder of the path. One that exists is not an error. */
Result<> makeFolder(const QString &path);

/** Whether anything stands there; a link counts as what it leads to. */
bool exists(const QString &path);

/** Tells whether a file is still the one that it was, without reading it. */
struct Identity
{
    quint64 device = 0;
    quint64 number = 0;
    qint64 size = 0;
    /** Of the last change, in nanoseconds since 1970. */
    qint64 changed = 0;

    bool isValid() const { return number != 0; }
    bool operator==(const Identity &) const = default;
};

/** Invalid if nothing stands there; a link counts as what it leads to. */
Identity identityOf(const QString &path);

/** One of the names in a folder. */
struct Entry
{
    QString name;
    /** A link is none, wherever it leads. */
    bool isFolder = false;
    /** Invalid if the entry could not be examined. */
    QDateTime modified;
    /** The earlier of its birth, where the file system knows that, and its last change. */
    QDateTime created;
    qint64 size = 0;
};

/** What stands in the folder, hidden files included, in the order of the file system. */
Result<QList<Entry>> list(const QString &folder);

} // namespace files
