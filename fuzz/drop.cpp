// Any text that is dropped on a word of the list becomes its tag, is saved with it, and comes back as it was.

#include "BenchServices.h"
#include "app/ground/AppGround.h"
#include "document/VocabularyDocument.h"
#include "storage/TAVStorageManager.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const BenchServices services;
    AppGround::applicationSupportFolder();
    const QString text(reinterpret_cast<const QChar *>(data), qsizetype(size / sizeof(QChar)));
    const auto vocabulary = std::make_shared<TAVLexicon>();
    const auto word = std::make_shared<TAVWord>(u"house"_s, u"casa"_s, std::nullopt);
    vocabulary->addWord(word);
    VocabularyDocument document;
    document.setVocabulary(vocabulary);
    document.dropTag(vocabulary, word, text);
    vocabulary->completionTagsForPrefix(text.left(1));
    vocabulary->wordsWithTags(word->tags(), true);

    // Halves of pairs are no characters in a file.
    TAVTextSet written;
    for (const QString &tag : word->tags())
        written.insert(QString::fromStdU32String(tag.toStdU32String()));
    const TAVLexiconRef again = TAVLexicon::initWithJson(vocabulary->jsonRepresentation());
    if (again->countAllWords() != 1 || !(again->allWords().first()->tags() == written))
        std::abort();
    return 0;
}
