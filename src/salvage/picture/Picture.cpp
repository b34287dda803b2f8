#include "salvage/picture/Picture.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

/// kernel[u * 8 + x]: what frequency u adds at sample x.
std::array<float, 64> makeKernel()
{
    constexpr double kPi = 3.14159265358979323846;
    std::array<float, 64> kernel{};
    for (size_t u = 0; u < 8; ++u)
        for (size_t x = 0; x < 8; ++x)
            kernel.at(u * 8 + x) =
                float((u ? 0.5 : std::sqrt(0.125)) * std::cos((2 * double(x) + 1) * double(u) * kPi / 16));
    return kernel;
}

const std::array<float, 64> kKernel = makeKernel();

/// Dequantized coefficients, row by row.
Samples dequantized(const qint16 *block, const QuantTable &quant)
{
    Samples frequencies{};
    for (size_t z = 0; z < 64; ++z)
        if (block[z]) frequencies[kNaturalOrder[z]] = float(block[z]) * float(quant[z]);
    return frequencies;
}

/// Sums of steps at the borders of blocks, and beside them.
struct StepSums
{
    double at = 0;
    double beside = 0;
    quint64 n = 0;

    /// Four samples in line: the border lies between the second and the third.
    void add(float a, float b, float c, float d)
    {
        at += std::abs(c - b);
        beside += (std::abs(b - a) + std::abs(d - c)) / 2;
        ++n;
    }
    double ratio() const
    {
        constexpr double kFloor = 0.25; // flat pictures say nothing
        return n ? (at / double(n) + kFloor) / (beside / double(n) + kFloor) : 1;
    }
};

Samples clipped(Samples samples)
{
    for (float &sample : samples) sample = std::clamp(sample, 0.0F, 255.0F);
    return samples;
}

} // namespace

Samples inverseDct(const qint16 *block, const QuantTable &quant)
{
    const Samples frequencies = dequantized(block, quant);
    Samples columns{}; // the inverse along each row of frequencies
    for (size_t v = 0; v < 8; ++v)
        for (size_t u = 0; u < 8; ++u) {
            const float value = frequencies[v * 8 + u];
            if (value == 0) continue;
            for (size_t x = 0; x < 8; ++x) columns[v * 8 + x] += value * kKernel[u * 8 + x];
        }
    Samples samples;
    samples.fill(128);
    for (size_t v = 0; v < 8; ++v)
        for (size_t y = 0; y < 8; ++y) {
            const float weight = kKernel[v * 8 + y];
            for (size_t x = 0; x < 8; ++x) samples[y * 8 + x] += weight * columns[v * 8 + x];
        }
    return samples;
}

std::array<float, 8> edgeLine(const qint16 *block, const QuantTable &quant, int row)
{
    std::array<float, 8> lines{};
    for (size_t z = 0; z < 64; ++z) {
        if (!block[z]) continue;
        const size_t place = kNaturalOrder[z];
        lines[place % 8] += float(block[z]) * float(quant[z]) * kKernel[place / 8 * 8 + size_t(row)];
    }
    return lines;
}

std::array<float, 8> forwardDct(const std::array<float, 8> &samples)
{
    std::array<float, 8> frequencies{};
    for (size_t u = 0; u < 8; ++u)
        for (size_t x = 0; x < 8; ++x) frequencies[u] += samples[x] * kKernel[u * 8 + x];
    return frequencies;
}

std::array<float, 8> edgeRow(const qint16 *block, const QuantTable &quant, int row)
{
    const std::array<float, 8> lines = edgeLine(block, quant, row);
    std::array<float, 8> samples{};
    for (size_t u = 0; u < 8; ++u)
        for (size_t x = 0; x < 8; ++x) samples[x] += lines[u] * kKernel[u * 8 + x];
    return samples;
}

Plane renderPlane(const Coefficients &picture, size_t component, const QuantTable &quant, const Header &header)
{
    const Component &factors = picture.sampling[component];
    Plane plane;
    plane.width = (header.width * 8 * factors.h + header.mcuWidth() - 1) / header.mcuWidth();
    plane.height = (header.height * 8 * factors.v + header.mcuHeight() - 1) / header.mcuHeight();
    plane.samples.resize(size_t(plane.width) * size_t(plane.height));
    for (int top = 0; top < plane.height; top += 8) {
        for (int left = 0; left < plane.width; left += 8) {
            const Samples samples =
                clipped(inverseDct(picture.block(component, quint32(left) / 8, quint32(top) / 8), quant));
            for (int y = top; y < std::min(top + 8, plane.height); ++y)
                for (int x = left; x < std::min(left + 8, plane.width); ++x)
                    plane.samples[size_t(y) * size_t(plane.width) + size_t(x)] =
                        quint8(std::lround(samples[size_t(y - top) * 8 + size_t(x - left)]));
        }
    }
    return plane;
}

double borderStep(const Coefficients &picture, size_t component, const QuantTable &quant, quint32 rows,
                  const Budget *budget)
{
    constexpr quint32 kBlocks = 24'000; // enough for a firm mean
    const Component &factors = picture.sampling[component];
    const quint32 wide = picture.mcusWide * factors.h;
    const quint32 high = std::min(rows, picture.mcusHigh) * factors.v;
    if (wide < 2 || high < 1) return 1;
    // Pairs of block rows, as many as are wanted, evenly spread.
    const quint32 pairs = std::max(1u, high / 2);
    const quint32 taken = std::clamp(kBlocks / (2 * wide), 1u, pairs);
    StepSums across;
    StepSums down;
    std::vector<Samples> upper(wide);
    for (quint32 i = 0; i < taken && !(budget && budget->stopped()); ++i) {
        const quint32 first = quint32(quint64(i) * pairs / taken) * 2;
        for (quint32 row = first; row < std::min(first + 2, high); ++row) {
            Samples left{};
            for (quint32 column = 0; column < wide; ++column) {
                const Samples own = clipped(inverseDct(picture.block(component, column, row), quant));
                for (size_t k = 0; column > 0 && k < 64; k += 8)
                    across.add(left[k + 6], left[k + 7], own[k], own[k + 1]);
                for (size_t k = 0; row > first && k < 8; ++k)
                    down.add(upper[column][48 + k], upper[column][56 + k], own[k], own[8 + k]);
                left = own;
                upper[column] = own;
            }
        }
    }
    return high > 1 ? (across.ratio() + down.ratio()) / 2 : across.ratio();
}

BorderSteps borderSteps(const Coefficients &picture, const Header &header, quint32 rows, const Budget *budget)
{
    BorderSteps steps;
    double chrominance = 0;
    int others = 0;
    for (size_t i = 0; i < std::min<size_t>(3, picture.sampling.size()); ++i) {
        const auto quant = header.quant.find(picture.sampling[i].quant);
        if (quant == header.quant.end()) continue;
        const double step = borderStep(picture, i, quant->second, rows, budget);
        if (i == 0) {
            steps.luminance = step;
        } else {
            chrominance += step;
            ++others;
        }
    }
    if (others) steps.chrominance = chrominance / others;
    return steps;
}

} // namespace salvage
