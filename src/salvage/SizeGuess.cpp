#include "salvage/SizeGuess.h"

#include "salvage/KnownTables.h"

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

} // namespace

double unlikeliness(const std::vector<qint16> &levels, quint32 wide, quint32 width, quint32 height)
{
    const double aspect = double(std::max(width, height)) / double(std::min(width, height));
    return unrest(levels, wide) * (aspect < 2.1 ? 1 : aspect < 3.1 ? 1.2 : 2);
}

void trimSize(Header &header, const Sized &sized, SizeUnit unit, const Coefficients &picture)
{
    constexpr int kNear = 5;
    const auto [across, down] = lineSteps(renderPlane(picture, 0, KnownTables::scaled(false, 90), header));
    const int width = header.width;
    const int height = header.height;
    const int openWidth = sized.openWidth ? unit.width : 1;
    const int openHeight = sized.openHeight ? unit.height : 1;
    const int fillingRight = sized.openWidth ? fillingLines(across, unit.width) : 0;
    const int fillingBelow = sized.openHeight ? fillingLines(down, unit.height) : 0;
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

} // namespace salvage
