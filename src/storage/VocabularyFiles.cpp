#include "storage/VocabularyFiles.h"

#include <bzlib.h>

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
    for (const qsizetype size : {qsizetype(0x80000), maxReadableJson}) {
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

bool isWholeStream(const QByteArray &bytes)
{
    constexpr int small = 0;
    constexpr int verbosity = 0;
    // A write that was torn can't hold more; whoever wants to keep the program busy could.
    constexpr qint64 maxUnpacked = qint64(256) << 20;
    bz_stream stream = {};
    if (BZ2_bzDecompressInit(&stream, verbosity, small) != BZ_OK)
        return false;
    stream.next_in = const_cast<char *>(bytes.constData());
    stream.avail_in = unsigned(bytes.size());
    QByteArray buffer(qsizetype(1) << 18, Qt::Uninitialized);
    int code = BZ_OK;
    qint64 unpacked = 0;
    while (code == BZ_OK && unpacked < maxUnpacked) {
        stream.next_out = buffer.data();
        stream.avail_out = unsigned(buffer.size());
        code = BZ2_bzDecompress(&stream);
        const qint64 count = buffer.size() - stream.avail_out;
        unpacked += count;
        // All of the input is gone, and it has not come to its end.
        if (code == BZ_OK && count == 0 && stream.avail_in == 0)
            break;
    }
    BZ2_bzDecompressEnd(&stream);
    return code == BZ_STREAM_END || unpacked >= maxUnpacked;
}

} // namespace storage
