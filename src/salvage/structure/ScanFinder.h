// Where in a damaged file the entropy data of its pictures lie, and which of them is the picture that a person misses.
#pragma once

#include "salvage/Budget.h"
#include "salvage/Types.h"

#include <map>
#include <vector>

namespace salvage {

class KnownTables;

/// A scan header that may be one, and the entropy data behind it.
struct Scan
{
    size_t at = 0;       ///< where the SOS segment begins, or would begin
    size_t start = 0;    ///< of the entropy data
    size_t end = 0;      ///< of the entropy data of this scan
    ByteView body;       ///< of the SOS; empty where none stands
    double score = 0;    ///< of the body, see sosScore(); less where marker or length are spoilt
    bool marked = false; ///< FF DA stands in front
};

/// A range of bytes, [begin, end).
struct Range
{
    size_t begin = 0;
    size_t end = 0;
};

/// End of the entropy data that begin at `from`: the next marker that stands before real structure, or the end of the
/// file. Any other FF xx is damage and ends nothing. Like the other searches of this header it stops early, with what it
/// has, once a stop was asked for.
size_t scanEnd(ByteView file, size_t from, const Budget &budget = Budget());

/// Every place where a scan may begin, in no order: at an SOS that is sound by its own structure, at the same body without
/// its marker or with a wrong length.
std::vector<Scan> findScans(ByteView file, Budget &budget);

/// Where data may begin in a file without a usable SOS: behind the last sound table or frame, or at offset 0 of a file that
/// begins with entropy data. `start` == `end` if there is no such place.
Scan scanWithoutHeader(ByteView file, const KnownTables &known, const Budget &budget = Budget());

/// End of the picture that a scan begins: behind the last of the scans that follow one another through their tables.
struct ScanChain
{
    size_t end = 0;
    int scans = 1;            ///< at most some hundreds
    bool progressive = false; ///< a scan behind the first has a part of the coefficients alone
};

/// True for the body of an SOS that can't be the first of a picture: it has no levels (DC), or refines them.
bool cannotBeFirst(ByteView sosBody);

/// Where the first scan of the picture may begin to which `scan` belongs, its header damaged or gone: behind sound tables or a
/// frame in front of `scan`. At most 16, front to back.
std::vector<Scan> firstScansBefore(ByteView file, const Scan &scan, const KnownTables &known, const Budget &budget);

/// Follows chains of scans. Remembers where it has been, so that each part of the file is looked through once.
class ChainFinder
{
public:
    /// Both must outlive the object.
    ChainFinder(ByteView file, const Budget &budget) : m_file(file), m_budget(budget) {}
    ScanChain from(const Scan &scan);

private:
    size_t nextScanBehind(size_t end, bool &progressive) const;

    ByteView m_file;
    const Budget &m_budget;
    std::map<size_t, ScanChain> m_behind; // by the end of a scan: the chain that it belongs to, from there on
};

/// Bodies of sound APP segments and the places that Exif names for its thumbnail (tags 0201 and 0202).
std::vector<Range> nestedRanges(ByteView file, const Budget &budget = Budget());

/// A picture to try.
struct Candidate
{
    Scan scan;
    ScanChain chain;
    size_t headerFrom = 0; ///< what stands in front of this offset belongs to another picture
};
/// The main picture and at most two others that may be it, best first; empty where no scan is found. Nested pictures are
/// there only if nothing else stands.
std::vector<Candidate> chooseScans(ByteView file, const KnownTables &known, Budget &budget);

} // namespace salvage
