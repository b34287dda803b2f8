// The size of a picture from the number of its MCUs.
#include "salvage/search/Search.h"
#include "salvage/search/SizeGuess.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr quint32 kMostMcus = 400'000;
constexpr int kMostSide = 65'500;
constexpr size_t kChoices = 4;

quint32 units(quint32 pixels, int unit)
{
    return (pixels + quint32(unit) - 1) / quint32(unit);
}

/// The frame's size with another upper byte of one side, so that there are `mcus` MCUs of `header`: most hits change one byte,
/// and the lower one tells where the side ends within its last MCU. 0 x 0 if no such size is left, or more than one.
PictureSize withUpperByteMended(const Header &header, quint32 mcus, const PictureSize &found)
{
    PictureSize only;
    const auto consider = [&](const PictureSize &size) {
        const bool fits = units(size.width, header.mcuWidth()) * units(size.height, header.mcuHeight()) == mcus;
        if (!fits || !size.width || !size.height || size == only) return true;
        const bool first = only.width == 0;
        only = size;
        return first;
    };
    for (quint32 upper = 0; upper < 0x100 && found.width && found.height; ++upper) {
        const auto mended = [&](quint16 side) { return quint16(upper << 8 | (side & 0xFF)); };
        if (!consider({found.width, mended(found.height)}) || !consider({mended(found.width), found.height})) return {};
    }
    return only;
}

class SizeSearch
{
public:
    SizeSearch(const Draft &draft, const ScanData &data, Budget &budget)
        : m_draft(draft), m_hasRestarts(data.hasRestarts), m_bytes(view(data.bytes)), m_budget(budget)
    {
    }

    std::optional<Solution> run(const std::vector<TableChoice> &choices);

private:
    using Sampling = std::vector<std::pair<quint8, quint8>>;

    std::optional<Solution> attempt(const Sampling &sampling, const TableChoice &choice);
    Sized sizeFor(const Header &header, quint32 mcus);
    Sized sizeByHeader(const Header &header, quint32 mcus) const;
    Sized sizeByLevels(const Header &header, quint32 mcus);
    void trim(Header &header, const Sized &sized);
    DecodeWish wishFor(quint32 mcus) const
    {
        DecodeWish wish;
        wish.mcus = mcus;
        wish.followRestarts = m_hasRestarts;
        return wish;
    }

    const Draft &m_draft;
    bool m_hasRestarts;
    ByteView m_bytes;
    Budget &m_budget;
};

/// The frame's or Exif's size, or what one side of the frame that still stands leads to; 0 x 0 if none has so many MCUs.
Sized SizeSearch::sizeByHeader(const Header &header, quint32 mcus) const
{
    const int wide = header.mcuWidth();
    const int high = header.mcuHeight();
    const Header &found = m_draft.header;
    std::vector<PictureSize> sizes = m_draft.exifSizes;
    if (m_draft.hasFrame) sizes.push_back({found.width, found.height});
    for (const PictureSize &size : sizes)
        if (size.width && size.height && units(size.width, wide) * units(size.height, high) == mcus)
            return {size, false, false};
    if (!m_draft.hasFrame) return {};
    if (const PictureSize size = withUpperByteMended(header, mcus, {found.width, found.height}); size.width)
        return {size, false, false};
    if (found.width && mcus % units(found.width, wide) == 0) {
        const quint32 height = mcus / units(found.width, wide) * quint32(high);
        if (height <= kMostSide) return {{found.width, quint16(height)}, false, true};
    }
    if (found.height && mcus % units(found.height, high) == 0) {
        const quint32 width = mcus / units(found.height, high) * quint32(wide);
        if (width <= kMostSide) return {{quint16(width), found.height}, true, false};
    }
    return {};
}

/// The divisor of the number of MCUs by which neighbours are most alike.
Sized SizeSearch::sizeByLevels(const Header &header, quint32 mcus)
{
    const size_t mcuValues = size_t(Coefficients(header).blocksPerMcu()) * 64;
    std::vector<qint16> values;
    values.reserve(mcus * mcuValues);
    DecodeWish wish = wishFor(mcus);
    wish.values = &values;
    decode(header, m_bytes, m_budget, wish);
    std::vector<qint16> levels;
    for (size_t at = 0; at < values.size(); at += mcuValues) levels.push_back(values[at]);
    if (levels.size() != mcus) return {};

    Sized best;
    double least = 1e18;
    for (quint32 wide = 2; wide <= mcus / 2; ++wide) {
        if (mcus % wide) continue;
        if (m_budget.stopped()) return {};
        const quint32 width = wide * quint32(header.mcuWidth());
        const quint32 height = mcus / wide * quint32(header.mcuHeight());
        if (width > kMostSide || height > kMostSide) continue;
        const double value = unlikeliness(levels, wide, width, height);
        if (value >= least) continue;
        least = value;
        best = {{quint16(width), quint16(height)}, true, true};
    }
    return best;
}

Sized SizeSearch::sizeFor(const Header &header, quint32 mcus)
{
    const Sized sized = sizeByHeader(header, mcus);
    // A frame that is sound in every field isn't overruled by looks.
    if (sized.size.width || m_draft.frameFirm) return sized;
    return sizeByLevels(header, mcus);
}

std::optional<Solution> SizeSearch::attempt(const Sampling &sampling, const TableChoice &choice)
{
    Solution solution;
    Header &header = solution.header;
    header = m_draft.header;
    header.huffman = choice;
    header.components.clear();
    const auto &found = m_draft.header.components;
    for (size_t i = 0; i < sampling.size(); ++i) {
        const quint8 quant = found.size() == sampling.size() ? found[i].quant : quint8(i ? 1 : 0);
        header.components.push_back({header.scan[i].id, sampling[i].first, sampling[i].second, quant});
    }
    header.width = header.height = 8;
    if (!header.decodable()) return std::nullopt;

    const quint32 most = quint32(std::min<size_t>(kMostMcus, m_bytes.size() * 4 / sampling.size() + 16));
    if (m_hasRestarts) header.restartInterval = 0;
    const Fit counted = decode(header, m_bytes, m_budget, wishFor(most));
    if (counted.end + 3 < m_bytes.size() || counted.done == 0) return std::nullopt;
    // Where intervals are missing the number of MCUs says nothing against a sound frame.
    if (m_draft.frameFirm && !counted.inTurn) return std::nullopt;
    if (counted.restarts) header.restartInterval = quint16(std::min(counted.firstRestart, 0xFFFFu));
    const Sized sized = sizeFor(header, counted.done);
    if (!sized.size.width || !sized.size.height) return std::nullopt;
    header.width = sized.size.width;
    header.height = sized.size.height;
    solution.fit = decode(header, m_bytes, m_budget);
    const bool isFrames = m_draft.hasFrame && sized.size == PictureSize{m_draft.header.width, m_draft.header.height};
    if (!isFrames) solution.steps.insert(Step::SizeFound);
    solution.sizeFound = !isFrames;
    const bool open = sized.openWidth || sized.openHeight;
    const auto &given = m_draft.exifSizes;
    const bool isGiven = isFrames || std::find(given.begin(), given.end(), sized.size) != given.end();
    solution.sizeByCount = open || !isGiven;
    if (solution.fit.perfect && open) trim(header, sized);
    return solution;
}

/// Where the last MCUs end, by the picture itself.
void SizeSearch::trim(Header &header, const Sized &sized)
{
    if (!header.fitsMemory()) return;
    Coefficients picture(header);
    const size_t size = picture.values.size();
    DecodeWish wish;
    wish.values = &picture.values;
    decode(header, m_bytes, m_budget, wish);
    if (picture.values.size() == size) trimSize(header, sized, {header.mcuWidth(), header.mcuHeight()}, picture);
}

std::optional<Solution> SizeSearch::run(const std::vector<TableChoice> &choices)
{
    std::vector<Sampling> samplings;
    if (m_draft.hasFrame && m_draft.header.components.size() == m_draft.header.scan.size()) {
        Sampling own;
        for (const Component &each : m_draft.header.components) own.emplace_back(each.h, each.v);
        samplings.push_back(own);
    }
    for (const Sampling &usual : usualSamplings())
        if (usual.size() == m_draft.header.scan.size()) samplings.push_back(usual);

    std::optional<Solution> best;
    for (const Sampling &sampling : samplings) {
        for (size_t i = 0; i < std::min(kChoices, choices.size()) && !m_budget.spent(); ++i) {
            std::optional<Solution> solution = attempt(sampling, choices[i]);
            if (!solution || (best && !solution->fit.betterThan(best->fit))) continue;
            best = std::move(solution);
            if (best->fit.perfect) return best;
        }
    }
    return best;
}

} // namespace

std::optional<Solution> solveByCount(const Draft &draft, const ScanData &data, const std::vector<TableChoice> &choices,
                                     Budget &budget)
{
    return SizeSearch(draft, data, budget).run(choices);
}

} // namespace salvage
