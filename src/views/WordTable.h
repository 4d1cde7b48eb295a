#pragma once

#include "document/ShownWords.h"
#include "views/WordTableModel.h"

#include <QObject>
#include <QRect>

#include <functional>

class WordTableView;

/** The word table as a list of words: which it shows, in what order, and which of them are selected. */
class WordTable : public QObject, public WordTableSource
{
    Q_OBJECT

public:
    /** What the owner decides. */
    struct Owner
    {
        /** What is to be shown, apart from the order. */
        std::function<WordListQuery()> query;
        /** A text was dropped onto the row; whether it was taken. */
        std::function<bool(int row, const QString &text)> acceptDrop;
    };

    /** View and source are not owned; the view must outlive this object's use, or go with its window. */
    WordTable(WordTableView *view, const VocabularySource &source, Owner owner);

    const TAVWordList &currentWordsToShow() override { return m_shownWords.words(); }
    qsizetype calculateWordIndexForRow(qsizetype row) override { return m_shownWords.indexForRow(row); }
    bool acceptDrop(int row, const QString &text) override { return m_owner.acceptDrop(row, text); }

    /** Names the two columns of words after their languages. */
    void setLanguages(const TAVLexicon &vocabulary);
    /** Works the list out anew; nothing is selected then. */
    void reload();
    void didClickTableColumn(int column);
    bool isDescending() const { return m_shownWords.isDescending(); }
    /** The table still shows words of a vocabulary that was replaced under the open editor. */
    bool isOutlived() const { return m_shownWords.isOutlived(); }
    /** Writes the widths and the order of the columns into the settings. */
    void rememberLayout() const;

    /** In ascending order. */
    QList<int> selectedRows() const;
    /** In the order of the rows; of an outlived table, the words that stand for them now. */
    TAVWordList selectedWords();
    /** Absent for a row that isn't there, and where nothing stands for an outlived word. */
    TAVWordRef presentWordAtRow(int row);
    void clearSelection();
    void selectOnlyRow(int row);
    /** Selects the only one of the words, if it is shown. */
    void selectOnly(const TAVWordList &words);
    /** Selects nothing. */
    void putCursorNear(int row);
    void setFocus();
    QWidget *viewport() const;
    /** Whether a word stands at that place of that widget. */
    bool isRowAt(const QWidget *widget, const QPoint &position) const;
    /** In the viewport, where the first selected row meets the column of the user's words. */
    QRect cellOfSelection() const;

signals:
    void selectionChanged();
    void deletePressed();
    void escapePressed();
    void openPressed();

private:
    WordListQuery query() const;
    void sortByOtherColumn(int column);
    void setSortIndicator();

    WordTableView *m_view;
    Owner m_owner;
    ShownWords m_shownWords;
    WordTableModel m_model;
    int m_lastColumn = WordTableModel::YourWord;
};
