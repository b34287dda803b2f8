// The tolerant list of segments: what is sound stands in it as it is, what lies between is read by its structure.
#pragma once

#include "salvage/Budget.h"
#include "salvage/Types.h"

#include <vector>

namespace salvage {

class KnownTables;

struct Segment
{
    static constexpr int kGap = -1;

    int marker = kGap; ///< second byte, by the body where that says otherwise; kGap for a range that is no segment
    size_t begin = 0;  ///< of the marker, whose FF may be another byte where it was lost
    size_t end = 0;
    ByteView body;
    bool strong = false; ///< marker and length stand, and lead to a marker or hold a body that is sound by itself
    bool ofMain = true;  ///< not in front of the EOI of an earlier picture
};

/// [from, to) as strong segments and gaps, in order and without holes (gaps under four bytes are left out).
/// Of more than 20,000 segments those nearest to `to`, and fewer once a stop was asked for.
std::vector<Segment> walkSegments(ByteView file, size_t from, size_t to, const Budget &budget = Budget());

/// The marker by which a body passes best for a frame (C0), DQT, DHT or DRI, and how well it does, 0 to 1.
struct BodyClass
{
    int marker = 0;
    double score = 0;
};
BodyClass classify(ByteView body, const KnownTables &known);

/// The segments in front of a scan, the gaps read by what they hold and wrongly named segments by their bodies. `ofMain`
/// tells those behind the last EOI. Of the gaps those nearest to the scan are read, 300 kB in all.
std::vector<Segment> gatherSegments(ByteView file, size_t from, size_t to, const KnownTables &known,
                                    const Budget &budget = Budget());

} // namespace salvage
