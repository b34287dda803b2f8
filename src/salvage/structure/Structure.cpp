#include "salvage/structure/Structure.h"

#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <bit>
#include <bitset>
#include <cmath>
#include <numeric>

namespace salvage {

namespace {

constexpr quint32 kCodeSpace = 65536;
constexpr size_t kTableHead = 17; // Tc/Th and 16 counts

int longestCode(const Counts &counts)
{
    for (int length = 16; length > 0; --length)
        if (counts[size_t(length) - 1]) return length;
    return 0;
}

/// Share of equal bytes of the symbols behind a table's head with the best known table of the same length.
double agreementWithKnown(ByteView body, const KnownTables &known)
{
    double best = 0;
    for (const KnownHuffman &each : known.huffman()) {
        const auto &symbols = each.table.symbols;
        if (kTableHead + symbols.size() != body.size()) continue;
        const auto same = std::inner_product(symbols.begin(), symbols.end(), body.begin() + kTableHead, 0,
                                             std::plus<>(), std::equal_to<>());
        best = std::max(best, double(same) / double(symbols.size()));
    }
    return best;
}

Counts countsAt(ByteView body, size_t at)
{
    Counts counts{};
    std::copy_n(body.begin() + qptrdiff(at), counts.size(), counts.begin());
    return counts;
}

bool hasTwice(ByteView bytes)
{
    std::bitset<256> seen;
    for (const quint8 byte : bytes) seen.set(byte);
    return seen.count() < bytes.size();
}

/// End of the table at `at`, 0 if there can't be one.
size_t tableEnd(ByteView body, size_t at)
{
    if (at + kTableHead > body.size() || !isHuffmanKey(body[at])) return 0;
    const Counts counts = countsAt(body, at + 1);
    const auto symbols = size_t(symbolCount(counts));
    const size_t end = at + kTableHead + symbols;
    return symbols == 0 || symbols > 256 || end > body.size() || kraftSum(counts) > kCodeSpace ? 0 : end;
}

template<size_t N>
double shareOf(const std::array<bool, N> &tests)
{
    return double(std::count(tests.begin(), tests.end(), true)) / double(N);
}

/// True where the value at `at` is more than `apart` off the middle of the ten (fewer at the ends) around it.
bool standsOut(const std::array<double, 64> &values, int at, double apart)
{
    std::array<double, 10> around{};
    size_t n = 0;
    for (int i = std::max(0, at - 5); i < std::min(64, at + 6); ++i)
        if (i != at) around.at(n++) = values[size_t(i)];
    const auto end = around.begin() + qptrdiff(n);
    const double own = values[size_t(at)];
    const auto [least, most] = std::minmax_element(around.begin(), end);
    if (own - *least <= apart && *most - own <= apart) return false; // the middle lies between them
    std::sort(around.begin(), end);
    const double middle = n % 2 ? around.at(n / 2) : (around.at(n / 2 - 1) + around.at(n / 2)) / 2;
    return std::abs(own - middle) > apart;
}

double logOf(quint16 value)
{
    static const auto small = [] {
        std::array<double, 256> logs{};
        for (size_t i = 0; i < logs.size(); ++i) logs.at(i) = std::log2(std::max<double>(1, double(i)) + 2);
        return logs;
    }();
    return value < small.size() ? small.at(value) : std::log2(value + 2.0);
}

/// First values far above those behind them: encoders make them the smallest, and several that were hit together don't stand
/// out from one another.
quint64 highBeginning(const std::array<double, 64> &logs, double apart)
{
    constexpr size_t kFirst = 12;
    std::array<double, 16> behind{};
    std::copy_n(logs.begin() + kFirst, behind.size(), behind.begin());
    std::nth_element(behind.begin(), behind.begin() + behind.size() / 2, behind.end());
    quint64 high = 0;
    for (size_t i = 0; i < kFirst; ++i)
        if (logs[i] > behind[behind.size() / 2] + apart) high |= 1ULL << i;
    return high;
}

} // namespace

quint32 kraftSum(const Counts &counts)
{
    quint32 sum = 0;
    for (size_t i = 0; i < counts.size(); ++i) sum += quint32(counts[i]) << (15 - i);
    return sum;
}

bool leavesOneCode(const Counts &counts)
{
    const int longest = longestCode(counts);
    return longest > 0 && kraftSum(counts) == kCodeSpace - (1u << (16 - longest));
}

int symbolCount(const Counts &counts)
{
    return std::accumulate(counts.begin(), counts.end(), 0);
}

bool isLegalSymbol(quint8 tableClass, quint8 symbol, bool progressive)
{
    if (tableClass == 0) return symbol <= 11;
    const int size = symbol & 15;
    if (size > 10) return false;
    return size > 0 || progressive || symbol == 0 || symbol == 0xF0;
}

TableState stateOf(HuffmanKey key, const HuffmanTable &table, bool progressive)
{
    const quint32 sum = kraftSum(table.counts);
    const auto &symbols = table.symbols;
    if (sum > kCodeSpace || symbols.empty() || symbolCount(table.counts) != int(symbols.size()))
        return TableState::DoubtfulCounts;
    const bool full = leavesOneCode(table.counts);
    if (!full && sum == kCodeSpace) return symbols.size() > 2 ? TableState::DoubtfulCounts : TableState::Sound;
    if (hasTwice(symbols)) return TableState::DoubtfulSymbols;
    for (const quint8 symbol : symbols)
        if (!isLegalSymbol(tableClass(key), symbol, progressive)) return TableState::DoubtfulSymbols;
    // No encoder leaves so much of the code space unused.
    return !full && sum < 40000 ? TableState::DoubtfulCounts : TableState::Sound;
}

PlacedTable tableAt(ByteView body, size_t at)
{
    PlacedTable placed;
    if (at + kTableHead > body.size() || !isHuffmanKey(body[at])) return placed;
    placed.begin = at;
    placed.key = body[at];
    placed.table.counts = countsAt(body, at + 1);
    placed.end = tableEnd(body, at);
    const ByteView text = slice(body, at + kTableHead, placed.end);
    placed.table.symbols.assign(text.begin(), text.end());
    return placed;
}

std::vector<PlacedTable> soundTables(ByteView body)
{
    std::vector<PlacedTable> tables;
    for (size_t at = 0; at + kTableHead < body.size();) {
        if (!isHuffmanKey(body[at]) || !leavesOneCode(countsAt(body, at + 1)) || !tableEnd(body, at)) {
            ++at;
            continue;
        }
        tables.push_back(tableAt(body, at));
        at = tables.back().end;
    }
    return tables;
}

bool isAllTables(ByteView body)
{
    size_t at = 0;
    while (const size_t end = tableEnd(body, at)) at = end;
    return at > 0 && at == body.size();
}

std::vector<Counts> mendedCounts(const Counts &counts, int symbols)
{
    std::vector<Counts> mended;
    const int sum = symbolCount(counts);
    for (size_t i = 0; i < counts.size(); ++i) {
        const int value = symbols - (sum - counts[i]);
        if (value < 0 || value > 255 || value == counts[i]) continue;
        Counts changed = counts;
        changed[i] = quint8(value);
        if (leavesOneCode(changed)) mended.push_back(changed);
    }
    return mended;
}

quint64 roughValues(const QuantTable &table)
{
    constexpr double kApart = 1.7; // a factor of 3.2
    constexpr double kFarApart = 2;
    constexpr double kMeanStep = 0.9;
    constexpr int kStretch = 6;
    std::array<double, 64> logs{};
    for (size_t i = 0; i < 64; ++i) logs[i] = logOf(table[i]);
    std::array<double, 63> steps{};
    for (size_t i = 0; i < 63; ++i) steps[i] = std::abs(logs[i + 1] - logs[i]);

    quint64 rough = 0;
    for (int i = 0; i < 64; ++i)
        if (table[size_t(i)] == 0 || standsOut(logs, i, kApart)) rough |= 1ULL << i;
    rough |= highBeginning(logs, kFarApart);
    for (int i = 0; i + kStretch < 64; ++i) {
        const double sum = std::accumulate(steps.begin() + i, steps.begin() + i + kStretch, 0.0);
        if (sum <= kMeanStep * kStretch) continue;
        for (int k = i + 1; k <= i + kStretch; ++k)
            if (steps[size_t(k) - 1] > 1 || (k < 63 && steps[size_t(k)] > 1)) rough |= 1ULL << k;
    }
    return rough;
}

double sosScore(ByteView body)
{
    if (body.size() < 6) return 0;
    const size_t n = (body.size() - 4) / 2;
    if (body.size() != 4 + 2 * n || n < 1 || n > 4) return 0;
    bool differ = true;
    bool smallIds = true;
    bool tables = true;
    for (size_t i = 0; i < n; ++i) {
        const quint8 id = body[1 + 2 * i];
        const quint8 table = body[2 + 2 * i];
        for (size_t k = 0; k < i; ++k) differ = differ && body[1 + 2 * k] != id;
        smallIds = smallIds && id < 5;
        tables = tables && (table >> 4) < 4 && (table & 15) < 4;
    }
    const ByteView last = body.last(3); // Ss, Se, Ah and Al
    const bool letters = n == 3 && body[1] == 'R' && body[3] == 'G' && body[5] == 'B';
    const std::array<bool, 8> tests = {body[0] == n,
                                       differ,
                                       smallIds || letters,
                                       tables,
                                       last[0] == 0 || (n == 1 && last[0] < 64),
                                       last[1] == 63 || last[1] == 0 || (n == 1 && last[1] < 64),
                                       last[2] < 0x0F || (last[2] >> 4) - (last[2] & 15) == 1,
                                       last[0] <= last[1]};
    return shareOf(tests);
}

double sofScore(ByteView body)
{
    if (body.size() < 9) return 0;
    const size_t n = (body.size() - 6) / 3;
    if (body.size() != 6 + 3 * n || (n != 1 && n != 3 && n != 4)) return 0;
    double passed =
        double(body[0] == 8) + double(wordAt(body, 1) > 0) + double(wordAt(body, 3) > 0) + double(body[5] == n);
    for (size_t i = 0; i < n; ++i) {
        const quint8 id = body[6 + 3 * i];
        const quint8 sampling = body[7 + 3 * i];
        const bool usual = sampling == 0x11 || sampling == 0x21 || sampling == 0x12 || (i == 0 && sampling == 0x22);
        passed += double(id == i + 1 || id == i || id > 60) + double(usual) + double(body[8 + 3 * i] < 4);
    }
    return passed / double(4 + 3 * n);
}

double dqtScore(ByteView body)
{
    constexpr size_t kTable = 65;
    if (body.empty() || body.size() % kTable || body.size() > 4 * kTable) return 0;
    const size_t count = body.size() / kTable;
    const auto tables = double(count);
    double smooth = 0;
    double best = 0;
    double heads = 0;
    for (size_t at = 0; at < body.size(); at += kTable) {
        QuantTable table{};
        std::copy_n(body.begin() + qptrdiff(at) + 1, 64, table.begin());
        const double score = 1 - std::popcount(roughValues(table)) / 64.0;
        smooth += score;
        best = std::max(best, score);
        heads += double(body[at] < 4);
    }
    const auto isText = [](quint8 byte) { return byte >= 32 && byte < 127; };
    const double text = double(std::count_if(body.begin(), body.end(), isText)) / double(body.size());
    return (smooth / tables * 0.8 + heads / tables * 0.2) * (best > 0.9 || text < 0.5 ? 1 : 0.6);
}

double dhtScore(ByteView body, const KnownTables &known)
{
    if (body.size() < kTableHead + 1) return 0;
    if (isAllTables(body)) return 1;
    size_t cover = 0;
    for (const PlacedTable &each : soundTables(body)) cover += each.end - each.begin;
    if (cover) return 0.5 + 0.5 * double(cover) / double(body.size());
    // One table with a spoilt byte: the known ones and the sum of the counts tell.
    if (agreementWithKnown(body, known) > 0.5) return 0.7;
    const bool usualKey = (body[0] & 0xEE) == 0;
    const int symbols = int(body.size() - kTableHead);
    return usualKey && body.size() >= 20 && symbols <= 256 && !mendedCounts(countsAt(body, 1), symbols).empty() ? 0.7
                                                                                                                : 0;
}

bool leadsOnWithoutFF(ByteView file, size_t at, size_t to)
{
    constexpr int kMostInARow = 12; // headers have no more segments
    to = std::min(to, file.size());
    for (int n = 0; n < kMostInARow && at + 3 < to; ++n) {
        const quint8 marker = file[at];
        const size_t end = at + 1 + wordAt(file, at + 1);
        if (!isHeaderMarker(marker) || marker == 0xD8 || end < at + 3 || end > to) return false;
        const ByteView body = slice(file, at + 3, end);
        if (marker == 0xDA) return sosScore(body) > 0.8;
        const bool sound = (isFrame(marker) && sofScore(body) == 1) || (marker == 0xC4 && isAllTables(body));
        if (sound || end == to || (file[end] == 0xFF && end + 1 < to && isHeaderMarker(file[end + 1]))) return true;
        at = end;
    }
    return false;
}

bool isHeaderMarker(quint8 marker)
{
    return isFrame(marker) || marker == 0xC4 || marker == 0xD8 || marker == 0xDA || marker == 0xDB || marker == 0xDD
        || marker == 0xFE || isApp(marker);
}

} // namespace salvage
