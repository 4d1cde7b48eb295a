#pragma once

#include "views/HelpOverlays.h"
#include "views/LevelBar.h"
#include "views/StatusLine.h"

#include <QWidget>

#include <memory>

class M3TokenCloud;
class Notices;
class UndoLine;
class WordTableView;

namespace Ui {
class VocabularyView;
}

/** The page with the word table: its look, its texts, and its parts, ready for whoever fills them. */
class VocabularyView : public QWidget
{
    Q_OBJECT

public:
    VocabularyView();
    ~VocabularyView() override;

    LevelBar &levelBar() { return *m_levelBar; }
    StatusLine &statusLine() { return *m_statusLine; }
    HelpOverlays &overlays() { return *m_overlays; }
    UndoLine &undoLine() { return *m_undoLine; }
    Notices &notices();
    WordTableView *table() const;
    M3TokenCloud *tagCloud() const;
    /** The higher of the present height and this one. */
    void growTagCloud(double height);

    void setHeading(const QString &text);
    /** A warning stands in red. */
    void setInfo(const QString &text, bool isWarning);
    /** The same in the present colour. */
    void setInfo(const QString &text);
    void setSynonymsShown(bool shown);

    QString searchTerm() const;
    void emptySearchField();
    void focusOnSearchField();

signals:
    void searchTermChanged();
    /** Return was pressed in the search field. */
    void searchEnded();
    void addWordChosen();
    void allWordsChosen();
    void selectAllTagsChosen();
    void deselectAllTagsChosen();
    void toggleStatusChosen();
    /** Another page of the window came in its place. */
    void left();

protected:
    void hideEvent(QHideEvent *event) override;

private:
    void prepareLook();
    void localize();
    void connectControls();

    std::unique_ptr<Ui::VocabularyView> m_ui;
    std::unique_ptr<LevelBar> m_levelBar;
    std::unique_ptr<StatusLine> m_statusLine;
    std::unique_ptr<HelpOverlays> m_overlays;
    /** Owned by the form. */
    UndoLine *m_undoLine;
};
