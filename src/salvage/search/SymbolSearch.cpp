// Spoilt symbols of a table that nobody knows: value by value, and the decoder tells how far each choice carries on.
#include "salvage/tables/Huffman.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace salvage {

namespace {

constexpr quint32 kMcus = 6000; // enough to tell the choices apart
constexpr size_t kBeam = 6;

/// A symbol that stands for none: no decoder takes it.
constexpr quint8 holeOf(HuffmanKey key)
{
    return tableClass(key) ? 0xFE : 0xFF;
}

struct Hole
{
    HuffmanKey key = 0;
    size_t place = 0;
    bool operator==(const Hole &) const = default;
    bool operator<(const Hole &other) const { return std::tie(key, place) < std::tie(other.key, other.place); }
};

struct State
{
    enum class Rank { Partly, ToTheEnd, Perfect };

    Header header;
    std::vector<Hole> holes; ///< that are still open, ascending
    Rank rank = Rank::Partly;
    quint32 symbols = 0; ///< read in front of the first error

    bool betterThan(const State &other) const
    {
        return rank != other.rank ? rank > other.rank : symbols > other.symbols;
    }
};

/// A table that has a run and size has, as a rule, the shorter run and the smaller size too: the values that close a gap
/// come first, then those at the edge of what is there, and of the rest none.
void sortByNeighbours(std::vector<quint8> &values, const HuffmanTable &table)
{
    std::array<bool, 256> there{};
    for (const quint8 symbol : table.symbols) there.at(symbol) = true;
    const auto has = [&](int run, int size) {
        return run >= 0 && run < 16 && size <= 10 && there.at(size_t(run << 4 | size));
    };
    const auto rank = [&](quint8 value) {
        const int run = value >> 4;
        const int size = value & 15;
        if (size == 0) return 0; // end of block, and sixteen zeros
        const bool below = (run == 0 || has(run - 1, size)) && (size == 1 || has(run, size - 1));
        const bool above = has(run + 1, size) || has(run, size + 1);
        return above ? 0 : below ? 1 : 2;
    };
    std::stable_sort(values.begin(), values.end(), [&](quint8 a, quint8 b) { return rank(a) < rank(b); });
    const auto far = std::find_if(values.begin(), values.end(), [&](quint8 value) { return rank(value) == 2; });
    if (far - values.begin() > 12) values.erase(far, values.end());
}

class SymbolSearch
{
public:
    SymbolSearch(const Header &header, ByteView data, const KnownTables &known, Budget &budget)
        : m_header(header), m_data(data), m_budget(budget), m_begin(budget.elapsed())
    {
        for (const auto &[key, table] : header.huffman) {
            if (known.isKnown(table)) continue;
            m_doubts.emplace(key, doubtIn(key, table, false));
        }
    }

    std::optional<Header> run();

private:
    bool spent() const { return m_budget.symbolsSpent(m_begin); }
    State search(std::vector<Hole> holes);
    void tryValues(const State &state, const Hole &hole,
                   std::map<std::pair<std::vector<quint8>, std::vector<Hole>>, State> &next, State &best);
    void rate(State &state);
    void searchOneMore(const std::vector<Hole> &holes, State &best);

    const Header &m_header;
    ByteView m_data;
    Budget &m_budget;
    int m_begin;
    std::map<HuffmanKey, Doubt> m_doubts;
};

void SymbolSearch::rate(State &state)
{
    DecodeWish wish;
    wish.mcus = std::min(m_header.mcuCount(), kMcus);
    const Fit fit = decode(state.header, m_data, m_budget, wish);
    state.symbols = fit.symbols;
    state.rank = State::Rank::Partly;
    if (fit.error == Fit::Error::None) state.rank = State::Rank::ToTheEnd;
    if (fit.perfect) state.rank = State::Rank::Perfect;
}

void SymbolSearch::tryValues(const State &state, const Hole &hole,
                             std::map<std::pair<std::vector<quint8>, std::vector<Hole>>, State> &next, State &best)
{
    const HuffmanTable &table = state.header.huffman.at(hole.key);
    std::vector<bool> fixed(table.symbols.size(), true);
    for (const Hole &open : state.holes)
        if (open.key == hole.key) fixed[open.place] = false;
    State tried;
    tried.holes = state.holes;
    tried.holes.erase(std::find(tried.holes.begin(), tried.holes.end(), hole));
    std::vector<quint8> values = valuesFor(hole.key, table, hole.place, m_doubts.at(hole.key), fixed, false);
    if (tableClass(hole.key) == 1) sortByNeighbours(values, table);
    constexpr int kEnough = 20; // values that read no further: this isn't the hole that stops the decoder
    int tries = 0;
    for (const quint8 value : values) {
        if (spent() || best.rank == State::Rank::Perfect || tries == kEnough) return;
        tried.header = state.header;
        std::vector<quint8> &symbols = tried.header.huffman.at(hole.key).symbols;
        symbols[hole.place] = value;
        rate(tried);
        if (tries >= 0) tries = tried.symbols > state.symbols ? -1 : tries + 1;
        if (tried.rank == State::Rank::Perfect)
            best = tried;
        else if (tried.betterThan(state))
            next.insert_or_assign({symbols, tried.holes}, tried);
    }
}

/// Fills the holes one after the other, keeping the few best choices.
State SymbolSearch::search(std::vector<Hole> holes)
{
    std::sort(holes.begin(), holes.end());
    State start;
    start.header = m_header;
    start.holes = holes;
    for (const Hole &hole : holes) start.header.huffman.at(hole.key).symbols[hole.place] = holeOf(hole.key);
    rate(start);
    State best = start;
    std::vector<State> beam = {start};
    for (size_t step = 0; step < holes.size() && best.rank == State::Rank::Partly && !spent(); ++step) {
        std::map<std::pair<std::vector<quint8>, std::vector<Hole>>, State> next;
        for (const State &state : beam)
            for (const Hole &hole : state.holes) tryValues(state, hole, next, best);
        if (best.rank == State::Rank::Perfect || next.empty()) break;
        beam.clear();
        for (auto &[key, state] : next) beam.push_back(std::move(state));
        std::stable_sort(beam.begin(), beam.end(), [](const State &a, const State &b) { return a.betterThan(b); });
        if (beam.size() > kBeam) beam.resize(kBeam);
        if (beam[0].betterThan(best)) best = beam[0];
    }
    return best;
}

/// Once more, with one other symbol as a hole that its order didn't give away.
void SymbolSearch::searchOneMore(const std::vector<Hole> &holes, State &best)
{
    constexpr size_t kFrequent = 24; // symbols that a picture uses soon
    for (const auto &[key, doubt] : m_doubts) {
        if (!doubt.any()) continue;
        for (size_t i = 0; i < std::min(doubt.doubtful.size(), kFrequent); ++i) {
            if (doubt.doubtful[i]) continue;
            if (spent() || best.rank == State::Rank::Perfect) return;
            std::vector<Hole> more = holes;
            more.push_back({key, i});
            State state = search(more);
            if (state.betterThan(best)) best = std::move(state);
        }
    }
}

/// Puts symbols that aren't there yet into the places that nothing was found for.
void fillHoles(Header &header)
{
    for (auto &[key, table] : header.huffman) {
        std::array<bool, 256> used{};
        for (const quint8 symbol : table.symbols) used.at(symbol) = true;
        quint32 spare = 0;
        std::array<bool, 256> seen{};
        for (quint8 &symbol : table.symbols) {
            const bool legal = isLegalSymbol(tableClass(key), symbol, false);
            if (!legal || seen.at(symbol)) {
                while (spare < 256 && (used.at(spare) || !isLegalSymbol(tableClass(key), quint8(spare), false)))
                    ++spare;
                if (spare < 256) symbol = quint8(spare++);
            }
            seen.at(symbol) = true;
        }
    }
}

std::optional<Header> SymbolSearch::run()
{
    std::vector<Hole> holes;
    for (const auto &[key, doubt] : m_doubts)
        for (size_t i = 0; i < doubt.doubtful.size(); ++i)
            if (doubt.doubtful[i]) holes.push_back({key, i});
    if (holes.empty()) return std::nullopt;
    State best = search(holes);
    if (best.rank != State::Rank::Perfect) searchOneMore(holes, best);
    fillHoles(best.header);
    return best.header;
}

} // namespace

std::optional<Header> searchSymbols(const Header &header, ByteView data, const KnownTables &known, Budget &budget)
{
    return SymbolSearch(header, data, known, budget).run();
}

} // namespace salvage
