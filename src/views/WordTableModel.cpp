#include "views/WordTableModel.h"

#include "app/ground/AppGround.h"

#include <QFont>
#include <QHash>
#include <QMimeData>

#include <array>

namespace {

constexpr std::array<QLatin1String, WordTableModel::ColumnCount> identifiers{
    QLatin1String("yourWord"), QLatin1String("foreignWord"), QLatin1String("comment"), QLatin1String("tags"),
    QLatin1String("lastAsked")};

/** A tag is a few words at most; a whole document, dropped by mistake, would fill the cloud with one button.
 */
constexpr qsizetype maxDroppedText = 200;

} // namespace

WordTableModel::WordTableModel(WordTableSource &source, QObject *parent)
    : QAbstractTableModel(parent)
    , m_source(source)
    , m_titles(ColumnCount, QString())
{
}

QString WordTableModel::identifier(int column)
{
    return column >= 0 && column < ColumnCount ? QString(identifiers[size_t(column)]) : QString();
}

int WordTableModel::columnForIdentifier(const QString &identifier)
{
    const auto found = std::find(identifiers.begin(), identifiers.end(), identifier);
    return found == identifiers.end() ? int(LastAsked) : int(found - identifiers.begin());
}

void WordTableModel::setColumnTitle(Column column, const QString &title)
{
    if (m_titles.at(column) == title)
        return;
    m_titles[column] = title;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void WordTableModel::setHighlightedColumn(int column)
{
    m_highlightedColumn = column;
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

TAVWordRef WordTableModel::wordAtRow(int row) const
{
    const TAVWordList &words = m_source.currentWordsToShow();
    return row >= 0 && row < words.size() ? words.at(m_source.calculateWordIndexForRow(row)) : nullptr;
}

void WordTableModel::reload(const std::function<void()> &change)
{
    beginResetModel();
    change();
    endResetModel();
}

void WordTableModel::reorder(const std::function<void()> &change)
{
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    TAVWordList kept;
    kept.reserve(before.size());
    for (const QModelIndex &index : before)
        kept.append(wordAtRow(index.row()));

    change();

    if (!before.isEmpty()) {
        QHash<TAVWordRef, int> rows;
        for (int row = 0, count = rowCount(); row < count; ++row)
            rows.insert(wordAtRow(row), row);
        QModelIndexList after;
        after.reserve(before.size());
        for (qsizetype i = 0; i < before.size(); ++i) {
            const auto row = rows.constFind(kept.at(i));
            after.append(row == rows.constEnd() ? QModelIndex() : index(*row, before.at(i).column()));
        }
        changePersistentIndexList(before, after);
    }
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int WordTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_source.currentWordsToShow().size());
}

int WordTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant WordTableModel::data(const QModelIndex &index, int role) const
{
    const TAVWordRef word = index.isValid() ? wordAtRow(index.row()) : nullptr;
    if (!word)
        return {};
    if (role == DontAskAgainRole)
        return word->dontAskAgain();
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case YourWord:
        return word->yourWord();
    case ForeignWord:
        return word->foreignWord();
    case Comment:
        return word->comment();
    case Tags:
        return word->tagsSorted().join(QLatin1String(", "));
    default:
        return AppGround::timeSinceDate(word->lastAsked());
    }
}

QVariant WordTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return m_titles.at(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeading | Qt::AlignVCenter));
    if (role == Qt::FontRole && section == m_highlightedColumn) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

Qt::ItemFlags WordTableModel::flags(const QModelIndex &index) const
{
    // No flag outside of the rows: a text can be dropped onto a word, never between two.
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
}

QStringList WordTableModel::mimeTypes() const
{
    return {QStringLiteral("text/plain")};
}

bool WordTableModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                     const QModelIndex &parent) const
{
    Q_UNUSED(column)
    return parent.isValid() && row < 0 && action == Qt::CopyAction && data && data->hasText();
}

bool WordTableModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                  const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const QString text = data->text();
    return text.size() <= maxDroppedText && m_source.acceptDrop(parent.row(), text);
}
