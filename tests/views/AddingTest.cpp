#include "ViewsTest.h"

#include "views/editor/TAVWordPopoverController.h"
#include "widgets/M3TokenCloud.h"

#include <QClipboard>
#include <QKeyEvent>
#include <QtTest/qtestspontaneevent.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class AddingTest : public ViewsTest
{
protected:
    TAVWordPopoverController *editor() const { return words()->wordEditor(); }
    QLineEdit *foreign() const { return control<QLineEdit>("foreignWordTextField"); }
    QLineEdit *yours() const { return control<QLineEdit>("yourLangWordTextField"); }
    QStringList saved() const
    {
        QStringList pairs;
        const TAVLexiconRef lexicon =
            TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*vocabulary()));
        for (const TAVWordRef &word : lexicon->allWords())
            pairs.append(word->yourWord() + u'-' + word->foreignWord());
        pairs.sort();
        return pairs;
    }
    void passTime(std::chrono::milliseconds time)
    {
        services.clock.advance(time);
        processEvents();
    }
    /** A person types without looking: whatever has the keyboard gets the key, one every 100 ms. */
    void typeBlindly(const QString &text)
    {
        for (const QChar character : text) {
            // A window manager does this when the panel has gone.
            if (!QApplication::activeWindow()) {
                hub->mainWindow()->activateWindow();
                table()->setFocus();
                processEvents();
            }
            QWidget *target = QApplication::focusWidget();
            ASSERT_TRUE(target);
            if (character == u'\n')
                QTest::keyClick(target, Qt::Key_Return);
            else if (character == u'\t')
                QTest::keyClick(target, Qt::Key_Tab);
            else
                QTest::keyClicks(target, character);
            passTime(100ms);
        }
    }

    const QStringList italian{u"dog-cane"_s, u"house-casa"_s, u"water-acqua"_s};
};

} // namespace

TEST_F(AddingTest, NoCancelRemovesAWordOfTheFile)
{
    startWith(makeItalian());
    // An empty word came into the file, as by another machine; a reload finds it in place of the new one.
    const TAVLexiconRef other = makeItalian();
    addWord(other, "", "");
    save(other);
    words()->showAddWordPanel();
    save(other);
    words()->reloadVocabularyFromDisk();
    EXPECT_FALSE(editor()->isInAddingMode());
    table()->selectOnlyRow(rowOf("dog"));
    editor()->closeWordPanel(nullptr);
    EXPECT_TRUE(vocabulary()->findWordByID(1001));
    EXPECT_EQ(vocabulary()->countAllWords(), 4);
}

TEST_F(AddingTest, AWordWithoutARowIsNotAdded)
{
    startWith(makeItalian());
    click("level2Button");
    table()->selectAll();
    editor()->closeWordPanel(nullptr);
    const QString name = vocabulary()->foreignLanguageName();
    vocabulary()->setForeignLanguageName(u"../Italian"_s);
    words()->showAddWordPanel();
    EXPECT_FALSE(editor()->isInAddingMode());
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    vocabulary()->setForeignLanguageName(name);
    hub->showQuiz();
    hub->showVocabulary();
    EXPECT_EQ(vocabulary()->countAllWords(), 3) << "what the editor held before was no new word";
}

TEST_F(AddingTest, APressElsewhereOrADropEndsItWithoutATrace)
{
    startWith(makeItalian());
    auto *button = control<M3TokenCloud>("tagCloud")->findChild<QAbstractButton *>();
    ASSERT_TRUE(button);
    const QList<std::function<void()>> ways = {
        [&] { QTest::mousePress(button, Qt::LeftButton); },
        [&] {
            QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                              QPoint(20, table()->viewport()->height() - 5));
        },
        [&] { dropOnRow(rowOf("dog"), u"pet"_s); },
        [&] { dropOnRow(0, u"pet"_s); },
    };
    for (const auto &way : ways) {
        words()->showAddWordPanel();
        ASSERT_TRUE(editor()->isInAddingMode());
        way();
        EXPECT_FALSE(editor()->isInAddingMode());
        EXPECT_FALSE(editor()->isPanelVisible());
        EXPECT_EQ(vocabulary()->countAllWords(), 3);
        EXPECT_EQ(saved(), italian);
    }
    EXPECT_EQ(vocabulary()->findWordByID(1001)->tagsSorted(), QStringList{u"pet"_s});
    // Commands by keyboard whose save would take the empty word along.
    Importer importer;
    hub->setImporter(&importer);
    const QList<std::function<void()>> commands = {
        [&] { menuItem("undo")->trigger(); },
        [&] {
            menuItem("import")->trigger();
            hub->importDidEnd(&importer);
        },
    };
    for (const auto &command : commands) {
        table()->setFocus();
        words()->showAddWordPanel();
        command();
        EXPECT_EQ(saved(), italian);
        EXPECT_FALSE(editor()->isInAddingMode());
    }
    // A press into the panel itself ends nothing.
    words()->showAddWordPanel();
    QTest::mouseClick(foreign(), Qt::LeftButton);
    EXPECT_TRUE(editor()->isInAddingMode());
}

TEST_F(AddingTest, RemovedDuplicatesTakeTheEditorOfTheirWordsAlong)
{
    const TAVLexiconRef lexicon = makeItalian();
    addWord(lexicon, "dog", "cane", 3);
    startWith(lexicon);
    const auto removeDuplicates = [this] {
        services.alerts.answerNext(1);
        words()->deleteDuplicates();
    };
    table()->selectOnlyRow(rowOf("house"));
    removeDuplicates();
    EXPECT_TRUE(editor()->isPanelVisible()) << "its word is still there";
    words()->undo();
    table()->selectAll();
    removeDuplicates();
    EXPECT_FALSE(editor()->isPanelVisible());
    words()->undo();
    words()->showAddWordPanel();
    removeDuplicates();
    EXPECT_FALSE(editor()->isInAddingMode());
    EXPECT_EQ(saved(), italian);
}

TEST_F(AddingTest, WhatIsTypedTooEarlyGoesIntoTheWordInOrder)
{
    startWith(makeItalian());
    table()->setFocus();
    QTest::keyClick(hub->mainWindow(), Qt::Key_N, Qt::ControlModifier);
    processEvents();
    typeBlindly(u"pane\tbread\nuno\tone\ndue\ttwo\ntre\tthree\nquattro\tfour\n"_s);
    passTime(2s);
    editor()->closeWordPanel(nullptr);
    QStringList expected =
        italian + QStringList{u"bread-pane"_s, u"one-uno"_s, u"two-due"_s, u"three-tre"_s, u"four-quattro"_s};
    expected.sort();
    EXPECT_EQ(saved(), expected);
}

TEST_F(AddingTest, AReturnThatIsHeldDownEntersNothingForTheNextWord)
{
    services.desktop.repeatsArePresses = true;
    startWith(makeItalian());
    table()->setFocus();
    words()->showAddWordPanel();
    for (quint64 time = 6500; time < 7500; time += 100) {
        for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent repeat(type, Qt::Key_Return, Qt::NoModifier);
            repeat.setTimestamp(time);
            QSpontaneKeyEvent::setSpontaneous(&repeat);
            qApp->notify(QApplication::focusWidget(), &repeat);
        }
        passTime(100ms);
    }
    EXPECT_TRUE(services.alerts.shown.isEmpty());
    EXPECT_TRUE(editor()->isInAddingMode());
}

TEST_F(AddingTest, AnAlertEndsWhatWasTypedAhead)
{
    startWith(makeItalian());
    table()->setFocus();
    words()->showAddWordPanel();
    vocabulary()->setForeignLanguageName(u"../Italian"_s);
    QTest::keyClicks(table(), u"pane"_s);
    QTest::keyClick(table(), Qt::Key_Return);
    QTest::keyClicks(table(), u"x"_s);
    QTest::keyClick(table(), Qt::Key_Return);
    services.alerts.shown.clear();
    passTime(600ms);
    EXPECT_EQ(services.alerts.shown.size(), 1) << "a key typed before the alert must not answer it again";
    EXPECT_EQ(foreign()->text(), u"pane"_s);
}

TEST_F(AddingTest, NothingIsKeptForAPanelThatDoesNotCome)
{
    startWith(makeItalian());
    table()->setFocus();
    const QList<std::function<void()>> ends = {
        [this] { QTest::keyClick(table(), Qt::Key_Escape); },
        [this] { QTest::mouseClick(control<QWidget>("headingTextField"), Qt::LeftButton); },
        [this] { hub->showQuiz(); },
    };
    for (const auto &end : ends) {
        hub->showVocabulary();
        words()->showAddWordPanel();
        QTest::keyClicks(table(), u"a"_s);
        end();
        processEvents();
        EXPECT_FALSE(editor()->isPanelVisible());
        passTime(2s);
        hub->showVocabulary();
        auto *search = control<QLineEdit>("searchField");
        search->setFocus();
        QTest::keyClicks(search, u"b"_s);
        EXPECT_EQ(search->text(), u"b"_s);
        search->clear();
        table()->setFocus();
    }
    words()->showAddWordPanel();
    passTime(600ms);
    EXPECT_EQ(foreign()->text(), QString()) << "what was typed for an earlier panel";
}

TEST_F(AddingTest, LettersAfterAChoiceOfALanguageStayOutOfTheBox)
{
    age(save(makeLanguage("Latin")));
    startWith(makeItalian());
    control<QComboBox>("languagesPopUp")->setFocus();
    chooseLanguage(u"Latin - English"_s);
    EXPECT_EQ(QApplication::focusWidget(), table());
}
