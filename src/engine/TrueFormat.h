// What the bytes of a file are, whatever its name says.
#pragma once

#include <QString>

class FileWindow;

/// The format that the file's first bytes name: "JPEG", "HEIC", "AVIF", "PNG", "GIF", "WebP", "BMP", "TIFF", "CR3", "MP4",
/// "PDF", "ZIP", "gzip", "RAR", "7z" or "PSD"; "" where they name none of these.
QString formatOfBytes(FileWindow &file);

/// True if a file with this suffix, in any case, may well hold that format; "" fits every suffix.
bool formatFits(const QString &format, const QString &suffix);
