#include "salvage/search/Search.h"

#include "salvage/tables/KnownTables.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr size_t kMostChoices = 48;
constexpr quint32 kMostMcus = 4'000'000;
constexpr double kFar = 0.97; // of the data: so near to the end no table is wrong

/// A departure from the header as it was found.
struct Variant
{
    Header header;
    std::optional<Step> step;
    bool findInterval = false; ///< by the place of the first restart marker
};

std::vector<Variant> variantsOf(const Draft &draft)
{
    const Header &found = draft.header;
    std::vector<Variant> variants = {{found, std::nullopt, false}};
    Header other = found;
    other.restartInterval = 0;
    variants.push_back({other, Step::IntervalFound, true});
    if (found.restartInterval) variants.push_back({other, Step::IntervalFound, false});
    for (Header &sampled : withOtherSamplings(found))
        variants.push_back({std::move(sampled), Step::FrameMended, false});
    for (const PictureSize &size : draft.exifSizes) {
        if (size == PictureSize{found.width, found.height}) continue;
        other = found;
        other.width = size.width;
        other.height = size.height;
        variants.push_back({other, Step::SizeFound, false});
    }
    if (found.scan.size() != 3 || !draft.scanDoubtful) return variants;
    for (const std::array<quint8, 3> &tables :
         {std::array<quint8, 3>{0, 0x11, 0x11}, {0, 0, 0}, {0, 0x01, 0x01}, {0, 0x10, 0x10}}) {
        other = found;
        for (size_t i = 0; i < 3; ++i) other.scan[i].tables = tables[i];
        if (other.scan != found.scan) variants.push_back({other, Step::FrameMended, false});
    }
    return variants;
}

class BaselineSearch
{
public:
    BaselineSearch(const Draft &draft, const ScanData &data, const KnownTables &known, Budget &budget)
        : m_draft(draft), m_data(data), m_bytes(view(data.bytes)), m_known(known), m_budget(budget),
          m_choices(tableChoices(draft))
    {
    }

    std::optional<Solution> run()
    {
        if (m_draft.hasFrame) tryVariants();
        if (m_best && !m_best->fit.perfect && m_best->fit.share < kFar) trySymbols();
        const bool unsettled = !m_best || (!m_best->fit.perfect && m_best->fit.share < kFar)
            || (m_best->fit.error == Fit::Error::None && m_best->fit.share < 0.98);
        if (unsettled) {
            std::optional<Solution> counted = solveByCount(m_draft, m_data, m_choices, m_budget);
            if (counted && (!m_best || counted->fit.betterThan(m_best->fit))) m_best = std::move(counted);
        }
        if (m_best) noteTables();
        return std::move(m_best);
    }

private:
    void tryVariants();
    void trySymbols();
    std::optional<Solution> attempt(const Variant &variant, const TableChoice &choice);
    bool isWorthMore(const Solution &solution, bool asFound) const;
    void noteTables();

    const Draft &m_draft;
    const ScanData &m_data;
    ByteView m_bytes;
    const KnownTables &m_known;
    Budget &m_budget;
    std::vector<TableChoice> m_choices;
    std::optional<Solution> m_best;
};

std::optional<Solution> BaselineSearch::attempt(const Variant &variant, const TableChoice &choice)
{
    Solution solution;
    solution.header = variant.header;
    solution.header.huffman = choice;
    if (!solution.header.decodable() || solution.header.mcuCount() > kMostMcus) return std::nullopt;
    if (variant.findInterval) {
        DecodeWish wish;
        wish.followRestarts = true;
        const Fit fit = decode(solution.header, m_bytes, m_budget, wish);
        if (fit.restarts == 0 || fit.firstRestart > 0xFFFF) return std::nullopt;
        solution.header.restartInterval = quint16(fit.firstRestart);
    }
    solution.fit = decode(solution.header, m_bytes, m_budget);
    if (variant.step) solution.steps.insert(*variant.step);
    solution.sizeFound = variant.step == Step::SizeFound;
    return solution;
}

/// What departs from a sound segment must be right beyond doubt, or get three times as far.
bool BaselineSearch::isWorthMore(const Solution &solution, bool asFound) const
{
    if (!m_best) return true;
    if (!solution.fit.betterThan(m_best->fit)) return false;
    return asFound || solution.fit.perfect || solution.fit.share > std::max(0.5, 3 * m_best->fit.share);
}

void BaselineSearch::tryVariants()
{
    bool asFound = true;
    for (const Variant &variant : variantsOf(m_draft)) {
        for (const TableChoice &choice : m_choices) {
            if (m_budget.spent()) return;
            std::optional<Solution> solution = attempt(variant, choice);
            if (!solution || !isWorthMore(*solution, asFound)) continue;
            m_best = std::move(solution);
            if (m_best->fit.perfect) return;
        }
        // With codes mended in the data they can't be used up to the byte; the header is good enough.
        if (asFound && m_data.codesMended && m_best && m_best->fit.share > 0.9) return;
        asFound = false;
    }
}

void BaselineSearch::trySymbols()
{
    std::vector<Header> starts = {m_best->header};
    Header other = m_best->header;
    for (const auto &[key, options] : m_draft.options) {
        const bool many = options.front().table.symbols.size() > 100;
        // What was put into the holes of a table closes them to the search.
        const auto open = std::find_if(options.begin(), options.end(), [](const TableOption &option) {
            return option.origin != TableOrigin::SymbolsSearched;
        });
        other.huffman[key] = (many || open == options.end() ? options.back() : *open).table;
    }
    if (other.huffman != starts.front().huffman) starts.push_back(other);
    for (const Header &start : starts) {
        std::optional<Header> searched = searchSymbols(start, m_bytes, m_known, m_budget);
        if (!searched) continue;
        Solution solution = *m_best;
        solution.fit = decode(*searched, m_bytes, m_budget);
        if (!solution.fit.betterThan(m_best->fit)) continue;
        solution.header = std::move(*searched);
        solution.steps.insert(Step::SymbolsSearched);
        m_best = std::move(solution);
        if (m_best->fit.perfect) return;
    }
}

/// Leaves the tables that the scan uses, and says where those come from that weren't found so.
void BaselineSearch::noteTables()
{
    std::map<HuffmanKey, HuffmanTable> used;
    for (const ScanComponent &each : m_best->header.scan) {
        for (const HuffmanKey key : {each.dcKey(), each.acKey()}) {
            const auto table = m_best->header.huffman.find(key);
            if (table == m_best->header.huffman.end()) continue;
            used[key] = table->second;
            const auto options = m_draft.options.find(key);
            if (options == m_draft.options.end()) continue;
            for (const TableOption &option : options->second) {
                if (option.table != table->second) continue;
                if (option.origin == TableOrigin::Known) m_best->steps.insert(Step::TablesKnown);
                if (option.origin == TableOrigin::CountsMended) m_best->steps.insert(Step::CountsMended);
                if (option.origin == TableOrigin::SymbolsSearched) m_best->steps.insert(Step::SymbolsSearched);
            }
        }
    }
    m_best->header.huffman = std::move(used);
}

} // namespace

std::vector<TableChoice> tableChoices(const Draft &draft)
{
    std::vector<HuffmanKey> keys;
    for (const auto &[key, options] : draft.options) keys.push_back(key);
    // The first tables carry luminance, where most is to be read.
    std::stable_sort(keys.begin(), keys.end(), [](HuffmanKey a, HuffmanKey b) { return !(a & 15) > !(b & 15); });
    std::vector<TableChoice> choices(1);
    for (const HuffmanKey key : keys) {
        std::vector<TableChoice> longer;
        for (const TableChoice &choice : choices) {
            for (const TableOption &option : draft.options.at(key)) {
                if (longer.size() >= kMostChoices) break;
                longer.push_back(choice);
                longer.back()[key] = option.table;
            }
        }
        choices = std::move(longer);
    }
    return choices;
}

ScanData takeScanData(ByteView file, const Scan &scan, const Draft &draft, const Budget &budget)
{
    ScanData data;
    ByteView bytes = slice(file, scan.start, scan.end);
    // FF may fill in front of a marker (ISO/IEC 10918-1, B.1.1.2), EOI too, which is gone then.
    while (!bytes.empty() && bytes.back() == 0xFF) bytes = bytes.first(bytes.size() - 1);
    data.hasRestarts = draft.header.restartInterval > 0 || restartsAreRegular(bytes, budget);
    data.raw = bytes;
    data.offset = scan.start;
    data.bytes = cleanScan(bytes, data.hasRestarts, data.codesMended, budget);
    return data;
}

std::optional<Solution> solveBaseline(const Draft &draft, const ScanData &data, const KnownTables &known,
                                      Budget &budget)
{
    return BaselineSearch(draft, data, known, budget).run();
}

} // namespace salvage
