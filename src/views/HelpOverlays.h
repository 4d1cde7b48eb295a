#pragma once

#include <QObject>

class QAbstractScrollArea;
class QLabel;
class QStackedWidget;
class QWidget;

/** What stands over the word table where it has nothing to show, and the ground behind a search: one at most.
 */
class HelpOverlays : public QObject
{
    Q_OBJECT

public:
    /** The pages are laid over the table's viewport, which then owns them. */
    HelpOverlays(QStackedWidget *noWordsTabView, QWidget *searchBackgroundView, QAbstractScrollArea *table);

    void showNoWordsHelp();
    void showNoWordsInLevelHelp();
    void showNoUnknownHelp();
    /** In the place of a list whose file could not be opened. */
    void showNotLoaded(const QString &text);
    void showSearchHelp();
    void closeHelp();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showPage(int page);
    void placePages();

    QStackedWidget *m_noWordsTabView;
    QLabel *m_notLoaded;
    QWidget *m_searchBackgroundView;
    QWidget *m_viewport;
};
