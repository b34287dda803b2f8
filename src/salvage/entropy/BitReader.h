// Reads entropy data bit by bit: undoes the stuffing and stops in front of a marker (ISO/IEC 10918-1, F.2.2.5).
#pragma once

#include "salvage/Types.h"

#include <array>

namespace salvage {

/// Behind a marker or the end of the data the bits are zero, and overrun() counts them.
class BitReader
{
public:
    static constexpr int kEnd = 0x100; ///< in the place of a marker: the data ended

    explicit BitReader(ByteView data) : m_data(data.data()), m_end(data.size()) {}

    /// The next 16 bits without taking them.
    quint32 peek16()
    {
        if (m_bits < 16) fill();
        return quint32(m_window >> (m_bits - 16)) & 0xFFFF;
    }
    void skip(int bits) { m_bits -= bits; }
    /// Takes `count` bits, at most 16.
    int take(int count)
    {
        if (m_bits < count) fill();
        m_bits -= count;
        return int(m_window >> m_bits) & ((1 << count) - 1);
    }
    /// Takes a value of `size` bits in the form of F.2.2.1 (EXTEND).
    int takeValue(int size)
    {
        if (size == 0) return 0;
        const int value = take(size);
        return value < (1 << (size - 1)) ? value - (1 << size) + 1 : value;
    }

    /// Bits of the data that are read in and not taken; negative once more was taken than there is.
    int left() const { return m_bits - m_padding; }
    /// True once bits were taken that the data don't have.
    bool overrun() const { return m_bits < m_padding; }
    /// The second byte of the marker in front of which the data stop as far as they are read in, kEnd at their end, else 0.
    int marker()
    {
        fill();
        return m_marker;
    }
    /// Offset of the first byte that isn't taken, not even in part.
    size_t position() const
    {
        size_t at = m_at;
        for (int bytes = std::max(0, left()) / 8; bytes > 0; --bytes)
            at -= at > 1 && m_data[at - 1] == 0 && m_data[at - 2] == 0xFF ? 2 : 1;
        return at;
    }
    /// Steps over the marker and forgets what is left of the bits in front of it.
    void passMarker() { jumpTo(m_at + 2); }
    /// Goes on at `offset` in the data, whatever was read in.
    void jumpTo(size_t offset)
    {
        m_at = std::min(offset, m_end);
        m_marker = m_bits = m_padding = 0;
        m_window = 0;
    }
    /// Goes on in front of `offset`, where the last `bits` bits of the byte before it aren't taken yet.
    void jumpBefore(size_t offset, int bits)
    {
        offset = std::min(offset, m_end);
        const bool stuffed = offset > 1 && m_data[offset - 1] == 0 && m_data[offset - 2] == 0xFF;
        if (offset == 0) bits = 0;
        jumpTo(bits ? offset - (stuffed ? 2 : 1) : offset);
        if (bits) take(8 - bits);
    }
    /// Gives back what was taken beyond the data.
    void forgiveOverrun()
    {
        if (m_bits < 0) m_bits = 0;
    }

private:
    void fill();

    const quint8 *m_data;
    size_t m_at = 0;
    size_t m_end;
    quint64 m_window = 0;
    int m_bits = 0;    // in the window, the padding included
    int m_padding = 0; // zeros in the window that the data don't have
    int m_marker = 0;
};

/// Decodes one Huffman table's codes.
class HuffmanDecoder
{
public:
    HuffmanDecoder() = default;
    explicit HuffmanDecoder(const HuffmanTable &table);

    /// Takes the next symbol; -1, with no bit taken, where no code stands.
    int next(BitReader &reader) const
    {
        const quint32 bits = reader.peek16();
        const Entry entry = m_short[bits >> (16 - kShort)];
        if (entry.length > 0) {
            reader.skip(entry.length);
            return entry.symbol;
        }
        return longCode(reader, bits);
    }

private:
    static constexpr int kShort = 10; // bits that are looked up at once
    struct Entry
    {
        quint8 length = 0;
        quint8 symbol = 0;
    };
    int longCode(BitReader &reader, quint32 bits) const;

    std::array<Entry, 1 << kShort> m_short{};
    std::array<quint32, 17> m_limit{}; // first code beyond those of a length, moved to 16 bits
    std::array<int, 17> m_first{};     // index of a length's first symbol less its first code
    std::vector<quint8> m_symbols;
};

} // namespace salvage
