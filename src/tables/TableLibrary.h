// The library of healthy Huffman and quantization tables: read once, checked on the way in, never changed afterwards.
#pragma once

#include "tables/QuantizationHead.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

/// The five lists into which the first value of a DQT's first table divides the quantization rows.
enum class QuantizationFamily { Standard, Standard02, Standard345, Standard689, StandardOthers };
constexpr int kQuantizationFamilies = 5;

enum class QuantizationKind { Pair, Triple };
constexpr int kQuantizationKinds = 2;

/// A whole DHT segment.
struct HuffmanRow
{
    QByteArray segment; ///< marker included
    int length = 0;     ///< its length field
    int line = 0;       ///< in the text, from 1
};

/// A whole DQT segment of two or three tables of 64 values in zig-zag order.
struct QuantizationRow
{
    static constexpr int kTableBytes = 65; ///< the Tq byte and 64 values
    static constexpr int kFirstValue = 5;  ///< offset, from the marker, of the first table's first value
    static constexpr int kPairBytes = 134; ///< marker and length included
    static constexpr int kTripleBytes = 199;

    QByteArray segment; ///< marker included; the length field of a pair may be an odd 00 43
    std::array<QuantizationHead, 3> heads{};
    int position = 0; ///< place in the search of its family and kind
    int line = 0;     ///< in the text, from 1

    int tableCount() const { return segment.size() / kTableBytes; }
    /// The 64 values of table `index`.
    const quint8 *values(int index) const
    {
        return reinterpret_cast<const quint8 *>(segment.constData()) + kFirstValue + index * kTableBytes;
    }
};

/// Rows of both kinds of tables, in the order in which a search tries them.
class TableLibrary
{
public:
    /// Reads both texts, one record a line: `<length field> <DHT segment in hex>` in the order of the search, and
    /// `<family> <pair|triple> <position> <DQT segment in hex>`. Blank lines and lines that begin with "#" count for
    /// nothing. The rows of a family and kind are sorted by position, so their lines may come in any order and leave
    /// gaps; a position given twice is an error, as the order decides what is found.
    /// False if a record is bad: then `error` is one line with file and line number, and `out` is unchanged.
    static bool load(const QByteArray &huffmanText, const QByteArray &quantizationText, TableLibrary &out,
                     QString *error);

    /// The program's own data, read when it is first asked for; empty if it is bad. Any thread may ask.
    static const TableLibrary &builtIn();
    /// What the look-ups use: the built-in library, or the one that a ScopedTables has put in its place.
    static const TableLibrary &current();

    const std::vector<HuffmanRow> &huffmanRows() const { return m_huffman; }
    const std::vector<QuantizationRow> &quantizationRows(QuantizationFamily family, QuantizationKind kind) const
    {
        return m_quantization[size_t(family)][size_t(kind)];
    }

private:
    std::vector<HuffmanRow> m_huffman;
    std::array<std::array<std::vector<QuantizationRow>, kQuantizationKinds>, kQuantizationFamilies> m_quantization;
};

/// "" if the built-in library is sound, else one line that says what is wrong with it; a program that gets one should
/// not start.
QString checkBuiltInTables();

/// Puts another library in the place of the built-in one for as long as it lives, for tests. They may be nested; the
/// library must outlive it.
class ScopedTables
{
public:
    explicit ScopedTables(const TableLibrary &library);
    ~ScopedTables();
    ScopedTables(const ScopedTables &) = delete;
    ScopedTables &operator=(const ScopedTables &) = delete;

private:
    const TableLibrary *m_before;
};
