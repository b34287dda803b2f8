#include "window/DrgDrp.h"

#include <QDir>
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

DropRefusal refusedFromDrop(const QMimeData *data)
{
    DropRefusal refusal;
    const QStringList taken = takenFromDrop(data);
    for (const QUrl &url : data->urls()) {
        const QFileInfo file(url.toLocalFile());
        if (!file.isDir() && (refusal.folders || taken.contains(file.filePath()))) continue;
        if (file.isDir() && !refusal.folders) {
            refusal.folders = true;
            refusal.names.clear();
        }
        refusal.names << (file.isDir() ? QDir(file.filePath()).dirName() : file.fileName());
    }
    return refusal;
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
    const DropRefusal refusal = refusedFromDrop(event->mimeData());
    if (!refusal.names.isEmpty()) emit refused(refusal);
}

DrgDrp::DrgDrp(QWidget *parent) : QTreeWidget(parent), pDropArea(new DragWidget(this))
{
    setAcceptDrops(true);
    connect(pDropArea, &DragWidget::dataDropped, this, &DrgDrp::setPath);
    connect(pDropArea, &DragWidget::refused, this, &DrgDrp::refused);
}

void DrgDrp::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete) {
        emit removeFileAsked();
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
    QAction *one = menu.addAction(tr("Remove file"));
    one->setEnabled(currentItem());
    connect(one, &QAction::triggered, this, &DrgDrp::removeFileAsked);
    connect(menu.addAction(tr("Remove ticked")), &QAction::triggered, this, &DrgDrp::removeTickedAsked);
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
    const DropRefusal refusal = refusedFromDrop(event->mimeData());
    if (!refusal.names.isEmpty()) emit refused(refusal);
}
