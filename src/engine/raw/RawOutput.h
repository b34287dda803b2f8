// The copies that raw scanners put into the working folder.
#pragma once

#include "engine/RepairReport.h"

#include <QString>

class FileWindow;

/// What the names of a source's outputs begin with: its working name, whole or up to its first dot, and cut where a name
/// that long could not be given to a file.
QString rawBaseName(const QString &path, bool whole = false);

/// Writes `length` bytes of `file` from `start` as the output `name`; what lies behind the file's end is zeros, for which
/// no room is taken up. Judges the copy and notes it in the report of `pApp`, but leaves `lstResultNames` alone. False,
/// with no file left, if it can't be written.
bool writeRawImage(FileWindow &file, quint64 start, quint32 length, const QString &name, RepairWay way);
