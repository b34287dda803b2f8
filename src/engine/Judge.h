// The one judge of every repair: does the toolkit's decoder take the file?
#pragma once

#include "engine/PictureMemory.h"

#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

struct Verdict
{
    bool decodes = false;
    QSize size{0, 0}; ///< width and height of the decoded image; 0 x 0 if it doesn't decode
    /// The decoder's words, at most a hundred, or why it had none; it tells only the first fault of a picture's data.
    QStringList warnings;
    QImage icon;               ///< the picture at most 32 x 32 pixels large; null if it doesn't decode
    bool severalScans = false; ///< the picture comes in more than one scan
    bool stopped = false;      ///< broken off by the user's stop: nothing is known of the file
    QString warning() const { return warnings.value(0); }
};

/// Has the decoder process decode the JPEG at `path` with the toolkit's decoder. A picture whose header claims more than
/// pictureMemoryLimit() or than its length can hold, and one that would take the decoder no end of time, is not decoded
/// and counts as one that doesn't; so does one that breaks the process. Worker's work: takes as long as a decode, but ends
/// 150 ms after a stop was asked for.
Verdict judgeJpeg(const QString &path);

/// The JPEG at `path` for a view of `box` pixels, in QImage::Format_ARGB32_Premultiplied: its own size where it is smaller
/// than the box both ways, else scaled to fit. `fullSize` gets the size of the picture in the file. Null, with a size of
/// 0 x 0, if it doesn't decode, needs more than judgeJpeg allows, or `abandoned`, which is asked meanwhile, says true.
/// Worker's work. Has a decoder process of its own and waits for no judge.
QImage loadForView(const QString &path, const QSize &box, QSize &fullSize, const std::function<bool()> &abandoned = {});

/// The same of a HEIC, a rewritten one included: turned as the file says, in the colours of sRGB.
QImage loadHeicForView(const QString &path, const QSize &box, QSize &fullSize,
                       const std::function<bool()> &abandoned = {});

/// Starts the judge's decoder process beside what the caller does next, if it isn't there.
void startJudge();
