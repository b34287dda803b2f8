#include "desktop/FileChooser.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>

namespace {

/// The folder to start in; the toolkit's own choice where it isn't there or its owner lets nobody in.
QString usable(const QString &folder)
{
    const QFileInfo info(folder);
    return info.isReadable() && info.isExecutable() ? folder : QString();
}

/// Ctrl+A marks folders too, with which the dialog takes nothing: of several marked entries it keeps the files.
void markFilesAlone(QFileDialog &dialog)
{
    // Both views of the dialog share it; the system's own dialog has none.
    auto *view = dialog.findChild<QAbstractItemView *>(QStringLiteral("treeView"));
    if (!view || !view->selectionModel()) return;
    QItemSelectionModel *marks = view->selectionModel();
    QObject::connect(marks, &QItemSelectionModel::selectionChanged, &dialog, [marks] {
        const QModelIndexList rows = marks->selectedRows();
        if (rows.size() < 2) return;
        QItemSelection folders;
        for (const QModelIndex &row : rows)
            if (QFileInfo(row.data(QFileSystemModel::FilePathRole).toString()).isDir()) folders.select(row, row);
        if (!folders.isEmpty()) marks->select(folders, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    });
}

FileChooser *&replacementChooser()
{
    static FileChooser *chooser = nullptr;
    return chooser;
}

} // namespace

QStringList FileChooser::openFiles(QWidget *parent, const QString &title, const QString &folder, const QString &filter)
{
    QFileDialog dialog(parent, title, usable(folder), filter);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    markFilesAlone(dialog);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QString FileChooser::openFile(QWidget *parent, const QString &title, const QString &folder, const QString &filter)
{
    return QFileDialog::getOpenFileName(parent, title, usable(folder), filter);
}

QString FileChooser::chooseFolder(QWidget *parent, const QString &title, const QString &folder)
{
    return QFileDialog::getExistingDirectory(parent, title, usable(folder), QFileDialog::ShowDirsOnly);
}

FileChooser &fileChooser()
{
    static FileChooser toolkit;
    return replacementChooser() ? *replacementChooser() : toolkit;
}

void setFileChooser(FileChooser *replacement)
{
    replacementChooser() = replacement;
}
