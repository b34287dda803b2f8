#include "salvage/entropy/ScanReader.h"

#include "salvage/structure/Structure.h"

#include <algorithm>
#include <tuple>

namespace salvage {

ScanReader::ScanReader(const Header &header, ByteView data) : reader(data), m_header(header)
{
    m_usable = prepare();
}

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
        if (m_header.scan.size() > 1) {
            part.h = found->h;
            part.v = found->v;
        }
        m_parts.push_back(std::move(part));
    }
    m_unitsWide = m_header.mcusWide();
    m_unitsHigh = m_header.mcusHigh();
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
    reader.passMarker();
    m_endOfBand = 0;
    for (Part &part : m_parts) part.prediction = 0;
}

bool ScanReader::readUnit(quint32 unit, Coefficients &picture)
{
    const quint32 column = unit % m_unitsWide;
    const quint32 row = unit / m_unitsWide;
    for (Part &part : m_parts) {
        for (quint32 y = 0; y < part.v; ++y)
            for (quint32 x = 0; x < part.h; ++x)
                if (!readBlock(part, picture.block(part.component, column * part.h + x, row * part.v + y)))
                    return false;
    }
    return !reader.overrun();
}

bool ScanReader::readLoose(qint16 *blocks)
{
    for (Part &part : m_parts) {
        for (quint32 i = 0; i < part.h * part.v; ++i, blocks += 64)
            if (!readBlock(part, blocks)) return false;
    }
    return !reader.overrun();
}

void ScanReader::skipError()
{
    reader.skip(1);
    m_endOfBand = 0;
}

void ScanReader::place(quint32 unit, const qint16 *blocks, const int *offsets, Coefficients &picture) const
{
    const quint32 column = unit % m_unitsWide;
    const quint32 row = unit / m_unitsWide;
    int number = 0;
    for (const Part &part : m_parts) {
        for (quint32 y = 0; y < part.v; ++y)
            for (quint32 x = 0; x < part.h; ++x, ++number, blocks += 64) {
                qint16 *const to = picture.block(part.component, column * part.h + x, row * part.v + y);
                for (int z = m_header.spectral[0]; z <= m_header.spectral[1]; ++z) to[z] = blocks[z];
                if (offsets) to[0] = qint16(to[0] + offsets[number]);
            }
    }
}

quint32 ScanReader::blocksPerUnit() const
{
    quint32 sum = 0;
    for (const Part &part : m_parts) sum += part.h * part.v;
    return sum;
}

bool ScanReader::standsAtRestart()
{
    return reader.marker() <= 0xFF && isRestart(quint8(reader.marker()));
}

bool ScanReader::atEnd()
{
    if (m_endOfBand > 0 || !reader.marker()) return false;
    const int left = reader.left(); // as it is once the marker was looked for
    if (left >= 8) return false;
    // No code consists of ones alone, so the filling can't be taken for one.
    return left <= 0 || reader.peek16() >> (16 - left) == (1U << left) - 1;
}

bool ScanReader::readBlock(Part &part, qint16 *block)
{
    if (!m_header.progressive()) return part.read(reader, block) == Fit::Error::None;
    const bool refines = m_header.spectral[2] >> 4;
    if (m_header.spectral[0] > 0) return refines ? readAcRefinement(part, block) : readAcFirst(part, block);
    if (!refines) return readDcFirst(part, block);
    if (reader.take(1)) block[0] = qint16(block[0] | 1 << (m_header.spectral[2] & 15));
    return true;
}

bool ScanReader::readDcFirst(Part &part, qint16 *block)
{
    if (part.readDc(reader) != Fit::Error::None) return false;
    block[0] = qint16(part.prediction << (m_header.spectral[2] & 15));
    return true;
}

/// Begins a run of blocks without further coefficients (G.1.2.2); the one in hand is the first of them.
bool ScanReader::startEndOfBand(int run)
{
    m_endOfBand = (1u << run) - 1;
    if (run) m_endOfBand += quint32(reader.take(run));
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
        const int symbol = part.ac.next(reader);
        if (symbol < 0) return false;
        const int run = symbol >> 4;
        if ((symbol & 15) == 0) {
            if (run < 15) return startEndOfBand(run);
            z += 15;
            continue;
        }
        z += run;
        if (z > end) return false;
        block[z] = qint16(reader.takeValue(symbol & 15) * (1 << (approximation & 15)));
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
        if (reader.take(1) && !(std::abs(int(block[z])) & bit))
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
            const int symbol = part.ac.next(reader);
            if (symbol < 0 || reader.overrun()) return false;
            const int run = symbol >> 4;
            const int size = symbol & 15;
            if (size > 1) return false;
            if (size == 0 && run < 15) {
                startEndOfBand(run);
                ++m_endOfBand; // it covers what is left of this block too
                break;
            }
            const int value = size == 0 ? 0 : reader.take(1) ? bit : -bit;
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

} // namespace salvage
