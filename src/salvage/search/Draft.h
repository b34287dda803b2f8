// The header of one picture as far as it can be gathered: what stands, what is usual, and the choices that are left.
#pragma once

#include "salvage/Steps.h"
#include "salvage/structure/ScanFinder.h"
#include "salvage/tables/Huffman.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace salvage {

struct PictureSize
{
    quint16 width = 0;
    quint16 height = 0;
    bool operator==(const PictureSize &) const = default;
};

struct Draft
{
    Header header;             ///< without quantization tables; with the first choice of each Huffman table
    bool hasFrame = false;     ///< size and components come from a frame
    bool frameFirm = false;    ///< which is sound in every field
    bool scanDoubtful = false; ///< the scan's header was spoilt or made
    bool progressive = false;
    bool severalScans = false;
    std::map<HuffmanKey, std::vector<TableOption>> options; ///< for each key at least one, the best first
    std::map<quint8, QuantTable> quant;                     ///< tables as they were found
    std::set<quint8> wideQuant;                             ///< of them those of 16 bits
    std::vector<PictureSize> exifSizes;
    std::set<Step> steps;
};

/// Gathers what stands in front of a candidate's scan.
Draft draftHeader(ByteView file, const Candidate &candidate, const KnownTables &known, const Budget &budget = Budget());

/// Samplings that are in use, the likeliest first, as factors by component.
const std::vector<std::vector<std::pair<quint8, quint8>>> &usualSamplings();
/// `header` with each usual sampling of so many components, but for the one that it has.
std::vector<Header> withOtherSamplings(const Header &header);

/// Sizes that Exif gives (PixelXDimension and PixelYDimension, tags A002 and A003), each once, at most 16.
std::vector<PictureSize> exifSizes(ByteView file);

} // namespace salvage
