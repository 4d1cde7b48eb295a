#include "ViewsTest.h"

#include "sync/TAVSyncLog.h"
#include "views/MemoryLevelButton.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/M3TokenCloud.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>

namespace {

using Column = WordTableModel::Column;

QStringList list(const char *blankSeparated)
{
    return QString::fromUtf8(blankSeparated).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

TEST_F(ViewsTest, AQuietLineTellsHowFullTheFileIs)
{
    const auto grow = [](const TAVLexiconRef &vocabulary, int mebibytes) {
        vocabulary->allWords().first()->setComment(QString(mebibytes * (1 << 20) - 2000, QLatin1Char('x')));
    };
    startWith(makeItalian());
    const auto *notices = control<QWidget>("notices");
    EXPECT_FALSE(notices->isVisible());
    grow(vocabulary(), 4);
    recorder.take();
    dropOnRow(1, QStringLiteral("fresh"));
    EXPECT_EQ(recorder.take(), QStringLiteral("mark* save sync")) << "the list isn't drawn for it";
    const auto *line = control<QLabel>("fullnessLabel");
    EXPECT_TRUE(line->isVisible());
    EXPECT_TRUE(line->text().startsWith(QStringLiteral("The file of this language holds 3.9 of 4 MiB.")));
    EXPECT_EQ(line->accessibleName(), line->text());

    // It is read whole, and pushes nothing out of the smallest window.
    hub->mainWindow()->resize(640, 480);
    processEvents();
    EXPECT_GE(line->height(), line->heightForWidth(line->width()));
    EXPECT_TRUE(control<QLabel>("statusTextField")->visibleRegion().boundingRect().isValid());
    EXPECT_EQ(hub->mainWindow()->size(), QSize(640, 480));

    grow(vocabulary(), 5);
    words()->selectMemoryView(nullptr);
    EXPECT_TRUE(line->text().contains(QStringLiteral("holds 5.0 MiB: beyond 4 MiB")));
    words()->setVocabulary(makeLanguage("Latin"));
    EXPECT_FALSE(notices->isVisible());
    EXPECT_FALSE(line->isVisible());
}

TEST_F(ViewsTest, TheModelKeepsItsPromisesThroughEveryChange)
{
    startWith(makeItalian());
    QAbstractItemModelTester tester(table()->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    table()->selectAll();
    for (int column = 0; column < WordTableModel::ColumnCount; ++column) {
        words()->didClickTableColumn(column);
        words()->didClickTableColumn(column);
    }
    click("level2Button");
    control<QLineEdit>("searchField")->setText(QStringLiteral("zzz"));
    control<QLineEdit>("searchField")->clear();
    words()->showAddWordPanel();
    words()->wordEditor()->closeWordPanel(nullptr);
    words()->setDisplaySynonyms();
    words()->setVocabulary(makeLanguage("Latin"));
    words()->updateEntireView();
    EXPECT_EQ(table()->model()->rowCount(), 0);
}

TEST_F(ViewsTest, LevelsShowTheirWordsCountsAndTexts)
{
    const TAVLexiconRef italian = makeItalian();
    for (int i = 0; i < 29; ++i)
        addWord(italian, qPrintable(QStringLiteral("w%1").arg(i)), "x");
    startWith(italian);
    EXPECT_EQ(control<MemoryLevelButton>("level0Button")->count(), 30);
    EXPECT_EQ(text("statusTextField"), QStringLiteral("Words in all: 32"));

    click("level0Button");
    EXPECT_EQ(table()->model()->rowCount(), 30);
    EXPECT_EQ(text("infoTextField"), QStringLiteral("New words start here, ready for their first quiz."));
    addWord(vocabulary(), "one more", "x");
    click("level0Button");
    EXPECT_TRUE(text("infoTextField").startsWith(QStringLiteral("That’s a lot")));
    EXPECT_EQ(control<QLabel>("infoTextField")->palette().color(QPalette::WindowText),
              QColor::fromRgbF(0.8f, 0.3f, 0.3f));
    EXPECT_EQ(text("statusTextField"), QStringLiteral("31 of 33 words"));

    click("level5Buttons");
    EXPECT_EQ(shownWords(), list("water"));
    EXPECT_EQ(text("statusTextField"), QStringLiteral("1 words, 1 of them no longer asked, of 33"));
    EXPECT_FALSE(control<QAbstractButton>("level0Button")->isChecked());
    EXPECT_NE(control<QLabel>("infoTextField")->palette().color(QPalette::WindowText),
              QColor::fromRgbF(0.8f, 0.3f, 0.3f));
    click("level5Buttons");
    EXPECT_TRUE(control<QAbstractButton>("level5Buttons")->isChecked());
}

TEST_F(ViewsTest, SearchTagsAndSynonymsNarrowTheList)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "home", "casa", 2);
    startWith(italian);
    auto *search = control<QLineEdit>("searchField");
    search->setText(QStringLiteral("CAS"));
    EXPECT_EQ(shownWords(), list("home house"));
    EXPECT_TRUE(control<QWidget>("searchBackgroundView")->isVisible());
    EXPECT_EQ(text("infoTextField"), QStringLiteral("Words that match “CAS”."));
    EXPECT_EQ(text("statusTextField"), QStringLiteral("2 of 4 words found"));
    click("level2Button");
    EXPECT_EQ(text("infoTextField"), QStringLiteral("Words that match “CAS”."));
    click("allWordsButton");

    auto *cloud = control<M3TokenCloud>("tagCloud");
    cloud->setSelectedTokenNames({QStringLiteral("home"), QStringLiteral("gone")});
    words()->tokenCloudDidClickToken(cloud, QStringLiteral("home"), true);
    EXPECT_EQ(shownWords(), list("house"));
    search->setText(QStringLiteral("dog"));
    EXPECT_EQ(control<QStackedWidget>("noWordsTabView")->currentIndex(), 1);
    EXPECT_TRUE(control<QWidget>("noWordsTabView")->isVisible());
    EXPECT_FALSE(control<QWidget>("searchBackgroundView")->isVisible());
    search->clear();

    words()->setDisplaySynonyms();
    EXPECT_EQ(shownWords(), list("house")) << "tags count for the synonyms too";
    click("selectNoneTagsButton");
    EXPECT_EQ(shownWords(), list("home house"));
    search->setText(QStringLiteral("hous"));
    EXPECT_EQ(text("statusTextField"), QStringLiteral("1 of 4 words found"));
    search->clear();
    EXPECT_TRUE(control<QWidget>("synonymsShowAllButton")->isVisible());
    click("synonymsShowAllButton");
    EXPECT_FALSE(words()->isSynonymsActive());
    EXPECT_EQ(shownWords(), list("dog home house water"));
}

TEST_F(ViewsTest, EachEmptyStateHasItsPage)
{
    const TAVLexiconRef empty = makeLanguage("Latin");
    startWith(empty);
    auto *pages = control<QStackedWidget>("noWordsTabView");
    EXPECT_TRUE(pages->isVisible());
    EXPECT_EQ(pages->currentIndex(), 0);
    addWord(vocabulary(), "dog", "canis", 3);
    click("level1Button");
    EXPECT_EQ(pages->currentIndex(), 1);
    click("level0Button");
    EXPECT_EQ(pages->currentIndex(), 2);
    click("level3Button");
    EXPECT_FALSE(pages->isVisible());
}

TEST_F(ViewsTest, ADescendingTableIsTheSameListFromItsEnd)
{
    startWith(makeItalian());
    auto *header = table()->horizontalHeader();
    table()->selectOnlyRow(0);
    words()->didClickTableColumn(Column::YourWord);
    EXPECT_EQ(shownWords(), list("water house dog"));
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_EQ(words()->currentWordsToShow().first()->yourWord(), QStringLiteral("dog"));
    ASSERT_EQ(words()->getSelectedWordsArray().size(), 1);
    EXPECT_EQ(words()->getSelectedWordsArray().first()->yourWord(), QStringLiteral("dog"))
        << "what is selected follows its word";

    table()->selectOnlyRow(0);
    EXPECT_EQ(words()->selectedWord()->yourWord(), QStringLiteral("water"));
    EXPECT_EQ(words()->wordEditor()->selectedWords().first()->yourWord(), QStringLiteral("water"));

    click("level0Button");
    EXPECT_TRUE(words()->sortDescending()) << "a level switch keeps the order";
    click("allWordsButton");
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(Column::ForeignWord) + 20, header->height() / 2});
    EXPECT_EQ(shownWords(), list("water dog house"));
    EXPECT_FALSE(words()->sortDescending());
    EXPECT_EQ(header->sortIndicatorSection(), int(Column::ForeignWord));
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(ViewsTest, SortingAfterAQuizHasMovedWordsShowsThemAsTheyAre)
{
    startWith(makeItalian());
    QAbstractItemModelTester tester(table()->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    click("level0Button");
    vocabulary()->answeredWord(vocabulary()->findWordByID(1001), 1);
    words()->didClickTableColumn(Column::Comment);
    EXPECT_EQ(table()->model()->rowCount(), 0);
    EXPECT_EQ(table()->verticalHeader()->count(), 0);
}

TEST_F(ViewsTest, AddingSelectsTheRowOfThePlaceInTheList)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "ant", "formica");
    startWith(italian);
    words()->showAddWordPanel();
    EXPECT_EQ(table()->selectedRowList(), QList<int>{0});
    EXPECT_TRUE(words()->selectedWord()->yourWord().isEmpty());
    EXPECT_TRUE(words()->wordEditor()->isInAddingMode());
    EXPECT_EQ(words()->selectedLevel(), 0u);
    click("level2Button");
    EXPECT_EQ(vocabulary()->countAllWords(), 4) << "a level switch takes the empty word away";

    words()->didClickTableColumn(Column::YourWord);
    words()->showAddWordPanel();
    EXPECT_EQ(table()->selectedRowList(), QList<int>{0});
    EXPECT_EQ(words()->selectedWord()->yourWord(), QStringLiteral("dog")) << "the mirrored row, as ever";
}

TEST_F(ViewsTest, NoFilterHidesTheWordThatIsAdded)
{
    startWith(makeItalian());
    auto *search = control<QLineEdit>("searchField");
    auto *cloud = control<M3TokenCloud>("tagCloud");
    for (const bool isSearched : {true, false}) {
        search->setText(QLatin1String(isSearched ? "hous" : ""));
        cloud->setSelectedTokenNames(isSearched ? platform::TextSet() : vocabulary()->allTags());
        words()->updateEntireView();
        ASSERT_EQ(shownWords(), list("house"));
        words()->showAddWordPanel();
        EXPECT_EQ(shownWords(), QStringList({QString(), QStringLiteral("dog")}));
        EXPECT_TRUE(words()->wordEditor()->isPanelVisible());
        click("allWordsButton");
    }
}

TEST_F(ViewsTest, ChoosingAnotherRowGivesUpTheNewWordAndNoOther)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "ant", "formica");
    startWith(italian);
    for (const char *order : {"ascending", "descending"}) {
        SCOPED_TRACE(order);
        words()->showAddWordPanel();
        ASSERT_TRUE(words()->wordEditor()->isInAddingMode());
        const char *other = words()->selectedWord()->yourWord() == QLatin1String("dog") ? "ant" : "dog";
        table()->selectOnlyRow(rowOf(other));
        EXPECT_FALSE(words()->wordEditor()->isInAddingMode());
        EXPECT_TRUE(words()->wordEditor()->isPanelVisible());
        EXPECT_EQ(words()->selectedWord()->yourWord(), QLatin1String(other));
        EXPECT_EQ(table()->selectedRowList(), QList<int>{rowOf(other)});
        words()->deselectWords();
        QStringList left = shownWords();
        left.sort();
        EXPECT_EQ(left, QStringList({QStringLiteral("ant"), QStringLiteral("dog")}));
        words()->didClickTableColumn(Column::YourWord);
    }
}

TEST_F(ViewsTest, DeletedWordsComeBackWithAllTheirFields)
{
    const TAVLexiconRef latin = makeLanguage("Latin");
    addWord(latin, "fish", "piscis");
    save(latin);
    startWith(makeItalian());
    chooseLanguage(QStringLiteral("Italian - English"));
    const TAVWordRef house = vocabulary()->findWordByID(1002);
    ASSERT_TRUE(house);

    table()->setFocus();
    table()->selectAll();
    services.alerts.answerNext(1);
    QTest::keyClick(table(), Qt::Key_Delete);
    EXPECT_EQ(vocabulary()->countAllWords(), 0);
    words()->reloadVocabularyFromDisk();
    table()->setFocus();
    QTest::keyClick(hub->mainWindow(), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(vocabulary()->countAllWords(), 3);
    const TAVWordRef restored = vocabulary()->findWordByID(1002);
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->level(), 2u);
    EXPECT_EQ(restored->tagsSorted(), list("home"));
    EXPECT_TRUE(vocabulary()->allTags().contains(QStringLiteral("home")));
    EXPECT_EQ(TAVStorageManager::vocabularyFromFile(save(vocabulary()))->countAllWords(), 3);

    table()->selectOnlyRow(0);
    words()->deleteSelectedWords();
    chooseLanguage(QStringLiteral("Latin - English"));
    words()->undo();
    EXPECT_EQ(vocabulary()->countAllWords(), 1) << "not into another language";
    chooseLanguage(QStringLiteral("Italian - English"));
    words()->undo();
    EXPECT_EQ(vocabulary()->countAllWords(), 2) << "the switch has ended it";
}

TEST_F(ViewsTest, RemovedDuplicatesComeBackToo)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "dog", "cane", 3);
    startWith(italian);
    services.alerts.answerNext(0);
    words()->deleteDuplicates();
    EXPECT_EQ(vocabulary()->countAllWords(), 4) << "only the second button deletes";
    services.alerts.answerNext(1);
    words()->deleteDuplicates();
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    EXPECT_EQ(services.alerts.shown.last().title, QStringLiteral("One duplicate was removed."));
    words()->undo();
    EXPECT_EQ(vocabulary()->countAllWords(), 4);
    EXPECT_TRUE(vocabulary()->findWordByID(1001));
}

TEST_F(ViewsTest, SelectedWordsAreCopiedAsTheyStandInTheColumns)
{
    startWith(makeItalian());
    vocabulary()->findWordByID(1002)->setComment(QStringLiteral("two\tlines\nhere"));
    table()->horizontalHeader()->moveSection(0, 1);
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(table(), Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines.at(1), QStringLiteral("casa\thouse\ttwo lines here\thome\tnever"));
}

TEST_F(ViewsTest, TheListIsWalkedFromTheEditor)
{
    startWith(makeItalian());
    table()->selectOnlyRow(1);
    words()->wordPopoverDidMoveSelection(1);
    EXPECT_EQ(table()->selectedRowList(), QList<int>{2});
    words()->wordPopoverDidMoveSelection(1);
    EXPECT_EQ(table()->selectedRowList(), QList<int>{2});
    words()->wordPopoverDidMoveSelection(-1);
    EXPECT_EQ(words()->wordEditor()->selectedWords().first()->yourWord(), QStringLiteral("house"));
}

TEST_F(ViewsTest, AReplacedVocabularyIsTakenUpBeforeItsWordsAreUsed)
{
    startWith(makeItalian());
    table()->selectOnlyRow(0);
    words()->wordEditor()->closeWordPanel(nullptr);
    ASSERT_TRUE(words()->wordEditor()->isActive());
    words()->reloadVocabularyFromDisk();
    ASSERT_EQ(words()->getSelectedWordsArray().size(), 1);
    EXPECT_TRUE(vocabulary()->allWords().contains(words()->getSelectedWordsArray().first()));
    dropOnRow(2, QStringLiteral("drink"));
    EXPECT_EQ(vocabulary()->findWordByID(1003)->tagsSorted(), list("drink"));
    table()->selectOnlyRow(1);
    ASSERT_TRUE(words()->selectedWord());
    EXPECT_EQ(words()->selectedWord()->yourWord(), QStringLiteral("house"));
    EXPECT_TRUE(vocabulary()->allWords().contains(words()->selectedWord()))
        << "an edit of the old object would be lost";
}

TEST_F(ViewsTest, ColumnsComeBackAsTheyWereLeft)
{
    startWith(makeItalian());
    table()->horizontalHeader()->moveSection(4, 0);
    table()->setColumnWidth(Column::Comment, 77);
    const QString layout = table()->columnLayout();
    hub->mainWindow()->close();
    start();
    EXPECT_EQ(table()->horizontalHeader()->visualIndex(4), 0);
    EXPECT_LT(table()->columnWidth(Column::Comment), table()->columnWidth(Column::Tags));

    for (const char *broken : {"", "yourWord:100", "yourWord:1,foreignWord:2,comment:3,tags:4,lastAsked:5",
                               "tags:90,tags:90,tags:90,tags:90,tags:90",
                               "yourWord:99999999999,foreignWord:90,comment:90,tags:90,lastAsked:90"}) {
        const QString before = table()->columnLayout();
        table()->restoreColumns(QLatin1String(broken));
        EXPECT_EQ(table()->columnLayout(), before) << broken;
    }
    table()->restoreColumns(layout);
    EXPECT_EQ(table()->columnLayout(), layout);
}

TEST_F(ViewsTest, TheStatusLineTurnsOnlyWithASync)
{
    startWith(makeItalian());
    auto *pages = control<QStackedWidget>("statusTabView");
    auto *toggle = control<QAbstractButton>("toggleStatusButton");
    toggle->click();
    EXPECT_EQ(pages->currentIndex(), 0);
    EXPECT_FALSE(toggle->isVisible());
    recorder.enabled = true;
    toggle->click();
    EXPECT_EQ(pages->currentIndex(), 1);
    toggle->click();
    EXPECT_EQ(pages->currentIndex(), 0);
    words()->showVocabulary();
    EXPECT_EQ(pages->currentIndex(), 1);
    EXPECT_TRUE(toggle->isVisible());
    click("level0Button");
    EXPECT_EQ(pages->currentIndex(), 0);
}

TEST_F(ViewsTest, TheStatusLineTellsOfWordsAndOfTheLastSync)
{
    struct ScriptedLog : TAVSyncLog
    {
        ScriptedLog() { setSharedManager(this); }
        ~ScriptedLog() override { setSharedManager(nullptr); }
        std::optional<QString> syncStatusForVocabulary(const TAVLexicon &) override { return status; }
        std::optional<QString> status;
    };
    startWith(makeItalian());
    ScriptedLog log; // registered only now: nobody may have kept another
    words()->cloudControllerDidSync();
    EXPECT_EQ(text("syncStatusTextField"), QStringLiteral("Sync in progress"));
    EXPECT_EQ(control<QStackedWidget>("statusTabView")->currentIndex(), 1);
    log.status = QStringLiteral("just now");
    words()->cloudControllerDidSync();
    EXPECT_EQ(text("syncStatusTextField"), QStringLiteral("just now"));
    table()->selectOnlyRow(0);
    EXPECT_EQ(text("statusTextField"), QStringLiteral("Words in all: 3, one selected"));
    table()->clearSelection();
    EXPECT_EQ(text("statusTextField"), QStringLiteral("Words in all: 3"));
    click("level2Button");
    EXPECT_EQ(text("statusTextField"), QStringLiteral("1 of 3 words"));
}

TEST_F(ViewsTest, AFileThatHasBecomeUnreadableTakesNoWordsOffTheScreen)
{
    startWith(makeItalian());
    QFile file(TAVStorageManager::savePathForVocabulary(*vocabulary()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("no vocabulary");
    file.close();
    words()->reloadVocabularyFromDisk();
    ASSERT_TRUE(vocabulary());
    EXPECT_EQ(table()->model()->rowCount(), 3);
}

TEST_F(ViewsTest, TheTagCloudOnlyGrows)
{
    startWith(makeItalian());
    auto *cloud = control<M3TokenCloud>("tagCloud");
    for (const double height : {400.2, 100.0})
        words()->tokenCloudDidChangePreferredHeight(cloud, height);
    EXPECT_EQ(cloud->minimumHeight(), 401);
}

TEST_F(ViewsTest, OneWordIsDeletedForOnePressOfTheKey)
{
    startWith(makeItalian());
    table()->setFocus();
    table()->selectOnlyRow(1);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(table(), &held);
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    QTest::keyClick(table(), Qt::Key_Delete);
    EXPECT_EQ(vocabulary()->countAllWords(), 2);
    EXPECT_EQ(table()->currentIndex().row(), 1) << "where the deleted word stood";
    table()->selectOnlyRow(1);
    QTest::keyClick(table(), Qt::Key_Delete);
    EXPECT_EQ(table()->currentIndex().row(), 0) << "the last one that is left";
}

} // namespace
