#include "support/JpegMaker.h"

#include "support/Grammar.h"

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

using namespace words;

namespace {

/// One compression; a maker's mistake ends the program.
class Encoder
{
public:
    Encoder()
    {
        m_state.err = jpeg_std_error(&m_errors);
        jpeg_create_compress(&m_state);
        jpeg_mem_dest(&m_state, &m_bytes, &m_size);
    }
    ~Encoder()
    {
        jpeg_destroy_compress(&m_state);
        std::free(m_bytes);
    }
    Encoder(const Encoder &) = delete;
    Encoder &operator=(const Encoder &) = delete;

    QByteArray encode(const QImage &picture, const JpegOptions &options);

private:
    void setUp(const QImage &picture, const JpegOptions &options);
    void setTables(const JpegOptions &options);

    jpeg_compress_struct m_state{};
    jpeg_error_mgr m_errors{};
    unsigned char *m_bytes = nullptr;
    unsigned long m_size = 0;
};

void Encoder::setUp(const QImage &picture, const JpegOptions &options)
{
    const bool grey = picture.format() == QImage::Format_Grayscale8;
    m_state.image_width = JDIMENSION(picture.width());
    m_state.image_height = JDIMENSION(picture.height());
    m_state.input_components = grey ? 1 : 3;
    m_state.in_color_space = grey ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&m_state);
    m_state.dct_method = JDCT_ISLOW;
    m_state.write_JFIF_header = options.jfif ? TRUE : FALSE;
    m_state.optimize_coding = options.optimised ? TRUE : FALSE;
    m_state.restart_interval = unsigned(options.restartMcus);
    if (!grey) {
        m_state.comp_info[0].h_samp_factor = options.sampling == 444 ? 1 : 2;
        m_state.comp_info[0].v_samp_factor = options.sampling == 420 ? 2 : 1;
    }
    setTables(options);
    if (options.progressive) jpeg_simple_progression(&m_state);
}

void Encoder::setTables(const JpegOptions &options)
{
    jpeg_set_quality(&m_state, options.quality, TRUE);
    if (options.quantTables != 3 || m_state.num_components != 3) return;
    unsigned values[DCTSIZE2];
    for (int i = 0; i < DCTSIZE2; ++i) values[i] = m_state.quant_tbl_ptrs[1]->quantval[i];
    jpeg_add_quant_table(&m_state, 2, values, 100, TRUE);
    m_state.comp_info[2].quant_tbl_no = 2;
}

QByteArray Encoder::encode(const QImage &picture, const JpegOptions &options)
{
    setUp(picture, options);
    const QImage rows = m_state.input_components == 1 ? picture : picture.convertToFormat(QImage::Format_RGB888);
    jpeg_start_compress(&m_state, TRUE);
    while (m_state.next_scanline < m_state.image_height) {
        auto *row = const_cast<JSAMPLE *>(rows.constScanLine(int(m_state.next_scanline)));
        jpeg_write_scanlines(&m_state, &row, 1);
    }
    jpeg_finish_compress(&m_state);
    return QByteArray(reinterpret_cast<const char *>(m_bytes), int(m_size));
}

QByteArray payloadOf(const QByteArray &jpeg, const SegmentPlace &place)
{
    return jpeg.mid(int(place.offset) + 4, place.length - 2);
}

/// Puts the segments in front of the first scan together anew: tables merged, segments of the caller's added.
QByteArray reassemble(const QByteArray &jpeg, const JpegOptions &options)
{
    QByteArray tables;
    QByteArray huffman;
    QByteArray frame;
    QByteArray front;
    for (const SegmentPlace &place : segmentPlaces(jpeg)) {
        const QByteArray whole = jpeg.mid(int(place.offset), place.length + 2);
        if (place.marker == SOS) {
            if (options.oneDqt) tables = segment(DQT, tables);
            if (options.oneDht) huffman = segment(DHT, huffman);
            QByteArray all = word(SOI) + front;
            for (const QByteArray &extra : options.segments) all += extra;
            return all + tables + frame + huffman + jpeg.mid(int(place.offset)) + options.trailing;
        }
        switch (place.marker) {
        case SOI: break;
        case DQT: tables += options.oneDqt ? payloadOf(jpeg, place) : whole; break;
        case DHT: huffman += options.oneDht ? payloadOf(jpeg, place) : whole; break;
        case APP0: front += whole; break;
        default: frame += whole;
        }
    }
    qFatal("makeJpeg: the encoder wrote no scan");
}

/// One entry of a TIFF directory, big-endian.
QByteArray tiffEntry(int tag, int type, int count, int value)
{
    return word(tag) + word(type) + word(count >> 16) + word(count & 0xFFFF) + word(value >> 16) + word(value & 0xFFFF);
}

} // namespace

QByteArray makeJpeg(const QImage &picture, const JpegOptions &options)
{
    return reassemble(Encoder().encode(picture, options), options);
}

QByteArray exifSegment(const QByteArray &thumbnail, int orientation)
{
    // Offsets count from the byte order mark: head 8 bytes, IFD0 of one entry 18, IFD1 of three 42, text 8.
    constexpr int kSecondDirectory = 8 + 18;
    constexpr int kText = kSecondDirectory + 42;
    constexpr int kThumbnail = kText + 8;
    const QByteArray none = word(0) + word(0);
    const QByteArray entry =
        orientation == 0 ? tiffEntry(0x010F, 2, 8, kText) : tiffEntry(0x0112, 3, 1, orientation << 16);
    const QByteArray first = word(1) + entry + word(0) + word(kSecondDirectory);
    const QByteArray second = word(3) + tiffEntry(0x0103, 3, 1, 6 << 16) + tiffEntry(0x0201, 4, 1, kThumbnail)
        + tiffEntry(0x0202, 4, 1, thumbnail.size()) + none;
    const QByteArray head = QByteArray("Exif\0\0MM\0*\0\0\0\x08", 14);
    return segment(APP1, head + first + second + QByteArray("Kesmira\0", 8) + thumbnail);
}

QByteArray embeddingSegment(int marker, const QByteArray &image)
{
    return segment(marker, QByteArray("preview\0", 8) + image);
}

QByteArray commentSegment(const QByteArray &text)
{
    return segment(COM, text);
}

std::vector<SegmentPlace> segmentPlaces(const QByteArray &jpeg)
{
    const auto byteAt = [&jpeg](qint64 at) { return at < jpeg.size() ? int(quint8(jpeg[int(at)])) : 0; };
    std::vector<SegmentPlace> places;
    qint64 at = 0;
    while (at + 1 < jpeg.size()) {
        const int marker = byteAt(at) * 256 + byteAt(at + 1);
        const bool bare = marker == SOI || marker == EOI;
        const int length = bare ? 0 : byteAt(at + 2) * 256 + byteAt(at + 3);
        places.push_back({marker, at, length});
        if (marker == EOI) break;
        at += 2 + length;
        if (marker != SOS) continue;
        // Entropy data ends at the first FF that is neither stuffed nor a restart marker.
        while (at + 1 < jpeg.size()) {
            const int code = byteAt(at + 1);
            if (byteAt(at) == 0xFF && code != 0 && (code < 0xD0 || code > 0xD7)) break;
            ++at;
        }
    }
    return places;
}
