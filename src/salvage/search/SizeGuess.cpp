#include "salvage/search/SizeGuess.h"

#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

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

/// One side of a picture: samples across it, line by line.
struct Side
{
    const Plane &plane;
    bool bottom = false;

    int length() const { return bottom ? plane.width : plane.height; }
    int depth() const { return bottom ? plane.height : plane.width; }
    int at(int along, int across) const { return bottom ? plane.at(along, across) : plane.at(across, along); }
};

/// How the lines of a last block are filled that are beyond the picture.
enum class FillRule {
    Repeat, ///< with the last line of the picture
    Fold    ///< mirrored within the block, or within the half or the quarter of it that the picture reaches into
};

/// The line of a block from which line `line` is filled where `real` lines are the picture's.
int sourceLine(FillRule rule, int line, int real)
{
    if (rule == FillRule::Repeat) return std::min(line, real - 1);
    while (line >= real) line = line >= 4 ? 7 - line : line >= 2 ? 3 - line : 0;
    return line;
}

/// How far the lines of a block, which begins at line `begin` of the side, are from being filled from the first `real`.
double misfit(const Side &side, int begin, FillRule rule, int real)
{
    double sum = 0;
    for (int line = real; line < 8; ++line) {
        const int source = sourceLine(rule, line, real);
        for (int i = 0; i < side.length(); ++i) sum += std::abs(side.at(i, begin + line) - side.at(i, begin + source));
    }
    return sum / (double(8 - real) * side.length());
}

/// Mean step along the lines of a block.
double stepAlong(const Side &side, int begin)
{
    double sum = 0;
    for (int line = begin; line < begin + 8; ++line)
        for (int i = 1; i < side.length(); ++i) sum += std::abs(side.at(i, line) - side.at(i - 1, line));
    return sum / (8.0 * side.length());
}

/// How many lines at a side are filling.
struct Filling
{
    enum class Certainty { None, Some, Sure };
    int lines = 0;
    Certainty certainty = Certainty::None;
};

/// By one rule: `sharpness` is how much better these lines fit than one more.
Filling fillingBy(FillRule rule, const Side &side, int begin, double &sharpness)
{
    constexpr int kOthers = 4;
    constexpr double kAlike = 0.45; // of the misfit further in
    constexpr double kNothing = 0.04;
    constexpr double kSharp = 2.2;
    double inside = 0;
    for (int other = 1; other <= kOthers; ++other) inside += stepAlong(side, begin - 8 * other);
    Filling best{0, Filling::Certainty::Sure};
    sharpness = 1.5;
    double before = 1;
    for (int real = 1; real < 8; ++real) {
        double inner = kNothing;
        for (int other = 1; other <= kOthers; ++other) inner += misfit(side, begin - 8 * other, rule, real);
        // Along the lines filling is as lively as the picture, across them it isn't.
        const double ratio = misfit(side, begin, rule, real) / inner * inside / stepAlong(side, begin);
        const double drop = (before + kNothing) / (ratio + kNothing);
        before = ratio;
        if (real == 7 && ratio < 0.6 && best.lines == 0) best.certainty = Filling::Certainty::Some;
        // A block that is filled from one line has no step across at all.
        if (ratio > (real == 1 ? kNothing : kAlike) || drop < sharpness) continue;
        sharpness = drop;
        best = {8 - real, drop > kSharp ? Filling::Certainty::Sure : Filling::Certainty::Some};
        if (drop > kSharp) break; // with more lines of the picture the same holds
    }
    return best;
}

/// The lines of the block at `begin` that are filling, against what the blocks in front of it are like.
Filling fillingOfBlock(const Side &side, int begin)
{
    constexpr double kFlat = 0.15; // levels
    constexpr int kLeast = 5;      // blocks
    if (begin < 8 * (kLeast - 1) || stepAlong(side, begin) < kFlat) return {};
    double repeats = 0;
    double folds = 0;
    const Filling repeated = fillingBy(FillRule::Repeat, side, begin, repeats);
    const Filling folded = fillingBy(FillRule::Fold, side, begin, folds);
    if (repeated.lines == 0 && folded.lines == 0) return repeated;
    return folded.lines && folds > repeats ? folded : repeated;
}

/// The same for a last unit of `pixels`, where whole blocks may be filling.
Filling fillingOf(const Side &side, int pixels)
{
    const int begin = side.depth() - 8;
    const Filling last = fillingOfBlock(side, begin);
    if (pixels == 8 || last.lines < 7) return last;
    double step = 0;
    for (int i = 0; i < side.length(); ++i) step += std::abs(side.at(i, begin) - side.at(i, begin - 1));
    const Filling before = fillingOfBlock(side, begin - 8);
    if (before.lines == 0 && step / side.length() > stepAlong(side, begin) / 2) return last;
    return {8 + before.lines, before.certainty};
}

bool isUsualAspect(int width, int height)
{
    constexpr std::array<std::pair<int, int>, 6> kAspects = {{{4, 3}, {3, 2}, {16, 9}, {1, 1}, {2, 1}, {5, 4}}};
    return std::any_of(kAspects.begin(), kAspects.end(), [&](const auto &aspect) {
        return width * aspect.second == height * aspect.first || width * aspect.first == height * aspect.second;
    });
}

/// Round numbers first: pictures are seldom 797 pixels wide. Then those that leave no filling.
double oddness(int pixels, int taken)
{
    return pixels % 10 == 0 ? 0 : pixels % 5 == 0 ? 1.2 : taken == 0 ? 1 : 2.3;
}

/// How much speaks against a number of lines of filling.
double against(int taken, const Filling &filling)
{
    switch (filling.certainty) {
    case Filling::Certainty::Sure: return 3.0 * std::abs(taken - filling.lines);
    case Filling::Certainty::Some: return std::min(5.0, 1.5 * std::abs(taken - filling.lines));
    case Filling::Certainty::None: break;
    }
    return 0;
}

} // namespace

double unlikeliness(const std::vector<qint16> &levels, quint32 wide, quint32 width, quint32 height)
{
    const double aspect = double(std::max(width, height)) / double(std::min(width, height));
    return unrest(levels, wide) * (aspect < 2.1 ? 1 : aspect < 3.1 ? 1.2 : 2);
}

void trimSize(Header &header, const Sized &sized, SizeUnit unit, const Coefficients &picture)
{
    // All in natural logarithms of how much seldomer something is.
    constexpr double kUnusualAspect = 3;
    const Plane plane = renderPlane(picture, 0, KnownTables::scaled(false, 90), header);
    const int width = header.width;
    const int height = header.height;
    const Filling right = sized.openWidth ? fillingOf({plane, false}, unit.width) : Filling();
    const Filling below = sized.openHeight ? fillingOf({plane, true}, unit.height) : Filling();
    double least = 1e9;
    for (int x = 0; x < (sized.openWidth ? unit.width : 1); ++x) {
        for (int y = 0; y < (sized.openHeight ? unit.height : 1); ++y) {
            const double value = against(x, right) + against(y, below) + oddness(width - x, x) + oddness(height - y, y)
                + (isUsualAspect(width - x, height - y) ? 0 : kUnusualAspect);
            if (value >= least) continue;
            least = value;
            header.width = quint16(width - x);
            header.height = quint16(height - y);
        }
    }
}

} // namespace salvage
