// Creating and writing the files of a run: exclusively, following no link, remembering a full disk.
#pragma once

#include <QString>

#include <cstdio>

class FileWindow;

/// Creates `path` anew for writing and reading ("wb+"), mode 0600. What stood there is removed first, a link itself and
/// not its target. Null if it can't be made; notes a full disk in the report of `pApp`.
FILE *createFile(const QString &path);
/// Closes a file made by createFile. False, with the report of `pApp` saying disk-full, if bytes were lost.
bool closeFile(FILE *file);
/// Appends or overwrites at the current position.
void writeBytes(FILE *out, const void *bytes, qint64 count);
qint64 fileLength(FILE *out);

/// Moves `count` bytes of `in` from `offset` to the current position of `out`, in blocks of 1,024 with the odd remainder
/// first, through one buffer that is zeroed once. A block that the source fills in part keeps behind it what the block
/// before left there; a block wholly behind the end is the former block once more.
void blockCopy(FileWindow &in, quint64 offset, qint64 count, FILE *out);
