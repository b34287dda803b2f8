#include "salvage/search/ScansSize.h"

#include "salvage/entropy/ScanReader.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr quint32 kMostUnits = 2'000'000; // blocks of a picture of 120 MP
constexpr quint32 kStopEvery = 4096;
constexpr quint32 kMostSide = 65'500;

quint32 unitsIn(quint32 length, quint32 unit)
{
    return (length + unit - 1) / unit;
}

/// Units of one scan, all of its data used up; 0 where that can't be.
quint32 countUnits(const ScanPart &part, ByteView data, Budget &budget, std::vector<qint16> *levels)
{
    ScanReader scan(part.header, slice(data, part.begin, part.end));
    if (!scan.usable()) return 0;
    budget.countDecode();
    std::vector<qint16> blocks(size_t(scan.blocksPerUnit()) * 64);
    quint32 units = 0;
    while (!scan.atEnd()) {
        if (units == kMostUnits || ((units + 1) % kStopEvery == 0 && budget.stopped())) return 0;
        if (!scan.readLoose(blocks.data())) return 0;
        ++units;
        if (levels) levels->push_back(blocks[0]);
        if (part.header.restartInterval && units % part.header.restartInterval == 0 && scan.standsAtRestart())
            scan.restart();
    }
    return units;
}

} // namespace

std::optional<ScanCounts> countScans(const std::vector<ScanPart> &parts, ByteView data, Budget &budget)
{
    if (parts.empty()) return std::nullopt;
    ScanCounts counts;
    const Header &first = parts[0].header;
    counts.blocks.resize(first.components.size());
    for (size_t i = 0; i < parts.size(); ++i) {
        const Header &own = parts[i].header;
        if (own.progressive() && own.spectral[2] >> 4) continue;
        const quint32 units = countUnits(parts[i], data, budget, i == 0 ? &counts.levels : nullptr);
        if (i == 0 && units == 0) return std::nullopt;
        if (own.scan.size() > 1) {
            if (!counts.mcus) counts.mcus = units;
            continue;
        }
        for (size_t c = 0; c < first.components.size(); ++c)
            if (first.components[c].id == own.scan[0].id && !counts.blocks[c]) counts.blocks[c] = units;
    }
    return counts;
}

bool hasCounts(const Header &header, const ScanCounts &counts, PictureSize size)
{
    const auto wide = quint32(header.mcuWidth());
    const auto high = quint32(header.mcuHeight());
    if (counts.mcus && unitsIn(size.width, wide) * unitsIn(size.height, high) != counts.mcus) return false;
    for (size_t i = 0; i < header.components.size(); ++i) {
        const Component &own = header.components[i];
        const quint32 blocks = unitsIn(size.width * own.h, wide) * unitsIn(size.height * own.v, high);
        if (counts.blocks[i] && blocks != counts.blocks[i]) return false;
    }
    return true;
}

std::vector<PictureSize> sizesOf(const Header &header, const ScanCounts &counts, SizeUnit &unit)
{
    std::vector<PictureSize> sizes;
    unit = {header.mcuWidth(), header.mcuHeight()};
    quint32 units = counts.mcus;
    for (size_t i = 0; i < header.components.size(); ++i) {
        const Component &own = header.components[i];
        if (!counts.blocks[i] || own.h * 8 != header.mcuWidth() || own.v * 8 != header.mcuHeight()) continue;
        unit = {8, 8};
        units = counts.blocks[i];
        break;
    }
    for (quint32 wide = 1; wide <= units; ++wide) {
        if (units % wide) continue;
        const quint32 width = wide * quint32(unit.width);
        const quint32 height = units / wide * quint32(unit.height);
        if (width > kMostSide || height > kMostSide) continue;
        const PictureSize size{quint16(width), quint16(height)};
        if (hasCounts(header, counts, size)) sizes.push_back(size);
    }
    return sizes;
}

} // namespace salvage
