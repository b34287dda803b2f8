// The line on the first page that counts the files of the list: "33 files, 31 ticked".
#pragma once

#include <QLabel>

class QTreeWidget;

class ListCount : public QLabel
{
    Q_OBJECT

public:
    /// Follows `list`, which must outlive it; hidden while it is empty.
    ListCount(QTreeWidget *list, QWidget *page);

    void count();

private:
    void countSoon();

    QTreeWidget *m_list;
    bool m_counting = false; ///< is asked for: thousands of rows come one by one, and are counted once
};
