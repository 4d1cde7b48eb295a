#include "model/TAVLexicon.h"
#include "model/TAVStatistics.h"
#include "support/TestServices.h"
#include "support/Words.h"

using namespace Qt::StringLiterals;

using TAVLexiconTest = ServicesTest;

TEST_F(TAVLexiconTest, levelListsAreStaleUntilDropped)
{
    const TAVWordRef a = makeWord({.foreignWord = u"a"_s, .level = 5, .dontAskAgain = true});
    const TAVWordRef b = makeWord({.foreignWord = u"b"_s, .level = 9});
    const TAVWordRef c = makeWord({.foreignWord = u"c"_s});
    const TAVLexiconRef vocabulary = makeVocabulary({a, b, c});
    EXPECT_EQ(vocabulary->level5Words(), TAVWordList({a, b}));
    EXPECT_EQ(vocabulary->nativeWithoutDontAsk(), TAVWordList({b}));

    a->setDontAskAgain(false);
    c->setLevel(1);
    EXPECT_EQ(vocabulary->level0Words(), TAVWordList({c}));
    EXPECT_EQ(vocabulary->nativeWithoutDontAsk(), TAVWordList({b}));
    vocabulary->invalidateCachedWordLists();
    EXPECT_TRUE(vocabulary->level0Words().isEmpty());
    EXPECT_EQ(vocabulary->level1Words(), TAVWordList({c}));
    EXPECT_EQ(vocabulary->nativeWithoutDontAsk(), TAVWordList({a, b}));
    vocabulary->removeWord(a);
    EXPECT_EQ(vocabulary->level5Words(), TAVWordList({b}));
}

TEST_F(TAVLexiconTest, idsComeFromTheClock)
{
    services.clock.setNow(QDateTime(QDate(2001, 1, 1), QTime(0, 16, 40, 999), Qt::UTC));
    const std::pair<qint64, qint64> cases[] = {{99, 100000},     {100, 1000000},   {999, 1000000},
                                               {1000, 10000000}, {9999, 10000000}, {10000, 100000000}};
    for (const auto &[range, expected] : cases)
        EXPECT_EQ(TAVLexicon::batchImportIdForRange(range), expected) << range;

    const TAVWordRef first = makeWord({.foreignWord = u"b"_s, .creationID = 5});
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->addWord(first);
    vocabulary->addWord(makeWord({.foreignWord = u"a"_s}));
    vocabulary->addWord(nullptr);
    EXPECT_EQ(first->creationID(), 1000);
    EXPECT_EQ(vocabulary->findWordByID(1000), first) << "the first of two that were added in one second";
    EXPECT_FALSE(vocabulary->containsWordWithID(5));
    EXPECT_EQ(first->weakVocForSort(), vocabulary);
    const TAVWordRef twin = makeWord({.foreignWord = u"b"_s});
    EXPECT_EQ(makeVocabulary({first, twin})->findWordEqualTo(*twin), first);
    EXPECT_FALSE(vocabulary->containsWordEqualTo(*makeWord({.foreignWord = u"B"_s})));
}

TEST_F(TAVLexiconTest, answerMovesTheWord)
{
    struct Case
    {
        int answer;
        /** By level before the answer, 0 to 6. */
        QList<quint64> levels;
        QList<quint64> falls;
    };
    const Case cases[] = {
        {1, {1, 2, 3, 4, 5, 5, 5}, {0, 0, 0, 0, 0, 0, 0}},
        {0, {0, 1, 2, 3, 4, 5, 6}, {0, 0, 0, 0, 0, 0, 0}},
        {7, {0, 1, 2, 3, 4, 5, 6}, {0, 0, 0, 0, 0, 0, 0}},
        {-1, {0, 0, 1, 2, 2, 2, 2}, {0, 1, 1, 1, 1, 1, 1}},
    };
    for (const Case &row : cases) {
        for (int level = 0; level <= 6; ++level) {
            const TAVWordRef word = makeWord({.level = quint64(level)});
            const TAVLexiconRef vocabulary = makeVocabulary({word});
            EXPECT_EQ(vocabulary->wordsOfLevel(quint64(level)).size(), 1);
            vocabulary->answeredWord(word, row.answer);
            EXPECT_EQ(word->level(), row.levels[level]) << row.answer << ' ' << level;
            EXPECT_EQ(word->fallenDownCounter(), row.falls[level]) << row.answer << ' ' << level;
            EXPECT_EQ(word->lastAsked(), services.clock.now());
            const int counted = int(std::min<quint64>(row.levels[level], 5));
            EXPECT_EQ(vocabulary->statistics()->lastSnapshot()->numberOfWordsInLevel(counted), 1);
        }
    }
}

TEST_F(TAVLexiconTest, wordIsDueStrictlyAfterItsRehearsalTime)
{
    const qint64 seconds[] = {0, 900, 10800, 86400, 259200, 604800, 604800};
    for (quint64 level = 0; level < std::size(seconds); ++level) {
        const QDateTime justNot = services.clock.now().addSecs(-seconds[level]);
        const TAVWordRef due = makeWord({.level = level, .lastAsked = justNot.addMSecs(-1)});
        const TAVWordRef longDue = makeWord({.level = level, .lastAsked = justNot.addSecs(-1)});
        const TAVWordRef never = makeWord({.level = level});
        const TAVLexiconRef vocabulary =
            makeVocabulary({makeWord({.level = level, .lastAsked = justNot}), due, longDue, never,
                            makeWord({.level = level, .dontAskAgain = true})});
        EXPECT_EQ(vocabulary->wordsOverDueFromLevel(level, {}, false), TAVWordList({never, longDue, due}))
            << level;
        EXPECT_EQ(vocabulary->wordsOfLevel(level).size(), 5);
    }
}

TEST_F(TAVLexiconTest, randomPickGivesEachWordOnceDueOrNot)
{
    const TAVLexiconRef vocabulary = makeVocabulary(
        {makeWord({.level = 2, .tags = {u"t"_s}, .lastAsked = services.clock.now()}),
         makeWord({.level = 2, .tags = {u"t"_s}, .dontAskAgain = true}), makeWord({.level = 2})});
    EXPECT_EQ(TAVWordSet(vocabulary->randomlyPick(9, 2, {}, false)), TAVWordSet(vocabulary->allWords()));
    EXPECT_EQ(vocabulary->randomlyPick(9, 2, {u"t"_s}, true).size(), 2);
    EXPECT_TRUE(vocabulary->randomlyPick(9, 1, {}, false).isEmpty());

    // A number that hits a picked word is used up without effect.
    services.random.script = {1, 4, 2};
    const TAVWordList level = vocabulary->level2Words();
    EXPECT_EQ(vocabulary->randomlyPick(2, 2, {}, false), TAVWordList({level[1], level[2]}));
    EXPECT_TRUE(services.random.script.empty());
    services.random.script = {0, 0x80000000, 7, 8, 9};
    EXPECT_EQ(vocabulary->random().randomFloatBetween(-1, 3), -1);
    EXPECT_EQ(vocabulary->random().randomFloatBetween(-1, 3), 1);
    for (const qint64 expected : {1, -2, -1})
        EXPECT_EQ(vocabulary->random().randomIntBetween(-2, 1), expected);
}

TEST_F(TAVLexiconTest, filtersByAnyOrAllTags)
{
    const TAVWordRef both = makeWord({.tags = {u"a"_s, u"b"_s}});
    const TAVWordRef one = makeWord({.tags = {u"a"_s, u"B"_s}});
    const TAVWordList words = {makeWord({}), both, one};
    EXPECT_EQ(TAVLexicon::filteredWords(words, {u"a"_s, u"b"_s}, true), TAVWordList({both}));
    EXPECT_EQ(TAVLexicon::filteredWords(words, {u"a"_s, u"b"_s}, false), TAVWordList({both, one}));
    EXPECT_EQ(TAVLexicon::filteredWords(words, {}, true), words);
    EXPECT_EQ(TAVLexicon::filterWords(words, QString()), words) << "though no word matches the empty term";
}

TEST_F(TAVLexiconTest, completesTagsByUse)
{
    const TAVWordRef word = makeWord({.tags = {u"abc"_s, u"x"_s}});
    const TAVLexiconRef vocabulary =
        makeVocabulary({word, makeWord({.tags = {u"abd"_s}}), makeWord({.tags = {u"abd"_s, u"a"_s}}),
                        makeWord({.tags = {u"Abe"_s, u"aba"_s}})});
    const QStringList byUse = {u"abd"_s, u"abc"_s, u"aba"_s};
    EXPECT_EQ(vocabulary->completionTagsForPrefix(u"ab"_s), byUse);
    EXPECT_EQ(vocabulary->completionTagsForPrefix(u"a"_s), byUse);
    for (const QString &prefix : {u"abc"_s, u"x"_s, u"aB"_s, u"abcd"_s, QString()})
        EXPECT_FALSE(vocabulary->completionTagsForPrefix(prefix)) << qPrintable(prefix);

    // A tag as long as a hostile file can hold costs no more room than itself.
    word->setTags({QString(1'000'000, u'y')});
    EXPECT_TRUE(vocabulary->allTags().contains(u"abc"_s));
    vocabulary->buildTagsIndex();
    EXPECT_FALSE(vocabulary->allTags().contains(u"abc"_s));
    EXPECT_EQ(vocabulary->completionTagsForPrefix(u"yy"_s)->size(), 1);
}

TEST_F(TAVLexiconTest, synonymsShareExactlyOneText)
{
    const TAVWordRef dog = makeWord({.yourWord = u"hund"_s, .foreignWord = u"dog"_s});
    const TAVWordRef hound = makeWord({.yourWord = u"hund"_s, .foreignWord = u"hound"_s});
    const TAVWordRef twin = makeWord({.yourWord = u"hund"_s, .foreignWord = u"dog"_s});
    const TAVWordRef other = makeWord({.yourWord = u"Hund"_s, .foreignWord = u"Dog"_s});
    const TAVLexiconRef vocabulary = makeVocabulary({hound, dog, twin});
    EXPECT_EQ(vocabulary->synonymsForWord(*dog), TAVWordSet({hound}));
    EXPECT_EQ(vocabulary->synonymsForWord(*hound), TAVWordSet({dog, twin}));
    EXPECT_EQ(vocabulary->allWords(), TAVWordList({dog, twin, hound})) << "left in foreign order";

    // A word added by hand shows among the synonyms, alone as it is, until the next rebuild.
    vocabulary->addWord(other);
    const TAVWordRef empty = makeWord({});
    vocabulary->addWord(empty);
    vocabulary->removeWords({dog, twin});
    EXPECT_EQ(vocabulary->synonyms(), TAVWordSet({hound, other}));
    EXPECT_TRUE(vocabulary->synonymsForWord(*other).isEmpty());
    vocabulary->buildSynonyms();
    EXPECT_TRUE(vocabulary->synonyms().isEmpty());

    // One that has a partner brings it along, by either text; an empty one counts as a text.
    const TAVWordRef byForeign = makeWord({.foreignWord = u"hound"_s});
    vocabulary->addWord(byForeign);
    EXPECT_EQ(vocabulary->synonyms(), TAVWordSet({empty, hound, byForeign}));
    vocabulary->addWord(dog);
    EXPECT_EQ(vocabulary->synonyms(), TAVWordSet({empty, hound, byForeign, dog}));
}

TEST_F(TAVLexiconTest, onlyNeighboursAreFoundAsSynonyms)
{
    // One sort key for all three, and the variant in other case keeps the equal ones apart.
    const TAVWordRef first = makeWord({.yourWord = u"x"_s, .foreignWord = u"1"_s});
    const TAVWordRef variant = makeWord({.yourWord = u"X"_s, .foreignWord = u"2"_s});
    const TAVWordRef last = makeWord({.yourWord = u"x"_s, .foreignWord = u"3"_s});
    EXPECT_TRUE(makeVocabulary({first, variant, last})->synonyms().isEmpty());
    EXPECT_EQ(makeVocabulary({variant, first, last})->synonyms(), TAVWordSet({first, last}));
}

TEST_F(TAVLexiconTest, removedWordsComeBackAsTheyWere)
{
    TAVWordList words;
    for (int i = 0; i < 40; ++i)
        words.append(makeWord({.yourWord = QString::number(i / 2),
                               .foreignWord = QString::number(i),
                               .tags = {QString::number(i)},
                               .creationID = i < 20 ? 1 : i}));
    const TAVLexiconRef vocabulary = makeVocabulary(words);
    const TAVWordList gone = words.mid(5, 30);
    vocabulary->removeWords(gone);
    EXPECT_EQ(vocabulary->allTags().size(), 10);
    EXPECT_EQ(vocabulary->level0Words().size(), 10);

    // A word that a sync has brought back meanwhile isn't doubled.
    const TAVWordRef returned = gone.last()->copy();
    vocabulary->batchAddWords({returned});
    vocabulary->restoreWords(gone);
    vocabulary->restoreWords(gone);
    TAVWordSet expected(words);
    expected.remove(gone.last());
    expected.insert(returned);
    EXPECT_EQ(TAVWordSet(vocabulary->allWords()), expected);
    EXPECT_EQ(vocabulary->countAllWords(), 40);
    EXPECT_EQ(vocabulary->allTags().size(), 40);
    EXPECT_EQ(vocabulary->synonymsForWord(*gone[1]).size(), 1);

    // Words without ids are no versions of each other.
    const TAVWordRef plain = makeWord({.foreignWord = u"same"_s});
    vocabulary->batchAddWords({plain->copy(), plain});
    vocabulary->removeWord(plain);
    vocabulary->restoreWords({plain});
    EXPECT_TRUE(vocabulary->allWords().contains(plain));
}

TEST_F(TAVLexiconTest, inputSourceOfAnotherMachineKeepsItsId)
{
    const platform::InputSourceRef german = services.inputSources.add(u"de"_s);
    TAVLexicon vocabulary;
    vocabulary.setForeignTextInputSourceId(u"de"_s);
    vocabulary.setForeignTextInputSourceId(u"elsewhere"_s);
    EXPECT_EQ(vocabulary.foreignTextInputSource(), german);
    EXPECT_EQ(vocabulary.foreignTextInputSourceId(), u"elsewhere"_s);
    EXPECT_EQ(vocabulary.yourTextInputSource(), nullptr);
    const platform::InputSourceRef english = services.inputSources.add(u"us"_s);
    vocabulary.setYourTextInputSourceId(u"us"_s);
    vocabulary.setYourTextInputSourceId(u"elsewhere"_s);
    EXPECT_EQ(vocabulary.yourTextInputSource(), english);
    EXPECT_EQ(vocabulary.yourTextInputSourceId(), u"elsewhere"_s);
    EXPECT_EQ(vocabulary.foreignTextInputSource(), german);
}
