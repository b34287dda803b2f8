// SaveFile: the images nested in a JPEG, each by way of a working copy of its own.

#include "engine/jpg_repair.h"
#include "save/SaveFile.h"
#include "save/ScratchFile.h"
#include "save/ScratchFolder.h"
#include "save/SkipFlags.h"

#include <QDir>
#include <QScopeGuard>

namespace {

/// Both ends of one image, or both and a further one left open.
bool isOneImage(qint32 marks)
{
    return marks == 2 || marks == 3;
}

} // namespace

SaveFile::Output SaveFile::nestedOutput(const QString &name, const QString &path) const
{
    Output output;
    output.scratch = scratchFolder() + QLatin1String("//") + name;
    output.path = path;
    output.name = name;
    if (pApp->bThumbOnlyMode) {
        output.failureText = tr("Marker missing. Failed to extract thumbnail");
        output.failureState = wStateThumbCorrupt;
        output.failureMark = bFromNestedWriter ? QLatin1String("     ") + tr("(Thumbnail Corrupt)")
                                               : QStringLiteral("    (Thumbnail Corrupt)");
    } else {
        output.failureText = tr("Important marker missing. File can't repaire.");
        output.failureState = wStateFailed;
    }
    return output;
}

FILE *SaveFile::openWorkingCopy()
{
    const QString folder = scratchFolder() + QLatin1String("//");
    QDir().mkdir(folder);
    if (pApp->bThumbOnlyMode) pApp->bWorkOnTempCopy = false;
    pApp->strTempCopyPath = folder + QLatin1String("temp.jpg");
    pApp->nThumbPass = 1;
    FILE *out = createOutput(pApp->strTempCopyPath); // the last image's is done with
    if (out) pApp->bWorkOnTempCopy = true;
    return out;
}

/// False if there is no whole working copy, and so no image to make of it.
bool SaveFile::fillWorkingCopy(const std::function<void(FILE *)> &write)
{
    m_lost = false;
    FileGuard out = guarded(openWorkingCopy());
    if (out) write(out.get());
    return closeWhole(out.release(), pApp->strTempCopyPath);
}

bool SaveFile::isSingle() const
{
    return isOneImage(nApp1Marks) || isOneImage(nApp13Marks) || isOneImage(nApp2Marks) || isOneImage(nSoiMarks);
}

SaveFile::Turn SaveFile::chooseTurn(int &imageIndex, int &passes) const
{
    const Turn first = {true, 1, true};
    if (!isSingle()) return imageIndex == 0 ? first : Turn{false, unsigned(imageIndex) + 1, false};
    const bool firstOfKind = passes == 0 || (nApp13Images > 1 && !isOneImage(nApp2Marks) && !isOneImage(nSoiMarks));
    ++passes;
    if (firstOfKind && imageIndex == 0) return first;
    if (!firstOfKind) imageIndex = 1;
    return {false, unsigned(imageIndex) + 1, false};
}

/// False if a skip was asked for: the stage is left at once, and its phase stays marked.
bool SaveFile::writeNestedImages()
{
    int imageIndex = 0;
    int passes = 0;
    while (nImagesToWrite >= 1) {
        const bool filled = fillWorkingCopy([&](FILE *out) { ReadForSave_thumb(out, imageIndex); });
        const Turn turn = chooseTurn(imageIndex, passes);
        if (filled && !writeNested(turn)) return false;
        if (turn.first) imageIndex = 0;
        if (!isSingle()) ++imageIndex;
        --nImagesToWrite;
    }
    return true;
}

bool SaveFile::writeNested(const Turn &turn)
{
    if (skipping()) return false;
    if (pApp->nThumbPass == 1) {
        pApp->nThumbPass = 2;
        jpg_repair engine;
        m_nestedFirst = nullptr;
        if (!turn.keepChain) engine.EmptyMemoryAllocation();
        FileWindow copy(pApp->strTempCopyPath);
        if (copy.isOpen()) {
            pApp->pCurrentFile = &copy;
            const auto leave = qScopeGuard([] { pApp->pCurrentFile = nullptr; });
            pApp->nTempCopySize = pApp->nFileSize = engine.GetFileSize(&copy);
            tagMainList *before = pApp->pMainListHead ? pApp->pMainListTail : nullptr;
            engine.TraverseTempThumbFile(pApp->strTempCopyPath, &copy, 0);
            m_nestedFirst = before ? before->pNext : pApp->pMainListHead;
        }
    }
    CheckMarkerSequence(turn.skipMode); // a nested image is judged by its decode alone
    const bool first = turn.first;
    const Output output = nestedOutput(first ? pApp->strThumb1Name : pApp->strThumb2Name,
                                       first ? pApp->strThumb1Path : pApp->strThumb2Path);
    buildAndCopy(output, [this, &turn](FILE *out) { SaveStart_newFormat(out, turn.skipMode); });
    return true;
}
