#include "salvage/search/HuffmanDraft.h"

#include "salvage/tables/KnownTables.h"
#include "salvage/tables/TableCut.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <optional>

namespace salvage {

namespace {

/// Share of equal symbols of two tables of one length.
double agreement(const HuffmanTable &a, const HuffmanTable &b)
{
    const int same =
        std::inner_product(a.symbols.begin(), a.symbols.end(), b.symbols.begin(), 0, std::plus<>(), std::equal_to<>());
    return double(same) / double(a.symbols.size());
}

/// True for a table whose symbols a table of the class may have.
bool canBeOf(quint8 ofClass, const HuffmanTable &table)
{
    return std::all_of(table.symbols.begin(), table.symbols.end(),
                       [&](quint8 symbol) { return isLegalSymbol(ofClass, symbol, false); });
}

/// True where the body is nothing but tables without a doubt in them.
bool isSound(const DhtReading &reading, ByteView body)
{
    constexpr size_t kTableHead = 17;
    constexpr size_t kFilling = 2; // bytes that are left over at an end
    size_t covered = 0;
    bool full = true;
    for (const ReadTable &each : reading.tables) {
        if (each.state != TableState::Sound) return false;
        covered += kTableHead + each.table.symbols.size();
        full = full && leavesOneCode(each.table.counts);
    }
    // A table that begins later may be made of the end of one whose head is hit.
    const bool fromFront = !reading.tables.empty() && tableAt(body, 0).table == reading.tables.front().table;
    return fromFront && reading.gaps.empty() && covered + (full ? kFilling : 0) >= body.size();
}

/// A table that was read, and what else it may have been.
struct FoundTable
{
    HuffmanKey key = 0;
    TableState state = TableState::Sound;
    std::vector<TableOption> options; ///< at least one
    std::vector<TableOption> others;  ///< as a table of the other class
    const HuffmanTable &table() const { return options.front().table; }
};

class HuffmanDrafter
{
public:
    HuffmanDrafter(Draft &draft, const KnownTables &known) : m_draft(draft), m_known(known) {}

    void run(const std::vector<ByteView> &bodies)
    {
        for (const ByteView body : bodies) take(body);
        placeLost();
        if (m_draft.progressive)
            useFirstKey();
        else if (!m_found.empty())
            useUsualKeys();
        addOptions();
        addGaps();
        makeMissing();
        settle();
    }

private:
    std::vector<HuffmanKey> neededKeys() const;
    void take(ByteView body);
    bool takeCut(ByteView body);
    void enter(FoundTable table);
    std::optional<HuffmanKey> freeKey(quint8 ofClass, bool neededAlone) const;
    void placeLost();
    void useUsualKeys();
    void useFirstKey();
    void addOptions();
    void addGaps();
    std::vector<TableOption> optionsForMissing(HuffmanKey key, const std::vector<HuffmanKey> &needed) const;
    void makeMissing();
    void settle();

    Draft &m_draft;
    const KnownTables &m_known;
    std::map<HuffmanKey, FoundTable> m_found;
    std::vector<FoundTable> m_spare; // that another table of the same number has displaced
    std::vector<FoundTable> m_lost;  // whose number is spoilt
    std::vector<ByteView> m_gaps;
};

std::vector<HuffmanKey> HuffmanDrafter::neededKeys() const
{
    std::vector<HuffmanKey> keys;
    for (const ScanComponent &each : m_draft.header.scan) {
        const bool dc = !m_draft.progressive || m_draft.header.spectral[0] == 0;
        const bool ac = !m_draft.progressive || !dc;
        for (const auto &[needed, key] : {std::pair(dc, each.dcKey()), std::pair(ac, each.acKey())})
            if (needed && (key & 15) < 4 && std::find(keys.begin(), keys.end(), key) == keys.end()) keys.push_back(key);
    }
    return keys;
}

void HuffmanDrafter::enter(FoundTable table)
{
    const auto found = m_found.find(table.key);
    if (found == m_found.end()) {
        m_found.emplace(table.key, std::move(table));
        return;
    }
    const bool replaces = found->second.state >= table.state;
    if (found->second.table() != table.table()) m_spare.push_back(replaces ? found->second : table);
    if (replaces) found->second = std::move(table);
}

void HuffmanDrafter::take(ByteView body)
{
    const DhtReading reading = readDht(body, m_draft.progressive);
    if (!isSound(reading, body) && takeCut(body)) return;
    for (const ReadTable &each : reading.tables)
        enter({each.key, each.state, {{each.table, TableOrigin::AsFound}}, {}});
    m_gaps.insert(m_gaps.end(), reading.gaps.begin(), reading.gaps.end());
}

/// The body as nothing but tables, some of them hit. False where too many hits would be needed for that to be true.
bool HuffmanDrafter::takeCut(ByteView body)
{
    const TableCut cut = cutTables(body, m_draft.progressive, m_known);
    if (cut.tables.empty()) return false;
    for (const CutTable &each : cut.tables) {
        FoundTable table{each.key, TableState::Sound, each.options, each.others};
        if (!each.asFound) table.state = stateOf(each.key, table.table(), m_draft.progressive);
        if (each.keyLost)
            m_lost.push_back(std::move(table));
        else
            enter(std::move(table));
    }
    return true;
}

/// The first key of a class that the scan asks for in vain, or else, where more scans follow, the first that is free.
std::optional<HuffmanKey> HuffmanDrafter::freeKey(quint8 ofClass, bool neededAlone) const
{
    std::vector<HuffmanKey> wanted = neededKeys();
    if (m_draft.progressive && !neededAlone)
        for (quint8 number = 0; number < 4; ++number) wanted.push_back(quint8(ofClass << 4 | number));
    const auto free = std::find_if(wanted.begin(), wanted.end(),
                                   [&](HuffmanKey key) { return tableClass(key) == ofClass && !m_found.count(key); });
    return free == wanted.end() ? std::nullopt : std::optional(*free);
}

/// Gives keys to the tables that have lost theirs.
void HuffmanDrafter::placeLost()
{
    for (FoundTable &table : m_lost) {
        const quint8 own = tableClass(table.key);
        std::optional<HuffmanKey> key = freeKey(own, true);
        // What passes for the one class is the other's where only that lacks a table.
        if (!key && !table.others.empty() && freeKey(own ^ 1, true)) {
            key = freeKey(own ^ 1, true);
            std::swap(table.options, table.others);
            table.state = stateOf(*key, table.table(), m_draft.progressive);
        }
        if (!key) key = freeKey(own, false);
        if (!key) {
            m_spare.push_back(std::move(table));
            continue;
        }
        table.key = *key;
        m_found.emplace(table.key, std::move(table));
    }
}

/// Table numbers of the scan that no table has give way to the usual ones where these are there.
void HuffmanDrafter::useUsualKeys()
{
    const bool second = m_found.count(0x01) || m_found.count(0x11);
    for (size_t i = 0; i < m_draft.header.scan.size(); ++i) {
        ScanComponent &each = m_draft.header.scan[i];
        const ScanComponent usual{each.id, quint8(i && second ? 0x11 : 0x00)};
        const bool dcLost = !m_found.count(each.dcKey()) && m_found.count(usual.dcKey());
        const bool acLost = !m_found.count(each.acKey()) && m_found.count(usual.acKey());
        if (!dcLost && !acLost) continue;
        each = usual;
        m_draft.steps.insert(Step::FrameMended);
    }
}

/// A scan of levels takes the first table where the number that it gives has none.
void HuffmanDrafter::useFirstKey()
{
    if (m_draft.header.spectral[0] != 0 || !m_found.count(0x00)) return;
    for (ScanComponent &each : m_draft.header.scan)
        if (!m_found.count(each.dcKey())) each.tables = 0x00;
}

void HuffmanDrafter::addOptions()
{
    for (const auto &[key, found] : m_found) {
        std::vector<TableOption> &options = m_draft.options[key];
        options.insert(options.end(), found.options.begin(), found.options.end());
        if (m_known.isKnown(found.table())) continue;
        const bool many = found.table().symbols.size() > 100;
        const bool sound = found.state == TableState::Sound;
        std::vector<TableOption> like;
        for (const HuffmanTable &table : knownLike(key, found.table(), m_known))
            if (!sound || (many && agreement(table, found.table()) > 0.85)) like.push_back({table, TableOrigin::Known});
        // A large known table that agrees so widely is surely meant where the found one is spoilt.
        options.insert(many && !sound ? options.begin() : options.end(), like.begin(), like.end());
    }
    for (const FoundTable &spare : m_spare)
        if (spare.state == TableState::Sound)
            m_draft.options[spare.key].push_back({spare.table(), TableOrigin::AsFound});
}

void HuffmanDrafter::addGaps()
{
    const std::vector<HuffmanKey> needed = neededKeys();
    for (const ByteView gap : m_gaps) {
        for (KeyedOption &reading : readingsOf(gap, m_known)) {
            HuffmanKey key = reading.key;
            if (m_found.count(key)) {
                const auto missing = std::find_if(needed.begin(), needed.end(), [&](HuffmanKey each) {
                    return !m_found.count(each) && tableClass(each) == tableClass(key);
                });
                if (missing == needed.end()) continue;
                key = *missing;
            }
            m_draft.options[key].push_back(std::move(reading.option));
        }
    }
}

/// A table whose number is spoilt, the typical one, or the one that another component uses.
std::vector<TableOption> HuffmanDrafter::optionsForMissing(HuffmanKey key, const std::vector<HuffmanKey> &needed) const
{
    std::vector<TableOption> made;
    std::vector<TableOption> shared;
    for (const auto &[other, options] : m_draft.options) {
        if (tableClass(other) != tableClass(key)) continue;
        const bool unused = std::find(needed.begin(), needed.end(), other) == needed.end();
        (unused ? made : shared).push_back({options.front().table, TableOrigin::AsFound});
    }
    // A displaced table may have lost its class too: the symbols of DC pass for ones of AC.
    for (const FoundTable &spare : m_spare)
        if (canBeOf(tableClass(key), spare.table())) made.push_back({spare.table(), TableOrigin::AsFound});
    made.push_back({KnownTables::standard(key), TableOrigin::Known});
    if (!shared.empty()) made.push_back(shared.front());
    return made;
}

void HuffmanDrafter::makeMissing()
{
    const std::vector<HuffmanKey> needed = neededKeys();
    for (const HuffmanKey key : needed)
        if (!m_draft.options.count(key)) m_draft.options[key] = optionsForMissing(key, needed);
}

/// Each option once, the first few, and the first as the choice.
void HuffmanDrafter::settle()
{
    constexpr size_t kMostOptions = 6;
    for (auto &[key, options] : m_draft.options) {
        std::vector<TableOption> different;
        for (TableOption &option : options) {
            const auto same = [&](const TableOption &other) { return other.table == option.table; };
            if (different.size() < kMostOptions && std::none_of(different.begin(), different.end(), same))
                different.push_back(std::move(option));
        }
        options = std::move(different);
        m_draft.header.huffman[key] = options.front().table;
    }
}

} // namespace

void draftHuffman(Draft &draft, const std::vector<ByteView> &bodies, const KnownTables &known)
{
    HuffmanDrafter(draft, known).run(bodies);
}

} // namespace salvage
