// What the medium of the file in hand has refused: FileWindow reads it as zeros, and somebody has to know.
#pragma once

#include <QString>

/// From now on pages of the file at `path` that a FileWindow of this thread can't read are kept in mind; those of the file
/// before are forgotten.
void watchMedium(const QString &path);
/// True for the path that is watched on this thread.
bool isWatched(const QString &path);
/// `count` bytes from `offset` on could not be read; the same ones again count once.
void noteRefused(quint64 offset, quint64 count);
/// Bytes refused so far in [begin, end), each counted once.
quint64 refusedBytes(quint64 begin = 0, quint64 end = UINT64_MAX);
