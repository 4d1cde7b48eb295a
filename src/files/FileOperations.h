#pragma once

#include <QByteArray>
#include <QByteArrayList>

struct stat;

namespace files {

/**
 * The file operations of the operating system, one call each. Everything on this floor goes through them, so
 * that a test can watch each call and let it fail.
 *
 * Each returns what the system returns, or its error number as a negative one.
 */
class FileOperations
{
public:
    virtual ~FileOperations() = default;

    /** Returns a descriptor for the calls below. The flags and the mode are those of open(2). */
    virtual int open(const QByteArray &path, int flags, unsigned mode);
    virtual int close(int file);
    /** May read less than was asked for; 0 at the end of the file. */
    virtual qint64 read(int file, char *buffer, qint64 size);
    /** May write less than was asked for. */
    virtual qint64 write(int file, const char *bytes, qint64 size);
    /** Finds room for so many bytes from the start, without changing the file's length. */
    virtual int reserve(int file, qint64 size);
    virtual int cutTo(int file, qint64 size);
    /** Returns once all of the file is on the disk, or all names of a folder. */
    virtual int sync(int file);
    virtual int statusOfOpen(int file, struct stat *status);
    /** Lets the system's cache forget what was read. */
    virtual int dropFromCache(int file);

    virtual int statusOf(const QByteArray &path, bool followsLink, struct stat *status);
    /** In milliseconds since 1970; 0 where the file system doesn't know. */
    virtual qint64 timeOfBirth(const QByteArray &path);
    virtual int remove(const QByteArray &path);
    /** In one step; a file that has the new name is replaced. */
    virtual int rename(const QByteArray &from, const QByteArray &to);
    virtual int makeFolder(const QByteArray &path, unsigned mode);
    /** Appends the names in the folder, "." and ".." left out, in the order of the file system. */
    virtual int list(const QByteArray &folder, QByteArrayList *names);
};

/**
 * The operations in use. They are reached from here rather than handed down, because those who read and write
 * files are class-level operations that have no object to carry them.
 */
FileOperations &operations();
/** Puts others in place of the system's own and returns those that were there; null: the system's own. */
FileOperations *installOperations(FileOperations *operations);

} // namespace files
