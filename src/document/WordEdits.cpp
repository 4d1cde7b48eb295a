#include "document/WordEdits.h"

#include "platform/Services.h"

#include <QHash>

namespace WordEdits {

namespace {

constexpr quint64 nativeLevel = 5;
constexpr QChar separator = u'@';

QStringList partsOf(const QString &text)
{
    QStringList parts = text.split(separator);
    parts.removeIf([](const QString &part) { return part.isEmpty() || part == QLatin1String(" "); });
    return parts;
}

} // namespace

Summary summaryOf(const TAVWordList &words)
{
    Summary summary;
    const QStringList commonTags = words.isEmpty() ? QStringList() : words.first()->tagsSorted();
    for (const TAVWordRef &word : words) {
        summary.allNative = summary.allNative && word->level() >= nativeLevel;
        summary.allFlagged = summary.allFlagged && word->dontAskAgain();
        summary.noneFlagged = summary.noneFlagged && !word->dontAskAgain();
        summary.noComments = summary.noComments && word->comment().isEmpty();
        summary.sameTags = summary.sameTags && word->tags().size() == commonTags.size() &&
                           std::all_of(commonTags.begin(), commonTags.end(),
                                       [&word](const QString &tag) { return word->tags().contains(tag); });
    }
    return summary;
}

Content contentOf(const TAVWord &word)
{
    return {word.yourWord(), word.foreignWord(), word.comment(), word.tagsSorted(), word.dontAskAgain()};
}

TAVWordList newWordsFrom(const Content &content)
{
    TAVWordList words;
    const TAVTextSet tags(content.tags);
    const auto add = [&](const QString &yourWord, const QString &foreignWord) {
        const auto word = std::make_shared<TAVWord>(yourWord, foreignWord, content.comment);
        word->setTags(tags);
        words.append(word);
    };
    if (!holdsSeveral(content)) {
        if (!content.yourWord.trimmed().isEmpty() || !content.foreignWord.trimmed().isEmpty())
            add(content.yourWord, content.foreignWord);
        return words;
    }
    for (const QString &yourPart : partsOf(content.yourWord)) {
        for (const QString &foreignPart : partsOf(content.foreignWord))
            add(yourPart, foreignPart);
    }
    return words;
}

bool holdsSeveral(const Content &content)
{
    return content.yourWord.contains(separator) || content.foreignWord.contains(separator);
}

qsizetype numberOfPairs(const Content &content)
{
    return partsOf(content.yourWord).size() * partsOf(content.foreignWord).size();
}

void applyToWord(TAVWord &word, const Content &content)
{
    word.setModificationID(platform::secondsSince1970(platform::clock()));
    word.setYourWord(content.yourWord);
    word.setForeignWord(content.foreignWord);
    word.setComment(content.comment);
    word.setTags(TAVTextSet(content.tags));
    word.setDontAskAgain(content.dontAskAgain);
}

void applyPairs(TAVLexicon &vocabulary, const TAVWordRef &word, const Content &content)
{
    bool isReplaced = true;
    const TAVTextSet tags(content.tags);
    for (const QString &yourPart : partsOf(content.yourWord)) {
        for (const QString &foreignPart : partsOf(content.foreignWord)) {
            if (yourPart == word->yourWord() && foreignPart == word->foreignWord()) {
                word->setComment(content.comment);
                word->setTags(tags);
                word->setDontAskAgain(content.dontAskAgain);
                isReplaced = false;
                continue;
            }
            const auto added = std::make_shared<TAVWord>(yourPart, foreignPart, content.comment);
            added->setTags(tags);
            vocabulary.addWord(added);
        }
    }
    if (isReplaced)
        vocabulary.removeWord(word);
}

void applyToMany(const TAVWordList &words, const Content &content, const VariousTexts &various)
{
    QStringList tags = content.tags;
    const bool keepsOwnTags = tags.removeAll(various.tag) > 0;
    const TAVTextSet tagSet(tags);
    const qint64 now = platform::secondsSince1970(platform::clock());
    for (const TAVWordRef &word : words) {
        word->setDontAskAgain(content.dontAskAgain);
        if (content.comment != various.comment)
            word->setComment(content.comment);
        if (keepsOwnTags) {
            for (const QString &tag : tags)
                word->addTag(tag);
        } else {
            word->setTags(tagSet);
        }
        word->setModificationID(now);
    }
}

TAVWordList counterparts(const TAVWordList &words, const TAVLexicon &vocabulary)
{
    using Texts = std::pair<QString, QString>;
    QHash<Texts, TAVWordRef> firstByTexts;
    firstByTexts.reserve(vocabulary.countAllWords());
    for (const TAVWordRef &word : vocabulary.allWords()) {
        const Texts texts(word->yourWord(), word->foreignWord());
        if (!firstByTexts.contains(texts))
            firstByTexts.insert(texts, word);
    }
    TAVWordList found;
    for (const TAVWordRef &word : words) {
        if (const TAVWordRef counterpart = firstByTexts.value({word->yourWord(), word->foreignWord()}))
            found.append(counterpart);
    }
    return found;
}

} // namespace WordEdits
