#include "views/MainMenu.h"

#include "platform/Texts.h"
#include "views/TAVHelpController.h"
#include "views/TAVLexiconController.h"
#include "views/TAVMainWindowController.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

using platform::localized;

namespace {

constexpr const char *availableProperty = "isAvailable";

/** Whether the control that has the focus can do that. */
bool focusHas(const char *method)
{
    const QWidget *focus = QApplication::focusWidget();
    const QByteArray signature = QByteArray(method) + "()";
    return focus && focus->metaObject()->indexOfMethod(signature.constData()) >= 0;
}

/** Asks that control to do what is usual for it, if it can. */
void sendToFocus(const char *method)
{
    if (focusHas(method))
        QMetaObject::invokeMethod(QApplication::focusWidget(), method);
}

} // namespace

MainMenu::MainMenu(TAVMainWindowController &hub)
    : m_hub(hub)
{
    QMenuBar *bar = hub.mainWindow()->menuBar();
    addApplicationMenu(bar);
    addFileMenu(bar);
    addEditMenu(bar);
    addViewMenu(bar);
    addWindowMenu(bar);
    addHelpMenu(bar);
    setImportAvailable(false);
    setExportAvailable(false);
    for (const MainTab tab : {MainTab::Quiz, MainTab::Quizlet, MainTab::Statistics, MainTab::Settings})
        setTabAvailable(tab, false);
}

QAction *MainMenu::add(QMenu *menu, const char *name, const QString &title, const QKeySequence &keys,
                       std::function<void()> chosen, Scope scope)
{
    QAction *action = menu->addAction(title);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    // Texts such as "About ..." would otherwise be guessed into places of their own on some systems.
    action->setMenuRole(QAction::NoRole);
    action->setProperty(availableProperty, true);
    connect(action, &QAction::triggered, this, std::move(chosen));
    if (scope == Scope::WithTabs)
        m_itemsWithTabs.append(action);
    return action;
}

void MainMenu::addApplicationMenu(QMenuBar *bar)
{
    QMenu *menu = m_applicationMenu = bar->addMenu(QStringLiteral("Tavimo"));
    QMainWindow *window = m_hub.mainWindow();
    add(menu, "about", localized("MainWindow", "about"), {}, [this] { m_hub.showAbout(); });
    menu->addSeparator();
    menu->addSeparator();
    m_preferencesItem = add(
        menu, "preferences", localized("MainWindow", "preferences"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
        [this] { m_hub.showPreferences(); }, Scope::WithTabs);
    menu->addSeparator();
    add(menu, "hide", localized("MainWindow", "hide"), {}, [window] { window->showMinimized(); });
    add(menu, "showAll", localized("MainWindow", "showAll"), {}, [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *each : windows) {
            if (each->isMinimized())
                each->showNormal();
        }
    });
    menu->addSeparator();
    add(menu, "quit", localized("MainWindow", "quit"), QKeySequence(Qt::CTRL | Qt::Key_Q),
        [] { QApplication::quit(); });
}

void MainMenu::addFileMenu(QMenuBar *bar)
{
    QMenu *menu = bar->addMenu(localized("MainWindow", "file"));
    add(
        menu, "addWord", localized("Vocabulary", "addWordMenuItemTitle"), QKeySequence(Qt::CTRL | Qt::Key_N),
        [this] { m_hub.addNewWord(); }, Scope::WithTabs);
    menu->addSeparator();
    m_importItem = add(
        menu, "import", localized("MainWindow", "import"), QKeySequence(Qt::CTRL | Qt::Key_I),
        [this] { m_hub.import(); }, Scope::WithTabs);
    m_exportItem = add(
        menu, "export", localized("MainWindow", "export"), QKeySequence(Qt::CTRL | Qt::Key_E),
        [this] { m_hub.exportVocabulary(); }, Scope::WithTabs);
    menu->addSeparator();
    add(menu, "goToAppSupport", localized("MainWindow", "goToAppSupport"), {},
        [this] { m_hub.goToAppSupportFolder(); });
    menu->addSeparator();
    QMainWindow *window = m_hub.mainWindow();
    add(menu, "close", localized("MainWindow", "close"), QKeySequence(Qt::CTRL | Qt::Key_W),
        [window] { window->close(); });
}

void MainMenu::addEditMenu(QMenuBar *bar)
{
    QMenu *menu = bar->addMenu(localized("MainWindow", "edit"));
    m_undoItem = add(menu, "undo", localized("MainWindow", "undo"), QKeySequence(Qt::CTRL | Qt::Key_Z),
                     [this] { undo(); });
    connect(m_hub.vocabularyController(), &TAVLexiconController::undoChanged, this, &MainMenu::updateUndo);
    connect(qApp, &QApplication::focusChanged, this, &MainMenu::updateUndo);
    menu->addSeparator();
    const auto addStandard = [this, menu](const char *key, const QString &title, Qt::Key letter,
                                          const char *method) {
        add(menu, key, title, QKeySequence(Qt::CTRL | letter), [method] { sendToFocus(method); });
    };
    addStandard("cut", localized("MainWindow", "cut"), Qt::Key_X, "cut");
    addStandard("copy", localized("MainWindow", "copy"), Qt::Key_C, "copy");
    addStandard("paste", localized("MainWindow", "paste"), Qt::Key_V, "paste");
    addStandard("selectAll", localized("MainWindow", "selectAll"), Qt::Key_A, "selectAll");
    menu->addSeparator();
    TAVLexiconController *words = m_hub.vocabularyController();
    add(
        menu, "search", localized("MainWindow", "search"), QKeySequence(Qt::CTRL | Qt::Key_F),
        [this, words] { onVocabularyPage([words] { words->focusOnSearchField(); }); }, Scope::WithTabs);
    add(
        menu, "deleteDuplicateWords", localized("MainWindow", "deleteDuplicateWords"), {},
        [this, words] { onVocabularyPage([words] { words->deleteDuplicates(); }); }, Scope::WithTabs);
}

void MainMenu::addViewMenu(QMenuBar *bar)
{
    QMenu *menu = bar->addMenu(localized("MainWindow", "view"));
    const std::array<std::function<void()>, toolbarTabs.size()> calls{
        [this] { m_hub.showVocabulary(); }, [this] { m_hub.showQuiz(); }, [this] { m_hub.showQuizlet(); },
        [this] { m_hub.showStatistics(); }, [this] { m_hub.showPreferences(); }};
    for (size_t i = 0; i < toolbarTabs.size(); ++i) {
        const QKeySequence keys(int(Qt::CTRL) | (int(Qt::Key_1) + int(i)));
        m_tabItems[i] = add(menu, toolbarTabs[i].titleKey, localized("MainWindow", toolbarTabs[i].titleKey),
                            keys, calls[i], Scope::WithTabs);
    }
    menu->addSeparator();
    TAVLexiconController *words = m_hub.vocabularyController();
    m_synonymsItem = add(
        menu, "showSynonyms", localized("MainWindow", "showSynonyms"), {},
        [this, words] { onVocabularyPage([words] { words->setDisplaySynonyms(); }); }, Scope::WithTabs);
    connect(words, &TAVLexiconController::synonymsTitleChanged, this, &MainMenu::setSynonymsTitle);
}

void MainMenu::addWindowMenu(QMenuBar *bar)
{
    QMenu *menu = bar->addMenu(localized("MainWindow", "window"));
    QMainWindow *window = m_hub.mainWindow();
    add(menu, "minimize", localized("MainWindow", "minimize"), QKeySequence(Qt::CTRL | Qt::Key_M),
        [window] { window->showMinimized(); });
    add(menu, "zoom", localized("MainWindow", "zoom"), {},
        [window] { window->isMaximized() ? window->showNormal() : window->showMaximized(); });
    add(menu, "bringAllToFront", localized("MainWindow", "bringAllToFront"), {}, [window] {
        window->raise();
        window->activateWindow();
    });
}

void MainMenu::addHelpMenu(QMenuBar *bar)
{
    QMenu *menu = bar->addMenu(localized("MainWindow", "Help"));
    add(
        menu, "showHelp", localized("MainWindow", "showHelp"), QKeySequence(Qt::Key_F1),
        [this] { onVocabularyPage([this] { m_hub.helpController()->showVocabularyHelp(); }); },
        Scope::WithTabs);
    add(menu, "visitSupport", localized("MainWindow", "visitSupport"), {}, [this] { m_hub.visitSupport(); });
}

void MainMenu::onVocabularyPage(const std::function<void()> &action)
{
    if (!m_hub.vocabularyController()->vocabulary())
        return;
    if (m_hub.selectedTab() != MainTab::Vocabulary)
        m_hub.showVocabulary();
    action();
}

bool MainMenu::canUndoWords() const
{
    return m_isEnabled && m_hub.selectedTab() == MainTab::Vocabulary &&
           m_hub.vocabularyController()->canUndo();
}

void MainMenu::updateUndo()
{
    m_undoItem->setEnabled(focusHas("undo") || canUndoWords());
}

void MainMenu::undo()
{
    if (focusHas("undo"))
        sendToFocus("undo");
    else if (canUndoWords())
        m_hub.vocabularyController()->undo();
}

void MainMenu::insertUpdateItem(QAction *item)
{
    constexpr qsizetype place = 2;
    m_applicationMenu->insertAction(m_applicationMenu->actions().value(place), item);
}

void MainMenu::setSynonymsTitle(const QString &title)
{
    m_synonymsItem->setText(title);
}

void MainMenu::setTabAvailable(MainTab tab, bool available)
{
    for (size_t i = 0; i < toolbarTabs.size(); ++i) {
        if (toolbarTabs[i].tab == tab)
            setAvailable(m_tabItems[i], available);
    }
    if (tab == MainTab::Settings)
        setAvailable(m_preferencesItem, available);
}

void MainMenu::setImportAvailable(bool available)
{
    setAvailable(m_importItem, available);
}

void MainMenu::setExportAvailable(bool available)
{
    setAvailable(m_exportItem, available);
}

void MainMenu::setAvailable(QAction *action, bool available)
{
    action->setProperty(availableProperty, available);
    action->setEnabled(available && m_isEnabled);
}

void MainMenu::setActionsEnabled(bool enabled)
{
    m_isEnabled = enabled;
    for (QAction *action : m_itemsWithTabs)
        action->setEnabled(enabled && action->property(availableProperty).toBool());
    updateUndo();
}
