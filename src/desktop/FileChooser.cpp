#include "desktop/FileChooser.h"

#include <QFileDialog>

namespace {

FileChooser *&replacementChooser()
{
    static FileChooser *chooser = nullptr;
    return chooser;
}

} // namespace

QStringList FileChooser::openFiles(QWidget *parent, const QString &title, const QString &folder, const QString &filter)
{
    return QFileDialog::getOpenFileNames(parent, title, folder, filter);
}

QString FileChooser::openFile(QWidget *parent, const QString &title, const QString &folder, const QString &filter)
{
    return QFileDialog::getOpenFileName(parent, title, folder, filter);
}

QString FileChooser::chooseFolder(QWidget *parent, const QString &title, const QString &folder)
{
    return QFileDialog::getExistingDirectory(parent, title, folder, QFileDialog::ShowDirsOnly);
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
