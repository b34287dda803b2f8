#include "window/DrgDrp.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

QStringList takenFromDrop(const QMimeData *data)
{
    static const QStringList taken{"JPG", "JPEG", "jpg", "jpeg"};
    QStringList paths;
    for (const QUrl &url : data->urls()) {
        const QFileInfo file(url.toLocalFile());
        if (file.isDir()) return {};
        if (taken.contains(file.suffix())) paths.append(file.filePath());
    }
    return paths;
}

DragWidget::DragWidget(QWidget *parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("DropArea"));
    setAcceptDrops(true);
}

void DragWidget::dragEnterEvent(QDragEnterEvent *event)
{
    event->acceptProposedAction();
}

void DragWidget::dragMoveEvent(QDragMoveEvent *event)
{
    event->acceptProposedAction();
}

void DragWidget::dragLeaveEvent(QDragLeaveEvent *) {}

void DragWidget::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    emit dataDropped(takenFromDrop(event->mimeData()));
}

DrgDrp::DrgDrp(QWidget *parent) : QTreeWidget(parent), pDropArea(new DragWidget(this))
{
    setAcceptDrops(true);
    connect(pDropArea, &DragWidget::dataDropped, this, &DrgDrp::setPath);
}

void DrgDrp::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete) {
        emit removeAsked();
        return;
    }
    QTreeWidget::keyPressEvent(event);
    // The box that the space key has changed counts like one that was clicked.
    if (event->key() == Qt::Key_Space && currentItem()) emit itemClicked(currentItem(), 0);
}

void DrgDrp::contextMenuEvent(QContextMenuEvent *event)
{
    if (topLevelItemCount() == 0) return;
    QMenu menu(this);
    connect(menu.addAction(tr("Remove Files")), &QAction::triggered, this, &DrgDrp::removeAsked);
    menu.exec(event->globalPos());
}

void DrgDrp::dragEnterEvent(QDragEnterEvent *event)
{
    event->acceptProposedAction();
}

void DrgDrp::dragMoveEvent(QDragMoveEvent *event)
{
    event->acceptProposedAction();
}

void DrgDrp::dragLeaveEvent(QDragLeaveEvent *) {}

void DrgDrp::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    emit setPath(takenFromDrop(event->mimeData()));
}
