#include "window/ColumnFit.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTreeWidget>

#include <algorithm>

void fitColumns(QTreeWidget *list, int giver, int least)
{
    int others = 0;
    for (int i = 0; i < list->columnCount(); ++i) {
        if (list->isColumnHidden(i)) continue;
        const int width = std::max(list->columnWidth(i), list->header()->sectionSizeHint(i));
        if (i != giver) list->setColumnWidth(i, width);
        if (i != giver) others += width;
    }
    const int frame = 4; // the one of the focus is the wider one
    const int room = list->width() - frame - list->verticalScrollBar()->sizeHint().width();
    list->setColumnWidth(giver, std::max({least, list->header()->sectionSizeHint(giver), room - others}));
}
