#pragma once

#include <QTableView>

/**
 * The table of the vocabulary view: its look, its keys, and columns that share the width in proportions that
 * the user sets. All rows have one height, so that only the shown cells are ever asked for.
 */
class WordTableView : public QTableView
{
    Q_OBJECT

public:
    explicit WordTableView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override;
    /** The selected rows in ascending order. */
    QList<int> selectedRowList() const;
    void selectOnlyRow(int row);
    /** Order and widths of the columns, as restoreColumns() reads them. */
    QString columnLayout() const;
    /** A text that isn't such a layout changes nothing. */
    void restoreColumns(const QString &layout);

public slots:
    /** Puts the selected rows on the clipboard, tab-separated in the order of the columns. */
    void copy();

signals:
    void deletePressed();
    void escapePressed();
    /** Return was pressed on the selection. */
    void openPressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void fitColumns();
};
