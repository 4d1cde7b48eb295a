#include "views/WordTableView.h"

#include "views/WordTableModel.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSet>
#include <QStyledItemDelegate>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int heightOfRows = 27;
constexpr int minColumnWidth = 48;
constexpr int maxColumnWidth = 4000;
constexpr int fontSize = 13;
/** More than any cell has room for; laying out megabytes of a comment takes seconds. */
constexpr qsizetype maxShownLength = 1000;
constexpr std::array<int, WordTableModel::ColumnCount> usualWidths{200, 200, 170, 140, 110};

/** Part of the way from the background to the text; the same grey in a light and its mirror in a dark
 * palette. */
QColor faded(const QPalette &palette, double share)
{
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [share](double a, double b) { return float(a * share + b * (1.0 - share)); };
    return QColor::fromRgbF(mix(text.redF(), base.redF()), mix(text.greenF(), base.greenF()),
                            mix(text.blueF(), base.blueF()));
}

class WordCellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text.truncate(maxShownLength);
        const bool isTags = index.column() == WordTableModel::Tags;
        const bool dontAskAgain = !isTags && index.data(WordTableModel::DontAskAgainRole).toBool();
        option->font = QFont(QStringLiteral("Helvetica"));
        option->font.setPixelSize(fontSize);
        option->font.setItalic(dontAskAgain);
        option->fontMetrics = QFontMetrics(option->font);
        if (isTags || dontAskAgain)
            option->palette.setColor(QPalette::Text, faded(option->palette, isTags ? 2.0 / 3.0 : 0.5));
        // The whole row is selected; a frame around one cell of it would say something else.
        option->state &= ~QStyle::State_HasFocus;
        if (option->text.isRightToLeft())
            option->direction = Qt::RightToLeft;
    }
};

} // namespace

WordTableView::WordTableView(QWidget *parent)
    : QTableView(parent)
{
    setItemDelegate(new WordCellDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setDragDropMode(QAbstractItemView::DropOnly);
    setDragDropOverwriteMode(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(heightOfRows);
    verticalHeader()->setDefaultSectionSize(heightOfRows);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setMinimumSectionSize(minColumnWidth);
}

void WordTableView::setModel(QAbstractItemModel *newModel)
{
    QTableView::setModel(newModel);
    for (int column = 0; column < WordTableModel::ColumnCount; ++column)
        setColumnWidth(column, usualWidths[size_t(column)]);
}

QList<int> WordTableView::selectedRowList() const
{
    QList<int> rows;
    if (!selectionModel())
        return rows;
    const QItemSelection ranges = selectionModel()->selection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void WordTableView::selectOnlyRow(int row)
{
    const QModelIndex index = model()->index(row, WordTableModel::YourWord);
    if (!index.isValid())
        return;
    scrollTo(index);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QString WordTableView::columnLayout() const
{
    QStringList columns;
    for (int visual = 0; visual < WordTableModel::ColumnCount; ++visual) {
        const int column = horizontalHeader()->logicalIndex(visual);
        columns.append(QStringLiteral("%1:%2").arg(WordTableModel::identifier(column),
                                                   QString::number(columnWidth(column))));
    }
    return columns.join(QLatin1Char(','));
}

void WordTableView::restoreColumns(const QString &layout)
{
    const QStringList parts = layout.split(QLatin1Char(','));
    QList<std::pair<int, int>> columns;
    QSet<int> seen;
    for (const QString &part : parts) {
        const QString name = part.section(QLatin1Char(':'), 0, 0);
        const int column = WordTableModel::columnForIdentifier(name);
        const int width = part.section(QLatin1Char(':'), 1).toInt();
        if (WordTableModel::identifier(column) != name || seen.contains(column) || width < minColumnWidth ||
            width > maxColumnWidth)
            return;
        seen.insert(column);
        columns.append({column, width});
    }
    if (columns.size() != WordTableModel::ColumnCount)
        return;
    for (int visual = 0; visual < columns.size(); ++visual) {
        const auto [column, width] = columns.at(visual);
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), visual);
        setColumnWidth(column, width);
    }
}

void WordTableView::copy()
{
    QStringList lines;
    const QList<int> rows = selectedRowList();
    lines.reserve(rows.size());
    for (const int row : rows) {
        QStringList cells;
        for (int visual = 0; visual < WordTableModel::ColumnCount; ++visual) {
            QString cell = model()->index(row, horizontalHeader()->logicalIndex(visual)).data().toString();
            for (QChar &character : cell) {
                if (character == QLatin1Char('\t') || character == QLatin1Char('\n') ||
                    character == QLatin1Char('\r') || character == QChar::LineSeparator ||
                    character == QChar::ParagraphSeparator)
                    character = QLatin1Char(' ');
            }
            cells.append(cell);
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void WordTableView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Delete) || event->key() == Qt::Key_Backspace) {
        // A held key must not delete word after word.
        if (!event->isAutoRepeat())
            emit deletePressed();
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
        emit openPressed();
    } else if (event->key() == Qt::Key_Escape) {
        emit escapePressed();
    } else {
        QTableView::keyPressEvent(event);
    }
}

void WordTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        fitColumns();
}

void WordTableView::fitColumns()
{
    const QHeaderView *header = horizontalHeader();
    const int present = header->length();
    const int width = viewport()->width();
    if (!model() || present <= 0 || width < WordTableModel::ColumnCount * minColumnWidth)
        return;
    int left = width;
    for (int visual = 0; visual < WordTableModel::ColumnCount; ++visual) {
        const int column = header->logicalIndex(visual);
        const bool isLast = visual == WordTableModel::ColumnCount - 1;
        const int share = int(std::lround(double(columnWidth(column)) * width / present));
        const int fitted = std::max(isLast ? left : share, minColumnWidth);
        setColumnWidth(column, fitted);
        left -= fitted;
    }
}

// A text editor proposes to move its text; here it is always copied.

void WordTableView::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->possibleActions() & Qt::CopyAction)
        event->setDropAction(Qt::CopyAction);
    QTableView::dragEnterEvent(event);
}

void WordTableView::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->possibleActions() & Qt::CopyAction)
        event->setDropAction(Qt::CopyAction);
    QTableView::dragMoveEvent(event);
}

void WordTableView::dropEvent(QDropEvent *event)
{
    if (event->possibleActions() & Qt::CopyAction)
        event->setDropAction(Qt::CopyAction);
    QTableView::dropEvent(event);
}
