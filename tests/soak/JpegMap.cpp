#include "soak/JpegMap.h"

namespace soak {

namespace {

int byteAt(const QByteArray &file, int at)
{
    return at < file.size() ? quint8(file[at]) : -1;
}

bool isFrame(int marker)
{
    return marker == 0xC0 || marker == 0xC1 || marker == 0xC2;
}

/// Offset of the first marker from `at` on that ends entropy data; -1 if there is none. Notes the RSTn on the way.
int endOfData(const QByteArray &file, int at, std::vector<int> &restarts)
{
    for (; at + 1 < file.size(); ++at) {
        if (quint8(file[at]) != 0xFF) continue;
        const int code = byteAt(file, at + 1);
        if (code >= 0xD0 && code <= 0xD7) restarts.push_back(at);
        if (code != 0 && code != 0xFF && !(code >= 0xD0 && code <= 0xD7)) return at;
    }
    return -1;
}

/// From SOI to EOI; false where something else stands.
bool walk(const QByteArray &file, JpegMap &map)
{
    int at = 2;
    bool seenFrame = false;
    for (;;) {
        while (byteAt(file, at) == 0xFF && byteAt(file, at + 1) == 0xFF) ++at;
        const int marker = byteAt(file, at + 1);
        if (byteAt(file, at) != 0xFF || marker < 0xC0) return false;
        if (marker == 0xD9) {
            map.scanEnd = at;
            map.imageEnd = at + 2;
            return seenFrame && map.scanBegin > 0;
        }
        if (at + 4 > file.size()) return false;
        const int end = at + 2 + (byteAt(file, at + 2) << 8 | byteAt(file, at + 3));
        if (end > file.size()) return false;
        seenFrame = seenFrame || isFrame(marker);
        if (map.scanBegin == 0) map.segments.push_back({quint8(marker), at, end});
        at = end;
        if (marker != 0xDA) continue;
        if (map.scanBegin == 0) map.scanBegin = end;
        at = endOfData(file, end, map.restarts);
        if (at < 0) return false;
    }
}

} // namespace

std::vector<Segment> JpegMap::all(quint8 marker) const
{
    std::vector<Segment> found;
    for (const Segment &segment : segments)
        if (segment.marker == marker) found.push_back(segment);
    return found;
}

const Segment *JpegMap::frame() const
{
    for (const Segment &segment : segments)
        if (isFrame(segment.marker)) return &segment;
    return nullptr;
}

JpegMap mapOf(const QByteArray &file)
{
    JpegMap map;
    if (!file.startsWith("\xFF\xD8") || !walk(file, map)) return {};
    return map;
}

} // namespace soak
