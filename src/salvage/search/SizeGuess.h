// What the looks of a picture say of its size, where its header says nothing.
#pragma once

#include "salvage/picture/Picture.h"
#include "salvage/search/Draft.h"

namespace salvage {

/// A size in whole units, and which of its sides are known by the number of units alone.
struct Sized
{
    PictureSize size;
    bool openWidth = false;
    bool openHeight = false;
};

/// How much neighbours differ among `levels` laid out `wide` to a row (2 or more), and how unusual the shape of a picture of
/// `width` x `height` pixels is: the less the likelier.
double unlikeliness(const std::vector<qint16> &levels, quint32 wide, quint32 width, quint32 height);

/// Pixels of the unit in which a side may end.
struct SizeUnit
{
    int width = 8;
    int height = 8;
};
/// A picture ends inside its last units where its edge is repeated; a usual shape near by is the better guess. Cuts the size
/// of `header`, which is `sized`'s, accordingly. `picture` has that shape.
void trimSize(Header &header, const Sized &sized, SizeUnit unit, const Coefficients &picture);

} // namespace salvage
