// Copies that are whole or absent: written beside their place under a name of their own, put on the medium, and moved.
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

/// Bytes that a copy has and its source hasn't.
struct InsertedBytes
{
    qint64 at = 0; ///< offset in the source of the byte that follows them
    QByteArray bytes;
};

/// What is copied.
struct CopySource
{
    QString path;
    InsertedBytes inserted{};
    mode_t mode = 0666; ///< of the copy, before the user's mask takes its part away
};

/// Copies to `target`, where nothing may stand. What a full or lost medium refuses is known on return; syncFolder() makes
/// the new name last as well. Returns 0 or an error number, EEXIST where something came to stand there meanwhile; then
/// nothing is left there that wasn't there before.
int copyToNewFile(const CopySource &source, const QString &target);

/// The same, but the copy takes the place of what stands at `target`, in one step; a link there is replaced and its target
/// not touched. Fails with EEXIST where an original of the run stands.
int replaceByCopy(const CopySource &source, const QString &target);

/// `path`, or with "Copy(n)_" in front of its name where that is taken, whatever stands there.
QString freePathBeside(const QString &path);

/// Has the system put the names in `folder` on the medium. Returns 0 or an error number.
int syncFolder(const QString &folder);

/// Removes from `folder` what copies that were ended by force have left; those at work, of any process, stay.
void removeLeftParts(const QString &folder);

/// True if `target` is a file with the very bytes that a copy would have.
bool isCopy(const CopySource &source, const QString &target);

/// Why the system refused to write, for a person; for what everybody may meet in the language of the interface.
QString writeProblem(int error);
/// The same with the name of what was to be written; "" for 0.
QString copyProblem(const QString &target, int error);
