#include "salvage/search/ScansSearch.h"

#include "salvage/search/ScansSize.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <tuple>

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
        if (!settled()) searchSize(choices);
        if (m_best && !settled()) searchSymbols();
        if (m_best) noteTables();
        return std::move(m_best);
    }

private:
    using Variant = std::pair<Header, std::optional<Step>>;

    bool settled() const { return m_best && m_best->fit.perfect; }
    std::vector<Variant> variants() const;
    bool attempt(const Header &header, std::optional<Step> step);
    std::vector<ScanPart> partsBy(Header &header) const;
    void searchSize(const std::vector<TableChoice> &choices);
    bool trySize(Header header);
    Sized sizeBy(const Header &header, const ScanCounts &counts, SizeUnit &unit) const;
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
        if (m_draft.exifSizes.empty() || found.scan.size() < 2) return {};
        found.width = m_draft.exifSizes.front().width;
        found.height = m_draft.exifSizes.front().height;
        for (size_t i = 0; i < found.scan.size(); ++i)
            found.components.push_back({found.scan[i].id, 1, 1, quint8(i ? 1 : 0)});
        made = Step::SizeFound;
    }
    std::vector<Variant> all = {{found, made}};
    for (Header &other : withOtherSamplings(found)) all.emplace_back(std::move(other), made ? made : Step::FrameMended);
    Header other;
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

/// The scans of the data as the tables of `header` begin them; gives a header without a frame the components of all scans.
std::vector<ScanPart> ScansSearch::partsBy(Header &header) const
{
    std::vector<ScanPart> parts = splitScans(header, m_data);
    if (!header.components.empty()) return parts;
    constexpr size_t kMostComponents = 4;
    std::set<quint8> seen;
    for (const ScanPart &part : parts)
        for (const ScanComponent &each : part.header.scan)
            if (header.components.size() < kMostComponents && seen.insert(each.id).second)
                header.components.push_back({each.id, 1, 1, quint8(header.components.empty() ? 0 : 1)});
    return parts;
}

/// Sampling and size by the number of units in the scans, where they can be counted.
void ScansSearch::searchSize(const std::vector<TableChoice> &choices)
{
    constexpr size_t kChoices = 4;
    for (size_t i = 0; i < std::min(kChoices, choices.size()); ++i) {
        Header header = m_draft.header;
        header.huffman = choices[i];
        partsBy(header);
        if (m_draft.hasFrame && !m_budget.spent() && trySize(header)) return;
        for (const auto &sampling : usualSamplings()) {
            if (sampling.size() != header.components.size() || m_budget.spent()) continue;
            for (size_t c = 0; c < sampling.size(); ++c)
                std::tie(header.components[c].h, header.components[c].v) = sampling[c];
            if (trySize(header)) return;
        }
    }
}

/// The size that fits the counts: one that a header gives, or one with a side that the frame still has, or any.
Sized ScansSearch::sizeBy(const Header &header, const ScanCounts &counts, SizeUnit &unit) const
{
    const PictureSize frame{m_draft.header.width, m_draft.header.height};
    std::vector<PictureSize> given = m_draft.exifSizes;
    if (m_draft.hasFrame) given.push_back(frame);
    for (const PictureSize &size : given)
        if (size.width && size.height && hasCounts(header, counts, size)) return {size, false, false};

    const auto sameUnits = [](int a, int b, int pixels) {
        return (a + pixels - 1) / pixels == (b + pixels - 1) / pixels;
    };
    Sized best;
    double least = 1e18;
    for (const PictureSize &size : sizesOf(header, counts, unit)) {
        const bool widthStands = m_draft.hasFrame && frame.width && sameUnits(size.width, frame.width, unit.width);
        const bool heightStands = m_draft.hasFrame && frame.height && sameUnits(size.height, frame.height, unit.height);
        const bool interleaved = counts.mcus && counts.levels.size() == counts.mcus;
        const int step = interleaved ? header.mcuWidth() : unit.width;
        const auto wide = quint32((size.width + step - 1) / step);
        const bool isLine = wide < 2 || wide > counts.levels.size() / 2;
        const double value = isLine ? 1e9 : unlikeliness(counts.levels, wide, size.width, size.height);
        // A side that stands says more than looks.
        const double rated = widthStands || heightStands ? value * 1e-3 : value;
        if (rated >= least) continue;
        least = rated;
        best = {size, !widthStands, !heightStands};
        if (widthStands) best.size.width = frame.width;
        if (heightStands) best.size.height = frame.height;
    }
    return best;
}

/// Tries the size that belongs to the samplings and tables of a header; true once it is settled.
bool ScansSearch::trySize(Header header)
{
    header.width = header.height = 8; // to be decodable; the counts don't depend on it
    if (!header.decodable()) return false;
    std::optional<ScanCounts> counts = countScans(partsBy(header), m_data, m_budget);
    if (!counts) return false;
    SizeUnit unit;
    Sized sized = sizeBy(header, *counts, unit);
    if (!sized.size.width && counts->mcus && !m_draft.frameFirm) {
        // A scan of one component was counted wrongly; the first one alone has to do.
        counts->blocks.assign(counts->blocks.size(), 0);
        sized = sizeBy(header, *counts, unit);
    }
    if (!sized.size.width) return false;
    header.width = sized.size.width;
    header.height = sized.size.height;
    const bool open = sized.openWidth || sized.openHeight;
    if (open && header.fitsMemory()) trimSize(header, sized, unit, readScans(header, m_data, m_budget).picture);
    std::optional<Solution> before = m_best;
    const bool isFrames = m_draft.hasFrame && sized.size == PictureSize{m_draft.header.width, m_draft.header.height};
    if (!attempt(header, isFrames ? Step::FrameMended : Step::SizeFound)) return false;
    m_best->sizeByCount = open;
    // A frame that is sound in every field is overruled by what is beyond doubt alone.
    if (m_draft.frameFirm && before && !settled()) m_best = std::move(before);
    return settled();
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
            if (settled() || m_budget.symbolsSpent(begin)) return;
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

/// What the later scans say of a first one whose header was spoilt: the one that gives the last bit of the levels tells how
/// many bits were left out, and components with a first scan of their own have none in this.
void agreeOnFirstScan(Draft &draft, ByteView data)
{
    Header &first = draft.header;
    if (!first.progressive() || first.spectral[0] > 0 || first.spectral[2] >> 4) return;
    quint8 bits = 0;
    std::set<quint8> given;
    bool isFirst = true;
    for (const ScanPart &part : splitScans(first, data)) {
        const auto [start, end, approximation] = part.header.spectral;
        if (start == 0) bits = std::max(bits, quint8(approximation >> 4));
        if (start == 0 && approximation >> 4 == 0 && !isFirst)
            for (const ScanComponent &each : part.header.scan) given.insert(each.id);
        isFirst = false;
    }
    // A sound header is right where no later scan says otherwise: the one that brings the last bits may be cut off.
    if (bits || draft.scanDoubtful) first.spectral = {0, 0, bits};
    if (draft.scanDoubtful && given.size() < first.scan.size())
        std::erase_if(first.scan, [&](const ScanComponent &each) { return given.count(each.id) > 0; });
}

} // namespace

std::optional<Solution> solveScans(const Draft &draft, ByteView data, Budget &budget)
{
    Draft agreed = draft;
    agreeOnFirstScan(agreed, data);
    return ScansSearch(agreed, data, budget).run();
}

} // namespace salvage
