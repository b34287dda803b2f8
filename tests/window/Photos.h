// Sources for the window's tests, small enough for a hundred of them.
#pragma once

#include "support/JpegMaker.h"
#include "support/Pictures.h"

namespace photos {

/// Healthy, with a thumbnail: gives two rows.
inline QByteArray withThumbnail()
{
    return makeJpeg(drawPicture(64, 48), {.segments = {exifSegment(makeJpeg(drawPicture(32, 24, 1)))}});
}
inline QByteArray plain(int variant = 0)
{
    return makeJpeg(drawPicture(48, 32, variant));
}
/// Healthy, and fit to be a sample: its metadata stands right behind SOI.
inline QByteArray sample()
{
    return makeJpeg(drawPicture(48, 32), {.jfif = false, .segments = {exifSegment({})}});
}
/// Nothing but the scan of a picture: only a sample helps.
inline QByteArray scanOf(const QByteArray &whole)
{
    for (const SegmentPlace &segment : segmentPlaces(whole))
        if (segment.marker == 0xFFDA) return QByteArray("\xFF\xD8", 2) + whole.mid(int(segment.offset));
    return {};
}
inline QByteArray scanOnly(int variant = 0)
{
    return scanOf(plain(variant));
}
/// Takes the engine a while: illegal codes all over the scan of each of many pictures.
inline QByteArray longWork()
{
    QByteArray picture = makeJpeg(drawPicture(320, 240), {.quality = 98});
    return (picture + QByteArray(1, 0)).repeated(12);
}

} // namespace photos
