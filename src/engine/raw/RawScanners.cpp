// jpg_repair: the scanners of camera raw, one for each suffix.

#include "app/KesmiraApp.h"
#include "engine/OutputNames.h"
#include "engine/jpg_repair.h"
#include "engine/raw/Cr3Scan.h"
#include "engine/raw/RawFormats.h"
#include "engine/raw/RawOutput.h"

#include <limits>

namespace {

constexpr quint64 kLargestFile = std::numeric_limits<quint32>::max();

struct Scanner
{
    const char *suffix;
    void (jpg_repair::*scan)(const QString &path);
};

constexpr Scanner kScanners[] = {
    {"CR2", &jpg_repair::ScanCR2},     {"NRW", &jpg_repair::ScanNRW}, {"ARW", &jpg_repair::ScanARW},
    {"NEF", &jpg_repair::ScanNEF},     {"SR2", &jpg_repair::ScanSR2}, {"SRF", &jpg_repair::ScanSRF},
    {"TIFF", &jpg_repair::ScanTIFF},   {"CRW", &jpg_repair::ScanCRW}, {"PEF", &jpg_repair::ScanPEF},
    {"ORF", &jpg_repair::ScanORF},     {"RAF", &jpg_repair::ScanRAF}, {"RW2", &jpg_repair::ScanRW2},
    {"DNG", &jpg_repair::ScanDNG},     {"ERF", &jpg_repair::ScanERF}, {"MRW", &jpg_repair::ScanMRW},
    {"CR3", &jpg_repair::ScanCR3Size},
};

void writeOne(FileWindow &file, const RawImage &image, const QString &wanted, RepairWay way)
{
    const quint32 size = quint32(file.size());
    if (image.length == 0 || image.length >= size || image.start >= size) return;
    const QString name = outputName(pApp->strCurrentPath, wanted);
    if (writeRawImage(file, image.start, image.length, name, way)) pApp->lstResultNames.append(name);
}

/// The frame of all scanners but CR3's.
void scanFile(const QString &path, const char *suffix)
{
    const RawFormat &format = *rawFormat(QLatin1String(suffix));
    FileWindow file(path);
    if (!file.isOpen() || file.size() > kLargestFile) return;
    RepairWay way = RepairWay::Pointers;
    const RawImages images = findRawImages(file, format, way);
    const QString base = rawBaseName(path, format.keepsWholeName);
    writeOne(file, images.first, base + QLatin1String("_1") + QLatin1String(format.ending), way);
    writeOne(file, images.second, base + QLatin1String("_2") + QLatin1String(format.ending), way);
}

/// Sets `field` to the picture's name if there is one and it was written.
void writeCr3Image(FileWindow &file, const Cr3Image &image, const QString &wanted, bool carved, QString &field)
{
    if (image.length == 0) return;
    const QString name = outputName(pApp->strCurrentPath, wanted);
    const quint64 start = image.blank ? file.size() : image.start;
    if (writeRawImage(file, start, image.length, name, carved ? RepairWay::Carve : RepairWay::Pointers)) field = name;
}

} // namespace

bool jpg_repair::scanRaw(bool workingCopy)
{
    const QString suffix = pApp->strFileSuffix.toUpper();
    for (const Scanner &scanner : kScanners) {
        if (suffix != QLatin1String(scanner.suffix)) continue;
        // A working copy is never a CR3.
        if (workingCopy && scanner.scan == &jpg_repair::ScanCR3Size) return false;
        (this->*scanner.scan)(pApp->strCurrentPath);
        return true;
    }
    return false;
}

void jpg_repair::ScanCR2(const QString &path)
{
    scanFile(path, "CR2");
}
void jpg_repair::ScanNRW(const QString &path)
{
    scanFile(path, "NRW");
}
void jpg_repair::ScanARW(const QString &path)
{
    scanFile(path, "ARW");
}
void jpg_repair::ScanNEF(const QString &path)
{
    scanFile(path, "NEF");
}
void jpg_repair::ScanSR2(const QString &path)
{
    scanFile(path, "SR2");
}
void jpg_repair::ScanSRF(const QString &path)
{
    scanFile(path, "SRF");
}
void jpg_repair::ScanTIFF(const QString &path)
{
    scanFile(path, "TIFF");
}
void jpg_repair::ScanCRW(const QString &path)
{
    scanFile(path, "CRW");
}
void jpg_repair::ScanPEF(const QString &path)
{
    scanFile(path, "PEF");
}
void jpg_repair::ScanORF(const QString &path)
{
    scanFile(path, "ORF");
}
void jpg_repair::ScanRAF(const QString &path)
{
    scanFile(path, "RAF");
}
void jpg_repair::ScanRW2(const QString &path)
{
    scanFile(path, "RW2");
}
void jpg_repair::ScanDNG(const QString &path)
{
    scanFile(path, "DNG");
}
void jpg_repair::ScanERF(const QString &path)
{
    scanFile(path, "ERF");
}
void jpg_repair::ScanMRW(const QString &path)
{
    scanFile(path, "MRW");
}

void jpg_repair::ScanCR3Size(const QString &path)
{
    FileWindow file(path);
    if (!file.isOpen() || file.size() > kLargestFile) return;
    const Cr3Images images = findCr3Images(file, nCarvePosition);
    const QString base = rawBaseName(path);
    writeCr3Image(file, images.thumbnail, base + QLatin1String("_3.jpg"), images.carved, pApp->strCr3ThumbName);
    writeCr3Image(file, images.preview, base + QLatin1String("_2.jpg"), images.carved, pApp->strCr3PreviewName);
    writeCr3Image(file, images.full, base + QLatin1String("_1.jpg"), images.carved, pApp->strCr3FullName);
    // The names outlive the file: where it gives fewer pictures than an earlier one, that one's are listed again.
    for (const QString &name : {pApp->strCr3FullName, pApp->strCr3PreviewName, pApp->strCr3ThumbName})
        if (!name.isEmpty()) pApp->lstResultNames.append(name);
}
