// Draws the pictures of this folder, damages them and writes them: `make_samples DIR`. The bytes are the same every
// time. README.md says what is broken in each file and what should come out of it; the two change together.

#include "support/Damage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <vector>

using namespace words;

namespace {

struct Sample
{
    const char *name;
    QByteArray bytes;
};

Damage picture(int variant, const JpegOptions &options)
{
    return Damage(makeJpeg(drawPicture(320, 240, variant), options));
}

QByteArray thumbnail(int variant)
{
    return makeJpeg(drawPicture(80, 60, variant), {.quality = 75, .oneDqt = true});
}

// Recognition needs a table's head: the counts and three symbols of a DHT, the first 25 values of a DQT. Offsets from a
// segment's length field.
constexpr int kSymbolsBehindHead = 22;
constexpr int kFirstAcTable = 29; // in a DHT of all tables: behind the table of 12 DC symbols
constexpr int kFirstTableTail = 3 + 25;
constexpr int kSecondTableTail = kFirstTableTail + 65;
constexpr int kTailValues = 64 - 25;

QByteArray damagedDhtSymbols()
{
    return picture(0, {.quality = 90})
        .zero(at(DHT, 1) + kSymbolsBehindHead, 150)
        .fill(at(DHT, 3) + kSymbolsBehindHead, 150, 0x11);
}

QByteArray damagedDqtTail()
{
    return picture(1, {.quality = 90, .oneDqt = true})
        .fill(at(DQT) + kFirstTableTail, kTailValues, char(0xF0))
        .zero(at(DQT) + kSecondTableTail, kTailValues);
}

QByteArray damagedThreeTables()
{
    return picture(2, {.quality = 88, .quantTables = 3, .oneDqt = true, .oneDht = true})
        .zero(at(DQT) + kFirstTableTail, kTailValues)
        .zero(at(DHT) + kFirstAcTable + kSymbolsBehindHead, 100);
}

QByteArray illegalCodesInScan()
{
    // A restart at each row of blocks keeps the damage in its row.
    return picture(3, {.quality = 90, .restartMcus = 20})
        .put(inScan(1000), "\xFF\x01")
        .put(inScan(4000), "\xFF\xF3\xFF\x7E")
        .put(inScan(7000), "\xFF\xFF\xFF\xFF");
}

QByteArray lostHeadTablesLeft()
{
    const JpegOptions options{
        .quality = 90,
        .segments = {commentSegment("The first bytes of this file are lost, up to the middle of this "
                                    "comment."),
                     segment(APP2, 200)}};
    return picture(4, options).dropHead(upTo(COM) + 30);
}

QByteArray thumbnailBrokenMain()
{
    const JpegOptions options{.quality = 90, .jfif = false, .segments = {exifSegment(thumbnail(6))}};
    return picture(6, options).zero(upTo(SOF0), 19);
}

QByteArray threeInARow()
{
    // Padded to 512 bytes each, as cameras lay down a stream.
    QByteArray row;
    for (int variant : {7, 8, 9}) {
        row += makeJpeg(drawPicture(160, 120, variant), {.quality = 90, .oneDqt = true});
        row += QByteArray(512 - row.size() % 512, '\0');
    }
    return row;
}

QByteArray progressiveDamagedDqt()
{
    return picture(10, {.quality = 90, .progressive = true})
        .fill(at(DQT, 0) + kFirstTableTail, kTailValues, 0x7F)
        .zero(at(DQT, 1) + kFirstTableTail, kTailValues);
}

QByteArray greyDamagedDht()
{
    return Damage(makeJpeg(drawGreyPicture(320, 240, 11), {.quality = 90, .oneDht = true}))
        .zero(at(DHT) + kFirstAcTable + kSymbolsBehindHead, 100);
}

QByteArray lostTail()
{
    const Damage whole = picture(12, {.quality = 90});
    const qint64 data = whole.offsetOf(inScan(0));
    return Damage(whole).cutAt(inScan((whole.bytes().size() - data) * 2 / 3));
}

std::vector<Sample> allSamples()
{
    return {
        {"damaged-dht-symbols.jpg", damagedDhtSymbols()},
        {"damaged-dqt-tail.jpg", damagedDqtTail()},
        {"damaged-three-tables.jpg", damagedThreeTables()},
        {"grey-damaged-dht.jpg", greyDamagedDht()},
        {"illegal-codes-in-scan.jpg", illegalCodesInScan()},
        {"junk-in-front.jpg", picture(13, {.quality = 90}).junkInFront(300)},
        {"lost-head-tables-left.jpg", lostHeadTablesLeft()},
        {"lost-head-up-to-dqt.jpg", picture(5, {.quality = 90}).dropHead(upTo(DQT))},
        {"lost-tail.jpg", lostTail()},
        {"progressive-damaged-dqt.jpg", progressiveDamagedDqt()},
        {"three-in-a-row.jpg", threeInARow()},
        {"thumbnail-broken-main.jpg", thumbnailBrokenMain()},
        {"trailing-bytes.jpg", picture(14, {.quality = 90}).append(junk(500))},
    };
}

} // namespace

int main(int argc, char **argv)
{
    QTextStream err(stderr);
    if (argc != 2) {
        err << "usage: make_samples DIR\n";
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const Sample &sample : allSamples()) {
        QFile file(folder.filePath(sample.name));
        if (!file.open(QIODevice::WriteOnly) || file.write(sample.bytes) != sample.bytes.size() || !file.flush()) {
            err << "make_samples: can't write " << file.fileName() << ": " << file.errorString() << '\n';
            return 1;
        }
    }
    return 0;
}
