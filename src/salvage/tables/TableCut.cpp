#include "salvage/tables/TableCut.h"

#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace salvage {

namespace {

constexpr size_t kHead = 17; // Tc/Th and 16 counts
constexpr size_t kLongestBody = 1100;
constexpr size_t kSegmentHead = 4;
constexpr int kMostSymbols = 176; // legal ones of an AC table, those of a progressive scan included
constexpr double kNever = std::numeric_limits<double>::infinity();

// What a table may cost, in hits. A byte that differs by one bit is likelier than one that differs by many.
constexpr double kHit = 1;
constexpr double kBit = 0.04;
constexpr double kDescent = 0.05; // most encoders sort the symbols of one length
constexpr double kFilled = 0.5;   // a table with its holes filled comes before the same with holes
constexpr double kHeadHit = 0.5;
constexpr double kMostForTable = 7;
constexpr double kMostForBody = 8;
constexpr size_t kMostOptions = 8;

double hitCost(quint8 is, quint8 was)
{
    return is == was ? 0 : kHit + kBit * (std::popcount(quint8(is ^ was)) - 1);
}

/// Counts that a table may have had, and the hits that it takes.
struct CountsReading
{
    Counts counts{};
    double cost = 0;
};

/// What the symbols behind a head are, one more at a time.
class SymbolTally
{
public:
    SymbolTally(HuffmanKey key, bool progressive) : m_key(key), m_progressive(progressive) {}
    void add(quint8 symbol)
    {
        const bool good = isLegalSymbol(tableClass(m_key), symbol, m_progressive) && !m_seen.at(symbol);
        m_seen.at(symbol) = true;
        if (!good) ++bad;
    }
    int bad = 0; ///< illegal ones, and those that were there before

private:
    HuffmanKey m_key;
    bool m_progressive;
    std::array<bool, 256> m_seen{};
};

/// Kraft sums that leave one code, by the longest length.
constexpr quint32 goalOf(int longest)
{
    return 65536 - (1u << (16 - longest));
}

int longestOf(const Counts &counts)
{
    int longest = 16;
    while (longest > 0 && counts[size_t(longest) - 1] == 0) --longest;
    return longest;
}

/// The counts as they are, or with one of them changed.
std::vector<CountsReading> singleReadings(const Counts &counts, int symbols)
{
    std::vector<CountsReading> readings;
    if (symbolCount(counts) == symbols && leavesOneCode(counts)) readings.push_back({counts, 0});
    for (const Counts &mended : mendedCounts(counts, symbols)) {
        double cost = 0;
        for (size_t i = 0; i < counts.size(); ++i) cost += hitCost(counts[i], mended[i]);
        readings.push_back({mended, cost});
    }
    return readings;
}

/// The counts with two of them changed: both sums together leave at most one pair of values for each pair of places.
std::vector<CountsReading> doubleReadings(const Counts &counts, int symbols)
{
    std::vector<CountsReading> readings;
    const auto sum = symbolCount(counts);
    const auto kraft = qint64(kraftSum(counts));
    for (size_t i = 0; i < 16; ++i) {
        for (size_t j = i + 1; j < 16; ++j) {
            const int both = symbols - (sum - counts[i] - counts[j]);
            if (both < 0 || both > 510) continue;
            const qint64 weightI = 1LL << (15 - i);
            const qint64 weightJ = 1LL << (15 - j);
            const qint64 rest = kraft - counts[i] * weightI - counts[j] * weightJ;
            for (int longest = 1; longest <= 16; ++longest) {
                const qint64 wanted = qint64(goalOf(longest)) - rest - both * weightJ;
                if (wanted < 0 || wanted % (weightI - weightJ)) continue;
                const qint64 first = wanted / (weightI - weightJ);
                if (first > std::min(both, 255) || both - first > 255) continue;
                if (first == counts[i] || both - first == counts[j]) continue;
                Counts changed = counts;
                changed[i] = quint8(first);
                changed[j] = quint8(both - first);
                if (longestOf(changed) != longest || !leavesOneCode(changed)) continue;
                readings.push_back({changed, hitCost(counts[i], changed[i]) + hitCost(counts[j], changed[j])});
            }
        }
    }
    return readings;
}

/// Symbols that are smaller than the one before them of the same length.
int descents(const Counts &counts, ByteView symbols)
{
    int found = 0;
    size_t begin = 0;
    for (const quint8 count : counts) {
        const size_t end = std::min(symbols.size(), begin + count);
        for (size_t i = begin + 1; i < end; ++i) found += symbols[i] < symbols[i - 1];
        begin = end;
    }
    return found;
}

/// One way to read a stretch as a table.
struct Reading
{
    HuffmanKey key = 0;
    bool keyLost = false;
    double cost = 0;
    bool asFound = false;
    TableOption option;
};

class Cutter
{
public:
    Cutter(ByteView body, bool progressive, const KnownTables &known)
        : m_body(body), m_progressive(progressive), m_known(known), m_cost(body.size() + 1, kNever),
          m_next(body.size() + 1, 0)
    {
    }

    TableCut run();

private:
    std::vector<Reading> readings(size_t begin, size_t end, bool thorough) const;
    void addOwn(size_t begin, size_t end, HuffmanKey tableClass, int bad, bool thorough,
                std::vector<Reading> &readings) const;
    void addFilled(const Reading &reading, std::vector<Reading> &readings) const;
    void addKnown(size_t begin, size_t end, std::vector<Reading> &readings) const;
    void findEnds(size_t begin);
    void offer(size_t begin, size_t end, double cost);
    double keyCost(size_t at, HuffmanKey tableClass) const;
    Counts countsAt(size_t at) const
    {
        Counts counts{};
        std::copy_n(m_body.begin() + qptrdiff(at) + 1, counts.size(), counts.begin());
        return counts;
    }
    bool thorough(size_t begin, size_t end) const
    {
        return (begin == 0 && end == m_body.size()) || (m_twoHits && isHuffmanKey(m_body[begin]));
    }
    void findWay();

    ByteView m_body;
    bool m_progressive;
    const KnownTables &m_known;
    bool m_twoHits = false;     // two counts of a table may be wrong
    std::vector<double> m_cost; // of the way from a place to the end
    std::vector<size_t> m_next; // end of the table there
};

/// A hit seldom makes another key that can be.
double Cutter::keyCost(size_t at, HuffmanKey key) const
{
    const quint8 found = m_body[at];
    if (!isHuffmanKey(found)) return kHit;
    if (tableClass(found) != tableClass(key)) return 2 * kHit;
    return (found & 15) > 1 && !m_progressive ? 0.1 : 0;
}

/// The sizes of levels that occur in a picture leave no gap: what is missing between those that stand has stood in the
/// places that are hit, and beyond them the next ones below or above.
std::vector<std::vector<quint8>> missingSizes(const std::array<bool, 12> &seen, size_t places)
{
    const auto first = size_t(std::find(seen.begin(), seen.end(), true) - seen.begin());
    const auto end = size_t(seen.rend() - std::find(seen.rbegin(), seen.rend(), true));
    std::vector<std::vector<quint8>> sets;
    std::vector<quint8> between;
    for (size_t size = first; size < end; ++size)
        if (!seen.at(size)) between.push_back(quint8(size));
    if (first >= end || between.size() > places) return sets;
    const size_t beyond = places - between.size();
    for (size_t below = std::min(beyond, first) + 1; below-- > 0;) {
        const size_t above = beyond - below;
        if (end + above > seen.size()) continue;
        std::vector<quint8> set;
        for (size_t i = below; i > 0; --i) set.push_back(quint8(first - i));
        set.insert(set.end(), between.begin(), between.end());
        for (size_t i = 0; i < above; ++i) set.push_back(quint8(end + i));
        sets.push_back(std::move(set));
    }
    return sets;
}

/// Adds the readings of a DC table whose places that are hit are filled with the sizes that are missing.
void Cutter::addFilled(const Reading &reading, std::vector<Reading> &readings) const
{
    constexpr size_t kMostHits = 3;
    constexpr size_t kMostFilled = 3;
    std::array<bool, 12> seen{};
    std::vector<size_t> places;
    const std::vector<quint8> &symbols = reading.option.table.symbols;
    for (size_t i = 0; i < symbols.size(); ++i) {
        if (symbols[i] >= seen.size() || seen.at(symbols[i]))
            places.push_back(i);
        else
            seen.at(symbols[i]) = true;
    }
    if (places.size() > kMostHits) return;
    std::vector<Reading> all;
    for (std::vector<quint8> &missing : missingSizes(seen, places.size())) {
        do {
            Reading filled = reading;
            filled.option.origin = TableOrigin::SymbolsSearched;
            std::vector<quint8> &values = filled.option.table.symbols;
            for (size_t i = 0; i < places.size(); ++i) values[places[i]] = missing[i];
            filled.cost += kDescent * descents(filled.option.table.counts, {values.data(), values.size()}) - kFilled;
            all.push_back(std::move(filled));
        } while (std::next_permutation(missing.begin(), missing.end()));
    }
    std::stable_sort(all.begin(), all.end(), [](const Reading &a, const Reading &b) { return a.cost < b.cost; });
    readings.insert(readings.end(), all.begin(), all.begin() + qptrdiff(std::min(kMostFilled, all.size())));
}

void Cutter::addOwn(size_t begin, size_t end, HuffmanKey key, int bad, bool thorough,
                    std::vector<Reading> &readings) const
{
    const ByteView symbols = slice(m_body, begin + kHead, end);
    const int n = int(symbols.size());
    // An AC table has seldom so few symbols.
    double base = keyCost(begin, key) + bad * kHit;
    if (tableClass(key) == 1 && n <= 12) base += kHit / 2;
    if (base > kMostForTable || (tableClass(key) == 0 && n > 12) || bad > 1 + n / 2) return;
    const Counts counts = countsAt(begin);
    std::vector<CountsReading> choices = singleReadings(counts, n);
    if (thorough && (choices.empty() || choices.front().cost > 0)) {
        const std::vector<CountsReading> more = doubleReadings(counts, n);
        choices.insert(choices.end(), more.begin(), more.end());
    }
    for (const CountsReading &choice : choices) {
        // Each spoilt symbol may have put two others out of order.
        const int unsorted = std::max(0, descents(choice.counts, symbols) - 2 * bad);
        const double cost = base + choice.cost + kDescent * std::min(unsorted, 6);
        if (cost > kMostForTable) continue;
        Reading reading;
        reading.key = key;
        reading.keyLost = keyCost(begin, key) >= kHit;
        if (!reading.keyLost) reading.key = m_body[begin];
        reading.cost = cost;
        reading.asFound = choice.cost == 0 && bad == 0;
        reading.option = {{choice.counts, {symbols.begin(), symbols.end()}},
                          choice.cost > 0 ? TableOrigin::CountsMended : TableOrigin::AsFound};
        if (tableClass(key) == 0 && bad > 0) addFilled(reading, readings);
        readings.push_back(std::move(reading));
    }
}

void Cutter::addKnown(size_t begin, size_t end, std::vector<Reading> &readings) const
{
    const ByteView bytes = slice(m_body, begin + 1, end);
    for (const KnownHuffman &each : m_known.huffman()) {
        if (each.table.symbols.size() + 16 != bytes.size()) continue;
        const size_t most = bytes.size() * 2 / 5;
        size_t different = 0;
        for (size_t i = 0; i < bytes.size() && different <= most; ++i)
            different += bytes[i] != (i < 16 ? each.table.counts[i] : each.table.symbols[i - 16]);
        if (different > most) continue;
        Reading reading;
        reading.key = each.key & 0x10;
        reading.keyLost = keyCost(begin, reading.key) >= kHit;
        if (!reading.keyLost) reading.key = m_body[begin];
        // That chance has made nearly a known table is the less likely the longer it is.
        reading.cost = keyCost(begin, reading.key) + double(different) * (bytes.size() > 100 ? 0.15 : 0.9);
        reading.asFound = different == 0;
        reading.option = {each.table, different ? TableOrigin::Known : TableOrigin::AsFound};
        if (reading.cost <= kMostForTable) readings.push_back(std::move(reading));
    }
}

std::vector<Reading> Cutter::readings(size_t begin, size_t end, bool thorough) const
{
    std::vector<Reading> all;
    for (const HuffmanKey key : {HuffmanKey(0x00), HuffmanKey(0x10)}) {
        SymbolTally tally(key, m_progressive);
        for (const quint8 symbol : slice(m_body, begin + kHead, end)) tally.add(symbol);
        addOwn(begin, end, key, tally.bad, thorough, all);
    }
    addKnown(begin, end, all);
    std::stable_sort(all.begin(), all.end(), [](const Reading &a, const Reading &b) { return a.cost < b.cost; });
    return all;
}

void Cutter::offer(size_t begin, size_t end, double cost)
{
    if (cost + m_cost[end] >= m_cost[begin]) return;
    m_cost[begin] = cost + m_cost[end];
    m_next[begin] = end;
}

/// The best table that begins at `begin` and leaves a rest that can be cut.
void Cutter::findEnds(size_t begin)
{
    const size_t symbols = begin + kHead;
    std::array<SymbolTally, 2> tallies = {SymbolTally(0x00, m_progressive), SymbolTally(0x10, m_progressive)};
    const size_t last = std::min(m_body.size(), symbols + kMostSymbols);
    for (size_t end = symbols + 1; end <= last; ++end) {
        for (SymbolTally &tally : tallies) tally.add(m_body[end - 1]);
        if (m_cost[end] == kNever) continue;
        std::vector<Reading> own;
        addOwn(begin, end, 0x00, tallies[0].bad, thorough(begin, end), own);
        addOwn(begin, end, 0x10, tallies[1].bad, thorough(begin, end), own);
        addKnown(begin, end, own);
        for (const Reading &reading : own) offer(begin, end, reading.cost);
    }
}

void Cutter::findWay()
{
    m_cost[m_body.size()] = 0;
    for (size_t begin = m_body.size() - kHead; begin-- > 0;) {
        findEnds(begin);
        // The head of a segment whose marker is hit, and that seems to be a part of the one before it.
        const size_t end = begin + 2 + wordAt(m_body, begin + 2);
        if (end > begin + kSegmentHead + kHead && end <= m_body.size() && m_cost[end] < kNever)
            offer(begin, begin + kSegmentHead, kHeadHit);
    }
}

TableCut Cutter::run()
{
    TableCut cut;
    if (m_body.size() <= kHead || m_body.size() > kLongestBody) return cut;
    constexpr double kDear = 2.5;
    findWay();
    if (m_cost[0] > kDear) {
        m_twoHits = true;
        findWay();
    }
    if (m_cost[0] > kMostForBody) return cut;
    cut.cost = m_cost[0];
    for (size_t begin = 0; begin < m_body.size(); begin = m_next[begin]) {
        if (m_next[begin] == begin + kSegmentHead) continue;
        const std::vector<Reading> all = readings(begin, m_next[begin], true);
        const Reading &best = all.front();
        CutTable table{begin, m_next[begin], best.key, best.keyLost, best.asFound, {}, {}};
        for (const Reading &each : all) {
            const bool ofClass = tableClass(each.key) == tableClass(best.key);
            std::vector<TableOption> &options = ofClass ? table.options : table.others;
            if (options.size() >= kMostOptions || (ofClass && best.asFound && each.cost > best.cost + 3)) continue;
            options.push_back(each.option);
        }
        cut.tables.push_back(std::move(table));
    }
    return cut;
}

} // namespace

TableCut cutTables(ByteView body, bool progressive, const KnownTables &known)
{
    return Cutter(body, progressive, known).run();
}

} // namespace salvage
