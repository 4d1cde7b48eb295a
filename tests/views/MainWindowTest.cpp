#include "ViewsTest.h"

#include "storage/LanguageName.h"
#include "views/TAVHelpController.h"
#include "views/TAVUpdateController.h"
#include "views/editor/TAVWordPopoverController.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

/** Takes down what the main window asks of a page. */
class RecordingPage : public QuizPage, public StatisticsPage, public PreferencesPage, public QuizletPage
{
public:
    QWidget *page() override { return new QWidget; }
    void setPreSelectedWords(const TAVWordList &words) override
    {
        note(QStringLiteral("preselect"), words.size());
    }
    void showQuiz() override { calls.append(QStringLiteral("showQuiz")); }
    void quizListsToAskChanged() override { calls.append(QStringLiteral("recount")); }
    void setVocabulary(const TAVLexiconRef &vocabulary) override
    {
        note(QStringLiteral("vocabulary"), vocabulary ? vocabulary->countAllWords() : -1);
    }
    void showStatistics() override { calls.append(QStringLiteral("showStatistics")); }
    void windowDidResize() override { ++resizes; }
    void setDelegate(TAVPreferencesDelegate *delegate) override { hasDelegate = delegate != nullptr; }
    void showPreferences() override { calls.append(QStringLiteral("showPreferences")); }
    void showLanguages() override { calls.append(QStringLiteral("showLanguages")); }
    void showSyncing() override { calls.append(QStringLiteral("showSyncing")); }
    void cloudControllerDidSync() override { calls.append(QStringLiteral("synced")); }
    QString take() { return std::exchange(calls, {}).join(QLatin1Char(' ')); }

    QStringList calls;
    int resizes = 0;
    bool hasDelegate = false;

private:
    void note(const QString &what, qsizetype number)
    {
        calls.append(QStringLiteral("%1:%2").arg(what, QString::number(number)));
    }
};

class MainWindowTest : public ViewsTest
{
protected:
    void startWithPages(const TAVLexiconRef &vocabulary)
    {
        save(vocabulary);
        hub = std::make_unique<TAVMainWindowController>();
        hub->setQuizSetupController(&page);
        hub->setStatisticsController(&page);
        hub->setPreferencesController(&page);
        hub->setQuizletController(&page);
        hub->awakeFromNib();
        hub->mainWindow()->show();
        services.clock.advanceSeconds(1);
        watch();
    }
    QStringList languages() const
    {
        QStringList names;
        auto *popUp = control<QComboBox>("languagesPopUp");
        for (int i = 0; i < popUp->count(); ++i)
            names.append(popUp->itemText(i));
        return names;
    }
    /** Makes the file older, so that another one is the youngest. */
    static void age(const QString &path)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            file.setFileTime(QDateTime(QDate(2010, 1, 1), QTime()), QFileDevice::FileModificationTime));
    }
    QAction *menuItem(const char *name) const
    {
        for (QAction *action : hub->mainWindow()->menuBar()->findChildren<QAction *>()) {
            if (action->objectName() == QLatin1String(name) && action->menuRole() == QAction::NoRole)
                return action;
        }
        ADD_FAILURE() << "no menu item " << name;
        return nullptr;
    }

    RecordingPage page;
};

TEST_F(MainWindowTest, OpensTheLastLanguageOrTheFirst)
{
    save(makeItalian());
    age(save(makeLanguage("Latin")));
    services.settings.setValue(settingskeys::lastActiveLanguage, QStringLiteral("Latin - English"));
    start();
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Latin"));
    EXPECT_EQ(control<QComboBox>("languagesPopUp")->currentText(), QStringLiteral("Latin - English"));
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary);
    hub.reset();

    services.settings.setValue(settingskeys::lastActiveLanguage, QStringLiteral("Gone - English"));
    start();
    ASSERT_TRUE(vocabulary());
    EXPECT_EQ(services.settings.text(settingskeys::lastActiveLanguage),
              TAVStorageManager::displayNameForVocabulary(*vocabulary()));
}

TEST_F(MainWindowTest, StandsWithoutAVocabularyWhereItCannotBeLoaded)
{
    const QString path = save(makeLanguage("Broken"));
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    age(save(makeItalian()));
    services.settings.setValue(settingskeys::lastActiveLanguage, QStringLiteral("Broken - English"));
    start();
    EXPECT_FALSE(vocabulary());
    EXPECT_EQ(services.settings.text(settingskeys::lastActiveLanguage), QStringLiteral("Broken - English"));

    // Nothing that can be reached needs a vocabulary.
    for (const MainTabInfo &info : toolbarTabs)
        click(info.action);
    for (QAction *action : hub->mainWindow()->menuBar()->findChildren<QAction *>()) {
        if (action->isEnabled() && !action->menu() && action->objectName() != QLatin1String("quit") &&
            action->objectName() != QLatin1String("close"))
            action->trigger();
    }
    hub->dropboxControllerDidFinishSync();
    hub->importDidEnd(nullptr);
    hub->updateViews();
    hub->preferencesDidDeleteVocabularyAtPath(path);
    hub->applicationDidFinishLaunching();
    for (auto *button : words()->view()->findChildren<QAbstractButton *>())
        button->click();
    services.clock.advanceSeconds(10);

    chooseLanguage(QStringLiteral("Italian - English"));
    ASSERT_TRUE(vocabulary());
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
}

TEST_F(MainWindowTest, AFirstLanguageIsMadeByItsName)
{
    start();
    EXPECT_TRUE(hub->isInFirstSetupMode());
    EXPECT_EQ(hub->selectedTab(), MainTab::FirstStartSetup);
    EXPECT_FALSE(control<QToolButton>("showQuiz")->isEnabled());
    auto *field = control<QLineEdit>("firstLanguageField");
    auto *button = control<QPushButton>("getStartedButton");
    EXPECT_FALSE(button->isEnabled());
    const QString deep = QString(QLatin1String("ä")).repeated(200);
    for (const QString &name :
         {QStringLiteral("Ita/lian"), QString(QChar(0)) + QLatin1Char('a'), QStringLiteral("../x"), deep,
          QStringLiteral("a.tavv"), QString(QChar(0xd800))}) {
        field->setText(name);
        EXPECT_FALSE(button->isEnabled() && field->text() == name) << name.toStdString();
        EXPECT_FALSE(isPossibleLanguageName(name)) << name.toStdString();
    }
    field->setText(QStringLiteral("  Italian "));
    EXPECT_TRUE(button->isEnabled());
    EXPECT_FALSE(control<QLabel>("nameHintLabel")->isVisible());
    button->click();
    EXPECT_FALSE(hub->isInFirstSetupMode());
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Italian"));
    EXPECT_TRUE(QFile::exists(TAVStorageManager::savePathForVocabulary(*vocabulary())));
    EXPECT_TRUE(control<QToolButton>("showQuiz")->isEnabled());

    hub->createFirstLanguageWithName(AppGround::selectedLocaleName().toUpper());
    EXPECT_EQ(vocabulary()->yourLanguageName(), QStringLiteral("My Language"));
    hub->createFirstLanguageWithName(QStringLiteral(" \n"));
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Unknown"));
}

TEST_F(MainWindowTest, TheRoadOfASharedFolder)
{
    start();
    auto *link = control<QPushButton>("firstSyncLinkDBButton");
    auto *begin = control<QPushButton>("firstSyncGetStartedButton");
    EXPECT_TRUE(link->isEnabled());
    link->click();
    EXPECT_TRUE(recorder.enabled);
    hub->dropboxControllerDidLinkSuccessfully();
    EXPECT_FALSE(link->isEnabled());
    EXPECT_TRUE(control<QLabel>("firstSyncCheckMark2")->isVisible());
    EXPECT_TRUE(control<QWidget>("firstSyncProgress")->isVisible());
    hub->dropboxControllerDidFinishSync();
    EXPECT_TRUE(begin->isVisible());
    begin->click();
    EXPECT_EQ(services.alerts.shown.last().title, QStringLiteral("No languages found"));
    EXPECT_FALSE(begin->isVisible());
    EXPECT_TRUE(link->isEnabled());

    save(makeItalian());
    hub->dropboxControllerDidFinishSync();
    begin->click();
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary);
}

TEST_F(MainWindowTest, OnlyAChoiceByTheUserSwitchesTheLanguage)
{
    age(save(makeLanguage("Latin")));
    startWithPages(makeItalian());
    chooseLanguage(QStringLiteral("Italian - English"));
    page.take();
    auto *popUp = control<QComboBox>("languagesPopUp");
    popUp->setCurrentIndex(popUp->findText(QStringLiteral("Latin - English")));
    hub->updateLanguagesPopup();
    QWheelEvent wheel(QPointF(5, 5), popUp->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(popUp, &wheel);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Italian"));
    EXPECT_EQ(languages(),
              (QStringList{QStringLiteral("Italian - English"), QStringLiteral("Latin - English"), QString(),
                           QStringLiteral("Manage Languages…")}));

    hub->showQuiz();
    page.take();
    chooseLanguage(QStringLiteral("Latin - English"));
    EXPECT_EQ(page.take(), QStringLiteral("vocabulary:0 vocabulary:0 preselect:0 showQuiz"));
    EXPECT_EQ(services.settings.text(settingskeys::lastActiveLanguage), QStringLiteral("Latin - English"));
    EXPECT_EQ(languages().first(), QStringLiteral("Italian - English"))
        << "the menu isn't rebuilt by the choice";

    services.clock.advanceSeconds(1);
    page.take();
    chooseLanguage(QStringLiteral("Manage Languages…"));
    EXPECT_EQ(popUp->currentText(), QStringLiteral("Latin - English"));
    EXPECT_EQ(page.take(), QStringLiteral("showPreferences showLanguages"));
    EXPECT_EQ(hub->selectedTab(), MainTab::Settings);

    ASSERT_TRUE(QFile::remove(TAVStorageManager::savePathForVocabulary(*makeItalian())));
    chooseLanguage(QStringLiteral("Italian - English"));
    EXPECT_TRUE(
        services.diagnosticLines.contains(QStringLiteral("VocController > selectLanguage > file not found")));
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Latin"));
}

TEST_F(MainWindowTest, TabsTellTheirPagesWhatTheyNeed)
{
    startWithPages(makeItalian());
    page.take();
    recorder.take();
    table()->selectAll();
    click("showQuiz");
    EXPECT_EQ(page.take(), QStringLiteral("preselect:3 showQuiz"));
    EXPECT_EQ(recorder.take(), QStringLiteral("sync"));
    EXPECT_TRUE(words()->getSelectedWordsArray().isEmpty());
    services.clock.advanceSeconds(0.5);
    EXPECT_EQ(page.take(), QStringLiteral("showQuiz"));
    click("showQuizlet");
    click("showStatistics");
    click("showPreferences");
    EXPECT_EQ(page.take(), QStringLiteral("vocabulary:3 vocabulary:3 showStatistics showPreferences"));
    EXPECT_TRUE(page.hasDelegate);
    EXPECT_EQ(recorder.take(), QStringLiteral("sync sync sync"));

    words()->showAddWordPanel();
    click("showStatistics");
    EXPECT_EQ(vocabulary()->countAllWords(), 3) << "an unfinished word doesn't outlive its page";
    EXPECT_FALSE(words()->wordEditor()->isPanelVisible());

    // "Add and next" opens the next word half a second later, but not for one who has gone on.
    click("showVocabulary");
    words()->showAddWordPanel();
    findControl<QLineEdit>(hub->mainWindow(), "foreignWordTextField")->setText(QStringLiteral("pane"));
    findControl<QPushButton>(hub->mainWindow(), "okButton")->click();
    click("showStatistics");
    services.clock.advanceSeconds(1);
    EXPECT_EQ(vocabulary()->countAllWords(), 4);
    EXPECT_FALSE(words()->wordEditor()->isPanelVisible());

    const int resizes = page.resizes;
    hub->mainWindow()->resize(900, 650);
    processEvents();
    EXPECT_GT(page.resizes, resizes);

    hub->disableAllToolbarItems();
    page.take();
    QTest::keyClick(hub->mainWindow(), Qt::Key_2, Qt::ControlModifier);
    click("showQuiz");
    EXPECT_EQ(page.take(), QString());
    EXPECT_FALSE(control<QComboBox>("languagesPopUp")->isEnabled());
    hub->enableAllToolbarItems();
    QTest::keyClick(hub->mainWindow(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(page.take(), QStringLiteral("preselect:0 showQuiz"));
}

TEST_F(MainWindowTest, ASyncReloadsAFileThatHasChanged)
{
    startWithPages(makeItalian());
    page.take();
    recorder.watch({}, table()->model()); // it would set the file's date back
    TAVLexiconRef before = vocabulary();
    hub->dropboxControllerDidFinishSync();
    EXPECT_NE(vocabulary(), before) << "the first sync always reloads";
    EXPECT_EQ(page.take(), QStringLiteral("synced recount"));

    before = vocabulary();
    hub->dropboxControllerDidFinishSync();
    EXPECT_NE(vocabulary(), before) << "the reload has saved, so the next sync reloads again";

    // With the editor open nothing is saved, and the date stays in step.
    table()->selectOnlyRow(0);
    hub->dropboxControllerDidFinishSync();
    before = vocabulary();
    hub->dropboxControllerDidFinishSync();
    EXPECT_EQ(vocabulary(), before);

    hub->dropboxControllerDidLinkSuccessfully();
    EXPECT_EQ(page.take(), QStringLiteral("synced recount synced recount synced recount"));
    services.clock.advanceSeconds(2);
    EXPECT_EQ(page.take(), QStringLiteral("showSyncing"));
}

TEST_F(MainWindowTest, ChangedAndDeletedLanguagesAreFollowed)
{
    const QString latin = save(makeLanguage("Latin"));
    age(latin);
    startWithPages(makeItalian());
    chooseLanguage(QStringLiteral("Italian - English"));
    const QString italian = TAVStorageManager::savePathForVocabulary(*vocabulary());
    hub->preferencesDidDeleteVocabularyAtPath(latin);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Italian"));

    ASSERT_TRUE(QFile::remove(italian));
    hub->preferencesDidChangeVocabularyAtPath(latin);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Latin"));
    const QString renamed = save(makeItalian());
    hub->preferencesDidChangeVocabularyAtPath(renamed);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Latin")) << "its own file still stands";

    ASSERT_TRUE(QFile::remove(latin));
    hub->preferencesDidDeleteVocabularyAtPath(latin);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Italian"));
}

TEST_F(MainWindowTest, HelpShowsOnceByItself)
{
    services.settings.remove(settingskeys::hasShownVocabularyHelp);
    startWith(makeItalian());
    EXPECT_TRUE(hub->helpController()->isShowing());
    EXPECT_TRUE(services.settings.boolean(settingskeys::hasShownVocabularyHelp));
    QTest::mouseClick(control<QWidget>("vocabularyHelp"), Qt::LeftButton);
    EXPECT_FALSE(hub->helpController()->isShowing());
    processEvents();
    hub->showVocabulary();
    EXPECT_FALSE(hub->helpController()->isShowing());
    menuItem("showHelp")->trigger();
    EXPECT_TRUE(hub->helpController()->isShowing());
    hub->showStatistics();
    EXPECT_FALSE(hub->helpController()->isShowing());
}

TEST_F(MainWindowTest, MenusOfferOnlyWhatExists)
{
    startWith(makeItalian());
    for (const char *name : {"import", "export", "preferences", "statistics", "getWords"})
        EXPECT_FALSE(menuItem(name)->isEnabled()) << name;
    struct RecordingImporter : Importer
    {
        void showOpenSheetWithVocabulary(const TAVLexiconRef &given, TAVImporterDelegate *) override
        {
            vocabulary = given;
        }
        TAVLexiconRef vocabulary;
    } importer;
    hub->setImporter(&importer);
    menuItem("import")->trigger();
    EXPECT_EQ(importer.vocabulary, vocabulary());

    hub->updateController()->updateMenuItem()->trigger();
    hub->visitSupport();
    hub->goToAppSupportFolder();
    EXPECT_EQ(services.browser.openedUrls.size(), 2);
    EXPECT_EQ(services.browser.openedFolders, QStringList{AppGround::applicationSupportFolder()});
}

TEST_F(MainWindowTest, EveryControlHasANameForScreenReaders)
{
    startWith(makeItalian());
    const auto widgets = words()->view()->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->focusPolicy() != Qt::NoFocus && !widget->objectName().isEmpty() &&
            !widget->objectName().startsWith(QLatin1String("qt_")) && widget->isVisible()) {
            EXPECT_FALSE(widget->accessibleName().isEmpty() && widget->property("text").toString().isEmpty())
                << widget->objectName().toStdString();
        }
    }
}

/** The words of a file by a reader that shares no code with the program; empty if there is none here. */
QStringList readIndependently(const QString &path)
{
    const QString script = QStringLiteral(
        "import bz2,json,sys\n"
        "d=json.loads(bz2.decompress(open(sys.argv[1],'rb').read()))\n"
        "def walk(x):\n"
        "  if isinstance(x,dict):\n"
        "    t=[v for v in x.values() if isinstance(v,str)]\n"
        "    if x is not d: print('|'.join(sorted(t+[g for v in x.values() if isinstance(v,list) for g in v "
        "if isinstance(g,str)])))\n"
        "    [walk(v) for v in x.values()]\n"
        "  elif isinstance(x,list): [walk(v) for v in x]\n"
        "walk(d)\n");
    QProcess python;
    python.start(QStringLiteral("python3"), {QStringLiteral("-c"), script, path});
    if (!python.waitForFinished())
        return {};
    return QString::fromUtf8(python.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

TEST_F(MainWindowTest, APersonBuildsALanguageByKeyboard)
{
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())
        GTEST_SKIP() << "python3 reads the file back; it is missing here";
    start();
    QTest::keyClicks(control<QLineEdit>("firstLanguageField"), QStringLiteral("Italian"));
    QTest::keyClick(control<QLineEdit>("firstLanguageField"), Qt::Key_Return);
    const QString path = TAVStorageManager::savePathForVocabulary(*vocabulary());

    QTest::keyClick(hub->mainWindow(), Qt::Key_N, Qt::ControlModifier);
    auto *your = control<QLineEdit>("yourLangWordTextField");
    auto *foreign = control<QLineEdit>("foreignWordTextField");
    for (int i = 0; i < 10; ++i) {
        services.clock.advanceSeconds(0.6);
        processEvents();
        const QString number = QString::number(i);
        QTest::keyClicks(foreign, i == 4 ? QStringLiteral("f4@g4") : QLatin1Char('f') + number);
        QTest::keyClicks(your, QLatin1Char('y') + number);
        QTest::keyClick(your, Qt::Key_Return);
        services.clock.advanceSeconds(0.6);
        processEvents();
    }
    QTest::keyClick(foreign, Qt::Key_Escape);
    EXPECT_EQ(vocabulary()->countAllWords(), 11);

    table()->selectOnlyRow(rowOf("y3"));
    services.clock.advanceSeconds(0.6);
    foreign->selectAll();
    QTest::keyClicks(foreign, QStringLiteral("changed"));
    QTest::keyClick(foreign, Qt::Key_Return);
    dropOnRow(rowOf("y5"), QStringLiteral("garden"));
    table()->selectOnlyRow(rowOf("y7"));
    QTest::keyClick(table(), Qt::Key_Delete);
    EXPECT_EQ(rowOf("y7"), -1);
    table()->selectOnlyRow(rowOf("y8"));
    QTest::keyClick(table(), Qt::Key_Delete);
    words()->view()->setFocus();
    QTest::keyClick(hub->mainWindow(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_GE(rowOf("y8"), 0);

    save(makeLanguage("Latin"));
    hub->updateLanguagesPopup();
    chooseLanguage(QStringLiteral("Latin - English"));

    const QStringList read = readIndependently(path);
    EXPECT_EQ(read.filter(QLatin1String("y")).size(), 10);
    EXPECT_TRUE(read.contains(QStringLiteral("changed|y3")));
    EXPECT_TRUE(read.contains(QStringLiteral("f5|garden|y5")));
    EXPECT_TRUE(read.contains(QStringLiteral("g4|y4")));
    EXPECT_TRUE(read.contains(QStringLiteral("f8|y8")));
    EXPECT_TRUE(read.filter(QLatin1String("y7")).isEmpty());
}

} // namespace
