#pragma once

#include <QString>

#include <array>
#include <mutex>

namespace files {

/**
 * The path by which a file is locked, whatever it is called by: absolute, its links resolved as far as they
 * exist.
 */
QString canonicalPath(const QString &path);

/**
 * Holds the lock of one file, or of two, for its life. Two spellings of a path are one lock, and two files
 * are locked in one fixed order, so that nobody waits in a circle. Not recursive: to be held around the
 * operations on one file, never around a call of somebody else's code.
 */
class PathLock
{
public:
    explicit PathLock(const QString &path);
    PathLock(const QString &path, const QString &other);
    ~PathLock();
    PathLock(const PathLock &) = delete;
    PathLock &operator=(const PathLock &) = delete;

private:
    void lock(const QString &canonical);

    /** In the order of locking; empty where one lock is enough. */
    std::array<QString, 2> m_canonicalPaths;
};

} // namespace files
