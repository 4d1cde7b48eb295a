#include "document/ShownWords.h"
#include "document/VocabularyDocument.h"
#include "support/TestServices.h"
#include "support/Words.h"

using namespace Qt::StringLiterals;

namespace {

class WordListTest : public ServicesTest
{
protected:
    WordListTest() { document.setVocabulary(makeWords()); }

    static TAVLexiconRef makeWords()
    {
        return makeVocabulary({makeWord({u"dog"_s, u"cane"_s, 0, {u"animal"_s}, u"z"_s}),
                               makeWord({u"home"_s, u"casa"_s, 2, {}, u"y"_s}),
                               makeWord({u"house"_s, u"casa"_s, 2, {u"home"_s}, u"x"_s}),
                               makeWord({u"water"_s, u"acqua"_s, 5})});
    }
    static QString yourWords(const TAVWordList &words)
    {
        QStringList texts;
        for (const TAVWordRef &word : words)
            texts.append(word->yourWord());
        return texts.join(u' ');
    }

    VocabularyDocument document;
};

TEST_F(WordListTest, LevelSynonymsSearchTagsAndOrderMakeTheList)
{
    constexpr quint64 all = WordListQuery::allLevels;
    const struct
    {
        WordListQuery query;
        const char *words;
    } cases[] = {
        {{0, false, {}, {}}, "dog"},
        {{2, false, {}, {}}, "home house"},
        {{3, false, {}, {}}, ""},
        {{all, false, {}, {}}, "dog home house water"},
        {{all + 1, false, {}, {}}, "dog home house water"},
        {{0, true, {}, {}}, "home house"},
        {{all, false, u"CA"_s, {}}, "dog home house"},
        {{2, false, u"hous"_s, {}}, "house"},
        {{all, false, {}, {u"home"_s, u"animal"_s}}, "dog house"},
        {{0, true, {}, {u"home"_s}}, "house"},
        {{all, false, u"do"_s, {u"home"_s}}, ""},
        {{all, false, u"o"_s, {}, WordOrder::Comment}, "house home dog"},
        {{all, false, {}, {}, WordOrder::ForeignLang}, "water dog home house"},
    };
    for (const auto &each : cases)
        EXPECT_EQ(yourWords(each.query.wordsOf(*document.vocabulary())), QLatin1String(each.words));
}

TEST_F(WordListTest, TheShownListIsWorkedOutOnceAndReadFromEitherEnd)
{
    int asked = 0;
    ShownWords shown(document, [&asked] {
        ++asked;
        return WordListQuery{WordListQuery::allLevels, false, {}, {}};
    });
    EXPECT_TRUE(shown.words().isEmpty()) << "nothing is shown before it is wanted";
    shown.invalidate();
    EXPECT_EQ(yourWords(shown.words()), u"dog home house water"_s);
    EXPECT_EQ(shown.indexForRow(1), 1);
    shown.setDescending(true);
    EXPECT_EQ(shown.indexForRow(0), 3);
    EXPECT_EQ(shown.words().first()->yourWord(), u"dog"_s);
    EXPECT_EQ(asked, 1);

    const TAVWordRef dog = shown.words().first();
    EXPECT_FALSE(shown.isOutlived());
    EXPECT_EQ(shown.present({dog}), TAVWordList{dog});
    const TAVLexiconRef reloaded = makeWords();
    reloaded->removeWord(reloaded->findWordEqualTo(*shown.words().last()));
    document.setVocabulary(reloaded);
    EXPECT_TRUE(shown.isOutlived());
    const TAVWordList present = shown.present({dog, shown.words().last()});
    ASSERT_EQ(present.size(), 1) << "nothing stands for a word that went";
    EXPECT_TRUE(reloaded->allWords().contains(present.first()));
    document.setVocabulary(nullptr);
    shown.invalidate();
    EXPECT_TRUE(shown.words().isEmpty());
    EXPECT_FALSE(shown.isOutlived());
}

} // namespace
