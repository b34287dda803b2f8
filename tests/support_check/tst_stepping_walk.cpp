// Checks the slow walks against results that were worked out by hand, offset by offset.

#include "support/Grammar.h"
#include "support/SteppingWalk.h"

#include <QtTest>

using namespace words;

namespace {

enum class Walk { File, Copy, CopyContinued, Raw, RawContinued };

QString nodesText(const WalkResult &r)
{
    QStringList parts;
    for (const WalkNode &n : r.nodes)
        parts << QString("%1:%2@%3").arg(QString::number(n.wMarker, 16).toUpper()).arg(n.wLength).arg(n.nOffset);
    return parts.join(' ');
}

QString nestedText(const WalkResult &r)
{
    QStringList parts;
    for (const WalkNode &n : r.nodes)
        for (size_t i = 0; i < n.nestedStart.size(); ++i)
            parts << QString("%1+%2").arg(n.nestedStart[i]).arg(n.nestedLength[i]);
    return parts.join(' ');
}

QString countsText(const WalkResult &r)
{
    int sums[5] = {};
    for (const WalkNode &n : r.nodes) {
        const int counts[] = {n.nApp1Nested, n.nApp2Nested, n.nApp13Nested, n.nSoiNested, n.wSoiNestedFlag};
        for (int i = 0; i < 5; ++i) sums[i] += counts[i];
    }
    return QString("%1 %2 %3 %4 %5").arg(sums[0]).arg(sums[1]).arg(sums[2]).arg(sums[3]).arg(sums[4]);
}

/// What a walk left, by the name under which a row below tells what it expects.
QString aspect(const WalkResult &r, const QString &name)
{
    if (name == "nodes") return nodesText(r);
    if (name == "nested") return nestedText(r);
    if (name == "counts") return countsText(r); // APP1, APP2, APP13, SOI, flag, summed over the nodes
    if (name == "gaps") return QString("%1 %2 %3").arg(r.nGapAfterDqt1).arg(r.nGapAfterDqt2).arg(r.nGapAfterDqt3);
    if (name == "heads") // first two values of each
        return QString("%1 %2, %3 %4, %5 %6")
            .arg(r.aQuantHead1[0])
            .arg(r.aQuantHead1[1])
            .arg(r.aQuantHead2[0])
            .arg(r.aQuantHead2[1])
            .arg(r.aQuantHead3[0])
            .arg(r.aQuantHead3[1]);
    if (name == "dht") return QString::number(r.nDhtCount);
    if (name == "dqt67") return QString::number(r.nDqt67Count);
    if (name == "scan") return QString::number(r.nScanOffset);
    if (name == "container") return QString::number(r.bContainerWalk);
    if (name == "trailing") return QString::number(r.bTrailingImages);
    if (name == "thumb") return QString::number(r.bThumbFound);
    if (name == "stepped") return QString::number(r.bSteppedOverBytes);
    if (name == "frame") return QString("%1 %2").arg(r.nImageWidth).arg(r.nThirdQuantSelector);
    if (name == "images") return QString::number(r.nNestedImages);
    if (name == "faults") {
        QStringList parts;
        for (qint64 fault : r.faults) parts << QString::number(fault);
        return parts.join(' ');
    }
    return "no such aspect";
}

using Expected = QList<QPair<QString, QString>>;

void row(const char *name, Walk walk, const QByteArray &file, const Expected &expected)
{
    QTest::newRow(name) << walk << file << expected;
}

/// The example picture: SOI at 0, APP0 at 2, DQT at 20 and 89, SOF0 at 158, DHT at 177, SOS at 210, 40 bytes of data
/// from 224, EOI at 264; 266 bytes.
const char kMiniNodes[] = "FFD8:0@2 FFE0:16@4 FFDB:67@22 FFDB:67@91 FFC0:17@160 FFC4:31@179 FFDA:12@212";

/// The same without APP0: SOS at 192, data from 206.
QByteArray scanning(const QByteArray &data)
{
    return MiniJpeg{{}, 2, 1, data}();
}

/// 68 bytes that count as a thumbnail.
QByteArray small()
{
    return nestedImage(APP0, 16, 60);
}

void fileRows()
{
    const QByteArray mini = miniJpeg();
    const QByteArray end = word(EOI);
    const QString nodes = kMiniNodes;
    row("empty", Walk::File, {}, {{"nodes", ""}, {"stepped", "0"}, {"container", "0"}});
    row("one byte", Walk::File, bytes({0xFF}), {{"nodes", ""}, {"container", "0"}});
    row("intact", Walk::File, mini,
        {{"nodes", nodes + " FFD9:0@266"},
         {"faults", ""},
         {"stepped", "0"},
         {"gaps", "0 0 0"},
         {"dht", "1"},
         {"dqt67", "2"},
         {"scan", "210"},
         {"frame", "320 1"},
         {"images", "2"},
         {"heads", "10 11, 30 31, 0 0"}});
    row("100 zeros behind EOI", Walk::File, mini + QByteArray(100, '\0'),
        {{"nodes", nodes + " 0:0@366"}, {"faults", ""}, {"trailing", "0"}, {"images", "1"}});
    row("DHT word at the end", Walk::File, mini + filler(5) + word(DHT),
        {{"nodes", nodes + " FFC4:0@273"}, {"dht", "2"}});
    row("SOI at the end", Walk::File, mini + filler(5) + word(SOI),
        {{"nodes", nodes + " FFD8:0@273 0:0@275"}, {"trailing", "1"}, {"nested", ""}, {"counts", "0 0 0 0 0"}});
    row("image behind the picture", Walk::File, mini + mini,
        {{"nodes", nodes + " FFD8:0@268 FFD9:0@532"},
         {"nested", "266+266"},
         {"counts", "0 0 0 2 1"},
         {"trailing", "1"},
         {"thumb", "1"},
         {"images", "2"},
         {"container", "0"}});
    row("10 bytes of junk in front", Walk::File, junk(10) + mini,
        {{"nodes", "FFE0:16@14 FFDB:67@32 FFDB:67@101 FFC0:17@170 FFC4:31@189 FFDA:12@222 FFD9:0@276"},
         {"stepped", "1"}});
    row("junk in front, the thumbnail's EOI ends the search", Walk::File,
        junk(10) + MiniJpeg{segment(APP1, small() + filler(9))}(),
        {{"nodes", "FFDB:67@95 FFDB:67@164 FFC0:17@233 FFC4:31@252 FFDA:12@285 FFD9:0@339"}, {"container", "0"}});
    row("begins with DQT", Walk::File, mini.mid(20),
        {{"nodes", "FFDB:67@2 FFDB:67@71 FFC0:17@140 FFC4:31@159 FFDA:12@192 FFD9:0@246"}, {"stepped", "0"}});
    row("begins with APP0", Walk::File, mini.mid(2), {{"nodes", ""}});
    row("DHT of 419 without DQT", Walk::File, segment(DHT, 419), {{"nodes", ""}, {"dht", "0"}, {"stepped", "1"}});
    row("DHT of 418 without DQT", Walk::File, segment(DHT, 418), {{"nodes", "FFC4:418@2"}, {"dht", "1"}});
    row("DHT of 420 behind DQT", Walk::File, word(SOI) + dqt({9}) + segment(DHT, 420),
        {{"nodes", "FFD8:0@2 FFDB:67@4 FFC4:420@73"}, {"dht", "0"}});
    row("segment up to the file's end keeps its length", Walk::File, word(SOI) + segment(APP0, 16),
        {{"nodes", "FFD8:0@2 FFE0:16@4"}});
    row("segment two bytes past the end has none", Walk::File, word(SOI) + declared(APP0, 18, filler(14)),
        {{"nodes", "FFD8:0@2 FFE0:0@4"}});
    row("SOI and FF run are faults", Walk::File, scanning(filler(9) + word(SOI) + filler(2) + bytes({0xFF, 0xFF, 5})),
        {{"faults", "23 27 28"}, {"trailing", "0"}});
    row("stuffed zeros, RST, DHT and SOS are none", Walk::File,
        scanning(bytes({0xFF, 0, 0xFF, 0xD3, 1}) + segment(DHT, 31) + sos()), {{"faults", ""}});
    row("EOI in the middle of the scan", Walk::File, scanning(filler(9) + end + bytes({0xFF, 1}) + filler(9)),
        {{"nodes", "FFD8:0@2 FFDB:67@4 FFDB:67@73 FFC0:17@142 FFC4:31@161 FFDA:12@194 FFD9:0@230"}, {"faults", ""}});
    row("FF as the file's last byte is no fault", Walk::File, scanning(filler(9)).chopped(2) + bytes({0xFF, 0xFF}),
        {{"faults", "23"}});
    row("gaps behind three DQT", Walk::File,
        word(SOI) + dqt({1}) + filler(3) + dqt({2}) + filler(5) + dqt({3}) + filler(7) + dqt({4}) + filler(11) + end,
        {{"gaps", "3 5 7"}, {"dqt67", "4"}, {"heads", "1 2, 2 3, 3 4"}, {"stepped", "1"}});
    row("gap runs over SOI", Walk::File, word(SOI) + dqt({1}) + filler(3) + word(SOI) + bytes({0xFF, 0, 0xFF, 1}) + end,
        {{"gaps", "9 0 0"}});
    row("132, then 67", Walk::File, word(SOI) + dqt({16, 17}) + dqt({3}) + end,
        {{"nodes", "FFD8:0@2 FFDB:132@4 FFDB:67@138 FFD9:0@207"}, {"heads", "3 4, 17 18, 0 0"}, {"dqt67", "1"}});
    row("197", Walk::File, word(SOI) + dqt({16, 17, 18}) + end, {{"heads", "16 17, 17 18, 18 19"}, {"dqt67", "0"}});
}

void nestedRows()
{
    const auto inApp1 = [](const QByteArray &payload) { return MiniJpeg{segment(APP1, payload)}(); };
    row("thumbnail", Walk::File, inApp1(filler(9) + small() + filler(9)),
        {{"nested", "15+68"}, {"counts", "2 0 0 0 0"}, {"thumb", "1"}, {"container", "0"}, {"images", "3"}});
    row("thumbnail, bytes behind EOI", Walk::File, inApp1(small()) + filler(9),
        {{"container", "0"}, {"nested", "6+68"}});
    row("thumbnail cut by the segment's end", Walk::File, inApp1(small().chopped(2)),
        {{"nested", "6+0"}, {"counts", "1 0 0 0 0"}, {"thumb", "0"}});
    row("two thumbnails", Walk::File, inApp1(small() + small()), {{"nested", "6+68 74+68"}, {"counts", "4 0 0 0 0"}});
    row("thumbnail in a thumbnail", Walk::File, inApp1(word(SOI) + segment(APP0, 16) + small() + word(EOI)),
        {{"nested", "6+88"}, {"counts", "2 0 0 0 0"}});
    row("SOF0 of 17", Walk::File, inApp1(nestedImage(SOF0, 17)), {{"counts", "2 0 0 0 0"}});
    row("SOF0 of 18", Walk::File, inApp1(nestedImage(SOF0, 18)), {{"counts", "0 0 0 0 0"}, {"thumb", "0"}});
    row("DQT of 197", Walk::File, inApp1(nestedImage(DQT, 197)), {{"counts", "2 0 0 0 0"}});
    row("DQT of 198", Walk::File, inApp1(nestedImage(DQT, 198)), {{"counts", "0 0 0 0 0"}});
    row("APP3 in a segment", Walk::File, inApp1(nestedImage(APP3, 8)), {{"counts", "0 0 0 0 0"}});
    row("APP3 behind the picture", Walk::File, miniJpeg() + nestedImage(APP3, 8), {{"counts", "0 0 0 2 1"}});
    // The word that ends a search may begin at its last place: for APP1 the length itself, for APP13 two bytes on.
    row("APP1, EOI at the search's end", Walk::File, MiniJpeg{declared(APP1, 70, small())}(),
        {{"counts", "2 0 0 0 0"}});
    row("APP1, EOI behind it", Walk::File, MiniJpeg{declared(APP1, 69, small())}(), {{"counts", "1 0 0 0 0"}});
    row("APP13, EOI at the search's end", Walk::File, MiniJpeg{declared(APP13, 68, small())}(),
        {{"counts", "0 0 2 0 0"}});
    row("APP13, EOI behind it", Walk::File, MiniJpeg{declared(APP13, 67, small())}(), {{"counts", "0 0 1 0 0"}});
    // So many images make a stream of a file; a copy is never one.
    row("1,100 thumbnails", Walk::Copy, inApp1(nestedImage(APP1, 4).repeated(1100)), {{"counts", "2048 0 0 0 0"}});
    row("1,100 thumbnails in a file", Walk::File, inApp1(nestedImage(APP1, 4).repeated(1100)), {{"container", "1"}});
    const QByteArray apart = miniJpeg() + bytes({7});
    row("stream of three", Walk::File, apart + apart + apart,
        {{"container", "1"},
         {"nodes", "FFD8:0@2 FFD8:0@269 FFD8:0@536"},
         {"nested", "0+266 267+266 534+266"},
         {"counts", "0 0 0 6 3"},
         {"images", "3"},
         {"stepped", "1"},
         {"dqt67", "0"}});
    row("two and junk behind make a stream", Walk::File, apart + apart, {{"container", "1"}});
    row("two that end well make none", Walk::File, apart + miniJpeg(), {{"container", "0"}, {"counts", "0 0 0 2 1"}});
}

void copyRows()
{
    const QByteArray mini = miniJpeg();
    const QString nodes = kMiniNodes;
    row("copy, intact", Walk::Copy, mini, {{"nodes", nodes + " FFD9:0@266"}, {"faults", ""}, {"trailing", "0"}});
    row("copy, rubbish behind EOI", Walk::Copy, mini + filler(3) + bytes({0xFF, 1}) + filler(3),
        {{"nodes", nodes}, {"faults", "59"}});
    row("copy, image behind EOI", Walk::Copy, mini + mini,
        {{"nodes", nodes + " FFD9:0@532"}, {"faults", "56"}, {"trailing", "0"}, {"counts", "0 0 0 0 0"}});
    row("copy, SOI not at 0", Walk::Copy, filler(3) + mini,
        {{"nodes", "FFD8:0@5 FFD9:0@269"}, {"nested", "3+266"}, {"stepped", "1"}});
    row("copy, third SOI", Walk::Copy, filler(3) + word(SOI) + filler(3) + word(SOI), {{"nodes", "FFD8:0@5"}});
    row("copy, EOI in front of the scan", Walk::Copy, word(SOI) + dqt({9}) + word(EOI) + dqt({8}),
        {{"nodes", "FFD8:0@2 FFDB:67@4 FFD9:0@73"}, {"heads", "9 10, 0 0, 0 0"}});
    row("copy behind the file's own chain", Walk::CopyContinued, mini,
        {{"nodes", nodes + " FFD9:0@266 " + nodes + " FFD9:0@266"},
         {"dht", "2"},
         {"dqt67", "4"},
         {"images", "4"},
         {"heads", "10 11, 30 31, 10 11"}});
    row("raw", Walk::Raw, mini,
        {{"nodes", nodes + " FFD9:0@266"}, {"nested", "0+266"}, {"counts", "0 0 0 2 1"}, {"images", "1"}});
    row("raw behind a raw chain", Walk::RawContinued, mini,
        {{"dht", "1"}, {"dqt67", "2"}, {"heads", "10 11, 30 31, 0 0"}, {"images", "2"}});
}

WalkResult run(Walk walk, const QByteArray &file)
{
    switch (walk) {
    case Walk::File: return steppingWalk(file);
    case Walk::Copy: return steppingTempWalk(file);
    case Walk::CopyContinued: return steppingTempWalk(file, {false, steppingWalk(file), 3});
    case Walk::Raw: return steppingRawWalk(file);
    case Walk::RawContinued: return steppingRawWalk(file, {true, steppingRawWalk(file), 3});
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(Walk)
Q_DECLARE_METATYPE(Expected)

class TestSteppingWalk : public QObject
{
    Q_OBJECT

private slots:
    void walks_data();
    void walks();
    void boundaryCount_data();
    void boundaryCount();
    void differencesAreNamed();
};

void TestSteppingWalk::walks_data()
{
    QTest::addColumn<Walk>("walk");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<Expected>("expected");
    fileRows();
    nestedRows();
    copyRows();
}

void TestSteppingWalk::walks()
{
    QFETCH(Walk, walk);
    QFETCH(QByteArray, file);
    QFETCH(Expected, expected);
    const WalkResult result = run(walk, file);
    for (const auto &wanted : expected) {
        const QString actual = aspect(result, wanted.first);
        QVERIFY2(actual == wanted.second,
                 qPrintable(QString("%1 is [%2], not [%3]").arg(wanted.first, actual, wanted.second)));
    }
}

void TestSteppingWalk::boundaryCount_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("count");
    const QByteArray mini = miniJpeg();
    const QByteArray apart = mini + bytes({7});
    QTest::newRow("nothing") << QByteArray() << 0;
    QTest::newRow("one image") << mini << 2;
    QTest::newRow("no end") << mini.chopped(2) << 1;
    QTest::newRow("end alone") << word(EOI) << 0;
    QTest::newRow("SOI without an opener") << word(SOI) + filler(20) + word(EOI) << 0;
    QTest::newRow("with a thumbnail") << MiniJpeg{segment(APP1, small())}() << 2;
    QTest::newRow("two apart") << apart + apart << 4;
    QTest::newRow("two side by side: the second SOI is jumped over") << mini + mini << 2;
    QTest::newRow("three side by side") << mini + mini + mini << 4;
    QTest::newRow("three apart") << apart + apart + apart << 6;
}

void TestSteppingWalk::boundaryCount()
{
    QFETCH(QByteArray, file);
    QTEST(steppingBoundaryCount(file), "count");
}

void TestSteppingWalk::differencesAreNamed()
{
    const WalkResult one = steppingWalk(miniJpeg());
    QCOMPARE(describeDifference(one, one), QString());
    WalkResult other = one;
    other.nodes[2].wLength = 66;
    QVERIFY(!(other == one));
    QVERIFY(describeDifference(other, one).contains("node 2 is [ffdb length 66"));
    other = one;
    other.faults = {5};
    QCOMPARE(describeDifference(other, one), QString("the number of faults is 1, not 0"));
}

QTEST_GUILESS_MAIN(TestSteppingWalk)
#include "tst_stepping_walk.moc"
