#include "soak/DamageKinds.h"

namespace soak {

namespace {

using Damaged = std::optional<QByteArray>;

constexpr quint8 kHuffman = 0xC4;
constexpr quint8 kQuantization = 0xDB;

/// One table in a segment, by its offsets.
struct Table
{
    int head = 0;   ///< of Tc and Th, or Pq and Tq
    int values = 0; ///< of the first symbol or the first quantization value
    int end = 0;
};

std::vector<Table> huffmanTables(const Source &source)
{
    std::vector<Table> tables;
    for (const Segment &segment : source.map.all(kHuffman)) {
        for (int at = segment.body(); at + 17 <= segment.end;) {
            int symbols = 0;
            for (int i = 1; i <= 16; ++i) symbols += quint8(source.bytes[at + i]);
            const int end = std::min(at + 17 + symbols, segment.end);
            tables.push_back({at, at + 17, end});
            at = end;
        }
    }
    return tables;
}

/// Those of eight bits.
std::vector<Table> quantTables(const Source &source)
{
    std::vector<Table> tables;
    for (const Segment &segment : source.map.all(kQuantization)) {
        for (int at = segment.body(); at + 65 <= segment.end && quint8(source.bytes[at]) < 0x10; at += 65)
            tables.push_back({at, at + 1, at + 65});
    }
    return tables;
}

void hitCount(QByteArray &bytes, const Table &table, Random &random)
{
    const int at = table.head + 1 + random.below(16);
    bytes[at] = random.otherByte(bytes[at]);
}

Damaged countByte(const Source &source, const Source &, Random &random)
{
    const auto tables = huffmanTables(source);
    if (tables.empty()) return {};
    QByteArray bytes = source.bytes;
    hitCount(bytes, random.pick(tables), random);
    return bytes;
}

Damaged countsOfTwo(const Source &source, const Source &, Random &random)
{
    const auto tables = huffmanTables(source);
    if (tables.size() < 2) return {};
    QByteArray bytes = source.bytes;
    const int first = random.below(int(tables.size()));
    const int second = (first + 1 + random.below(int(tables.size()) - 1)) % int(tables.size());
    hitCount(bytes, tables[size_t(first)], random);
    hitCount(bytes, tables[size_t(second)], random);
    return bytes;
}

Damaged symbols(const Source &source, const Source &, Random &random)
{
    const auto tables = huffmanTables(source);
    if (tables.empty()) return {};
    const Table &table = random.pick(tables);
    if (table.end <= table.values) return {};
    QByteArray bytes = source.bytes;
    for (int hits = random.between(1, 6); hits > 0; --hits) {
        const int at = random.between(table.values, table.end - 1);
        bytes[at] = random.otherByte(bytes[at]);
    }
    return bytes;
}

Damaged firstQuantValues(const Source &source, const Source &, Random &random)
{
    const auto tables = quantTables(source);
    if (tables.empty()) return {};
    const Table &table = random.pick(tables);
    QByteArray bytes = source.bytes;
    const int count = random.between(1, 8);
    for (int i = 0; i < count; ++i) bytes[table.values + i] = random.otherByte(bytes[table.values + i]);
    return bytes;
}

Damaged quantTail(const Source &source, const Source &, Random &random)
{
    const auto tables = quantTables(source);
    if (tables.empty()) return {};
    const Table &table = random.pick(tables);
    QByteArray bytes = source.bytes;
    const int count = random.between(4, 48);
    const bool zeros = random.below(3) == 0;
    for (int at = table.end - count; at < table.end; ++at) bytes[at] = zeros ? '\0' : random.otherByte(bytes[at]);
    return bytes;
}

/// One segment of `marker` goes.
Damaged lose(const Source &source, quint8 marker, Random &random)
{
    const auto found = source.map.all(marker);
    if (found.empty()) return {};
    const Segment &segment = random.pick(found);
    return QByteArray(source.bytes).remove(segment.begin, segment.size());
}

Damaged quantLost(const Source &source, const Source &, Random &random)
{
    return lose(source, kQuantization, random);
}

Damaged huffmanLost(const Source &source, const Source &, Random &random)
{
    return lose(source, kHuffman, random);
}

/// A table's number: of Tq, or Tc and Th.
Damaged tableNumber(const Source &source, const Source &, Random &random)
{
    auto tables = huffmanTables(source);
    const auto quant = quantTables(source);
    tables.insert(tables.end(), quant.begin(), quant.end());
    if (tables.empty()) return {};
    QByteArray bytes = source.bytes;
    const int at = random.pick(tables).head;
    bytes[at] = random.otherByte(bytes[at]);
    return bytes;
}

} // namespace

const std::vector<DamageKind> &tableDamage()
{
    static const std::vector<DamageKind> kinds = {
        {"a DHT count byte", countByte, 35},
        {"DHT counts of two tables", countsOfTwo},
        {"DHT symbols", symbols, 35},
        {"a DHT lost", huffmanLost},
        {"first values of a DQT", firstQuantValues, 35},
        {"tail of a DQT", quantTail, 35},
        {"a DQT lost", quantLost},
        {"the number of a table", tableNumber, 30},
    };
    return kinds;
}

} // namespace soak
