// Overwrites the pictures of a run before they are deleted, so that no private picture stays on the disk.
#pragma once

#include <QString>

class QFile;

/// Wipes what lies below the working root. Follows no link: the link goes, its target stays as it is. Folders stay, empty,
/// and so do hidden files. Originals of the run stay, under whatever name they lie there. Reports nothing.
class WipeFolder
{
public:
    /// Wipes the folder `name`, or the file of that name, both relative to the working root. "" and a name at which
    /// nothing stands do nothing.
    void WipeFile(const QString &name);
    /// Wipes the file at `path`, or every file below the folder there. Always true.
    bool DirFileWipe(const QString &path);
    /// Overwrites one file with zeros and deletes it. A file that can't be opened is deleted as it is, and so is one that
    /// has a second name elsewhere: its bytes are not this folder's alone. Always true.
    bool ActuallyFileWipe(const QString &path);
    /// Wipes the file at `path`, or all below the folder there, hidden files too, and removes the folder. False if
    /// something had to stay.
    bool removeTree(const QString &path);
    /// Overwrites the open file's bytes with `value`. Its length stays.
    void fnWriteFile(QFile *file, int value);

private:
    qint32 nWiped = 0; ///< set to 0 before each file, read by nothing
};
