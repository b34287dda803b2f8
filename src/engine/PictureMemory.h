// How much memory a picture may take.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

/// Bytes that a picture may take at the most right now: half of what this program can still get, and 4 GiB at the most.
quint64 pictureMemoryLimit();
/// A lower limit for the whole program, whatever memory is free; 0 takes it back.
void setPictureMemoryLimit(quint64 bytes);

/// Bytes that a process may still take by the limits of the control groups that it and those above it have, in either
/// version (cgroups(7)). `membership` is what /proc/self/cgroup says, `root` where the groups are mounted. All ones where
/// none of them limits memory. Pages of files that can be dropped count as free.
quint64 groupMemoryFree(const QByteArray &membership, const QString &root);
