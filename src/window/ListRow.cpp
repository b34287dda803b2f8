#include "window/ListRow.h"

#include <QDateTime>
#include <QTreeWidget>

bool ListRow::operator<(const QTreeWidgetItem &other) const
{
    const int column = treeWidget() ? treeWidget()->sortColumn() : Name;
    if (column == Size) return text(SizeInBytes).toLongLong() < other.text(SizeInBytes).toLongLong();
    if (column == Modified || column == Created)
        return data(column, Qt::UserRole).toDateTime() < other.data(column, Qt::UserRole).toDateTime();
    return QTreeWidgetItem::operator<(other);
}
