// Creating and writing the files of a run: exclusively, following no link, remembering a full disk.
#pragma once

#include <QString>

#include <cstdio>
#include <memory>

class FileWindow;

/// Creates `path` for writing and reading ("wb+"), mode 0600. Null if it can't be made, or if anything stands there; notes
/// a full disk in the report of `pApp`.
FILE *createFile(const QString &path);
/// The same for an output in the working folder, whose earlier form goes first: a file is wiped, of a link the link itself.
/// Null where an original lies.
FILE *createOutput(const QString &path);
/// Wipes the file at `path`, unless it is an original.
void dropFile(const QString &path);
/// Closes a file made by one of these. False, with the report of `pApp` saying disk-full, if bytes were lost.
bool closeFile(FILE *file);
/// Appends or overwrites at the current position.
void writeBytes(FILE *out, const void *bytes, qint64 count);
qint64 fileLength(FILE *out);

/// For a file on its way: closes it where an exception passes, with no word about what got lost.
using FileGuard = std::unique_ptr<FILE, int (*)(FILE *)>;
inline FileGuard guarded(FILE *file)
{
    return {file, std::fclose};
}

/// Moves `count` bytes of `in` from `offset` to the current position of `out`, in blocks of 1,024 with the odd remainder
/// first, through one buffer that is zeroed once. A block that the source fills in part keeps behind it what the block
/// before left there; a block wholly behind the end is the former block once more.
void blockCopy(FileWindow &in, quint64 offset, qint64 count, FILE *out);
