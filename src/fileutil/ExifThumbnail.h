// The small picture that cameras put into a JPEG beside the large one.
#pragma once

#include "engine/FileWindow.h"

#include <QByteArray>

/// The JPEG of the second directory (IFD1) of the file's Exif segment, as JEITA CP-3451 lays it out. Empty if there is no
/// such segment in front of the picture's tables, or it names no JPEG inside of itself.
QByteArray exifThumbnail(FileWindow &file);
