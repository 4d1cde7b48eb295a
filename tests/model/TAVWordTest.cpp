#include "model/WordSorting.h"
#include "support/TestServices.h"
#include "support/Words.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

using TAVWordTest = ServicesTest;

TEST_F(TAVWordTest, trimsItsTextsButNotTheComment)
{
    TAVWord word(u" \t\u00A0 der Hund\u3000\n\u2028"_s, u"\r\n the dog \u0085"_s, u" kept "_s);
    EXPECT_EQ(word.yourWord(), u"der Hund"_s);
    EXPECT_EQ(word.foreignWord(), u"the dog"_s);
    EXPECT_EQ(word.comment(), u" kept "_s);
    word.setForeignWord(std::nullopt);
    EXPECT_EQ(word.yourWord(), QString());
    EXPECT_EQ(word.foreignWord(), u"the dog"_s);
}

TEST_F(TAVWordTest, removesOneLeadingFacultativeWord)
{
    const TAVTextSet articles = {u"der"_s, u" die\t"_s, u"a"_s, u"b"_s, u"the"_s, u"the old"_s};
    const std::pair<QString, QString> cases[] = {
        {u"der Hund"_s, u"Hund"_s},     {u"derb"_s, u"derb"_s},
        {u"Der Hund"_s, u"Der Hund"_s}, {u"die  \tx"_s, u"x"_s},
        {u"der"_s, u"der"_s},           {u"a b c"_s, u"b c"_s},
        {u"die\tx"_s, u"die\tx"_s},     {u"the old man"_s, u"old man"_s},
    };
    for (const auto &[word, expected] : cases)
        EXPECT_EQ(TAVWord::wordByRemovingFacultatives(articles, word), expected) << qPrintable(word);
    EXPECT_EQ(TAVWord::wordByRemovingFacultatives({u"the old"_s, u"the"_s}, u"the old man"_s), u"man"_s);
    EXPECT_EQ(TAVWord::wordByRemovingFacultatives({u" "_s}, u" \tman"_s), u"man"_s);
}

TEST_F(TAVWordTest, searchIgnoresCaseButNotAccents)
{
    TAVWord word(u"der Hund"_s, u"Café 𐐀"_s, u"bellt"_s);
    word.addTag(u"Tier"_s);
    const std::pair<QString, bool> cases[] = {
        {u"HUND"_s, true}, {u"CAFÉ"_s, true}, {u"cafe"_s, false},  {u"BELL"_s, true},
        {u"tie"_s, true},  {u"𐐨"_s, true},    {u"katze"_s, false}, {QString(), false},
    };
    for (const auto &[term, expected] : cases)
        EXPECT_EQ(word.matchesSearchTerm(term), expected) << qPrintable(term);
    EXPECT_FALSE(word.matchesSearchTerm(std::nullopt));
}

TEST_F(TAVWordTest, ordersTextsByFoldedCodePoints)
{
    // Each stands before the next; the last two differ in order by code units.
    const QStringList ascending = {QString(), u"a"_s, u"A b"_s, u"Ab"_s,     u"b"_s,
                                   u"Z"_s,    u"Ä"_s, u"日"_s,  u"\uFF5A"_s, u"𐐨"_s};
    for (qsizetype i = 0; i < ascending.size(); ++i) {
        for (qsizetype j = 0; j < ascending.size(); ++j) {
            const TAVWord left(ascending[i].toUpper(), ascending[i], ascending[i]);
            const TAVWord right(ascending[j], ascending[j].toUpper(), ascending[j]);
            const int expected = int(i > j) - int(i < j);
            EXPECT_EQ(left.compareYourLang(right), expected) << i << ' ' << j;
            EXPECT_EQ(left.compareForeignLang(right), expected) << i << ' ' << j;
        }
    }
}

TEST_F(TAVWordTest, keepsItsTagsSortedAndOrdersByTheirNumberFirst)
{
    const TAVWordRef word = makeWord({.tags = {u"b"_s, u"C"_s}});
    word->addTag(u" a "_s);
    word->addTag(u"b"_s);
    word->addTag(QString());
    EXPECT_EQ(word->tagsSorted(), QStringList({u"a"_s, u"b"_s, u"C"_s}));
    const std::pair<QStringList, int> cases[] = {{{u"z"_s, u"z2"_s}, 1},
                                                 {{u"A"_s, u"x"_s, u"y"_s}, 0},
                                                 {{u"a"_s, u"B"_s, u"a2"_s}, 1},
                                                 {{u"a"_s, u"b"_s, u"d"_s}, -1}};
    for (const auto &[tags, expected] : cases)
        EXPECT_EQ(word->compareTags(*makeWord({.tags = tags})), expected) << qPrintable(tags.join(u' '));
    word->addTag(u"   "_s);
    EXPECT_EQ(word->tagsSorted().first(), QString()) << "blanks are trimmed too late to be refused";
}

TEST_F(TAVWordTest, copyIsEqualUntilItIsChanged)
{
    const TAVWordRef word = makeWord({.yourWord = u"a"_s,
                                      .foreignWord = u"b"_s,
                                      .level = 3,
                                      .tags = {u"t"_s},
                                      .comment = u"c"_s,
                                      .creationID = 7,
                                      .lastAsked = services.clock.now(),
                                      .dontAskAgain = true});
    const std::function<void(TAVWord &)> changes[] = {
        [](TAVWord &copy) { copy.setYourWord(u"A"_s); },
        [](TAVWord &copy) { copy.setForeignWord(u"B"_s); },
        [](TAVWord &copy) { copy.setComment(QString()); },
        [](TAVWord &copy) { copy.addTag(u"more"_s); },
        [](TAVWord &copy) { copy.setLastAsked({}); },
        [](TAVWord &copy) { copy.setDontAskAgain(false); },
        [](TAVWord &copy) { copy.setCreationID(8); },
        [](TAVWord &copy) { copy.setModificationID(1); },
        [](TAVWord &copy) { copy.setFallenDownCounter(1); },
        [](TAVWord &copy) { copy.setLevel(2); },
    };
    for (size_t i = 0; i < std::size(changes); ++i) {
        const TAVWordRef copy = word->copy();
        EXPECT_TRUE(word->isAllPropertiesEqual(*copy)) << i;
        changes[i](*copy);
        EXPECT_FALSE(word->isAllPropertiesEqual(*copy)) << i;
        EXPECT_EQ(word->isEqualToWord(*copy), i > 1) << i;
    }
    EXPECT_EQ(word->tags().size(), 1);
    EXPECT_EQ(word->description(), u"3 <b = a> c 1 Minute  "_s);
    const TAVWord neverAsked;
    EXPECT_FALSE(neverAsked.isAllPropertiesEqual(neverAsked));
}

TEST_F(TAVWordTest, sortingEqualsTheStableSortByPlainComparisons)
{
    QRandomGenerator random(1);
    const QStringList texts = {u"abc"_s,     u"ABCd"_s, u"abcD"_s,   u"abce"_s, u"the abc"_s,
                               u"The abc"_s, u"𐐀"_s,    u"\uFFFD"_s, QString()};
    const auto text = [&] { return texts[random.bounded(texts.size())]; };
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setYourFacultativeWords({u"the"_s});
    TAVWordList words;
    for (int i = 0; i < 300; ++i) {
        const QDateTime asked = services.clock.now().addSecs(random.bounded(5));
        words.append(makeWord({.yourWord = text(),
                               .foreignWord = text(),
                               .tags = {text(), text()},
                               .comment = text(),
                               .lastAsked = random.bounded(3) ? asked : QDateTime()}));
    }
    vocabulary->batchAddWords(words);
    const std::pair<WordOrder, int (TAVWord::*)(const TAVWord &) const> orders[] = {
        {WordOrder::YourLang, &TAVWord::compareYourLang},
        {WordOrder::ForeignLang, &TAVWord::compareForeignLang},
        {WordOrder::Comment, &TAVWord::compareComment},
        {WordOrder::LastAsked, &TAVWord::compareLastAsked},
        {WordOrder::Tags, &TAVWord::compareTags},
    };
    for (const auto &[order, compare] : orders) {
        TAVWordList expected = words;
        std::stable_sort(expected.begin(), expected.end(),
                         [compare = compare](const TAVWordRef &a, const TAVWordRef &b) {
                             return ((*a).*compare)(*b) < 0;
                         });
        TAVWordList sorted = words;
        sortWords(sorted, order);
        EXPECT_EQ(sorted, expected) << int(order);
    }
}
