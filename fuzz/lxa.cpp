// An archive of a vocabulary: whatever it holds, it reads or is refused without harm, and what was read can
// be written and read as the same again.

#include "BenchServices.h"
#include "model/TAVLexicon.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

TAVLexiconRef readArchive(QByteArrayView bytes)
{
    TAVLexiconRef vocabulary;
    const bool isRead =
        ArchiveDecoder::unarchive(bytes, "TAVLexicon"_L1, [&vocabulary](const ArchiveDecoder &decoder) {
            vocabulary = TAVLexicon::initWithCoder(decoder);
        });
    return isRead ? vocabulary : nullptr;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const BenchServices services;
    const TAVLexiconRef vocabulary = readArchive(QByteArrayView(data, qsizetype(size)));
    if (!vocabulary)
        return 0;
    const QByteArray written = ArchiveEncoder::archive(
        "TAVLexicon"_L1, [&vocabulary](ArchiveEncoder &encoder) { vocabulary->encodeWithCoder(encoder); });
    const TAVLexiconRef again = readArchive(written);
    if (!again || again->countAllWords() != vocabulary->countAllWords())
        std::abort();
    return 0;
}
