#include "app/ground/SettingsKeys.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/TAVStorageManager.h"
#include "usage/KeenClient.h"
#include "views/FirstStartPage.h"
#include "views/MainMenu.h"
#include "views/MainToolbar.h"
#include "views/TAVHelpController.h"
#include "views/TAVLexiconController.h"
#include "views/TAVMainWindowController.h"
#include "views/TAVUpdateController.h"
#include "widgets/Icons.h"

#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace std::chrono_literals;
using platform::localized;

namespace {

constexpr QSize usualSize(1080, 720);
constexpr QSize smallestSize(800, 600);

} // namespace

TAVMainWindowController::TAVMainWindowController()
    : m_mainWindow(std::make_unique<QMainWindow>())
    , m_vocabularyController(std::make_unique<TAVLexiconController>())
{
    m_helpController = std::make_unique<TAVHelpController>(m_vocabularyController->view());
    buildWindow();
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

    m_mainTabView = new QStackedWidget(window);
    m_mainTabView->setObjectName(QStringLiteral("mainTabView"));
    for (const MainTabInfo &info : toolbarTabs) {
        auto *frame = new QWidget(m_mainTabView);
        frame->setObjectName(QLatin1String(info.identifier));
        auto *layout = new QVBoxLayout(frame);
        layout->setContentsMargins({});
        layout->addWidget(info.tab == MainTab::Vocabulary ? m_vocabularyController->view()
                                                          : makeCalmPage(info.tab));
        m_mainTabView->addWidget(frame);
    }
    m_firstStartPage = new FirstStartPage(m_mainTabView);
    m_firstStartPage->setObjectName(QStringLiteral("TMTabIDFirstStartSetup"));
    m_mainTabView->addWidget(m_firstStartPage);
    window->setCentralWidget(m_mainTabView);

    window->setMinimumSize(640, 480);
    setWindowSizeFromSettings();
    window->installEventFilter(this);
}

QWidget *TAVMainWindowController::makeCalmPage(MainTab tab)
{
    Q_UNUSED(tab)
    auto *label = new QLabel(localized("MainWindow", "notYetBuilt"));
    label->setAlignment(Qt::AlignCenter);
    label->setEnabled(false);
    return label;
}

void TAVMainWindowController::connectActions()
{
    connect(m_toolbar, &MainToolbar::tabChosen, this, &TAVMainWindowController::callTab);
    connect(m_toolbar, &MainToolbar::addWordChosen, this, &TAVMainWindowController::addNewWord);
    connect(m_toolbar, &MainToolbar::languageChosen, this, &TAVMainWindowController::selectLanguage);
    connect(m_vocabularyController.get(), &TAVLexiconController::quizSelectedRequested, this,
            &TAVMainWindowController::showQuiz);
    connect(m_firstStartPage, &FirstStartPage::getStartedRequested, this,
            &TAVMainWindowController::setFirstLanguage);
    connect(m_firstStartPage, &FirstStartPage::linkRequested, this,
            &TAVMainWindowController::linkWithDropbox);
    connect(m_firstStartPage, &FirstStartPage::getStartedAfterSyncRequested, this,
            &TAVMainWindowController::getStartedAfterSync);
}

void TAVMainWindowController::setPage(MainTab tab, QWidget *page)
{
    m_menu->setTabAvailable(tab, page != nullptr);
    QWidget *frame = m_mainTabView->widget(int(tab));
    QLayoutItem *present = frame->layout()->takeAt(0);
    delete present->widget();
    delete present;
    frame->layout()->addWidget(page ? page : makeCalmPage(tab));
}

void TAVMainWindowController::setQuizSetupController(QuizPage *controller)
{
    m_quizSetupController = controller;
    setPage(MainTab::Quiz, controller->page());
}

void TAVMainWindowController::setQuizletController(QuizletPage *controller)
{
    m_quizletController = controller;
    setPage(MainTab::Quizlet, controller->page());
}

void TAVMainWindowController::setStatisticsController(StatisticsPage *controller)
{
    m_statisticsController = controller;
    setPage(MainTab::Statistics, controller->page());
}

void TAVMainWindowController::setPreferencesController(PreferencesPage *controller)
{
    m_preferencesController = controller;
    setPage(MainTab::Settings, controller->page());
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

void TAVMainWindowController::disableAllToolbarItems()
{
    setActionsEnabled(false);
    m_toolbar->languagesPopUp()->setEnabled(false);
}

void TAVMainWindowController::enableAllToolbarItems()
{
    setActionsEnabled(true);
    m_toolbar->languagesPopUp()->setEnabled(true);
}

void TAVMainWindowController::applicationDidFinishLaunching()
{
    const bool isAgreed = !platform::settings().boolean(settingskeys::isDisableUserStatistics) &&
                          platform::settings().boolean(settingskeys::isEnableUserStatistics);
    const TAVLexiconRef current = vocabulary();
    if (!isAgreed || !current)
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

void TAVMainWindowController::dropboxControllerDidFinishSync()
{
    if (vocabulary()) {
        const auto secondsOf = [](const QDateTime &date) {
            return date.isValid() ? double(date.toMSecsSinceEpoch()) / 1000 : 0.0;
        };
        const QDateTime fileDate = QFileInfo(currentSavePath()).lastModified();
        if (secondsOf(fileDate) != secondsOf(m_vocabularyLastLoadedDate)) {
            m_vocabularyController->reloadVocabularyFromDisk();
            // The reload itself may write the file again; its date then differs at the next sync too.
            m_vocabularyLastLoadedDate = fileDate;
        }
    }
    updateLanguagesPopup();
    m_firstStartPage->showSynced();
    m_vocabularyController->cloudControllerDidSync();
    if (m_preferencesController)
        m_preferencesController->cloudControllerDidSync();
    if (m_quizSetupController)
        m_quizSetupController->quizListsToAskChanged();
}

void TAVMainWindowController::dropboxControllerDidLinkSuccessfully()
{
    if (m_isInFirstSetupMode) {
        m_firstStartPage->showLinked();
        doSync();
        return;
    }
    platform::clock().callAfter(2s, this, [this] {
        if (m_preferencesController)
            m_preferencesController->showSyncing();
    });
}

void TAVMainWindowController::dropboxControllerFailedToLink()
{
    if (m_preferencesController)
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
    m_toolbar->languagesPopUp()->setCurrentIndex(0);
    selectLanguage();
}

void TAVMainWindowController::preferencesDidClose()
{
    updateLanguagesPopup();
}

void TAVMainWindowController::importDidEnd(Importer *importer)
{
    Q_UNUSED(importer)
    const TAVLexiconRef current = vocabulary();
    if (current) {
        current->setNeedsSync(true);
        m_dropboxController->markFileAsNeedsSync(*current);
        TAVStorageManager::saveVocabulary(current);
    }
    updateLanguagesPopup();
    showVocabulary();
    m_dropboxController->syncWithDropbox();
}

void TAVMainWindowController::setWindowSizeFromSettings()
{
    const QString stored = platform::settings().text(settingskeys::mainWindowSize);
    const QSize wanted(stored.section(QLatin1Char('x'), 0, 0).toInt(),
                       stored.section(QLatin1Char('x'), 1).toInt());
    QSize size = wanted.width() > 0 && wanted.height() > 0 ? wanted.expandedTo(smallestSize) : usualSize;
    if (const QScreen *screen = m_mainWindow->screen())
        size = size.boundedTo(screen->availableSize());
    m_mainWindow->resize(size);
}

void TAVMainWindowController::rememberWindow()
{
    const QSize size = m_mainWindow->normalGeometry().isValid() ? m_mainWindow->normalGeometry().size()
                                                                : m_mainWindow->size();
    platform::settings().setValue(
        settingskeys::mainWindowSize,
        QStringLiteral("%1x%2").arg(QString::number(size.width()), QString::number(size.height())));
    m_vocabularyController->rememberTableLayout();
}

bool TAVMainWindowController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_mainWindow.get() && event->type() == QEvent::Resize && m_statisticsController)
        m_statisticsController->windowDidResize();
    if (watched == m_mainWindow.get() && event->type() == QEvent::Close)
        rememberWindow();
    return QObject::eventFilter(watched, event);
}
