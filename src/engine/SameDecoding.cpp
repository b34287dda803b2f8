#include "engine/SameDecoding.h"

#include "engine/Markers.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

/// The first segment from `at` on that a decoder decodes by.
quint64 nextTelling(FileWindow &file, quint64 at)
{
    while (at < file.size() && (jpeg::isAppSegment(file.wordAt(at)) || file.wordAt(at) == jpeg::COM))
        at += 2 + file.wordAt(at + 2);
    return at;
}

/// Behind the first EOI from the scan header at `at` on, which ends decoding; 0 if there is none.
quint64 endOfPicture(FileWindow &file, quint64 at)
{
    for (at = file.nextFF(at, file.size()); at + 1 < file.size(); at = file.nextFF(at, file.size())) {
        const quint16 word = file.wordAt(at);
        if (word == jpeg::EOI) return at + 2;
        const bool inData = word == 0xFF00 || word == 0xFFFF || (word >= jpeg::RST0 && word <= jpeg::RST7);
        if (inData)
            at += word == 0xFFFF ? 1 : 2;
        else
            at += 2 + std::max<quint64>(file.wordAt(at + 2), 2);
    }
    return 0;
}

bool equalBytes(FileWindow &a, quint64 atA, FileWindow &b, quint64 atB, quint64 count)
{
    if (atA > a.size() || count > a.size() - atA || atB > b.size() || count > b.size() - atB) return false;
    std::vector<quint8> ofA(FileWindow::kBlockSize), ofB(FileWindow::kBlockSize);
    for (quint64 done = 0; done < count;) {
        const quint64 part = std::min<quint64>(count - done, FileWindow::kBlockSize);
        a.read(atA + done, ofA.data(), qint64(part));
        b.read(atB + done, ofB.data(), qint64(part));
        if (std::memcmp(ofA.data(), ofB.data(), size_t(part)) != 0) return false;
        done += part;
    }
    return true;
}

} // namespace

bool decodesAlike(FileWindow &source, FileWindow &picture)
{
    if (source.wordAt(0) != jpeg::SOI || picture.wordAt(0) != jpeg::SOI) return false;
    quint64 atSource = 2, at = 2;
    while (true) {
        atSource = nextTelling(source, atSource);
        at = nextTelling(picture, at);
        const quint16 word = picture.wordAt(at);
        if (!jpeg::isSegmentMarker(word)) return false;
        const quint64 end = word == jpeg::SOS ? endOfPicture(picture, at) : at + 2 + picture.wordAt(at + 2);
        if (end <= at || !equalBytes(source, atSource, picture, at, end - at)) return false;
        if (word == jpeg::SOS) return true;
        atSource += end - at;
        at = end;
    }
}
