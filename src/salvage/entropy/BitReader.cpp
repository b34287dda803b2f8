#include "salvage/entropy/BitReader.h"

#include <QtEndian>

#include <algorithm>

namespace salvage {

namespace {

/// True if one of the eight bytes is FF; seldom also where none is.
bool hasFF(quint64 bytes)
{
    constexpr quint64 kOnes = 0x0101010101010101;
    // A byte of ~bytes that is 0 borrows from its highest bit.
    return ((~bytes - kOnes) & bytes & (kOnes << 7)) != 0;
}

} // namespace

void BitReader::fill()
{
    if (m_bits <= 48 && m_marker == 0 && m_end - m_at >= sizeof(quint64)) {
        const quint64 next = qFromBigEndian<quint64>(m_data + m_at);
        if (!hasFF(next)) {
            const int bytes = (56 - m_bits) / 8;
            m_window = m_window << (8 * bytes) | next >> (64 - 8 * bytes);
            m_at += size_t(bytes);
            m_bits += 8 * bytes;
            return;
        }
    }
    while (m_bits <= 48) {
        quint8 byte = 0;
        if (m_marker == 0 && m_at < m_end) {
            byte = m_data[m_at];
            const bool stuffed = byte == 0xFF && m_at + 1 < m_end && m_data[m_at + 1] == 0;
            if (byte != 0xFF || stuffed) {
                m_at += stuffed ? 2 : 1;
                m_window = m_window << 8 | byte;
                m_bits += 8;
                continue;
            }
            // An FF at the very end stands for nothing.
            m_marker = m_at + 1 < m_end ? m_data[m_at + 1] : kEnd;
        } else if (m_marker == 0) {
            m_marker = kEnd;
        }
        m_window <<= 8;
        m_bits += 8;
        m_padding += 8;
    }
}

HuffmanDecoder::HuffmanDecoder(const HuffmanTable &table) : m_symbols(table.symbols)
{
    quint32 code = 0;
    size_t index = 0;
    for (int length = 1; length <= 16; ++length) {
        m_first.at(size_t(length)) = int(index) - int(code);
        for (int i = 0; i < table.counts[size_t(length) - 1] && index < m_symbols.size(); ++i) {
            if (code >= 1u << length) break; // the counts claim more codes than there are
            if (length <= kShort) {
                const quint32 from = code << (kShort - length);
                std::fill_n(m_short.begin() + from, 1u << (kShort - length), Entry{quint8(length), m_symbols[index]});
            }
            ++code;
            ++index;
        }
        m_limit.at(size_t(length)) = code << (16 - length);
        code <<= 1;
    }
}

int HuffmanDecoder::longCode(BitReader &reader, quint32 bits) const
{
    for (int length = kShort + 1; length <= 16; ++length) {
        if (bits >= m_limit[size_t(length)]) continue;
        const int index = m_first[size_t(length)] + int(bits >> (16 - length));
        if (index < 0 || size_t(index) >= m_symbols.size()) return -1;
        reader.skip(length);
        return m_symbols[size_t(index)];
    }
    return -1;
}

} // namespace salvage
