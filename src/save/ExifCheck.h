// What of a damaged Exif block can still be trusted.
#pragma once

#include <QByteArray>
#include <QSize>

struct SoundExif
{
    QByteArray tiff; ///< the block without what doesn't stand; empty if nothing of it does
    QSize size;      ///< width and height of the picture as the block tells them; invalid if it doesn't
};

/// Checks the TIFF structure of `tiff`, the bytes behind "Exif\0\0" (Exif 2.32, 4.6; TIFF 6.0, section 2): every entry has
/// a known type and a value in bounds that lies on no list of entries. A block that stands comes back as it is. From any
/// other the entries, lists and the thumbnail that don't stand are taken out; all else keeps its offset, as makers'
/// notes point by offsets that nobody else knows. As long as `tiff`, whatever was taken out.
SoundExif soundExif(const QByteArray &tiff);
