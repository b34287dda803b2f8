#include "salvage/picture/Mending.h"

#include "salvage/entropy/PictureReader.h"
#include "salvage/picture/ScanRepair.h"
#include "salvage/picture/Sectors.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

constexpr quint32 kMostMcus = 60'000; // to realign
constexpr quint32 kMostIntervalMcus = 1'000'000;
constexpr int kMilliseconds = 5'000; // for all of it
constexpr double kBetter = 0.98;     // of the looks of the plain decode, that a mended scan must come to
constexpr double kFarWorse = 1.15;   // than the plain decode, where a grey area has no steps and no misfits

/// Writes a patchwork as a scan of its own.
Mended written(const Header &header, Patchwork &&work, std::set<Step> steps)
{
    Mended mended;
    mended.share = work.share();
    mended.steps = std::move(steps);
    fillHoles(work, header);
    mended.header = header;
    useStandardTables(mended.header);
    mended.data = encode(work.picture);
    return mended;
}

/// How a picture looks beside the plain decode of the same data: below 1 where it looks better. The steps across borders tell
/// rows in the wrong place, the fit of the MCUs tells wrong levels; the steps alone see the holes.
class Judge
{
public:
    Judge(const Header &header, ByteView data, Budget &budget) : m_header(header), m_data(data), m_budget(budget) {}

    /// Fills the holes of `work`.
    double looks(Patchwork &work)
    {
        if (m_steps < 0) lookAtPlain();
        fillHoles(work, m_header);
        const double steps = borderSteps(work.picture, m_header, work.picture.mcusHigh, &m_budget).sum();
        const double unfit = meanUnfit(work.picture, m_header, work.have, m_budget);
        // What is read to its end and ends with the picture stands in its place, whatever the seams look like.
        const double trust = work.endsInPlace ? 0.95 : 1;
        return trust * (steps / m_steps + unfit / m_unfit) / 2 + 0.2 * (1 - work.share());
    }

private:
    void lookAtPlain()
    {
        const Coefficients shown = pictureAsShown(m_header, m_data, m_budget);
        const std::vector<bool> all(shown.mcuCount(), true);
        m_steps = std::max(0.01, borderSteps(shown, m_header, shown.mcusHigh, &m_budget).sum());
        m_unfit = std::max(0.01, meanUnfit(shown, m_header, all, m_budget));
    }

    const Header &m_header;
    ByteView m_data;
    Budget &m_budget;
    double m_steps = -1; // of the plain decode; negative as long as nobody asked
    double m_unfit = 0;
};

/// The best of the ways of realigning, if it is better than `least`, which gets its looks. The surest come first, for the
/// time may run out.
std::optional<Patchwork> realigned(const Header &header, ByteView data, Judge &judge, double &least, Budget &budget)
{
    std::optional<Patchwork> best;
    const quint32 mcus = header.mcuCount();
    const McuStream stream = readStream(header, data, mcus + std::max(64U, mcus / 4), budget);
    for (const RealignWay way :
         {RealignWay{false, true}, RealignWay{true, true}, RealignWay{false, false}, RealignWay{true, false}}) {
        if (budget.stopped() || budget.late()) break;
        std::optional<Patchwork> work = realign(header, stream, way, budget);
        if (!work) continue;
        const double own = judge.looks(*work);
        if (own >= least) continue;
        least = own;
        best = std::move(work);
    }
    return best;
}

std::optional<Mended> mendByIntervals(const Header &header, const ScanData &data, Judge &judge, Budget &budget)
{
    if (header.mcuCount() > kMostIntervalMcus) return std::nullopt;
    std::optional<Patchwork> work = resynchronise(header, data, budget);
    if (!work) return std::nullopt;
    // Numbers are better witnesses than looks where most of the picture was read by them.
    if (judge.looks(*work) >= (work->share() > 0.5 ? kFarWorse : kBetter)) return std::nullopt;
    return written(header, std::move(*work), {Step::Resynchronised});
}

std::optional<Mended> mendByEdges(const Header &header, const ScanData &data, Judge &judge, Budget &budget)
{
    if (header.mcuCount() > kMostMcus || header.mcusWide() < 3) return std::nullopt;
    ScanRepair repair(header, budget);
    const ScanRepair::Outcome outcome = repair.run(data.raw, 0, header.mcuCount());
    if (outcome.complete && outcome.changes) {
        Patchwork even = repair.work();
        if (evenLevels(even, header, budget) && judge.looks(even) < judge.looks(repair.work()))
            return written(header, std::move(even), {Step::HitsRepaired});
        return Mended{header, outcome.data, {Step::HitsRepaired}, 1};
    }
    double least = kBetter;
    std::optional<Patchwork> best;
    std::set<Step> steps;
    if (outcome.changes) {
        // If not read to the last byte: the changes alone may do.
        const double own = judge.looks(repair.work());
        if (own < least) {
            least = own;
            best = std::move(repair.work());
            steps = {Step::HitsRepaired};
        }
    }
    if (std::optional<Patchwork> other = realigned(header, view(data.bytes), judge, least, budget)) {
        best = std::move(other);
        steps = {Step::Realigned};
    }
    if (outcome.changes) {
        int codes = 0;
        const QByteArray changed = cleanScan(view(outcome.data), false, codes);
        if (std::optional<Patchwork> other = realigned(header, view(changed), judge, least, budget)) {
            best = std::move(other);
            steps = {Step::HitsRepaired, Step::Realigned};
        }
    }
    if (!best) return std::nullopt;
    Patchwork even = *best;
    if (evenLevels(even, header, budget) && judge.looks(even) < least) best = std::move(even);
    return written(header, std::move(*best), std::move(steps));
}

std::optional<Mended> mendWithin(const Header &header, const ScanData &data, Budget &budget)
{
    if (std::optional<QByteArray> undone = undoSectors(header, data, budget))
        return Mended{header, std::move(*undone), {Step::Realigned}, 1};
    Judge judge(header, view(data.bytes), budget);
    return header.restartInterval ? mendByIntervals(header, data, judge, budget)
                                  : mendByEdges(header, data, judge, budget);
}

} // namespace

double Patchwork::share() const
{
    return have.empty() ? 0 : double(std::count(have.begin(), have.end(), true)) / double(have.size());
}

Coefficients pictureAsShown(const Header &header, ByteView data, Budget &budget)
{
    if (header.progressive() || header.scan.size() != header.components.size())
        return readScans(header, data, budget).picture;
    Coefficients picture(header);
    const size_t size = picture.values.size();
    std::vector<bool> bad;
    decodeTolerantly(header, data, picture.mcuCount(), budget, picture.values, bad);
    picture.values.resize(size);
    return picture;
}

std::optional<Mended> mendScan(const Header &header, const ScanData &data, Budget &budget)
{
    if (header.progressive() || header.scan.size() != header.components.size()) return std::nullopt;
    const auto hasQuant = [&](const Component &each) { return header.quant.count(each.quant) > 0; };
    if (!header.fitsMemory() || !header.decodable()) return std::nullopt;
    if (!std::all_of(header.components.begin(), header.components.end(), hasQuant)) return std::nullopt;
    Budget own([&budget] { return budget.stopped() || budget.late(); }, kMilliseconds, budget.decodesLeft());
    std::optional<Mended> mended = mendWithin(header, data, own);
    for (int i = 0; i < own.decodes(); ++i) budget.countDecode();
    return mended;
}

} // namespace salvage
