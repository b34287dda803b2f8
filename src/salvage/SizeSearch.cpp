// The size of a picture from the number of its MCUs.
#include "salvage/KnownTables.h"
#include "salvage/Picture.h"
#include "salvage/Search.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

constexpr quint32 kMostMcus = 400'000;
constexpr int kMostSide = 65'500;
constexpr size_t kChoices = 4;

quint32 units(quint32 pixels, int unit)
{
    return (pixels + quint32(unit) - 1) / quint32(unit);
}

/// Mean step between neighbours of the levels laid out `wide` to a row, downwards and across.
double unrest(const std::vector<qint16> &levels, quint32 wide)
{
    const auto n = quint32(levels.size());
    double down = 0;
    for (quint32 i = wide; i < n; ++i) down += std::abs(levels[i] - levels[i - wide]);
    double across = 0;
    for (quint32 i = 1; i < n; ++i)
        if (i % wide) across += std::abs(levels[i] - levels[i - 1]);
    const quint32 high = n / wide;
    return down / double(n - wide) + across / (double(wide - 1) * high);
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
    /// A size, and which of its sides are known by the number of MCUs alone.
    struct Sized
    {
        PictureSize size;
        bool openWidth = false;
        bool openHeight = false;
    };

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
SizeSearch::Sized SizeSearch::sizeByHeader(const Header &header, quint32 mcus) const
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
SizeSearch::Sized SizeSearch::sizeByLevels(const Header &header, quint32 mcus)
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
        const double aspect = double(std::max(width, height)) / double(std::min(width, height));
        const double value = unrest(levels, wide) * (aspect < 2.1 ? 1 : aspect < 3.1 ? 1.2 : 2);
        if (value >= least) continue;
        least = value;
        best = {{quint16(width), quint16(height)}, true, true};
    }
    return best;
}

SizeSearch::Sized SizeSearch::sizeFor(const Header &header, quint32 mcus)
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

/// Where a side ends inside its last MCU: lines that repeat the one before them are filling. -1 where lines are so much alike
/// further in too that nothing can be told.
int fillingLines(const std::vector<double> &steps, int most)
{
    const auto n = int(steps.size());
    if (n < 3 * most) return -1;
    std::vector<double> inner(steps.begin(), steps.end() - most);
    std::nth_element(inner.begin(), inner.begin() + qptrdiff(inner.size() / 2), inner.end());
    const double limit = 0.3 * inner[inner.size() / 2] + 0.05;
    int count = 0;
    while (count < 2 * most && steps[size_t(n - 1 - count)] < limit) ++count;
    return count < most ? count : -1;
}

bool isUsualAspect(int width, int height)
{
    constexpr std::array<std::pair<int, int>, 6> kAspects = {{{4, 3}, {3, 2}, {16, 9}, {1, 1}, {2, 1}, {5, 4}}};
    return std::any_of(kAspects.begin(), kAspects.end(), [&](const auto &aspect) {
        return width * aspect.second == height * aspect.first || width * aspect.first == height * aspect.second;
    });
}

/// Round numbers first: pictures are seldom 797 pixels wide.
int oddness(int width, int height)
{
    if (width % 10 == 0 && height % 10 == 0) return 0;
    return width % 5 == 0 && height % 5 == 0 ? 1 : 2;
}

/// Mean steps from each column to the next, and from each row to the next.
std::pair<std::vector<double>, std::vector<double>> lineSteps(const Plane &plane)
{
    std::vector<double> across(size_t(plane.width) - 1);
    std::vector<double> down(size_t(plane.height) - 1);
    for (int y = 0; y < plane.height; ++y) {
        for (int x = 0; x < plane.width; ++x) {
            const int own = plane.at(x, y);
            if (x + 1 < plane.width) across[size_t(x)] += double(std::abs(plane.at(x + 1, y) - own)) / plane.height;
            if (y + 1 < plane.height) down[size_t(y)] += double(std::abs(plane.at(x, y + 1) - own)) / plane.width;
        }
    }
    return {across, down};
}

/// The picture ends inside its last MCUs where its edge is repeated; a usual shape near by is the better guess.
void SizeSearch::trim(Header &header, const Sized &sized)
{
    constexpr int kNear = 5;
    if (!header.fitsMemory()) return;
    Coefficients picture(header);
    const size_t size = picture.values.size();
    DecodeWish wish;
    wish.values = &picture.values;
    decode(header, m_bytes, m_budget, wish);
    if (picture.values.size() != size) return;
    const auto [across, down] = lineSteps(renderPlane(picture, 0, KnownTables::scaled(false, 90), header));
    const int width = header.width;
    const int height = header.height;
    const int openWidth = sized.openWidth ? header.mcuWidth() : 1;
    const int openHeight = sized.openHeight ? header.mcuHeight() : 1;
    const int fillingRight = sized.openWidth ? fillingLines(across, header.mcuWidth()) : 0;
    const int fillingBelow = sized.openHeight ? fillingLines(down, header.mcuHeight()) : 0;
    if (fillingRight <= 0 && fillingBelow <= 0 && isUsualAspect(width, height)) return;

    const auto apart = [](int taken, int filling) { return filling < 0 ? taken / 2 : std::abs(taken - filling); };
    int bestWidth = width - std::max(0, fillingRight);
    int bestHeight = height - std::max(0, fillingBelow);
    int least = kNear + 1 + oddness(bestWidth, bestHeight);
    for (int right = 0; right < openWidth; ++right) {
        for (int below = 0; below < openHeight; ++below) {
            const int distance = apart(right, fillingRight) + apart(below, fillingBelow);
            if (!isUsualAspect(width - right, height - below)) continue;
            const int value = distance + oddness(width - right, height - below);
            if (value >= least || distance > kNear) continue;
            least = value;
            bestWidth = width - right;
            bestHeight = height - below;
        }
    }
    header.width = quint16(bestWidth);
    header.height = quint16(bestHeight);
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
