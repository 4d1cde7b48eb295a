#include "quiz/TAVQuizInterface.h"
#include "support/TestServices.h"
#include "support/Words.h"

using namespace Qt::StringLiterals;

class TAVQuizInterfaceTest : public ServicesTest
{
protected:
    /** So many words of the level; those that were asked just now are not due. */
    TAVWordList add(int count, quint64 level, bool isDue)
    {
        TAVWordList words;
        for (int i = 0; i < count; ++i) {
            const int daysAgo = 100 + i * 37 % count;
            words.append(makeWord({.foreignWord = QString::number(m_number++),
                                   .level = level,
                                   .lastAsked = services.clock.now().addDays(isDue ? -daysAgo : 0)}));
        }
        m_vocabulary->batchAddWords(words);
        return words;
    }

    TAVWordSet run(TAVQuizInterface &quiz)
    {
        quiz.createWordsToAsk();
        const TAVWordSet words(quiz.wordsToAsk());
        EXPECT_EQ(words.size(), quiz.wordsToAsk().size()) << "each word once";
        EXPECT_EQ(words.size(), quiz.numberOfWordsToAsk());
        return words;
    }

    TAVLexiconRef m_vocabulary = std::make_shared<TAVLexicon>();
    int m_number = 0;
};

TEST_F(TAVQuizInterfaceTest, cutsManyDueWordsDownOverAllLevels)
{
    TAVWordList due;
    for (quint64 level = 0; level < 5; ++level)
        due += add(200, level, true);
    add(200, 5, true);
    TAVQuizInterface quiz(m_vocabulary);
    const TAVWordSet words = run(quiz);
    EXPECT_EQ(words.size(), 30);
    QSet<quint64> levels;
    for (const TAVWordRef &word : words) {
        EXPECT_LT(word->level(), 5U);
        levels.insert(word->level());
    }
    EXPECT_GE(levels.size(), 3) << "no level is preferred";
}

TEST_F(TAVQuizInterfaceTest, drawsByPlaceAmongTheRemaining)
{
    // Five words are cut down to two, then shuffled: each number is the place among those still there.
    add(5, 0, true);
    const TAVWordList due = m_vocabulary->wordsOverDueFromLevel(0, {}, false);
    TAVQuizInterface quiz(m_vocabulary);
    quiz.setNumberOfWordsToAsk(2);
    services.random.script = {4, 1, 1, 1, 0};
    quiz.createWordsToAsk();
    EXPECT_EQ(quiz.wordsToAsk(), TAVWordList({due[3], due[0]}));
    EXPECT_TRUE(services.random.script.empty());
}

TEST_F(TAVQuizInterfaceTest, fillsUpWithWordsThatAreNotDue)
{
    const TAVWordList due = add(10, 3, true);
    add(25, 1, false);
    add(25, 4, false);
    const TAVWordList unchosen = add(50, 2, true) + add(50, 5, true);
    TAVQuizInterface quiz(m_vocabulary);
    quiz.setAskShortterm(false);
    const TAVWordSet words = run(quiz);
    EXPECT_EQ(words.size(), 30);
    for (const TAVWordRef &word : due)
        EXPECT_TRUE(words.contains(word));
    for (const TAVWordRef &word : unchosen)
        EXPECT_FALSE(words.contains(word));
}

TEST_F(TAVQuizInterfaceTest, fillsUpFromTheLevelsInTheirOwnOrder)
{
    constexpr quint64 order[] = {5, 4, 3, 1, 2, 0};
    for (quint64 level = 0; level < 6; ++level)
        add(5, level, false);
    for (qint64 wanted = 1; wanted <= 6; ++wanted) {
        TAVQuizInterface quiz(m_vocabulary);
        quiz.setAskNative(true);
        quiz.setNumberOfWordsToAsk(wanted);
        QSet<quint64> levels;
        for (const TAVWordRef &word : run(quiz))
            levels.insert(word->level());
        EXPECT_EQ(quiz.numberOfWordsToAsk(), wanted);
        EXPECT_EQ(levels, QSet<quint64>(order, order + wanted)) << "one of each as far as they go";
    }
}

TEST_F(TAVQuizInterfaceTest, takesWhatThereIs)
{
    TAVQuizInterface quiz(m_vocabulary);
    EXPECT_TRUE(run(quiz).isEmpty());
    EXPECT_EQ(quiz.nextWordToAsk(), nullptr);
    EXPECT_EQ(quiz.askIndex(), 0);

    const TAVWordList words = add(6, 0, true) + add(4, 1, false);
    quiz.setNumberOfWordsToAsk(30);
    EXPECT_EQ(run(quiz), TAVWordSet(words));
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(quiz.nextWordToAsk(), quiz.wordsToAsk().at(i));
    EXPECT_EQ(quiz.nextWordToAsk(), nullptr);
    EXPECT_EQ(quiz.nextWordToAsk(), nullptr);
    EXPECT_EQ(quiz.askIndex(), 11);
}

TEST_F(TAVQuizInterfaceTest, nativeWordsOnlyFillUp)
{
    TAVWordList native = add(40, 5, true);
    TAVQuizInterface quiz(m_vocabulary);
    quiz.setAskNative(true);
    std::sort(native.begin(), native.end(),
              [](const TAVWordRef &a, const TAVWordRef &b) { return a->lastAsked() < b->lastAsked(); });
    EXPECT_EQ(run(quiz), TAVWordSet(native.first(30)));

    const TAVWordList due = add(30, 2, true);
    quiz.setNumberOfWordsToAsk(30);
    EXPECT_EQ(run(quiz), TAVWordSet(due));
    quiz.setNumberOfWordsToAsk(33);
    EXPECT_EQ(run(quiz), TAVWordSet(due + native.first(3)));
}

TEST_F(TAVQuizInterfaceTest, keepsToTheChosenTags)
{
    const TAVWordRef both = makeWord({.tags = {u"a"_s, u"b"_s}});
    const TAVWordRef one = makeWord({.level = 1, .tags = {u"a"_s}, .lastAsked = services.clock.now()});
    m_vocabulary->batchAddWords({both, one, makeWord({}), makeWord({.level = 5})});
    TAVQuizInterface quiz(m_vocabulary);
    quiz.setAskNative(true);
    quiz.setFilterTags({u"a"_s, u"b"_s});
    EXPECT_EQ(run(quiz), TAVWordSet({both, one}));
    quiz.setNumberOfWordsToAsk(30);
    quiz.setIsWordsMustMatchAllTags(true);
    EXPECT_EQ(run(quiz), TAVWordSet({both}));
}

TEST_F(TAVQuizInterfaceTest, wordsOfOneTagStandTogether)
{
    const auto tagged = [](const QStringList &tags) { return makeWord({.tags = tags}); };
    const TAVWordRef a1 = tagged({u"a"_s});
    const TAVWordRef a2 = tagged({u"a"_s});
    const TAVWordRef ab = tagged({u"b"_s, u"a"_s});
    const TAVWordRef b1 = tagged({u"b"_s});
    const TAVWordRef none1 = tagged({});
    const TAVWordRef none2 = tagged({});
    const TAVWordRef named = tagged({u"noTagsSet"_s});
    TAVWordList words = {a1, none1, ab, b1, a2, none2, named, a1};
    TAVQuizInterface::clusterTagsInArray(words);
    EXPECT_EQ(words, TAVWordList({a1, ab, a2, none1, none2, named, b1}));
}

TEST_F(TAVQuizInterfaceTest, directionFollowsTheOptions)
{
    const struct
    {
        bool foreign;
        bool your;
        std::deque<quint32> numbers;
        bool expected;
    } cases[] = {{true, false, {}, true},
                 {false, true, {}, false},
                 {false, false, {}, true},
                 {true, true, {4}, true},
                 {true, true, {7}, false}};
    for (const auto &row : cases) {
        TAVQuizInterface quiz;
        quiz.setAskForForeignWord(row.foreign);
        quiz.setAskForYourWord(row.your);
        services.random.script = row.numbers;
        EXPECT_EQ(quiz.drawDirection(), row.expected);
        EXPECT_TRUE(services.random.script.empty());
    }
}

TEST_F(TAVQuizInterfaceTest, measuresTheDistanceOfTexts)
{
    struct Case
    {
        QString a;
        QString b;
        qint64 distance;
    };
    const Case cases[] = {
        {u"abcd"_s, u"acbd"_s, 1},        {u"ca"_s, u"abc"_s, 3},        {u"Haus"_s, u"haus"_s, 1},
        {QString(), u"abc"_s, 3},         {u"é"_s, u"e"_s, 1},           {u"a b"_s, u"ab"_s, 1},
        {u"𐐀"_s, QString(), 2},           {u"same"_s, u"same"_s, 0},     {u"kitten"_s, u"sitting"_s, 3},
        {u"badcfe"_s, u"abcdef"_s, 3},    {u"a cat"_s, u"an abct"_s, 4}, {u"abcabc"_s, u"cbacba"_s, 3},
        {u"Sonntag"_s, u"Montagsn"_s, 4}, {u"aab"_s, u"bbaa"_s, 3},
    };
    for (const Case &row : cases) {
        EXPECT_EQ(TAVQuizInterface::distanceBetween(row.a, row.b), row.distance) << qPrintable(row.a);
        EXPECT_EQ(TAVQuizInterface::distanceBetween(row.b, row.a), row.distance) << qPrintable(row.b);
    }
}
