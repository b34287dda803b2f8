#include "window/ResultOrder.h"

#include "window/RowReport.h"
#include "window/RunPlan.h"

#include <QCollator>
#include <QHeaderView>
#include <QTreeWidget>

#include <algorithm>

namespace {

/// Sorted by, it gives the first order.
constexpr int kPlace = column::ButtonId;

qint64 pixelsOf(const QTreeWidgetItem &source)
{
    qint64 most = 0;
    for (int i = 0; i < source.childCount(); ++i) {
        const QString size = source.child(i)->text(column::Resolution);
        most = std::max(most, size.section('x', 0, 0).toLongLong() * size.section('x', 1, 1).toLongLong());
    }
    return most;
}

int sign(qint64 difference)
{
    return int(difference > 0) - int(difference < 0);
}

} // namespace

ResultRow::ResultRow()
{
    static quint64 made = 0;
    m_place = made++;
}

int ResultRow::compare(const QTreeWidgetItem &other, int column) const
{
    static const QCollator names = [] {
        QCollator collator;
        collator.setNumericMode(true);
        return collator;
    }();
    if (parent()) return 0;
    switch (column) {
    case column::Name: return names.compare(text(column), other.text(column));
    case column::Type: return int(foundIn(this)) - int(foundIn(&other));
    case column::Resolution: return sign(pixelsOf(*this) - pixelsOf(other));
    default: return 0;
    }
}

bool ResultRow::operator<(const QTreeWidgetItem &other) const
{
    const QTreeWidget *tree = treeWidget();
    const int difference = compare(other, tree->sortColumn());
    if (difference != 0) return difference < 0;
    // Equal ones keep their first order in both directions.
    const bool before = m_place < static_cast<const ResultRow &>(other).m_place;
    return before == (tree->header()->sortIndicatorOrder() == Qt::AscendingOrder);
}

ResultOrder::ResultOrder(QTreeWidget *tree) : QObject(tree), m_tree(tree)
{
    tree->header()->setSectionsClickable(true);
    connect(tree->header(), &QHeaderView::sectionClicked, this, &ResultOrder::choose);
}

void ResultOrder::suspend()
{
    if (m_column >= 0) sortBy(kPlace, Qt::AscendingOrder);
}

void ResultOrder::resume()
{
    if (m_column >= 0) sortBy(m_column, m_order);
}

void ResultOrder::forget()
{
    m_column = -1;
    sortBy(kPlace, Qt::AscendingOrder);
}

void ResultOrder::choose(int column)
{
    if (column != m_column) {
        m_column = column;
        m_order = Qt::AscendingOrder;
    } else if (m_order == Qt::AscendingOrder) {
        m_order = Qt::DescendingOrder;
    } else {
        forget();
        return;
    }
    resume();
}

void ResultOrder::sortBy(int column, Qt::SortOrder order)
{
    QHeaderView *head = m_tree->header();
    m_tree->sortByColumn(column, order);
    head->setSortIndicatorShown(column != kPlace);
    const int lacking = column == kPlace ? 0 : head->sectionSizeHint(column) - head->sectionSize(column);
    if (lacking > 0) { // names make room for the arrow
        head->resizeSection(column::Name, head->sectionSize(column::Name) - lacking);
        head->resizeSection(column, head->sectionSize(column) + lacking);
    }
    if (m_tree->currentItem()) m_tree->scrollToItem(m_tree->currentItem());
}
