#include "model/TAVLexicon.h"
#include "support/TestServices.h"
#include "support/Words.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

using MergingTest = ServicesTest;

namespace {

/** The rules read plainly, with a scan of the list for every question and a rebuild after every step. */
class PlainVocabulary
{
public:
    TAVWordList allWords;
    TAVWordList synonyms;

    void append(const TAVWordRef &word, const TAVLexiconRef &owner)
    {
        word->setWeakVocForSort(owner);
        allWords.append(word);
    }

    void buildSynonyms()
    {
        synonyms.clear();
        if (allWords.size() < 2)
            return;
        sortBy(allWords, &TAVWord::compareYourLang);
        for (qsizetype i = 1; i < allWords.size(); ++i) {
            if (allWords[i - 1]->yourWord() == allWords[i]->yourWord())
                addSynonyms(allWords[i - 1], allWords[i]);
        }
        sortBy(allWords, &TAVWord::compareForeignLang);
        for (qsizetype i = 1; i < allWords.size(); ++i) {
            if (allWords[i - 1]->foreignWord() == allWords[i]->foreignWord())
                addSynonyms(allWords[i - 1], allWords[i]);
        }
    }

    void merge(const TAVWordList &others, const TAVLexiconRef &owner)
    {
        bool takeOther = false;
        for (const TAVWordRef &other : others) {
            TAVWordRef local;
            for (const TAVWordRef &word : std::as_const(allWords)) {
                if (!local && word->creationID() == other->creationID())
                    local = word;
            }
            if (!local ||
                (other->modificationID() > 0 && other->modificationID() > local->modificationID()) ||
                other->level() > local->level()) {
                takeOther = true;
            } else if (other->level() == local->level()) {
                if (other->dontAskAgain())
                    local->setDontAskAgain(true);
                if (other->lastAsked().isValid() && local->lastAsked().isValid() &&
                    local->lastAsked() < other->lastAsked())
                    local->setLastAsked(other->lastAsked());
            }
            if (takeOther) {
                if (local)
                    allWords.removeOne(local);
                append(other, owner);
            }
        }
        buildSynonyms();
    }

    void join(const TAVWordList &others, bool addAllToUnknown, const TAVLexiconRef &owner)
    {
        qint64 id = TAVLexicon::batchImportIdForRange(others.size());
        for (const TAVWordRef &other : others) {
            if (addAllToUnknown)
                other->setLevel(0);
            const bool isHere =
                std::any_of(allWords.begin(), allWords.end(),
                            [&other](const TAVWordRef &word) { return word->isEqualToWord(*other); });
            if (isHere)
                continue;
            other->setCreationID(id++);
            append(other, owner);
        }
        buildSynonyms();
    }

    void batchAdd(const TAVWordList &words, const TAVLexiconRef &owner)
    {
        for (const TAVWordRef &word : words) {
            if (word->creationID() < 0)
                word->setCreationID(TAVLexicon::currentTime());
            append(word, owner);
        }
        buildSynonyms();
    }

    qint64 deleteDuplicates()
    {
        TAVWordList candidates = synonyms;
        sortBy(candidates, &TAVWord::compareYourLang);
        QMap<QString, TAVWordList> groups;
        for (const TAVWordRef &word : std::as_const(candidates))
            groups[word->foreignWord() + u"-"_s + word->yourWord()].append(word);
        TAVWordList toDelete;
        for (const TAVWordList &group : std::as_const(groups)) {
            TAVWordRef keeper = group[0];
            for (const TAVWordRef &word : group.mid(1)) {
                TAVWordRef loser = word;
                if (word->level() > keeper->level()) {
                    loser = keeper;
                    keeper = word;
                } else if (word->level() == keeper->level() &&
                           ((keeper->comment().isEmpty() && !loser->comment().isEmpty()) ||
                            (keeper->tags().isEmpty() && !loser->tags().isEmpty()))) {
                    std::swap(keeper, loser);
                }
                toDelete.append(loser);
            }
        }
        for (const TAVWordRef &word : std::as_const(toDelete))
            allWords.removeOne(word);
        buildSynonyms();
        return toDelete.size();
    }

private:
    void addSynonyms(const TAVWordRef &a, const TAVWordRef &b)
    {
        for (const TAVWordRef &word : {a, b}) {
            if (!synonyms.contains(word))
                synonyms.append(word);
        }
    }
    static void sortBy(TAVWordList &words, int (TAVWord::*compare)(const TAVWord &) const)
    {
        std::stable_sort(words.begin(), words.end(), [compare](const TAVWordRef &a, const TAVWordRef &b) {
            return ((*a).*compare)(*b) < 0;
        });
    }
};

/** Few ids, texts and levels, so that words clash all the time. */
class RandomWords
{
public:
    explicit RandomWords(quint32 seed)
        : m_random(seed)
    {
    }

    int upTo(int highest) { return int(m_random.bounded(highest + 1)); }

    TAVWordRef word()
    {
        static const QStringList texts = {u"a"_s, u"A"_s, u"der a"_s, u"b"_s, u"a-b"_s, u"b-a"_s, QString()};
        const TAVWordRef made = makeWord(
            {.yourWord = texts[upTo(6)],
             .foreignWord = texts[upTo(6)],
             .level = quint64(upTo(2)),
             .tags = upTo(1) ? QStringList() : QStringList(u"t"_s),
             .comment = upTo(1) ? QString() : u"c"_s,
             .creationID = upTo(5) - 1,
             .lastAsked = upTo(2) ? QDateTime(QDate(2026, 1, 1 + upTo(3)), QTime(), Qt::UTC) : QDateTime(),
             .dontAskAgain = upTo(4) == 0});
        made->setModificationID(upTo(1) ? 0 : upTo(2));
        made->setFallenDownCounter(m_serialNumber++);
        return made;
    }

    TAVWordList words(int most)
    {
        TAVWordList list;
        for (int count = upTo(most); count > 0; --count)
            list.append(word());
        return list;
    }

private:
    QRandomGenerator m_random;
    /** Stands in a field that these operations never touch, to tell which object has won. */
    quint64 m_serialNumber = 0;
};

TAVWordList copiesOf(const TAVWordList &words)
{
    TAVWordList copies;
    for (const TAVWordRef &word : words)
        copies.append(word->copy());
    return copies;
}

std::string contentsOf(const TAVWordList &words)
{
    QStringList lines;
    for (const TAVWordRef &word : words) {
        lines.append(u"#%1 id %2 level %3 %4 %5"_s.arg(
            QString::number(word->fallenDownCounter()), QString::number(word->creationID()),
            QString::number(word->level()), word->lastAsked().toString(Qt::ISODate),
            word->dontAskAgain() ? u"excluded"_s : QString()));
    }
    return lines.join(u'\n').toStdString();
}

} // namespace

TEST_F(MergingTest, equalsThePlainReadingOnRandomVocabularies)
{
    for (quint32 seed = 0; seed < 3000 && !HasFailure(); ++seed) {
        RandomWords random(seed);
        const auto vocabulary = std::make_shared<TAVLexicon>();
        vocabulary->setYourFacultativeWords({u"der"_s});
        PlainVocabulary plain;
        for (int step = 2 + random.upTo(3); step > 0; --step) {
            const TAVWordList words = random.words(7);
            const TAVWordList copies = copiesOf(words);
            const int operation = random.upTo(4);
            TAVLexicon other;
            for (const TAVWordRef &word : words)
                other.addWordWithID(word, word->creationID());
            TAVWordList others;
            for (const TAVWordRef &word : other.allWords())
                others.append(copies.at(words.indexOf(word)));
            if (operation == 0) {
                EXPECT_EQ(vocabulary->deleteDuplicates(), plain.deleteDuplicates()) << seed;
            } else if (operation == 1) {
                vocabulary->mergeWithOtherVersion(other);
                plain.merge(others, vocabulary);
            } else if (operation == 2) {
                vocabulary->batchAddWords(words);
                plain.batchAdd(copies, vocabulary);
            } else {
                vocabulary->joinWithVocabulary(other, operation == 3);
                plain.join(others, operation == 3, vocabulary);
                EXPECT_EQ(contentsOf(words), contentsOf(copies));
            }
            EXPECT_EQ(contentsOf(vocabulary->allWords()), contentsOf(plain.allWords))
                << seed << ' ' << operation;
            EXPECT_EQ(contentsOf(vocabulary->synonyms().values()), contentsOf(plain.synonyms)) << seed;
        }
    }
}

TEST_F(MergingTest, firstWordAheadLetsAllBehindItWin)
{
    const auto merged = [](const QList<qint64> &idsOfOther) {
        const TAVLexiconRef vocabulary =
            makeVocabulary({makeWord({.foreignWord = u"local"_s, .level = 3, .creationID = 2})});
        TAVLexicon other;
        for (const qint64 id : idsOfOther)
            other.addWordWithID(makeWord({.foreignWord = u"other"_s, .level = 1}), id);
        vocabulary->mergeWithOtherVersion(other);
        return vocabulary->findWordByID(2)->foreignWord();
    };
    EXPECT_EQ(merged({1, 2}), u"other"_s);
    EXPECT_EQ(merged({2, 1}), u"local"_s);
}

TEST_F(MergingTest, takenWordsBelongToTheReceiverAlone)
{
    const TAVWordRef isNew =
        makeWord({.foreignWord = u"new"_s, .level = 5, .tags = {u"tag"_s}, .creationID = 9});
    const TAVWordRef refused = makeWord({.foreignWord = u"x"_s, .level = 4, .creationID = 3});
    const TAVLexiconRef other = makeVocabulary({isNew, refused});
    // What is built before must not show the words that have left.
    EXPECT_EQ(other->level4Words(), TAVWordList({refused}));
    EXPECT_EQ(other->nativeWithoutDontAsk(), TAVWordList({isNew}));
    EXPECT_TRUE(other->allTags().contains(u"tag"_s));
    EXPECT_TRUE(other->completionTagsForPrefix(u"t"_s));
    EXPECT_EQ(other->synonyms().size(), 2);

    const TAVLexiconRef vocabulary = makeVocabulary({makeWord({.foreignWord = u"x"_s, .creationID = 1})});
    EXPECT_EQ(vocabulary->level0Words().size(), 1);
    vocabulary->joinWithVocabulary(*other, true);
    EXPECT_EQ(isNew->weakVocForSort(), vocabulary);
    EXPECT_EQ(isNew->creationID(), TAVLexicon::currentTime() * 100);
    EXPECT_EQ(refused->level(), 0U);
    EXPECT_EQ(other->allWords(), TAVWordList({refused}));
    EXPECT_EQ(other->level0Words(), TAVWordList({refused}));
    EXPECT_TRUE(other->nativeWithoutDontAsk().isEmpty());
    EXPECT_TRUE(other->allTags().isEmpty());
    EXPECT_FALSE(other->completionTagsForPrefix(u"t"_s));
    EXPECT_TRUE(other->synonyms().isEmpty());
    EXPECT_EQ(vocabulary->countAllWords(), 2);
    EXPECT_EQ(vocabulary->level0Words().size(), 2);
    EXPECT_TRUE(vocabulary->allTags().contains(u"tag"_s));
    EXPECT_FALSE(vocabulary->needsSync());
}
