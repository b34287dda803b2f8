// jpg_repair: the walks of a whole file and of working copies.

#include "app/StopFlag.h"
#include "engine/Markers.h"
#include "engine/NestedSearch.h"
#include "engine/PlainWalk.h"
#include "engine/jpg_repair.h"

namespace {

// Starts a walk on clean flags and lets nothing of it outlive it.
class ContainerScope
{
public:
    ContainerScope(StreamImages *&slot, StreamImages &images) : m_slot(slot) { m_slot = &images; }
    ~ContainerScope() { m_slot = nullptr; }

private:
    StreamImages *&m_slot;
};

} // namespace

void jpg_repair::TraverseExistingJpgFile(const QString &, FileWindow *file, qint64 start)
{
    const quint64 size = pApp->nFileSize;
    const auto from = quint64(start);
    pApp->nWalkFileSize = size;
    pApp->nThumbOffset = 0;
    pApp->bContainerWalk = false;
    beginWalk();

    bool endsAsJpeg = true;
    int boundaries = 0;
    ScanMap map(size);
    if (from < size && !stopRequested()) {
        endsAsJpeg = file->wordAt(from) == jpeg::SOI && file->wordAt(size - 2) == jpeg::EOI;
        boundaries = countImageBoundaries(*file, from, size, map);
    }
    // Three whole images make a stream; two do where the file doesn't begin and end as a JPEG.
    pApp->bContainerWalk = boundaries >= 6 || (boundaries >= 4 && !endsAsJpeg);
    if (pApp->bContainerWalk)
        walkContainer(*file, from);
    else
        PlainWalk(*this, *file, WalkKind::WholeFile, map).run(from);
}

void jpg_repair::walkContainer(FileWindow &file, quint64 start)
{
    const quint64 size = pApp->nFileSize;
    StreamImages images(file, size);
    const ContainerScope scope(m_stream, images);
    if (start < size && !stopRequested()) pApp->bSteppedOverBytes = true;
    for (quint64 at = file.nextFF(start, size); at < size && !stopRequested();) {
        if (file.wordAt(at) == jpeg::SOI && jpeg::isImageOpener(file.wordAt(at + 2))) {
            quint8 head[kHeadBytes];
            ReadDataFromCurrentOffset(&file, qint64(at), head, sizeof head);
            AddList(&pApp->pMainListHead, &pApp->pMainListTail, head, &file, qint64(at));
            at += 2;
        }
        at = file.nextFF(at + 1, size);
    }
}

void jpg_repair::beginWalk()
{
    bDhtUsable = false;
    bDqtSeen = false;
    bSecondImage = false;
    m_nodes = 0;
}

void jpg_repair::TraverseTempThumbFile(const QString &, FileWindow *file, qint64 start)
{
    beginWalk();
    PlainWalk(*this, *file, WalkKind::WorkingCopy, ScanMap()).run(quint64(start));
}

void jpg_repair::TraverseTempThumbFileRaw(const QString &, FileWindow *file, qint64 start)
{
    beginWalk();
    pApp->nDqt67Count = 0;
    pApp->nDhtCount = 0;
    PlainWalk(*this, *file, WalkKind::StreamCopy, ScanMap()).run(quint64(start));
}
