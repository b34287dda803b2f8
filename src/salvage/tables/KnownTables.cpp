#include "salvage/tables/KnownTables.h"

#include "salvage/structure/Structure.h"
#include "salvage/tables/AnnexK.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr size_t kSegmentHead = 4; // marker and length

std::vector<KnownHuffman> tablesOf(ByteView body)
{
    std::vector<KnownHuffman> tables;
    for (const PlacedTable &each : soundTables(body)) tables.push_back({each.key, each.table});
    return tables;
}

QuantSet setOf(ByteView body)
{
    QuantSet set;
    constexpr size_t kTable = 65;
    for (size_t at = 0; at + kTable <= body.size(); at += kTable) {
        QuantTable table{};
        std::copy_n(body.begin() + qptrdiff(at) + 1, 64, table.begin());
        if (std::find(table.begin(), table.end(), 0) == table.end()) set.push_back(table);
    }
    return set;
}

std::array<HuffmanTable, 4> makeStandard()
{
    std::array<HuffmanTable, 4> all;
    size_t i = 0;
    for (const KnownHuffman &each : tablesOf(kTypicalHuffman)) all.at(i++) = each.table;
    return all;
}

} // namespace

KnownTables::KnownTables(const std::vector<QByteArray> &dhtSegments, const std::vector<QByteArray> &dqtSegments)
{
    const auto addHuffman = [this](const KnownHuffman &each) {
        const auto same = [&](const KnownHuffman &other) {
            return tableClass(other.key) == tableClass(each.key) && other.table == each.table;
        };
        if (std::none_of(m_huffman.begin(), m_huffman.end(), same)) m_huffman.push_back(each);
    };
    for (const QByteArray &segment : dhtSegments)
        for (const KnownHuffman &each : tablesOf(view(segment).subspan(kSegmentHead))) addHuffman(each);
    for (const HuffmanKey key : std::array<HuffmanKey, 4>{0x00, 0x10, 0x01, 0x11}) addHuffman({key, standard(key)});

    std::map<QuantSet, bool> seen;
    const auto addSet = [&](const QuantSet &set) {
        if (!set.empty() && seen.emplace(set, true).second) m_sets.push_back(set);
    };
    for (const QByteArray &segment : dqtSegments) addSet(setOf(view(segment).subspan(kSegmentHead)));
    for (int quality = 100; quality >= 1; --quality) addSet({scaled(false, quality), scaled(true, quality)});
    for (size_t set = 0; set < m_sets.size(); ++set) {
        for (size_t i = 0; i < m_sets[set].size(); ++i) {
            auto &places = m_places[m_sets[set][i]];
            if (places.empty()) m_tables.push_back(m_sets[set][i]);
            places.emplace_back(set, i);
        }
    }
}

bool KnownTables::isKnown(const HuffmanTable &table) const
{
    return std::any_of(m_huffman.begin(), m_huffman.end(),
                       [&](const KnownHuffman &each) { return each.table == table; });
}

const HuffmanTable &KnownTables::standard(HuffmanKey key)
{
    static const std::array<HuffmanTable, 4> all = makeStandard(); // 00, 10, 01, 11
    return all.at(size_t((key & 15) ? 2 : 0) + (tableClass(key) ? 1 : 0));
}

const std::vector<std::pair<size_t, size_t>> &KnownTables::placesOf(const QuantTable &table) const
{
    static const std::vector<std::pair<size_t, size_t>> none;
    const auto found = m_places.find(table);
    return found == m_places.end() ? none : found->second;
}

QuantTable KnownTables::scaled(bool chroma, int quality)
{
    const int scale = quality < 50 ? 5000 / quality : 200 - 2 * quality;
    QuantTable table = example(chroma);
    for (quint16 &value : table) value = quint16(std::clamp((value * scale + 50) / 100, 1, 255));
    return table;
}

const QuantTable &KnownTables::example(bool chroma)
{
    return chroma ? kExampleChrominance : kExampleLuminance;
}

} // namespace salvage
