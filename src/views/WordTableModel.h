#pragma once

#include "model/TAVWord.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>

/** Where the word table takes its rows from. */
class WordTableSource
{
public:
    virtual ~WordTableSource() = default;
    /** The words in ascending order; worked out anew only after they were declared out of date. */
    virtual const TAVWordList &currentWordsToShow() = 0;
    /** The place in the list that a row shows. */
    virtual qsizetype calculateWordIndexForRow(qsizetype row) = 0;
    /** A text was dropped onto the row; whether it was taken. */
    virtual bool acceptDrop(int row, const QString &text) = 0;
};

/** The rows and columns of the vocabulary view. It holds no words: each cell is read when it is shown. */
class WordTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { YourWord, ForeignWord, Comment, Tags, LastAsked, ColumnCount };
    enum Role {
        /** Whether the user has excluded the word from rehearsal. */
        DontAskAgainRole = Qt::UserRole
    };

    /** The source must outlive the model. */
    explicit WordTableModel(WordTableSource &source, QObject *parent = nullptr);

    /** The word's property that the column shows. */
    static QString identifier(int column);
    /** LastAsked for anything that is no column's. */
    static int columnForIdentifier(const QString &identifier);
    void setColumnTitle(Column column, const QString &title);
    /** The column that the table is sorted by; its title stands out. */
    void setHighlightedColumn(int column);
    TAVWordRef wordAtRow(int row) const;

    /** For a change after which other words may be shown. */
    void reload(const std::function<void()> &change);
    /** For a change of the order alone: what is selected stays so, wherever it goes. */
    void reorder(const std::function<void()> &change);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    QStringList mimeTypes() const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

private:
    WordTableSource &m_source;
    QStringList m_titles;
    int m_highlightedColumn = YourWord;
};
