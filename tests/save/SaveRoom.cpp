#include "save/SaveRoom.h"

#include "app/KesmiraApp.h"
#include "app/WorkingRoot.h"
#include "engine/FileWindow.h"
#include "engine/OneFile.h"
#include "engine/jpg_repair.h"
#include "save/SaveFile.h"
#include "support/EngineView.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "tables/TableLibrary.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace {

QStringList filesBelow(const QString &folder)
{
    QStringList names;
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext()) names << QDir(folder).relativeFilePath(files.next());
    names.sort();
    return names;
}

} // namespace

QString describe(const std::vector<Record> &records)
{
    QStringList lines;
    for (const Record &r : records)
        lines << QStringLiteral("%1 at %2: number %3, done %4 of %5, state %6%7")
                     .arg(r.name, r.path)
                     .arg(r.number)
                     .arg(r.outputsDone)
                     .arg(r.outputIndex)
                     .arg(r.state)
                     .arg(QLatin1String(r.nested ? ", nested" : ""));
    return lines.join('\n');
}

SaveRoom::SaveRoom()
{
    *pApp = KesmiraApp();
    resetWalkState();
    const QString problem = prepareWorkingRoot();
    if (!problem.isEmpty()) qFatal("%s", qPrintable(problem));
    if (!beginRun()) qFatal("no working folder");
}

SaveRoom::~SaveRoom()
{
    resetWalkState();
    beginRun(); // forgets the records
}

QString SaveRoom::addSource(const QString &name, const QByteArray &bytes)
{
    return m_folder.source(name, bytes);
}

void SaveRoom::walk(const QString &source)
{
    pApp->strCurrentPath = source;
    pApp->strFileName = QFileInfo(source).fileName();
    pApp->lstResultNames.clear();
    pApp->report = RepairReport();
    pApp->bTrailingImages = false;
    FileWindow file(source);
    pApp->pCurrentFile = &file;
    pApp->nFileSize = file.size();
    jpg_repair().TraverseExistingJpgFile(source, &file, 0);
    pApp->pCurrentFile = nullptr;
}

void SaveRoom::save(const QString &name, const QByteArray &bytes)
{
    walk(addSource(name, bytes));
    SaveFile().Save();
    jpg_repair engine;
    engine.EmptyMemoryAllocation();
    engine.EmptyMemoryAllocationRaw();
}

QByteArray SaveRoom::written(const std::function<void(FILE *)> &write) const
{
    const QString path = m_folder.place("written");
    FILE *out = std::fopen(qPrintable(path), "wb+");
    if (!out) qFatal("no file to write");
    write(out);
    std::fclose(out);
    return RunFolder::bytesOf(path);
}

QStringList SaveRoom::outputs() const
{
    return filesBelow(pApp->strTempDir);
}

QStringList SaveRoom::leftovers() const
{
    QStringList names = filesBelow(workingRoot());
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const QString &name) { return name.startsWith("RepairedFiles/"); }),
                names.end());
    return names;
}

QByteArray SaveRoom::output(const QString &name) const
{
    return RunFolder::bytesOf(pApp->strTempDir + name);
}

std::vector<Record> SaveRoom::records() const
{
    std::vector<Record> all;
    for (const RepairedFileList *r = pApp->pRepairedHead; r; r = r->pNextResult)
        all.push_back({r->strName, QDir::cleanPath(QDir(pApp->strTempDir).relativeFilePath(r->strPath)),
                       int(r->nResultNumber), r->wOutputsDone, r->wOutputIndex, r->wState, r->bNested});
    return all;
}

const TableLibrary &noTables()
{
    static const TableLibrary empty;
    return empty;
}

QByteArray bareJpeg(const QByteArray &jpeg)
{
    QByteArray bare = word(words::SOI);
    for (const SegmentPlace &place : segmentPlaces(jpeg)) {
        if (place.marker == words::SOS) {
            const int end = jpeg.lastIndexOf(word(words::EOI));
            return bare + jpeg.mid(int(place.offset), end - int(place.offset)) + word(words::EOI);
        }
        const bool metadata = (place.marker >= 0xFFE0 && place.marker <= 0xFFEF) || place.marker == words::COM;
        if (place.marker != words::SOI && !metadata) bare += jpeg.mid(int(place.offset), place.length + 2);
    }
    qFatal("bareJpeg: no scan");
}

QByteArray blockwise(const QByteArray &from, int count)
{
    constexpr int kBlock = 1024;
    QByteArray buffer(kBlock, '\0');
    QByteArray copy;
    for (int size = count % kBlock ? count % kBlock : kBlock; copy.size() < count; size = kBlock) {
        const QByteArray part = from.mid(copy.size(), size);
        buffer.replace(0, part.size(), part);
        copy += buffer.left(size);
    }
    return copy;
}
