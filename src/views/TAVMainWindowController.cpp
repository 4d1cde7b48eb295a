#include "views/TAVMainWindowController.h"

#include "DeployerValues.h"
#include "app/ground/AppGround.h"
#include "app/ground/SettingsKeys.h"
#include "app/ground/TAVFile.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/LanguageName.h"
#include "storage/TAVStorageManager.h"
#include "views/FirstStartPage.h"
#include "views/MainMenu.h"
#include "views/MainToolbar.h"
#include "views/TAVHelpController.h"
#include "views/TAVLexiconController.h"
#include "views/TAVUpdateController.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QStackedWidget>
#include <QUrl>

#include <algorithm>

using namespace std::chrono_literals;
using platform::localized;

namespace {

using LanguageList = QList<std::shared_ptr<TAVFile>>;

LanguageList languagesFromYoungToOld()
{
    LanguageList languages = AppGround::loadAllAvailableLanguages();
    std::stable_sort(languages.begin(), languages.end(),
                     [](const auto &a, const auto &b) { return a->compareModDatesFromYoungToOld(*b) < 0; });
    return languages;
}

QString trimmedOrUnknown(const QString &name)
{
    const QString trimmed = name.trimmed();
    return trimmed.isEmpty() ? QStringLiteral("Unknown") : trimmed;
}

} // namespace

void TAVMainWindowController::awakeFromNib()
{
    m_dropboxController = DropBoxController::sharedManager();
    m_dropboxController->setDelegate(this);
    m_dropboxController->setWindow(m_mainWindow.get());
    const LanguageList languages = AppGround::loadAllAvailableLanguages();
    m_toolbar->select(MainTab::FirstStartSetup);
    if (!languages.isEmpty()) {
        m_isInFirstSetupMode = false;
        loadLastLanguage(languages);
        updateLanguagesPopup();
        platform::clock().callAfter(500ms, this, [this] {
            showVocabulary();
            updateLanguagesPopup();
        });
    } else {
        m_isInFirstSetupMode = true;
        selectTab(MainTab::FirstStartSetup);
        m_firstStartPage->prepare(m_dropboxController->isLinked());
        m_firstStartPage->setFocus();
        setActionsEnabled(false);
    }
    m_updateController = std::make_unique<TAVUpdateController>();
    m_menu->insertUpdateItem(m_updateController->updateMenuItem());
    m_toolbar->show();
    platform::clock().callAfter(5s, this, [this] { doSync(); });
}

void TAVMainWindowController::loadLastLanguage(const LanguageList &languages)
{
    const QString name = platform::settings().text(settingskeys::lastActiveLanguage);
    QString path =
        QStringLiteral("%1/%2.%3")
            .arg(AppGround::vocabularyFolderPath(), name, QLatin1String(TAVStorageManager::extension));
    if (!QFile::exists(path))
        path = languages.first()->filePath();
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(path);
    if (!loaded)
        return;
    m_vocabularyController->setVocabulary(loaded);
    platform::settings().setValue(settingskeys::lastActiveLanguage,
                                  TAVStorageManager::displayNameForVocabulary(*loaded));
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

void TAVMainWindowController::updateLanguagesPopup()
{
    QComboBox *popUp = m_toolbar->languagesPopUp();
    popUp->clear();
    for (const auto &language : languagesFromYoungToOld())
        popUp->addItem(language->fileName());
    selectCurrentLanguageInPopup();
    popUp->insertSeparator(popUp->count());
    popUp->addItem(localized("MainWindow", "Manage Languages..."));
}

void TAVMainWindowController::selectCurrentLanguageInPopup()
{
    QComboBox *popUp = m_toolbar->languagesPopUp();
    const TAVLexiconRef current = vocabulary();
    popUp->setCurrentIndex(current ? popUp->findText(TAVStorageManager::displayNameForVocabulary(*current))
                                   : -1);
}

void TAVMainWindowController::selectLanguage()
{
    const QString title = m_toolbar->languagesPopUp()->currentText();
    if (title == localized("MainWindow", "Manage Languages...")) {
        selectCurrentLanguageInPopup();
        showPreferences();
        if (m_preferencesController)
            m_preferencesController->showLanguages();
        return;
    }
    const LanguageList languages = languagesFromYoungToOld();
    const auto chosen = std::find_if(languages.begin(), languages.end(),
                                     [&title](const auto &file) { return file->fileName() == title; });
    if (chosen == languages.end()) {
        platform::diagnosticLog(QStringLiteral("VocController > selectLanguage > file not found"));
        return;
    }
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile((*chosen)->filePath());
    platform::diagnosticLog(QStringLiteral("VocController > selectLanguage > has %1 words")
                                .arg(loaded ? loaded->countAllWords() : 0));
    if (!loaded) {
        const QString problem =
            QStringLiteral("The selected language '%1' could not be loaded.\nGo to '~/Library/Application "
                           "Support/Tavimo/Backups' to restore from the last backup copy.")
                .arg(title);
        platform::diagnosticLog(QStringLiteral("VocController > selectLanguage: %1").arg(problem));
        return;
    }
    m_vocabularyController->setVocabulary(loaded);
    if (m_quizletController)
        m_quizletController->setVocabulary(loaded);
    if (m_statisticsController)
        m_statisticsController->setVocabulary(loaded);
    if (selectedTab() == MainTab::Quiz)
        showQuiz();
    else if (selectedTab() == MainTab::Statistics)
        showStatistics();
    platform::settings().setValue(settingskeys::lastActiveLanguage,
                                  TAVStorageManager::displayNameForVocabulary(*loaded));
    m_vocabularyController->updateEntireView();
}

MainTab TAVMainWindowController::selectedTab() const
{
    return MainTab(m_mainTabView->currentIndex());
}

void TAVMainWindowController::selectTab(MainTab tab)
{
    m_toolbar->select(tab);
    m_helpController->closeHelp();
    m_mainTabView->setCurrentIndex(int(tab));
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

void TAVMainWindowController::showVocabulary()
{
    doSync();
    m_isInFirstSetupMode = false;
    m_vocabularyController->showVocabulary();
    selectTab(MainTab::Vocabulary);
    if (!platform::settings().boolean(settingskeys::hasShownVocabularyHelp)) {
        platform::settings().setValue(settingskeys::hasShownVocabularyHelp, true);
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
    if (m_quizSetupController)
        m_quizSetupController->setPreSelectedWords(m_vocabularyController->getSelectedWordsArray());
    m_vocabularyController->closeAddWordPopover();
    m_vocabularyController->deselectWords();
    m_vocabularyController->closeHelp();
    if (m_quizSetupController) {
        m_quizSetupController->showQuiz();
        platform::clock().callAfter(500ms, this, [this] { m_quizSetupController->showQuiz(); });
    }
    selectTab(MainTab::Quiz);
}

void TAVMainWindowController::leaveVocabularyPage()
{
    m_vocabularyController->closeAddWordPopover();
    m_vocabularyController->closeHelp();
}

void TAVMainWindowController::showQuizlet()
{
    doSync();
    leaveVocabularyPage();
    if (m_quizletController)
        m_quizletController->setVocabulary(vocabulary());
    selectTab(MainTab::Quizlet);
}

void TAVMainWindowController::showStatistics()
{
    doSync();
    leaveVocabularyPage();
    if (m_statisticsController) {
        m_statisticsController->setVocabulary(vocabulary());
        m_statisticsController->showStatistics();
    }
    selectTab(MainTab::Statistics);
}

void TAVMainWindowController::showPreferences()
{
    doSync();
    leaveVocabularyPage();
    if (m_preferencesController) {
        m_preferencesController->setDelegate(this);
        m_preferencesController->showPreferences();
    }
    selectTab(MainTab::Settings);
}

void TAVMainWindowController::addNewWord()
{
    showVocabulary();
    m_vocabularyController->showAddWordPanel();
}

void TAVMainWindowController::import()
{
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

void TAVMainWindowController::setFirstLanguage()
{
    const QString name = m_firstStartPage->languageName();
    if (!name.isEmpty() && isPossibleLanguageName(name))
        createFirstLanguageWithName(name);
}

void TAVMainWindowController::createFirstLanguageWithName(const QString &name)
{
    const auto created = std::make_shared<TAVLexicon>();
    QString yourName = trimmedOrUnknown(AppGround::selectedLocaleName());
    // A file name that ends in a closing parenthesis would be taken for a conflicted copy, and deleted.
    if (yourName.endsWith(QLatin1Char(')')))
        yourName += QLatin1Char('_');
    const QString foreignName = trimmedOrUnknown(name);
    if (yourName.toLower() == foreignName.toLower())
        yourName = QStringLiteral("My Language");
    created->setYourLanguageName(yourName);
    created->setForeignLanguageName(foreignName);
    created->setNeedsSync(true);
    m_dropboxController->markFileAsNeedsSync(*created);
    TAVStorageManager::saveVocabulary(created);
    m_vocabularyController->setVocabulary(created);
    m_vocabularyController->updateEntireView();
    updateLanguagesPopup();
    setActionsEnabled(true);
    m_dropboxController->syncWithDropbox();
    m_helpController->closeHelp();
    showVocabulary();
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

void TAVMainWindowController::getStartedAfterSync()
{
    const LanguageList languages = AppGround::loadAllAvailableLanguages();
    if (languages.isEmpty()) {
        m_firstStartPage->reset();
        platform::services().alerts->show({localized("MainWindow", "noLangsOnDB"),
                                           localized("MainWindow", "noLangsOnDBMsg"),
                                           {localized("MainWindow", "ok")}});
        return;
    }
    // A file that can't be read has told so; the page stays for another try.
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(languages.first()->filePath());
    if (!loaded)
        return;
    m_vocabularyController->setVocabulary(loaded);
    m_vocabularyController->updateEntireView();
    updateLanguagesPopup();
    setActionsEnabled(true);
    showVocabulary();
}
