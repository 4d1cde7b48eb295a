#pragma once

#include "quiz/forms/QuizHub.h"
#include "storage/exchange/Exchange.h"
#include "sync/DropBoxController.h"
#include "views/FirstStart.h"
#include "views/MainTab.h"
#include "views/PreferencesPage.h"

#include <QDateTime>
#include <QMainWindow>

#include <functional>
#include <memory>

class FirstStartPage;
class LanguageMenu;
class MainMenu;
class MainPages;
class MainToolbar;
class TAVHelpController;
class TAVLexiconController;
class TAVUpdateController;
class VocabularyDocument;

/**
 * The hub: owns the one window with its toolbar, tabs and menus, decides what is seen at start, swaps the
 * current language, and answers the sync, the settings, the import and the export. It holds no words: the
 * current vocabulary is read from TAVLexiconController each time.
 *
 * Main thread only. Everything works with no vocabulary loaded. The composition makes it, hands in the pages
 * that exist, and calls awakeFromNib().
 */
class TAVMainWindowController : public QObject,
                                public QuizHub,
                                public FirstStartHub,
                                public DropboxControllerDelegate,
                                public TAVPreferencesDelegate,
                                public TAVImporterDelegate,
                                public TAVExporterDelegate
{
    Q_OBJECT

public:
    /** The document must outlive this controller. */
    explicit TAVMainWindowController(VocabularyDocument &document);
    ~TAVMainWindowController() override;

    // What the composition hands in before awakeFromNib(). Not owned; each must outlive this controller's
    // use. Without them the tabs show a calm line and the menu items stay disabled.
    void setQuizSetupController(Page *controller) { setPage(MainTab::Quiz, controller); }
    void setQuizletController(Page *controller) { setPage(MainTab::Quizlet, controller); }
    void setStatisticsController(Page *controller) { setPage(MainTab::Statistics, controller); }
    void setPreferencesController(PreferencesPage *controller);
    void setImporter(Importer *importer);
    /** Makes the exporter at the first export. */
    void setExporterFactory(std::function<std::unique_ptr<Exporter>(TAVExporterDelegate *)> factory);

    /** Takes over the start: loads the language, or shows the first-start page. Call once. */
    void awakeFromNib();
    /** The last step of the program's start. */
    void applicationDidFinishLaunching();
    /** The user has re-activated the running program. */
    void updateViews();
    /** Quiet lines of the whole program, on whichever page the start has led to; see Notices. */
    void tell(const QString &name, const QString &text);

    QMainWindow *mainWindow() const override { return m_mainWindow.get(); }
    TAVLexiconController *vocabularyController() const { return m_vocabularyController.get(); }
    TAVHelpController *helpController() const { return m_helpController.get(); }
    TAVUpdateController *updateController() const { return m_updateController.get(); }
    bool isInFirstSetupMode() const { return m_firstStart->isOn(); }
    /** Invalid until the end of the first sync. */
    QDateTime vocabularyLastLoadedDate() const { return m_vocabularyLastLoadedDate; }
    MainTab selectedTab() const;

    // Actions
    void showVocabulary() override;
    void showQuiz();
    void showQuizlet();
    void showStatistics();
    void showPreferences();
    /** Loads the language whose name languagesPopUp shows. */
    void selectLanguage();
    void addNewWord();
    void import();
    /** Named export: in the menu; that word is taken in this language. */
    void exportVocabulary();
    void showAbout();
    void visitSupport();
    void goToAppSupportFolder();
    void setFirstLanguage() { m_firstStart->setFirstLanguage(); }
    void linkWithDropbox();
    void changeSelectedSyncService(int column);
    void getStartedAfterSync() { m_firstStart->getStartedAfterSync(); }

    void createFirstLanguageWithName(const QString &name) { m_firstStart->createFirstLanguageWithName(name); }
    void updateLanguagesPopup();
    void doSync();

    // QuizHub
    void disableAllToolbarItems() override { setToolbarEnabled(false); }
    void enableAllToolbarItems() override { setToolbarEnabled(true); }

    // FirstStartHub
    void beginWith(const TAVLexiconRef &vocabulary) override;
    void closeHelp() override;

    // DropboxControllerDelegate
    void dropboxControllerDidFinishSync() override;
    void dropboxControllerDidLinkSuccessfully() override;
    void dropboxControllerFailedToLink() override;
    void dropboxControllerDidDownloadNewFiles() override {}

    // TAVPreferencesDelegate
    void preferencesDidChangeVocabularyAtPath(const QString &path) override;
    void preferencesDidDeleteVocabularyAtPath(const QString &path) override;
    void preferencesDidClose() override { updateLanguagesPopup(); }

    // TAVImporterDelegate, TAVExporterDelegate
    void importDidEnd(Importer *importer) override;
    void exportDidEnd(Exporter *) override {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildWindow();
    void connectActions();
    void setPage(MainTab tab, Page *page);
    void setActionsEnabled(bool enabled);
    void setToolbarEnabled(bool enabled);
    void callTab(MainTab tab);
    /** The common end of all tab switches. */
    void selectTab(MainTab tab);
    void leaveVocabularyPage();
    void enterPage(MainTab tab);
    TAVLexiconRef vocabulary() const;
    /** Where the current vocabulary is saved; empty without one. */
    QString currentSavePath() const;

    VocabularyDocument &m_document;
    std::unique_ptr<QMainWindow> m_mainWindow;
    MainPages *m_pages = nullptr;
    MainToolbar *m_toolbar = nullptr;
    FirstStartPage *m_firstStartPage = nullptr;
    std::unique_ptr<TAVLexiconController> m_vocabularyController;
    std::unique_ptr<LanguageMenu> m_languages;
    std::unique_ptr<FirstStart> m_firstStart;
    std::unique_ptr<TAVHelpController> m_helpController;
    std::unique_ptr<TAVUpdateController> m_updateController;
    std::unique_ptr<MainMenu> m_menu;
    std::unique_ptr<Exporter> m_exporter;
    std::function<std::unique_ptr<Exporter>(TAVExporterDelegate *)> m_makeExporter;
    DropBoxController *m_dropboxController = nullptr;
    Importer *m_importer = nullptr;
    PreferencesPage m_missingPreferences;
    PreferencesPage *m_preferencesController = &m_missingPreferences;
    QDateTime m_vocabularyLastLoadedDate;
};
