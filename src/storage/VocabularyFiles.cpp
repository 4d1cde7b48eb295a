#include "storage/VocabularyFiles.h"

#include <QFile>
#include <QFileInfo>

#include <bzlib.h>
#include <fcntl.h>

namespace storage {

std::optional<QByteArray> compressed(const QByteArray &json)
{
    constexpr int blockSize = 9;
    constexpr int verbosity = 0;
    constexpr int workFactor = 30;
    QByteArray buffer(qsizetype(double(json.size()) * 1.02) + 600, '\0');
    auto length = unsigned(buffer.size());
    const int code = BZ2_bzBuffToBuffCompress(buffer.data(), &length, const_cast<char *>(json.constData()),
                                              unsigned(json.size()), blockSize, verbosity, workFactor);
    if (code != BZ_OK)
        return std::nullopt;
    buffer.truncate(qsizetype(length));
    return buffer;
}

std::optional<QByteArray> decompressed(const QByteArray &bytes)
{
    constexpr int small = 0;
    constexpr int verbosity = 0;
    QByteArray buffer;
    int code = BZ_OUTBUFF_FULL;
    for (const qsizetype size : {qsizetype(0x80000), longestReadJson}) {
        if (code != BZ_OUTBUFF_FULL)
            break;
        buffer.fill('\0', size);
        auto length = unsigned(size);
        code = BZ2_bzBuffToBuffDecompress(buffer.data(), &length, const_cast<char *>(bytes.constData()),
                                          unsigned(bytes.size()), small, verbosity);
        if (code == BZ_OK)
            buffer.truncate(qsizetype(length));
    }
    return code == BZ_OK ? std::optional(buffer) : std::nullopt;
}

std::optional<QByteArray> readUncached(const QString &path, qsizetype mostBytes)
{
    QFile file(path);
    // Anything but a regular file could go on for ever, or wait for somebody to write to it.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    const QByteArray bytes = file.read(std::min<qint64>(mostBytes, file.size()));
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
    return bytes;
}

bool writePlainly(const QString &path, const QByteArray &bytes)
{
    const QFileInfo present(path);
    if (path.isEmpty() || present.isSymLink() || (present.exists() && !present.isFile()))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return false;
    const bool isWritten = file.write(bytes) == bytes.size();
    file.close();
    return isWritten && file.error() == QFileDevice::NoError;
}

QString nameForMessages(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

} // namespace storage
