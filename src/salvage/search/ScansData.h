// The entropy data of a picture in several scans, taken out of a damaged file with the tables between them.
#pragma once

#include "salvage/structure/ScanFinder.h"

#include <vector>

namespace salvage {

/// One scan of several.
struct RawScan
{
    QByteArray head;  ///< tables and SOS segment in front of it; empty for the first
    ByteView raw;     ///< entropy data as the file has them
    QByteArray bytes; ///< the same with the codes mended that can't stand there
    int codesMended = 0;
};

struct ScansData
{
    std::vector<RawScan> scans;
    bool scansLost = false; ///< a header between two of them was damaged, and something was left out

    int codesMended() const;
    /// All that follows the header of the first scan, without EOI.
    QByteArray joined() const;
};

/// The scans of a candidate up to the end of its picture. Codes within a scan that no real structure follows end nothing;
/// a damaged header between two scans costs what lies in front of the next sound one. `restarts` where markers may stand.
ScansData takeScans(ByteView file, const Candidate &candidate, bool restarts, const Budget &budget);

} // namespace salvage
