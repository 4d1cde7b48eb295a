#include "WordEditorTest.h"

#include <QClipboard>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using WordSavingTest = WordEditorTest;

constexpr auto all = "bread-pane dog-cane house-casa water-acqua";

} // namespace

TEST_F(WordSavingTest, EditWritesTheWordAndSavesBeforeItTells)
{
    edit({dog});
    yours()->setText(u" hound "_s);
    foreign()->setText(u"casa"_s);
    comment()->setText(u"m."_s);
    tags()->setTokens({u"pet"_s, u"home"_s});
    QString savedWhenTold;
    whenTold = [&] { savedWhenTold = savedPairs(); };
    click("okButton");

    EXPECT_EQ(takeMessages(), u"edited:1"_s);
    EXPECT_EQ(savedWhenTold, u"bread-pane hound-casa house-casa water-acqua"_s);
    EXPECT_EQ(dog->modificationID(), services.clock.now().toSecsSinceEpoch());
    EXPECT_EQ(dog->comment(), u"m."_s);
    EXPECT_EQ(sortedTags(dog), QStringList({u"home"_s, u"pet"_s}));
    EXPECT_TRUE(vocabulary->synonyms().contains(dog)) << "it shares its foreign word now";
    EXPECT_TRUE(vocabulary->allTags().contains(u"pet"_s));
    EXPECT_FALSE(vocabulary->allTags().contains(u"animal"_s));
    EXPECT_TRUE(vocabulary->needsSync());
    EXPECT_FALSE(editor->isActive());
}

TEST_F(WordSavingTest, FlagOfANativeWordMovesItBetweenTheLists)
{
    ASSERT_EQ(vocabulary->nativeWithoutDontAsk(), TAVWordList{water});
    edit({water});
    EXPECT_TRUE(dontAsk()->isVisible());
    dontAsk()->click();
    EXPECT_EQ(dontAsk()->checkState(), Qt::Checked);
    click("okButton");
    EXPECT_TRUE(water->dontAskAgain());
    EXPECT_TRUE(vocabulary->nativeWithoutDontAsk().isEmpty());
    edit({house});
    EXPECT_FALSE(dontAsk()->isVisible());
}

TEST_F(WordSavingTest, EditIntoAnEqualPairIsAllowedAddingOneIsNot)
{
    edit({dog});
    yours()->setText(u"house"_s);
    foreign()->setText(u"casa"_s);
    click("okButton");
    EXPECT_EQ(pairsOf(*vocabulary), u"bread-pane house-casa house-casa water-acqua"_s);
    EXPECT_TRUE(services.alerts.shown.isEmpty());

    struct Case
    {
        const char *yours;
        const char *foreign;
    };
    for (const Case &each : {Case{"", ""}, Case{"water", "acqua"}}) {
        takeMessages();
        services.alerts.shown.clear();
        add();
        yours()->setText(QLatin1String(each.yours));
        foreign()->setText(QLatin1String(each.foreign));
        comment()->setText(u"other"_s);
        click("okButton");
        ASSERT_EQ(services.alerts.shown.size(), 1);
        EXPECT_EQ(takeMessages(), u"added-more:1"_s);
        EXPECT_EQ(savedPairs(), u"bread-pane house-casa house-casa water-acqua"_s);
    }
    EXPECT_TRUE(water->comment().isEmpty());
}

TEST_F(WordSavingTest, AReloadThatComesUnderAnAlertWaitsForTheEnd)
{
    const TAVLexiconRef other = makeVocabulary({makeWord({u"x"_s, u"y"_s})});
    const auto reload = [&] {
        services.queues.mainAsync(nullptr, [&] { editor->updateVocabulary(other); });
        services.queues.drain();
    };
    services.alerts.whileShown = reload;
    services.alerts.answerNext(1);
    edit({dog, house});
    takeMessages();
    click("deleteButton");
    EXPECT_EQ(takeMessages(), u"deleted:2"_s);
    EXPECT_EQ(savedPairs(), u"bread-pane water-acqua"_s);

    add();
    services.alerts.whileShown = reload;
    click("okButton");
    EXPECT_EQ(savedPairs(), u"bread-pane water-acqua"_s);
    services.queues.drain();
    EXPECT_EQ(pairsOf(*other), u"x-y"_s);
}

TEST_F(WordSavingTest, TextsOfAnyLengthComeBackWhole)
{
    const QString text = QString(u"long "_s).repeated(10'000) + u"end"_s;
    dog->setComment(text);
    edit({dog});
    tags()->setTokens({u"t"_s});
    click("okButton");
    EXPECT_EQ(dog->comment(), text);
}

TEST_F(WordSavingTest, AddsOneAndGoesOnOrStops)
{
    for (const char *sender : {"okButton", "addButton"}) {
        const TAVWordRef word = add();
        yours()->setText(QLatin1String(sender));
        foreign()->setText(u"x"_s);
        click(sender);
        EXPECT_EQ(word->yourWord(), QLatin1String(sender));
        EXPECT_FALSE(editor->isInAddingMode());
    }
    EXPECT_EQ(takeMessages(), u"added-more:1 added:1"_s);
    EXPECT_EQ(savedPairs(), u"addButton-x bread-pane dog-cane house-casa okButton-x water-acqua"_s);
}

TEST_F(WordSavingTest, PairsOfSeveralTexts)
{
    struct Case
    {
        const char *what;
        const char *yours;
        const char *foreign;
        const char *result;
        bool wordStays;
    };
    const QList<Case> cases = {
        {"one more beside it", "dog", "cane@cagna", "dog-cagna dog-cane", true},
        {"all replaced", "hound@pet", "cane", "hound-cane pet-cane", false},
        {"each with each", "dog@pet", "cane@cucciolo", "dog-cane dog-cucciolo pet-cane pet-cucciolo", true},
        {"empty and blank parts are skipped", "@dog@ @", "@@cane@ ", "dog-cane", true},
        {"an untrimmed part is another word", "dog@ ", "cane ", "dog-cane", false},
        {"nothing but signs", "@", "cane", "", false},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.what);
        const TAVWordRef word = makeWord({u"dog"_s, u"cane"_s, 5, {}, {}, 7});
        word->setModificationID(5);
        vocabulary = makeVocabulary({word});
        vocabulary->setForeignLanguageName(u"Italian"_s);
        edit({word});
        yours()->setText(QLatin1String(each.yours));
        foreign()->setText(QLatin1String(each.foreign));
        comment()->setText(u"c"_s);
        tags()->setTokens({u"t"_s});
        dontAsk()->setChecked(true);
        click("okButton");
        EXPECT_EQ(pairsOf(*vocabulary), QLatin1String(each.result));
        EXPECT_EQ(savedPairs(), QLatin1String(each.result));
        EXPECT_EQ(vocabulary->allWords().contains(word), each.wordStays);
        EXPECT_EQ(word->modificationID(), 5);
        for (const TAVWordRef &one : vocabulary->allWords()) {
            EXPECT_EQ(one->comment(), u"c"_s);
            EXPECT_EQ(sortedTags(one), QStringList(u"t"_s));
            EXPECT_EQ(one->dontAskAgain(), one == word);
        }
    }
}

TEST_F(WordSavingTest, RefusesPairsWithoutEnd)
{
    edit({dog});
    foreign()->setText(QString(u"a@"_s).repeated(1000));
    click("okButton");
    EXPECT_EQ(services.alerts.shown.size(), 1);
    EXPECT_EQ(pairsOf(*vocabulary), QLatin1String(all));
    EXPECT_TRUE(takeMessages().isEmpty()) << "the panel stays";
}

TEST_F(WordSavingTest, ManyWordsTakeOnlyWhatWasChanged)
{
    struct Case
    {
        const char *what;
        std::function<void()> change;
        QStringList comments; // of dog and house
        QStringList dogTags;
        QStringList houseTags;
    };
    const QStringList dogs = {u"animal"_s};
    const QStringList houses = {u"big"_s, u"home"_s};
    const QList<Case> cases = {
        {"nothing", [] {}, {u""_s, u"f."_s}, dogs, houses},
        {"cleared comment", [&] { comment()->clear(); }, {u""_s, u""_s}, dogs, houses},
        {"comment", [&] { comment()->setText(u"new"_s); }, {u"new"_s, u"new"_s}, dogs, houses},
        {"added tag",
         [&] { tags()->setTokens(tags()->tokens() << u"more"_s); },
         {u""_s, u"f."_s},
         {u"animal"_s, u"more"_s},
         {u"big"_s, u"home"_s, u"more"_s}},
        {"other tags", [&] { tags()->setTokens({u"only"_s}); }, {u""_s, u"f."_s}, {u"only"_s}, {u"only"_s}},
        {"no tags", [&] { tags()->clear(); }, {u""_s, u"f."_s}, {}, {}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.what);
        dog->setComment(QString());
        house->setComment(u"f."_s);
        dog->setTags(TAVTextSet(dogs));
        house->setTags(TAVTextSet(houses));
        dog->setModificationID(0);
        edit({dog, house});
        EXPECT_FALSE(yours()->isEnabled());
        EXPECT_FALSE(foreign()->isEnabled());
        EXPECT_FALSE(dontAsk()->isVisible());
        each.change();
        click("okButton");
        EXPECT_EQ(QStringList({dog->comment(), house->comment()}), each.comments);
        EXPECT_EQ(sortedTags(dog), each.dogTags);
        EXPECT_EQ(sortedTags(house), each.houseTags);
        EXPECT_EQ(dog->modificationID(), services.clock.now().toSecsSinceEpoch());
        EXPECT_EQ(savedPairs(), QLatin1String(all)) << "the words' texts are no field here";
        EXPECT_EQ(takeMessages(), u"edited:2"_s);
    }
}

TEST_F(WordSavingTest, ManyWordsWithCommonTagsLoseTheOneTakenAway)
{
    water->setTags({u"food"_s, u"wet"_s});
    bread->setTags({u"wet"_s, u"food"_s});
    edit({water, bread});
    EXPECT_EQ(tags()->tokens(), QStringList({u"food"_s, u"wet"_s}));
    tags()->setTokens({u"food"_s});
    click("okButton");
    EXPECT_EQ(sortedTags(water), QStringList(u"food"_s));
    EXPECT_EQ(sortedTags(bread), QStringList(u"food"_s));
    EXPECT_FALSE(vocabulary->allTags().contains(u"wet"_s));

    bread->setTags({u"food"_s, u"dry"_s});
    edit({water, bread});
    click("okButton");
    EXPECT_EQ(sortedTags(bread), QStringList({u"dry"_s, u"food"_s})) << "more than the first word's";
}

TEST_F(WordSavingTest, FlagOfManyWords)
{
    struct Case
    {
        const char *what;
        bool first;
        bool second;
        quint64 firstLevel;
        Qt::CheckState shown;
        int clicks;
        bool result;
    };
    const QList<Case> cases = {
        {"mixed clears", true, false, 5, Qt::PartiallyChecked, 0, false},
        {"mixed, then on", true, false, 5, Qt::PartiallyChecked, 1, true},
        {"all keep it", true, true, 5, Qt::Checked, 0, true},
        {"none", false, false, 5, Qt::Unchecked, 0, false},
        {"hidden clears", true, false, 4, Qt::PartiallyChecked, 0, false},
        {"hidden with all keeps", true, true, 4, Qt::Checked, 0, true},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.what);
        water->setDontAskAgain(each.first);
        water->setLevel(each.firstLevel);
        bread->setDontAskAgain(each.second);
        edit({water, bread});
        EXPECT_EQ(dontAsk()->isVisible(), each.firstLevel >= 5);
        EXPECT_EQ(dontAsk()->checkState(), each.shown);
        for (int i = 0; i < each.clicks; ++i)
            dontAsk()->click();
        click("okButton");
        EXPECT_EQ(water->dontAskAgain(), each.result);
        EXPECT_EQ(bread->dontAskAgain(), each.result);
    }

    // One word after many: a single click is enough again.
    bread->setDontAskAgain(false);
    edit({bread});
    dontAsk()->click();
    click("okButton");
    EXPECT_TRUE(bread->dontAskAgain());
}

TEST_F(WordSavingTest, DeletesOneAtOnceAndSeveralAfterAQuestion)
{
    edit({dog});
    QString savedWhenTold;
    whenTold = [&] { savedWhenTold = savedPairs(); };
    click("deleteButton");
    EXPECT_TRUE(services.alerts.shown.isEmpty());
    EXPECT_EQ(savedWhenTold, u"bread-pane house-casa water-acqua"_s);
    EXPECT_FALSE(vocabulary->allTags().contains(u"animal"_s));
    EXPECT_TRUE(vocabulary->needsSync());
    EXPECT_FALSE(editor->isActive());

    edit({water, bread});
    services.alerts.answerNext(0);
    click("deleteButton");
    EXPECT_TRUE(editor->isActive());
    EXPECT_EQ(vocabulary->countAllWords(), 3);
    services.alerts.answerNext(1);
    click("deleteButton");
    EXPECT_EQ(services.alerts.shown.size(), 2);
    EXPECT_EQ(savedPairs(), u"house-casa"_s);
    EXPECT_EQ(takeMessages(), u"deleted:1 deleted:2"_s);
}

TEST_F(WordSavingTest, FailedSaveKeepsThePanelAndItsState)
{
    const QString folder = AppGround::vocabularyFolderPath();
    ASSERT_TRUE(QDir(folder).removeRecursively());
    QFile inTheWay(QDir::cleanPath(folder));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();

    const TAVWordRef word = add();
    yours()->setText(u"cat"_s);
    foreign()->setText(u"gatto"_s);
    click("okButton");
    EXPECT_EQ(services.alerts.shown.size(), 1) << "the message of the save itself";
    EXPECT_TRUE(editor->isPanelVisible());
    EXPECT_TRUE(editor->isActive());
    EXPECT_TRUE(editor->isInAddingMode());
    EXPECT_EQ(word->yourWord(), u"cat"_s);
    EXPECT_TRUE(vocabulary->needsSync());

    editor->setIsInAddingMode(false);
    edit({dog});
    click("deleteButton");
    EXPECT_TRUE(editor->isActive());
    EXPECT_FALSE(vocabulary->allWords().contains(dog));
    EXPECT_TRUE(takeMessages().isEmpty());
}

TEST_F(WordSavingTest, ASecondTryAfterAFailedSaveGoesOnWithTheSameWord)
{
    const QString name = vocabulary->foreignLanguageName();
    const auto setSaveFails = [&](bool fails) {
        vocabulary->setForeignLanguageName(fails ? u"../Italian"_s : name);
    };
    const auto addTyped = [&](const QString &yourWord, const QString &foreignWord) {
        add();
        yours()->setText(yourWord);
        foreign()->setText(foreignWord);
        setSaveFails(true);
        click("addButton");
        setSaveFails(false);
        services.alerts.shown.clear();
        EXPECT_TRUE(editor->isPanelVisible());
        EXPECT_TRUE(popup->isActiveWindow()) << "the next Return belongs to the panel";
    };
    // The same again, with other texts, as a duplicate of another word, emptied; and pairs in each way.
    const struct
    {
        const char *first;
        const char *second;
        const char *expected;
        bool isRefused;
    } tries[] = {
        {"gatto", "gatto", "bread-pane cat-gatto dog-cane house-casa water-acqua", false},
        {"gatto", "gatta", "bread-pane cat-gatta dog-cane house-casa water-acqua", false},
        {"gatto", "@", all, false},
        {"gatto@gatta", "gatto@gatta", "bread-pane cat-gatta cat-gatto dog-cane house-casa water-acqua",
         false},
        {"gatto@gatta", "micio@gatta", "bread-pane cat-gatta cat-micio dog-cane house-casa water-acqua",
         false},
        {"gatto@gatta", "micio", "bread-pane cat-micio dog-cane house-casa water-acqua", false},
    };
    for (const auto &each : tries) {
        SCOPED_TRACE(each.second);
        addTyped(u"cat"_s, QLatin1String(each.first));
        foreign()->setText(QLatin1String(each.second));
        click("addButton");
        EXPECT_EQ(services.alerts.shown.size(), each.isRefused ? 1 : 0);
        EXPECT_EQ(savedPairs(), QLatin1String(each.expected));
        EXPECT_EQ(takeMessages(), u"added:1"_s);
        TAVWordList cats = vocabulary->allWords();
        cats.removeIf([](const TAVWordRef &word) { return word->yourWord() != u"cat"_s; });
        vocabulary->removeWords(cats);
    }
    for (const auto &[yourWord, foreignWord] : {std::pair{u"dog"_s, u"cane"_s}, std::pair{u""_s, u""_s}}) {
        addTyped(u"cat"_s, u"gatto"_s);
        yours()->setText(yourWord);
        foreign()->setText(foreignWord);
        click("addButton");
        EXPECT_EQ(services.alerts.shown.size(), 1) << "refused as ever";
        EXPECT_EQ(savedPairs(), QLatin1String(all));
        takeMessages();
    }
    edit({dog});
    foreign()->setText(u"cane@cagna"_s);
    setSaveFails(true);
    click("okButton");
    click("okButton");
    setSaveFails(false);
    click("okButton");
    EXPECT_EQ(savedPairs(), u"bread-pane dog-cagna dog-cane house-casa water-acqua"_s);
}

TEST_F(WordSavingTest, AWordWhoseDeletionFailedComesBackWithItsEdit)
{
    edit({dog});
    const QString name = vocabulary->foreignLanguageName();
    vocabulary->setForeignLanguageName(u"../Italian"_s);
    click("deleteButton");
    vocabulary->setForeignLanguageName(name);
    foreign()->setText(u"cagna"_s);
    click("okButton");
    EXPECT_EQ(savedPairs(), u"bread-pane dog-cagna house-casa water-acqua"_s);
}

TEST_F(WordSavingTest, WhatIsTypedIntoVariousValuesTakesTheirPlace)
{
    dog->setComment(u"animal"_s);
    const QString various = u"‹Various values›"_s;
    const QList<std::pair<std::function<void()>, QString>> ways = {
        {[this] { QTest::keyClicks(comment(), u"x"_s); }, u"x"_s},
        {[this] {
             comment()->cursorBackward(false);
             QTest::keyClicks(comment(), u"s"_s);
         },
         u"s"_s},
        {[this] { QTest::keyClick(comment(), Qt::Key_Backspace); }, QString()},
        {[this] {
             QApplication::clipboard()->setText(u"two words"_s);
             comment()->setCursorPosition(4);
             comment()->paste();
         },
         u"two words"_s},
    };
    for (const auto &[act, expected] : ways) {
        edit({dog, house});
        comment()->setFocus();
        ASSERT_EQ(comment()->text(), various);
        comment()->end(false);
        act();
        EXPECT_EQ(comment()->text(), expected);
    }
    QTest::keyClicks(comment(), u"!"_s);
    EXPECT_EQ(comment()->text(), u"two words!"_s);
}

TEST_F(WordSavingTest, CancelWritesNothingAndLeavesIsActive)
{
    edit({dog});
    yours()->setText(u"cat"_s);
    click("cancelButton");
    EXPECT_EQ(dog->yourWord(), u"dog"_s);
    add();
    EXPECT_TRUE(editor->isInAddingMode());
    bool wasAddingWhenTold = false;
    whenTold = [&] { wasAddingWhenTold = editor->isInAddingMode(); };
    click("cancelButton");
    EXPECT_TRUE(wasAddingWhenTold);
    EXPECT_FALSE(editor->isInAddingMode());
    EXPECT_TRUE(editor->isActive());
    EXPECT_FALSE(vocabulary->needsSync());
    EXPECT_EQ(savedPairs(), u"nothing"_s);
    EXPECT_EQ(takeMessages(), u"cancelled:1 cancelled-adding:1"_s);
}
