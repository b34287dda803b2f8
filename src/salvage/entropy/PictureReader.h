// Reads a picture of any number of scans, baseline and progressive (ISO/IEC 10918-1, annexes F and G), and counts its errors.
#pragma once

#include "salvage/entropy/Entropy.h"

#include <optional>
#include <vector>

namespace salvage {

/// What a picture in several scans gives.
struct ScansReading
{
    Coefficients picture;
    quint32 scans = 0;  ///< that were begun
    quint32 errors = 0; ///< an error ends its restart interval, or its scan where there is none
    quint64 done = 0;   ///< MCUs (blocks, where a scan has one component) that were read, over all scans
    quint64 total = 0;
    size_t end = 0;        ///< offset in the data behind the last scan
    bool complete = false; ///< an EOI, or the end of the data, came behind the last scan, and every component had one
    double share() const { return total ? double(done) / double(total) : 0; }
};

/// Reads one scan over the picture of those in front of it; `header` is the one in force. Adds to `done`, `total` and
/// `errors`. False if its header can't be.
bool readScan(const Header &header, ByteView data, ScansReading &reading, const Budget &budget);

/// One scan, and what is in force for it.
struct ScanPart
{
    Header header;    ///< without APP segments
    size_t begin = 0; ///< of its entropy data
    size_t end = 0;
};
/// The scans of `data`, of which `header` describes the first, strictly by their markers; at most 100. `ended` gets whether
/// an EOI or the end of the data came behind the last one.
std::vector<ScanPart> splitScans(const Header &header, ByteView data, bool *ended = nullptr);

/// Decodes `data` from the first scan of `header` on, through all tables and scans that follow it. Stops early, with what
/// is read, when the budget's stop was asked for. Takes memory for one picture; nothing is read of one that is too large.
ScansReading readScans(const Header &header, ByteView data, Budget &budget);

/// The header of a file as it stands, strictly by its markers and lengths; `dataAt` gets the offset of its entropy data.
/// Nothing where a part is missing or can't be. With `overJunk` bytes between two segments are passed, as decoders do.
std::optional<Header> readHeader(ByteView file, size_t &dataAt, bool overJunk = false);

/// Offset of the next FF, from `from`, that begins a marker other than a restart marker, or the end of the data.
size_t nextMarker(ByteView data, size_t from);

} // namespace salvage
