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

} // namespace storage
