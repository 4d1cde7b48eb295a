#pragma once

#include "files/Result.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace files {

/**
 * Writes files in place and still loses nothing when the machine stops in the middle: before each write, what
 * is going to be written is put down in a folder beside, and is taken away once the file holds it. What is
 * left there at the next start belongs to a write that did not come to its end.
 */
class Journal
{
public:
    /** The folder is made at the first write. */
    explicit Journal(QString folder)
        : m_folder(std::move(folder))
    {
    }

    /**
     * Like files::writeInPlace(), but a new file is the user's alone. The whole of it happens under the lock
     * of the path. A record that can't be made is no reason not to write. After a failed write the record
     * stays.
     */
    Result<> write(const QString &path, const QByteArray &bytes) const;

    /** Drops what is recorded for a file that was deleted or got another name. */
    void forget(const QString &path) const;

    /** Whether the bytes are those of a whole file, as opposed to what a torn write leaves behind. */
    using IsWhole = std::function<bool(const QByteArray &bytes)>;
    /** Takes bytes that found no place in the file. Returns whether they are safe now. */
    using Keep = std::function<bool(const QString &path, const QByteArray &bytes)>;

    /**
     * Goes through what was left behind; to be called before anybody reads those files. A torn file gets the
     * bytes that it was to have, if it lies directly in the folder: the record may have come from elsewhere,
     * with a copy of all folders. One that is whole, or gone, is left alone: the recorded bytes go to keep,
     * unless the file holds them. Returns the paths of the files that were mended.
     */
    QStringList settle(const QString &folder, const IsWhole &isWhole, const Keep &keep) const;

private:
    struct Record;

    QString recordPath(const QString &path) const;
    void put(const QString &path, const QByteArray &bytes) const;

    QString m_folder;
};

} // namespace files
