#include "salvage/EighthBit.h"

#include "salvage/Salvage.h"
#include "salvage/entropy/PictureReader.h"
#include "salvage/picture/Mending.h"
#include "salvage/picture/Picture.h"
#include "salvage/structure/Structure.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

namespace salvage {

namespace {

constexpr quint8 kUpper = 0x80;
constexpr quint8 kPrefix = 0x7F; // what is left of FF
constexpr size_t kHuffmanHead = 17;
constexpr size_t kQuantTable = 65;

struct Part
{
    quint8 marker = 0;
    size_t begin = 0;
    size_t end = 0;
    size_t body() const { return begin + 4; }
};

/// Follows the lengths of the header from SOI to the scan, each of them with its upper bits there or lost.
class Walk
{
public:
    Walk(ByteView file, size_t lostTo) : m_file(file), m_lostTo(lostTo) {}

    /// True if a way to the data was found; `parts` has it, SOS last.
    bool run() { return from(2); }
    std::vector<Part> parts;

private:
    bool from(size_t at);
    bool isMarkerAt(size_t at) const
    {
        if (at + 4 > m_file.size()) return false;
        const bool prefixed = m_file[at] == 0xFF || (at < m_lostTo && m_file[at] == kPrefix);
        const quint8 marker = markerAt(at);
        return prefixed && isHeaderMarker(marker) && marker != 0xD8;
    }
    quint8 markerAt(size_t at) const { return at + 1 < m_lostTo ? m_file[at + 1] | kUpper : m_file[at + 1]; }
    std::vector<size_t> lengthsAt(size_t at) const;

    ByteView m_file;
    size_t m_lostTo;
    std::set<size_t> m_seen; // where no way leads on
};

std::vector<size_t> Walk::lengthsAt(size_t at) const
{
    std::vector<size_t> lengths;
    const size_t length = wordAt(m_file, at);
    for (const size_t upper : {0U, 0x8000U}) {
        if (upper && at >= m_lostTo) break;
        for (const size_t lower : {0U, 0x80U}) {
            if (lower && at + 1 >= m_lostTo) break;
            lengths.push_back(length | upper | lower);
        }
    }
    return lengths;
}

bool Walk::from(size_t at)
{
    constexpr size_t kMostParts = 400;
    constexpr size_t kSmallBytes = 64; // that entropy data may happen to begin with
    if (parts.size() >= kMostParts || !isMarkerAt(at) || !m_seen.insert(at).second) return false;
    const quint8 marker = markerAt(at);
    for (const size_t length : lengthsAt(at + 2)) {
        const size_t end = at + 2 + length;
        if (length < 2 || end > m_file.size()) continue;
        parts.push_back({marker, at, end});
        const bool isScan =
            marker == 0xDA && end + kSmallBytes >= m_lostTo && sosScore(slice(m_file, at + 4, end)) == 1;
        if (isScan || (marker != 0xDA && from(end))) return true;
        parts.pop_back();
    }
    return false;
}

bool sameBits(quint8 lost, quint8 whole)
{
    return lost == (whole & 0x7F);
}

/// The symbols of one length with the upper bits put back from place `split` on; 70 was always F0, sixteen zeros.
std::vector<quint8> splitAt(const quint8 *symbols, size_t count, size_t split)
{
    constexpr quint8 kZeroRun = 0xF0;
    std::vector<quint8> whole(symbols, symbols + count);
    for (size_t i = 0; i < count; ++i)
        if (whole[i] && (i >= split || whole[i] == (kZeroRun & 0x7F))) whole[i] |= kUpper;
    return whole;
}

bool ascends(const quint8 *symbols, size_t count)
{
    return std::adjacent_find(symbols, symbols + count, std::greater_equal<>()) == symbols + count;
}

/// Puts the upper bits back into the symbols of one length so that these ascend without one that `seen` has: then the bits
/// are there from some place on. False where no place does that.
bool restoreSorted(quint8 *symbols, size_t count, const std::array<bool, 256> &seen)
{
    for (size_t split = count + 1; split-- > 0;) {
        const std::vector<quint8> whole = splitAt(symbols, count, split);
        const bool fresh = std::none_of(whole.begin(), whole.end(), [&](quint8 symbol) { return seen.at(symbol); });
        if (!fresh || !ascends(whole.data(), count)) continue;
        std::copy(whole.begin(), whole.end(), symbols);
        return true;
    }
    return false;
}

/// Of two symbols that have become alike the first, which has the shorter code, is the shorter run, for a run of eight or
/// more is rarer than the same size behind a run of eight fewer. One that stands alone is that too.
void restoreByUse(quint8 *symbols, size_t count)
{
    constexpr quint8 kZeroRun = 0xF0;
    std::array<bool, 256> seen{};
    for (size_t i = 0; i < count; ++i) {
        if (seen.at(symbols[i]) || symbols[i] == (kZeroRun & 0x7F)) symbols[i] |= kUpper;
        seen.at(symbols[i]) = true;
    }
}

/// Puts the upper bits back into the symbols of one AC table: by their use, and, where the encoder has sorted the symbols of
/// each length but for a few, by their order.
void restoreSymbols(quint8 *symbols, const Counts &counts)
{
    std::vector<quint8> byUse(symbols, symbols + symbolCount(counts));
    restoreByUse(byUse.data(), byUse.size());
    int groups = 0;
    int unsorted = 0;
    const quint8 *group = byUse.data();
    for (const quint8 count : counts) {
        groups += count > 1;
        unsorted += !ascends(group, count);
        group += count;
    }
    std::array<bool, 256> seen{};
    const bool sorts = 4 * unsorted <= groups;
    size_t at = 0;
    for (const quint8 count : counts) {
        quint8 *const own = symbols + at;
        const quint8 *const used = byUse.data() + at;
        if (!sorts || ascends(used, count) || !restoreSorted(own, count, seen)) std::copy_n(used, count, own);
        for (size_t i = 0; i < count; ++i) seen.at(own[i]) = true;
        at += count;
    }
}

class Restorer
{
public:
    Restorer(ByteView file, size_t lostTo, std::vector<Part> parts, const KnownTables &known)
        : m_bytes(toBytes(file)), m_lostTo(lostTo), m_parts(std::move(parts)), m_known(known)
    {
    }

    QByteArray run(Budget &budget);

private:
    quint8 *at(size_t place) { return reinterpret_cast<quint8 *>(m_bytes.data()) + place; }
    void restoreHead(const Part &part);
    void restoreHuffman(const Part &part);
    void restoreQuant(const Part &part);
    bool takeKnownQuant(quint8 *values);
    struct Looks
    {
        double far = -1;  ///< share of the picture, 2 for all of it without an error
        double steps = 0; ///< across the borders of blocks
        bool betterThan(const Looks &other) const { return far != other.far ? far > other.far : steps < other.steps; }
    };
    Looks looks(Budget &budget) const;
    void chooseOpen(Budget &budget);
    void dropProfiles();
    /// Lengths below 32,768 and values that may have been larger by 128.
    void noteOpen(size_t place)
    {
        if (place < m_lostTo && *at(place) < kUpper) m_open.push_back(place);
    }

    QByteArray m_bytes;
    size_t m_lostTo;
    std::vector<Part> m_parts;
    const KnownTables &m_known;
    std::vector<size_t> m_open; // bytes that only the data can tell
};

void Restorer::restoreHead(const Part &part)
{
    *at(part.begin) = 0xFF;
    *at(part.begin + 1) = part.marker;
    const size_t length = part.end - part.begin - 2;
    *at(part.begin + 2) = quint8(length >> 8);
    *at(part.begin + 3) = quint8(length & 0xFF);
}

void Restorer::restoreHuffman(const Part &part)
{
    for (size_t table = part.body(); table + kHuffmanHead < part.end;) {
        Counts counts{};
        std::copy_n(at(table + 1), counts.size(), counts.begin());
        const auto count = size_t(symbolCount(counts));
        quint8 *symbols = at(table + kHuffmanHead);
        if (table + kHuffmanHead + count > part.end) return;
        const auto &all = m_known.huffman();
        const auto found = std::find_if(all.begin(), all.end(), [&](const KnownHuffman &each) {
            const auto &whole = each.table.symbols;
            return each.table.counts == counts && tableClass(each.key) == tableClass(*at(table))
                && whole.size() == count && std::equal(whole.begin(), whole.end(), symbols, [](quint8 is, quint8 lost) {
                       return lost == is || sameBits(lost, is);
                   });
        });
        if (found != all.end())
            std::copy(found->table.symbols.begin(), found->table.symbols.end(), symbols);
        else if (tableClass(*at(table)) == 1)
            restoreSymbols(symbols, counts);
        table += kHuffmanHead + count;
    }
}

bool Restorer::takeKnownQuant(quint8 *values)
{
    for (const QuantTable &table : m_known.quantTables()) {
        const bool fits = std::equal(table.begin(), table.end(), values, [](quint16 whole, quint8 lost) {
            return whole == lost || (whole < 256 && sameBits(lost, quint8(whole)));
        });
        if (!fits) continue;
        for (size_t i = 0; i < table.size(); ++i) values[i] = quint8(table.at(i));
        return true;
    }
    return false;
}

void Restorer::restoreQuant(const Part &part)
{
    constexpr size_t kBefore = 4;
    for (size_t table = part.body(); table + kQuantTable <= part.end; table += kQuantTable) {
        if (*at(table) >> 4) return; // values of 16 bits are rare, and seldom large
        quint8 *values = at(table + 1);
        if (takeKnownQuant(values)) continue;
        for (size_t i = 0; i < 64; ++i) {
            if (values[i] >= kUpper || table + 1 + i >= m_lostTo) continue;
            double level = 0;
            const size_t from = i > kBefore ? i - kBefore : 0;
            for (size_t k = from; k < i; ++k) level += std::log(std::max<double>(1, values[k])) / double(i - from);
            const double lower = std::log(std::max<double>(1, values[i]));
            const double upper = std::log(double(values[i]) + kUpper);
            // A jump by more than a factor of two is what the loss makes, not an encoder.
            const bool jumps = i > 0 && level - lower > 0.7 && std::abs(upper - level) < level - lower;
            if (values[i] == 0 || jumps) values[i] |= kUpper;
        }
    }
}

/// What speaks for the bytes as they are now: how far they read, and where that is to the end, how well blocks fit.
Restorer::Looks Restorer::looks(Budget &budget) const
{
    const ByteView file = view(m_bytes);
    const Reading reading = readAsItStands(file, m_known, budget);
    if (!reading.readable) return {};
    if (reading.errors || reading.share < 1) return {reading.share / (1 + reading.errors), 0};
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(file, dataAt);
    if (!header || !header->fitsMemory()) return {2, 0};
    const Coefficients picture = pictureAsShown(*header, slice(file, dataAt, file.size()), budget);
    return {2, borderSteps(picture, *header, picture.mcusHigh).sum()};
}

/// The bytes that nothing else tells: each choice is read, and the one that reads furthest is taken. Width and height that
/// are mixed up may read to the end too; the blocks fit badly then.
void Restorer::chooseOpen(Budget &budget)
{
    constexpr size_t kMostOpen = 4;
    if (m_open.size() > kMostOpen) m_open.resize(kMostOpen);
    const QByteArray start = m_bytes;
    QByteArray best = m_bytes;
    Looks most;
    for (quint32 choice = 0; choice < (1U << m_open.size()) && !budget.spent(); ++choice) {
        m_bytes = start;
        for (size_t i = 0; i < m_open.size(); ++i)
            if (choice & (1U << i)) *at(m_open[i]) |= kUpper;
        const Looks found = looks(budget);
        if (!found.betterThan(most)) continue;
        most = found;
        best = m_bytes;
    }
    m_bytes = best;
}

void Restorer::dropProfiles()
{
    for (auto part = m_parts.rbegin(); part != m_parts.rend(); ++part) {
        if (part->marker != 0xE2 || part->begin >= m_lostTo) continue;
        if (startsWith(slice(view(m_bytes), part->body(), part->end), "ICC_PROFILE"))
            m_bytes.remove(int(part->begin), int(part->end - part->begin));
    }
}

QByteArray Restorer::run(Budget &budget)
{
    *at(0) = 0xFF;
    *at(1) = 0xD8;
    for (const Part &part : m_parts) {
        if (part.begin >= m_lostTo) break;
        restoreHead(part);
        if (part.marker == 0xC4) restoreHuffman(part);
        if (part.marker == 0xDB) restoreQuant(part);
        // Height and width, or the interval; their upper bytes are seldom so large.
        if (isFrame(part.marker) && part.end >= part.body() + 6)
            for (const size_t place : {part.body() + 2, part.body() + 4}) noteOpen(place);
        if (part.marker == 0xDD) noteOpen(part.body() + 1);
    }
    if (!m_open.empty()) chooseOpen(budget);
    dropProfiles();
    return std::move(m_bytes);
}

} // namespace

std::optional<QByteArray> restoreEighthBits(ByteView file, const KnownTables &known, Budget &budget)
{
    constexpr size_t kShortest = 16; // bytes without an upper bit, which no header begins with
    const auto whole = std::find_if(file.begin(), file.end(), [](quint8 byte) { return byte >= kUpper; });
    const auto lostTo = size_t(whole - file.begin());
    if (lostTo < kShortest || file[0] != kPrefix || file[1] != (0xD8 & 0x7F)) return std::nullopt;
    Walk walk(file, lostTo);
    if (!walk.run()) return std::nullopt;
    const size_t headerEnd = walk.parts.back().end;
    return Restorer(file, std::min(lostTo, headerEnd), std::move(walk.parts), known).run(budget);
}

} // namespace salvage
