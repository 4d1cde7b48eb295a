#include "files/Files.h"

#include "files/OpenFile.h"
#include "files/PathLock.h"

#include <fcntl.h>

namespace files {

namespace {

/** The program's own folders are nobody else's business. */
constexpr unsigned folderMode = 0700;

Result<> copyBytes(OpenFile &source, OpenFile &target)
{
    QByteArray buffer(qsizetype(1) << 18, Qt::Uninitialized);
    while (true) {
        const Result<qint64> length = source.read(buffer.data(), buffer.size());
        if (!length)
            return length.error();
        if (*length == 0)
            return target.finish();
        if (const Result<> written = target.write(buffer.constData(), *length); !written)
            return written;
    }
}

Result<> lockedWrite(const QString &path, const QByteArray &bytes, NewFile kind)
{
    if (!isPath(path))
        return Error::fromSystem(ENOENT);
    const PathLock lock(path);
    return overwriteLocked(path, bytes, kind);
}

} // namespace

Result<QByteArray> read(const QString &path, qint64 maxBytes)
{
    if (!isPath(path))
        return Error::fromSystem(ENOENT);
    const PathLock lock(path);
    OpenFile file(path, O_RDONLY);
    if (!file.state())
        return file.state().error();
    Result<QByteArray> bytes = file.readAll(maxBytes);
    file.dropFromCache();
    return bytes;
}

Result<> writeInPlace(const QString &path, const QByteArray &bytes)
{
    return lockedWrite(path, bytes, NewFile::Shared);
}

Result<> writePrivate(const QString &path, const QByteArray &bytes)
{
    return lockedWrite(path, bytes, NewFile::Private);
}

Result<> copy(const QString &from, const QString &to)
{
    if (!isPath(from) || !isPath(to))
        return Error::fromSystem(ENOENT);
    const PathLock lock(from, to);
    OpenFile source(from, O_RDONLY);
    if (!source.state())
        return source.state();
    OpenFile target(to, O_WRONLY | O_CREAT | O_EXCL, source.mode());
    if (!target.isOpen())
        return target.state();
    const Result<> copied = target.state() ? copyBytes(source, target) : target.state();
    // Half a copy could be taken for a whole one.
    if (!copied)
        operations().remove(QFile::encodeName(to));
    return copied;
}

Result<> remove(const QString &path)
{
    if (!isPath(path))
        return Error::fromSystem(ENOENT);
    const PathLock lock(path);
    return resultOf(uninterrupted([&] { return operations().remove(QFile::encodeName(path)); }));
}

Result<> makeFolder(const QString &path)
{
    if (!isPath(path))
        return Error::fromSystem(ENOENT);
    const Result<> made = resultOf(operations().makeFolder(QFile::encodeName(path), folderMode));
    return made.failedBy(Reason::Exists) ? done() : made;
}

bool exists(const QString &path)
{
    struct stat status = {};
    return isPath(path) && operations().statusOf(QFile::encodeName(path), true, &status) >= 0;
}

Identity identityOf(const QString &path)
{
    struct stat status = {};
    if (!isPath(path) || operations().statusOf(QFile::encodeName(path), true, &status) < 0)
        return {};
    return {status.st_dev, status.st_ino, status.st_size,
            qint64(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec};
}

Result<QList<Entry>> list(const QString &folder)
{
    if (!isPath(folder))
        return Error::fromSystem(ENOENT);
    const QByteArray path = QFile::encodeName(folder);
    QByteArrayList names;
    if (const int returned = operations().list(path, &names); returned < 0)
        return Error::fromSystem(-returned);
    QList<Entry> entries;
    for (const QByteArray &name : std::as_const(names)) {
        // No text leads back to a name that isn't one.
        if (!QByteArrayView(name).isValidUtf8())
            continue;
        Entry entry;
        entry.name = QFile::decodeName(name);
        struct stat status = {};
        if (operations().statusOf(path + '/' + name, false, &status) >= 0) {
            entry.isFolder = S_ISDIR(status.st_mode);
            entry.size = status.st_size;
            const qint64 modified = qint64(status.st_mtim.tv_sec) * 1000 + status.st_mtim.tv_nsec / 1000000;
            const qint64 born = operations().timeOfBirth(path + '/' + name);
            entry.modified = QDateTime::fromMSecsSinceEpoch(modified, Qt::UTC);
            entry.created =
                QDateTime::fromMSecsSinceEpoch(born > 0 ? std::min(born, modified) : modified, Qt::UTC);
        }
        entries.append(entry);
    }
    return entries;
}

} // namespace files
