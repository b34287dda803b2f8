#include "salvage/ScansSearch.h"

#include "salvage/KnownTables.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr size_t kMostChoices = 32;
constexpr size_t kMostDoubtful = 8; // symbols of one table that are worth a search by whole decodes

class ScansSearch
{
public:
    ScansSearch(const Draft &draft, ByteView data, Budget &budget) : m_draft(draft), m_data(data), m_budget(budget) {}

    std::optional<Solution> run()
    {
        std::vector<TableChoice> choices = tableChoices(m_draft);
        if (choices.size() > kMostChoices) choices.resize(kMostChoices);
        for (const auto &[header, step] : variants()) {
            for (const TableChoice &choice : choices) {
                if (m_budget.spent() || settled()) break;
                Header tried = header;
                tried.huffman = choice;
                attempt(tried, step);
            }
        }
        if (m_best && !settled()) searchSymbols();
        if (m_best) noteTables();
        return std::move(m_best);
    }

private:
    using Variant = std::pair<Header, std::optional<Step>>;

    bool settled() const { return m_best && m_best->fit.perfect; }
    std::vector<Variant> variants() const;
    bool attempt(const Header &header, std::optional<Step> step);
    void searchSymbols();
    void searchTable(HuffmanKey key);
    void noteTables();

    const Draft &m_draft;
    ByteView m_data;
    Budget &m_budget;
    std::optional<Solution> m_best;
};

std::vector<ScansSearch::Variant> ScansSearch::variants() const
{
    Header found = m_draft.header;
    std::optional<Step> made;
    if (!m_draft.hasFrame) {
        if (m_draft.exifSizes.empty()) return {};
        found.width = m_draft.exifSizes.front().width;
        found.height = m_draft.exifSizes.front().height;
        for (size_t i = 0; i < found.scan.size(); ++i)
            found.components.push_back({found.scan[i].id, 1, 1, quint8(i ? 1 : 0)});
        made = Step::SizeFound;
    }
    std::vector<Variant> all = {{found, made}};
    Header other = found;
    for (const auto &sampling : usualSamplings()) {
        if (sampling.size() != found.components.size()) continue;
        other = found;
        for (size_t i = 0; i < sampling.size(); ++i) {
            other.components[i].h = sampling[i].first;
            other.components[i].v = sampling[i].second;
        }
        if (other.components != found.components) all.emplace_back(other, made ? made : Step::FrameMended);
    }
    for (const PictureSize &size : m_draft.exifSizes) {
        other = found;
        other.width = size.width;
        other.height = size.height;
        if (size != PictureSize{found.width, found.height}) all.emplace_back(other, Step::SizeFound);
    }
    for (const quint8 frame : {quint8(0xC0), quint8(0xC2)}) {
        other = found;
        other.frame = frame;
        if (frame != found.frame) all.emplace_back(other, Step::FrameMended);
    }
    return all;
}

/// Tries a header; true where it is better than the best so far.
bool ScansSearch::attempt(const Header &header, std::optional<Step> step)
{
    if (!header.decodable()) return false;
    const ScansReading reading = readScans(header, m_data, m_budget);
    Solution solution;
    solution.header = header;
    solution.fit.perfect = reading.errors == 0 && reading.complete && reading.done == reading.total;
    // A scan that ends early costs more than what is missing of it: it spoils those that refine it.
    const double spoilt = reading.scans ? std::min(0.5, 0.05 * reading.errors) : 1;
    solution.fit.share = solution.fit.perfect ? 1 : std::max(0.0, std::min(0.99, reading.share()) - spoilt);
    solution.fit.symbols = quint32(std::min<quint64>(reading.done, 0xFFFFFFFF));
    if (step) solution.steps.insert(*step);
    solution.sizeFound = step == Step::SizeFound;
    if (m_best && !solution.fit.betterThan(m_best->fit)) return false;
    m_best = std::move(solution);
    return true;
}

void ScansSearch::searchSymbols()
{
    constexpr int kRounds = 2;
    for (int round = 0; round < kRounds; ++round) {
        const double before = m_best->fit.share;
        const auto tables = m_best->header.huffman;
        for (const auto &[key, table] : tables)
            if (stateOf(key, table, true) != TableState::Sound) searchTable(key);
        if (settled() || m_best->fit.share <= before) return;
    }
}

void ScansSearch::searchTable(HuffmanKey key)
{
    const int begin = m_budget.elapsed();
    const Doubt doubt = doubtIn(key, m_best->header.huffman.at(key), true);
    const auto doubtful = size_t(std::count(doubt.doubtful.begin(), doubt.doubtful.end(), true));
    if (doubtful == 0 || doubtful > kMostDoubtful) return;
    std::vector<bool> fixed = doubt.doubtful;
    fixed.flip();
    for (size_t place = 0; place < doubt.doubtful.size(); ++place) {
        if (!doubt.doubtful[place]) continue;
        const Header start = m_best->header;
        for (const quint8 value : valuesFor(key, start.huffman.at(key), place, doubt, fixed, true)) {
            if (settled() || m_budget.spent() || m_budget.elapsed() - begin > Budget::kSymbolMilliseconds) return;
            Header tried = start;
            tried.huffman.at(key).symbols[place] = value;
            const std::set<Step> steps = m_best->steps;
            if (!attempt(tried, Step::SymbolsSearched)) continue;
            m_best->steps.insert(steps.begin(), steps.end());
        }
        fixed[place] = true;
    }
}

void ScansSearch::noteTables()
{
    for (const auto &[key, table] : m_best->header.huffman) {
        for (const TableOption &option : m_draft.options.at(key)) {
            if (option.table != table) continue;
            if (option.origin == TableOrigin::Known) m_best->steps.insert(Step::TablesKnown);
            if (option.origin == TableOrigin::CountsMended) m_best->steps.insert(Step::CountsMended);
        }
    }
}

} // namespace

ByteView scansData(ByteView file, const Candidate &candidate)
{
    static constexpr std::array<quint8, 3> kStart = {0xFF, 0xD8, 0xFF};
    static constexpr std::array<quint8, 2> kEnd = {0xFF, 0xD9};
    const auto from = file.begin() + qptrdiff(std::min(candidate.chain.end, file.size()));
    const auto next = std::search(from, file.end(), kStart.begin(), kStart.end());
    auto end = std::find_end(from, next, kEnd.begin(), kEnd.end());
    if (end == next && next - from <= 16) end = from;
    return slice(file, candidate.scan.start, size_t(end - file.begin()));
}

std::optional<Solution> solveScans(const Draft &draft, ByteView data, Budget &budget)
{
    return ScansSearch(draft, data, budget).run();
}

} // namespace salvage
