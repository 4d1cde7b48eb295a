#include "Vocabularies.h"

#include "platform/Services.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

QString inventedWord(QRandomGenerator &random)
{
    static constexpr char16_t consonants[] = u"bdfgklmnprst";
    static constexpr char16_t vowels[] = u"aeiouäé";
    QString word;
    for (int syllables = 3 + random.bounded(2); syllables > 0; --syllables) {
        word.append(consonants[random.bounded(int(std::size(consonants)) - 1)]);
        word.append(vowels[random.bounded(int(std::size(vowels)) - 1)]);
    }
    return word;
}

} // namespace

TAVLexiconRef makeLearnersVocabulary(qint64 numberOfWords, int variant)
{
    const QStringList articles = {u"der "_s, u"die "_s, u"das "_s, QString(), QString()};
    const QDateTime now = platform::clock().now();
    QRandomGenerator shared(1);
    QRandomGenerator own(quint32(2 + variant));
    TAVWordList words;
    words.reserve(numberOfWords);
    for (qint64 i = 0; i < numberOfWords; ++i) {
        QRandomGenerator &random = i % 2 ? own : shared;
        const bool isSynonym = i > 1 && random.bounded(20) == 0;
        const QString yourWord = articles[random.bounded(articles.size())] + inventedWord(random);
        auto word = std::make_shared<TAVWord>(isSynonym ? words.at(i - 2)->yourWord() : yourWord,
                                              inventedWord(random), std::nullopt);
        if (random.bounded(5) == 0)
            word->setComment(u"as in "_s + inventedWord(random));
        for (int tags = random.bounded(3); tags > 0; --tags)
            word->addTag(u"lesson "_s + QString::number(random.bounded(60)));
        word->setLevel(quint64(random.bounded(6)));
        if (word->level() > 0)
            word->setLastAsked(now.addSecs(-random.bounded(2'000'000)));
        word->setCreationID(81668520000000 + i);
        words.append(word);
    }
    auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setYourFacultativeWords({u"der"_s, u"die"_s, u"das"_s});
    vocabulary->batchAddWords(words);
    return vocabulary;
}
