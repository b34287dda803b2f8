#include "engine/ScanMap.h"

#include "app/StopFlag.h"
#include "engine/Markers.h"

#include <algorithm>
#include <array>

namespace {

// By the byte behind an FF: does the code pass unnoticed in a scan?
constexpr std::array<bool, 256> quietCodes()
{
    std::array<bool, 256> quiet = {};
    for (int code = 0; code < 256; ++code) {
        const auto word = quint16(0xFF00 | code);
        quiet[size_t(code)] = jpeg::isLegalInScan(word) && word != jpeg::EOI;
    }
    return quiet;
}

constexpr std::array<bool, 256> kQuiet = quietCodes();

} // namespace

quint64 ScanMap::next(FileWindow &file, quint64 from, quint64 end) const
{
    if (m_loud.empty()) return file.nextFF(from, end);
    while (from < end) {
        const quint64 chunk = from / kChunk;
        const quint64 chunkEnd = std::min(end, (chunk + 1) * kChunk);
        if (chunk >= m_loud.size()) return file.nextFF(from, end);
        if (m_loud[size_t(chunk)]) {
            const quint64 hit = file.nextFF(from, chunkEnd);
            if (hit < chunkEnd) return hit;
        }
        from = chunkEnd;
    }
    return end;
}

int countImageBoundaries(FileWindow &file, quint64 start, quint64 fileSize, ScanMap &map)
{
    int count = 0;
    bool inImage = false;
    quint64 position = start; // the count looks at no word in front of this; the map must know them all
    for (quint64 at = file.nextFF(start, fileSize); at < fileSize; at = file.nextFF(at + 1, fileSize)) {
        const quint8 code = file.byteAt(at + 1);
        if (kQuiet[code]) continue;
        if (stopRequested()) break;
        map.markLoud(at);
        if (at < position) continue;
        const auto word = quint16(0xFF00 | code);
        if (word == jpeg::SOI && !inImage && jpeg::isImageOpener(file.wordAt(at + 2))) {
            ++count;
            inImage = true;
            position = at + 3;
        } else if (word == jpeg::EOI && inImage) {
            ++count;
            inImage = false;
            position = at + 3;
        }
    }
    return count;
}
