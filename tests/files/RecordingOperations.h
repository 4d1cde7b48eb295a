#pragma once

#include "files/FileOperations.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <cerrno>
#include <limits>

/** The system's operations, which are noted down, and of which a test lets some fail. For one thread. */
class RecordingOperations : public files::FileOperations
{
public:
    RecordingOperations()
        : m_previous(files::installOperations(this))
    {
    }
    ~RecordingOperations() override { files::installOperations(m_previous); }

    /** Lets the n-th call of that name from now on fail, counted from 1. */
    void fail(const char *name, int n, int error) { m_failures.append({QLatin1String(name), n, error}); }

    int open(const QByteArray &path, int flags, unsigned mode) override
    {
        const int error = note("open", path);
        return error ? -error : FileOperations::open(path, flags, mode);
    }
    int close(int file) override
    {
        const int returned = FileOperations::close(file);
        const int error = note("close");
        return error ? -error : returned;
    }
    qint64 read(int file, char *buffer, qint64 size) override
    {
        const int error = note("read");
        return error ? -error : FileOperations::read(file, buffer, std::min(size, maxBytesPerCall));
    }
    qint64 write(int file, const char *bytes, qint64 size) override
    {
        const int error = note("write");
        return error ? -error : FileOperations::write(file, bytes, std::min(size, maxBytesPerCall));
    }
    int reserve(int file, qint64 size) override
    {
        const int error = note("reserve");
        return error ? -error : FileOperations::reserve(file, size);
    }
    int cutTo(int file, qint64 size) override
    {
        const int error = note("cutTo");
        return error ? -error : FileOperations::cutTo(file, size);
    }
    int sync(int file) override
    {
        Q_UNUSED(file)
        return -note("sync");
    }
    int statusOfOpen(int file, struct stat *status) override
    {
        const int error = note("statusOfOpen");
        return error ? -error : FileOperations::statusOfOpen(file, status);
    }
    int dropFromCache(int file) override
    {
        note("dropFromCache");
        return FileOperations::dropFromCache(file);
    }
    int statusOf(const QByteArray &path, bool followsLink, struct stat *status) override
    {
        const int error = note("statusOf", path);
        return error ? -error : FileOperations::statusOf(path, followsLink, status);
    }
    int remove(const QByteArray &path) override
    {
        const int error = note("remove", path);
        return error ? -error : FileOperations::remove(path);
    }
    int rename(const QByteArray &from, const QByteArray &to) override
    {
        const int error = note("rename", to);
        return error ? -error : FileOperations::rename(from, to);
    }
    int makeFolder(const QByteArray &path, unsigned mode) override
    {
        const int error = note("makeFolder", path);
        return error ? -error : FileOperations::makeFolder(path, mode);
    }
    int list(const QByteArray &folder, QByteArrayList *names) override
    {
        const int error = note("list", folder);
        return error ? -error : FileOperations::list(folder, names);
    }

    /** The calls in their order, by name; one that has a path with the last part of that: "open a.tavv". */
    QStringList calls;
    qint64 maxBytesPerCall = std::numeric_limits<qint64>::max();

private:
    struct Failure
    {
        QString name;
        int callsLeft;
        int error;
    };

    int note(const char *name, const QByteArray &path = {})
    {
        const QString file = QFileInfo(QFile::decodeName(path)).fileName();
        calls.append(QString(QLatin1String(name) + QLatin1Char(' ') + file).trimmed());
        int error = 0;
        for (Failure &failure : m_failures) {
            if (failure.name == QLatin1String(name) && --failure.callsLeft == 0)
                error = failure.error;
        }
        return error;
    }

    FileOperations *m_previous;
    QList<Failure> m_failures;
};
