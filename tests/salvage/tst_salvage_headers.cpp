// Damaged headers: DHT bodies cut into their tables, markers that have lost their FF, scan headers that are spoilt or gone,
// and files that went over seven bits.

#include "Apart.h"
#include "Drawn.h"

#include "salvage/EighthBit.h"
#include "salvage/Salvage.h"
#include "salvage/tables/TableCut.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

using namespace salvage;
using namespace words;
using namespace drawn;

Q_DECLARE_METATYPE(JpegOptions)

namespace {

const std::vector<HuffmanKey> kOrder = {0x00, 0x10, 0x01, 0x11};

/// The tables of a picture's own, in the order of kOrder, each as a DHT has it.
const std::vector<QByteArray> &ownParts()
{
    static const std::vector<QByteArray> parts = [] {
        const Apart apart = takeApart(makeJpeg(drawPicture(320, 240), {.quality = 92, .optimised = true}));
        std::vector<QByteArray> all;
        for (const HuffmanKey key : kOrder) all.push_back(dhtBody(key, apart.header.huffman.at(key)));
        return all;
    }();
    return parts;
}

QByteArray joined(const std::vector<QByteArray> &parts)
{
    QByteArray body;
    for (const QByteArray &part : parts) body += part;
    return body;
}

/// Adds to the byte at `place` of part `n`.
std::vector<QByteArray> hit(std::vector<QByteArray> parts, size_t n, int place, int by)
{
    parts.at(n)[place] = char(parts.at(n)[place] + by);
    return parts;
}

QByteArray withoutEighthBits(QByteArray file, int to)
{
    for (int i = 0; i < to; ++i) file[i] = char(quint8(file[i]) & 0x7F);
    return file;
}

int headerSize(const QByteArray &file)
{
    return file.lastIndexOf("\xFF\xDA\0\x0C", -1) < 0 ? 0 : int(Damage(file).offsetOf(inScan(0)));
}

/// Takes the FF of every `step`-th marker in front of the data, SOI's apart.
QByteArray withoutPrefixes(const QByteArray &file, int step)
{
    QByteArray damaged = file;
    const std::vector<SegmentPlace> places = segmentPlaces(file);
    const qint64 end = headerSize(file);
    for (size_t i = places.size(); i-- > 1;)
        if (places[i].offset < end && int(i) % step == 0) damaged.remove(int(places[i].offset), 1);
    return damaged;
}

} // namespace

class TestSalvageHeaders : public QObject
{
    Q_OBJECT

private slots:
    void tablesAreCut_data();
    void tablesAreCut();
    void noTablesInRubbish();
    void headersComeBack_data();
    void headersComeBack();
    void eighthBitsComeBack_data();
    void eighthBitsComeBack();
    void wholeFilesKeepTheirBits_data();
    void wholeFilesKeepTheirBits();
};

void TestSalvageHeaders::tablesAreCut_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("lostKey"); // place in kOrder of the table whose key is lost, -1 for none
    const std::vector<QByteArray> &own = ownParts();
    QTest::newRow("sound") << joined(own) << -1;
    QTest::newRow("a count of two tables each") << joined(hit(hit(own, 0, 4, 9), 2, 7, 30)) << -1;
    QTest::newRow("a count of neighbours each") << joined(hit(hit(own, 1, 5, 70), 2, 9, 3)) << -1;
    QTest::newRow("two counts of one table") << joined(hit(hit(own, 1, 4, 16), 1, 9, 8)) << -1;
    QTest::newRow("a key that can't be") << joined(hit(own, 2, 0, 0x7F)) << 2;
    QTest::newRow("AC called DC") << joined(hit(own, 1, 0, -0x10)) << 1;
    QTest::newRow("a size of DC") << joined(hit(own, 0, 18, 0x60)) << -1;
    std::vector<QByteArray> apart = own;
    apart[2] = bytes({0xEF, 0xC4}) + word(apart[2].size() + 2) + apart[2];
    QTest::newRow("the head of a segment inside") << joined(apart) << -1;
}

void TestSalvageHeaders::tablesAreCut()
{
    QFETCH(QByteArray, body);
    QFETCH(int, lostKey);
    const TableCut cut = cutTables(view(body), false, annexKOnly());
    QCOMPARE(cut.tables.size(), kOrder.size());
    for (size_t i = 0; i < kOrder.size(); ++i) {
        const CutTable &table = cut.tables[i];
        QCOMPARE(table.keyLost, int(i) == lostKey);
        if (!table.keyLost) QCOMPARE(int(table.key), int(kOrder[i]));
        QCOMPARE(int(tableClass(table.key)), int(tableClass(kOrder[i])));
        QVERIFY(std::any_of(table.options.begin(), table.options.end(), [&](const TableOption &option) {
            return dhtBody(kOrder[i], option.table) == ownParts()[i];
        }));
    }
}

void TestSalvageHeaders::noTablesInRubbish()
{
    for (quint32 seed = 1; seed < 20; ++seed)
        QVERIFY(cutTables(view(junk(300, seed)), false, annexKOnly()).tables.empty());
    QVERIFY(cutTables({}, false, annexKOnly()).tables.empty());
    QVERIFY(cutTables(view(QByteArray(1100, '\0')), true, annexKOnly()).tables.empty());
}

void TestSalvageHeaders::headersComeBack_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("healthy");
    const auto row = [](const char *name, const QByteArray &file, const JpegOptions &options) {
        QTest::newRow(name) << file << jpeg(options);
    };
    JpegOptions withThumbnail = kOwn;
    withThumbnail.segments = {exifSegment(makeJpeg(drawPicture(160, 120, 3), kKnown))};
    row("FF: all markers", withoutPrefixes(jpeg(kOwn), 1), kOwn);
    row("FF: every second marker", withoutPrefixes(jpeg(kRestarts), 2), kRestarts);
    row("FF: all markers, a thumbnail in Exif", withoutPrefixes(jpeg(withThumbnail), 1), withThumbnail);
    row("FF: progressive", withoutPrefixes(jpeg(kProgressive), 1), kProgressive);
    row("SOS: count and end of band", damaged(kOwn).put(at(SOS) + 2, "\xFC").put(at(SOS) + 10, "\x56"), kOwn);
    row("SOS: one component twice", damaged(kOwn).put(at(SOS) + 5, "\x01"), kOwn);
    row("SOS: length of one component", damaged(kOwn).put(at(SOS), word(8)), kOwn);
    row("SOS: fields, progressive",
        damaged(kProgressive).put(at(SOS) + 3, "\x07").put(at(SOS) + 4, "\x10").put(at(SOS) + 11, "\x59"),
        kProgressive);
    row("SOS: lost, progressive", damaged(kProgressive).remove(upTo(SOS), 14), kProgressive);
    row("SOS: lost, a thumbnail in Exif", Damage(jpeg(withThumbnail)).remove(upTo(SOS), 14), withThumbnail);
    row("SOS: lost, a preview behind", damaged(kOwn).remove(upTo(SOS), 14).append(jpeg(kKnown, 160, 120)), kOwn);
    row("SOF: an id, progressive", damaged(kProgressive).put(at(SOF2) + 14, "\x87"), kProgressive);
    const QByteArray odd = jpeg(kOwn, 318, 237); // sides that end inside their last MCU
    QTest::newRow("SOF: upper byte of the height") << Damage(odd).put(at(SOF0) + 3, "\x1E").bytes() << odd;
    QTest::newRow("SOF: upper byte of the width") << Damage(odd).put(at(SOF0) + 5, "\x09").bytes() << odd;
    row("DHT: DC called AC", damaged(kOwn).put(at(DHT, 2) + 2, "\x10"), kOwn);
    row("DHT: a count too low for its length", damaged(kOwn).put(at(DHT, 3) + 9, "\x01"), kOwn);
    row("DHT: first of a progressive picture, key", damaged(kProgressive).put(at(DHT, 1) + 2, "\xE4"), kProgressive);
}

void TestSalvageHeaders::headersComeBack()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, healthy);
    Budget budget;
    QVERIFY(file != healthy);
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(largestDifference(shown(found->file), shown(healthy)), 0);
    QVERIFY(found->perfect);
}

void TestSalvageHeaders::eighthBitsComeBack_data()
{
    QTest::addColumn<QByteArray>("healthy");
    QTest::addColumn<int>("lostTo"); // offset
    const auto row = [](const char *name, const QByteArray &healthy, int lostTo) {
        QTest::newRow(name) << healthy << (lostTo ? lostTo : headerSize(healthy));
    };
    row("known tables", jpeg(kKnown), 0);
    row("own tables", jpeg(kOwn), 0);
    row("progressive", jpeg(kProgressive), 0);
    row("width and height", jpeg(kOwn, 200, 184), 0);
    row("sides that may be mixed up", jpeg({.quality = 88, .sampling = 444}, 500, 375), 0);
    row("an interval of 150", jpeg({.quality = 88, .restartMcus = 150}), 0);
    row("large steps of quantization", jpeg({.quality = 20}), 0);
    row("the first bytes alone", jpeg(kOwn), 120);
    JpegOptions withThumbnail = kOwn;
    withThumbnail.segments = {exifSegment(makeJpeg(drawPicture(160, 120, 3), kKnown))};
    row("a long segment", jpeg(withThumbnail), 0);
}

void TestSalvageHeaders::eighthBitsComeBack()
{
    QFETCH(QByteArray, healthy);
    QFETCH(int, lostTo);
    const QByteArray file = withoutEighthBits(healthy, lostTo);
    Budget budget;
    const std::optional<Result> found = salvage::salvage(view(file), annexKOnly(), budget);
    QVERIFY(found);
    QCOMPARE(largestDifference(shown(found->file), shown(healthy)), 0);
    QCOMPARE(int(found->steps.front()), int(Step::TransferUndone));
    QCOMPARE(int(found->certainty), int(Certainty::Likely));
}

void TestSalvageHeaders::wholeFilesKeepTheirBits_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("a healthy picture") << jpeg(kOwn);
    QTest::newRow("text") << QByteArray("\x7FXtext without a picture").repeated(9);
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a header that leads nowhere") << withoutEighthBits(jpeg(kOwn).left(300), 300);
    QTest::newRow("markers without end") << "\x7FX" + QByteArray("\x7F\x60\0\x02", 4).repeated(5000);
}

void TestSalvageHeaders::wholeFilesKeepTheirBits()
{
    QFETCH(QByteArray, file);
    Budget budget;
    QVERIFY(!restoreEighthBits(view(file), annexKOnly(), budget));
}

QTEST_GUILESS_MAIN(TestSalvageHeaders)
#include "tst_salvage_headers.moc"
