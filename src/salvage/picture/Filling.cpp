// Holes of a picture, filled from what lies around them.
#include "salvage/picture/Mending.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

/// Blocks of one column that stand on both sides of a hole, by their rows; -1 where there is none.
struct Sides
{
    qint64 above = -1;
    qint64 below = -1;
};

class HoleFiller
{
public:
    HoleFiller(Patchwork &work, const Header &header) : m_work(work), m_picture(work.picture), m_header(header) {}

    void run();

private:
    using Line = std::array<float, 8>; ///< frequencies along a row of samples

    void fillColumn(size_t component, quint32 column);
    void fillBlock(size_t component, quint32 column, quint32 row, Sides sides);
    bool isThere(size_t component, quint32 column, quint32 row) const
    {
        const Component &factors = m_picture.sampling[component];
        return m_work.have[row / factors.v * m_picture.mcusWide + column / factors.h];
    }

    Patchwork &m_work;
    Coefficients &m_picture;
    const Header &m_header;
};

/// The eight rows of a hole's block run from the line above to the line below; fine patterns fade sooner than coarse ones.
void HoleFiller::fillBlock(size_t component, quint32 column, quint32 row, Sides sides)
{
    constexpr float kFade = 0.35F; // for each block and frequency
    static const std::array<quint8, 64> kZigZag = [] {
        std::array<quint8, 64> places{};
        for (size_t z = 0; z < 64; ++z) places.at(kNaturalOrder[z]) = quint8(z);
        return places;
    }();
    const QuantTable &quant = m_header.quant.at(m_header.components[component].quant);
    qint16 *const own = m_picture.block(component, column, row);
    std::fill_n(own, 64, qint16(0));
    if (sides.above < 0 && sides.below < 0) {
        if (column > 0) own[0] = m_picture.block(component, column - 1, row)[0];
        return;
    }
    Line upper{};
    Line lower{};
    if (sides.above >= 0) upper = edgeLine(m_picture.block(component, column, quint32(sides.above)), quant, 7);
    if (sides.below >= 0) lower = edgeLine(m_picture.block(component, column, quint32(sides.below)), quant, 0);
    const auto rowsAbove = float(sides.above >= 0 ? qint64(row) - sides.above - 1 : 1'000);
    const auto rowsBelow = float(sides.below >= 0 ? sides.below - qint64(row) - 1 : 1'000);
    for (size_t u = 0; u < 8; ++u) {
        Line samples{};
        for (size_t y = 0; y < 8; ++y) {
            const float up = rowsAbove + (float(y) + 1) / 8;
            const float down = rowsBelow + (8 - float(y)) / 8;
            const float share = sides.above < 0 ? 1 : sides.below < 0 ? 0 : up / (up + down);
            const float fade = kFade * float(u);
            samples[y] = upper[u] * (1 - share) * std::exp(-fade * up) + lower[u] * share * std::exp(-fade * down);
        }
        const Line down = forwardDct(samples);
        for (size_t v = 0; v < 8; ++v) {
            const size_t z = kZigZag.at(v * 8 + u);
            const float most = z ? 1023 : 2047;
            const auto step = float(std::max<quint16>(1, quant[z]));
            own[z] = qint16(std::lround(std::clamp(down[v] / step, -most, most)));
        }
    }
}

void HoleFiller::fillColumn(size_t component, quint32 column)
{
    const quint32 high = m_picture.mcusHigh * m_picture.sampling[component].v;
    Sides sides;
    for (quint32 row = 0; row < high; ++row) {
        if (isThere(component, column, row)) {
            sides.above = row;
            continue;
        }
        if (sides.below < qint64(row)) {
            quint32 next = row + 1;
            while (next < high && !isThere(component, column, next)) ++next;
            sides.below = next;
        }
        const bool hasBelow = sides.below < qint64(high);
        fillBlock(component, column, row, {sides.above, hasBelow ? sides.below : -1});
    }
}

void HoleFiller::run()
{
    for (size_t c = 0; c < m_picture.sampling.size(); ++c)
        for (quint32 column = 0; column < m_picture.mcusWide * m_picture.sampling[c].h; ++column) fillColumn(c, column);
}

} // namespace

void fillHoles(Patchwork &work, const Header &header)
{
    HoleFiller(work, header).run();
}

} // namespace salvage
