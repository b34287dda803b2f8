// What a source itself is: a healthy picture, another format under this name, or no picture at all.
#pragma once

#include "engine/RepairReport.h"

#include <QString>

class FileWindow;

/// What is left of a picture in a file of which nothing came out.
struct PictureData
{
    bool any = false;     ///< a header or entropy data, however damaged
    double zeroShare = 0; ///< of the file's bytes, 0 to 1
};

/// Looks through a file for JPEG markers in their places and for stretches in which each FF has the byte behind it that
/// entropy data have (ISO/IEC 10918-1, B.1.1.5); random bytes, text and zeros have neither. One pass over the file.
PictureData findPictureData(FileWindow &file);

/// Sets `trueFormat`, `sourceHealthy`, `zeroShare` and, where nothing came out, the truer reason of `report` for the source
/// at `path`, whose outputs stand in it. `gaveNothing` says that there is none. Decodes a JPEG once where its output
/// doesn't tell already whether it opens. Worker's work.
void judgeSource(const QString &path, bool gaveNothing, RepairReport &report);

/// True where a sample from the same camera may bring back what `report` misses.
bool sampleMayHelp(const RepairReport &report);
/// True where deep salvage, which hasn't run for this file yet, may.
bool deepSalvageMayHelp(const QString &path, const RepairReport &report);
