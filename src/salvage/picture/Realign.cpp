// Realigning a scan without restart intervals by the edges of its MCUs.
#include "salvage/picture/Mending.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace salvage {

namespace {

constexpr int kMostEvents = 400;
constexpr int kMilliseconds = 1'000; // of one way
constexpr qint64 kMostRows = 24;     // of MCUs, that a hole may be high
constexpr size_t kMostPairs = 256;   // MCUs that are compared at a time

using Levels = std::array<float, 4>;

/// Top and bottom rows of samples of every MCU of the stream.
class Edges
{
public:
    Edges(const Header &header, const Coefficients &shape, const std::vector<qint16> &values, quint32 mcus,
          const Budget &budget)
        : m_components(shape.sampling.size())
    {
        for (size_t c = 0; c < m_components; ++c) {
            m_begin.at(c + 1) = m_begin.at(c) + size_t(shape.sampling[c].h) * 8;
        }
        m_top.resize(size_t(mcus) * width());
        m_bottom.resize(size_t(mcus) * width());
        const size_t mcuValues = size_t(shape.blocksPerMcu()) * 64;
        for (quint32 mcu = 0; mcu < mcus; ++mcu) {
            if (mcu % 256 == 0 && budget.stopped()) return;
            for (size_t c = 0; c < m_components; ++c) {
                const QuantTable &quant = header.quant.at(header.components[c].quant);
                const Component &factors = shape.sampling[c];
                const qint16 *first = values.data() + mcu * mcuValues + size_t(shape.firstBlock(c)) * 64;
                const qint16 *last = first + (factors.v - 1) * factors.h * 64;
                for (size_t h = 0; h < factors.h; ++h) {
                    put(m_top, mcu, m_begin.at(c) + h * 8, edgeRow(first + h * 64, quant, 0));
                    put(m_bottom, mcu, m_begin.at(c) + h * 8, edgeRow(last + h * 64, quant, 7));
                }
            }
        }
    }

    size_t components() const { return m_components; }
    size_t width() const { return m_begin.at(m_components); }
    size_t lumaWidth() const { return m_begin[1]; }

    /// Mean difference of each component between the top of one MCU and the bottom of another, `offset` added to that.
    Levels levels(quint32 lower, quint32 upper, const Levels &offset) const
    {
        Levels levels{};
        const float *top = m_top.data() + lower * width();
        const float *bottom = m_bottom.data() + upper * width();
        for (size_t c = 0; c < m_components; ++c) {
            float sum = 0;
            for (size_t i = m_begin.at(c); i < m_begin.at(c + 1); ++i) sum += top[i] - bottom[i];
            levels.at(c) = sum / float(m_begin.at(c + 1) - m_begin.at(c)) - offset.at(c);
        }
        return levels;
    }
    /// Mean size of the difference of the luminance, `level` taken off.
    float apart(quint32 lower, quint32 upper, float level) const
    {
        const float *top = m_top.data() + lower * width();
        const float *bottom = m_bottom.data() + upper * width();
        float sum = 0;
        for (size_t i = 0; i < lumaWidth(); ++i) sum += std::abs(top[i] - bottom[i] - level);
        return sum / float(lumaWidth());
    }

private:
    void put(std::vector<float> &edges, quint32 mcu, size_t at, const std::array<float, 8> &row) const
    {
        std::copy(row.begin(), row.end(), edges.begin() + qptrdiff(mcu * width() + at));
    }

    size_t m_components;
    std::array<size_t, 5> m_begin{};
    std::vector<float> m_top;
    std::vector<float> m_bottom;
};

float median(std::vector<float> values)
{
    if (values.empty()) return 0;
    const auto middle = values.begin() + qptrdiff(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// How well MCUs of the stream fit below those that are placed already.
struct FitBelow
{
    double residual = 0;
    Levels offset{};     ///< by which the components have to be lifted
    bool across = false; ///< some of them below a hole
};

class Realigner
{
public:
    Realigner(const Header &header, const McuStream &stream, RealignWay way, Budget &budget);

    std::optional<Patchwork> run();

private:
    struct Move
    {
        double residual = 0;
        qint64 shift = 0; ///< beside the one in force
        Levels offset{};
        qint64 from = 0; ///< index in the stream from which on it fits
    };

    qint64 above(qint64 place, qint64 rows = 1) const
    {
        const qint64 at = place - rows * m_wide;
        return at >= 0 && at < m_total ? m_streamAt[size_t(at)] : -1;
    }
    /// Rows up to the next MCU above that is placed; 0 if there is none.
    qint64 rowsToAbove(qint64 place, qint64 most) const
    {
        for (qint64 rows = 1; rows <= most && place - rows * m_wide >= 0; ++rows)
            if (above(place, rows) >= 0) return rows;
        return 0;
    }
    qint64 soundFrom(qint64 from, qint64 most) const;
    qint64 errorNear(qint64 index) const;
    bool isFinalBreak(qint64 from) const;
    qint64 farthestShift(qint64 index) const;
    struct Pair
    {
        quint32 lower = 0;
        quint32 upper = 0;
        qint64 rows = 1; ///< that lie between their places
    };
    size_t pairsBelow(qint64 from, qint64 shift, qint64 count, qint64 most, std::array<Pair, kMostPairs> &pairs) const;
    std::optional<FitBelow> fitBelow(qint64 from, qint64 shift, qint64 count, bool across) const;
    bool breaksAt(qint64 index) const;
    std::optional<Move> findMove(qint64 index) const;
    void considerShifts(qint64 index, qint64 gap, std::optional<Move> &best) const;
    bool isDamage(const Move &move, qint64 index) const;
    bool stays(const Move &move) const;
    void keepWhatFits(qint64 from, qint64 to);
    void place(qint64 index);
    void apply(const Move &move, qint64 index);
    Patchwork collect() const;
    bool outOfTime() const
    {
        return m_budget.stopped() || m_budget.late() || m_budget.elapsed() - m_begin > kMilliseconds;
    }

    const Header &m_header;
    Budget &m_budget;
    int m_begin;
    Coefficients m_shape;
    const McuStream &m_stream;
    const std::vector<bool> &m_bad;
    qint64 m_mcus = 0;  // in the stream
    qint64 m_total = 0; // in the picture
    qint64 m_wide = 0;
    qint64 m_window = 0;
    qint64 m_lastShift = 0; // that puts the end of the stream at the end of the picture, where it is known
    bool m_knowsLastShift = false;
    std::optional<Edges> m_edges;
    float m_usual = 0;              // difference of neighbours where all is in order
    float m_limit = 0;              // above it they don't fit
    std::vector<qint64> m_streamAt; // by place in the picture: index in the stream, -1 for a hole
    std::vector<Levels> m_offset;   // by index in the stream
    qint64 m_shift = 0;
    Levels m_level{};
    int m_moves = 0;
};

Realigner::Realigner(const Header &header, const McuStream &stream, RealignWay way, Budget &budget)
    : m_header(header), m_budget(budget), m_begin(budget.elapsed()), m_shape(header), m_stream(stream),
      m_bad(stream.bad), m_mcus(stream.mcus())
{
    m_total = m_shape.mcuCount();
    m_wide = m_shape.mcusWide;
    const qint64 window = way.longWindow ? std::clamp<qint64>(m_wide, 16, 48) : std::clamp<qint64>(m_wide / 2, 10, 40);
    m_window = window;
    m_knowsLastShift = way.knownShift;
    m_lastShift = m_total - m_mcus;
    if (m_mcus < m_wide + 2) return;
    m_edges.emplace(header, m_shape, m_stream.values, quint32(m_mcus), m_budget);
    std::vector<float> differences;
    for (qint64 i = m_wide; i < m_mcus; ++i) differences.push_back(m_edges->apart(quint32(i), quint32(i - m_wide), 0));
    m_usual = std::clamp(median(std::move(differences)), 1.0F, 20.0F);
    m_limit = std::max(3 * m_usual, m_usual + 10);
    m_streamAt.assign(size_t(m_total), -1);
    m_offset.resize(size_t(m_mcus));
}

/// MCUs of the stream and those above their places, of which at least half the wanted number must be there: the nearest
/// alone, where these are enough.
size_t Realigner::pairsBelow(qint64 from, qint64 shift, qint64 count, qint64 most,
                             std::array<Pair, kMostPairs> &pairs) const
{
    const auto enough = size_t(std::max<qint64>(3, count / 2));
    size_t n = 0;
    size_t near = 0;
    for (qint64 i = from; i < from + count; ++i) {
        const qint64 rows = rowsToAbove(i + shift, most);
        if (rows == 0) continue;
        near += rows == 1;
        pairs.at(n++) = {quint32(i), quint32(above(i + shift, rows)), rows};
    }
    if (near < enough) return n < enough ? 0 : n;
    const auto end =
        std::remove_if(pairs.begin(), pairs.begin() + qptrdiff(n), [](const Pair &p) { return p.rows > 1; });
    return size_t(end - pairs.begin());
}

std::optional<FitBelow> Realigner::fitBelow(qint64 from, qint64 shift, qint64 count, bool across) const
{
    constexpr double kFurther = 0.25; // what one more row in between adds to the differences
    count = std::min({count, m_mcus - from, qint64(kMostPairs)});
    if (count < 3) return std::nullopt;
    std::array<Pair, kMostPairs> pairs;
    std::array<Levels, kMostPairs> levels;
    const size_t n = pairsBelow(from, shift, count, across ? kMostRows : 1, pairs);
    if (n == 0) return std::nullopt;
    for (size_t i = 0; i < n; ++i)
        levels.at(i) = m_edges->levels(pairs.at(i).lower, pairs.at(i).upper, m_offset[pairs.at(i).upper]);
    FitBelow fit;
    Levels middle{};
    for (size_t c = 0; c < m_edges->components(); ++c) {
        std::array<float, kMostPairs> values;
        for (size_t i = 0; i < n; ++i) values.at(i) = levels.at(i).at(c);
        std::nth_element(values.begin(), values.begin() + qptrdiff(n / 2), values.begin() + qptrdiff(n));
        middle.at(c) = values.at(n / 2);
        fit.offset.at(c) = -middle.at(c);
    }
    double luma = 0;
    double chroma = 0;
    double rows = 0;
    for (size_t i = 0; i < n; ++i) {
        const Pair &pair = pairs.at(i);
        const float offset = m_offset[pair.upper][0];
        luma += std::min(m_edges->apart(pair.lower, pair.upper, offset + middle[0]), 4 * m_limit);
        for (size_t c = 1; c < m_edges->components(); ++c) chroma += std::abs(levels.at(i).at(c) - middle.at(c));
        rows += double(std::min<qint64>(pair.rows, 5) - 1);
    }
    const auto others = double(std::max<size_t>(1, m_edges->components() - 1));
    fit.residual = (luma / double(n) + chroma / (double(n) * others)) / (1 + kFurther * rows / double(n));
    fit.across = rows > 0;
    return fit;
}

/// True where the MCUs from `index` on no longer fit below what is there.
bool Realigner::breaksAt(qint64 index) const
{
    constexpr qint64 kLook = 6;
    constexpr int kMost = 4; // of them that have to say so
    if (m_bad[size_t(index)]) return true;
    if (index + m_shift < m_wide || index + kLook > m_mcus) return false;
    std::vector<float> luma;
    std::array<std::vector<float>, 4> levels;
    int far = 0;
    int veryFar = 0;
    int coloured = 0;
    for (qint64 i = index; i < index + kLook; ++i) {
        const qint64 upper = above(i + m_shift);
        if (upper < 0) continue;
        Levels offset = m_offset[size_t(upper)];
        for (size_t c = 0; c < 4; ++c) offset.at(c) -= m_level.at(c);
        const Levels level = m_edges->levels(quint32(i), quint32(upper), offset);
        const float apart = m_edges->apart(quint32(i), quint32(upper), offset[0]);
        luma.push_back(apart);
        far += apart > m_limit;
        veryFar += apart > 2 * m_limit;
        float most = 0;
        for (size_t c = 0; c < m_edges->components(); ++c) {
            levels.at(c).push_back(level.at(c));
            if (c) most = std::max(most, std::abs(level.at(c)));
        }
        coloured += most > 7;
    }
    if (luma.size() < kMost) return false;
    if (far >= kMost && (std::abs(median(levels[0])) > std::max(6.0F, 1.2F * m_usual) || veryFar >= kMost)) return true;
    for (size_t c = 1; c < m_edges->components(); ++c)
        if (std::abs(median(levels.at(c))) > 9 && coloured >= kMost) return true;
    return false;
}

/// MCUs from `from` on without an error, at most `most`.
qint64 Realigner::soundFrom(qint64 from, qint64 most) const
{
    const qint64 end = std::min(m_mcus, from + most);
    return std::find(m_bad.begin() + from, m_bad.begin() + end, true) - (m_bad.begin() + from);
}

/// How many MCUs may be missing at a break: those of a lost cluster, or as many as fill what was passed over there.
qint64 Realigner::farthestShift(qint64 index) const
{
    constexpr double kCluster = 4096;
    constexpr qint64 kMost = 1'500;
    const size_t passed = index + 1 < m_mcus ? m_stream.begin[size_t(index + 1)] - m_stream.begin[size_t(index)] : 0;
    const double ofMcu = double(m_stream.begin.back() + 1) / double(m_total);
    const double wanted = 2 * std::max(kCluster, double(passed)) / std::max(ofMcu, 0.1);
    const qint64 least = std::min<qint64>(m_wide, 48);
    if (!m_bad[size_t(index)]) return least;
    return std::clamp(qint64(std::min(wanted, double(kMost))), least, std::max(least, m_total - index - m_shift));
}

/// True where the data are read from an MCU to their end without an error: the last of the stream is the last of the picture.
bool Realigner::isFinalBreak(qint64 from) const
{
    return m_knowsLastShift && m_stream.ended && soundFrom(from, m_mcus - from) == m_mcus - from;
}

void Realigner::considerShifts(qint64 index, qint64 gap, std::optional<Move> &best) const
{
    const qint64 from = index + gap;
    constexpr double kAcross = 1.5; // what lies below a hole fits more easily
    const qint64 reach = farthestShift(index);
    std::optional<Move> own;
    const auto consider = [&](qint64 shift) {
        const bool isLast = m_knowsLastShift && m_shift + shift == m_lastShift;
        const bool across = isLast || m_bad[size_t(index)];
        const std::optional<FitBelow> fit = fitBelow(from, m_shift + shift, m_window, across);
        if (!fit) return;
        const double weight = shift == 0 ? 1
            : isLast                     ? 0.9
                                         : 1.08 + 0.001 * double(std::min<qint64>(std::abs(shift), 400));
        const double value = fit->residual * weight * (fit->across && !isLast ? kAcross : 1);
        if (!own || value < own->residual) own = Move{value, shift, fit->offset, from};
    };
    const qint64 last = m_lastShift - m_shift;
    if (isFinalBreak(from)) {
        consider(last);
    } else {
        for (qint64 shift = -std::min<qint64>(gap + 8, 700); shift <= reach; ++shift) {
            if (shift % 64 == 0 && outOfTime()) break;
            consider(shift);
        }
        if (m_knowsLastShift && last > reach && last < m_total) consider(last);
    }
    if (own && (!best || own->residual < best->residual * 0.85)) best = own;
}

/// The point behind a break from which on the stream fits again, with its shift and its levels.
std::optional<Realigner::Move> Realigner::findMove(qint64 index) const
{
    std::optional<Move> best;
    for (const qint64 gap : {1, 2, 3, 5, 8, 12, 18, 26, 40, 60, 90, 130, 190, 280, 400, 600}) {
        if ((best && gap > 60 && best->residual < m_limit) || outOfTime()) break;
        const qint64 from = index + gap;
        if (from + 3 >= m_mcus) break;
        const bool hurt = soundFrom(from, m_window) < std::min(m_window, m_mcus - from);
        if (hurt && gap < 26) continue;
        considerShifts(index, gap, best);
        if (best && best->residual < 1.5 * m_usual + 2) break;
    }
    return best;
}

bool Realigner::stays(const Move &move) const
{
    if (move.shift != 0) return false;
    float most = 0;
    for (size_t c = 0; c < m_edges->components(); ++c)
        most = std::max(most, std::abs(move.offset.at(c) - m_level.at(c)));
    return most < 3;
}

/// An error a little behind a break is what the break comes from: foreign data may be read for a while.
qint64 Realigner::errorNear(qint64 index) const
{
    const qint64 near = m_knowsLastShift ? std::clamp<qint64>(m_wide, 16, 256) : 16;
    const qint64 sound = soundFrom(index, near);
    return sound < near && index + sound < m_mcus ? index + sound : index;
}

void Realigner::place(qint64 index)
{
    const qint64 at = index + m_shift;
    if (at < 0 || at >= m_total) return;
    m_streamAt[size_t(at)] = index;
    m_offset[size_t(index)] = m_level;
}

/// A bad place alone: what fits beside it stays.
void Realigner::keepWhatFits(qint64 from, qint64 to)
{
    for (qint64 i = from; i < to; ++i) {
        const qint64 upper = above(i + m_shift);
        if (upper < 0 || m_bad[size_t(i)] || i + m_shift >= m_total) continue;
        const float offset = m_offset[size_t(upper)][0] - m_level[0];
        if (m_edges->apart(quint32(i), quint32(upper), offset) < m_limit) place(i);
    }
}

void Realigner::apply(const Move &move, qint64 index)
{
    if (stays(move)) keepWhatFits(index + 1, move.from);
    m_shift += move.shift;
    m_level = move.offset;
    // A whole row tells the levels better than the window in which the place was looked for.
    const std::optional<FitBelow> whole = fitBelow(move.from, m_shift, soundFrom(move.from, m_wide), true);
    if (whole) m_level = whole->offset;
    ++m_moves;
    for (qint64 at = std::max<qint64>(0, move.from + m_shift); at < m_total && m_streamAt[size_t(at)] >= 0; ++at)
        m_streamAt[size_t(at)] = -1;
}

std::optional<Patchwork> Realigner::run()
{
    if (!m_edges) return std::nullopt;
    int events = 0;
    for (qint64 i = 0; i < m_mcus && i + m_shift < m_total;) {
        if (i % 256 == 0 && m_budget.stopped()) return std::nullopt;
        if (i + m_shift < 0) {
            ++i;
            continue;
        }
        if (events > kMostEvents || !breaksAt(i)) {
            place(i++);
            continue;
        }
        ++events;
        i = errorNear(i);
        const std::optional<Move> move = findMove(i);
        if (!move || (move->residual > 2.5 * m_limit && !m_bad[size_t(i)])) {
            place(i++);
            continue;
        }
        if (stays(*move) && !m_bad[size_t(i)]) { // texture, not damage
            for (; i < std::min(move->from, m_mcus); ++i) place(i);
            continue;
        }
        apply(*move, i);
        i = move->from;
    }
    if (m_moves == 0) return std::nullopt;
    return collect();
}

Patchwork Realigner::collect() const
{
    Patchwork work;
    work.picture = m_shape;
    work.have.resize(size_t(m_total));
    work.endsInPlace = m_stream.ended && m_shift == m_lastShift;
    const size_t mcuValues = size_t(m_shape.blocksPerMcu()) * 64;
    for (qint64 at = 0; at < m_total; ++at) {
        const qint64 index = m_streamAt[size_t(at)];
        if (index < 0) continue;
        work.have[size_t(at)] = true;
        qint16 *to = work.picture.mcu(quint32(at));
        std::copy_n(m_stream.values.begin() + qptrdiff(size_t(index) * mcuValues), mcuValues, to);
        for (size_t c = 0; c < m_edges->components(); ++c) {
            const float step = std::max<quint16>(1, m_header.quant.at(m_header.components[c].quant)[0]);
            const auto lift = int(std::lround(m_offset[size_t(index)].at(c) * 8 / step));
            const int first = m_shape.firstBlock(c);
            for (int block = first; block < m_shape.firstBlock(c + 1); ++block)
                to[block * 64] = qint16(std::clamp(to[block * 64] + lift, -2047, 2047));
        }
    }
    return work;
}

} // namespace

std::optional<Patchwork> realign(const Header &header, const McuStream &stream, RealignWay way, Budget &budget)
{
    return Realigner(header, stream, way, budget).run();
}

} // namespace salvage
