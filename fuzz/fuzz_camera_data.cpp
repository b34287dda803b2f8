// The camera's data of a damaged file, put into a healthy output and into the file itself. Whatever the bytes are: only
// whole segments come in, behind SOI and APP0, no more than the source has; the picture's own bytes and its pixels stay;
// what was put in is found sound again, and not doubled.
// By hand: build/fuzz/fuzz/fuzz_camera_data -max_len=6000 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "save/CameraData.h"
#include "save/ExifCheck.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QImage>
#include <QtEndian>

namespace {

/// Exif and profile as the source has them, each block once.
void checkSegments(const QByteArray &segments)
{
    int at = 0;
    while (at < segments.size()) {
        demand(segments.size() - at >= 4 && quint8(segments[at]) == 0xFF, "no segment was put in");
        const int end = at + 2 + qFromBigEndian<quint16>(segments.constData() + at + 2);
        demand(end <= segments.size(), "a segment is cut off");
        const QByteArray body = segments.mid(at + 4, end - at - 4);
        if (quint8(segments[at + 1]) == 0xE1) {
            demand(at == 0 && body.startsWith(QByteArray("Exif\0\0", 6)), "APP1 isn't the one Exif block in front");
            const QByteArray tiff = body.mid(6);
            demand(soundExif(tiff).tiff == tiff, "what was put in doesn't stand");
        } else {
            demand(quint8(segments[at + 1]) == 0xE2 && body.startsWith("ICC_PROFILE"), "another segment was put in");
        }
        at = end;
    }
}

void check(const QByteArray &output, const QByteArray &source)
{
    const InsertedBytes data = cameraDataFor(output, source);
    demand(data.bytes.size() <= source.size(), "more came in than the source has");
    if (data.bytes.isEmpty()) return;
    demand(data.at >= 2 && data.at <= output.size(), "not behind SOI");
    checkSegments(data.bytes);
    const QByteArray copy = output.left(int(data.at)) + data.bytes + output.mid(int(data.at));
    demand(cameraDataFor(copy, source).bytes.isEmpty() || !data.bytes.startsWith("\xFF\xE1"), "Exif is doubled");
    const QImage before = QImage::fromData(output, "JPG");
    const QImage after = QImage::fromData(copy, "JPG");
    demand(before.size() == after.size() && (before.isNull() || largestDifference(before, after) == 0),
           "the pixels have changed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QByteArray outputs[] = {makeJpeg(drawPicture(48, 32)), makeJpeg(drawPicture(48, 32), {.jfif = false}),
                                         makeJpeg(drawGreyPicture(48, 32))};
    const QByteArray source(reinterpret_cast<const char *>(data), int(size));
    const SoundExif exif = soundExif(source);
    demand(exif.tiff.isEmpty() || exif.tiff.size() == source.size(), "a block has changed its length");
    demand(soundExif(exif.tiff).tiff == exif.tiff, "what was kept doesn't stand");
    for (const QByteArray &output : outputs) check(output, source);
    check(source, source);
    return 0;
}
