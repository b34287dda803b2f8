#include "salvage/picture/ScanRepair.h"

#include "salvage/structure/Structure.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace salvage {

namespace {

constexpr double kWorst = 60;        // unfit() of an MCU that can't be read
constexpr quint32 kBehind = 20;      // MCUs behind a place by which changes are compared
constexpr quint32 kInFrontHard = 24; // MCUs in front of an error in which its cause may lie
constexpr quint32 kLean = 8;         // MCUs that have to lean the same way
constexpr int kMostChanges = 200;
constexpr int kMilliseconds = 2'000;

/// Levels of one component along an edge row.
struct Part
{
    size_t begin;
    size_t size;
};

std::vector<Part> partsOf(const std::vector<Component> &sampling)
{
    std::vector<Part> parts;
    size_t at = 0;
    for (const Component &each : sampling) {
        parts.push_back({at, size_t(each.h) * 8});
        at += size_t(each.h) * 8;
    }
    return parts;
}

template<size_t N>
float meanApart(const std::array<float, N> &a, const std::array<float, N> &b, size_t size)
{
    float sum = 0;
    for (size_t i = 0; i < size; ++i) sum += std::abs(a[i] - b[i]);
    return sum / float(size);
}

float meanStep(const std::array<float, 96> &a, const std::array<float, 96> &b, Part part)
{
    float sum = 0;
    for (size_t i = part.begin; i < part.begin + part.size; ++i) sum += a[i] - b[i];
    return sum / float(part.size);
}

/// Column `column` (0 or 7) of a block: the transform is its own with rows and columns exchanged.
std::array<float, 8> edgeColumn(const qint16 *block, const QuantTable &quant, int column)
{
    std::array<qint16, 64> turned{};
    QuantTable turnedQuant{};
    static const std::array<quint8, 64> kTurned = [] {
        std::array<quint8, 64> places{}; // zig-zag index of the mirrored place
        std::array<quint8, 64> zigZag{};
        for (size_t z = 0; z < 64; ++z) zigZag.at(kNaturalOrder[z]) = quint8(z);
        for (size_t z = 0; z < 64; ++z)
            places.at(z) = zigZag.at(size_t(kNaturalOrder[z] % 8 * 8 + kNaturalOrder[z] / 8));
        return places;
    }();
    for (size_t z = 0; z < 64; ++z) {
        turned[kTurned[z]] = block[z];
        turnedQuant[kTurned[z]] = quant[z];
    }
    return edgeRow(turned.data(), turnedQuant, column);
}

} // namespace

McuEdge edgeOf(const qint16 *mcu, const Coefficients &picture, const Header &header)
{
    McuEdge edge;
    size_t at = 0;
    const qint16 *first = mcu;
    for (size_t c = 0; c < picture.sampling.size(); ++c) {
        const Component &factors = picture.sampling[c];
        const QuantTable &quant = header.quant.at(header.components[c].quant);
        const qint16 *last = first + (factors.v - 1) * factors.h * 64;
        for (size_t h = 0; h < factors.h && at + 8 <= edge.top.size(); ++h, at += 8) {
            const auto top = edgeRow(first + h * 64, quant, 0);
            const auto bottom = edgeRow(last + h * 64, quant, 7);
            std::copy(top.begin(), top.end(), edge.top.begin() + qptrdiff(at));
            std::copy(bottom.begin(), bottom.end(), edge.bottom.begin() + qptrdiff(at));
        }
        for (size_t v = 0; c == 0 && v < factors.v; ++v) {
            const auto left = edgeColumn(first + v * factors.h * 64, quant, 0);
            const auto right = edgeColumn(first + (v * factors.h + factors.h - 1U) * 64, quant, 7);
            std::copy(left.begin(), left.end(), edge.left.begin() + qptrdiff(v * 8));
            std::copy(right.begin(), right.end(), edge.right.begin() + qptrdiff(v * 8));
        }
        first += factors.h * factors.v * 64;
    }
    return edge;
}

double unfitOf(const McuEdge &edge, const McuEdge *above, const McuEdge *before, const std::vector<Component> &sampling)
{
    constexpr double kBeside = 0.6;
    double value = 0;
    double weight = 0;
    if (above) {
        double apart = meanApart(edge.top, above->bottom, size_t(sampling[0].h) * 8);
        Part part{0, size_t(sampling[0].h) * 8};
        for (size_t c = 1; c < sampling.size(); ++c) {
            part = {part.begin + part.size, size_t(sampling[c].h) * 8};
            apart += 0.5 * std::abs(meanStep(edge.top, above->bottom, part));
        }
        value += apart;
        weight += 1;
    }
    if (before) {
        value += kBeside * meanApart(edge.left, before->right, size_t(sampling[0].v) * 8);
        weight += kBeside;
    }
    return weight > 0 ? std::min(kWorst, value / weight) : 0;
}

std::vector<float> unfitsOf(const Coefficients &picture, const Header &header, const Budget &budget)
{
    std::vector<McuEdge> row(picture.mcusWide); // the last MCU of each column
    std::vector<float> unfits(picture.mcuCount());
    for (quint32 index = 0; index < picture.mcuCount(); ++index) {
        if (index % 256 == 0 && budget.stopped()) break;
        const quint32 column = index % picture.mcusWide;
        const McuEdge edge = edgeOf(picture.mcu(index), picture, header);
        const McuEdge *above = index >= picture.mcusWide ? &row[column] : nullptr;
        unfits[index] = float(unfitOf(edge, above, column ? &row[column - 1] : nullptr, picture.sampling));
        row[column] = edge;
    }
    return unfits;
}

double meanUnfit(const Coefficients &picture, const Header &header, const std::vector<bool> &have, const Budget &budget)
{
    constexpr double kHole = 1.5; // times the middle: a hole costs more than what fits, and less than what doesn't
    std::vector<McuEdge> row(picture.mcusWide);
    std::vector<float> unfits;
    for (quint32 index = 0; index < picture.mcuCount(); ++index) {
        const quint32 column = index % picture.mcusWide;
        if (index % 256 == 0 && budget.stopped()) break;
        if (!have[index]) continue;
        const McuEdge edge = edgeOf(picture.mcu(index), picture, header);
        const McuEdge *above = index >= picture.mcusWide && have[index - picture.mcusWide] ? &row[column] : nullptr;
        const McuEdge *before = column && have[index - 1] ? &row[column - 1] : nullptr;
        if (above || before) unfits.push_back(float(unfitOf(edge, above, before, picture.sampling)));
        row[column] = edge;
    }
    if (unfits.empty()) return kWorst;
    const double sum = std::accumulate(unfits.begin(), unfits.end(), 0.0);
    const auto middle = unfits.begin() + qptrdiff(unfits.size() / 2);
    std::nth_element(unfits.begin(), middle, unfits.end());
    const double holes = double(picture.mcuCount()) - double(unfits.size());
    return (sum + std::max(0.0, holes) * (kHole * double(*middle) + 2)) / double(std::max(1U, picture.mcuCount()));
}

ScanRepair::ScanRepair(const Header &header, Budget &budget)
    : m_header(header), m_budget(budget), m_begin(budget.elapsed()), m_reader(header, {})
{
    m_work.picture = Coefficients(header);
    m_work.have.resize(m_work.picture.mcuCount());
    m_edges.resize(m_work.picture.mcuCount());
    m_scratch.resize(size_t(m_work.picture.blocksPerMcu()) * 64);
}

bool ScanRepair::outOfTime() const
{
    return m_budget.stopped() || m_budget.late() || m_budget.elapsed() - m_begin > kMilliseconds;
}

void ScanRepair::noteMcu(quint32 index)
{
    m_edges[index].reset();
    m_work.have[index] = true;
}

const McuEdge *ScanRepair::edgeAt(quint32 index) const
{
    if (!m_work.have[index]) return nullptr;
    if (!m_edges[index])
        m_edges[index] = std::make_unique<McuEdge>(edgeOf(m_work.picture.mcu(index), m_work.picture, m_header));
    return m_edges[index].get();
}

/// Finds the middle of what MCUs differ from their neighbours; damage takes little part in it.
void ScanRepair::learnUsual(ByteView data)
{
    constexpr quint32 kEnough = 4000;
    const quint32 wide = m_work.picture.mcusWide;
    std::vector<qint16> values;
    std::vector<bool> bad;
    int codes = 0;
    const QByteArray clean = cleanScan(data, m_header.restartInterval > 0, codes, m_budget);
    const quint32 read =
        decodeTolerantly(m_header, view(clean), std::min(kEnough, m_work.picture.mcuCount()), m_budget, values, bad);
    std::vector<McuEdge> edges;
    std::vector<double> unfits;
    for (quint32 i = 0; i < read; ++i) {
        edges.push_back(edgeOf(values.data() + i * m_scratch.size(), m_work.picture, m_header));
        if (i >= wide) unfits.push_back(unfit(edges[i], i, &edges[i - wide], &edges[i - 1]));
    }
    if (unfits.empty()) unfits.push_back(8);
    std::nth_element(unfits.begin(), unfits.begin() + qptrdiff(unfits.size() / 2), unfits.end());
    m_usual = std::clamp(unfits[unfits.size() / 2], 1.0, 20.0);
}

double ScanRepair::unfit(const McuEdge &edge, quint32 index, const McuEdge *above, const McuEdge *before) const
{
    return unfitOf(edge, above, index % m_work.picture.mcusWide ? before : nullptr, m_work.picture.sampling);
}

/// True where the last MCUs are all lighter, all darker or all of another colour than those above them, or fit so badly that
/// they stand in the wrong place.
bool ScanRepair::leans() const
{
    constexpr quint32 kManyUnfit = 12;
    const auto done = quint32(m_places.size());
    const quint32 wide = m_work.picture.mcusWide;
    if (done < kLean || done < m_quietUntil) return false;
    if (done >= kManyUnfit && m_first + done >= wide + kManyUnfit) {
        const double sum = std::accumulate(m_unfit.end() - kManyUnfit, m_unfit.end(), 0.0);
        const auto apart = [&](float each) { return each > 1.5 * m_usual; };
        if (sum > (1.8 * m_usual + 3) * kManyUnfit
            && std::count_if(m_unfit.end() - kManyUnfit, m_unfit.end(), apart) >= kManyUnfit - 2)
            return true;
    }
    const std::vector<Part> parts = partsOf(m_work.picture.sampling);
    const double limit = std::max(7.0, 1.3 * m_usual);
    for (size_t c = 0; c < parts.size(); ++c) {
        int up = 0;
        int down = 0;
        for (quint32 i = done - kLean; i < done; ++i) {
            const quint32 index = m_first + i;
            const McuEdge *own = edgeAt(index);
            const McuEdge *above = index < wide ? nullptr : edgeAt(index - wide);
            if (!own || !above) return false;
            const float step = meanStep(own->top, above->bottom, parts[c]);
            up += step > limit;
            down += step < -limit;
        }
        if (std::max(up, down) >= int(kLean) - 1) return true;
    }
    return false;
}

void ScanRepair::accept(const qint16 *mcu, const McuReader::Place &place)
{
    const quint32 index = m_first + quint32(m_places.size());
    const quint32 wide = m_work.picture.mcusWide;
    std::copy_n(mcu, m_scratch.size(), m_work.picture.mcu(index));
    m_work.have[index] = true;
    m_edges[index].reset();
    const McuEdge *above = index >= wide ? edgeAt(index - wide) : nullptr;
    const McuEdge *before = index > 0 ? edgeAt(index - 1) : nullptr;
    const double own = unfit(*edgeAt(index), index, above, before);
    // What lies far behind is seldom asked for, and can be worked out again.
    const quint32 kept = 2 * wide + 512;
    if (index >= kept) m_edges[index - kept].reset();
    m_places.push_back(place);
    m_unfit.push_back(float(own));
}

void ScanRepair::forgetFrom(quint32 number)
{
    for (quint32 i = number; i < m_places.size(); ++i) {
        m_work.have[m_first + i] = false;
    }
    m_places.resize(number);
    m_unfit.resize(number);
}

std::optional<size_t> ScanRepair::codeBetween(size_t from, size_t to) const
{
    const ByteView bytes = view(m_data);
    for (size_t at = from; at + 1 < std::min(to, bytes.size()); ++at)
        if (bytes[at] == 0xFF && bytes[at + 1] != 0) return at;
    return std::nullopt;
}

/// A lost stuffing zero, a hit one, another byte in the place of the FF, or both of the code put in.
std::vector<ScanRepair::Change> ScanRepair::changesAtCode(size_t code) const
{
    constexpr double kLikely = 0.85; // the zero behind an FF is what gets lost
    std::vector<Change> changes = {{code + 1, 1, QByteArray(1, '\0'), kLikely},
                                   {code + 1, 0, QByteArray(1, '\0'), kLikely},
                                   {code, 1, {}},
                                   {code, 2, {}}};
    for (int value = 0; value < 255; ++value) changes.push_back({code, 1, QByteArray(1, char(value))});
    return changes;
}

std::vector<ScanRepair::Change> ScanRepair::changesOfTwoBytes(size_t code) const
{
    std::vector<Change> changes;
    changes.reserve(255 * 256);
    for (int first = 0; first < 255; ++first)
        for (int second = 0; second < 255; ++second)
            changes.push_back({code, 2, QByteArray(1, char(first)) + char(second)});
    return changes;
}

std::vector<ScanRepair::Change> ScanRepair::changesBetween(size_t from, size_t to) const
{
    std::vector<Change> changes;
    const ByteView bytes = view(m_data);
    // What is wrong lies near the place where it shows, as a rule.
    for (size_t at = std::min(to, bytes.size()); at-- > from;) {
        for (int bit = 0; bit < 8; ++bit) changes.push_back({at, 1, QByteArray(1, char(bytes[at] ^ 1 << bit))});
        if (bytes[at] == '\n') changes.push_back({at, 0, QByteArray(1, '\r')});
        if (bytes[at] == '\r') changes.push_back({at, 1, {}});
    }
    return changes;
}

/// Reads on with a change from the MCU in which it lies, and takes it for the best if its MCUs fit better than those of the
/// best so far.
void ScanRepair::rate(const Change &change, Window window, Rated &best)
{
    constexpr size_t kBytes = 6000;
    const auto behind =
        std::upper_bound(m_places.begin(), m_places.end(), change.at,
                         [](size_t at, const McuReader::Place &place) { return at + 1 < place.offset; });
    const auto start = std::max<quint32>(window.begin, quint32(std::max<qptrdiff>(1, behind - m_places.begin()) - 1));
    const McuReader::Place &place = m_places[start];
    const size_t from = place.offset > 2 ? place.offset - 2 : 0;
    if (change.at < from) return;
    QByteArray bytes = m_data.mid(int(from), int(change.at - from)) + change.put
        + m_data.mid(int(change.at) + change.removed, int(kBytes));
    m_reader.reader = BitReader(view(bytes));
    McuReader::Place moved = place;
    moved.offset -= from;
    m_reader.goTo(moved);

    double value = 0;
    for (quint32 i = window.begin; i < start; ++i) value += m_unfit[i];
    const quint32 wide = m_work.picture.mcusWide;
    double readValue = value;
    std::vector<McuEdge> edges;
    edges.reserve(window.end - start);
    for (quint32 i = start; i < window.end && value * change.weight < best.value; ++i) {
        std::fill(m_scratch.begin(), m_scratch.end(), qint16(0));
        if (m_reader.readMcu(m_scratch.data()) != Fit::Error::None) {
            readValue = value;
            value += kWorst * (window.end - i);
            break;
        }
        const quint32 index = m_first + i;
        edges.push_back(edgeOf(m_scratch.data(), m_work.picture, m_header));
        const McuEdge *above = nullptr;
        if (i >= start + wide)
            above = &edges[i - start - wide];
        else if (index >= wide)
            above = edgeAt(index - wide);
        const McuEdge *before = i > start ? &edges[i - start - 1] : index ? edgeAt(index - 1) : nullptr;
        value += unfit(edges.back(), index, above, before);
        readValue = value;
    }
    const quint32 read = start + quint32(edges.size());
    const double mean = readValue / std::max(1U, read - window.begin);
    // The last MCU uses the data up.
    if (window.end == m_count && m_reader.reader.position() + 3 < size_t(bytes.size())) value += kWorst;
    value *= change.weight;
    if (value >= best.value) return;
    best = {value, mean, read, change};
}

void ScanRepair::rateAll(const std::vector<Change> &changes, Window window, Rated &best)
{
    for (size_t i = 0; i < changes.size(); ++i) {
        if (i % 64 == 63 && outOfTime()) return;
        rate(changes[i], window, best);
    }
}

/// True for a change by which the data are read well beyond the place in question, and fit about as usual.
bool ScanRepair::isGood(const Rated &best, Window window) const
{
    constexpr quint32 kBeyond = 5;
    const quint32 wanted = std::min(window.end, quint32(m_places.size()) + kBeyond);
    return best.change && best.read >= wanted && best.mean <= 2.2 * m_usual + 6;
}

void ScanRepair::apply(const Change &change)
{
    quint32 keep = 0;
    while (keep < m_places.size() && m_places[keep].offset <= change.at) ++keep;
    if (keep > 0) --keep; // the MCU in which it lies is read anew
    const McuReader::Place place = keep < m_places.size() ? m_places[keep] : McuReader::Place{};
    m_data.replace(int(change.at), change.removed, change.put);
    forgetFrom(keep);
    m_reader.reader = BitReader(view(m_data));
    m_reader.goTo(place);
    ++m_changes;
}

/// Looks for the change that explains an error at the MCU in hand, or the leaning of the last ones.
bool ScanRepair::mend(bool hard)
{
    if (m_changes >= kMostChanges || outOfTime() || m_places.empty()) return false;
    const auto done = quint32(m_places.size());
    const size_t now = m_reader.reader.position();
    const quint32 inFront = hard ? kInFrontHard : 3 * kLean;
    const Window window{done > inFront ? done - inFront : 0, std::min(m_count, done + kBehind)};
    const size_t from = m_places[window.begin].offset;
    Rated best;
    if (!hard) rate({from, 0, {}}, window, best); // as it stands
    const double asItStands = best.value;
    best.change.reset();
    if (const auto code = codeBetween(from, now + 3)) {
        rateAll(changesAtCode(*code), window, best);
        if (!isGood(best, window)) rateAll(changesOfTwoBytes(*code), window, best);
    }
    if (!isGood(best, window)) rateAll(changesBetween(from, now + 2), window, best);
    const bool better = hard || best.value < 0.6 * asItStands;
    if (!isGood(best, window) || !better) return false;
    apply(*best.change);
    return true;
}

ScanRepair::Outcome ScanRepair::run(ByteView data, quint32 first, quint32 count)
{
    m_data = toBytes(data);
    m_first = first;
    m_count = count;
    m_places.clear();
    m_unfit.clear();
    m_quietUntil = 0;
    m_changes = 0;
    if (m_usual <= 0) learnUsual(data);
    m_reader.reader = BitReader(view(m_data));
    m_reader.goTo({});
    std::vector<qint16> mcu(m_scratch.size());
    bool failed = false;
    while (m_places.size() < m_count && !failed && !m_budget.stopped()) {
        const McuReader::Place place = m_reader.place();
        std::fill(mcu.begin(), mcu.end(), qint16(0));
        if (m_reader.readMcu(mcu.data()) != Fit::Error::None) {
            failed = !mend(true);
            continue;
        }
        accept(mcu.data(), place);
        if (!leans()) continue;
        const McuReader::Place next = m_reader.place();
        if (mend(false)) continue;
        m_quietUntil = quint32(m_places.size()) + m_work.picture.mcusWide;
        m_reader.reader = BitReader(view(m_data));
        m_reader.goTo(next);
    }
    Outcome outcome;
    outcome.changes = m_changes;
    outcome.read = quint32(m_places.size());
    outcome.complete = outcome.read == m_count && m_reader.reader.position() + 3 >= size_t(m_data.size());
    outcome.data = m_data;
    return outcome;
}

} // namespace salvage
