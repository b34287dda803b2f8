#include "salvage/OnePicture.h"

#include "salvage/picture/Mending.h"
#include "salvage/picture/ScansMending.h"
#include "salvage/picture/ScansRealign.h"
#include "salvage/search/ScansData.h"
#include "salvage/search/ScansSearch.h"
#include "salvage/search/Search.h"
#include "salvage/tables/Quantization.h"

#include <algorithm>

namespace salvage {

namespace {

/// The parts of a picture on their way into a file.
struct Parts
{
    Solution solution;
    QByteArray data;
    QuantOutcome quant;
    bool realigned = false;
};

QByteArray fileOf(const Parts &parts)
{
    QByteArray file = parts.solution.header.bytes(true);
    file.reserve(file.size() + parts.data.size() + 2);
    return file.append(parts.data).append("\xFF\xD9", 2);
}

/// The picture for questions of looks; decoded when it is first asked for.
class LazyPicture
{
public:
    LazyPicture(const Solution &solution, ByteView data, Budget &budget, bool severalScans)
        : m_solution(solution), m_data(data), m_budget(budget), m_severalScans(severalScans)
    {
    }

    std::pair<const Coefficients *, quint32> operator()()
    {
        if (!m_solution.header.fitsMemory() || m_budget.stopped()) return {nullptr, 0};
        if (m_picture.values.empty()) decodeIt();
        return {&m_picture, m_rows};
    }

private:
    void decodeIt()
    {
        const Header &header = m_solution.header;
        if (m_severalScans) {
            m_picture = readScans(header, m_data, m_budget).picture;
            m_rows = m_picture.mcusHigh;
            return;
        }
        m_picture = Coefficients(header);
        const size_t size = m_picture.values.size();
        DecodeWish wish;
        wish.values = &m_picture.values;
        const Fit fit = decode(header, m_data, m_budget, wish);
        m_picture.values.resize(size);
        m_rows = std::max(1U, fit.done / std::max(1U, m_picture.mcusWide));
    }

    const Solution &m_solution;
    ByteView m_data;
    Budget &m_budget;
    bool m_severalScans;
    Coefficients m_picture;
    quint32 m_rows = 0;
};

Certainty certaintyOf(const Parts &parts)
{
    const auto &steps = parts.solution.steps;
    const bool sizeFromShape = parts.solution.sizeByCount;
    const bool quantGuessed = parts.quant.replaced > parts.quant.sure;
    if (parts.realigned || quantGuessed || sizeFromShape) return Certainty::Guess;
    // A symbol with another run has as many bits, and may read to the end as well.
    const bool symbolsSearched = steps.count(Step::SymbolsSearched) > 0;
    if (parts.solution.fit.perfect && parts.quant.replaced == 0 && !steps.count(Step::CodesMended) && !symbolsSearched)
        return Certainty::Exact;
    return parts.solution.fit.perfect || parts.solution.fit.share > 0.97 ? Certainty::Likely : Certainty::Guess;
}

Result resultOf(Parts &&parts)
{
    Result result;
    result.file = fileOf(parts);
    result.width = parts.solution.header.width;
    result.height = parts.solution.header.height;
    result.steps.assign(parts.solution.steps.begin(), parts.solution.steps.end());
    result.certainty = certaintyOf(parts);
    result.share = parts.solution.fit.share;
    result.perfect = parts.solution.fit.perfect;
    result.realigned = parts.realigned;
    result.quantSure = parts.quant.sure > 0;
    result.sizeFound = parts.solution.sizeFound;
    return result;
}

/// Damage in the entropy data: what lies behind it is put where it belongs, if that looks better than leaving it.
void mendData(Parts &parts, const ScanData &data, Budget &budget)
{
    const auto &steps = parts.solution.steps;
    const bool ownSize = !steps.count(Step::SizeFound) && !steps.count(Step::SymbolsSearched);
    // Codes that were mended by a guess are damage, even where the data are read to their end; but some encoders leave
    // codes in front of restart markers, where they do no harm.
    const bool harmless = data.codesMended == 0 || parts.solution.header.restartInterval > 0;
    const bool sound = parts.solution.fit.perfect && harmless;
    if (sound || parts.solution.fit.share <= 0 || !ownSize) return;
    std::optional<Mended> mended = mendScan(parts.solution.header, data, budget);
    if (!mended) return;
    parts.solution.header = std::move(mended->header);
    parts.data = std::move(mended->data);
    parts.solution.steps.merge(mended->steps);
    parts.solution.fit.share = std::max(parts.solution.fit.share, mended->share);
    parts.realigned = true;
}

std::optional<Parts> salvageBaseline(ByteView file, const Candidate &candidate, const Draft &draft,
                                     const KnownTables &known, Budget &budget)
{
    const ScanData data = takeScanData(file, candidate.scan, draft, budget);
    std::optional<Solution> solution = solveBaseline(draft, data, known, budget);
    if (!solution) return std::nullopt;
    Parts parts;
    parts.solution = std::move(*solution);
    if (data.codesMended) parts.solution.steps.insert(Step::CodesMended);
    LazyPicture picture(parts.solution, view(data.bytes), budget, false);
    parts.quant = chooseQuant(parts.solution.header, draft, known, std::ref(picture));
    parts.data = data.bytes;
    mendData(parts, data, budget);
    return parts;
}

/// Scans that break: what can be used of them, written as one scan, if that looks better than leaving it.
void mendScans(Parts &parts, const ScansData &scans, Budget &budget)
{
    Header &header = parts.solution.header;
    if (parts.solution.fit.perfect || parts.solution.sizeFound) return;
    const std::optional<Coefficients> mended = realignScans(header, scans, budget);
    if (!mended) return;
    const Coefficients shown = readScans(header, view(parts.data), budget).picture;
    if (borderSteps(*mended, header, mended->mcusHigh).sum() >= borderSteps(shown, header, shown.mcusHigh).sum())
        return;
    header.frame = 0xC0;
    header.spectral = {0, 63, 0};
    header.scan.clear();
    for (const Component &each : header.components) header.scan.push_back({each.id, 0});
    useStandardTables(header);
    parts.data = encode(*mended);
    parts.solution.steps.insert(Step::Realigned);
    parts.realigned = true;
}

std::optional<Parts> salvageScans(ByteView file, const Candidate &candidate, const Draft &draft,
                                  const KnownTables &known, Budget &budget)
{
    ScansData scans = takeScans(file, candidate, draft.header.restartInterval > 0, budget);
    QByteArray joined = scans.joined();
    std::optional<Solution> solution = solveScans(draft, view(joined), budget);
    if (solution && !solution->fit.perfect && scans.codesMended()) {
        mendCodes(solution->header, scans, budget);
        joined = scans.joined();
        if (std::optional<Solution> again = solveScans(draft, view(joined), budget)) solution = std::move(again);
    }
    if (!solution) return std::nullopt;
    Parts parts;
    parts.solution = std::move(*solution);
    if (scans.codesMended()) parts.solution.steps.insert(Step::CodesMended);
    LazyPicture picture(parts.solution, view(joined), budget, true);
    parts.quant = chooseQuant(parts.solution.header, draft, known, std::ref(picture));
    parts.data = joined;
    mendScans(parts, scans, budget);
    return parts;
}

} // namespace

std::optional<Result> salvageOne(ByteView file, const Candidate &candidate, const KnownTables &known, Budget &budget)
{
    const Draft draft = draftHeader(file, candidate, known, budget);
    const bool severalScans = draft.progressive || draft.severalScans;
    std::optional<Parts> parts = severalScans ? salvageScans(file, candidate, draft, known, budget)
                                              : salvageBaseline(file, candidate, draft, known, budget);
    if (!parts) return std::nullopt;
    parts->solution.steps.insert(draft.steps.begin(), draft.steps.end());
    if (parts->quant.replaced) parts->solution.steps.insert(Step::Quantization);
    Result result = resultOf(std::move(*parts));
    // Where a frame was hit, its size may have been, and end within the same MCUs.
    const auto &given = draft.exifSizes;
    const bool sizeSure = draft.frameFirm || !draft.steps.count(Step::FrameMended)
        || std::find(given.begin(), given.end(), PictureSize{result.width, result.height}) != given.end();
    if (result.certainty == Certainty::Exact && !sizeSure) result.certainty = Certainty::Likely;
    return result;
}

} // namespace salvage
