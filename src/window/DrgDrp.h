// The file list and the zone inside the empty list: both take dropped JPEG files.
#pragma once

#include <QFrame>
#include <QStringList>
#include <QTreeWidget>

class QMimeData;

/// Paths of the files of a drop that are taken: suffix exactly "JPG", "JPEG", "jpg" or "jpeg". A folder among them
/// cancels the whole drop.
QStringList takenFromDrop(const QMimeData *data);

class DragWidget : public QFrame
{
    Q_OBJECT

public:
    explicit DragWidget(QWidget *parent = nullptr);

signals:
    void dataDropped(QStringList paths);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

class DrgDrp : public QTreeWidget
{
    Q_OBJECT

public:
    explicit DrgDrp(QWidget *parent = nullptr);
    DragWidget *pDropArea = nullptr;

signals:
    void setPath(QStringList paths);
    /// The Delete key, or the entry of the context menu.
    void removeAsked();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};
