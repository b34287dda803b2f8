// The count of image boundaries in a file, and with it a coarse map of where the scan holds anything of note, so that the
// walk that follows need not read the file a second time.
#pragma once

#include "engine/FileWindow.h"

#include <vector>

/// One bit for each 16 KiB of a file: clear where no FF code in it ends a scan, is illegal in one or begins an image.
/// 8 KiB for a file of 1 GiB.
class ScanMap
{
public:
    /// A map that knows nothing: every byte may matter.
    ScanMap() = default;
    explicit ScanMap(quint64 fileSize) : m_loud(size_t(fileSize / kChunk + 1), false) {}

    void markLoud(quint64 offset) { m_loud[size_t(offset / kChunk)] = true; }
    /// Offset of the next FF in [from, end) that may matter to a scan, or `end`. Every one that does is found.
    quint64 next(FileWindow &file, quint64 from, quint64 end) const;

private:
    static constexpr quint64 kChunk = 16 * 1024;
    std::vector<bool> m_loud; // empty: knows nothing
};

/// Counts the well-formed starts and ends of images met in turn from `start` on, and marks the map.
int countImageBoundaries(FileWindow &file, quint64 start, quint64 fileSize, ScanMap &map);
