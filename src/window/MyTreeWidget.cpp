#include "window/MyTreeWidget.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

void MyTreeWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        event->ignore();
        return;
    }
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentItem()) {
        emit rowEntered(currentItem());
        return;
    }
    QTreeWidgetItem *before = currentItem();
    QTreeWidget::keyPressEvent(event);
    if (currentItem() && currentItem() != before) emit rowReached(currentItem());
}

void MyTreeWidget::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
}
