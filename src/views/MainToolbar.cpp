#include "views/MainToolbar.h"

#include "platform/Texts.h"
#include "widgets/Icons.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QToolButton>

using platform::localized;

MainToolbar::MainToolbar(QWidget *parent)
    : QToolBar(parent)
{
    setObjectName(QStringLiteral("mainToolbar"));
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize({24, 24});
    for (size_t i = 0; i < toolbarTabs.size(); ++i) {
        const MainTabInfo &info = toolbarTabs[i];
        m_tabActions[i] = addItem(localized("MainWindow", info.titleKey), QLatin1String(info.image),
                                  QLatin1String(info.action));
        m_tabActions[i]->setCheckable(true);
        connect(m_tabActions[i], &QAction::triggered, this, [this, &info] { emit tabChosen(info.tab); });
    }
    addSeparator();
    m_addWordAction = addItem(localized("Vocabulary", "addWordButtonTitle"), QStringLiteral("add"),
                              QStringLiteral("addNewWord"));
    connect(m_addWordAction, &QAction::triggered, this, &MainToolbar::addWordChosen);

    auto *gap = new QWidget(this);
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(gap);
    m_languagesPopUp = new QComboBox(this);
    m_languagesPopUp->setObjectName(QStringLiteral("languagesPopUp"));
    m_languagesPopUp->setAccessibleName(localized("MainWindow", "language"));
    m_languagesPopUp->setToolTip(localized("MainWindow", "language"));
    m_languagesPopUp->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_languagesPopUp->setMinimumContentsLength(20);
    m_languagesPopUp->setMaxVisibleItems(20);
    m_languagesPopUp->installEventFilter(this);
    connect(m_languagesPopUp, &QComboBox::activated, this, &MainToolbar::languageChosen);
    addWidget(m_languagesPopUp);
}

QAction *MainToolbar::addItem(const QString &title, const QString &image, const QString &name)
{
    QAction *action = addAction(Icons::icon(image), title);
    action->setObjectName(name);
    auto *button = qobject_cast<QToolButton *>(widgetForAction(action));
    button->setObjectName(name);
    button->setAccessibleName(title);
    button->setMinimumWidth(76);
    button->setFocusPolicy(Qt::TabFocus);
    return action;
}

void MainToolbar::select(MainTab tab)
{
    for (size_t i = 0; i < toolbarTabs.size(); ++i) {
        const bool isSelected = toolbarTabs[i].tab == tab;
        const QString image = QLatin1String(toolbarTabs[i].image);
        m_tabActions[i]->setIcon(Icons::icon(isSelected ? image + QLatin1String("_sel") : image));
        m_tabActions[i]->setChecked(isSelected);
    }
}

void MainToolbar::setActionsEnabled(bool enabled)
{
    for (QAction *action : m_tabActions)
        action->setEnabled(enabled);
    m_addWordAction->setEnabled(enabled);
}

bool MainToolbar::eventFilter(QObject *watched, QEvent *event)
{
    // A turn of the wheel on the way across would switch the language.
    return (watched == m_languagesPopUp && event->type() == QEvent::Wheel) ||
           QToolBar::eventFilter(watched, event);
}
