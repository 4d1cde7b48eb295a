#include "views/TAVMainWindowController.h"

#include "DeployerValues.h"
#include "app/ground/AppGround.h"
#include "app/ground/SettingsTable.h"
#include "document/VocabularyDocument.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/TAVStorageManager.h"
#include "usage/Consent.h"
#include "usage/KeenClient.h"
#include "views/FirstStartPage.h"
#include "views/LanguageMenu.h"
#include "views/MainMenu.h"
#include "views/MainPages.h"
#include "views/MainToolbar.h"
#include "views/Notices.h"
#include "views/TAVHelpController.h"
#include "views/TAVLexiconController.h"
#include "views/TAVUpdateController.h"
#include "views/WindowSize.h"
#include "widgets/Icons.h"

#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QUrl>

using namespace std::chrono_literals;
using platform::localized;

namespace {

/** Who hears of another language, and of the end of a sync, in this order; the others ask when they open. */
constexpr MainTab toldOfLanguage[] = {MainTab::Vocabulary, MainTab::Quizlet, MainTab::Statistics};
constexpr MainTab toldOfSync[] = {MainTab::Vocabulary, MainTab::Settings, MainTab::Quiz};

/** Seconds since 1970; a date that can't be had counts as 0. */
double secondsOf(const QDateTime &date)
{
    return date.isValid() ? double(date.toMSecsSinceEpoch()) / 1000 : 0.0;
}

} // namespace

TAVMainWindowController::TAVMainWindowController(VocabularyDocument &document)
    : m_document(document)
    , m_mainWindow(std::make_unique<QMainWindow>())
    , m_vocabularyController(std::make_unique<TAVLexiconController>(document))
{
    m_helpController = std::make_unique<TAVHelpController>(m_vocabularyController->view());
    buildWindow();
    m_languages = std::make_unique<LanguageMenu>(m_toolbar->languagesPopUp(), document);
    m_firstStart = std::make_unique<FirstStart>(m_firstStartPage, document, *this);
    m_menu = std::make_unique<MainMenu>(*this);
    connectActions();
}

TAVMainWindowController::~TAVMainWindowController()
{
    if (m_dropboxController)
        m_dropboxController->setDelegate(nullptr);
    m_mainWindow->removeEventFilter(this);
}

void TAVMainWindowController::buildWindow()
{
    QMainWindow *window = m_mainWindow.get();
    window->setObjectName(QStringLiteral("mainWindow"));
    window->setWindowTitle(QStringLiteral("Tavimo"));
    window->setWindowIcon(Icons::application());
    window->setContextMenuPolicy(Qt::NoContextMenu);
    window->setUnifiedTitleAndToolBarOnMac(true);
    m_toolbar = new MainToolbar(window);
    window->addToolBar(m_toolbar);
    m_pages = new MainPages(window);
    m_pages->setPage(MainTab::Vocabulary, m_vocabularyController.get());
    m_firstStartPage = new FirstStartPage(m_pages);
    m_pages->setFirstStartPage(m_firstStartPage);
    window->setCentralWidget(m_pages);
    window->setMinimumSize(640, 480);
    WindowSize::restore(*window);
    window->installEventFilter(this);
}

void TAVMainWindowController::connectActions()
{
    connect(m_toolbar, &MainToolbar::tabChosen, this, &TAVMainWindowController::callTab);
    connect(m_toolbar, &MainToolbar::addWordChosen, this, &TAVMainWindowController::addNewWord);
    connect(m_toolbar, &MainToolbar::languageChosen, this, &TAVMainWindowController::selectLanguage);
    connect(m_vocabularyController.get(), &TAVLexiconController::quizSelectedRequested, this,
            &TAVMainWindowController::showQuiz);
    connect(m_firstStartPage, &FirstStartPage::linkRequested, this,
            &TAVMainWindowController::linkWithDropbox);
}

void TAVMainWindowController::setPage(MainTab tab, Page *page)
{
    m_pages->setPage(tab, page);
    m_menu->setTabAvailable(tab, page != nullptr);
}

void TAVMainWindowController::setPreferencesController(PreferencesPage *controller)
{
    m_preferencesController = controller ? controller : &m_missingPreferences;
    setPage(MainTab::Settings, controller);
}

void TAVMainWindowController::setImporter(Importer *importer)
{
    m_importer = importer;
    m_menu->setImportAvailable(importer != nullptr);
}

void TAVMainWindowController::setExporterFactory(
    std::function<std::unique_ptr<Exporter>(TAVExporterDelegate *)> factory)
{
    m_makeExporter = std::move(factory);
    m_menu->setExportAvailable(bool(m_makeExporter));
}

void TAVMainWindowController::setActionsEnabled(bool enabled)
{
    m_toolbar->setActionsEnabled(enabled);
    m_menu->setActionsEnabled(enabled);
}

void TAVMainWindowController::setToolbarEnabled(bool enabled)
{
    setActionsEnabled(enabled);
    m_toolbar->languagesPopUp()->setEnabled(enabled);
}

TAVLexiconRef TAVMainWindowController::vocabulary() const
{
    return m_vocabularyController->vocabulary();
}

QString TAVMainWindowController::currentSavePath() const
{
    const TAVLexiconRef current = vocabulary();
    return current ? TAVStorageManager::savePathForVocabulary(*current) : QString();
}

// Start

void TAVMainWindowController::awakeFromNib()
{
    m_dropboxController = DropBoxController::sharedManager();
    m_dropboxController->setDelegate(this);
    m_dropboxController->setWindow(m_mainWindow.get());
    const auto languages = AppGround::loadAllAvailableLanguages();
    m_toolbar->select(MainTab::FirstStartSetup);
    if (languages.isEmpty()) {
        selectTab(MainTab::FirstStartSetup);
        m_firstStart->begin(m_dropboxController->isLinked());
        setToolbarEnabled(false);
    } else {
        const QString path = LanguageMenu::pathOfLast(languages);
        if (const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(path)) {
            m_vocabularyController->setVocabulary(loaded);
            LanguageMenu::rememberAsLast(*loaded);
        } else {
            m_vocabularyController->showNotLoaded(LanguageMenu::textAboutUnreadable(path));
        }
        updateLanguagesPopup();
        platform::clock().callAfter(500ms, this, [this] {
            showVocabulary();
            updateLanguagesPopup();
        });
    }
    m_updateController = std::make_unique<TAVUpdateController>();
    m_menu->insertUpdateItem(m_updateController->updateMenuItem());
    m_toolbar->show();
    platform::clock().callAfter(5s, this, [this] { doSync(); });
}

void TAVMainWindowController::applicationDidFinishLaunching()
{
    const TAVLexiconRef current = vocabulary();
    if (!isUsageReported() || !current)
        return;
    KeenClient::sharedClient()->addEvent({{QStringLiteral("yourLanguage"), current->yourLanguageName()},
                                          {QStringLiteral("foreignLanguage"), current->foreignLanguageName()},
                                          {QStringLiteral("noOfWords"), current->countAllWords()}},
                                         QStringLiteral("languageInfo"));
    KeenClient::sharedClient()->upload();
}

void TAVMainWindowController::updateViews()
{
    m_vocabularyController->updateEntireView();
    doSync();
    if (selectedTab() == MainTab::Quiz)
        showQuiz();
}

void TAVMainWindowController::tell(const QString &name, const QString &text)
{
    m_vocabularyController->tell(name, text);
    m_firstStartPage->notices().tell(name, text);
}

// Languages

void TAVMainWindowController::updateLanguagesPopup()
{
    m_languages->update();
}

void TAVMainWindowController::selectLanguage()
{
    if (m_languages->isManageEntryChosen()) {
        m_languages->selectCurrentLanguage();
        showPreferences();
        m_preferencesController->showLanguages();
        return;
    }
    const TAVLexiconRef loaded = m_languages->loadChosen();
    if (!loaded)
        return;
    for (const MainTab tab : toldOfLanguage)
        m_pages->page(tab).vocabularyChanged(loaded);
    if (selectedTab() == MainTab::Quiz)
        showQuiz();
    else if (selectedTab() == MainTab::Statistics)
        showStatistics();
    LanguageMenu::rememberAsLast(*loaded);
    m_vocabularyController->updateEntireView();
    // Letters typed next would choose another language.
    if (selectedTab() == MainTab::Vocabulary)
        m_vocabularyController->focusOnList();
}

// Tabs

MainTab TAVMainWindowController::selectedTab() const
{
    return m_pages->selectedTab();
}

void TAVMainWindowController::selectTab(MainTab tab)
{
    m_toolbar->select(tab);
    m_helpController->closeHelp();
    m_pages->select(tab);
    m_menu->updateUndo();
}

void TAVMainWindowController::callTab(MainTab tab)
{
    switch (tab) {
    case MainTab::Vocabulary:
        return showVocabulary();
    case MainTab::Quiz:
        return showQuiz();
    case MainTab::Quizlet:
        return showQuizlet();
    case MainTab::Statistics:
        return showStatistics();
    case MainTab::Settings:
        return showPreferences();
    case MainTab::FirstStartSetup:
        break;
    }
}

void TAVMainWindowController::leaveVocabularyPage()
{
    m_vocabularyController->closeAddWordPopover();
    m_vocabularyController->closeHelp();
}

void TAVMainWindowController::enterPage(MainTab tab)
{
    m_pages->page(tab).enter(vocabulary());
    platform::clock().callAfter(500ms, this, [this, tab] { m_pages->page(tab).layoutDone(); });
    selectTab(tab);
}

void TAVMainWindowController::showVocabulary()
{
    doSync();
    m_firstStart->end();
    enterPage(MainTab::Vocabulary);
    if (!settings::hasShownVocabularyHelp.value()) {
        settings::hasShownVocabularyHelp.set(true);
        platform::settings().synchronize();
        m_helpController->showVocabularyHelp();
    }
}

void TAVMainWindowController::showQuiz()
{
    const TAVLexiconRef current = vocabulary();
    platform::diagnosticLog(QStringLiteral("show quiz > vocabulary %1")
                                .arg(current ? current->foreignLanguageName() : QStringLiteral("(null)")));
    doSync();
    m_pages->page(MainTab::Quiz).willEnter(m_vocabularyController->getSelectedWordsArray());
    m_vocabularyController->closeAddWordPopover();
    m_vocabularyController->deselectWords();
    m_vocabularyController->closeHelp();
    enterPage(MainTab::Quiz);
}

void TAVMainWindowController::showQuizlet()
{
    doSync();
    leaveVocabularyPage();
    enterPage(MainTab::Quizlet);
}

void TAVMainWindowController::showStatistics()
{
    doSync();
    leaveVocabularyPage();
    enterPage(MainTab::Statistics);
}

void TAVMainWindowController::showPreferences()
{
    doSync();
    leaveVocabularyPage();
    m_preferencesController->setDelegate(this);
    enterPage(MainTab::Settings);
}

// Actions

void TAVMainWindowController::addNewWord()
{
    showVocabulary();
    m_vocabularyController->showAddWordPanel();
}

void TAVMainWindowController::import()
{
    // Each end of an import saves, and would write the empty word of an open addition to the file.
    m_vocabularyController->closeAddWordPopover();
    if (m_importer)
        m_importer->showOpenSheetWithVocabulary(vocabulary(), this);
}

void TAVMainWindowController::exportVocabulary()
{
    if (!m_exporter && m_makeExporter)
        m_exporter = m_makeExporter(this);
    if (m_exporter)
        m_exporter->showExportWithVocabulary(vocabulary());
}

void TAVMainWindowController::showAbout()
{
    platform::services().alerts->show(
        {QStringLiteral("Tavimo"),
         localized("MainWindow", "aboutText").arg(QString::fromLatin1(deployer::version)),
         {localized("MainWindow", "ok")}});
}

void TAVMainWindowController::visitSupport()
{
    platform::services().browser->openUrl(QUrl(localized("MainWindow", "supportURL")));
}

void TAVMainWindowController::goToAppSupportFolder()
{
    platform::services().browser->openFolder(AppGround::applicationSupportFolder());
}

void TAVMainWindowController::doSync()
{
    if (m_dropboxController)
        m_dropboxController->syncWithDropbox();
}

// First start

void TAVMainWindowController::beginWith(const TAVLexiconRef &vocabulary)
{
    m_vocabularyController->setVocabulary(vocabulary);
    m_vocabularyController->updateEntireView();
    updateLanguagesPopup();
    setToolbarEnabled(true);
}

void TAVMainWindowController::linkWithDropbox()
{
    m_dropboxController->setDelegate(this);
    m_dropboxController->setIsEnabled(true);
}

void TAVMainWindowController::changeSelectedSyncService(int column)
{
    m_firstStartPage->selectSyncService(column);
}

void TAVMainWindowController::closeHelp()
{
    m_helpController->closeHelp();
}

// Answers

void TAVMainWindowController::dropboxControllerDidFinishSync()
{
    if (vocabulary()) {
        const QDateTime fileDate = QFileInfo(currentSavePath()).lastModified();
        if (secondsOf(fileDate) != secondsOf(m_vocabularyLastLoadedDate)) {
            m_vocabularyController->reloadVocabularyFromDisk();
            // The reload itself may write the file again; its date then differs at the next sync too.
            m_vocabularyLastLoadedDate = fileDate;
        }
    }
    updateLanguagesPopup();
    m_firstStartPage->showSynced();
    for (const MainTab tab : toldOfSync)
        m_pages->page(tab).syncEnded();
}

void TAVMainWindowController::dropboxControllerDidLinkSuccessfully()
{
    if (isInFirstSetupMode()) {
        m_firstStartPage->showLinked();
        doSync();
        return;
    }
    platform::clock().callAfter(2s, this, [this] { m_preferencesController->showSyncing(); });
}

void TAVMainWindowController::dropboxControllerFailedToLink()
{
    m_preferencesController->showSyncing();
}

void TAVMainWindowController::preferencesDidChangeVocabularyAtPath(const QString &path)
{
    const QString present = currentSavePath();
    const bool isThere = !present.isEmpty() && QFileInfo::exists(present);
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(isThere ? present : path);
    if (loaded)
        m_vocabularyController->setVocabulary(loaded);
    updateLanguagesPopup();
}

void TAVMainWindowController::preferencesDidDeleteVocabularyAtPath(const QString &path)
{
    updateLanguagesPopup();
    if (path.isEmpty() || path != currentSavePath())
        return;
    m_languages->selectYoungest();
    selectLanguage();
}

void TAVMainWindowController::importDidEnd(Importer *)
{
    m_document.commit(Change::WordsImported, vocabulary());
    updateLanguagesPopup();
    showVocabulary();
    m_document.proceed(Change::WordsImported, 1, vocabulary());
}

bool TAVMainWindowController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_mainWindow.get() && event->type() == QEvent::Resize) {
        for (const MainTabInfo &info : toolbarTabs)
            m_pages->page(info.tab).windowDidResize();
    }
    if (watched == m_mainWindow.get() && event->type() == QEvent::Close) {
        WindowSize::remember(*m_mainWindow);
        m_vocabularyController->rememberTableLayout();
    }
    return QObject::eventFilter(watched, event);
}
