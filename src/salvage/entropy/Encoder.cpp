// The baseline encoder: Annex K's tables hold every symbol, so whatever was read can be written.
#include "salvage/entropy/Entropy.h"
#include "salvage/tables/KnownTables.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>

namespace salvage {

namespace {

class BitWriter
{
public:
    /// Makes room for one block, however it is written.
    void beginBlock()
    {
        constexpr int kMost = 64 * 4 * 2; // bytes, every one of them stuffed
        if (m_out.size() - m_size < kMost) m_out.resize(m_out.size() + m_out.size() / 2 + 64 * kMost);
    }
    /// The lower `bits` bits of `value`, at most 32.
    void put(quint32 value, int bits)
    {
        m_window = m_window << bits | value;
        m_bits += bits;
        if (m_bits < 32) return;
        m_bits -= 32;
        const auto four = quint32(m_window >> m_bits);
        if (((~four - 0x01010101U) & four & 0x80808080U) == 0) { // no FF among them
            qToBigEndian(four, m_out.data() + m_size);
            m_size += 4;
            return;
        }
        for (int shift = 24; shift >= 0; shift -= 8) putByte(quint8(four >> shift));
    }
    /// The data, the last byte filled up with ones.
    QByteArray finish()
    {
        beginBlock();
        if (m_bits % 8) put((1u << (8 - m_bits % 8)) - 1, 8 - m_bits % 8);
        for (; m_bits > 0; m_bits -= 8) putByte(quint8(m_window >> (m_bits - 8)));
        m_out.truncate(m_size);
        return m_out;
    }

private:
    void putByte(quint8 byte)
    {
        m_out.data()[m_size++] = char(byte);
        if (byte == 0xFF) m_out.data()[m_size++] = '\0';
    }

    QByteArray m_out;
    int m_size = 0; // of m_out that is written
    quint64 m_window = 0;
    int m_bits = 0; // of the window that aren't written
};

struct Codes
{
    std::array<quint16, 256> code{};
    std::array<quint8, 256> length{};

    explicit Codes(const HuffmanTable &table)
    {
        quint16 next = 0;
        size_t index = 0;
        for (size_t i = 0; i < table.counts.size(); ++i) {
            for (int k = 0; k < table.counts[i]; ++k) {
                const quint8 symbol = table.symbols[index++];
                code[symbol] = next++;
                length[symbol] = quint8(i + 1);
            }
            next = quint16(next << 1);
        }
    }
    void put(BitWriter &out, quint8 symbol) const { out.put(code[symbol], length[symbol]); }
    /// A symbol, and behind it the bits of the value of `size` bits that it announces.
    void put(BitWriter &out, quint8 symbol, int value, int size) const
    {
        const auto bits = quint32(value < 0 ? value + (1 << size) - 1 : value);
        out.put(quint32(code[symbol]) << size | bits, length[symbol] + size);
    }
};

int sizeOf(int value)
{
    return std::bit_width(unsigned(std::abs(value)));
}

/// Index of the last value that isn't 0.
int lastValue(const qint16 *block)
{
    int last = 63;
    quint64 four = 0;
    for (; last > 3; last -= 4) {
        std::memcpy(&four, block + last - 3, sizeof four);
        if (four) break;
    }
    while (last > 0 && block[last] == 0) --last;
    return last;
}

void putBlock(BitWriter &out, const qint16 *block, int &prediction, const Codes &dc, const Codes &ac)
{
    const int level = std::clamp<int>(block[0], -1024, 1023);
    const int step = level - prediction;
    prediction = level;
    out.beginBlock();
    dc.put(out, quint8(sizeOf(step)), step, sizeOf(step));

    const int last = lastValue(block);
    int run = 0;
    for (int z = 1; z <= last; ++z) {
        const int value = std::clamp<int>(block[z], -1023, 1023);
        if (value == 0) {
            ++run;
            continue;
        }
        for (; run > 15; run -= 16) ac.put(out, 0xF0);
        ac.put(out, quint8(run << 4 | sizeOf(value)), value, sizeOf(value));
        run = 0;
    }
    if (last < 63) ac.put(out, 0);
}

} // namespace

QByteArray encode(const Coefficients &picture)
{
    const std::array<Codes, 2> dc = {Codes(KnownTables::standard(0x00)), Codes(KnownTables::standard(0x01))};
    const std::array<Codes, 2> ac = {Codes(KnownTables::standard(0x10)), Codes(KnownTables::standard(0x11))};
    BitWriter out;
    std::vector<int> predictions(picture.sampling.size());
    const qint16 *block = picture.values.data();
    for (quint32 mcu = 0; mcu < picture.mcuCount(); ++mcu) {
        for (size_t i = 0; i < picture.sampling.size(); ++i) {
            const size_t kind = i ? 1 : 0;
            for (int k = 0; k < picture.sampling[i].h * picture.sampling[i].v; ++k, block += 64)
                putBlock(out, block, predictions[i], dc.at(kind), ac.at(kind));
        }
    }
    return out.finish();
}

void useStandardTables(Header &header)
{
    header.huffman.clear();
    header.restartInterval = 0;
    for (size_t i = 0; i < header.scan.size(); ++i) {
        header.scan[i].tables = i ? 0x11 : 0x00;
        for (const HuffmanKey key : {header.scan[i].dcKey(), header.scan[i].acKey()})
            header.huffman[key] = KnownTables::standard(key);
    }
}

} // namespace salvage
