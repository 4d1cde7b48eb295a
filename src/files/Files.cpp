#include "files/Files.h"

#include "files/FileOperations.h"
#include "files/PathLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace files {

namespace {

/** As for any new file and folder of the user; the umask takes away what the user grants nobody. */
constexpr unsigned newFileMode = 0666;
constexpr unsigned newFolderMode = 0777;
constexpr unsigned modeBits = 0777;

/** A null would end the path early for the system. */
bool isPath(const QString &path)
{
    return !path.isEmpty() && !path.contains(QChar::Null);
}

/** Calls again when a signal came in between. */
template <typename Call> auto uninterrupted(Call call)
{
    auto returned = call();
    while (returned == -EINTR)
        returned = call();
    return returned;
}

Result<> resultOf(qint64 returned)
{
    return returned < 0 ? Result<>(Error::fromSystem(int(-returned))) : done();
}

/** An open regular file. */
class OpenFile
{
public:
    OpenFile(const QString &path, int flags, unsigned mode = 0)
    {
        // Anything but a regular file could go on for ever, or wait for somebody at its other end.
        m_file = uninterrupted(
            [&] { return operations().open(QFile::encodeName(path), flags | O_NONBLOCK | O_CLOEXEC, mode); });
        m_state = resultOf(m_file);
        if (m_state)
            m_state = resultOf(operations().statusOfOpen(m_file, &m_status));
        if (m_state && !S_ISREG(m_status.st_mode))
            m_state = Error{Reason::NotRegular};
    }
    ~OpenFile()
    {
        if (m_file >= 0)
            operations().close(m_file);
    }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    bool isOpen() const { return m_file >= 0; }
    /** Whether it is open and regular. */
    const Result<> &state() const { return m_state; }
    qint64 size() const { return m_status.st_size; }
    unsigned mode() const { return m_status.st_mode & modeBits; }

    /** Returns how many bytes were read: as many as there is room for, or as the file has. */
    Result<qint64> read(char *buffer, qint64 size)
    {
        qint64 length = 0;
        while (length < size) {
            const qint64 count =
                uninterrupted([&] { return operations().read(m_file, buffer + length, size - length); });
            if (count < 0)
                return Error::fromSystem(int(-count));
            if (count == 0)
                break;
            length += count;
        }
        return length;
    }
    Result<> write(const char *bytes, qint64 size)
    {
        while (size > 0) {
            const qint64 count = uninterrupted([&] { return operations().write(m_file, bytes, size); });
            if (count <= 0)
                return Error::fromSystem(count < 0 ? int(-count) : EIO);
            bytes += count;
            size -= count;
        }
        return done();
    }
    void dropFromCache() { operations().dropFromCache(m_file); }
    /** Some file systems tell only here that the bytes found no room. */
    Result<> close()
    {
        const int returned = operations().close(std::exchange(m_file, -1));
        // It is closed all the same when a signal came in between.
        return returned == -EINTR ? done() : resultOf(returned);
    }

private:
    int m_file = -1;
    struct stat m_status = {};
    Result<> m_state = done();
};

Result<> copyBytes(OpenFile &source, OpenFile &target)
{
    QByteArray buffer(qsizetype(1) << 18, Qt::Uninitialized);
    while (true) {
        const Result<qint64> length = source.read(buffer.data(), buffer.size());
        if (!length)
            return length.error();
        if (*length == 0)
            return target.close();
        if (const Result<> written = target.write(buffer.constData(), *length); !written)
            return written;
    }
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
    if (file.size() > maxBytes)
        return Error{Reason::TooLarge};
    QByteArray bytes(file.size(), Qt::Uninitialized);
    const Result<qint64> length = file.read(bytes.data(), bytes.size());
    if (!length)
        return length.error();
    bytes.truncate(*length);
    file.dropFromCache();
    return bytes;
}

Result<> writeInPlace(const QString &path, const QByteArray &bytes)
{
    if (!isPath(path))
        return Error::fromSystem(ENOENT);
    const PathLock lock(path);
    OpenFile file(path, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, newFileMode);
    if (!file.state())
        return file.state();
    const Result<> written = file.write(bytes.constData(), bytes.size());
    return written ? file.close() : written;
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
    const Result<> made = resultOf(operations().makeFolder(QFile::encodeName(path), newFolderMode));
    return made.failedBy(Reason::Exists) ? done() : made;
}

bool exists(const QString &path)
{
    struct stat status = {};
    return isPath(path) && operations().statusOf(QFile::encodeName(path), true, &status) >= 0;
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
        Entry entry{QFile::decodeName(name), false, {}};
        struct stat status = {};
        if (operations().statusOf(path + '/' + name, false, &status) >= 0) {
            entry.isFolder = S_ISDIR(status.st_mode);
            entry.modified = QDateTime::fromMSecsSinceEpoch(
                qint64(status.st_mtim.tv_sec) * 1000 + status.st_mtim.tv_nsec / 1000000, Qt::UTC);
        }
        entries.append(entry);
    }
    return entries;
}

} // namespace files
