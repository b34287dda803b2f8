// Finds pictures in a file whose container tells nothing: by the bytes with which a JPEG starts and ends.
#pragma once

#include "engine/raw/RawFields.h"

#include <array>

/// The bytes that count as a start, in front of the second marker.
enum class CarveOpener {
    Soi,    ///< FF D8
    EeD8,   ///< EE D8; the picture begins with its second byte
    BareD8, ///< D8 alone, whatever stands in front
};

/// One format's way of carving.
struct CarveRule
{
    static constexpr int kNoTest = -1;

    CarveOpener opener = CarveOpener::Soi;
    std::array<quint16, 3> markers = {0xFFDB, 0xFFC4, 0}; ///< that may follow the opener
    /// Bytes that must lie between the second marker and the file's last byte, or the start is not stored.
    int roomBehindStart = kNoTest;
    /// The same behind FF D9.
    int roomBehindEnd = kNoTest;
    bool stopsInside = true; ///< a stop also ends the search for FF D9
    int images = 1;
};

/// A start and the first FF D9 behind it.
struct CarveHit
{
    quint32 start = 0; ///< 0 if it is not stored
    quint32 end = 0;   ///< behind FF D9; 0 if there is none or it is not stored
    quint64 next = 0;  ///< where the search for the next start begins
    bool startStored = false;
    bool endStored = false;
};

/// The first start at or behind `from`. False if there is none, or if a stop was asked for.
bool findCarveHit(FileWindow &file, const CarveRule &rule, quint64 from, CarveHit &hit);

/// The picture or the two pictures that the rule takes out of the file.
RawImages carve(FileWindow &file, const CarveRule &rule);
