// The file list and the zone inside the empty list: both take dropped JPEG files.
#pragma once

#include <QFrame>
#include <QStringList>
#include <QTreeWidget>

class QMimeData;

/// Paths of the files of a drop that are taken: suffix exactly "JPG", "JPEG", "jpg" or "jpeg". A folder among them
/// cancels the whole drop.
QStringList takenFromDrop(const QMimeData *data);

/// What takenFromDrop leaves behind: the folders, if there is one, else the files of other formats. Names without folder.
struct DropRefusal
{
    QStringList names;
    bool folders = false;
};
DropRefusal refusedFromDrop(const QMimeData *data);

class DragWidget : public QFrame
{
    Q_OBJECT

public:
    explicit DragWidget(QWidget *parent = nullptr);

signals:
    void dataDropped(QStringList paths);
    void refused(const DropRefusal &refusal);

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
    /// Behind setPath, where something of the drop was not taken.
    void refused(const DropRefusal &refusal);
    /// The Delete key, or an entry of the context menu.
    void removeFileAsked();
    void removeTickedAsked();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};
