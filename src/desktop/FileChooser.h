// Where the window asks for files and folders: the toolkit's dialogs, or a test's script.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

class FileChooser
{
public:
    virtual ~FileChooser() = default;
    /// Paths of the chosen files, empty if the user cancelled. A `folder` that isn't there leaves the start to the toolkit.
    virtual QStringList openFiles(QWidget *parent, const QString &title, const QString &folder, const QString &filter);
    virtual QString openFile(QWidget *parent, const QString &title, const QString &folder, const QString &filter);
    /// An existing folder, "" if the user cancelled.
    virtual QString chooseFolder(QWidget *parent, const QString &title, const QString &folder);
};

/// The toolkit's dialogs, until another one is set.
FileChooser &fileChooser();
/// For tests; null brings the toolkit's dialogs back. The caller keeps it alive.
void setFileChooser(FileChooser *replacement);
