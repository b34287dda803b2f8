// The searches for JPEG images nested in a segment, behind a picture or in a stream, by their SOI and EOI alone.
#pragma once

#include "engine/FileWindow.h"
#include "engine/SegmentList.h"

#include <deque>
#include <memory>

/// Images found, in the order of the file. Lengths run from SOI to behind EOI; an image left open has length 0 and is
/// the last one.
struct NestedImages
{
    std::vector<quint32> starts;
    std::vector<qint32> lengths;
    bool empty() const { return starts.empty(); }
    bool lastIsOpen() const { return !empty() && lengths.back() == 0; }
    /// 2 for each closed image, 1 for one left open.
    quint16 marks() const { return quint16(2 * starts.size() - (lastIsOpen() ? 1 : 0)); }
};

/// True if the SOI at `offset` opens a thumbnail as they stand in metadata: an accepted word behind it, with a length
/// that a thumbnail's own header can have.
bool opensNestedImage(FileWindow &file, quint64 offset);
/// True if any word that may follow an image's SOI follows the one at `offset`.
bool opensImage(FileWindow &file, quint64 offset);

/// Images nested in a metadata segment: words from `first` to `last` inclusive, 1,024 images at the most.
NestedImages imagesInSegment(FileWindow &file, quint64 first, quint64 last);

/// Images from a place to the file's end, for many places of one file in ascending order. From the end of its first image
/// on, every place sees the same ones, so they are searched once and shared.
class TrailingImages
{
public:
    TrailingImages(FileWindow &file, quint64 fileSize, size_t limit);
    /// Records the images from `offset` on in the node: its table, `nSoiNested` and `wSoiNestedFlag`.
    /// Returns how many starts were accepted; `closed` is set if one of them has its end.
    int record(SegmentNode &node, quint64 offset, bool &closed);

private:
    quint64 nextStart(quint64 from);
    quint64 nextEnd(quint64 from);
    void searchChain(quint64 from);

    FileWindow &m_file;
    quint64 m_size;
    size_t m_limit;
    std::shared_ptr<NestedTable<quint32>::Values> m_starts; // images behind the first one of the first place
    std::shared_ptr<NestedTable<qint32>::Values> m_lengths;
    struct Known // the answer to a search, good for every place between
    {
        quint64 from = 1;
        quint64 answer = 0;
    };
    Known m_start, m_end;
};

/// The first image from `offset` on, metadata segments hopped over as those of a stream's image are. Records it in the
/// node and returns as TrailingImages::record does.
int recordStreamImage(FileWindow &file, quint64 fileSize, SegmentNode &node, quint64 offset, bool &closed);

/// The same for every image of a stream. Where an image ends depends on its start alone, and searches that meet go on
/// alike: all ends are found in one pass from the file's end to its beginning, in memory that no file can make grow.
class StreamImages
{
public:
    StreamImages(FileWindow &file, quint64 fileSize);
    /// Records the image whose SOI stands at `offset`; ask in ascending order.
    int record(SegmentNode &node, quint64 offset, bool &closed);

private:
    struct Place
    {
        quint64 offset;
        quint64 end; // EOI that a search from here reaches, or the file's size
    };
    quint64 endFrom(quint64 offset) const;

    quint64 m_size;
    std::deque<Place> m_ahead;  // ends and metadata segments that a hop from the place in hand can reach
    std::deque<Place> m_images; // accepted starts, the first ones of the file
};
