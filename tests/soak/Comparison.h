// What counts as rescued: a picture against the healthy one that it was before.
#pragma once

#include <QByteArray>
#include <QImage>

namespace soak {

struct Comparison
{
    /// Levels of 255; a rescued picture's mean difference is below.
    static constexpr double kRescuedBelow = 4;
    /// A pixel is right if none of its channels differs by so many levels.
    static constexpr int kWrongFrom = 16;

    bool sameSize = false;
    double meanDifference = 255; ///< levels, over the red, green and blue of all pixels; 255 for another size
    double rightShare = 0;       ///< of the pixels that are right, 0 to 1; 0 for another size
    bool rescued() const { return sameSize && meanDifference < kRescuedBelow; }
    bool samePixels() const { return sameSize && meanDifference == 0; }
};

/// A null picture is of another size.
Comparison compare(const QImage &truth, const QImage &picture);

/// The picture in `file`, a JPEG whatever it is called, in three channels and not turned by Exif; null if none decodes.
QImage pictureOf(const QByteArray &file);
/// The same for a file of any usual format; null if it can't be read.
QImage pictureAt(const QString &path);

/// True if `file` is a JPEG that decodes to its end without a warning.
bool isHealthy(const QByteArray &file);

} // namespace soak
