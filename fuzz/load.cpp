// A vocabulary's file, by the whole way from its path: read, unpacked, parsed, indexed. Whatever it holds, it
// is a vocabulary or an alert.

#include "BenchServices.h"
#include "app/ground/AppGround.h"
#include "storage/TAVStorageManager.h"
#include "storage/VocabularyFiles.h"

#include <QFile>

#include <algorithm>
#include <cstdlib>

#include <bzlib.h>

using namespace Qt::StringLiterals;

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);

namespace {

bool isArchive(const QByteArray &bytes)
{
    return bytes.startsWith("bplist");
}

void demand(bool holds)
{
    if (!holds)
        std::abort();
}

TAVLexiconRef load(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    demand(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    file.close();
    return TAVStorageManager::vocabularyFromFile(path);
}

} // namespace

/** Most changes are made to what is packed: a changed stream only ever fails at its checksum. */
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned seed)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    constexpr unsigned packedOnceIn = 16;
    if (isArchive(bytes) || seed % packedOnceIn == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    QByteArray json = storage::decompressed(bytes).value_or(QByteArray("{}"));
    const qsizetype length = json.size();
    json.resize(qsizetype(maxSize) + length);
    auto *const start = reinterpret_cast<uint8_t *>(json.data());
    json.truncate(qsizetype(LLVMFuzzerMutate(start, size_t(length), maxSize)));
    // Small blocks are packed many times as fast as those that the program writes.
    constexpr int blockSize = 1;
    QByteArray packed(qsizetype(maxSize), '\0');
    auto packedSize = unsigned(packed.size());
    const int code = BZ2_bzBuffToBuffCompress(packed.data(), &packedSize, json.data(), unsigned(json.size()),
                                              blockSize, 0, 0);
    if (code != BZ_OK)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy_n(packed.constData(), packedSize, data);
    return packedSize;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const BenchServices services;
    static const QString folder = AppGround::applicationSupportFolder();
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString name = isArchive(bytes) ? u"x.lxa"_s : u"x.tavv"_s;
    const TAVLexiconRef vocabulary = load(folder + u'/' + name, bytes);
    if (!vocabulary)
        return 0;
    vocabulary->buildSynonyms();
    vocabulary->buildTagsIndex();
    demand(vocabulary->fileNameWhereLoadedFrom() == name);
    return 0;
}
