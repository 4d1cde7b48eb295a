#include "ViewsTest.h"

#include "views/editor/TAVWordPopoverController.h"

#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class UndoTest : public ViewsTest
{
protected:
    QLineEdit *foreign() const { return control<QLineEdit>("foreignWordTextField"); }
    void select(const char *word) const { table()->selectOnlyRow(rowOf(word)); }
    /** Types into the foreign field of the open editor. */
    void type(const QString &text) const
    {
        foreign()->selectAll();
        foreign()->insert(text);
    }
    QString line() const
    {
        const auto *button = control<QToolButton>("undoButton");
        if (!button->parentWidget()->isVisible())
            return {};
        return text("undoText") + u" · "_s + button->text();
    }
    /** The words in memory and in the file, which must be the same. */
    QStringList pairs() const
    {
        const auto pairsOf = [](const TAVLexicon &lexicon) {
            QStringList all;
            for (const TAVWordRef &word : lexicon.allWords())
                all.append(word->yourWord() + u'-' + word->foreignWord() + u'/' +
                           word->tagsSorted().join(u',') + u'/' + QString::number(word->level()));
            all.sort();
            return all;
        };
        const TAVLexiconRef saved = TAVStorageManager::vocabularyFromFile(path());
        EXPECT_EQ(saved ? pairsOf(*saved) : QStringList(), pairsOf(*vocabulary()));
        return pairsOf(*vocabulary());
    }
    QString path() const { return TAVStorageManager::savePathForVocabulary(*vocabulary()); }
};

} // namespace

TEST_F(UndoTest, EachChangeIsOfferedAndTakenBackAlsoAfterAReload)
{
    const struct
    {
        const char *name;
        const char *line;
        std::function<void()> change;
    } changes[] = {
        {"edit", "‘gatto’ changed · Undo",
         [this] {
             select("dog");
             type(u"gatto"_s);
             words()->wordEditor()->closeWordPanel(control<QPushButton>("okButton"));
         }},
        {"pairs", "2 words added · Undo",
         [this] {
             select("dog");
             type(u"cane@cagna@cucciolo"_s);
             words()->wordEditor()->closeWordPanel(control<QPushButton>("okButton"));
         }},
        {"replaced", "‘cane’ changed · Undo",
         [this] {
             select("dog");
             type(u"cagna@cucciolo"_s);
             words()->wordEditor()->closeWordPanel(control<QPushButton>("okButton"));
         }},
        {"many", "3 words changed · Undo",
         [this] {
             table()->selectAll();
             control<QLineEdit>("commentTextField")->setText(u"all"_s);
             words()->wordEditor()->closeWordPanel(control<QPushButton>("okButton"));
         }},
        {"tag", "‘casa’ has got a tag · Undo", [this] { dropOnRow(rowOf("house"), u"big"_s); }},
        {"delete", "1 word deleted · Undo",
         [this] {
             select("house");
             words()->deleteSelectedWords();
         }},
        {"deleteAll", "3 words deleted · Undo",
         [this] {
             table()->selectAll();
             services.alerts.answerNext(1);
             words()->deleteSelectedWords();
         }},
    };
    startWith(makeItalian());
    vocabulary()->findWordByID(1001)->setComment(u"m."_s);
    const QStringList before = (save(vocabulary()), pairs());
    for (const auto &each : changes) {
        for (const bool isReloaded : {false, true}) {
            SCOPED_TRACE(each.name);
            click("allWordsButton");
            const QSet<qint64> ids = {1001, 1002, 1003};
            each.change();
            EXPECT_NE(vocabulary()->allWords().size() == 3 && pairs() == before &&
                          vocabulary()->findWordByID(1001)->comment() == u"m."_s,
                      true);
            EXPECT_EQ(line(), QString::fromUtf8(each.line));
            EXPECT_TRUE(menuItem("undo")->isEnabled());
            if (isReloaded)
                words()->reloadVocabularyFromDisk();
            vocabulary()->setNeedsSync(false);
            recorder.take();
            control<QToolButton>("undoButton")->click();
            EXPECT_TRUE(recorder.take().startsWith(u"mark* save"_s));
            EXPECT_TRUE(vocabulary()->needsSync());
            EXPECT_EQ(pairs(), before);
            for (const qint64 id : ids)
                EXPECT_TRUE(vocabulary()->findWordByID(id)) << id;
            EXPECT_EQ(vocabulary()->findWordByID(1001)->comment(), u"m."_s);
            EXPECT_EQ(line(), QString());
            EXPECT_FALSE(words()->canUndo());
        }
    }
    hub->mainWindow()->activateWindow();
    table()->setFocus();
    processEvents();
    EXPECT_FALSE(menuItem("undo")->isEnabled());
}

TEST_F(UndoTest, StepsAreTakenBackOneByOneUntilAnotherLanguageIsChosen)
{
    age(save(makeLanguage("Latin")));
    startWith(makeItalian());
    const QStringList before = pairs();
    dropOnRow(0, u"a"_s);
    dropOnRow(0, u"b"_s);
    select("house");
    words()->deleteSelectedWords();
    for (int i = 0; i < 3; ++i)
        words()->undo();
    EXPECT_EQ(pairs(), before);

    dropOnRow(0, u"a"_s);
    chooseLanguage(u"Latin - English"_s);
    EXPECT_EQ(line(), QString());
    EXPECT_FALSE(words()->canUndo());
    chooseLanguage(u"Italian - English"_s);
    EXPECT_FALSE(words()->canUndo()) << "the switch has ended it";
}

TEST_F(UndoTest, AChangeIsOnlyTakenBackFromTheWordThatItLeft)
{
    startWith(makeItalian());
    dropOnRow(rowOf("dog"), u"pet"_s);
    const TAVWordRef dog = vocabulary()->findWordByID(1001);
    dog->setForeignWord(u"cagnolino"_s);
    words()->undo();
    EXPECT_EQ(dog->tagsSorted(), QStringList{u"pet"_s}) << "another edit, as of a sync, came in between";
    EXPECT_TRUE(text("undoText").startsWith(u"This can’t be undone"_s));
    EXPECT_FALSE(words()->canUndo());
}

TEST_F(UndoTest, WhatWasTypedAndNotSavedCanBeBroughtBack)
{
    startWith(makeItalian());
    select("dog");
    type(u"gatto"_s);
    select("house");
    EXPECT_EQ(line(), u"The changes to ‘cane’ weren’t saved · Bring back"_s);
    words()->deselectWords();
    control<QToolButton>("undoButton")->click();
    EXPECT_EQ(vocabulary()->findWordByID(1001)->foreignWord(), u"gatto"_s);
    EXPECT_EQ(line(), u"‘gatto’ changed · Undo"_s) << "it is an edit like any other now";
    words()->undo();
    EXPECT_EQ(vocabulary()->findWordByID(1001)->foreignWord(), u"cane"_s);
    pairs();

    // A tab, Escape, a reload while somebody types, and a new word.
    const QList<std::function<void()>> ways = {
        [this] { hub->showQuiz(); },
        [this] { words()->wordEditor()->closeWordPanel(nullptr); },
        [this] { words()->reloadVocabularyFromDisk(); },
    };
    for (const auto &way : ways) {
        hub->showVocabulary();
        select("house");
        type(u"palazzo"_s);
        way();
        hub->showVocabulary();
        words()->undo();
        EXPECT_EQ(vocabulary()->findWordByID(1002)->foreignWord(), u"palazzo"_s);
        words()->undo();
        EXPECT_EQ(vocabulary()->findWordByID(1002)->foreignWord(), u"casa"_s);
    }
    words()->showAddWordPanel();
    type(u"pane@pagnotta"_s);
    control<QLineEdit>("yourLangWordTextField")->setText(u"bread"_s);
    words()->wordEditor()->closeWordPanel(nullptr);
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    EXPECT_EQ(line(), u"2 new words weren’t added · Bring back"_s);
    words()->undo();
    EXPECT_EQ(pairs().size(), 5);
    select("dog");
    words()->wordEditor()->closeWordPanel(nullptr);
    words()->undo();
    EXPECT_EQ(pairs().size(), 3) << "nothing was typed, so nothing is kept of that panel";
}

TEST_F(UndoTest, TheMirroredWordThatANewOneOverwritesComesBack)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "zebra", "zebra");
    addWord(italian, "zoo", "due@tre");
    startWith(italian);
    words()->didClickTableColumn(WordTableModel::YourWord);
    for (const char *typed : {"gatto", "due@tre"}) {
        words()->showAddWordPanel();
        const TAVWordRef other = words()->selectedWord();
        const QString pair = other->yourWord() + u'-' + other->foreignWord() + u'/';
        ASSERT_NE(pair, u"-/"_s);
        type(QLatin1String(typed));
        click("addButton");
        const auto holds = [&] { return pairs().join(u' ').contains(pair); };
        EXPECT_FALSE(holds());
        words()->undo();
        EXPECT_TRUE(holds());
    }
}

TEST_F(UndoTest, AReloadTakesNothingAwayWhoseSaveFailed)
{
    startWith(makeItalian());
    const QString name = vocabulary()->foreignLanguageName();
    const auto failToSave = [&](const char *button) {
        vocabulary()->setForeignLanguageName(u"../Italian"_s);
        click(button);
        vocabulary()->setForeignLanguageName(name);
        ASSERT_TRUE(words()->wordEditor()->isPanelVisible());
    };
    const QString edits[] = {u"gatto"_s, u"gatto@gatta"_s};
    for (const QString &edit : edits) {
        SCOPED_TRACE(edit.toStdString());
        const QStringList before = pairs();
        select("dog");
        type(edit);
        failToSave("okButton");
        words()->reloadVocabularyFromDisk();
        EXPECT_EQ(line(), u"The changes to ‘cane’ weren’t saved · Bring back"_s);
        EXPECT_EQ(pairs(), before);
        words()->deselectWords();
        words()->undo();
        EXPECT_NE(pairs(), before);
        EXPECT_TRUE(pairs().join(u' ').contains(u"gatto"_s));
        words()->undo();
        EXPECT_EQ(pairs(), before);

        words()->showAddWordPanel();
        type(edit);
        control<QLineEdit>("yourLangWordTextField")->setText(u"cat"_s);
        failToSave("addButton");
        words()->reloadVocabularyFromDisk();
        EXPECT_TRUE(words()->wordEditor()->isInAddingMode());
        words()->wordEditor()->closeWordPanel(nullptr);
        EXPECT_EQ(pairs(), before);
        words()->undo();
        EXPECT_TRUE(pairs().join(u' ').contains(u"gatto"_s));
        words()->undo();
        EXPECT_EQ(pairs(), before);
    }
}

TEST_F(UndoTest, TheMirroredWordThatEscapeRemovesComesBack)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "ant", "formica");
    startWith(italian);
    words()->didClickTableColumn(WordTableModel::YourWord);
    words()->showAddWordPanel();
    ASSERT_EQ(words()->selectedWord()->yourWord(), u"dog"_s);
    words()->wordEditor()->closeWordPanel(nullptr);
    EXPECT_FALSE(vocabulary()->findWordByID(1001));
    EXPECT_EQ(line(), u"‘cane’ was removed · Undo"_s);
    words()->undo();
    EXPECT_EQ(pairs().size(), 4) << "and the empty word that stayed in its place has gone";
    EXPECT_TRUE(vocabulary()->findWordByID(1001));
}
