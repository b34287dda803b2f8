// A row of the file list.
#pragma once

#include <QTreeWidgetItem>

/// Columns of the file list; those from 3 to 6 are hidden.
enum ListColumn { Name, Path, Size, FileId, ParentId, SizeInBytes, TemporaryPath, Modified, Created, ListColumns };

/// Sorts sizes by their bytes, and dates, which stand as QDateTime in Qt::UserRole of their cell, by time.
class ListRow : public QTreeWidgetItem
{
public:
    bool operator<(const QTreeWidgetItem &other) const override;
};
