#include "salvage/picture/McuStream.h"

#include "salvage/entropy/McuReader.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace salvage {

namespace {

constexpr int kMilliseconds = 800;  // of searching, for one stream
constexpr quint32 kFirm = 48;       // MCUs without an error that chance hardly gives
constexpr quint32 kWeak = 12;       // MCUs that are taken where nothing better is near
constexpr quint32 kBackMcus = 16;   // an error shows some MCUs behind its cause
constexpr size_t kNear = 256;       // bytes behind the first firm place that are looked through for a better one
constexpr size_t kFar = 6'000;      // bytes after which a weak one has to do
constexpr size_t kZeroSector = 500; // zeros in a row

struct Range
{
    size_t begin = 0;
    size_t end = 0;
};

std::vector<Range> zeroSectors(ByteView data, const Budget &budget)
{
    std::vector<Range> found;
    StopPoll poll(budget);
    for (size_t at = 0; at + kZeroSector <= data.size() && !poll.stopped();) {
        // The last byte that must be 0 tells first.
        size_t last = at + kZeroSector;
        while (last > at && data[last - 1] == 0) --last;
        if (last > at) {
            at = last;
            continue;
        }
        size_t end = at + kZeroSector;
        while (end < data.size() && data[end] == 0) ++end;
        found.push_back({at, end});
        at = end;
    }
    return found;
}

class StreamReader
{
public:
    StreamReader(const Header &header, ByteView data, quint32 most, Budget &budget)
        : m_data(data), m_most(most), m_budget(budget), m_searchBegin(budget.elapsed()), m_reader(header, data),
          m_mcuValues(size_t(m_reader.blocks) * 64), m_zeros(zeroSectors(data, budget))
    {
    }

    McuStream read();

private:
    using Place = McuReader::Place;
    /// Places are told apart by the bit at which they begin.
    static size_t bitOf(const Place &place) { return place.offset * 8 - size_t(place.bits); }

    bool spent() const { return m_budget.stopped() || m_budget.late(); }
    bool searchIsOver() const { return spent() || m_budget.elapsed() - m_searchBegin > kMilliseconds; }
    const Range *zerosAt(size_t offset) const;
    void readOn(const Place &from);
    std::optional<Place> nextPlace();
    std::vector<Place> placesIn(size_t byte) const;
    quint32 reach(const Place &from);
    void forgetFrom(size_t bit);
    void addBad();

    ByteView m_data;
    quint32 m_most;
    Budget &m_budget;
    int m_searchBegin;
    McuReader m_reader;
    size_t m_mcuValues;
    std::vector<Range> m_zeros;
    McuStream m_stream;
    using Levels = std::array<int, 4>;
    std::vector<Levels> m_levels;                // DC in front of each
    std::vector<size_t> m_bits;                  // where each MCU of the stream begins
    quint32 m_runBegin = 0;                      // number of the first MCU behind the last error
    bool m_ended = false;                        // the data are used up
    std::vector<size_t> m_dead;                  // bits in front of errors at which MCUs began
    std::unordered_map<size_t, quint32> m_reach; // MCUs that are read from a bit on, up to an error
};

const Range *StreamReader::zerosAt(size_t offset) const
{
    for (const Range &range : m_zeros)
        if (offset > range.begin && offset <= range.end) return &range;
    return nullptr;
}

/// Appends MCUs up to an error or the end of the data.
void StreamReader::readOn(const Place &from)
{
    constexpr quint32 kAskEvery = 512;
    m_reader.goTo(from);
    m_runBegin = m_stream.mcus();
    while (m_stream.mcus() < m_most) {
        if (m_stream.mcus() % kAskEvery == 0 && spent()) return;
        if (atEnd(m_reader.reader)) {
            m_stream.ended = m_ended = true;
            return;
        }
        const Place place = m_reader.place();
        if (zerosAt(place.offset)) return;
        m_stream.values.resize(m_stream.values.size() + m_mcuValues);
        if (m_reader.readMcu(m_stream.values.data() + m_stream.values.size() - m_mcuValues) != Fit::Error::None) {
            m_stream.values.resize(m_stream.values.size() - m_mcuValues);
            m_ended = m_reader.reader.overrun();
            return;
        }
        m_stream.bad.push_back(false);
        m_stream.begin.push_back(place.offset);
        m_bits.push_back(bitOf(place));
        m_levels.push_back(place.predictions);
    }
}

/// The places that begin with a bit of the byte at `byte`.
std::vector<McuReader::Place> StreamReader::placesIn(size_t byte) const
{
    const bool stuffed = byte > 0 && m_data[byte] == 0 && m_data[byte - 1] == 0xFF;
    if (stuffed) return {};
    const bool hasStuffing = m_data[byte] == 0xFF && byte + 1 < m_data.size() && m_data[byte + 1] == 0;
    std::vector<Place> places;
    for (int bits = 8; bits > 0; --bits) {
        Place place;
        place.offset = bits == 8 ? byte : byte + (hasStuffing ? 2 : 1);
        place.bits = bits % 8;
        places.push_back(place);
    }
    return places;
}

/// How many MCUs are read from a place on; paths that meet go on as one.
quint32 StreamReader::reach(const Place &from)
{
    std::vector<size_t> path;
    m_reader.goTo(from);
    quint32 rest = 0;
    while (true) {
        const Place place = m_reader.place();
        const size_t bit = bitOf(place);
        const auto known = m_reach.find(bit);
        if (known != m_reach.end()) {
            rest = known->second + (path.empty() ? 0 : 1);
            break;
        }
        path.push_back(bit);
        if (atEnd(m_reader.reader)) {
            rest = kFirm; // the end of the data is as good as many MCUs
            break;
        }
        if (zerosAt(place.offset) || path.size() > m_most) break;
        if (path.size() % 512 == 0 && searchIsOver()) break;
        if (m_reader.readMcu(nullptr) != Fit::Error::None) break;
    }
    for (auto bit = path.rbegin(); bit != path.rend(); ++bit) m_reach[*bit] = rest++;
    return path.empty() ? rest : rest - 1;
}

/// The place behind an error from which the data are read furthest.
std::optional<McuReader::Place> StreamReader::nextPlace()
{
    const quint32 count = m_stream.mcus();
    const quint32 back = std::max(m_runBegin, count > kBackMcus ? count - kBackMcus : 0);
    // What joins a path that failed fails with it.
    for (quint32 i = back; i < count; ++i) m_dead.push_back(m_bits[i]);
    m_reach.clear();
    for (const size_t bit : m_dead) m_reach[bit] = 0;
    size_t at = back < count ? m_stream.begin[back] : m_reader.place().offset;
    if (const Range *zeros = zerosAt(m_reader.place().offset)) at = zeros->end;
    size_t until = at + kFar;
    std::optional<Place> best;
    quint32 furthest = 0;
    for (; at < m_data.size() && !searchIsOver(); ++at) {
        if (at >= until && furthest >= kWeak) break;
        for (const Place &place : placesIn(at)) {
            const quint32 own = reach(place);
            if (own < 3 || own <= furthest + furthest / 4) continue;
            if (furthest < kFirm && own >= kFirm) until = at + kNear;
            furthest = own;
            best = place;
        }
    }
    return best;
}

/// MCUs that begin behind a place at which the reading was taken up again were no MCUs.
void StreamReader::forgetFrom(size_t bit)
{
    while (m_stream.mcus() > m_runBegin && m_bits.back() >= bit) {
        m_stream.bad.pop_back();
        m_stream.begin.pop_back();
        m_bits.pop_back();
    }
    m_stream.values.resize(m_stream.mcus() * m_mcuValues);
    m_levels.resize(m_stream.mcus());
}

void StreamReader::addBad()
{
    m_stream.values.resize(m_stream.values.size() + m_mcuValues);
    m_stream.bad.push_back(true);
    m_stream.begin.push_back(m_stream.begin.empty() ? 0 : m_stream.begin.back());
    m_bits.push_back(m_bits.empty() ? 0 : m_bits.back());
    m_levels.push_back(m_levels.empty() ? Levels{} : m_levels.back());
}

McuStream StreamReader::read()
{
    m_budget.countDecode();
    readOn({});
    while (!m_ended && m_stream.mcus() < m_most && !spent()) {
        Place onward = m_reader.place();
        onward.bits = 0;
        if (const Range *zeros = zerosAt(onward.offset++)) onward.offset = zeros->end;
        std::optional<Place> next = nextPlace();
        // Without time to search, the data are read on as they fall.
        if (!next && searchIsOver() && onward.offset < m_data.size()) next = onward;
        if (!next) break;
        forgetFrom(bitOf(*next));
        addBad();
        readOn({next->offset, next->bits, m_levels.empty() ? next->predictions : m_levels.back()});
    }
    return std::move(m_stream);
}

} // namespace

McuStream readStream(const Header &header, ByteView data, quint32 most, Budget &budget)
{
    return StreamReader(header, data, most, budget).read();
}

} // namespace salvage
