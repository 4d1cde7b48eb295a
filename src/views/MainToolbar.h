#pragma once

#include "views/MainTab.h"

#include <QToolBar>

class QComboBox;

/** The toolbar of the main window: the tabs, a new word, and the menu of languages. */
class MainToolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit MainToolbar(QWidget *parent = nullptr);

    /** Gives that tab's item its selected picture and all others the plain one. */
    void select(MainTab tab);
    /** Disabled items do nothing; the menu of languages is not among them. */
    void setActionsEnabled(bool enabled);
    QComboBox *languagesPopUp() const { return m_languagesPopUp; }

signals:
    void tabChosen(MainTab tab);
    void addWordChosen();
    /** The user has chosen an entry; never sent for a change by the program. */
    void languageChosen();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAction *addItem(const QString &title, const QString &image, const QString &name);

    std::array<QAction *, toolbarTabs.size()> m_tabActions = {};
    QAction *m_addWordAction = nullptr;
    QComboBox *m_languagesPopUp = nullptr;
};
