#pragma once

#include "views/MainTab.h"

#include <QKeySequence>
#include <QObject>

#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class TAVMainWindowController;

/** The menu bar of the main window. Items of pages that don't exist are disabled. */
class MainMenu : public QObject
{
    Q_OBJECT

public:
    /** Fills the window's menu bar; the hub must outlive its window. */
    explicit MainMenu(TAVMainWindowController &hub);

    void insertUpdateItem(QAction *item);
    void setSynonymsTitle(const QString &title);
    void setTabAvailable(MainTab tab, bool available);
    void setImportAvailable(bool available);
    void setExportAvailable(bool available);
    /** While off, nothing that belongs to a vocabulary or a tab can be chosen. */
    void setActionsEnabled(bool enabled);
    /** Another control or page is in front, or there is more or less to take back. */
    void updateUndo();

private:
    enum class Scope { Always, WithTabs };
    QAction *add(QMenu *menu, const char *name, const QString &title, const QKeySequence &keys,
                 std::function<void()> chosen, Scope scope = Scope::Always);
    void addApplicationMenu(QMenuBar *bar);
    void addFileMenu(QMenuBar *bar);
    void addEditMenu(QMenuBar *bar);
    void addViewMenu(QMenuBar *bar);
    void addWindowMenu(QMenuBar *bar);
    void addHelpMenu(QMenuBar *bar);
    /** Runs the action with the vocabulary's page in front; does nothing without a vocabulary. */
    void onVocabularyPage(const std::function<void()> &action);
    void setAvailable(QAction *action, bool available);
    void undo();
    bool canUndoWords() const;

    TAVMainWindowController &m_hub;
    QMenu *m_applicationMenu = nullptr;
    QAction *m_undoItem = nullptr;
    QAction *m_importItem = nullptr;
    QAction *m_exportItem = nullptr;
    QAction *m_synonymsItem = nullptr;
    QAction *m_preferencesItem = nullptr;
    std::array<QAction *, toolbarTabs.size()> m_tabItems = {};
    QList<QAction *> m_itemsWithTabs;
    bool m_isEnabled = true;
};
