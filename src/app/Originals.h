// The files that a run was given: whatever their names, nothing of the program may replace, wipe or remove them.
#pragma once

#include <QStringList>

/// Forgets all and takes the files at `paths`; what isn't there is left out. May be called on any thread, as all of these.
void setOriginals(const QStringList &paths);
/// Adds the file at `path`, and the link there if it is one.
void addOriginal(const QString &path);

/// True if what stands at `path`, a link being itself, is one of them under any name: told by device and inode, so that a
/// second name, a bind mount or a detour over links doesn't hide one. Asks the file system each time.
bool isOriginal(const QString &path);
