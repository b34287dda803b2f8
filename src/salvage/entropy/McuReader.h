// One pass over the entropy data of a baseline scan, MCU by MCU (ISO/IEC 10918-1, F.2).
#pragma once

#include "salvage/entropy/BitReader.h"
#include "salvage/entropy/Entropy.h"

#include <array>
#include <vector>

namespace salvage {

/// Sampling factors of the components of a scan, 1 x 1 where there is one alone.
std::vector<Component> samplingOf(const Header &header);

/// True where the data in hand end, but for the ones by which an encoder fills its last byte. Whole MCUs of a flat picture
/// take less than a byte; no code consists of ones alone, so these can't be taken for one.
bool atEnd(BitReader &reader);

/// Reads the blocks of one component of a sequential scan.
struct BlockReader
{
    HuffmanDecoder dc;
    HuffmanDecoder ac;
    int prediction = 0;  ///< DC of the block before
    quint32 symbols = 0; ///< that were read

    /// Takes the difference of DC into `prediction`.
    Fit::Error readDc(BitReader &reader);
    /// Takes the other 63 values; `to` is used where Keep is set, and is 0 there.
    template<bool Keep>
    Fit::Error readAc(BitReader &reader, qint16 *to);
    /// Both; `to` is null or a block of zeros.
    Fit::Error read(BitReader &reader, qint16 *to);
};

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
    int blocks = 0; ///< of an MCU
    /// Huffman codes that were read.
    quint32 symbols() const;

private:
    struct Part : BlockReader
    {
        int blocks = 0;
    };

    std::vector<Part> m_parts;
};

} // namespace salvage
