// One pass over the entropy data of a baseline scan, MCU by MCU (ISO/IEC 10918-1, F.2).
#pragma once

#include "salvage/BitReader.h"
#include "salvage/Entropy.h"

#include <array>
#include <vector>

namespace salvage {

/// Sampling factors of the components of a scan, 1 x 1 where there is one alone.
std::vector<Component> samplingOf(const Header &header);

class McuReader
{
public:
    McuReader(const Header &header, ByteView data);

    /// Reads one MCU; `to` is null or has room for its blocks, all of them 0.
    Fit::Error readMcu(qint16 *to);
    /// The same, but an error empties its block, and the rest of the MCU keeps the levels that stand. True without one.
    bool readMcuTolerantly(qint16 *to);
    /// Passes the marker in front of which the data stop.
    void restart();

    /// Where a pass can be taken up again.
    struct Place
    {
        size_t offset = 0; ///< in the data, of the first byte that isn't taken, not even in part
        int bits = 0;      ///< of the byte before it that aren't taken
        std::array<int, 4> predictions{};
    };
    Place place() const;
    void goTo(const Place &place);

    BitReader reader;
    int blocks = 0;      ///< of an MCU
    quint32 symbols = 0; ///< that were read

private:
    struct Part
    {
        int blocks = 0;
        int prediction = 0;
        HuffmanDecoder dc;
        HuffmanDecoder ac;
    };

    Fit::Error readDc(Part &part);
    template<bool Keep>
    Fit::Error readAc(Part &part, qint16 *to);
    template<bool Keep>
    Fit::Error readBlock(Part &part, qint16 *to);

    std::vector<Part> m_parts;
};

} // namespace salvage
