// Where the parts of a healthy JPEG stand: a walk of the damage's own, so that it shares no error with what it tries.
#pragma once

#include <QByteArray>

#include <vector>

namespace soak {

/// One marker segment (ISO/IEC 10918-1, B.1.1.4).
struct Segment
{
    quint8 marker = 0; ///< second byte of the marker
    int begin = 0;     ///< offset of its FF
    int end = 0;       ///< offset behind its body
    int body() const { return begin + 4; }
    int size() const { return end - begin; }
};

/// Offsets in the main image; nested images are in the bodies of APPn, others behind `imageEnd`.
struct JpegMap
{
    std::vector<Segment> segments; ///< from behind SOI to the first SOS, this included
    int scanBegin = 0;             ///< first byte of entropy data, which is the header's end
    int scanEnd = 0;               ///< of EOI; several scans count as one, with what stands between them
    int imageEnd = 0;              ///< behind EOI
    std::vector<int> restarts;     ///< of each RSTn

    std::vector<Segment> all(quint8 marker) const;
    /// The frame header, nullptr if there is none.
    const Segment *frame() const;
};

/// The map of `file`. Empty segments if it isn't a whole JPEG of Huffman tables with SOI, a frame, a scan and EOI.
JpegMap mapOf(const QByteArray &file);

/// A healthy file with its map.
struct Source
{
    QByteArray bytes;
    JpegMap map;
};

} // namespace soak
