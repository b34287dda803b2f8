#include "salvage/PictureReader.h"

#include "salvage/McuReader.h"
#include "salvage/Structure.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace salvage {

namespace {

constexpr size_t kMostScans = 100; // a file made of scan headers must not cost its square
constexpr quint32 kStopEvery = 4096;

/// Reads the tables of a DHT, DQT or DRI into a header; false for a body that can't be.
bool takeTables(Header &header, quint8 marker, ByteView body)
{
    if (marker == 0xDD) {
        header.restartInterval = wordAt(body, 0);
        return body.size() == 2;
    }
    if (marker == 0xC4) {
        size_t at = 0;
        while (at < body.size()) {
            PlacedTable placed = tableAt(body, at);
            if (!placed.end) return false;
            header.huffman[placed.key] = std::move(placed.table);
            at = placed.end;
        }
        return true;
    }
    for (size_t at = 0; at < body.size();) {
        const quint8 key = body[at++];
        const size_t width = key >> 4 ? 2 : 1;
        if ((key >> 4) > 1 || (key & 15) > 3 || at + 64 * width > body.size()) return false;
        QuantTable &table = header.quant[key & 15];
        for (size_t i = 0; i < 64; ++i) table[i] = width == 2 ? wordAt(body, at + 2 * i) : body[at + i];
        at += 64 * width;
    }
    return true;
}

bool takeFrame(Header &header, quint8 marker, ByteView body)
{
    if (body.size() < 9 || body[0] != 8 || body.size() != 6 + 3 * size_t(body[5])) return false;
    header.frame = marker;
    header.height = wordAt(body, 1);
    header.width = wordAt(body, 3);
    header.components.clear();
    for (size_t at = 6; at < body.size(); at += 3)
        header.components.push_back({body[at], quint8(body[at + 1] >> 4), quint8(body[at + 1] & 15), body[at + 2]});
    return true;
}

bool takeScan(Header &header, ByteView body)
{
    if (body.size() < 6 || body.size() != 4 + 2 * size_t(body[0])) return false;
    header.scan.clear();
    for (size_t at = 1; at + 4 < body.size(); at += 2) header.scan.push_back({body[at], body[at + 1]});
    std::copy(body.end() - 3, body.end(), header.spectral.begin());
    return true;
}

/// One scan over the coefficients of a picture.
class ScanReader
{
public:
    ScanReader(const Header &header, ByteView data, Coefficients &picture, Budget &budget)
        : m_header(header), m_picture(picture), m_budget(budget), m_reader(data), m_size(data.size())
    {
    }

    /// Reads the scan; adds to the counters of `reading`. False if its header can't be.
    bool run(ScansReading &reading);

private:
    struct Part : BlockReader
    {
        size_t component = 0;
    };

    bool prepare();
    void restart();
    bool readUnit(quint32 unit);
    bool readBlock(Part &part, qint16 *block);
    bool readDcFirst(Part &part, qint16 *block);
    bool readAcFirst(Part &part, qint16 *block);
    bool readAcRefinement(Part &part, qint16 *block);
    int refine(qint16 *block, int z, int zeros);
    bool startEndOfBand(int run);

    const Header &m_header;
    Coefficients &m_picture;
    Budget &m_budget;
    BitReader m_reader;
    size_t m_size;
    std::vector<Part> m_parts;
    quint32 m_unitsWide = 0;
    quint32 m_unitsHigh = 0;
    quint32 m_endOfBand = 0; // blocks that are still covered by an end-of-band run
};

bool ScanReader::prepare()
{
    for (const ScanComponent &each : m_header.scan) {
        Part part;
        const auto &components = m_header.components;
        const auto found =
            std::find_if(components.begin(), components.end(), [&](const Component &c) { return c.id == each.id; });
        if (found == components.end()) return false;
        part.component = size_t(found - components.begin());
        // Without progression these fields say nothing, spoilt or not.
        const bool dc = !m_header.progressive() || (m_header.spectral[0] == 0 && m_header.spectral[2] >> 4 == 0);
        const bool ac = !m_header.progressive() || m_header.spectral[1] > 0;
        for (const auto &[needed, key, decoder] :
             {std::tuple(dc, each.dcKey(), &part.dc), std::tuple(ac, each.acKey(), &part.ac)}) {
            const auto table = m_header.huffman.find(key);
            if (needed && table == m_header.huffman.end()) return false;
            if (needed) *decoder = HuffmanDecoder(table->second);
        }
        m_parts.push_back(std::move(part));
    }
    m_unitsWide = m_picture.mcusWide;
    m_unitsHigh = m_picture.mcusHigh;
    if (m_parts.size() == 1 && m_header.components.size() > 1) {
        // A component alone comes block by block, without the padding of MCUs.
        const Component &own = m_header.components[m_parts[0].component];
        const auto blocks = [](quint32 pixels, int factor, int mcu) {
            return (pixels * quint32(factor) + quint32(mcu) - 1) / quint32(mcu);
        };
        m_unitsWide = blocks(m_header.width, own.h, m_header.mcuWidth());
        m_unitsHigh = blocks(m_header.height, own.v, m_header.mcuHeight());
    }
    if (!m_header.progressive()) return true;
    const auto [start, end, approximation] = m_header.spectral;
    if (start > end || end > 63 || (start == 0 && end > 0)) return false;
    return start == 0 || m_parts.size() == 1;
}

void ScanReader::restart()
{
    m_reader.passMarker();
    m_endOfBand = 0;
    for (Part &part : m_parts) part.prediction = 0;
}

bool ScanReader::readUnit(quint32 unit)
{
    const quint32 column = unit % m_unitsWide;
    const quint32 row = unit / m_unitsWide;
    for (Part &part : m_parts) {
        const Component factors = m_parts.size() == 1 ? Component{} : m_picture.sampling[part.component];
        for (quint32 y = 0; y < factors.v; ++y)
            for (quint32 x = 0; x < factors.h; ++x)
                if (!readBlock(part, m_picture.block(part.component, column * factors.h + x, row * factors.v + y)))
                    return false;
    }
    return !m_reader.overrun();
}

bool ScanReader::readBlock(Part &part, qint16 *block)
{
    if (!m_header.progressive()) return part.read(m_reader, block) == Fit::Error::None;
    const bool refines = m_header.spectral[2] >> 4;
    if (m_header.spectral[0] > 0) return refines ? readAcRefinement(part, block) : readAcFirst(part, block);
    if (!refines) return readDcFirst(part, block);
    if (m_reader.take(1)) block[0] = qint16(block[0] | 1 << (m_header.spectral[2] & 15));
    return true;
}

bool ScanReader::readDcFirst(Part &part, qint16 *block)
{
    if (part.readDc(m_reader) != Fit::Error::None) return false;
    block[0] = qint16(part.prediction << (m_header.spectral[2] & 15));
    return true;
}

/// Begins a run of blocks without further coefficients (G.1.2.2); the one in hand is the first of them.
bool ScanReader::startEndOfBand(int run)
{
    m_endOfBand = (1u << run) - 1;
    if (run) m_endOfBand += quint32(m_reader.take(run));
    return true;
}

bool ScanReader::readAcFirst(Part &part, qint16 *block)
{
    if (m_endOfBand > 0) {
        --m_endOfBand;
        return true;
    }
    const auto [start, end, approximation] = m_header.spectral;
    for (int z = start; z <= end; ++z) {
        const int symbol = part.ac.next(m_reader);
        if (symbol < 0) return false;
        const int run = symbol >> 4;
        if ((symbol & 15) == 0) {
            if (run < 15) return startEndOfBand(run);
            z += 15;
            continue;
        }
        z += run;
        if (z > end) return false;
        block[z] = qint16(m_reader.takeValue(symbol & 15) * (1 << (approximation & 15)));
    }
    return true;
}

/// Gives one more bit to every value from `z` on that isn't zero, until `zeros` zeros were passed; the place behind them.
int ScanReader::refine(qint16 *block, int z, int zeros)
{
    const int bit = 1 << (m_header.spectral[2] & 15);
    for (; z <= m_header.spectral[1]; ++z) {
        if (block[z] == 0) {
            if (zeros-- == 0) break;
            continue;
        }
        if (m_reader.take(1) && !(std::abs(int(block[z])) & bit))
            block[z] = qint16(block[z] + (block[z] < 0 ? -bit : bit));
    }
    return z;
}

bool ScanReader::readAcRefinement(Part &part, qint16 *block)
{
    const auto [start, end, approximation] = m_header.spectral;
    const int bit = 1 << (approximation & 15);
    int z = start;
    if (m_endOfBand == 0) {
        while (z <= end) {
            const int symbol = part.ac.next(m_reader);
            if (symbol < 0 || m_reader.overrun()) return false;
            const int run = symbol >> 4;
            const int size = symbol & 15;
            if (size > 1) return false;
            if (size == 0 && run < 15) {
                startEndOfBand(run);
                ++m_endOfBand; // it covers what is left of this block too
                break;
            }
            const int value = size == 0 ? 0 : m_reader.take(1) ? bit : -bit;
            z = refine(block, z, run);
            if (value && z > end) return false;
            if (value) block[z] = qint16(value);
            ++z;
        }
    }
    if (m_endOfBand > 0) {
        refine(block, z, 64);
        --m_endOfBand;
    }
    return true;
}

bool ScanReader::run(ScansReading &reading)
{
    if (!prepare()) return false;
    const quint32 units = m_unitsWide * m_unitsHigh;
    reading.total += units;
    const quint32 interval = m_header.restartInterval ? m_header.restartInterval : units;
    for (quint32 unit = 0; unit < units;) {
        const quint32 end = std::min(units, unit + interval);
        quint32 read = unit;
        while (read < end && readUnit(read)) {
            ++read;
            if (read % kStopEvery == 0 && m_budget.stopped()) return true;
        }
        reading.done += read - unit;
        if (read < end) ++reading.errors;
        unit = end;
        if (unit == units) {
            // Data that are left over show that what was read is something else.
            if (read == end && m_reader.position() + 3 < m_size) ++reading.errors;
            break;
        }
        // Broken or not, an interval ends at its marker; where that isn't next, the rest can't be placed.
        if (m_reader.marker() > 0xFF || !isRestart(quint8(m_reader.marker()))) {
            if (read == end) ++reading.errors;
            break;
        }
        restart();
    }
    return true;
}

/// Passes tables from `at` on up to the next scan; offset of its entropy data, 0 where none follows.
size_t nextScan(Header &header, ByteView data, size_t at, bool &ended)
{
    while (at + 3 < data.size()) {
        const quint8 marker = data[at + 1];
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        if (marker == 0xD9) {
            ended = true;
            return 0;
        }
        const size_t length = wordAt(data, at + 2);
        const ByteView body = slice(data, at + 4, at + 2 + length);
        if (length < 2 || body.size() != length - 2) return 0;
        if (marker == 0xDA) return takeScan(header, body) ? at + 2 + length : 0;
        const bool isTable = marker == 0xC4 || marker == 0xDB || marker == 0xDD;
        if (isTable && !takeTables(header, marker, body)) return 0;
        at = nextMarker(data, at + 2 + length);
    }
    ended = true;
    return 0;
}

} // namespace

size_t nextMarker(ByteView data, size_t from)
{
    for (size_t at = from; at + 1 < data.size(); ++at) {
        const void *found = std::memchr(data.data() + at, 0xFF, data.size() - at - 1);
        if (!found) break;
        at = size_t(static_cast<const quint8 *>(found) - data.data());
        if (data[at + 1] != 0 && data[at + 1] != 0xFF && !isRestart(data[at + 1])) return at;
    }
    return data.size();
}

ScansReading readScans(const Header &header, ByteView data, Budget &budget)
{
    ScansReading reading;
    if (!header.decodable() || !header.fitsMemory()) return reading;
    budget.countDecode();
    // The shape is the frame's, however few components the first scan has.
    Header whole = header;
    whole.scan.resize(whole.components.size());
    reading.picture = Coefficients(whole);
    Header current = header;
    std::set<quint8> seen;
    for (size_t at = 0; reading.scans < kMostScans && !budget.stopped();) {
        const size_t end = nextMarker(data, at);
        if (!ScanReader(current, slice(data, at, end), reading.picture, budget).run(reading)) {
            ++reading.errors;
            break;
        }
        ++reading.scans;
        reading.end = end;
        if (!current.progressive() || current.spectral[0] == 0) // a component without its levels is none
            for (const ScanComponent &each : current.scan) seen.insert(each.id);
        bool ended = end + 3 >= data.size();
        at = ended ? 0 : nextScan(current, data, end, ended);
        if (at == 0) {
            reading.complete = ended && seen.size() == header.components.size();
            if (!ended) ++reading.errors;
            break;
        }
    }
    return reading;
}

std::optional<Header> readHeader(ByteView file, size_t &dataAt)
{
    Header header;
    if (file.size() < 4 || file[0] != 0xFF || file[1] != 0xD8) return std::nullopt;
    for (size_t at = 2; at + 3 < file.size();) {
        if (file[at] != 0xFF) return std::nullopt;
        const quint8 marker = file[at + 1];
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        const size_t length = wordAt(file, at + 2);
        const ByteView body = slice(file, at + 4, at + 2 + length);
        if (!isHeaderMarker(marker) || length < 2 || body.size() != length - 2) return std::nullopt;
        at += 2 + length;
        if (marker == 0xDA) {
            dataAt = at;
            if (!takeScan(header, body) || !header.decodable()) return std::nullopt;
            return header;
        }
        const bool isTable = marker == 0xC4 || marker == 0xDB || marker == 0xDD;
        if (isTable && !takeTables(header, marker, body)) return std::nullopt;
        if (isFrame(marker) && !takeFrame(header, marker, body)) return std::nullopt;
    }
    return std::nullopt;
}

} // namespace salvage
