#include "engine/raw/RawFormats.h"

#include <algorithm>

namespace {

constexpr int kNone = CarveRule::kNoTest;
constexpr std::array<quint16, 3> kTables = {0xFFDB, 0xFFC4, 0};
constexpr std::array<quint16, 3> kTablesApp0 = {0xFFDB, 0xFFC4, 0xFFE0};
constexpr std::array<quint16, 3> kTablesSos = {0xFFDB, 0xFFC4, 0xFFDA};

// The carves differ in small ways that no file format asks for: they are what each scanner has always taken and left.
constexpr auto kSoi = CarveOpener::Soi;
constexpr RawFormat kFormats[] = {
    //                  opener               markers       start  end    stops  images
    {"CR2", followCr2, {kSoi, kTablesApp0, 0, 0, false, 1}},
    {"NRW", followNrw, {kSoi, kTablesSos, 4, 4, true, 2}},
    {"ARW", followArw, {kSoi, kTables, kNone, 4, false, 2}},
    {"NEF", followNef, {kSoi, kTables, kNone, 4, true, 1}},
    {"SR2", followSr2, {kSoi, kTables, kNone, 4, true, 2}},
    {"SRF", followSrf, {kSoi, kTables, kNone, kNone, true, 1}},
    {"TIFF", followTiff, {kSoi, kTables, kNone, kNone, true, 1}},
    {"CRW", followCrw, {kSoi, kTables, kNone, 4, false, 1}},
    {"PEF", followPef, {kSoi, kTables, kNone, kNone, true, 2}, ".jpeg"},
    {"ORF", followOrf, {kSoi, kTables, kNone, kNone, true, 1}},
    {"RAF", followRaf, {kSoi, kTables, kNone, kNone, true, 1}},
    {"RW2", followRw2, {kSoi, kTables, kNone, kNone, true, 1}},
    {"DNG", followDng, {kSoi, kTables, kNone, kNone, false, 1}},
    {"ERF", followErf, {CarveOpener::EeD8, kTables, kNone, kNone, false, 1}},
    {"MRW", followMrw, {CarveOpener::BareD8, kTables, kNone, kNone, false, 1}, ".jpg", true},
};

void confirm(FileWindow &file, RawImage &image)
{
    if (file.wordAt(image.start) != 0xFFD8) image = {};
}

} // namespace

const RawFormat *rawFormat(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    const auto *found = std::find_if(std::begin(kFormats), std::end(kFormats),
                                     [&](const RawFormat &format) { return upper == QLatin1String(format.suffix); });
    return found == std::end(kFormats) ? nullptr : found;
}

RawImages findRawImages(FileWindow &file, const RawFormat &format, RepairWay &way)
{
    RawFields fields(file);
    way = RepairWay::Pointers;
    RawImages images = format.follow(fields);
    confirm(file, images.first);
    confirm(file, images.second);
    // A start with no length is believed too, and nothing is carved in its place.
    if (images != RawImages()) return images;
    way = RepairWay::Carve;
    return carve(file, format.carve);
}
