#include "salvage/tables/Huffman.h"

#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace salvage {

namespace {

constexpr size_t kTableHead = 17;
constexpr size_t kMostReadings = 3;

template<typename A, typename B>
int sameBytes(const A &a, const B &b)
{
    const size_t n = std::min(a.size(), b.size());
    return std::inner_product(a.begin(), a.begin() + qptrdiff(n), b.begin(), 0, std::plus<>(), std::equal_to<>());
}

std::vector<quint8> tableBytes(const HuffmanTable &table)
{
    std::vector<quint8> bytes(table.counts.begin(), table.counts.end());
    bytes.insert(bytes.end(), table.symbols.begin(), table.symbols.end());
    return bytes;
}

void addKnownReadings(ByteView gap, const KnownTables &known, std::vector<KeyedOption> &readings)
{
    struct Match
    {
        int same;
        const KnownHuffman *known;
    };
    std::vector<Match> matches;
    for (const KnownHuffman &each : known.huffman()) {
        if (kTableHead + each.table.symbols.size() != gap.size()) continue;
        const int same = sameBytes(tableBytes(each.table), gap.subspan(1));
        if (2 * size_t(same) >= gap.size()) matches.push_back({same, &each});
    }
    std::stable_sort(matches.begin(), matches.end(), [](const Match &a, const Match &b) { return a.same > b.same; });
    if (matches.size() > kMostReadings) matches.resize(kMostReadings);
    for (const Match &match : matches) {
        const bool keyStands = isHuffmanKey(gap[0]) && tableClass(gap[0]) == tableClass(match.known->key);
        readings.push_back({keyStands ? gap[0] : match.known->key, {match.known->table, TableOrigin::Known}});
    }
}

/// Bounds of the symbols of one code length, [begin, end).
struct Group
{
    size_t begin;
    size_t end;
};

/// Of the symbols of one length those that every longest ascending run goes through; the others are doubtful.
void markOutOfOrder(const HuffmanTable &table, Group group, const std::vector<bool> &legal, std::vector<bool> &doubtful)
{
    const size_t n = group.end - group.begin;
    if (n < 2) return;
    std::vector<int> upTo(n);
    std::vector<int> from(n);
    const auto symbol = [&](size_t i) { return table.symbols[group.begin + i]; };
    const auto isLegal = [&](size_t i) { return bool(legal[group.begin + i]); };
    for (size_t i = 0; i < n; ++i) {
        if (!isLegal(i)) continue;
        for (size_t j = 0; j < i; ++j)
            if (isLegal(j) && symbol(j) < symbol(i)) upTo[i] = std::max(upTo[i], upTo[j]);
        ++upTo[i];
    }
    for (size_t i = n; i-- > 0;) {
        if (!isLegal(i)) continue;
        for (size_t j = i + 1; j < n; ++j)
            if (isLegal(j) && symbol(j) > symbol(i)) from[i] = std::max(from[i], from[j]);
        ++from[i];
    }
    const int longest = *std::max_element(upTo.begin(), upTo.end());
    std::vector<int> onPath(size_t(longest) + 1);
    const auto onLongest = [&](size_t i) { return isLegal(i) && upTo[i] + from[i] - 1 == longest; };
    for (size_t i = 0; i < n; ++i)
        if (onLongest(i)) ++onPath[size_t(upTo[i])];
    for (size_t i = 0; i < n; ++i)
        if (!onLongest(i) || onPath[size_t(upTo[i])] != 1) doubtful[group.begin + i] = true;
}

std::vector<quint8> pool(HuffmanKey key, bool progressive)
{
    std::vector<quint8> values;
    for (int value = 0; value < 256; ++value)
        if (isLegalSymbol(tableClass(key), quint8(value), progressive)) values.push_back(quint8(value));
    return values;
}

} // namespace

DhtReading readDht(ByteView body, bool progressive)
{
    DhtReading reading;
    size_t at = 0;
    for (PlacedTable placed = tableAt(body, at); placed.end; placed = tableAt(body, at)) {
        const TableState state = stateOf(placed.key, placed.table, progressive);
        if (state == TableState::DoubtfulCounts) break;
        reading.tables.push_back({placed.key, placed.table, state});
        at = placed.end;
    }
    if (at == body.size() || (body.size() - at < 3 && !reading.tables.empty())) return reading;

    reading.tables.clear();
    at = 0;
    const auto addGap = [&](size_t end) {
        if (end > at + kTableHead) reading.gaps.push_back(slice(body, at, end));
    };
    for (const PlacedTable &placed : soundTables(body)) {
        addGap(placed.begin);
        reading.tables.push_back({placed.key, placed.table, stateOf(placed.key, placed.table, progressive)});
        at = placed.end;
    }
    addGap(body.size());
    return reading;
}

std::vector<HuffmanTable> knownLike(HuffmanKey key, const HuffmanTable &table, const KnownTables &known)
{
    constexpr size_t kMany = 100;
    std::vector<std::pair<int, const HuffmanTable *>> matches;
    const size_t n = table.symbols.size();
    for (const KnownHuffman &each : known.huffman()) {
        if (each.table.symbols.size() != n || tableClass(each.key) != tableClass(key)) continue;
        if (each.table.symbols == table.symbols) continue;
        const int same = sameBytes(each.table.symbols, table.symbols);
        const bool agreesWidely = n > kMany && same >= 0.6 * double(n);
        if (agreesWidely || (each.table.counts == table.counts && same >= 0.8 * double(n)))
            matches.emplace_back(same, &each.table);
    }
    std::stable_sort(matches.begin(), matches.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    std::vector<HuffmanTable> tables;
    for (size_t i = 0; i < std::min(kMostReadings, matches.size()); ++i) tables.push_back(*matches[i].second);
    return tables;
}

std::vector<KeyedOption> readingsOf(ByteView gap, const KnownTables &known)
{
    std::vector<KeyedOption> readings;
    if (gap.size() <= kTableHead || gap.size() > kTableHead + 256) return readings;
    addKnownReadings(gap, known, readings);

    const int symbols = int(gap.size() - kTableHead);
    const ByteView text = gap.subspan(kTableHead);
    Counts counts{};
    std::copy_n(gap.begin() + 1, counts.size(), counts.begin());
    std::vector<Counts> choices;
    if (symbolCount(counts) == symbols && kraftSum(counts) <= 65536) choices.push_back(counts);
    const std::vector<Counts> mended = mendedCounts(counts, symbols);
    choices.insert(choices.end(), mended.begin(), mended.end());
    const bool isDc = symbols <= 16 && std::all_of(text.begin(), text.end(), [](quint8 value) { return value <= 11; });
    const HuffmanKey key =
        isHuffmanKey(gap[0]) && (tableClass(gap[0]) == 0) == isDc ? gap[0] : quint8(isDc ? 0x00 : 0x10);
    for (const Counts &choice : choices) {
        TableOption option{{choice, {text.begin(), text.end()}}, TableOrigin::CountsMended};
        readings.push_back({key, std::move(option)});
    }
    return readings;
}

bool Doubt::any() const
{
    return std::find(doubtful.begin(), doubtful.end(), true) != doubtful.end();
}

Doubt doubtIn(HuffmanKey key, const HuffmanTable &table, bool progressive)
{
    const auto &symbols = table.symbols;
    const size_t n = symbols.size();
    Doubt doubt;
    doubt.doubtful.resize(n);
    doubt.groupBegin.resize(n);
    doubt.groupEnd.resize(n);
    std::vector<bool> legal(n);
    std::array<int, 256> uses{};
    for (size_t i = 0; i < n; ++i) {
        legal[i] = isLegalSymbol(tableClass(key), symbols[i], progressive);
        ++uses.at(symbols[i]);
    }
    size_t begin = 0;
    for (const quint8 count : table.counts) {
        const Group group{begin, std::min(n, begin + count)};
        for (size_t i = group.begin; i < group.end; ++i) {
            doubt.groupBegin[i] = group.begin;
            doubt.groupEnd[i] = group.end;
        }
        markOutOfOrder(table, group, legal, doubt.doubtful);
        begin = group.end;
    }
    const auto outOfOrder = size_t(std::count(doubt.doubtful.begin(), doubt.doubtful.end(), true));
    const double allowed = std::max(3.0, std::min(16.0, double(n) * 0.4));
    doubt.ascending = double(outOfOrder) <= allowed || (tableClass(key) == 0 && n <= 12);
    if (!doubt.ascending) doubt.doubtful.assign(n, false);
    for (size_t i = 0; i < n; ++i)
        if (!legal[i]) doubt.doubtful[i] = true;
    // Of two equal symbols the one that stands out by its place is the wrong one; where neither does, both are doubtful.
    const std::vector<bool> before = doubt.doubtful;
    for (size_t i = 0; i < n; ++i) {
        if (uses.at(symbols[i]) < 2) continue;
        bool otherIsDoubtful = false;
        for (size_t j = 0; j < n; ++j)
            otherIsDoubtful = otherIsDoubtful || (j != i && symbols[j] == symbols[i] && before[j]);
        if (!doubt.ascending || !otherIsDoubtful) doubt.doubtful[i] = true;
    }
    return doubt;
}

std::vector<quint8> valuesFor(HuffmanKey key, const HuffmanTable &table, size_t place, const Doubt &doubt,
                              const std::vector<bool> &fixed, bool progressive)
{
    std::set<quint8> used;
    for (size_t i = 0; i < fixed.size(); ++i)
        if (fixed[i] && i != place) used.insert(table.symbols[i]);
    int low = -1;
    int high = 256;
    if (doubt.ascending) {
        for (size_t i = place; i-- > doubt.groupBegin[place] && low < 0;)
            if (fixed[i]) low = table.symbols[i];
        for (size_t i = place + 1; i < doubt.groupEnd[place] && high > 255; ++i)
            if (fixed[i]) high = table.symbols[i];
    }
    std::vector<quint8> values;
    for (const quint8 value : pool(key, progressive))
        if (value > low && value < high && !used.count(value)) values.push_back(value);
    return values;
}

} // namespace salvage
