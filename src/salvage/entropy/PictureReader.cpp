#include "salvage/entropy/PictureReader.h"

#include "salvage/entropy/ScanReader.h"
#include "salvage/structure/Structure.h"

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

bool readScan(const Header &header, ByteView data, ScansReading &reading, const Budget &budget)
{
    ScanReader scan(header, data);
    if (!scan.usable()) return false;
    const quint32 units = scan.unitCount();
    reading.total += units;
    const quint32 interval = header.restartInterval ? header.restartInterval : units;
    for (quint32 unit = 0; unit < units;) {
        const quint32 end = std::min(units, unit + interval);
        quint32 read = unit;
        while (read < end && scan.readUnit(read, reading.picture)) {
            ++read;
            if (read % kStopEvery == 0 && budget.stopped()) return true;
        }
        reading.done += read - unit;
        if (read < end) ++reading.errors;
        unit = end;
        if (unit == units) {
            // Data that are left over show that what was read is something else.
            if (read == end && scan.reader.position() + 3 < data.size()) ++reading.errors;
            break;
        }
        // Broken or not, an interval ends at its marker; where that isn't next, the rest can't be placed.
        if (!scan.standsAtRestart()) {
            if (read == end) ++reading.errors;
            break;
        }
        scan.restart();
    }
    return true;
}

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

std::vector<ScanPart> splitScans(const Header &header, ByteView data, bool *ended)
{
    std::vector<ScanPart> parts;
    Header current = header;
    current.apps.clear();
    bool atEnd = false;
    size_t at = 0;
    while (parts.size() < kMostScans) {
        const size_t end = nextMarker(data, at);
        parts.push_back({current, at, end});
        atEnd = end + 3 >= data.size();
        at = atEnd ? 0 : nextScan(current, data, end, atEnd);
        if (at == 0) break;
    }
    if (ended) *ended = atEnd;
    return parts;
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
    std::set<quint8> seen;
    bool ended = false;
    const std::vector<ScanPart> parts = splitScans(header, data, &ended);
    for (const ScanPart &part : parts) {
        if (budget.stopped()) break;
        const Header &own = part.header;
        if (!readScan(own, slice(data, part.begin, part.end), reading, budget)) {
            ++reading.errors;
            return reading;
        }
        ++reading.scans;
        reading.end = part.end;
        // A component without its levels is none; a scan that only refines levels doesn't give them.
        if (!own.progressive() || (own.spectral[0] == 0 && own.spectral[2] >> 4 == 0))
            for (const ScanComponent &each : own.scan) seen.insert(each.id);
    }
    reading.complete = ended && seen.size() == header.components.size();
    if (!ended && parts.size() < kMostScans) ++reading.errors;
    return reading;
}

std::optional<Header> readHeader(ByteView file, size_t &dataAt, bool overJunk)
{
    Header header;
    if (file.size() < 4 || file[0] != 0xFF || file[1] != 0xD8) return std::nullopt;
    for (size_t at = 2; at + 3 < file.size();) {
        if (file[at] != 0xFF && overJunk) {
            at = nextMarker(file, at);
            continue;
        }
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
