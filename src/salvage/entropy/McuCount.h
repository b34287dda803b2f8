// How many MCUs of a JPEG its entropy data really give.
#pragma once

#include "salvage/Budget.h"
#include "salvage/Types.h"

namespace salvage {

struct McuCount
{
    bool counted = false; ///< false where the file's header can't be read; nothing else is known then
    quint64 decoded = 0;  ///< MCUs in front of the first error of each restart interval, over all scans
    quint64 total = 0;    ///< MCUs that the picture has, over all scans
    bool faulty = false;  ///< a code that can't be, data left over, a lost marker or a missing scan
    bool missing = false; ///< data ended before the last MCU, or intervals were lost
    double share() const { return total ? double(decoded) / double(total) : 0; }
};

/// Counts the main picture of `file` as a decoder reads it: behind an error the next restart marker is where it goes on,
/// if there is one (ISO/IEC 10918-1, F.2.2.5). Takes about half as long as a decode; where there are several scans, memory
/// for the coefficients of the picture.
McuCount countMcus(ByteView file, Budget &budget);

/// True if the scans of `file` give each coefficient of each component to its last bit, judged by their headers alone.
bool scansAreComplete(ByteView file);

} // namespace salvage
