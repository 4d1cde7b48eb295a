#include "files/OpenFile.h"

#include <fcntl.h>

namespace files {

namespace {

bool isUnsupported(int returned)
{
    return returned == -EOPNOTSUPP || returned == -ENOSYS || returned == -EINVAL;
}

/** Not every file system has a way to tell that something is on the disk. */
Result<> synced(int file)
{
    const int returned = uninterrupted([&] { return operations().sync(file); });
    return isUnsupported(returned) ? done() : resultOf(returned);
}

} // namespace

OpenFile::OpenFile(const QString &path, int flags, unsigned mode)
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

OpenFile::~OpenFile()
{
    if (m_file >= 0)
        operations().close(m_file);
}

Result<qint64> OpenFile::read(char *buffer, qint64 size)
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

Result<QByteArray> OpenFile::readAll(qint64 maxBytes)
{
    if (size() > maxBytes)
        return Error{Reason::TooLarge};
    QByteArray bytes(size(), Qt::Uninitialized);
    const Result<qint64> length = read(bytes.data(), bytes.size());
    if (!length)
        return length.error();
    bytes.truncate(*length);
    return bytes;
}

Result<> OpenFile::write(const char *bytes, qint64 size)
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

Result<> OpenFile::reserve(qint64 size)
{
    if (size == 0)
        return done();
    const int returned = uninterrupted([&] { return operations().reserve(m_file, size); });
    // Not every file system can reserve; then the write itself must find the room.
    if (isUnsupported(returned))
        return done();
    // What was reserved behind the end before the room ran out goes back.
    if (returned < 0)
        operations().cutTo(m_file, this->size());
    return resultOf(returned);
}

Result<> OpenFile::overwrite(const QByteArray &bytes)
{
    Result<> result = reserve(bytes.size());
    if (result)
        result = write(bytes.constData(), bytes.size());
    if (result)
        result = resultOf(uninterrupted([&] { return operations().cutTo(m_file, bytes.size()); }));
    return result ? finish() : result;
}

Result<> OpenFile::finish()
{
    const Result<> result = synced(m_file);
    return result ? close() : result;
}

Result<> OpenFile::close()
{
    const int returned = operations().close(std::exchange(m_file, -1));
    // It is closed all the same when a signal came in between.
    return returned == -EINTR ? done() : resultOf(returned);
}

Result<> overwriteLocked(const QString &path, const QByteArray &bytes, NewFile kind)
{
    {
        OpenFile file(path, O_WRONLY);
        if (!file.state().failedBy(Reason::NotFound))
            return file.state() ? file.overwrite(bytes) : file.state();
    }
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (operations().statusOf(name, false, &status) >= 0 && S_ISLNK(status.st_mode))
        return Error{Reason::LinkToNothing};
    OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL, kind == NewFile::Private ? 0600 : 0666);
    if (!file.isOpen())
        return file.state();
    const Result<> written = file.state() ? file.overwrite(bytes) : file.state();
    // An empty file would be taken for a damaged one.
    if (!written)
        operations().remove(name);
    return written ? syncFolderOf(path) : written;
}

Result<> syncFolderOf(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const qsizetype slash = name.lastIndexOf('/');
    const QByteArray folder = slash < 0 ? "." : name.first(std::max<qsizetype>(slash, 1));
    const int file =
        uninterrupted([&] { return operations().open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); });
    if (file < 0)
        return resultOf(file);
    const Result<> result = synced(file);
    operations().close(file);
    return result;
}

} // namespace files
