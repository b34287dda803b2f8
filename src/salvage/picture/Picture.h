// From coefficients to what an eye would see of them: blocks, edges, and the steps across the borders of blocks.
#pragma once

#include "salvage/entropy/Entropy.h"

#include <array>
#include <vector>

namespace salvage {

/// An 8 x 8 block of samples, row by row, not rounded; the level shift of 128 is in it.
using Samples = std::array<float, 64>;

/// The inverse DCT (ISO/IEC 10918-1, A.3.3) of a block in zig-zag order.
Samples inverseDct(const qint16 *block, const QuantTable &quant);
/// Frequencies along row `row` (0 or 7) of the same, without the level shift.
std::array<float, 8> edgeLine(const qint16 *block, const QuantTable &quant, int row);
/// The DCT of eight samples in line.
std::array<float, 8> forwardDct(const std::array<float, 8> &samples);
/// Row `row` (0 or 7) of the same, without the level shift.
std::array<float, 8> edgeRow(const qint16 *block, const QuantTable &quant, int row);

/// The samples of one component, cut to its part of the picture.
struct Plane
{
    int width = 0;
    int height = 0;
    std::vector<quint8> samples;
    quint8 at(int x, int y) const { return samples[size_t(y) * size_t(width) + size_t(x)]; }
};
Plane renderPlane(const Coefficients &picture, size_t component, const QuantTable &quant, const Header &header);

/// Steps across the borders of blocks against the steps beside them: near 1 where the table is right and the blocks are in
/// their places. Looks at rows spread over the whole picture; of MCUs alone that `rows` rows of MCUs hold from the top.
/// Fewer rows once `budget`, which may be null, was asked to stop.
double borderStep(const Coefficients &picture, size_t component, const QuantTable &quant, quint32 rows,
                  const Budget *budget = nullptr);

/// borderStep of luminance, and the mean of those of the other components (1 where there are none).
struct BorderSteps
{
    double luminance = 1;
    double chrominance = 1;
    double sum() const { return luminance + chrominance; }
};
BorderSteps borderSteps(const Coefficients &picture, const Header &header, quint32 rows,
                        const Budget *budget = nullptr);

} // namespace salvage
