// The JSON of a vocabulary: whatever it holds, it reads without harm, and what was read is written as JSON
// that reads as the same again.

#include "BenchServices.h"
#include "files/Utf8.h"
#include "model/TAVLexicon.h"
#include "model/TAVStatistics.h"

#include <QJsonDocument>

#include <cstdlib>

namespace {

void demand(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const BenchServices services;
    const QByteArrayView bytes(data, qsizetype(size));
    const TAVLexiconRef vocabulary = TAVLexicon::initWithJson(bytes);
    vocabulary->statistics()->wordsLearnedTotal();
    vocabulary->buildSynonyms();
    vocabulary->buildTagsIndex();
    vocabulary->invalidateCachedWordLists();

    const QByteArray written = vocabulary->jsonRepresentation();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(written, &error);
    demand(error.error == QJsonParseError::NoError);
    const TAVLexiconRef again = TAVLexicon::initWithJson(written);
    demand(again->jsonRepresentation() == written);
    // Qt's reader drops a mark at the start of a text; ours keeps it.
    if (!written.contains(files::byteOrderMark))
        demand(TAVLexicon::initWithDictionary(document.object())->jsonRepresentation() == written);
    return 0;
}
