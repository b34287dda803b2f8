#include "RawCheck.h"

#include "FuzzRun.h"
#include "engine/raw/RawFormats.h"
#include "support/ByteSource.h"
#include "support/SteppingCarve.h"

namespace {

bool leadsToStart(const QByteArray &file, const RawImage &image)
{
    return image == RawImage() || file.mid(int(image.start), 2) == "\xFF\xD8";
}

} // namespace

void checkRaw(const QByteArray &file, const QStringList &suffixes)
{
    const int blockSize = 1 + (file.isEmpty() ? 0 : quint8(file.back()));
    for (const QString &suffix : suffixes) {
        const RawFormat &format = *rawFormat(suffix);
        ByteSource source(file);
        FileWindow window(source);
        FileWindow narrow(source, blockSize);
        RepairWay way = RepairWay::Main;
        const RawImages images = findRawImages(window, format, way);
        RepairWay narrowWay = RepairWay::Main;
        demand(findRawImages(narrow, format, narrowWay) == images && narrowWay == way, "the block size shows");
        const RawImages expected = steppingCarve(file, suffix);
        demand(carve(narrow, format.carve) == expected, "the carves differ");
        if (way == RepairWay::Carve) demand(images == expected, "this is not what the carve gives");
        if (way == RepairWay::Pointers)
            demand(leadsToStart(file, images.first) && leadsToStart(file, images.second), "pointers to no picture");
    }
}
