// The tree of results: the space key does nothing in it, and it has no context menu.
#pragma once

#include <QTreeWidget>

class MyTreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    using QTreeWidget::QTreeWidget;

signals:
    /// The keyboard has made another row the current one.
    void rowReached(QTreeWidgetItem *item);
    /// Return was pressed on a row.
    void rowEntered(QTreeWidgetItem *item);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
