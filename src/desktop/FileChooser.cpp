#include "desktop/FileChooser.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {

/// The folder to start in; the toolkit's own choice where it isn't there or its owner lets nobody in.
QString usable(const QString &folder)
{
    const QFileInfo info(folder);
    return info.isReadable() && info.isExecutable() ? folder : QString();
}

FileChooser *&replacementChooser()
{
    static FileChooser *chooser = nullptr;
    return chooser;
}

} // namespace

QStringList FileChooser::openFiles(QWidget *parent, const QString &title, const QString &folder, const QString &filter)
{
    return QFileDialog::getOpenFileNames(parent, title, usable(folder), filter);
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
