// Damage in the entropy data of a baseline scan: what lies behind an error is found again and put where it belongs.
#pragma once

#include "salvage/picture/McuStream.h"
#include "salvage/picture/Picture.h"
#include "salvage/search/Search.h"

#include <optional>
#include <set>

namespace salvage {

/// A scan that was written anew.
struct Mended
{
    Header header; ///< with the tables of Annex K and no restart interval
    QByteArray data;
    std::set<Step> steps; ///< what was done to it
    double share = 0;     ///< of the MCUs that were read; the others have the levels of what is around them
};

/// The picture as a decoder shows it that goes on behind errors. The header's size must fit the memory.
Coefficients pictureAsShown(const Header &header, ByteView data, Budget &budget);

/// Mends a scan whose header is right, quantization included: by restart intervals where the header has one, else by how
/// the edges of the blocks fit. Nothing where the plain decode looks as good, and for more than 60,000 MCUs without intervals.
std::optional<Mended> mendScan(const Header &header, const ScanData &data, Budget &budget);

/// A picture with holes.
struct Patchwork
{
    Coefficients picture;
    std::vector<bool> have;   ///< by MCU
    bool endsInPlace = false; ///< the last MCU of the data is that of the picture
    double share() const;
};
/// Gives the holes of a picture of `header` what leads from the lines of samples above them to those below, coarse patterns
/// alone; where there is neither, the level of the left neighbour.
void fillHoles(Patchwork &work, const Header &header);

/// Takes back jumps of the levels (DC) of a component that begin at some MCU of a row and stay so from there on. True if
/// there were some.
bool evenLevels(Patchwork &work, const Header &header, Budget &budget);

/// Each restart interval decoded for itself and put where its marker's number says; markers that are hit or lost are found
/// by where the data of an interval end; single hits within an interval are repaired. Nothing where none could be read.
std::optional<Patchwork> resynchronise(const Header &header, const ScanData &data, Budget &budget);

/// How realign() looks for what fits.
struct RealignWay
{
    bool longWindow = false; ///< compares up to 48 MCUs instead of 40 at the most, and as many as a row has
    bool knownShift = false; ///< the MCUs at the end of the data are the last of the picture
};
/// Reads on behind each error, and where the top edges of MCUs stop fitting the bottom edges above them finds the place, the
/// shift in MCUs and the levels of the components by which they fit again. Nothing where nothing was moved.
std::optional<Patchwork> realign(const Header &header, const McuStream &stream, RealignWay way, Budget &budget);

} // namespace salvage
