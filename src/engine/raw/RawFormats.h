// The raw formats but for CR3: how each stores its pictures, and what is carved where its pointers lead nowhere.
#pragma once

#include "engine/RepairReport.h"
#include "engine/raw/RawCarve.h"

#include <QString>

struct RawFormat
{
    const char *suffix; ///< in upper case
    /// Follows the container's own pointers; leaves a picture at 0, 0 where they end.
    RawImages (*follow)(RawFields &fields);
    CarveRule carve;
    const char *ending = ".jpg"; ///< of the names of its outputs
    bool keepsWholeName = false; ///< outputs are named after the whole file name, its suffix included
};

/// The format of a suffix, in any case; null if it is none of these.
const RawFormat *rawFormat(const QString &suffix);

/// The pictures of a file: by its pointers, each believed if FF D8 stands where it leads, else by carving. `way` tells
/// which it was.
RawImages findRawImages(FileWindow &file, const RawFormat &format, RepairWay &way);

RawImages followCr2(RawFields &fields);
RawImages followNrw(RawFields &fields);
RawImages followArw(RawFields &fields);
RawImages followSr2(RawFields &fields);
RawImages followSrf(RawFields &fields);
RawImages followOrf(RawFields &fields);
RawImages followNef(RawFields &fields);
RawImages followPef(RawFields &fields);
RawImages followDng(RawFields &fields);
RawImages followErf(RawFields &fields);
RawImages followTiff(RawFields &fields);
RawImages followCrw(RawFields &fields);
RawImages followRaf(RawFields &fields);
RawImages followRw2(RawFields &fields);
RawImages followMrw(RawFields &fields);
