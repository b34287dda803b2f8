// What a camera wrote beside a picture: put back into the saved copy of its repair, which was written without it.
#pragma once

#include "save/FileCopy.h"

#include <QByteArray>
#include <QString>

/// Segments for the saved copy of a main image: the Exif block (date, camera, place, orientation) and the colour profile
/// that stand sound in front of the scan in `source`, the damaged file's beginning. `output` is the beginning of the
/// repaired JPEG; what it holds already is not doubled. Exif: what doesn't stand in it is left out, see soundExif(). The
/// profile: whole, with all its parts (ICC.1:2010, annex B.4), and for as many components as the picture has. Both have
/// to belong to this picture: its size stands in the source's frame header or in the Exif block. Changes no pixel:
/// the segments stand behind SOI and APP0. Empty where there is nothing to put back.
InsertedBytes cameraDataFor(const QByteArray &output, const QByteArray &source);

/// The same from files. Reads a few MiB of each at the most; what the medium refuses reads as zeros.
InsertedBytes cameraDataOfFiles(const QString &outputPath, const QString &sourcePath);
