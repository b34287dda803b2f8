// The parts of a JPEG that a salvage takes apart and puts together again (ISO/IEC 10918-1, annexes B and F).
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace salvage {

using ByteView = std::span<const quint8>;

inline ByteView view(const QByteArray &bytes)
{
    return {reinterpret_cast<const quint8 *>(bytes.constData()), size_t(bytes.size())};
}
/// The part [from, to) of `bytes`, cut to what is there.
inline ByteView slice(ByteView bytes, size_t from, size_t to)
{
    to = std::min(to, bytes.size());
    return from < to ? bytes.subspan(from, to - from) : ByteView();
}
/// The big-endian word at `at`, 0 where it doesn't stand whole.
inline quint16 wordAt(ByteView bytes, size_t at)
{
    return at + 1 < bytes.size() ? quint16(bytes[at] << 8 | bytes[at + 1]) : quint16(0);
}
inline QByteArray toBytes(ByteView bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), int(bytes.size())};
}
inline bool startsWith(ByteView bytes, std::string_view text)
{
    return bytes.size() >= text.size()
        && std::equal(text.begin(), text.end(), bytes.begin(), [](char a, quint8 b) { return quint8(a) == b; });
}

/// 64 values in zig-zag order.
using QuantTable = std::array<quint16, 64>;

/// Row-major place of each zig-zag index.
constexpr std::array<quint8, 64> kNaturalOrder = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,
                                                  12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13, 6,  7,  14, 21, 28,
                                                  35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
                                                  58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

struct HuffmanTable
{
    std::array<quint8, 16> counts{}; ///< codes of each length, 1 to 16 bits
    std::vector<quint8> symbols;     ///< in the order of their codes
    bool operator==(const HuffmanTable &) const = default;
};

/// Tc in the upper four bits, Th in the lower: 00 to 03 DC, 10 to 13 AC.
using HuffmanKey = quint8;
constexpr quint8 tableClass(HuffmanKey key)
{
    return key >> 4;
}

struct Component
{
    quint8 id = 0;
    quint8 h = 1; ///< sampling factors
    quint8 v = 1;
    quint8 quant = 0; ///< Tq
    bool operator==(const Component &) const = default;
};

struct ScanComponent
{
    quint8 id = 0;
    quint8 tables = 0; ///< Td in the upper four bits, Ta in the lower
    HuffmanKey dcKey() const { return tables >> 4; }
    HuffmanKey acKey() const { return quint8(0x10 | (tables & 15)); }
    bool operator==(const ScanComponent &) const = default;
};

/// A header in parts: what stands in front of the entropy data of the (first) scan.
struct Header
{
    std::vector<QByteArray> apps; ///< whole APPn and COM segments
    quint8 frame = 0xC0;          ///< second byte of the SOF marker
    quint16 width = 0;
    quint16 height = 0;
    std::vector<Component> components;
    std::map<quint8, QuantTable> quant;
    std::map<HuffmanKey, HuffmanTable> huffman;
    std::vector<ScanComponent> scan;
    std::array<quint8, 3> spectral = {0, 63, 0}; ///< Ss, Se, Ah << 4 | Al
    quint16 restartInterval = 0;                 ///< MCUs; 0 for none

    bool progressive() const { return frame == 0xC2; }
    /// Pixels of one MCU; of one block where the frame has one component.
    int mcuWidth() const;
    int mcuHeight() const;
    quint32 mcusWide() const { return (quint32(width) + quint32(mcuWidth()) - 1) / quint32(mcuWidth()); }
    quint32 mcusHigh() const { return (quint32(height) + quint32(mcuHeight()) - 1) / quint32(mcuHeight()); }
    quint32 mcuCount() const { return mcusWide() * mcusHigh(); }
    /// True if every field is within what a decoder takes: components, samplings, a size, a table for each component.
    bool decodable() const;
    /// True for a size of which the coefficients may be held: at most 60 million pixels, for which three components take
    /// 360 MB. A larger one is counted through, but not looked at.
    bool fitsMemory() const;
    /// From SOI to the end of the SOS segment.
    QByteArray bytes(bool withApps) const;
};

} // namespace salvage
