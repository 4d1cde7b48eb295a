#include "document/VocabularyDocument.h"
#include "app/ground/AppGround.h"
#include "document/NewLanguage.h"
#include "storage/TAVStorageManager.h"
#include "support/TestServices.h"
#include "support/Words.h"

using namespace Qt::StringLiterals;

namespace {

/** What a view could see of a vocabulary, part by part. */
struct Look
{
    QList<qsizetype> levels;
    QStringList tags;
    QStringList texts;
    TAVWordList list;

    explicit Look(const TAVLexicon &vocabulary)
    {
        for (quint64 level = 0; level < TAVLexicon::numberOfLevels; ++level)
            levels.append(vocabulary.wordsOfLevel(level).size());
        for (const TAVWordRef &word : vocabulary.allWords()) {
            list.append(word);
            tags.append(word->tagsSorted());
            if (!word->yourWord().isEmpty())
                texts.append(word->yourWord());
        }
        std::sort(list.begin(), list.end());
        tags.sort();
        texts.sort();
    }
    TouchedParts differenceTo(const Look &other) const
    {
        TouchedParts parts;
        parts.setFlag(Touched::Levels, levels != other.levels);
        parts.setFlag(Touched::Tags, tags != other.tags);
        parts.setFlag(Touched::Texts, texts != other.texts);
        parts.setFlag(Touched::List, list != other.list);
        return parts;
    }
};

class VocabularyDocumentTest : public ServicesTest
{
protected:
    VocabularyDocumentTest()
    {
        AppGround::applicationSupportFolder();
        vocabulary = named(u"Italian"_s);
        vocabulary->batchAddWords({dog, twin, house});
        document.setVocabulary(vocabulary);
    }
    static TAVLexiconRef named(const QString &foreign) { return NewLanguage::make(u"English"_s, foreign); }
    TAVLexiconRef reloaded() const
    {
        return TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*vocabulary));
    }

    TAVWordRef dog = makeWord({u"dog"_s, u"cane"_s, 1, {u"animal"_s}, {}, 101});
    TAVWordRef twin = makeWord({u"dog"_s, u"cane"_s, 3, {u"pet"_s}, {}, 102});
    TAVWordRef house = makeWord({u"house"_s, u"casa"_s, 2, {}, {}, 103});
    VocabularyDocument document;
    TAVLexiconRef vocabulary;
};

TEST_F(VocabularyDocumentTest, AnOperationTellsWhatItTouchedAndWhatItRemoved)
{
    const auto check = [this](const char *name, const std::function<ChangeOutcome()> &change,
                              const TAVWordList &removed) {
        SCOPED_TRACE(name);
        const Look before(*vocabulary);
        const ChangeOutcome outcome = change();
        EXPECT_TRUE(outcome.isSaved);
        EXPECT_EQ(Look(*vocabulary).differenceTo(before), outcome.touched);
        EXPECT_EQ(outcome.removedWords, removed);
    };
    check("drop", [&] { return document.dropTag(vocabulary, house, u" home "_s); }, {});
    EXPECT_EQ(house->tagsSorted(), QStringList{u"home"_s});
    EXPECT_EQ(house->modificationID(), services.clock.now().toSecsSinceEpoch());
    check("duplicates", [&] { return document.removeDuplicates(vocabulary); }, {dog});
    check("undo", [&] { return document.undo().value(); }, {});
    EXPECT_EQ(reloaded()->countAllWords(), 3);
    check("delete", [&] { return document.deleteWords(vocabulary, {twin, dog}); }, {twin, dog});
    EXPECT_EQ(reloaded()->countAllWords(), 1);

    const TAVWordRef empty = document.beginAddition(*vocabulary);
    EXPECT_TRUE(vocabulary->level0Words().contains(empty));
    EXPECT_EQ(reloaded()->countAllWords(), 1) << "in memory only";
    check("cancel", [&] { return document.cancelAddition(vocabulary, {empty}); }, {empty});
    document.cancelAddition(nullptr, {empty});
}

TEST_F(VocabularyDocumentTest, DuplicatesStayWhereTheFileCannotBeWritten)
{
    vocabulary->setForeignLanguageName(u"../Italian"_s);
    const ChangeOutcome outcome = document.removeDuplicates(vocabulary);
    EXPECT_FALSE(outcome.isSaved);
    EXPECT_TRUE(outcome.removedWords.isEmpty());
    EXPECT_EQ(vocabulary->countAllWords(), 3);
}

TEST_F(VocabularyDocumentTest, LongWorkEndsInTheVocabularyThatStandsForTheGivenOne)
{
    const TAVLexiconRef given = vocabulary;
    EXPECT_EQ(document.presentVersionOf(given), given);
    // A sync's reload comes while the user looks at the preview of an import.
    document.setVocabulary(named(u"Italian"_s));
    ASSERT_NE(document.presentVersionOf(given), given);
    document.presentVersionOf(given)->addWord(makeWord({u"bread"_s, u"pane"_s}));
    document.commit(Change::WordsImported, document.vocabulary());
    EXPECT_EQ(reloaded()->countAllWords(), 1) << "the word that was imported is in the file";

    for (const TAVLexiconRef &other : {named(u"Latin"_s), NewLanguage::make(u"French"_s, u"Italian"_s)}) {
        document.setVocabulary(other);
        EXPECT_EQ(document.presentVersionOf(given), given) << "another language was chosen";
    }
    document.setVocabulary(nullptr);
    EXPECT_EQ(document.presentVersionOf(given), given);
    EXPECT_EQ(document.presentVersionOf(nullptr), nullptr);
}

TEST_F(VocabularyDocumentTest, TheHistoryHasAnEnd)
{
    for (int i = 0; i <= UndoHistory::maxSteps; ++i)
        document.dropTag(vocabulary, house, QString::number(i));
    int steps = 0;
    for (; document.undo(); ++steps) {
    }
    EXPECT_EQ(steps, UndoHistory::maxSteps);
    EXPECT_EQ(house->tagsSorted(), QStringList{u"0"_s}) << "the first one was forgotten";

    // A quiz may run over a language that isn't the current one any more.
    const TAVLexiconRef other = named(u"Latin"_s);
    other->batchAddWords({makeWord({u"bread"_s, u"panis"_s, 0, {}, {}, 201})});
    document.deleteWords(other, other->allWords());
    EXPECT_FALSE(document.undo());
}

TEST_F(VocabularyDocumentTest, ANewLanguageHasTwoNamesForAFile)
{
    const struct
    {
        const char *your;
        const char *foreign;
        const char *displayName;
    } names[] = {
        {" English\n", "\tItalian ", "Italian - English"},
        {"English (UK)", "Italian", "Italian - English (UK)_"},
        {"English", "Norsk (bokmål)", "Norsk (bokmål) - English"},
        {"", " ", "Unknown - My Language"},
        {"ITALIAN", "italian", "italian - My Language"},
        {" \n", "Italian", "Italian - Unknown"},
    };
    for (const auto &each : names) {
        const TAVLexiconRef made =
            NewLanguage::make(QString::fromUtf8(each.your), QString::fromUtf8(each.foreign));
        EXPECT_EQ(TAVStorageManager::displayNameForVocabulary(*made), QString::fromUtf8(each.displayName));
        EXPECT_EQ(made->countAllWords(), 0);
    }
}

} // namespace
