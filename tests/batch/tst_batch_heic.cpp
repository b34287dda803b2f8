// HEICs in a batch run: rewritten, with a sample, as reading copies, and saved.

#include "BatchCall.h"
#include "BatchFolder.h"

#include "app/KesmiraApp.h"
#include "support/HeicMaker.h"

#include <QJsonArray>
#include <QTest>

namespace {

QByteArray boxesLost(const MadeHeic &made)
{
    return QByteArray(made.bytes.indexOf(made.stream), '\x55') + made.stream;
}

QStringList texts(const QJsonObject &object, const char *field)
{
    return object[field].toVariant().toStringList();
}

} // namespace

class TestBatchHeic : public QObject
{
    Q_OBJECT

private slots:
    void wholeRun();
    void tableForPeople();
    void tilesAloneGetTheSample();
    void savedTwiceNothingIsLost();
    void savedByMixedRuns();
    void sampleOfAJpegLeavesThemAlone();
};

void TestBatchHeic::wholeRun()
{
    const BatchFolder folder;
    const MadeHeic first = makeHeic({.seed = 1});
    const MadeHeic second = makeHeic({.seed = 2});
    const MadeHeic odd = makeHeic({.tiles = 47});
    const MadeHeic sample = makeHeic({.entryCount = 0x34, .seed = 3});
    write(folder.path("heic/1.HEIC"), first.bytes);
    write(folder.path("heic/2.heic"), boxesLost(second));
    write(folder.path("heic/3.HEIC"), odd.bytes);
    write(folder.path("heic/passed over.heif"), first.bytes);
    write(folder.path("sample.HEIC"), sample.bytes);
    const BatchCall call({"--json", "--readable", "--sample", folder.path("sample.HEIC"), "--to", folder.path("out"),
                          folder.path("heic")});
    QCOMPARE(call.status, 0);
    QCOMPARE(call.each("status"), QStringList({"5", "2", "2", "5", "5"}));
    QCOMPARE(call.each("pass"), QStringList({"", "", "", "sample", "sample"}));
    const QVector<QJsonObject> objects = call.objects();
    const QStringList results[] = {{"1.heic"}, {}, {}, {"2.heic"}, {"3.HEIC"}};
    const QStringList readable[] = {{"1_readable.heic"}, {}, {}, {"2_readable.heic"}, {}};
    const QStringList reasons = {"", "boxes-lost", "tiles-unknown", "", "sample-unfit"};
    for (int i = 0; i < objects.size(); ++i) {
        QCOMPARE(texts(objects[i], "results"), results[i]);
        QCOMPARE(texts(objects[i], "readable"), readable[i]);
        const QJsonObject report = objects[i]["report"].toObject();
        QCOMPARE(report["reason"].toString(), reasons[i]);
        QCOMPARE(report["tilesAlone"].toBool(), i == 4);
        const QJsonArray rows = objects[i]["rows"].toArray();
        QCOMPARE(rows.size(), results[i].size());
        for (const QJsonValue &row : rows)
            QCOMPARE(row.toObject(),
                     QJsonObject({{"name", results[i][0]},
                                  {"type", "Repaired"},
                                  {"resolution", ""},
                                  {"completeness", i == 4 ? "doubtful" : "whole"},
                                  {"share", 1}}));
    }
    QCOMPARE(call.errLines().size(), 1); // of 47 tiles no reading copy is made
    QVERIFY(call.err.contains("'3.HEIC' has no reading copy"));

    const QString saved = folder.path("out/RepairedFiles/HEIC_Repaired/");
    QCOMPARE(filesBelow(folder.path("out")),
             QStringList({"RepairedFiles/HEIC_Repaired/1.heic", "RepairedFiles/HEIC_Repaired/1_readable.heic",
                          "RepairedFiles/HEIC_Repaired/2.heic", "RepairedFiles/HEIC_Repaired/2_readable.heic",
                          "RepairedFiles/HEIC_Repaired/3.HEIC"}));
    QVERIFY(contents(saved + "1.heic") == expectedRewrite(first, first));
    QVERIFY(contents(saved + "2.heic") == expectedRewrite(sample, second));
    QVERIFY(contents(saved + "3.HEIC") == odd.stream);
    QVERIFY(contents(saved + "2_readable.heic").endsWith("mdat" + second.stream));
}

void TestBatchHeic::tableForPeople()
{
    const BatchFolder folder;
    write(folder.path("1.heic"), makeHeic().bytes);
    write(folder.path("2.heic"), makeHeic({.entryCount = 0x35}).bytes);
    const BatchCall call({"--readable", folder.path("1.heic"), folder.path("2.heic")});
    QCOMPARE(call.status, 0);
    for (const char *words : {"index of the tiles rebuilt", "  1_readable.heic", "only the image tiles"})
        QCOMPARE(call.out.count(words), 1);
    // Nobody asked.
    const BatchCall plain({"--json", folder.path("1.heic")});
    QVERIFY(!plain.objects().first().contains("readable"));
}

void TestBatchHeic::savedTwiceNothingIsLost()
{
    const BatchFolder folder;
    const MadeHeic one = makeHeic({.seed = 1});
    const MadeHeic two = makeHeic({.seed = 2});
    const QString saved = folder.path("out/RepairedFiles/HEIC_Repaired/");
    pApp->nCopyCounter = 0;
    write(folder.path("a.heic"), one.bytes);
    QCOMPARE(BatchCall({"--to", folder.path("out"), folder.path("a.heic")}).status, 0);
    write(folder.path("a.heic"), two.bytes);
    QCOMPARE(BatchCall({"--to", folder.path("out"), folder.path("a.heic")}).status, 0);
    QVERIFY(contents(saved + "a.heic") == expectedRewrite(one, one));
    QVERIFY(contents(saved + "Copy(1)_a.heic") == expectedRewrite(two, two));
    QCOMPARE(BatchCall({"--to", folder.path("out"), "--on-conflict", "overwrite", folder.path("a.heic")}).status, 0);
    QVERIFY(contents(saved + "a.heic") == expectedRewrite(two, two));
}

void TestBatchHeic::tilesAloneGetTheSample()
{
    const BatchFolder folder;
    const MadeHeic made = makeHeic({.entryCount = 0x35, .seed = 2});
    const MadeHeic sample = makeHeic();
    write(folder.path("a.heic"), made.bytes);
    write(folder.path("sample.heic"), sample.bytes);
    const BatchCall call(
        {"--json", "--sample", folder.path("sample.heic"), "--to", folder.path("out"), folder.path("a.heic")});
    QCOMPARE(call.each("status"), QStringList({"5", "5"}));
    QVERIFY(call.objects().first()["report"].toObject()["tilesAlone"].toBool());
    QVERIFY(contents(folder.path("out/RepairedFiles/HEIC_Repaired/a.heic")) == expectedRewrite(sample, made));
}

void TestBatchHeic::savedByMixedRuns()
{
    // The last source is a JPEG, so the running number is first tried among the JPEGs, where it is always free.
    const BatchFolder folder;
    const QString saved = folder.path("out/RepairedFiles/HEIC_Repaired/");
    const QStringList names = {"a.heic", "Copy(1)_a.heic", "Copy(2)_a.heic"};
    for (int i = 0; i < names.size(); ++i) {
        pApp->nCopyCounter = 0; // as each process begins
        const MadeHeic made = makeHeic({.seed = i});
        write(folder.path("a.heic"), made.bytes);
        const BatchCall call({"--to", folder.path("out"), folder.path("a.heic"), folder.path("in/a.jpg")});
        QCOMPARE(call.status, 0);
        QVERIFY(contents(saved + names[i]) == expectedRewrite(made, made));
    }
}

void TestBatchHeic::sampleOfAJpegLeavesThemAlone()
{
    const BatchFolder folder;
    write(folder.path("a.heic"), boxesLost(makeHeic()));
    const BatchCall call({"--json", "--sample", folder.path("in/a.jpg"), folder.path("a.heic")});
    QCOMPARE(call.status, 1);
    QCOMPARE(call.each("status"), QStringList("2"));
}

QTEST_GUILESS_MAIN(TestBatchHeic)
#include "tst_batch_heic.moc"
