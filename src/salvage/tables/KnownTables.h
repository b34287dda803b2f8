// A read-only view of the tables that are known to have been written by encoders: the library's, those of ISO/IEC 10918-1
// Annex K, and Annex K's quantization scaled to the usual qualities.
#pragma once

#include "salvage/Types.h"

#include <map>
#include <vector>

namespace salvage {

struct KnownHuffman
{
    HuffmanKey key = 0;
    HuffmanTable table;
};

/// The quantization tables of one encoder setting: two (luminance, chrominance) or three.
using QuantSet = std::vector<QuantTable>;

class KnownTables
{
public:
    /// Takes whole DHT and DQT segments, marker included; what isn't sound in them is left out.
    KnownTables(const std::vector<QByteArray> &dhtSegments, const std::vector<QByteArray> &dqtSegments);

    const std::vector<KnownHuffman> &huffman() const { return m_huffman; }
    bool isKnown(const HuffmanTable &table) const;
    /// The table of Annex K.3 for a key; those of numbers above 1 are those of 1.
    static const HuffmanTable &standard(HuffmanKey key);

    const std::vector<QuantSet> &quantSets() const { return m_sets; }
    /// Every different table of the sets, in the order of the sets.
    const std::vector<QuantTable> &quantTables() const { return m_tables; }
    /// Places of a table: indices into quantSets() and within the set; empty if it isn't known.
    const std::vector<std::pair<size_t, size_t>> &placesOf(const QuantTable &table) const;
    bool isKnown(const QuantTable &table) const { return !placesOf(table).empty(); }

    /// Annex K.1 scaled as most encoders do, `quality` 1 to 100; `chroma` for its second table.
    static QuantTable scaled(bool chroma, int quality);
    /// Annex K.1 itself, in zig-zag order.
    static const QuantTable &example(bool chroma);

private:
    std::vector<KnownHuffman> m_huffman;
    std::vector<QuantSet> m_sets;
    std::vector<QuantTable> m_tables;
    std::map<QuantTable, std::vector<std::pair<size_t, size_t>>> m_places;
};

} // namespace salvage
