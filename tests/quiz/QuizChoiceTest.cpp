#include "quiz/QuizChoice.h"
#include "quiz/QuizWords.h"
#include "support/TestServices.h"

namespace {

using QuizChoiceTest = ServicesTest;

TEST_F(QuizChoiceTest, TheFirstThingInTheWayDecides)
{
    QuizWords words;
    words.add("Hund", "dog", 0, {QStringLiteral("animal")});
    words.add("Haus", "house", 2);
    words.add("Amen", "amen", 5)->setDontAskAgain(true);
    words.vocabulary->invalidateCachedWordLists();
    const QuizWords empty;

    struct Case
    {
        const char *name;
        const TAVLexicon *vocabulary;
        QList<int> levels;
        qint64 number;
        QStringList tags;
        qint64 due;
        const char *message;
        bool canStart;
    };
    const TAVLexicon *full = words.vocabulary.get();
    const QString animal = QStringLiteral("animal");
    const QString missing = QStringLiteral("missing");
    const Case cases[] = {
        {"nothing on, nothing due", full, {}, 0, {}, 0, "noWordsOverDue", false},
        {"nothing on, something due", full, {}, 0, {missing}, 256, "nothingSelected", false},
        {"no vocabulary", nullptr, {0}, 1, {}, 0, "noWords", false},
        {"empty vocabulary", empty.vocabulary.get(), {0}, 0, {}, 0, "noWords", false},
        {"empty level", full, {1, 3}, 0, {}, 0, "noWordsInList", false},
        {"native words that are never asked", full, {5}, 1, {}, 0, "noWordsInList", false},
        {"zero", full, {0}, 0, {missing}, 0, "zeroEntered", true},
        {"unknown tag", full, {0}, 1, {missing}, 1, "noWordsWithTags", true},
        {"all of the tags", full, {0}, 1, {animal, missing}, 1, "noWordsWithTags", true},
        {"no tags", full, {0, 5}, 500, {}, 1, nullptr, true},
        {"a tag of another level only", full, {2}, 1, {animal}, 1, nullptr, true},
    };
    for (const Case &c : cases) {
        QuizChoice choice;
        for (const int level : c.levels)
            choice.levels.at(size_t(level)) = true;
        choice.numberOfWords = c.number;
        choice.tags = TAVTextSet(c.tags);
        choice.wordsOverDue = c.due;
        const QuizChoice::Check check = choice.check(c.vocabulary);
        EXPECT_STREQ(check.message, c.message) << c.name;
        EXPECT_EQ(check.isOK, c.message == nullptr) << c.name;
        EXPECT_EQ(check.canStart, c.canStart) << c.name;
    }
    QuizChoice any;
    any.levels.fill(true);
    any.numberOfWords = 1;
    any.mustHaveAllTags = false;
    any.tags = TAVTextSet({animal, missing});
    EXPECT_TRUE(any.check(full).isOK);
}

} // namespace
