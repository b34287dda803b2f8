#include "engine/heic/HeicRoad.h"

#include "app/StopFlag.h"
#include "engine/OneFile.h"
#include "engine/jpg_repair.h"

#include <QFileInfo>

namespace {

RepairReason reasonOfFailure()
{
    if (!pApp->pHeicSource) return RepairReason::Unreadable;
    if (pApp->pHeicSource->size() == 0) return RepairReason::Empty;
    return pApp->bHeicOddTileCount ? RepairReason::TilesUnknown : RepairReason::BoxesLost;
}

/// False if the file can't be rewritten from itself.
bool analyseAndRewrite(jpg_repair &engine, const QString &path)
{
    if (engine.Heic(path)) {
        engine.WriteFileData(engine.writeFileWithoutRef(path));
        return true;
    }
    if (!stopRequested()) pApp->report.reason = reasonOfFailure();
    return false;
}

} // namespace

QString heicFolder()
{
    return pApp->strTempDir + QLatin1String("HEIC_Repaired/");
}

bool isHeicName(const QString &name)
{
    return QFileInfo(name).suffix().compare(QLatin1String("HEIC"), Qt::CaseInsensitive) == 0;
}

QString repairHeic(jpg_repair &engine, const QString &path)
{
    bool good = analyseAndRewrite(engine, path);
    if (!stopRequested() && pApp->nInvalidCount == 1) good = analyseAndRewrite(engine, path);
    return QLatin1String(good || stopRequested() ? status::Unreached : status::Invalid);
}

void repairHeicWithSample(jpg_repair &engine, const QString &samplePath, const QString &path)
{
    engine.CheckingImageType(path);
    engine.WriteFileData(engine.writeFileWithRef(path, samplePath));
}
