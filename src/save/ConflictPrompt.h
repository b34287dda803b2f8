// The questions that saving must ask a person: the window answers with its dialogs, the batch program with its option,
// a test with a script.
#pragma once

#include <QString>

enum class FolderAnswer { Rename, Overwrite, Cancel, Closed };
enum class FileAnswer { Overwrite, Rename, Skip, OverwriteAll, RenameAll, SkipAll, Closed };

class ConflictPrompt
{
public:
    virtual ~ConflictPrompt() = default;
    /// The run folder `name` exists at the destination; `proposal` is a free name for Rename.
    virtual FolderAnswer folderExists(const QString &name, const QString &proposal) = 0;
    /// The file `name` exists; for Rename `newName`, which holds a free name at first, is the name to take.
    virtual FileAnswer fileExists(const QString &name, QString &newName) = 0;
};
