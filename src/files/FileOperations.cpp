#include "files/FileOperations.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace files {

namespace {

template <typename Number> Number orError(Number returned)
{
    return returned < 0 ? Number(-errno) : returned;
}

std::atomic<FileOperations *> installed = nullptr;

} // namespace

int FileOperations::open(const QByteArray &path, int flags, unsigned mode)
{
    return orError(::open(path.constData(), flags, mode));
}

int FileOperations::close(int file)
{
    return orError(::close(file));
}

qint64 FileOperations::read(int file, char *buffer, qint64 size)
{
    return orError(qint64(::read(file, buffer, size_t(size))));
}

qint64 FileOperations::write(int file, const char *bytes, qint64 size)
{
    return orError(qint64(::write(file, bytes, size_t(size))));
}

int FileOperations::reserve(int file, qint64 size)
{
    return orError(fallocate(file, FALLOC_FL_KEEP_SIZE, 0, size));
}

int FileOperations::cutTo(int file, qint64 size)
{
    return orError(ftruncate(file, size));
}

int FileOperations::sync(int file)
{
    return orError(fsync(file));
}

int FileOperations::statusOfOpen(int file, struct stat *status)
{
    return orError(fstat(file, status));
}

int FileOperations::dropFromCache(int file)
{
    return -posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
}

int FileOperations::statusOf(const QByteArray &path, bool followsLink, struct stat *status)
{
    return orError(fstatat(AT_FDCWD, path.constData(), status, followsLink ? 0 : AT_SYMLINK_NOFOLLOW));
}

qint64 FileOperations::timeOfBirth(const QByteArray &path)
{
    struct statx status = {};
    if (statx(AT_FDCWD, path.constData(), AT_SYMLINK_NOFOLLOW, STATX_BTIME, &status) != 0 ||
        !(status.stx_mask & STATX_BTIME))
        return 0;
    return qint64(status.stx_btime.tv_sec) * 1000 + status.stx_btime.tv_nsec / 1000000;
}

int FileOperations::remove(const QByteArray &path)
{
    return orError(unlink(path.constData()));
}

int FileOperations::rename(const QByteArray &from, const QByteArray &to)
{
    return orError(::rename(from.constData(), to.constData()));
}

int FileOperations::makeFolder(const QByteArray &path, unsigned mode)
{
    return orError(mkdir(path.constData(), mode));
}

int FileOperations::list(const QByteArray &folder, QByteArrayList *names)
{
    DIR *const stream = opendir(folder.constData());
    if (!stream)
        return -errno;
    errno = 0;
    while (const dirent *entry = readdir(stream)) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names->append(entry->d_name);
        errno = 0;
    }
    const int error = errno;
    closedir(stream);
    return -error;
}

FileOperations &operations()
{
    static FileOperations real;
    FileOperations *const others = installed;
    return others ? *others : real;
}

FileOperations *installOperations(FileOperations *operations)
{
    return installed.exchange(operations);
}

} // namespace files
