#include "views/WordTable.h"

#include "app/ground/SettingsTable.h"
#include "platform/Texts.h"
#include "views/WordTableView.h"

#include <QHeaderView>

#include <algorithm>

using platform::localized;

namespace {

WordOrder orderOfColumn(int column)
{
    switch (column) {
    case WordTableModel::YourWord:
        return WordOrder::YourLang;
    case WordTableModel::ForeignWord:
        return WordOrder::ForeignLang;
    case WordTableModel::Comment:
        return WordOrder::Comment;
    case WordTableModel::Tags:
        return WordOrder::Tags;
    default:
        return WordOrder::LastAsked;
    }
}

} // namespace

WordTable::WordTable(WordTableView *view, const VocabularySource &source, Owner owner)
    : m_view(view)
    , m_owner(std::move(owner))
    , m_shownWords(source, [this] { return query(); })
    , m_model(*this)
{
    m_view->setModel(&m_model);
    m_model.setColumnTitle(WordTableModel::Comment, localized("Vocabulary", "commentTableColumnTitle"));
    m_model.setColumnTitle(WordTableModel::Tags, localized("Vocabulary", "tagsTableColumnTitle"));
    m_model.setColumnTitle(WordTableModel::LastAsked, localized("Vocabulary", "lastAskedTableColumnTitle"));
    m_view->restoreColumns(settings::vocabularyTableColumns.value().value_or(QString()));
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &WordTable::selectionChanged);
    connect(m_view->horizontalHeader(), &QHeaderView::sectionClicked, this, &WordTable::didClickTableColumn);
    connect(m_view, &WordTableView::deletePressed, this, &WordTable::deletePressed);
    connect(m_view, &WordTableView::escapePressed, this, &WordTable::escapePressed);
    connect(m_view, &WordTableView::openPressed, this, &WordTable::openPressed);
    setSortIndicator();
}

WordListQuery WordTable::query() const
{
    WordListQuery query = m_owner.query();
    query.order = orderOfColumn(m_lastColumn);
    return query;
}

void WordTable::setLanguages(const TAVLexicon &vocabulary)
{
    m_model.setColumnTitle(WordTableModel::YourWord, vocabulary.yourLanguageName());
    m_model.setColumnTitle(WordTableModel::ForeignWord, vocabulary.foreignLanguageName());
}

void WordTable::reload()
{
    m_view->clearSelection();
    m_model.reload([this] { m_shownWords.invalidate(); });
}

void WordTable::didClickTableColumn(int column)
{
    if (column == m_lastColumn)
        m_model.reorder([this] { m_shownWords.setDescending(!m_shownWords.isDescending()); });
    else
        sortByOtherColumn(column);
    setSortIndicator();
    const QList<int> rows = selectedRows();
    if (!rows.isEmpty())
        m_view->scrollTo(m_model.index(rows.first(), WordTableModel::YourWord));
}

void WordTable::sortByOtherColumn(int column)
{
    m_lastColumn = column;
    const TAVWordList sorted = m_shownWords.workOut();
    const auto change = [this, &sorted] {
        m_shownWords.setDescending(false);
        m_shownWords.show(sorted);
    };
    // A quiz may have moved words to other levels meanwhile; then these are not the same rows in another
    // order.
    if (sorted.size() == m_shownWords.numberShown() && !m_shownWords.isOutOfDate())
        m_model.reorder(change);
    else
        m_model.reload(change);
    m_model.setHighlightedColumn(column);
}

void WordTable::setSortIndicator()
{
    m_view->horizontalHeader()->setSortIndicator(m_lastColumn,
                                                 isDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void WordTable::rememberLayout() const
{
    settings::vocabularyTableColumns.set(m_view->columnLayout());
}

QList<int> WordTable::selectedRows() const
{
    return m_view->selectedRowList();
}

TAVWordList WordTable::selectedWords()
{
    TAVWordList words;
    const QList<int> rows = selectedRows();
    words.reserve(rows.size());
    for (const int row : rows)
        words.append(m_model.wordAtRow(row));
    return m_shownWords.present(words);
}

TAVWordRef WordTable::presentWordAtRow(int row)
{
    const TAVWordRef shown = m_model.wordAtRow(row);
    return shown ? m_shownWords.present({shown}).value(0) : nullptr;
}

void WordTable::clearSelection()
{
    m_view->clearSelection();
}

void WordTable::selectOnlyRow(int row)
{
    m_view->selectOnlyRow(row);
}

void WordTable::selectOnly(const TAVWordList &words)
{
    const qsizetype index = words.size() == 1 ? currentWordsToShow().indexOf(words.first()) : -1;
    if (index >= 0)
        selectOnlyRow(int(calculateWordIndexForRow(index)));
}

void WordTable::putCursorNear(int row)
{
    const QModelIndex index = m_model.index(std::min(row, m_model.rowCount() - 1), WordTableModel::YourWord);
    if (index.isValid())
        m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void WordTable::setFocus()
{
    m_view->setFocus(Qt::TabFocusReason);
}

QWidget *WordTable::viewport() const
{
    return m_view->viewport();
}

bool WordTable::isRowAt(const QWidget *widget, const QPoint &position) const
{
    return widget == viewport() && m_view->indexAt(position).isValid();
}

QRect WordTable::cellOfSelection() const
{
    QRect cell = m_view->visualRect(m_model.index(selectedRows().first(), WordTableModel::YourWord));
    // The first of many selected rows may have been scrolled away.
    cell.moveTop(std::clamp(cell.top(), 0, std::max(0, viewport()->height() - cell.height())));
    return cell.intersected(viewport()->rect());
}
