#include "engine/raw/RawOutput.h"

#include "app/StopFlag.h"
#include "engine/FileWindow.h"
#include "engine/MediumFaults.h"
#include "engine/OneFile.h"
#include "engine/Wholeness.h"
#include "save/ScratchFile.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <memory>
#include <unistd.h>

namespace {

constexpr quint64 kBlock = 64 * 1024;

bool copyBytes(FileWindow &file, quint64 start, quint32 length, FILE *out)
{
    const quint64 stored = start < file.size() ? std::min<quint64>(length, file.size() - start) : 0;
    const auto block = std::make_unique<char[]>(kBlock);
    for (quint64 done = 0; done < stored;) {
        const quint64 step = std::min(kBlock, stored - done);
        file.read(start + done, block.get(), qint64(step));
        writeBytes(out, block.get(), qint64(step));
        done += step;
    }
    if (stored == length) return true;
    return std::fflush(out) == 0 && ::ftruncate(::fileno(out), off_t(length)) == 0;
}

} // namespace

QString rawBaseName(const QString &path, bool whole)
{
    constexpr int kLongest = 255 - int(sizeof "_1.jpeg" - 1);
    QString base = workingName(path);
    if (!whole) base = base.section(QLatin1Char('.'), 0, 0, QString::SectionSkipEmpty);
    while (QFile::encodeName(base).size() > kLongest) base.chop(1);
    return base;
}

bool writeRawImage(FileWindow &file, quint64 start, quint32 length, const QString &name, RepairWay way)
{
    QDir().mkdir(pApp->strTempDir);
    const QString path = pApp->strTempDir + name;
    FileGuard out = guarded(createOutput(path));
    if (!out) return false;
    const bool stretched = copyBytes(file, start, length, out.get());
    if (!closeFile(out.release()) || !stretched) {
        if (!stretched) pApp->report.reason = RepairReason::DiskFull;
        dropFile(path); // half a picture would pass for a whole one
        return false;
    }
    OutputReport output{name, path, way, QSize(), QImage(), {}};
    if (!stopRequested()) {
        const Verdict verdict = judgeJpeg(path);
        output.size = verdict.size;
        output.icon = verdict.icon;
        output.wholeness = wholenessOf(path, verdict);
        lessen(output.wholeness, refusedBytes(start, start + length), length);
        if (!verdict.decodes && !verdict.stopped) pApp->report.decoderRefused = true;
        if (pApp->report.decoderWarning.isEmpty()) pApp->report.decoderWarning = verdict.warning();
    }
    pApp->report.outputs.append(output);
    return true;
}
