// Builds healthy JPEGs of every kind that the repairs are told apart by, from pictures of our own.
#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

struct JpegOptions
{
    int quality = 85; ///< step of the example tables; from 58 to 98 the table library knows pair, triple and each alone
    bool progressive = false;
    bool optimised = false;                ///< Huffman tables of its own in place of the example tables
    int restartMcus = 0;                   ///< MCUs between two restart markers, 0 for none
    int sampling = 420;                    ///< 420, 422 or 444
    int quantTables = 2;                   ///< 3 gives the third component a table of its own, equal to the second's
    bool oneDqt = false;                   ///< all tables in one segment: length 67, 132 or 197
    bool oneDht = false;                   ///< the same for the Huffman tables in front of the first scan: 210 or 418
    bool jfif = true;                      ///< an APP0 right behind SOI
    std::vector<QByteArray> segments = {}; ///< whole segments, behind APP0 and in front of the tables
    QByteArray trailing = {};              ///< bytes behind EOI
};

/// A JPEG of the picture; grey pictures (Format_Grayscale8) give one component.
QByteArray makeJpeg(const QImage &picture, const JpegOptions &options = {});

/// APP1 with a minimal Exif structure: IFD0 with a make, or with an orientation that isn't 0, IFD1 with the thumbnail.
QByteArray exifSegment(const QByteArray &thumbnail, int orientation = 0);
/// An APPn that holds `image` behind some bytes of its own.
QByteArray embeddingSegment(int marker, const QByteArray &image);
QByteArray commentSegment(const QByteArray &text);

/// A segment of a healthy file.
struct SegmentPlace
{
    int marker = 0;    ///< in file order
    qint64 offset = 0; ///< of the marker
    int length = 0;    ///< its length field, 0 for SOI and EOI
};

/// The segments of a healthy JPEG up to its EOI, those between the scans included; nested images are not entered.
std::vector<SegmentPlace> segmentPlaces(const QByteArray &jpeg);
