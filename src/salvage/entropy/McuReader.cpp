#include "salvage/entropy/McuReader.h"

#include <algorithm>

namespace salvage {

namespace {

constexpr int kMostDc = 2100; // beyond what eight bits of precision can give

const HuffmanTable &tableOf(const Header &header, HuffmanKey key)
{
    static const HuffmanTable none;
    const auto found = header.huffman.find(key);
    return found == header.huffman.end() ? none : found->second;
}

} // namespace

bool atEnd(BitReader &reader)
{
    if (reader.left() >= 8 || !reader.marker()) return false;
    const int left = reader.left();
    if (left <= 0) return true;
    return left < 8 && reader.peek16() >> (16 - left) == (1U << left) - 1;
}

std::vector<Component> samplingOf(const Header &header)
{
    const size_t n = std::min(header.components.size(), header.scan.size());
    std::vector<Component> sampling(header.components.begin(), header.components.begin() + qptrdiff(n));
    if (n == 1) sampling[0].h = sampling[0].v = 1; // a scan of one component is read block by block
    return sampling;
}

McuReader::McuReader(const Header &header, ByteView data) : reader(data)
{
    const std::vector<Component> sampling = samplingOf(header);
    for (size_t i = 0; i < sampling.size(); ++i) {
        Part part;
        part.blocks = sampling[i].h * sampling[i].v;
        part.dc = HuffmanDecoder(tableOf(header, header.scan[i].dcKey()));
        part.ac = HuffmanDecoder(tableOf(header, header.scan[i].acKey()));
        blocks += part.blocks;
        m_parts.push_back(std::move(part));
    }
}

Fit::Error BlockReader::readDc(BitReader &reader)
{
    const int size = dc.next(reader);
    if (size < 0) return Fit::Error::NoCode;
    if (size > 11) return Fit::Error::BadDc;
    ++symbols;
    prediction += reader.takeValue(size);
    return std::abs(prediction) > kMostDc ? Fit::Error::BadDc : Fit::Error::None;
}

template<bool Keep>
Fit::Error BlockReader::readAc(BitReader &reader, qint16 *to)
{
    for (int z = 1; z < 64;) {
        const int symbol = ac.next(reader);
        if (symbol < 0) return Fit::Error::NoCode;
        const int run = symbol >> 4;
        const int size = symbol & 15;
        if (size == 0) {
            if (run == 15) {
                ++symbols;
                z += 16;
                if (z > 64) return Fit::Error::Overflow;
                continue;
            }
            if (run) return Fit::Error::NoCode;
            ++symbols;
            break;
        }
        if (size > 10) return Fit::Error::NoCode;
        ++symbols;
        z += run;
        if (z > 63) return Fit::Error::Overflow;
        const int value = reader.takeValue(size);
        if constexpr (Keep) to[z] = qint16(value);
        ++z;
    }
    return Fit::Error::None;
}

Fit::Error BlockReader::read(BitReader &reader, qint16 *to)
{
    const Fit::Error error = readDc(reader);
    if (error != Fit::Error::None) return error;
    if (!to) return readAc<false>(reader, nullptr);
    to[0] = qint16(prediction);
    return readAc<true>(reader, to);
}

quint32 McuReader::symbols() const
{
    quint32 sum = 0;
    for (const Part &part : m_parts) sum += part.symbols;
    return sum;
}

Fit::Error McuReader::readMcu(qint16 *to)
{
    for (Part &part : m_parts) {
        for (int i = 0; i < part.blocks; ++i) {
            const Fit::Error error = part.read(reader, to);
            if (error != Fit::Error::None) return error;
            if (reader.overrun()) return Fit::Error::DataEnded;
            if (to) to += 64;
        }
    }
    return Fit::Error::None;
}

bool McuReader::readMcuTolerantly(qint16 *to)
{
    bool sound = true;
    for (Part &part : m_parts) {
        for (int i = 0; i < part.blocks; ++i, to += 64) {
            if (sound) {
                const int size = part.dc.next(reader);
                if (size < 0 || size > 11) {
                    sound = false;
                    reader.skip(1);
                } else {
                    part.prediction += reader.takeValue(size);
                }
            }
            part.prediction = std::clamp(part.prediction, -30000, 30000);
            to[0] = qint16(part.prediction);
            if (sound && part.readAc<true>(reader, to) != Fit::Error::None) {
                sound = false;
                reader.skip(1);
                std::fill_n(to + 1, 63, qint16(0));
            }
            if (reader.overrun()) sound = false;
            reader.forgiveOverrun();
        }
    }
    return sound;
}

void McuReader::restart()
{
    reader.passMarker();
    for (Part &part : m_parts) part.prediction = 0;
}

McuReader::Place McuReader::place() const
{
    Place place;
    place.offset = reader.position();
    place.bits = std::max(0, reader.left()) % 8;
    for (size_t i = 0; i < m_parts.size(); ++i) place.predictions.at(i) = m_parts[i].prediction;
    return place;
}

void McuReader::goTo(const Place &place)
{
    reader.jumpBefore(place.offset, place.bits);
    for (size_t i = 0; i < m_parts.size(); ++i) m_parts[i].prediction = place.predictions.at(i);
}

} // namespace salvage
