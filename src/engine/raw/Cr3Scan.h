// CR3: the boxes of an ISO base media file that lead to its pictures.
#pragma once

#include "engine/FileWindow.h"

/// One picture of a CR3.
struct Cr3Image
{
    quint64 start = 0;
    quint32 length = 0; ///< 0 if there is none
    bool blank = false; ///< it is told to be there but can't be whole: its copy is zeros
    bool operator==(const Cr3Image &) const = default;
};

struct Cr3Images
{
    Cr3Image full;      ///< of the first track
    Cr3Image preview;   ///< of the PRVW box
    Cr3Image thumbnail; ///< of the THMB box
    bool carved = false;
    bool operator==(const Cr3Images &) const = default;
};

/// The pictures by the boxes, and where these give none, the first three by carving: the first one counts as thumbnail.
/// `carvePosition` gets the offset where the carve ended and is left alone without one.
Cr3Images findCr3Images(FileWindow &file, quint32 &carvePosition);
