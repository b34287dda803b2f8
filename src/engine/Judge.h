// The one judge of every repair: does the toolkit's decoder take the file?
#pragma once

#include <QImage>
#include <QSize>
#include <QStringList>

struct Verdict
{
    bool decodes = false;
    QSize size{0, 0};     ///< width and height of the decoded image; 0 x 0 if it doesn't decode
    QStringList warnings; ///< the decoder's words, at most a hundred; it tells only the first fault of a picture's data
    QImage icon;          ///< the picture at most 32 x 32 pixels large; null if it doesn't decode
    bool severalScans = false; ///< the picture comes in more than one scan
    QString warning() const { return warnings.value(0); }
};

/// Decodes the JPEG at `path` with QImage::load, format "JPG". A picture whose header claims more than half of the free
/// memory, or over 4 GiB, is not loaded and counts as one that doesn't decode. Worker's work: takes as long as a decode.
Verdict judgeJpeg(const QString &path);

/// The JPEG at `path` for a view of `box` pixels, in QImage::Format_ARGB32_Premultiplied: its own size where it is smaller
/// than the box both ways, else scaled to fit. `fullSize` gets the size of the picture in the file. Null, with a size of
/// 0 x 0, if it doesn't decode or needs more memory than judgeJpeg allows. Worker's work; may run beside a judge.
QImage loadForView(const QString &path, const QSize &box, QSize &fullSize);

/// Bytes that a picture may take at the most right now; see judgeJpeg.
quint64 pictureMemoryLimit();
/// A lower limit for the whole program, whatever memory is free; 0 takes it back.
void setPictureMemoryLimit(quint64 bytes);
