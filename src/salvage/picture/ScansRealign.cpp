#include "salvage/picture/ScansRealign.h"

#include "salvage/entropy/ScanReader.h"
#include "salvage/picture/Picture.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

constexpr quint32 kStopEvery = 4096;
constexpr quint32 kMostUnits = 300'000;

/// The units of a scan in the order of its data, errors and all.
struct LooseUnits
{
    std::vector<qint16> values; // 64 for each block
    std::vector<bool> bad;      // by unit
    quint32 blocks = 1;         // of a unit
    quint32 count() const { return quint32(bad.size()); }
    qint16 *unit(quint32 number) { return values.data() + size_t(number) * blocks * 64; }
    const qint16 *unit(quint32 number) const { return values.data() + size_t(number) * blocks * 64; }
};

LooseUnits readAll(ScanReader &scan, quint32 most, const Budget &budget)
{
    LooseUnits units;
    units.blocks = scan.blocksPerUnit();
    while (units.count() < most && !scan.atEnd()) {
        if (units.count() % kStopEvery == 0 && budget.stopped()) break;
        units.values.resize(units.values.size() + size_t(units.blocks) * 64);
        qint16 *const own = units.unit(units.count());
        const bool sound = scan.readLoose(own);
        if (!sound && scan.reader.overrun()) break;
        if (!sound) {
            std::fill_n(own, size_t(units.blocks) * 64, qint16(0));
            scan.skipError();
        }
        units.bad.push_back(!sound);
    }
    units.values.resize(size_t(units.count()) * units.blocks * 64);
    return units;
}

/// Puts the units of one scan that gives levels or coefficients where they belong.
class Placer
{
public:
    Placer(const ScanPart &part, ScanReader &scan, const LooseUnits &units, Coefficients &picture, const Budget &budget)
        : m_header(part.header), m_scan(scan), m_units(units), m_picture(picture), m_budget(budget),
          m_total(scan.unitCount()), m_shift(qint64(m_total) - units.count())
    {
        // With far more units than the scan has the header of the next one is gone, and its data were read on.
        m_endKnown = m_shift > -qint64(m_total) / 4;
        m_quant.fill(8);
        const auto quant = part.header.quant.find(picture.sampling[scan.component()].quant);
        if (quant != part.header.quant.end()) m_quant = quant->second;
    }

    /// The first unit from which on nothing is sure.
    quint32 run();

private:
    using Change = std::vector<double>;
    using Line = std::array<float, 8>;
    using Edges = std::array<Line, 4>; // above, below, left, right

    bool givesLevels() const { return m_header.spectral[0] == 0; }
    const qint16 *front(quint32 place) const { return place < m_units.count() ? m_units.unit(place) : nullptr; }
    const qint16 *back(quint32 place) const
    {
        const qint64 at = place - m_shift;
        return m_endKnown && at >= 0 && at < m_units.count() ? m_units.unit(quint32(at)) : nullptr;
    }
    quint32 splitBetween() const;
    Edges edgesOf(const qint16 *own, quint32 place) const;
    Change unrestOf(bool fromFront) const;
    void levelOff(quint32 split, std::vector<int> &offsets) const;

    const Header &m_header;
    ScanReader &m_scan;
    const LooseUnits &m_units;
    Coefficients &m_picture;
    const Budget &m_budget;
    quint32 m_total;
    qint64 m_shift;
    bool m_endKnown = true;
    QuantTable m_quant{};
};

/// Outer samples of a block, or its level in all of them.
Placer::Edges Placer::edgesOf(const qint16 *own, quint32 place) const
{
    Edges edges{};
    if (givesLevels()) {
        for (auto &line : edges) line.fill(float(own[0]));
        return edges;
    }
    std::array<qint16, 64> block{};
    std::copy_n(m_scan.blockAt(place, m_picture), block.size(), block.begin());
    for (size_t z = m_header.spectral[0]; z <= m_header.spectral[1]; ++z) block.at(z) = own[z];
    const Samples samples = inverseDct(block.data(), m_quant);
    for (size_t i = 0; i < 8; ++i) {
        edges[0][i] = samples[i];
        edges[1][i] = samples[56 + i];
        edges[2][i] = samples[8 * i];
        edges[3][i] = samples[8 * i + 7];
    }
    return edges;
}

/// How little each unit goes with those before and above it.
Placer::Change Placer::unrestOf(bool fromFront) const
{
    const quint32 wide = m_scan.unitsWide();
    const auto at = [&](quint32 place) { return fromFront ? front(place) : back(place); };
    const auto apart = [](const Line &a, const Line &b) {
        double sum = 0;
        for (size_t i = 0; i < a.size(); ++i) sum += double(std::abs(a[i] - b[i]));
        return sum;
    };
    Change change(m_total);
    std::vector<Edges> row(wide); // of the last units of each column
    double sum = 0;
    quint32 known = 0;
    for (quint32 place = 0; place < m_total; ++place) {
        if (place % kStopEvery == 0 && m_budget.stopped()) break;
        const qint16 *own = at(place);
        if (!own) continue;
        const quint32 column = place % wide;
        const Edges edges = edgesOf(own, place);
        if (place >= wide && at(place - wide)) change[place] += apart(edges[0], row[column][1]);
        if (column && at(place - 1)) change[place] += apart(edges[2], row[column - 1][3]);
        row[column] = edges;
        sum += change[place];
        ++known;
    }
    // What isn't there costs more than what is.
    const double missing = known ? 4 * sum / known : 0;
    for (quint32 place = 0; place < m_total; ++place)
        if (!at(place)) change[place] = missing;
    return change;
}

/// The place where the units counted from the end take over.
quint32 Placer::splitBetween() const
{
    const auto firstBad = std::find(m_units.bad.begin(), m_units.bad.end(), true);
    const auto sure = quint32(std::min<qint64>(firstBad - m_units.bad.begin(), m_total));
    if (m_shift == 0 || !m_endKnown) return sure;
    const Change ahead = unrestOf(true);
    const Change behind = unrestOf(false);
    double value = 0; // of the split in hand, against that at 0
    double least = 0;
    quint32 best = 0;
    for (quint32 split = 1; split <= sure; ++split) {
        value += ahead[split - 1] - behind[split - 1];
        if (value >= least) continue;
        least = value;
        best = split;
    }
    return best;
}

/// What the levels behind the split differ by from those above them, block by block of a unit.
void Placer::levelOff(quint32 split, std::vector<int> &offsets) const
{
    const quint32 wide = m_scan.unitsWide();
    const quint32 from = std::min(m_total, split + 2); // the first ones are a break's
    for (quint32 block = 0; block < m_units.blocks; ++block) {
        std::vector<int> differences;
        for (quint32 place = from; place < std::min(m_total, split + wide); ++place) {
            const qint16 *own = back(place);
            const qint16 *above = place >= wide ? front(place - wide) : split ? front(split - 1) : nullptr;
            if (own && above) differences.push_back(above[block * 64] - own[block * 64]);
        }
        if (differences.empty()) continue;
        const auto middle = differences.begin() + qptrdiff(differences.size() / 2);
        std::nth_element(differences.begin(), middle, differences.end());
        offsets[block] = *middle;
    }
}

quint32 Placer::run()
{
    const quint32 split = splitBetween();
    std::vector<int> offsets(m_units.blocks);
    if (givesLevels() && m_shift != 0) levelOff(split, offsets);
    for (quint32 place = 0; place < m_total; ++place) {
        const qint16 *own = place < split ? front(place) : back(place);
        if (own) m_scan.place(place, own, place < split ? nullptr : offsets.data(), m_picture);
    }
    return split;
}

class ScansRealigner
{
public:
    ScansRealigner(const Header &header, Budget &budget) : m_header(header), m_budget(budget) {}

    std::optional<Coefficients> run(const std::vector<ScanPart> &parts, ByteView data);

private:
    bool readWhole(const ScanPart &part, ByteView data);
    void readSure(const ScanPart &part, ByteView data);
    void readOn(const ScanPart &part, ByteView data);
    quint32 &limitOf(const ScanPart &part);

    const Header &m_header;
    Budget &m_budget;
    Coefficients m_picture;
    bool m_lost = false;                // levels can't be placed
    std::map<quint8, quint32> m_limits; // by component: blocks whose coefficients are sure
};

quint32 &ScansRealigner::limitOf(const ScanPart &part)
{
    return m_limits.emplace(part.header.scan[0].id, kMostUnits).first->second;
}

/// True where the scan is whole; else the picture stays.
bool ScansRealigner::readWhole(const ScanPart &part, ByteView data)
{
    ScansReading reading;
    reading.picture = m_picture;
    m_budget.countDecode();
    if (!readScan(part.header, data, reading, m_budget)) return false;
    if (reading.errors || reading.done != reading.total) return false;
    m_picture = std::move(reading.picture);
    return true;
}

/// A scan that refines, as far as what it refines is sure.
void ScansRealigner::readSure(const ScanPart &part, ByteView data)
{
    ScanReader scan(part.header, data);
    if (!scan.usable()) return;
    const bool levels = part.header.spectral[0] == 0;
    quint32 unused = kMostUnits;
    quint32 &limit = levels ? unused : limitOf(part);
    const quint32 end = std::min(limit, scan.unitCount());
    for (quint32 unit = 0; unit < end; ++unit) {
        if (unit % kStopEvery == 0 && m_budget.stopped()) return;
        if (scan.readUnit(unit, m_picture)) continue;
        limit = unit;
        return;
    }
}

/// A scan that gives levels or coefficients.
void ScansRealigner::readOn(const ScanPart &part, ByteView data)
{
    ScanReader scan(part.header, data);
    if (!scan.usable()) return;
    const LooseUnits units = readAll(scan, 2 * scan.unitCount() + 1000, m_budget);
    if (units.count() == 0) return;
    // Levels that are off are so everywhere behind: where a break is no short one no edge tells by how much.
    constexpr auto kShort = 3;
    m_lost = m_lost || (part.header.spectral[0] == 0 && std::count(units.bad.begin(), units.bad.end(), true) > kShort);
    const quint32 sure = Placer(part, scan, units, m_picture, m_budget).run();
    if (part.header.spectral[0] == 0) return;
    quint32 &limit = limitOf(part);
    limit = std::min(limit, sure);
}

std::optional<Coefficients> ScansRealigner::run(const std::vector<ScanPart> &parts, ByteView data)
{
    Header whole = m_header;
    whole.scan.resize(whole.components.size());
    m_picture = Coefficients(whole);
    bool broken = false;
    for (const ScanPart &part : parts) {
        if (m_budget.spent()) break;
        const ByteView own = slice(data, part.begin, part.end);
        const bool refines = part.header.spectral[2] >> 4;
        const bool sure = part.header.spectral[0] == 0 || limitOf(part) == kMostUnits;
        if (sure && readWhole(part, own)) continue;
        broken = true;
        if (refines)
            readSure(part, own);
        else
            readOn(part, own);
    }
    if (!broken || m_lost || m_budget.stopped()) return std::nullopt;
    return std::move(m_picture);
}

} // namespace

std::optional<Coefficients> realignScans(const Header &header, const ScansData &scans, Budget &budget)
{
    if (!header.progressive() || !header.decodable() || !header.fitsMemory() || header.restartInterval)
        return std::nullopt;
    Header whole = header;
    whole.scan.resize(whole.components.size());
    if (quint64(header.mcuCount()) * quint64(Coefficients(whole).blocksPerMcu()) > kMostUnits) return std::nullopt;
    const QByteArray joined = scans.joined();
    return ScansRealigner(header, budget).run(splitScans(header, view(joined)), view(joined));
}

} // namespace salvage
