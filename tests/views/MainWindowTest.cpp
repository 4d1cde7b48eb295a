#include "ViewsTest.h"

#include "storage/LanguageName.h"
#include "usage/KeenClient.h"
#include "views/TAVHelpController.h"
#include "views/TAVUpdateController.h"
#include "views/editor/TAVWordPopoverController.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QToolButton>

namespace {

using MainWindowTest = ViewsTest;

/** Takes down what would be reported. */
class RecordingUsage : public KeenClient
{
public:
    RecordingUsage() { setSharedClient(this); }
    ~RecordingUsage() override { setSharedClient(nullptr); }
    void addEvent(const QVariantMap &event, const QString &collection) override
    {
        QStringList parts{collection};
        for (auto entry = event.begin(); entry != event.end(); ++entry)
            parts.append(entry.key() + QLatin1Char('=') + entry.value().toString());
        calls.append(parts.join(QLatin1Char(' ')));
    }
    void upload() override { calls.append(QStringLiteral("upload")); }
    QStringList calls;
};

TEST_F(MainWindowTest, OpensTheLastLanguageOrTheFirst)
{
    save(makeItalian());
    age(save(makeLanguage("Latin")));
    services.settings.setValue(QStringLiteral("lastActiveLanguage"), QStringLiteral("Latin - English"));
    start();
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Latin"));
    EXPECT_EQ(control<QComboBox>("languagesPopUp")->currentText(), QStringLiteral("Latin - English"));
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary);
    hub.reset();

    services.settings.setValue(QStringLiteral("lastActiveLanguage"), QStringLiteral("Gone - English"));
    start();
    ASSERT_TRUE(vocabulary());
    EXPECT_EQ(services.settings.value(QStringLiteral("lastActiveLanguage")),
              TAVStorageManager::displayNameForVocabulary(*vocabulary()));
}

TEST_F(MainWindowTest, StandsWithoutAVocabularyWhereItCannotBeLoaded)
{
    const QString path = save(makeLanguage("Broken"));
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    age(save(makeItalian()));
    services.settings.setValue(QStringLiteral("lastActiveLanguage"), QStringLiteral("Broken - English"));
    start();
    EXPECT_FALSE(vocabulary());
    EXPECT_EQ(services.settings.value(QStringLiteral("lastActiveLanguage")),
              QStringLiteral("Broken - English"));
    EXPECT_TRUE(control<QLabel>("notLoadedLabel")->isVisible()) << "an empty list would look like total loss";
    EXPECT_TRUE(text("notLoadedLabel").startsWith(QStringLiteral("‘Broken - English’")));

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
    hub->showVocabulary();
    EXPECT_FALSE(control<QLabel>("notLoadedLabel")->isVisible());
}

TEST_F(MainWindowTest, AFirstLanguageIsMadeByItsName)
{
    start();
    EXPECT_TRUE(hub->isInFirstSetupMode());
    EXPECT_EQ(hub->selectedTab(), MainTab::FirstStartSetup);
    EXPECT_FALSE(control<QToolButton>("showQuiz")->isEnabled());
    EXPECT_FALSE(control<QComboBox>("languagesPopUp")->isEnabled());
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
    recorder.watch(AppGround::vocabularyFolderPath() + QStringLiteral("/Italian - English.tavv"),
                   table()->model());
    button->click();
    EXPECT_EQ(recorder.take(), QStringLiteral("mark* save reload reload sync sync reload"));
    EXPECT_FALSE(hub->isInFirstSetupMode());
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), QStringLiteral("Italian"));
    EXPECT_TRUE(QFile::exists(TAVStorageManager::savePathForVocabulary(*vocabulary())));
    EXPECT_TRUE(control<QToolButton>("showQuiz")->isEnabled());
    EXPECT_TRUE(control<QComboBox>("languagesPopUp")->isEnabled());

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
    recorder.take();
    hub->dropboxControllerDidLinkSuccessfully();
    EXPECT_EQ(recorder.take(), QStringLiteral("sync"));
    EXPECT_FALSE(link->isEnabled());
    EXPECT_TRUE(control<QLabel>("firstSyncCheckMark2")->isVisible());
    EXPECT_TRUE(control<QWidget>("firstSyncProgress")->isVisible());
    hub->dropboxControllerDidFinishSync();
    EXPECT_FALSE(control<QWidget>("firstSyncProgress")->isVisible());
    EXPECT_TRUE(begin->isVisible());
    begin->click();
    EXPECT_EQ(services.alerts.shown.last().title, QStringLiteral("No languages found"));
    EXPECT_FALSE(begin->isVisible());
    EXPECT_TRUE(link->isEnabled());

    save(makeItalian());
    hub->dropboxControllerDidFinishSync();
    EXPECT_FALSE(control<QToolButton>("showQuiz")->isEnabled());
    begin->click();
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary);
    EXPECT_TRUE(control<QToolButton>("showQuiz")->isEnabled());
    hub.reset();

    ASSERT_TRUE(QDir(AppGround::vocabularyFolderPath()).removeRecursively());
    recorder.linked = true;
    start();
    EXPECT_FALSE(control<QPushButton>("firstSyncLinkDBButton")->isEnabled()) << "there is nothing to link";
    EXPECT_TRUE(control<QLabel>("firstSyncCheckMark2")->isVisible());
    EXPECT_TRUE(control<QWidget>("firstSyncProgress")->isVisible());
}

TEST_F(MainWindowTest, OnlyWithConsentTheLanguageIsReported)
{
    RecordingUsage usage;
    start();
    services.settings.setValue(QStringLiteral("isEnableUserStatistics"), true);
    hub->applicationDidFinishLaunching();
    EXPECT_TRUE(usage.calls.isEmpty()) << "there is no language yet";
    save(makeItalian());
    start();
    for (const bool isEnabled : {false, true}) {
        for (const bool isDisabled : {true, false}) {
            services.settings.setValue(QStringLiteral("isEnableUserStatistics"), isEnabled);
            services.settings.setValue(QStringLiteral("isDisableUserStatistics"), isDisabled);
            usage.calls.clear();
            hub->applicationDidFinishLaunching();
            EXPECT_EQ(usage.calls.isEmpty(), !isEnabled || isDisabled) << isEnabled << isDisabled;
        }
    }
    EXPECT_EQ(usage.calls, QStringList({QStringLiteral("languageInfo foreignLanguage=Italian noOfWords=3 "
                                                       "yourLanguage=English"),
                                        QStringLiteral("upload")}));
}

TEST_F(MainWindowTest, TheWindowComesBackInItsSize)
{
    startWith(makeItalian());
    const QSize screen = hub->mainWindow()->screen()->availableSize();
    const QSize small = QSize(800, 610).boundedTo(screen);
    hub->mainWindow()->resize(small);
    hub->mainWindow()->close();
    start();
    EXPECT_EQ(hub->mainWindow()->size(), small);
    for (const char *other : {"wide", "", "100000x100000"}) {
        services.settings.setValue(QStringLiteral("mainWindowSize"), QLatin1String(other));
        start();
        const QSize wanted = qstrcmp(other, "100000x100000") == 0 ? screen : QSize(1080, 720);
        EXPECT_EQ(hub->mainWindow()->size(), wanted.boundedTo(screen)) << other;
    }
}

TEST_F(MainWindowTest, HelpShowsOnceByItself)
{
    services.settings.remove(QStringLiteral("hasShownVocabularyHelp"));
    startWith(makeItalian());
    EXPECT_TRUE(hub->helpController()->isShowing());
    EXPECT_EQ(services.settings.value(QStringLiteral("hasShownVocabularyHelp")), true);
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

    struct RecordingExporter : Exporter
    {
        explicit RecordingExporter(QList<TAVLexiconRef> &log)
            : exported(log)
        {
        }
        void showExportWithVocabulary(const TAVLexiconRef &given) override { exported.append(given); }
        QList<TAVLexiconRef> &exported;
    };
    QList<TAVLexiconRef> exported;
    int made = 0;
    hub->setExporterFactory([&](TAVExporterDelegate *delegate) {
        EXPECT_EQ(delegate->mainWindow(), hub->mainWindow());
        ++made;
        return std::make_unique<RecordingExporter>(exported);
    });
    EXPECT_EQ(made, 0);
    menuItem("export")->trigger();
    menuItem("export")->trigger();
    EXPECT_EQ(made, 1);
    EXPECT_EQ(exported, QList<TAVLexiconRef>({vocabulary(), vocabulary()}));

    QStringList titles;
    for (int i = 0; i < 3; ++i) {
        titles.append(menuItem("showSynonyms")->text());
        menuItem("showSynonyms")->trigger();
    }
    EXPECT_EQ(titles, QStringList({QStringLiteral("Show synonyms"), QStringLiteral("Show all words"),
                                   QStringLiteral("Show synonyms")}));

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
