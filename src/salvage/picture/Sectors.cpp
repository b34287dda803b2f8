#include "salvage/picture/Sectors.h"

#include "salvage/entropy/McuReader.h"
#include "salvage/picture/Mending.h"
#include "salvage/picture/ScanRepair.h"

#include <algorithm>
#include <numeric>

namespace salvage {

namespace {

constexpr std::array<size_t, 2> kSizes = {4096, 512};
constexpr int kMilliseconds = 800; // for swaps
constexpr int kMostRated = 100;    // swaps at one place by which the data are read on for a while
constexpr size_t kMostData = 8'000'000;

bool isWhole(const Header &header, const QByteArray &data, Budget &budget)
{
    return decode(header, view(data), budget).perfect;
}

std::optional<QByteArray> withoutDouble(const Header &header, ByteView data, Budget &budget)
{
    StopPoll poll(budget);
    for (const size_t size : kSizes) {
        size_t equal = 0;
        for (size_t at = 0; at + size < data.size() && !poll.stopped(); ++at) {
            equal = data[at] == data[at + size] ? equal + 1 : 0;
            if (equal < size) continue;
            QByteArray once = toBytes(data).remove(int(at + 1), int(size));
            if (isWhole(header, once, budget)) return once;
            break;
        }
    }
    return std::nullopt;
}

/// Looks for the sector that belongs in the place of the one in which the reading fails.
class SwapSearch
{
public:
    SwapSearch(const Header &header, const ScanData &data, Budget &budget)
        : m_header(header), m_data(data.raw), m_begin(data.offset), m_budget(budget), m_start(budget.elapsed())
    {
    }

    std::optional<QByteArray> run();

private:
    void readToError();
    std::optional<size_t> firstSeam(const std::vector<float> &unfits) const;
    void tryPlace(size_t at, size_t size);
    bool readsOn(const McuReader::Place &from, size_t at, size_t other, size_t size) const;
    QByteArray swapped(size_t at, size_t other, size_t size) const;
    double plainUnfit();
    void rate(size_t at, size_t other, size_t size);
    std::pair<quint32, quint32> mcusAround(ByteView data, size_t at, size_t size) const;
    bool outOfTime() const
    {
        return m_budget.stopped() || m_budget.late() || m_budget.elapsed() - m_start > kMilliseconds;
    }

    const Header &m_header;
    ByteView m_data;
    size_t m_begin; // of the data in the file, to which sectors are aligned
    Budget &m_budget;
    int m_start;
    std::vector<McuReader::Place> m_places;
    std::vector<size_t> m_suspects; // offsets at which damage shows
    int m_rated = 0;
    double m_plain = -1; // negative as long as nobody asked
    double m_least = 1e18;
    std::optional<QByteArray> m_best;
};

/// Reads the MCUs up to the first error, and notes where it stands and where they stop fitting each other before it.
void SwapSearch::readToError()
{
    McuReader reader(m_header, m_data);
    Coefficients picture(m_header);
    const quint32 count = m_header.mcuCount();
    quint32 read = 0;
    while (read < count && !(read % 512 == 0 && outOfTime())) {
        m_places.push_back(reader.place());
        if (reader.readMcu(picture.mcu(read)) != Fit::Error::None) break;
        ++read;
    }
    m_suspects = {reader.reader.position()};
    std::vector<float> unfits = unfitsOf(picture, m_header, m_budget);
    unfits.resize(read);
    // The MCU that doesn't fit ends in the wrong sector; it may begin in front of it.
    if (const auto seam = firstSeam(unfits))
        m_suspects.push_back(m_places[std::min(*seam + 1, m_places.size() - 1)].offset);
}

/// The number of the first MCU that several fit as badly from as foreign data do.
std::optional<size_t> SwapSearch::firstSeam(const std::vector<float> &unfits) const
{
    constexpr size_t kMcus = 8;
    if (unfits.size() < 2 * kMcus) return std::nullopt;
    std::vector<float> sorted = unfits;
    std::nth_element(sorted.begin(), sorted.begin() + qptrdiff(sorted.size() / 2), sorted.end());
    const double limit = (2.5 * double(sorted[sorted.size() / 2]) + 10) * kMcus;
    double sum = 0;
    for (size_t i = 0; i < unfits.size(); ++i) {
        sum += double(unfits[i]) - (i >= kMcus ? double(unfits[i - kMcus]) : 0);
        if (i >= m_header.mcusWide() + kMcus && sum > limit) return i + 1 - kMcus;
    }
    return std::nullopt;
}

QByteArray SwapSearch::swapped(size_t at, size_t other, size_t size) const
{
    QByteArray data = toBytes(m_data);
    std::swap_ranges(data.begin() + qptrdiff(at), data.begin() + qptrdiff(at + size), data.begin() + qptrdiff(other));
    return data;
}

/// True if the data are read beyond the sector at `at` with that at `other` in its place.
bool SwapSearch::readsOn(const McuReader::Place &from, size_t at, size_t other, size_t size) const
{
    constexpr size_t kBehind = 256;
    const size_t begin = from.offset > 2 ? from.offset - 2 : 0;
    QByteArray bytes = toBytes(slice(m_data, begin, at)) + toBytes(slice(m_data, other, other + size));
    const size_t crossed = size_t(bytes.size());
    bytes += other == at + size ? toBytes(slice(m_data, at, at + size))
                                : toBytes(slice(m_data, at + size, at + size + 2 * kBehind));
    McuReader reader(m_header, view(bytes));
    McuReader::Place place = from;
    place.offset -= begin;
    reader.goTo(place);
    const size_t wanted = std::min(crossed + kBehind, size_t(bytes.size()) - 1);
    while (reader.reader.position() < wanted)
        if (reader.readMcu(nullptr) != Fit::Error::None) return false;
    return true;
}

/// Numbers of the MCUs that lie in a sector, and of those of a row behind it.
std::pair<quint32, quint32> SwapSearch::mcusAround(ByteView data, size_t at, size_t size) const
{
    McuReader reader(m_header, data);
    quint32 first = 0;
    quint32 last = 0;
    for (quint32 i = 0; i < m_header.mcuCount() && reader.reader.position() < at + size; ++i) {
        if (reader.reader.position() < at) first = i;
        if (reader.readMcu(nullptr) != Fit::Error::None) break;
        last = i;
    }
    return {first, std::min(m_header.mcuCount(), last + m_header.mcusWide() + 1)};
}

/// The sum over the MCUs as they are shown without a swap.
double SwapSearch::plainUnfit()
{
    if (m_plain < 0) {
        const Coefficients shown = pictureAsShown(m_header, m_data, m_budget);
        const std::vector<float> unfits = unfitsOf(shown, m_header, m_budget);
        m_plain = std::accumulate(unfits.begin(), unfits.end(), 0.0);
    }
    return m_plain;
}

/// A swap by which the data happen to be read to their end leaves a seam; the right one leaves none.
void SwapSearch::rate(size_t at, size_t other, size_t size)
{
    if (m_rated++ >= kMostRated) return;
    const QByteArray data = swapped(at, other, size);
    Coefficients picture(m_header);
    DecodeWish wish;
    wish.values = &picture.values;
    if (!decode(m_header, view(data), m_budget, wish).perfect) return;
    std::vector<float> unfits = unfitsOf(picture, m_header, m_budget);
    const double all = std::accumulate(unfits.begin(), unfits.end(), 0.0);
    if (all >= plainUnfit()) return;
    double own = 0;
    for (const size_t sector : {at, other}) {
        const auto [from, to] = mcusAround(view(data), sector, size);
        const double sum = std::accumulate(unfits.begin() + from, unfits.begin() + to, 0.0);
        own = std::max(own, sum / std::max(1U, to - from));
    }
    std::nth_element(unfits.begin(), unfits.begin() + qptrdiff(unfits.size() / 2), unfits.end());
    const double usual = double(unfits[unfits.size() / 2]);
    if (own >= m_least || own > 2.2 * usual + 6) return;
    m_least = own;
    m_best = data;
}

void SwapSearch::tryPlace(size_t at, size_t size)
{
    const auto behind = std::find_if(m_places.begin(), m_places.end(),
                                     [at](const McuReader::Place &place) { return place.offset > at; });
    if (behind == m_places.begin()) return;
    const McuReader::Place from = *(behind - 1);
    m_rated = 0;
    for (size_t other = at % size; other + size <= m_data.size() && !outOfTime(); other += size)
        if (other != at && readsOn(from, at, other, size)) rate(at, other, size);
}

std::optional<QByteArray> SwapSearch::run()
{
    constexpr size_t kBack = 1; // sectors in front of a suspect in which its cause may lie
    readToError();
    for (const size_t suspect : m_suspects) {
        for (const size_t size : kSizes) {
            const size_t first = (size - m_begin % size) % size; // sector that lies in the data
            if (suspect < first) continue;
            const size_t last = (suspect - first) / size;
            for (size_t back = 0; back <= std::min(last, kBack) && !outOfTime(); ++back) {
                const size_t at = first + (last - back) * size;
                if (at + size <= m_data.size()) tryPlace(at, size);
            }
            if (m_best) return std::move(m_best);
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> undoSectors(const Header &header, const ScanData &data, Budget &budget)
{
    if (data.raw.size() > kMostData) return std::nullopt;
    std::optional<QByteArray> undone = withoutDouble(header, data.raw, budget);
    if (!undone && header.restartInterval == 0) undone = SwapSearch(header, data, budget).run();
    return undone;
}

} // namespace salvage
