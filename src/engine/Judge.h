// The one judge of every repair: does the toolkit's decoder take the file?
#pragma once

#include <QSize>
#include <QString>

struct Verdict
{
    bool decodes = false;
    QSize size;      ///< width and height of the decoded image; 0 x 0 if it doesn't decode
    QString warning; ///< the decoder's first words, empty if it had none
};

/// Decodes the JPEG at `path` with QImage::load, format "JPG". A picture whose header claims more than half of the free
/// memory, or over 4 GiB, is not loaded and counts as one that doesn't decode. Worker's work: takes as long as a decode.
Verdict judgeJpeg(const QString &path);

/// Bytes that a picture may take at the most right now; see judgeJpeg.
quint64 pictureMemoryLimit();
/// A lower limit for the whole program, whatever memory is free; 0 takes it back.
void setPictureMemoryLimit(quint64 bytes);
