// Restart intervals: each is decoded for itself and put where its number says.
#include "salvage/picture/Mending.h"
#include "salvage/picture/ScanRepair.h"
#include "salvage/structure/Structure.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace salvage {

namespace {

constexpr size_t kMostToRepair = 60'000; // MCUs of the picture
constexpr int kMilliseconds = 5'000;     // for all intervals

/// The data between two markers that are believed.
struct Span
{
    size_t begin = 0;
    size_t end = 0;
    quint32 index = 0; ///< of the first interval in it
    quint32 count = 1; ///< intervals that it should hold
};

struct Mark
{
    size_t at = 0;
    quint32 number = 0; ///< 0 to 7
};

/// The restart markers, but none where there are more than `most`.
std::vector<Mark> marksIn(ByteView data, size_t most, const Budget &budget)
{
    std::vector<Mark> marks;
    StopPoll poll(budget);
    for (size_t at = 0; at + 1 < data.size(); ++at) {
        const void *found = std::memchr(data.data() + at, 0xFF, data.size() - at - 1);
        if (!found || poll.stopped()) break;
        at = size_t(static_cast<const quint8 *>(found) - data.data());
        if (!isRestart(data[at + 1])) continue;
        marks.push_back({at, quint32(data[at + 1] & 7)});
        if (marks.size() > most) return {};
    }
    return marks;
}

/// The markers that are believed, as far as one can tell by their numbers and by how far they stand apart: the chain in which
/// most of them have their turn. Intervals have about the same length, so the bytes between two markers say how often the
/// numbers went round.
class MarkChain
{
public:
    MarkChain(ByteView data, quint32 intervals, const Budget &budget)
        : m_budget(budget), m_marks(marksIn(data, 2 * size_t(intervals) + 1000, budget)), m_size(data.size()),
          m_intervals(intervals), m_usual(std::max(1.0, double(data.size()) / intervals))
    {
    }

    std::vector<Span> spans();

private:
    /// A marker in its best chain so far.
    struct Link
    {
        double score = -1e9;
        quint32 index = 0; ///< of the interval that begins behind it
        int before = -1;   ///< the marker before it in the chain, -1 for the start of the data
    };

    void extend(size_t i, quint32 index, size_t at, double score, int before);

    const Budget &m_budget;
    std::vector<Mark> m_marks;
    size_t m_size;
    quint32 m_intervals;
    double m_usual; // bytes of an interval
    std::vector<Link> m_links;
};

/// Tries marker `i` behind one at `at` that begins interval `index`.
void MarkChain::extend(size_t i, quint32 index, size_t at, double score, int before)
{
    const double expected = double(m_marks[i].at - at) / m_usual;
    const quint32 least = (m_marks[i].number + 8 - index % 8) % 8 + 1;
    for (quint32 step = least; step < expected + 16 && index + step < m_intervals; step += 8) {
        const double strange = std::min(3.0, 0.3 * std::abs(expected - step)) + 0.1 * (step - 1);
        const double own = score + 1 - strange;
        if (own > m_links[i].score) m_links[i] = {own, index + step, before};
    }
}

std::vector<Span> MarkChain::spans()
{
    constexpr size_t kReach = 40; // markers in a row that may be wrong
    m_links.assign(m_marks.size(), {});
    int last = -1;
    double best = -0.3 * std::abs(double(m_intervals) - 1);
    StopPoll poll(m_budget);
    for (size_t i = 0; i < m_marks.size() && !poll.stopped(); ++i) {
        if (i < kReach) extend(i, 0, 0, 0, -1);
        for (size_t k = i > kReach ? i - kReach : 0; k < i; ++k)
            if (m_links[k].score > -1e8) extend(i, m_links[k].index, m_marks[k].at, m_links[k].score, int(k));
        const double rest = double(m_size - m_marks[i].at) / m_usual - (m_intervals - m_links[i].index);
        const double own = m_links[i].score - std::min(3.0, 0.3 * std::abs(rest));
        if (own <= best) continue;
        best = own;
        last = int(i);
    }
    std::vector<Span> spans;
    size_t end = m_size;
    quint32 next = m_intervals;
    for (int i = last; i >= 0; i = m_links[size_t(i)].before) {
        const quint32 index = m_links[size_t(i)].index;
        spans.push_back({m_marks[size_t(i)].at + 2, end, index, next - index});
        end = m_marks[size_t(i)].at;
        next = index;
    }
    spans.push_back({0, end, 0, next});
    std::reverse(spans.begin(), spans.end());
    return spans;
}

class Resynchroniser
{
public:
    Resynchroniser(const Header &header, Budget &budget) : m_header(header), m_budget(budget)
    {
        m_header.restartInterval = 0;
        m_interval = header.restartInterval;
        m_work.picture = Coefficients(header);
        m_work.have.resize(header.mcuCount());
    }

    void read(ByteView data, const Span &span);
    void readFromEnd(ByteView data, const Span &span);
    void repairHits(ByteView raw);
    void readTails(ByteView data);
    Patchwork take() { return std::move(m_work); }

private:
    quint32 wanted(quint32 interval) const
    {
        const quint64 first = quint64(interval) * m_interval;
        return first >= m_work.have.size() ? 0 : quint32(std::min<quint64>(m_interval, m_work.have.size() - first));
    }
    void putTail(const McuStream &stream, quint32 tail, quint32 first, quint32 count);
    float liftBelow(size_t component, const qint16 *values, quint32 place, quint32 count) const;
    Fit readOne(ByteView data, quint32 interval, std::vector<qint16> &values);
    void put(quint32 interval, const std::vector<qint16> &values, quint32 mcus);

    Header m_header; // without an interval: each is a scan of its own
    Budget &m_budget;
    quint32 m_interval = 0;
    Patchwork m_work;
    std::vector<Span> m_broken; // whose first interval can't be read to its end
};

Fit Resynchroniser::readOne(ByteView data, quint32 interval, std::vector<qint16> &values)
{
    DecodeWish wish;
    wish.mcus = wanted(interval);
    wish.values = &values;
    return decode(m_header, data, m_budget, wish);
}

void Resynchroniser::put(quint32 interval, const std::vector<qint16> &values, quint32 mcus)
{
    const quint32 first = interval * m_interval;
    std::copy_n(values.begin(), size_t(mcus) * size_t(m_work.picture.blocksPerMcu()) * 64, m_work.picture.mcu(first));
    std::fill_n(m_work.have.begin() + first, mcus, true);
}

/// How many bytes may stand between two intervals whose marker isn't seen, the likeliest first.
std::vector<size_t> bytesToPass(ByteView data, size_t at, quint32 interval)
{
    // An FF that no longer belongs to a marker has become FE.
    const bool firstStands = at < data.size() && data[at] >= 0xFE;
    const bool secondStands = at + 1 < data.size() && data[at + 1] == (0xD0 | ((interval + 7) & 7));
    if (firstStands || secondStands) return {2, 0, 1, 3};
    return {0, 2, 1, 3};
}

/// Reads the intervals of a span one behind the other: where a marker is hit its bytes are passed, where it is lost the next
/// interval begins with the next byte.
void Resynchroniser::read(ByteView data, const Span &span)
{
    size_t at = span.begin;
    for (quint32 i = 0; i < span.count && !m_budget.stopped(); ++i) {
        const quint32 interval = span.index + i;
        if (wanted(interval) == 0 || at >= span.end) return;
        std::optional<Fit> best;
        std::vector<qint16> bestValues;
        size_t bestAt = at;
        bool bestEnds = false;
        for (const size_t passed : i ? bytesToPass(data, at, interval) : std::vector<size_t>{0}) {
            std::vector<qint16> values;
            const Fit fit = readOne(slice(data, at + passed, span.end), interval, values);
            const bool ends = i + 1 == span.count && at + passed + fit.end + 1 >= span.end;
            if (best && (fit.done < best->done || (fit.done == best->done && (bestEnds || !ends)))) continue;
            best = fit;
            bestValues = std::move(values);
            bestAt = at + passed;
            bestEnds = ends;
        }
        const bool whole = best->error == Fit::Error::None;
        // What doesn't begin where the last one ended is no interval.
        if (whole || i == 0) put(interval, bestValues, best->done);
        if (!whole) {
            m_broken.push_back({at, span.end, interval, span.count - i});
            readFromEnd(data, m_broken.back());
            return;
        }
        if (span.count == 1 && !bestEnds) m_broken.push_back({at, span.end, interval, 1});
        at = bestAt + best->end;
    }
}

/// Behind a broken interval the place of the next is lost; the last one of the span is the one that ends with it.
void Resynchroniser::readFromEnd(ByteView data, const Span &span)
{
    constexpr size_t kMostPlaces = 3000;
    if (span.count < 2 || span.end - span.begin > kMostPlaces) return;
    const quint32 last = span.index + span.count - 1;
    if (wanted(last) < 2) return;
    std::vector<qint16> values;
    for (size_t at = span.begin + 1; at + 2 < span.end && !m_budget.spent(); ++at) {
        const Fit fit = readOne(slice(data, at, span.end), last, values);
        if (fit.error != Fit::Error::None || at + fit.end + 1 < span.end) continue;
        put(last, values, fit.done);
        return;
    }
}

/// Once more through the broken intervals of which both ends are known, with the others around them to fit to.
void Resynchroniser::repairHits(ByteView raw)
{
    if (m_broken.empty() || m_work.have.size() > kMostToRepair) return;
    ScanRepair repair(m_header, m_budget);
    repair.work().picture.values.swap(m_work.picture.values);
    for (quint32 mcu = 0; mcu < m_work.have.size(); ++mcu)
        if (m_work.have[mcu]) repair.noteMcu(mcu);
    for (const Span &span : m_broken) {
        const quint32 first = span.index * m_interval;
        const quint32 count = wanted(span.index);
        if (span.count > 1 || count < 2 || m_budget.spent()) continue;
        repair.run(slice(raw, span.begin, span.end), first, count);
    }
    m_work = std::move(repair.work());
}

/// By how much a component has to be lifted to go with what stands above and below its MCUs: the middle of the steps.
float Resynchroniser::liftBelow(size_t component, const qint16 *values, quint32 place, quint32 count) const
{
    const Coefficients &picture = m_work.picture;
    const QuantTable &quant = m_header.quant.at(m_header.components[component].quant);
    const Component &factors = picture.sampling[component];
    const qptrdiff mcuValues = qptrdiff(picture.blocksPerMcu()) * 64;
    const qptrdiff first = qptrdiff(picture.firstBlock(component)) * 64;
    const qptrdiff last = first + (factors.v - 1) * factors.h * 64;
    std::vector<float> steps;
    for (quint32 i = 0; i < count; ++i) {
        const quint32 at = place + i;
        const quint32 wide = picture.mcusWide;
        const qint16 *const own = values + qptrdiff(i) * mcuValues;
        if (at >= wide && m_work.have[at - wide])
            steps.push_back(edgeLine(picture.mcu(at - wide) + last, quant, 7)[0] - edgeLine(own + first, quant, 0)[0]);
        if (at + wide < m_work.have.size() && m_work.have[at + wide])
            steps.push_back(edgeLine(picture.mcu(at + wide) + first, quant, 0)[0] - edgeLine(own + last, quant, 7)[0]);
    }
    if (steps.empty()) return 0;
    const auto middle = steps.begin() + qptrdiff(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return *middle;
}

/// Puts the MCUs of a stream from number `tail` on at the end of an interval of `count` MCUs from `first` on.
void Resynchroniser::putTail(const McuStream &stream, quint32 tail, quint32 first, quint32 count)
{
    Coefficients &picture = m_work.picture;
    const quint32 read = stream.mcus() - tail;
    const quint32 place = first + count - read;
    const size_t mcuValues = size_t(picture.blocksPerMcu()) * 64;
    std::vector<qint16> values(stream.values.begin() + qptrdiff(tail * mcuValues), stream.values.end());
    for (size_t c = 0; c < picture.sampling.size(); ++c) {
        const float perStep =
            std::sqrt(8.0F) / float(std::max<quint16>(1, m_header.quant.at(m_header.components[c].quant)[0]));
        const auto lift = int(std::lround(liftBelow(c, values.data(), place, read) * perStep));
        for (quint32 i = 0; i < read; ++i)
            for (int block = picture.firstBlock(c); block < picture.firstBlock(c + 1); ++block) {
                qint16 &level = values[i * mcuValues + size_t(block) * 64];
                level = qint16(std::clamp(level + lift, -2047, 2047));
            }
    }
    std::copy(values.begin(), values.end(), picture.mcu(place));
    std::fill_n(m_work.have.begin() + place, read, true);
}

/// What lies behind an error in an interval is read again up to its end, which is the end of the interval in the picture.
void Resynchroniser::readTails(ByteView data)
{
    constexpr quint32 kLeast = 3;
    for (const Span &span : m_broken) {
        const quint32 first = span.index * m_interval;
        const quint32 count = wanted(span.index);
        if (span.count > 1 || count < 2 * kLeast || m_budget.late() || m_budget.stopped()) continue;
        const auto begin = m_work.have.begin() + first;
        if (std::find(begin, begin + count, false) == begin + count) continue;
        const McuStream stream = readStream(m_header, slice(data, span.begin, span.end), count + 16, m_budget);
        const auto lastBad = std::find(stream.bad.rbegin(), stream.bad.rend(), true);
        const auto tail = quint32(stream.bad.rend() - lastBad);
        const quint32 read = stream.mcus() - tail;
        if (tail == 0 || !stream.ended || read < kLeast || read >= count) continue;
        // The head goes up to the error and no further; the places in between stay a hole.
        const auto head = quint32(std::find(stream.bad.begin(), stream.bad.end(), true) - stream.bad.begin());
        for (quint32 i = std::min(head, count); i < count; ++i) m_work.have[first + i] = false;
        putTail(stream, tail, first, count);
    }
}

} // namespace

std::optional<Patchwork> resynchronise(const Header &header, const ScanData &scan, Budget &budget)
{
    const ByteView data = view(scan.bytes);
    if (header.restartInterval == 0 || !header.decodable()) return std::nullopt;
    const quint32 intervals = (header.mcuCount() + header.restartInterval - 1) / header.restartInterval;
    const std::vector<Span> spans = MarkChain(data, intervals, budget).spans();
    Resynchroniser reader(header, budget);
    const int begin = budget.elapsed();
    for (const Span &span : spans) {
        if (budget.stopped() || budget.elapsed() - begin > kMilliseconds) break;
        reader.read(data, span);
    }
    reader.repairHits(scan.raw);
    reader.readTails(data);
    Patchwork work = reader.take();
    if (work.share() <= 0) return std::nullopt;
    return work;
}

} // namespace salvage
