// The order of the results: as the files were given, until a header is clicked.
#pragma once

#include <QObject>
#include <QTreeWidgetItem>

class QTreeWidget;

/// A row of results. Sources are compared by the column that is sorted by: names as people count, types by what came of
/// the file, from the best to the least, resolutions by the pixels of the largest output. Outputs stay as they were added.
class ResultRow : public QTreeWidgetItem
{
public:
    ResultRow();
    bool operator<(const QTreeWidgetItem &other) const override;

private:
    int compare(const QTreeWidgetItem &other, int column) const;

    quint64 m_place; ///< in the order of making
};

/// Sorts by a header that is clicked: up, down, and back to the first order.
class ResultOrder : public QObject
{
    Q_OBJECT

public:
    /// For the rows of `tree`, which owns the object; all of them must be a ResultRow.
    explicit ResultOrder(QTreeWidget *tree);

    /// The first order, for the time of a run, which knows its rows by their numbers.
    void suspend();
    /// The order that was chosen, once what came of the files is known.
    void resume();
    /// The first order again, as for new rows.
    void forget();

private:
    void choose(int column);
    void sortBy(int column, Qt::SortOrder order);

    QTreeWidget *m_tree;
    int m_column = -1; ///< none was chosen
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
