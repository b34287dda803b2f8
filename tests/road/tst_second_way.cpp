// The two ways for a JPEG without a usable header: behind a fresh SOI, and with the header of a healthy sample.

#include "Road.h"

#include "app/StopFlag.h"
#include "engine/jpg_repair.h"
#include "support/Damage.h"
#include "support/Pictures.h"

#include <QTest>

using namespace words;

namespace {

const QByteArray kNoFile = "(no file)";

quint8 byteAt(const QByteArray &file, int at)
{
    return at >= 0 && at < file.size() ? quint8(file[at]) : 0;
}

int wordAt(const QByteArray &file, int at)
{
    return byteAt(file, at) * 256 + byteAt(file, at + 1);
}

/// What the way without a sample leaves, found by looking at each position.
QByteArray steppedSecondWay(const QByteArray &file)
{
    const auto from = [&file](int at) { return word(SOI) + file.mid(at); };
    bool seen = false;
    for (int p = 2; p < file.size(); ++p) {
        const int code = wordAt(file, p);
        if (code != 0xFFE0 && code != 0xFFE1 && code != 0xFFE2 && code != 0xFFEC && code != 0xFFED) continue;
        seen = true;
        const int length = wordAt(file, p + 2);
        if (length >= file.size()) continue;
        const int behind = wordAt(file, p + length + 2);
        if (behind == 0xFFDB || behind == 0xFFC4 || behind == 0xFFE0) return from(p + length + 2);
        p += length;
    }
    for (int p = file.size() - 1; p >= 2 && !seen; --p)
        if (wordAt(file, p) == 0xFFDB) return from(p);
    return kNoFile;
}

/// What a sample's header and a damaged file's scan make together, found by looking at each position.
QByteArray steppedGraft(const QByteArray &sample, const QByteArray &damaged)
{
    QByteArray out = word(SOI);
    for (int p = wordAt(sample, 4) + 4; wordAt(sample, 2) == 0xFFE1 && p < sample.size(); ++p) {
        int code = wordAt(sample, p);
        if (code == 0xFFE2 || code == 0xFFEB || code == 0xFFE5 || code == 0xFFE0 || code == 0xFFE4) {
            code = wordAt(sample, p + 2);
            p += 1 + code;
        }
        if (code != 0xFFDB && code != 0xFFC0 && code != 0xFFC4 && code != 0xFFDA) continue;
        const int length = wordAt(sample, p + 2);
        out += word(code);
        for (int i = 0; i < length; ++i) out.append(char(byteAt(sample, p + 2 + i)));
        if (code == 0xFFDA) break;
        p += 1 + length;
    }
    for (int s = damaged.size() - 1; s >= 2; --s)
        if (wordAt(damaged, s) == 0xFFDA) return out + damaged.mid(s + 14);
    return out;
}

} // namespace

class TestSecondWay : public QObject
{
    Q_OBJECT

private slots:
    void bytesOfSecondWay_data();
    void bytesOfSecondWay();
    void secondWayEqualsStepping();
    void secondWayDecodes();
    void bytesOfGraft_data();
    void bytesOfGraft();
    void graftEqualsStepping();
    void graftDecodes();
    void missingFiles();
    void fullDiskLeavesNoHalfPicture();
    void stop();

private:
    static QByteArray secondWay(const Run &run, const QByteArray &file);
    static QByteArray graft(const Run &run, const QByteArray &sample, const QByteArray &damaged);
};

QByteArray TestSecondWay::secondWay(const Run &run, const QByteArray &file)
{
    const QString path = run.source("a.jpg", file);
    const Footprint before = footprint(path);
    pApp->lstResultNames.clear();
    const bool loads = jpg_repair().reRepairing(path);
    if (footprint(path) != before) return "(the source was touched)";
    if (pApp->pCurrentFile) return "(left open)";
    const QByteArray output = run.output("a.jpg");
    if (loads != !decoded(output).isNull()) return "(the result is not the decoder's)";
    if (pApp->lstResultNames != (loads ? QStringList("/a.jpg") : QStringList())) return "(names)";
    return output;
}

QByteArray TestSecondWay::graft(const Run &run, const QByteArray &sample, const QByteArray &damaged)
{
    const QString samplePath = run.source("sample/s.jpg", sample);
    const QString path = run.source("a.jpg", damaged);
    const Footprint before[] = {footprint(samplePath), footprint(path)};
    pApp->lstResultNames.clear();
    const bool loads = jpg_repair().ScanRefFile(samplePath, path);
    if (footprint(samplePath) != before[0] || footprint(path) != before[1]) return "(a source was touched)";
    if (pApp->pCurrentFile) return "(left open)";
    const QByteArray output = run.output("a.jpg");
    // The decoder makes a grey picture of a header alone; without a byte of the damaged file's scan it counts for nothing.
    const int scan = damaged.lastIndexOf(word(SOS));
    const bool hasScan = scan >= 2 && scan + 14 < damaged.size();
    if (loads != (hasScan && !decoded(output).isNull())) return "(the result is not the decoder's)";
    if (pApp->lstResultNames != (loads ? QStringList("a.jpg") : QStringList())) return "(names)";
    return output;
}

void TestSecondWay::bytesOfSecondWay_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("entry"); // what follows the fresh SOI begins there; -1: no file is made
    const QByteArray tail = dqt({9}) + filler(20);
    const QByteArray lead = bytes({0, 0});
    const auto leads = [&](const char *name, int marker, const QByteArray &next, bool found) {
        QTest::newRow(name) << lead + segment(marker, 20) + next + filler(9) << (found ? 24 : -1);
    };
    leads("APP0, DQT", APP0, dqt({9}), true);
    leads("APP1, DHT", APP1, segment(DHT, 31), true);
    leads("APP2, APP0", APP2, segment(APP0, 16), true);
    leads("APP12, DQT", APP12, dqt({9}), true);
    leads("APP13, DQT", APP13, dqt({9}), true);
    leads("APP1, SOF0", APP1, sof(), false);
    leads("APP1, SOS", APP1, sos(), false);
    // A chain of segments that lead ends at the first one with a table behind it.
    QTest::newRow("APP1, APP2, DQT") << lead + segment(APP1, 20) + segment(APP2, 30) + tail << 2 + 22 + 32;
    QTest::newRow("APP1, COM, APP2, DQT")
        << lead + segment(APP1, 20) + segment(COM, 9) + segment(APP2, 30) + tail << 2 + 22 + 11 + 32;
    // Others don't lead: without any that does, the last DQT of the file counts.
    QTest::newRow("APP3, DQT, DQT") << lead + segment(APP3, 20) + dqt({9}) + tail << 2 + 22 + 69;
    QTest::newRow("APP14, COM, DQT") << lead + segment(APP14, 12) + segment(COM, 9) + tail << 2 + 14 + 11;
    QTest::newRow("APP1 at 0 isn't met") << segment(APP1, 20) + dqt({9}) + dqt({9}) << 22 + 69;
    QTest::newRow("APP1 at 1 isn't met") << bytes({0}) + segment(APP1, 20) + dqt({9}) + dqt({9}) << 23 + 69;
    QTest::newRow("junk in between") << lead + segment(APP1, 20) + bytes({7}) + tail << -1;
    QTest::newRow("entry inside metadata that was passed")
        << lead + segment(APP1, segment(APP2, 6) + tail) + filler(30) << -1;
    // The word that ends one byte behind the segment is still looked at.
    QTest::newRow("begins in the segment's last byte")
        << lead + segment(APP1, filler(10) + bytes({0xFF})) + bytes({0xE2, 0, 6, 1, 2, 3, 4}) + tail << 2 + 15 + 7;
    QTest::newRow("length 0") << lead + declared(APP1, 0) + tail << -1;
    QTest::newRow("length 0, the code behind it")
        << lead + word(APP1) + word(0) + bytes({1}) + segment(APP2, 6) + tail << 2 + 5 + 8;
    // A length that is not under the file's size: on with the next byte.
    const QByteArray longest = lead + declared(APP1, 6 + 8 + tail.size(), QByteArray()) + segment(APP2, 6) + tail;
    QCOMPARE(longest.size(), 6 + 8 + tail.size());
    QTest::newRow("length equals the size") << longest << 6 + 8;
    QTest::newRow("length one less than the size")
        << lead + declared(APP1, 5 + 8 + tail.size()) + segment(APP2, 6) + tail << -1;
    QTest::newRow("length FFFF alone") << lead + declared(APP1, 0xFFFF) + tail << -1;
    QTest::newRow("DQT at 2") << lead + tail << 2;
    QTest::newRow("DQT at 1") << bytes({0}) + dqt({9}) << -1;
    QTest::newRow("DQT at 0") << dqt({9}) << -1;
    QTest::newRow("the last two bytes are DQT") << lead + dqt({9}) + filler(5) + word(DQT) << 2 + 69 + 5;
    QTest::newRow("the last byte is FF") << lead + filler(5) + bytes({0xFF}) << -1;
    QTest::newRow("nothing") << QByteArray() << -1;
    QTest::newRow("one byte") << bytes({0xFF}) << -1;
    QTest::newRow("a DQT marker and no more") << word(DQT) << -1;
    QTest::newRow("FF alone") << QByteArray(5000, char(0xFF)) << -1;
    const QByteArray large = junk(700 * 1024, 5);
    QTest::newRow("far behind") << lead + large + segment(APP1, 20) + tail + large << 2 + large.size() + 22;
    QTest::newRow("far in front, none behind") << lead + tail + large << 2;
}

void TestSecondWay::bytesOfSecondWay()
{
    QFETCH(QByteArray, file);
    QFETCH(int, entry);
    const Run run;
    const QByteArray expected = entry < 0 ? kNoFile : word(SOI) + file.mid(entry);
    QCOMPARE(steppedSecondWay(file), expected); // both readings of the rule
    QCOMPARE(secondWay(run, file), expected);
}

void TestSecondWay::secondWayEqualsStepping()
{
    int made = 0;
    for (const Damaged &damaged : damagedJpegs()) {
        const Run run;
        const QByteArray expected = steppedSecondWay(damaged.bytes);
        QVERIFY2(secondWay(run, damaged.bytes) == expected, damaged.name);
        made += expected != kNoFile;
    }
    QVERIFY(made > 20);
    for (quint32 seed = 1; seed <= 200; ++seed) {
        const Run run;
        const QByteArray file = markerSoup(seed);
        QVERIFY2(secondWay(run, file) == steppedSecondWay(file), qPrintable(QString::number(seed)));
    }
}

void TestSecondWay::secondWayDecodes()
{
    // A head that is lost up to the middle of a comment; the table segments behind APP2 are whole.
    const QByteArray whole = healthyJpeg({.segments = {commentSegment(filler(60)), segment(APP2, 40)}});
    const QByteArray file = Damage(whole).dropHead(upTo(COM) + 20);
    const Run run;
    const FileOutcome outcome = run.repair("lost.jpg", file);
    QCOMPARE(outcome.statusCode, QString(status::Unreached));
    QCOMPARE(outcome.results, QStringList("/lost.jpg"));
    QCOMPARE(outcome.report.outputs.size(), 1);
    QCOMPARE(int(outcome.report.outputs[0].way), int(RepairWay::SecondWay));
    QCOMPARE(outcome.report.reason, RepairReason::None);
    QVERIFY(outcome.report.headerBroken);
    QCOMPARE(decoded(run.output("lost.jpg")), decoded(whole));
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(rows.sourceStatus, QString(status::Repaired));
    QCOMPARE(rows.rows.size(), 1);
    QCOMPARE(rows.rows[0].name, QString("lost.jpg"));
    QCOMPARE(rows.rows[0].resolution, QString("32x48"));

    // One that can't decode stays where it was built, under no name.
    const FileOutcome refused = run.repair("refused.jpg", filler(9) + dqt({9}) + filler(30));
    QCOMPARE(refused.statusCode, QString(status::Invalid));
    QCOMPARE(refused.results, QStringList());
    QCOMPARE(refused.report.reason, RepairReason::HeaderLost);
    QCOMPARE(run.output("refused.jpg"), word(SOI) + dqt({9}) + filler(30));
    QVERIFY(makeRows(refused).rows.isEmpty());
}

void TestSecondWay::bytesOfGraft_data()
{
    QTest::addColumn<QByteArray>("sample");
    QTest::addColumn<QByteArray>("damaged");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray soi = word(SOI);
    const QByteArray app1 = segment(APP1, 30);
    const QByteArray frame = sof();
    const QByteArray huffman = segment(DHT, 31);
    const QByteArray head = dqt({1}) + frame + huffman + sos();
    const QByteArray sample = soi + app1 + head + filler(9) + word(EOI);
    const QByteArray damaged = filler(50) + sos() + filler(20) + word(EOI);
    const QByteArray scan = filler(20) + word(EOI);

    QTest::newRow("whole") << sample << damaged << soi + head + scan;
    QTest::newRow("behind APP1 all else is passed over by its length") << soi + app1 + segment(APP2, dqt({7}))
            + segment(0xFFEB, dqt({7})) + segment(0xFFE5, dqt({7})) + segment(APP0, dqt({7}))
            + segment(0xFFE4, dqt({7})) + head << damaged << soi + head + scan;
    QTest::newRow("what isn't passed over is looked through")
        << soi + app1 + segment(APP3, dqt({7})) + segment(APP13, huffman) + segment(COM, frame) + head << damaged
        << soi + dqt({7}) + huffman + frame + head + scan;
    QTest::newRow("APP1 itself is passed over") << soi + segment(APP1, dqt({7})) + head << damaged << soi + head + scan;
    QTest::newRow("APP1 up to its last byte")
        << soi + segment(APP1, filler(9) + bytes({0xFF})) + bytes({0xDB, 0, 4, 1, 2}) + head << damaged
        << soi + head + scan;
    QTest::newRow("a second APP1 is looked through")
        << soi + app1 + segment(APP1, dqt({7})) + head << damaged << soi + dqt({7}) + head + scan;
    QTest::newRow("progressive frame and restarts are left behind") << soi + app1 + dqt({1}) + sof(SOF2)
            + segment(DRI, 4) + huffman + sos() << damaged << soi + dqt({1}) + huffman + sos() + scan;
    QTest::newRow("nothing behind the scan header") << soi + app1 + sos() + head << damaged << soi + sos() + scan;
    QTest::newRow("no scan header") << soi + app1 + dqt({1}) + frame << damaged << soi + dqt({1}) + frame + scan;
    QTest::newRow("no APP1") << soi + segment(APP0, 16) + app1 + head << damaged << soi + scan;
    QTest::newRow("APP1 behind a stray byte") << soi + bytes({0}) + app1 + head << damaged << soi + scan;
    QTest::newRow("SOI is not asked for") << bytes({1, 2}) + app1 + head << damaged << soi + head + scan;
    QTest::newRow("APP1 past the end") << soi + declared(APP1, 900, head) << damaged << soi + scan;
    QTest::newRow("empty sample") << QByteArray() << damaged << soi + scan;
    QTest::newRow("a segment past the sample's end goes on as zeros")
        << soi + app1 + declared(DQT, 200, filler(50)) << damaged
        << soi + word(DQT) + word(200) + filler(50) + QByteArray(148, '\0') + scan;
    QTest::newRow("a marker at the sample's very end") << soi + app1 + word(DHT) << damaged << soi + word(DHT) + scan;
    QTest::newRow("a table of length 0") << soi + app1 + declared(DQT, 0) + frame << damaged
                                         << soi + word(DQT) + frame + scan;
    // The length FF DB of an APPn is taken for a marker, which would stand on the segment's last byte and the one behind.
    const QByteArray trap = declared(APP2, 0xFFDB, filler(0xFFDB - 2));
    QTest::newRow("an APPn whose length looks like a marker") << soi + app1 + trap + bytes({9, 0, 6, 1, 2, 3, 4})
            + head << damaged << soi + word(DQT) + word(6) + bytes({1, 2, 3, 4}) + head + scan;

    QTest::newRow("the last FF DA wins, by chance or not")
        << sample << sos() + filler(9) + word(SOS) + filler(40) << soi + head + filler(40).mid(12);
    QTest::newRow("no FF DA") << sample << filler(90) << soi + head;
    QTest::newRow("FF DA at 2") << sample << bytes({1, 2}) + sos() + scan << soi + head + scan;
    QTest::newRow("FF DA at 1") << sample << bytes({1}) + sos() + scan << soi + head;
    QTest::newRow("FF DA less than 14 bytes in front of the end")
        << sample << filler(9) + word(SOS) + filler(11) << soi + head;
    QTest::newRow("FF DA exactly 14 bytes in front of the end")
        << sample << filler(9) + word(SOS) + filler(12) << soi + head;
    QTest::newRow("one byte of scan") << sample << filler(9) + word(SOS) + filler(12) + bytes({5})
                                      << soi + head + bytes({5});
    QTest::newRow("empty damaged file") << sample << QByteArray() << soi + head;
    const QByteArray large = junk(600 * 1024, 3);
    QTest::newRow("scan far in front of the end") << sample << filler(50) + sos() + large << soi + head + large;
}

void TestSecondWay::bytesOfGraft()
{
    QFETCH(QByteArray, sample);
    QFETCH(QByteArray, damaged);
    QFETCH(QByteArray, expected);
    const Run run;
    QCOMPARE(steppedGraft(sample, damaged), expected);
    QCOMPARE(graft(run, sample, damaged), expected);
}

void TestSecondWay::graftEqualsStepping()
{
    const auto &files = damagedJpegs();
    for (size_t i = 0; i + 1 < files.size(); ++i) {
        const Run run;
        // Every file once as damaged and once as sample; most have no APP1 in front, so they get one.
        const QByteArray sample = word(SOI) + segment(APP1, 8) + files[i + 1].bytes;
        QVERIFY2(graft(run, sample, files[i].bytes) == steppedGraft(sample, files[i].bytes), files[i].name);
    }
}

void TestSecondWay::graftDecodes()
{
    // Two pictures by one camera: the same tables, the same size. The whole head of one is overwritten.
    const JpegOptions options{.jfif = false, .segments = {exifSegment({})}};
    const QByteArray sample = makeJpeg(drawPicture(160, 120, 1), options);
    const QByteArray whole = makeJpeg(drawPicture(160, 120, 2), options);
    Damage lost(whole);
    lost.fill(fromStart(0), int(lost.offsetOf(upTo(SOS))), 'x');
    const Run run;
    const QString samplePath = run.source("sample.jpg", sample);
    const FileOutcome before = run.repair("lost.jpg", lost);
    QCOMPARE(before.statusCode, QString(status::Invalid));
    QCOMPARE(before.report.reason, RepairReason::HeaderLost);
    const FileOutcome outcome = repairOneFileWithSample(samplePath, before.source);
    QCOMPARE(outcome.results, QStringList("lost.jpg"));
    QCOMPARE(outcome.report.outputs.size(), 1);
    QCOMPARE(int(outcome.report.outputs[0].way), int(RepairWay::Sample));
    QCOMPARE(outcome.report.reason, RepairReason::None);
    QCOMPARE(decoded(run.output("lost.jpg")), decoded(whole));
    const OutputRows rows = makeSampleRows(outcome);
    QCOMPARE(rows.sourceStatus, QString(status::Repaired));
    QCOMPARE(rows.rows.size(), 1);
    QCOMPARE(rows.rows[0].resolution, QString("120x160"));

    // A sample that doesn't help: the row stays as it was, for another try.
    const FileOutcome unhelped = repairOneFileWithSample(run.source("bare.jpg", healthyJpeg()), before.source);
    QCOMPARE(unhelped.statusCode, QString(status::Invalid));
    QCOMPARE(unhelped.results, QStringList());
    QVERIFY(makeSampleRows(unhelped).rows.isEmpty());
}

void TestSecondWay::missingFiles()
{
    const Run run;
    const QByteArray scan = filler(30);
    const QString damaged = run.source("a.jpg", filler(9) + sos() + scan);
    const QString sample = run.source("s.jpg", healthyJpeg());
    pApp->lstResultNames.clear();
    QVERIFY(!jpg_repair().reRepairing(run.place("nowhere.jpg")));
    QVERIFY(!jpg_repair().reRepairing(run.sources()));
    QCOMPARE(run.filesLeft(), QStringList());

    QVERIFY(!jpg_repair().ScanRefFile(run.place("nowhere.jpg"), damaged)); // the tail alone
    QCOMPARE(run.output("a.jpg"), scan);
    const FileOutcome gone = repairOneFileWithSample(sample, run.place("gone.jpg"));
    QCOMPARE(gone.statusCode, QString(status::Invalid));
    QCOMPARE(gone.report.reason, RepairReason::Unreadable);
    QCOMPARE(run.output("gone.jpg"), QByteArray());
    QCOMPARE(pApp->lstResultNames, QStringList());
}

void TestSecondWay::fullDiskLeavesNoHalfPicture()
{
    // Cut short, both outputs would still decode: a decoder fills what is missing with grey.
    const JpegOptions options{.quality = 98, .jfif = false, .segments = {exifSegment({}), segment(APP2, 40)}};
    const QByteArray sample = makeJpeg(drawPicture(320, 240, 1), options);
    const QByteArray whole = makeJpeg(drawPicture(320, 240, 2), options);
    const Damage lost = Damage(whole).fill(fromStart(0), 2, 'x').zero(upTo(SOF0), 2);
    QVERIFY(whole.size() > 24000);
    const Run run;
    const QString samplePath = run.source("sample.jpg", sample);
    const QString path = run.source("lost.jpg", lost);
    QVERIFY(!decoded(steppedGraft(sample, lost).left(20000)).isNull());
    for (const bool withSample : {false, true}) {
        const FileSizeLimit limit(20000);
        const FileOutcome outcome = withSample ? repairOneFileWithSample(samplePath, path) : repairOneFile(path);
        QCOMPARE(outcome.results, QStringList());
        QCOMPARE(outcome.statusCode, QString(status::Invalid));
        QCOMPARE(outcome.report.reason, RepairReason::DiskFull);
        QCOMPARE(run.filesLeft(), QStringList());
    }
    QCOMPARE(repairOneFileWithSample(samplePath, path).results, QStringList("lost.jpg")); // there is room again
}

void TestSecondWay::stop()
{
    const Run run;
    const QByteArray file = filler(9) + segment(APP1, 9) + healthyJpeg().mid(20);
    const QString path = run.source("a.jpg", file);
    const QString sample = run.source("s.jpg", healthyJpeg({.jfif = false, .segments = {exifSegment({})}}));
    setFlag(pApp->bStopRepair, true);
    pApp->lstResultNames.clear();
    QVERIFY(!jpg_repair().reRepairing(path));
    QCOMPARE(run.filesLeft(), QStringList());
    const FileOutcome outcome = repairOneFileWithSample(sample, path);
    setFlag(pApp->bStopRepair, false);
    QCOMPARE(outcome.statusCode, QString(status::Stopped));
    QCOMPARE(outcome.report.reason, RepairReason::Stopped);
    QCOMPARE(outcome.results, QStringList());
    QVERIFY(makeSampleRows(outcome).rows.isEmpty());
}

QTEST_GUILESS_MAIN(TestSecondWay)
#include "tst_second_way.moc"
