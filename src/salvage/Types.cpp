#include "salvage/Types.h"

#include <algorithm>

namespace salvage {

namespace {

void addWord(QByteArray &out, int word)
{
    out.append(char(word >> 8)).append(char(word));
}

void addSegment(QByteArray &out, quint8 marker, const QByteArray &body)
{
    out.append(char(0xFF)).append(char(marker));
    addWord(out, int(body.size()) + 2);
    out.append(body);
}

QByteArray quantBody(quint8 key, const QuantTable &table)
{
    const bool wide = std::any_of(table.begin(), table.end(), [](quint16 value) { return value > 0xFF; });
    QByteArray body(1, char(wide ? 0x10 | key : key));
    for (const quint16 value : table) {
        if (wide) body.append(char(value >> 8));
        body.append(char(value));
    }
    return body;
}

QByteArray huffmanBody(HuffmanKey key, const HuffmanTable &table)
{
    QByteArray body(1, char(key));
    body.append(reinterpret_cast<const char *>(table.counts.data()), int(table.counts.size()));
    body.append(reinterpret_cast<const char *>(table.symbols.data()), int(table.symbols.size()));
    return body;
}

} // namespace

int Header::mcuWidth() const
{
    if (components.size() <= 1) return 8;
    int most = 1;
    for (const Component &component : components) most = std::max<int>(most, component.h);
    return 8 * most;
}

int Header::mcuHeight() const
{
    if (components.size() <= 1) return 8;
    int most = 1;
    for (const Component &component : components) most = std::max<int>(most, component.v);
    return 8 * most;
}

bool Header::decodable() const
{
    if (width == 0 || height == 0 || components.empty() || components.size() > 4 || scan.empty()) return false;
    if (scan.size() > components.size()) return false;
    int blocks = 0;
    for (const Component &component : components) {
        if (component.h < 1 || component.h > 4 || component.v < 1 || component.v > 4) return false;
        blocks += component.h * component.v;
    }
    // B.2.3: no more than ten blocks in an MCU.
    return blocks <= 10 || components.size() == 1;
}

bool Header::fitsMemory() const
{
    constexpr quint64 kMostPixels = 60'000'000;
    return quint64(mcusWide()) * quint64(mcuWidth()) * mcusHigh() * quint64(mcuHeight()) <= kMostPixels;
}

QByteArray Header::bytes(bool withApps) const
{
    QByteArray out("\xFF\xD8", 2);
    if (withApps)
        for (const QByteArray &app : apps) out.append(app);
    for (const auto &[key, table] : quant) addSegment(out, 0xDB, quantBody(key, table));

    QByteArray body(1, char(8));
    addWord(body, height);
    addWord(body, width);
    body.append(char(components.size()));
    for (const Component &each : components)
        body.append(char(each.id)).append(char(each.h << 4 | each.v)).append(char(each.quant));
    addSegment(out, frame, body);

    for (const auto &[key, table] : huffman) addSegment(out, 0xC4, huffmanBody(key, table));
    if (restartInterval > 0) {
        body.clear();
        addWord(body, restartInterval);
        addSegment(out, 0xDD, body);
    }
    body = QByteArray(1, char(scan.size()));
    for (const ScanComponent &each : scan) body.append(char(each.id)).append(char(each.tables));
    for (const quint8 byte : spectral) body.append(char(byte));
    addSegment(out, 0xDA, body);
    return out;
}

} // namespace salvage
