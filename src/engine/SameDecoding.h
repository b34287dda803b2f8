// Whether two JPEGs are one and the same to a decoder.
#pragma once

#include "engine/FileWindow.h"

/// True if tables, frame, scans and data of `picture` stand in `source` byte for byte and in the same order, so that both
/// decode alike: only segments of applications, comments and what lies behind the picture may differ. False where the
/// segments don't follow each other without a gap, too. Reads each file once, up to the picture's end.
bool decodesAlike(FileWindow &source, FileWindow &picture);
