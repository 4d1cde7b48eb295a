#pragma once

#include "files/FileOperations.h"
#include "files/Result.h"

#include <QFile>
#include <QString>

#include <cerrno>
#include <utility>

#include <sys/stat.h>

namespace files {

/** Calls again when a signal came in between. */
template <typename Call> auto uninterrupted(Call call)
{
    auto returned = call();
    while (returned == -EINTR)
        returned = call();
    return returned;
}

inline Result<> resultOf(qint64 returned)
{
    return returned < 0 ? Result<>(Error::fromSystem(int(-returned))) : done();
}

/** A null would end the path early for the system. */
inline bool isPath(const QString &path)
{
    return !path.isEmpty() && !path.contains(QChar::Null);
}

/** An open regular file. */
class OpenFile
{
public:
    /** Flags and mode as for open(2). */
    OpenFile(const QString &path, int flags, unsigned mode = 0);
    ~OpenFile();
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    bool isOpen() const { return m_file >= 0; }
    /** Whether it is open and regular. */
    const Result<> &state() const { return m_state; }
    /** At the time of opening. */
    qint64 size() const { return m_status.st_size; }
    unsigned mode() const { return m_status.st_mode & 0777; }

    /** Returns how many bytes were read: as many as there is room for, or as the file has. */
    Result<qint64> read(char *buffer, qint64 size);
    /** The whole file, unless it has more than so many bytes. */
    Result<QByteArray> readAll(qint64 maxBytes);
    Result<> write(const char *bytes, qint64 size);
    /**
     * Puts these bytes in the place of all that the file holds. Where there is no room, it stays as it was;
     * after any other failure it may be damaged. On success they are on the disk.
     */
    Result<> overwrite(const QByteArray &bytes);
    void dropFromCache() { operations().dropFromCache(m_file); }
    /** Closes it once all is on the disk. Some file systems tell only here that the bytes found no room. */
    Result<> finish();

private:
    /** Finds room for the new bytes before any of the old ones is lost. */
    Result<> reserve(qint64 size);
    Result<> close();

    int m_file = -1;
    struct stat m_status = {};
    Result<> m_state = done();
};

/** Who may see a file that a write makes. One that exists keeps its mode. */
enum class NewFile {
    /** The user alone. */
    Private,
    /** Whom the umask allows. */
    Shared
};

/** The write of writeInPlace(), for whoever holds the path's lock. */
Result<> overwriteLocked(const QString &path, const QByteArray &bytes, NewFile kind);
/** Puts the names in a folder onto the disk; without it, a new file can be gone after a loss of power. */
Result<> syncFolderOf(const QString &path);

} // namespace files
