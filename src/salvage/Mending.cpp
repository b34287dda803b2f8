#include "salvage/Mending.h"

#include "salvage/PictureReader.h"
#include "salvage/ScanRepair.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

constexpr quint32 kMostMcus = 60'000; // to realign
constexpr quint32 kMostIntervalMcus = 1'000'000;
constexpr int kMilliseconds = 5'000;

/// Writes a patchwork as a scan of its own.
Mended written(const Header &header, Patchwork &&work, std::set<Step> steps)
{
    Mended mended;
    mended.share = work.share();
    mended.steps = std::move(steps);
    fillHoles(work);
    mended.header = header;
    useStandardTables(mended.header);
    mended.data = encode(work.picture);
    return mended;
}

/// What holes cost, so that a smooth nothing doesn't win over a picture.
double looks(const Patchwork &work, const Header &header)
{
    Patchwork filled = work;
    fillHoles(filled);
    return borderSteps(filled.picture, header, filled.picture.mcusHigh).sum() + 0.5 * (1 - work.share());
}

/// The best of the ways of realigning, if it is better than `least`, which gets its looks.
std::optional<Patchwork> realigned(const Header &header, ByteView data, double &least, Budget &budget)
{
    std::optional<Patchwork> best;
    const int begin = budget.elapsed();
    for (const RealignWay way :
         {RealignWay{false, false}, RealignWay{false, true}, RealignWay{true, false}, RealignWay{true, true}}) {
        if (budget.spent() || budget.elapsed() - begin > kMilliseconds) break;
        std::optional<Patchwork> work = realign(header, data, way, budget);
        if (!work) continue;
        const double own = looks(*work, header);
        if (own >= least) continue;
        least = own;
        best = std::move(work);
    }
    return best;
}

std::optional<Mended> mendByIntervals(const Header &header, const ScanData &data, double plain, Budget &budget)
{
    if (header.mcuCount() > kMostIntervalMcus) return std::nullopt;
    std::optional<Patchwork> work = resynchronise(header, data, budget);
    if (!work || (work->share() <= 0.5 && looks(*work, header) >= plain)) return std::nullopt;
    return written(header, std::move(*work), {Step::Resynchronised});
}

std::optional<Mended> mendByEdges(const Header &header, const ScanData &data, double plain, Budget &budget)
{
    if (header.mcuCount() > kMostMcus || header.mcusWide() < 3) return std::nullopt;
    ScanRepair repair(header, budget);
    const ScanRepair::Outcome outcome = repair.run(data.raw, 0, header.mcuCount());
    if (outcome.complete && outcome.changes) {
        Mended mended;
        mended.header = header;
        mended.data = outcome.data;
        mended.steps = {Step::HitsRepaired};
        mended.share = 1;
        return mended;
    }
    double least = plain;
    std::optional<Patchwork> best;
    std::set<Step> steps;
    if (outcome.changes && outcome.read == header.mcuCount()) {
        // Read to the end, if not to the last byte: the changes alone may do.
        const double own = looks(repair.work(), header);
        if (own < least) {
            least = own;
            best = repair.work();
            steps = {Step::HitsRepaired};
        }
    }
    if (std::optional<Patchwork> other = realigned(header, view(data.bytes), least, budget)) {
        best = std::move(other);
        steps = {Step::Realigned};
    }
    if (outcome.changes) {
        int codes = 0;
        const QByteArray changed = cleanScan(view(outcome.data), false, codes);
        if (std::optional<Patchwork> other = realigned(header, view(changed), least, budget)) {
            best = std::move(other);
            steps = {Step::HitsRepaired, Step::Realigned};
        }
    }
    if (!best) return std::nullopt;
    return written(header, std::move(*best), std::move(steps));
}

/// Rows with data nearest to a hole, column by column and downwards.
class NearestRows
{
public:
    explicit NearestRows(const Patchwork &work)
        : m_work(work), m_above(work.picture.mcusWide, -1), m_below(work.picture.mcusWide, -1)
    {
    }
    /// To be told of every MCU with data, in order.
    void pass(quint32 column, quint32 row) { m_above[column] = row; }
    /// -1 if there is none.
    qint64 above(quint32 column) const { return m_above[column]; }
    qint64 below(quint32 column, quint32 row)
    {
        const qint64 high = m_work.picture.mcusHigh;
        qint64 &at = m_below[column]; // the last answer, which holds until its row is reached
        if (at <= qint64(row)) {
            at = qint64(row) + 1;
            while (at < high && !m_work.have[size_t(at) * m_work.picture.mcusWide + column]) ++at;
        }
        return at < high ? at : -1;
    }

private:
    const Patchwork &m_work;
    std::vector<qint64> m_above;
    std::vector<qint64> m_below;
};

} // namespace

double Patchwork::share() const
{
    return have.empty() ? 0 : double(std::count(have.begin(), have.end(), true)) / double(have.size());
}

void fillHoles(Patchwork &work)
{
    Coefficients &picture = work.picture;
    const int blocks = picture.blocksPerMcu();
    NearestRows rows(work);
    for (quint32 index = 0; index < picture.mcuCount(); ++index) {
        const quint32 column = index % picture.mcusWide;
        const quint32 row = index / picture.mcusWide;
        if (work.have[index]) {
            rows.pass(column, row);
            continue;
        }
        const qint64 above = rows.above(column);
        const qint64 below = rows.below(column, row);
        qint16 *const own = picture.mcu(index);
        std::fill_n(own, blocks * 64, qint16(0));
        const auto level = [&](qint64 from, int block) {
            return int(picture.mcu(quint32(from) * picture.mcusWide + column)[block * 64]);
        };
        for (int block = 0; block < blocks; ++block) {
            int value = index ? picture.mcu(index - 1)[block * 64] : 0;
            if (above >= 0 && below >= 0) {
                const double down = double(row - above) / double(below - above);
                value = int(std::lround(level(above, block) * (1 - down) + level(below, block) * down));
            } else if (above >= 0 || below >= 0) {
                value = level(above >= 0 ? above : below, block);
            }
            own[block * 64] = qint16(value);
        }
    }
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
    if (header.frame != 0xC0 || header.scan.size() != header.components.size()) return std::nullopt;
    if (!header.fitsMemory()) return std::nullopt;
    const Coefficients shown = pictureAsShown(header, view(data.bytes), budget);
    const double plain = 1.02 * borderSteps(shown, header, shown.mcusHigh).sum();
    return header.restartInterval ? mendByIntervals(header, data, plain, budget)
                                  : mendByEdges(header, data, plain, budget);
}

} // namespace salvage
