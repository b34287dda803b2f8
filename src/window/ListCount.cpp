#include "window/ListCount.h"

#include <QTimer>
#include <QTreeWidget>

#include <utility>

ListCount::ListCount(QTreeWidget *list, QWidget *page) : QLabel(page), m_list(list)
{
    setObjectName(QStringLiteral("listCount"));
    setProperty("role", "hint");
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    hide();
    const QAbstractItemModel *model = list->model();
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model, changed, this, &ListCount::countSoon);
    connect(model, &QAbstractItemModel::dataChanged, this, &ListCount::countSoon);
    connect(model, &QAbstractItemModel::modelReset, this, &ListCount::countSoon);
}

void ListCount::countSoon()
{
    if (std::exchange(m_counting, true)) return;
    QTimer::singleShot(0, this, [this] {
        m_counting = false;
        count();
    });
}

void ListCount::count()
{
    const int files = m_list->topLevelItemCount();
    int ticked = 0;
    for (int i = 0; i < files; ++i)
        if (m_list->topLevelItem(i)->checkState(0) == Qt::Checked) ++ticked;
    setText(files == 1 ? tr("1 file, %1 ticked").arg(ticked) : tr("%n files, %1 ticked", nullptr, files).arg(ticked));
    // The list has its place by the way in which its first files came.
    const int right = m_list->geometry().right();
    setGeometry(right - 399, 504, 400, 20);
    setVisible(files > 0);
}
