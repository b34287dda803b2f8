#include "salvage/entropy/McuCount.h"

#include "salvage/entropy/McuReader.h"
#include "salvage/entropy/PictureReader.h"
#include "salvage/structure/Structure.h"

#include <algorithm>
#include <map>

namespace salvage {

namespace {

/// Offset of the next restart marker from `from` on, or the end of the data.
size_t nextRestart(ByteView data, size_t from)
{
    for (size_t at = from; at + 1 < data.size(); ++at)
        if (data[at] == 0xFF && isRestart(data[at + 1])) return at;
    return data.size();
}

/// Offset of the next run of zeros that no picture has: what a lost sector leaves. The end of the data if there is none.
size_t nextHole(ByteView data, size_t from)
{
    constexpr size_t kRun = 64; // of all-zero codes with nothing behind them; 512 bits tell no more than a few blocks
    size_t zeros = 0;
    for (size_t at = from; at < data.size(); ++at) {
        zeros = data[at] == 0 ? zeros + 1 : 0;
        if (zeros == kRun) return at + 1 - kRun;
    }
    return data.size();
}

/// The one scan of a sequential picture, interval by interval.
class IntervalCounter
{
public:
    IntervalCounter(const Header &header, ByteView data) : m_mcus(header, data), m_data(data)
    {
        m_count.counted = true;
        m_count.total = header.mcuCount();
        m_length = header.restartInterval ? header.restartInterval : m_count.total;
    }

    McuCount run(const Budget &budget)
    {
        for (quint64 interval = 0; interval * m_length < m_count.total && !budget.stopped();) {
            readInterval(std::min(m_length, m_count.total - interval * m_length));
            ++interval;
            if (interval * m_length >= m_count.total) break;
            const quint64 lost = goToRestart(interval - 1);
            if (lost > 0) m_count.missing = m_count.faulty = true;
            interval += lost;
        }
        // Up to three bytes more are what encoders fill with.
        if (m_mcus.reader.position() + 3 < m_data.size()) m_count.faulty = true;
        if (m_ended && m_count.decoded < m_count.total) m_count.missing = true;
        return m_count;
    }

private:
    void readInterval(quint64 mcus)
    {
        m_ended = false;
        if (m_hole < m_mcus.reader.position()) m_hole = nextHole(m_data, m_mcus.reader.position());
        for (quint64 i = 0; i < mcus; ++i, ++m_count.decoded) {
            if (m_mcus.reader.position() > m_hole) { // zeros are codes too, and read on
                m_count.missing = m_count.faulty = true;
                return;
            }
            if (atEnd(m_mcus.reader)) {
                m_ended = m_count.missing = true;
                return;
            }
            const Fit::Error error = m_mcus.readMcu(nullptr);
            if (error == Fit::Error::None) continue;
            m_ended = error == Fit::Error::DataEnded;
            m_count.faulty = true;
            return;
        }
    }

    /// Goes behind the marker that ends interval `number`, or a later one; how many intervals are passed over, all
    /// that are left where no marker follows. A marker that is out of turn by more than two ends the interval all the
    /// same.
    quint64 goToRestart(quint64 number)
    {
        for (size_t at = nextRestart(m_data, m_mcus.reader.position()); at < m_data.size();
             at = nextRestart(m_data, at + 2)) {
            const quint64 ahead = (quint64(m_data[at + 1] & 7) + 8 - number % 8) % 8;
            if (ahead >= 6) continue; // of an interval that is over
            m_mcus.reader.jumpTo(at);
            m_mcus.reader.marker(); // reads up to it
            m_mcus.restart();
            return ahead <= 2 ? ahead : 0;
        }
        return m_count.total;
    }

    McuReader m_mcus;
    ByteView m_data;
    McuCount m_count;
    quint64 m_length = 0;
    size_t m_hole = nextHole(m_data, 0);
    bool m_ended = false; ///< the data of the last interval ended early
};

} // namespace

McuCount countMcus(ByteView file, Budget &budget)
{
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(file, dataAt, true);
    if (!header) return {};
    if (!header->progressive() && header->scan.size() == header->components.size())
        return IntervalCounter(*header, slice(file, dataAt, nextMarker(file, dataAt))).run(budget);
    const ScansReading reading = readScans(*header, slice(file, dataAt, file.size()), budget);
    McuCount count;
    count.counted = reading.total > 0;
    count.decoded = reading.done;
    count.total = reading.total;
    count.faulty = reading.errors > 0 || !reading.complete;
    count.missing = reading.done < reading.total;
    return count;
}

bool scansAreComplete(ByteView file)
{
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(file, dataAt, true);
    if (!header) return false;
    // The lowest bit that each coefficient of each component was given.
    constexpr quint8 kNone = 0xFF;
    std::map<quint8, std::array<quint8, 64>> lowest;
    for (const Component &each : header->components) lowest[each.id].fill(kNone);
    for (const ScanPart &part : splitScans(*header, slice(file, dataAt, file.size()))) {
        const auto &[first, last, bits] = part.header.spectral;
        for (const ScanComponent &each : part.header.scan)
            for (int k = first; k <= std::min<int>(last, 63); ++k)
                lowest[each.id][size_t(k)] = header->progressive() ? bits & 15 : 0;
    }
    return std::all_of(lowest.begin(), lowest.end(), [](const auto &component) {
        return std::all_of(component.second.begin(), component.second.end(), [](quint8 bit) { return bit == 0; });
    });
}

} // namespace salvage
