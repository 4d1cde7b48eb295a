#include "views/HelpOverlays.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QStackedWidget>

namespace {

enum HelpPage { noWordsPage, noWordsInLevelPage, noUnknownWordsPage, notLoadedPage };
constexpr int marginOfText = 40;

} // namespace

HelpOverlays::HelpOverlays(QStackedWidget *noWordsTabView, QWidget *searchBackgroundView,
                           QAbstractScrollArea *table)
    : m_noWordsTabView(noWordsTabView)
    , m_notLoaded(new QLabel)
    , m_searchBackgroundView(searchBackgroundView)
    , m_viewport(table->viewport())
{
    m_notLoaded->setObjectName(QStringLiteral("notLoadedLabel"));
    m_notLoaded->setTextFormat(Qt::PlainText);
    m_notLoaded->setWordWrap(true);
    m_notLoaded->setAlignment(Qt::AlignCenter);
    m_notLoaded->setMargin(marginOfText);
    // It names a file that somebody will look for.
    m_notLoaded->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_noWordsTabView->insertWidget(notLoadedPage, m_notLoaded);
    m_noWordsTabView->setParent(m_viewport);
    m_viewport->installEventFilter(this);
    m_searchBackgroundView->setAutoFillBackground(true);
    m_searchBackgroundView->setBackgroundRole(QPalette::Highlight);
    QSizePolicy keepsItsPlace = m_searchBackgroundView->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_searchBackgroundView->setSizePolicy(keepsItsPlace);
    closeHelp();
}

void HelpOverlays::showNoWordsHelp()
{
    showPage(noWordsPage);
}

void HelpOverlays::showNoWordsInLevelHelp()
{
    showPage(noWordsInLevelPage);
}

void HelpOverlays::showNoUnknownHelp()
{
    showPage(noUnknownWordsPage);
}

void HelpOverlays::showNotLoaded(const QString &text)
{
    m_notLoaded->setText(text);
    showPage(notLoadedPage);
}

void HelpOverlays::showPage(int page)
{
    m_searchBackgroundView->hide();
    m_noWordsTabView->setCurrentIndex(page);
    placePages();
    m_noWordsTabView->show();
    m_noWordsTabView->raise();
}

void HelpOverlays::showSearchHelp()
{
    m_noWordsTabView->hide();
    m_searchBackgroundView->show();
}

void HelpOverlays::closeHelp()
{
    m_noWordsTabView->hide();
    m_searchBackgroundView->hide();
}

void HelpOverlays::placePages()
{
    m_noWordsTabView->setGeometry(m_viewport->rect());
}

bool HelpOverlays::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == m_viewport)
        placePages();
    return QObject::eventFilter(watched, event);
}
