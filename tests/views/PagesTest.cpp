#include "ViewsTest.h"

#include "views/editor/TAVWordPopoverController.h"

#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/** Stands for a page of the window, and has the recorder note what it is told: "quiz.enter:3". */
class RecordingPage : public PreferencesPage
{
public:
    RecordingPage(const char *name, Recorder &recorder)
        : m_name(QLatin1String(name))
        , m_recorder(recorder)
    {
    }
    QWidget *page() override { return new QWidget; }
    void willEnter(const TAVWordList &words) override { note(u"willEnter:%1"_s.arg(words.size())); }
    void enter(const TAVLexiconRef &vocabulary) override
    {
        note(u"enter:%1"_s.arg(vocabulary->countAllWords()));
    }
    void layoutDone() override { note(u"layoutDone"_s); }
    void vocabularyChanged(const TAVLexiconRef &vocabulary) override
    {
        note(u"vocabulary:%1"_s.arg(vocabulary->countAllWords()));
    }
    void syncEnded() override { note(u"synced"_s); }
    void windowDidResize() override { note(u"resized"_s); }
    void setDelegate(TAVPreferencesDelegate *receiver) override { delegate = receiver; }
    void showLanguages() override { note(u"showLanguages"_s); }
    void showSyncing() override { note(u"showSyncing"_s); }

    TAVPreferencesDelegate *delegate = nullptr;

private:
    void note(const QString &what) { m_recorder.note(m_name + u'.' + what); }

    QString m_name;
    Recorder &m_recorder;
};

class PagesTest : public ViewsTest
{
protected:
    void makeHub()
    {
        hub = std::make_unique<TAVMainWindowController>(document);
        hub->setQuizSetupController(&quiz);
        hub->setQuizletController(&quizlet);
        hub->setStatisticsController(&statistics);
        hub->setPreferencesController(&settings);
    }
    /** Italian, the youngest, and Latin without words. No file is watched, as that would make it older. */
    void startWithPages()
    {
        age(save(makeLanguage("Latin")));
        save(makeItalian());
        services.settings.setValue(u"lastActiveLanguage"_s, u"Italian - English"_s);
        makeHub();
        hub->awakeFromNib();
        hub->mainWindow()->show();
        services.clock.advanceSeconds(1);
        recorder.watch({}, table()->model());
    }
    /** Of the language that is chosen next. */
    void watchLatin()
    {
        recorder.watch(TAVStorageManager::savePathForVocabulary(*makeLanguage("Latin")), table()->model());
    }
    bool isHelpShown() const
    {
        return !control<QWidget>("noWordsTabView")->isHidden() ||
               !control<QWidget>("searchBackgroundView")->isHidden();
    }

    RecordingPage quiz{"quiz", recorder};
    RecordingPage quizlet{"quizlet", recorder};
    RecordingPage statistics{"statistics", recorder};
    RecordingPage settings{"settings", recorder};
};

TEST_F(PagesTest, TheStartShowsTheWordsAndThenAsksForASync)
{
    const QString path = save(makeItalian());
    makeHub();
    EXPECT_EQ(recorder.delegate, nullptr);
    recorder.watch(path, table()->model());
    hub->awakeFromNib();
    EXPECT_EQ(recorder.delegate, hub.get());
    EXPECT_EQ(recorder.window, hub->mainWindow());
    EXPECT_EQ(recorder.take(), u"save reload"_s) << "no sync before the page is shown";
    services.clock.advanceSeconds(0.5);
    EXPECT_EQ(recorder.take(), u"sync reload"_s);
    services.clock.advanceSeconds(4.4);
    EXPECT_EQ(recorder.take(), QString());
    services.clock.advanceSeconds(0.1);
    EXPECT_EQ(recorder.take(), u"sync"_s);
}

TEST_F(PagesTest, OnlyAChoiceByTheUserSwitchesTheLanguage)
{
    startWithPages();
    auto *popUp = control<QComboBox>("languagesPopUp");
    popUp->setCurrentIndex(popUp->findText(u"Latin - English"_s));
    hub->updateLanguagesPopup();
    QWheelEvent wheel(QPointF(5, 5), popUp->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(popUp, &wheel);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), u"Italian"_s);
    EXPECT_EQ(languages(),
              QStringList({u"Italian - English"_s, u"Latin - English"_s, QString(), u"Manage Languages…"_s}));

    chooseLanguage(u"Latin - English"_s);
    EXPECT_EQ(services.settings.value(u"lastActiveLanguage"_s), u"Latin - English"_s);
    EXPECT_EQ(languages().first(), u"Italian - English"_s) << "the menu isn't rebuilt by the choice";
    age(TAVStorageManager::savePathForVocabulary(*vocabulary()));
    hub->updateLanguagesPopup();
    EXPECT_EQ(popUp->currentText(), u"Latin - English"_s) << "the current language, not the youngest";

    recorder.take();
    chooseLanguage(u"Manage Languages…"_s);
    EXPECT_EQ(popUp->currentText(), u"Latin - English"_s);
    EXPECT_EQ(recorder.take(), u"sync settings.enter:0 settings.showLanguages"_s);
    EXPECT_EQ(hub->selectedTab(), MainTab::Settings);

    ASSERT_TRUE(QFile::remove(TAVStorageManager::savePathForVocabulary(*makeItalian())));
    chooseLanguage(u"Italian - English"_s);
    EXPECT_TRUE(services.diagnosticLines.contains(u"VocController > selectLanguage > file not found"_s));
    EXPECT_EQ(vocabulary()->foreignLanguageName(), u"Latin"_s);
    EXPECT_EQ(recorder.take(), QString());
}

TEST_F(PagesTest, AnotherLanguageReachesThePagesInOrder)
{
    const struct
    {
        const char *tab;
        const char *between;
    } cases[] = {
        {"showVocabulary", ""},  {"showQuiz", "sync quiz.willEnter:0 quiz.enter:0 "},
        {"showQuizlet", ""},     {"showStatistics", "sync statistics.enter:0 "},
        {"showPreferences", ""},
    };
    startWithPages();
    for (const auto &each : cases) {
        SCOPED_TRACE(each.tab);
        chooseLanguage(u"Italian - English"_s);
        click(each.tab);
        services.clock.advanceSeconds(1);
        watchLatin();
        chooseLanguage(u"Latin - English"_s);
        EXPECT_EQ(recorder.take(), u"save sync reload quizlet.vocabulary:0 statistics.vocabulary:0 "_s +
                                       QLatin1String(each.between) + u"reload"_s);
    }
}

TEST_F(PagesTest, TabsTellTheirPagesWhatTheyNeed)
{
    startWithPages();
    table()->selectAll();
    control<QLineEdit>("searchField")->setText(u"o"_s);
    table()->selectAll();
    recorder.take();
    click("showQuiz");
    EXPECT_EQ(recorder.take(), u"sync quiz.willEnter:2 quiz.enter:3"_s);
    EXPECT_TRUE(words()->getSelectedWordsArray().isEmpty());
    EXPECT_FALSE(isHelpShown());
    services.clock.advanceSeconds(0.5);
    EXPECT_EQ(recorder.take(), u"quiz.layoutDone"_s);
    const struct
    {
        const char *tab;
        const char *told;
    } cases[] = {{"showQuizlet", "sync quizlet.enter:3"},
                 {"showStatistics", "sync statistics.enter:3"},
                 {"showPreferences", "sync settings.enter:3"}};
    for (const auto &each : cases) {
        SCOPED_TRACE(each.tab);
        click("showVocabulary");
        EXPECT_TRUE(isHelpShown());
        table()->selectOnlyRow(0);
        EXPECT_TRUE(words()->wordEditor()->isPanelVisible());
        recorder.take();
        click(each.tab);
        EXPECT_EQ(recorder.take(), QLatin1String(each.told));
        EXPECT_FALSE(isHelpShown());
        EXPECT_FALSE(words()->wordEditor()->isPanelVisible()) << "no panel over another page";
    }
    EXPECT_EQ(settings.delegate, hub.get());
    menuItem("search")->trigger();
    EXPECT_EQ(hub->selectedTab(), MainTab::Vocabulary) << "what is for the words brings their page";
}

TEST_F(PagesTest, AnUnfinishedWordDoesNotOutliveItsPage)
{
    startWithPages();
    words()->showAddWordPanel();
    click("showStatistics");
    EXPECT_EQ(vocabulary()->countAllWords(), 3);
    EXPECT_FALSE(words()->wordEditor()->isPanelVisible());

    // "Add and next" opens the next word half a second later, but not for one who has gone on.
    click("showVocabulary");
    words()->showAddWordPanel();
    control<QLineEdit>("foreignWordTextField")->setText(u"pane"_s);
    control<QPushButton>("okButton")->click();
    click("showStatistics");
    recorder.take();
    services.clock.advanceSeconds(1);
    EXPECT_EQ(recorder.take().count(u"sync"_s), 1) << "the word that was added before waits for it";
    EXPECT_EQ(vocabulary()->countAllWords(), 4);
    EXPECT_FALSE(words()->wordEditor()->isPanelVisible());
}

TEST_F(PagesTest, TheWindowTellsOfItsSizeAndTheToolbarCanBeSwitchedOff)
{
    startWithPages();
    hub->mainWindow()->resize(900, 650);
    processEvents();
    EXPECT_TRUE(recorder.take().contains(u"statistics.resized"_s));

    hub->disableAllToolbarItems();
    QTest::keyClick(hub->mainWindow(), Qt::Key_2, Qt::ControlModifier);
    click("showQuiz");
    EXPECT_EQ(recorder.take(), QString());
    EXPECT_FALSE(control<QComboBox>("languagesPopUp")->isEnabled());
    hub->enableAllToolbarItems();
    EXPECT_TRUE(control<QComboBox>("languagesPopUp")->isEnabled());
    QTest::keyClick(hub->mainWindow(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(recorder.take(), u"sync quiz.willEnter:0 quiz.enter:3"_s);
}

TEST_F(PagesTest, StartedAgainItBringsTheShownPageUpToDate)
{
    startWithPages();
    hub->updateViews();
    EXPECT_EQ(recorder.take(), u"reload sync"_s);
    click("showQuiz");
    services.clock.advanceSeconds(1);
    recorder.take();
    hub->updateViews();
    EXPECT_EQ(recorder.take(), u"reload sync sync quiz.willEnter:0 quiz.enter:3"_s);
}

TEST_F(PagesTest, ASyncReloadsAFileThatHasChanged)
{
    startWithPages();
    TAVLexiconRef before = vocabulary();
    hub->dropboxControllerDidFinishSync();
    EXPECT_NE(vocabulary(), before) << "the first sync always reloads";
    EXPECT_EQ(recorder.take(), u"sync reload settings.synced quiz.synced"_s);

    before = vocabulary();
    hub->dropboxControllerDidFinishSync();
    EXPECT_NE(vocabulary(), before) << "the reload has saved, so the next sync reloads again";

    // With the editor open nothing is saved, and the date stays in step.
    table()->selectOnlyRow(0);
    hub->dropboxControllerDidFinishSync();
    before = vocabulary();
    recorder.take();
    hub->dropboxControllerDidFinishSync();
    EXPECT_EQ(vocabulary(), before);
    EXPECT_EQ(recorder.take(), u"settings.synced quiz.synced"_s);

    save(makeLanguage("Greek"));
    hub->dropboxControllerDidFinishSync();
    EXPECT_TRUE(languages().contains(u"Greek - English"_s)) << "from another machine";
    recorder.take();

    hub->dropboxControllerDidLinkSuccessfully();
    EXPECT_EQ(recorder.take(), QString());
    services.clock.advanceSeconds(2);
    EXPECT_EQ(recorder.take(), u"settings.showSyncing"_s);
    hub->dropboxControllerFailedToLink();
    EXPECT_EQ(recorder.take(), u"settings.showSyncing"_s);
}

TEST_F(PagesTest, ChangedAndDeletedLanguagesAreFollowed)
{
    startWithPages();
    const QString latin = TAVStorageManager::savePathForVocabulary(*makeLanguage("Latin"));
    const QString italian = TAVStorageManager::savePathForVocabulary(*vocabulary());
    hub->preferencesDidDeleteVocabularyAtPath(latin);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), u"Italian"_s);

    ASSERT_TRUE(QFile::remove(italian));
    hub->preferencesDidChangeVocabularyAtPath(latin);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), u"Latin"_s);
    const QString renamed = save(makeItalian());
    hub->preferencesDidChangeVocabularyAtPath(renamed);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), u"Latin"_s) << "its own file still stands";

    ASSERT_TRUE(QFile::remove(latin));
    hub->preferencesDidDeleteVocabularyAtPath(latin);
    EXPECT_EQ(vocabulary()->foreignLanguageName(), u"Italian"_s);

    save(makeLanguage("Greek"));
    EXPECT_FALSE(languages().contains(u"Greek - English"_s));
    hub->preferencesDidClose();
    EXPECT_TRUE(languages().contains(u"Greek - English"_s));
}

} // namespace
