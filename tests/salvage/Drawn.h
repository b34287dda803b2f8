// The drawn pictures that tests of whole salvages damage, in the ways of writing them that matter to a salvage.
#pragma once

#include "support/Damage.h"
#include "support/Pictures.h"

namespace drawn {

inline const JpegOptions kKnown = {.quality = 88};
inline const JpegOptions kOwn = {.quality = 88, .optimised = true};
inline const JpegOptions kProgressive = {.quality = 88, .progressive = true};
inline const JpegOptions kRestarts = {.quality = 88, .restartMcus = 20};

/// 320 x 240: shapes that are usual, and MCUs that end with the picture.
inline QByteArray jpeg(const JpegOptions &options, int width = 320, int height = 240)
{
    return makeJpeg(drawPicture(width, height), options);
}

inline Damage damaged(const JpegOptions &options)
{
    return Damage(jpeg(options));
}

} // namespace drawn
