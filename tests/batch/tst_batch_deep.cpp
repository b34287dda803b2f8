// --deep: one more output beside the others, which stay as they are.

#include "BatchCall.h"
#include "BatchFolder.h"

#include "support/Damage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Whole, with Huffman tables of its own.
QByteArray wholeJpeg(int variant)
{
    return makeJpeg(drawPicture(320, 240, variant), {.quality = 88, .optimised = true});
}

/// The same with a count of its second DHT hit, for which the other ways have no cure.
QByteArray lostJpeg(int variant)
{
    return Damage(wholeJpeg(variant)).put(at(0xFFC4, 1) + 6, "\x55");
}

/// Names and bytes of all files below a folder but for salvaged pictures.
QMap<QString, QByteArray> toldFiles(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (const QString &name : filesBelow(folder))
        if (!name.contains("_salvaged") && !name.endsWith(".lock")) files.insert(name, contents(folder + '/' + name));
    return files;
}

/// An object of --json without what --deep adds to it, and without the paths of its working folder.
QJsonObject withoutSalvage(QJsonObject object)
{
    QJsonArray rows;
    for (const QJsonValue &row : object["rows"].toArray())
        if (row.toObject()["type"].toString() != "Salvaged") rows.append(row);
    QJsonObject report = object["report"].toObject();
    report.remove("salvage");
    QJsonArray outputs;
    for (const QJsonValue &value : report["outputs"].toArray()) {
        QJsonObject output = value.toObject();
        output.remove("path");
        outputs.append(output);
    }
    report["outputs"] = outputs;
    object.remove("salvaged");
    object["rows"] = rows;
    object["report"] = report;
    return object;
}

QJsonObject salvageOf(const QJsonObject &object)
{
    return object["report"].toObject()["salvage"].toObject();
}

} // namespace

class TestBatchDeep : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new BatchFolder); }
    void cleanup()
    {
        const bool isTidy = m_folder->isTidy();
        m_folder.reset();
        QVERIFY2(isTidy, "a temporary root is left");
    }

    void jsonNamesTheSalvagedPicture();
    void tableShowsIt();
    void salvageAloneCountsAsSomething();
    void healthySourcesAreLeftAlone();
    void savedBesideTheOthers();
    void takenNamesAreLeftToTheirOwners();
    void sourcesStayAsTheyAre();
    void jpegsUnderOtherNamesAreTaken();
    void largeFilesArePassedOver();
    void toldOutputsStayTheSame_data();
    void toldOutputsStayTheSame();

private:
    QString path(const QString &name) const { return m_folder->path(name); }

    QScopedPointer<BatchFolder> m_folder;
};

void TestBatchDeep::jsonNamesTheSalvagedPicture()
{
    write(path("bad/a.jpg"), lostJpeg(1));
    const BatchCall call({"--json", "--deep", path("bad/a.jpg")});
    QCOMPARE(call.err, QString());
    const QJsonObject object = call.objects().at(0);
    QCOMPARE(object["salvaged"].toString(), QString("a_salvaged.jpg"));
    const QJsonArray rows = object["rows"].toArray();
    QCOMPARE(rows.last().toObject(),
             (QJsonObject{{"name", "a_salvaged.jpg"},
                          {"type", "Salvaged"},
                          {"resolution", "240x320"},
                          {"completeness", "whole"},
                          {"share", 1}}));
    const QJsonObject salvage = salvageOf(object);
    QCOMPARE(salvage["steps"].toArray(), QJsonArray{"counts mended"});
    QCOMPARE(salvage["certainty"].toString(), QString("exact"));
    QVERIFY(salvage["milliseconds"].isDouble() && salvage["milliseconds"].toInt() < 12'000);
    QVERIFY(!salvage.contains("passedOver"));
    QVERIFY(!object["results"].toArray().contains("a_salvaged.jpg")); // those are what the other ways leave
}

void TestBatchDeep::tableShowsIt()
{
    write(path("bad/a.jpg"), lostJpeg(1));
    const BatchCall call({"--deep", path("bad/a.jpg"), path("in/b.jpg")});
    const QStringList lines = call.outLines().filter("a_salvaged.jpg");
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].contains("Salvaged") && lines[0].contains("240x320")
                 && lines[0].contains("counts mended (exact)"),
             qPrintable(lines[0]));
    QVERIFY2(call.out.contains("Sources: 2, 2 gave something, 0 gave nothing"), qPrintable(call.out));
    QVERIFY2(call.out.contains("1 salvaged"), qPrintable(call.out));
}

void TestBatchDeep::salvageAloneCountsAsSomething()
{
    write(path("bad/a.jpg"), lostJpeg(1));
    const BatchCall without({"--json", path("bad/a.jpg")});
    QCOMPARE(without.objects().at(0)["results"].toArray(), QJsonArray()); // else there is nothing to tell apart here
    QCOMPARE(without.status, exitStatus::SomeGaveNothing);
    const BatchCall with({"--json", "--deep", path("bad/a.jpg")});
    QCOMPARE(with.status, exitStatus::AllGave);
    QCOMPARE(with.objects().at(0)["status"], without.objects().at(0)["status"]);
    QCOMPARE(with.objects().at(0)["rows"].toArray().size(), 1);
    write(path("bad/b.jpg"), QByteArray(5000, 'x'));
    const BatchCall nothing({"--json", "--deep", path("bad")});
    QCOMPARE(nothing.status, exitStatus::SomeGaveNothing);
    QCOMPARE(nothing.each("salvaged"), QStringList({"a_salvaged.jpg", ""}));
}

void TestBatchDeep::healthySourcesAreLeftAlone()
{
    write(path("in/progressive.jpeg"), healthyJpeg({.progressive = true}));
    write(path("in/upper.JPG"), wholeJpeg(2));
    const BatchCall without({"--json", path("in")});
    const BatchCall with({"--json", "--deep", path("in")});
    QCOMPARE(with.status, 0);
    QCOMPARE(with.objects().size(), 4);
    for (int i = 0; i < 4; ++i) {
        QVERIFY(salvageOf(with.objects()[i]).isEmpty());
        QCOMPARE(withoutSalvage(with.objects()[i]), withoutSalvage(without.objects()[i]));
    }
}

void TestBatchDeep::savedBesideTheOthers()
{
    write(path("in/b.jpg"), lostJpeg(1));
    const BatchCall call({"--json", "--deep", "--to", path("out"), path("in")});
    QCOMPARE(call.status, 0);
    QCOMPARE(filesBelow(path("out")), QStringList({"RepairedFiles/a.jpg", "RepairedFiles/b_salvaged.jpg"}));
    QCOMPARE(decoded(contents(path("out/RepairedFiles/b_salvaged.jpg"))), decoded(wholeJpeg(1)));
    QCOMPARE(decoded(contents(path("out/RepairedFiles/a.jpg"))), decoded(healthyJpeg()));
}

void TestBatchDeep::takenNamesAreLeftToTheirOwners()
{
    write(path("one/a.jpg"), lostJpeg(1));
    write(path("one/A_Salvaged.jpg"), wholeJpeg(3));
    const BatchCall call({"--json", "--deep", "--to", path("out"), path("one")});
    QCOMPARE(call.status, 0);
    QStringList names = call.each("salvaged");
    names.removeAll(QString());
    QCOMPARE(names, QStringList{"Copy(1)_a_salvaged.jpg"});
    QCOMPARE(filesBelow(path("out")),
             QStringList({"RepairedFiles/A_Salvaged.jpg", "RepairedFiles/Copy(1)_a_salvaged.jpg"}));
    QCOMPARE(decoded(contents(path("out/RepairedFiles/A_Salvaged.jpg"))), decoded(wholeJpeg(3)));
    QCOMPARE(decoded(contents(path("out/RepairedFiles/Copy(1)_a_salvaged.jpg"))), decoded(wholeJpeg(1)));

    // Two sources of one name in two folders have two salvaged pictures.
    write(path("two/x/a.jpg"), lostJpeg(1));
    write(path("two/y/a.jpg"), lostJpeg(2));
    const BatchCall twins({"--json", "--deep", "--to", path("twins"), path("two/x"), path("two/y")});
    QCOMPARE(twins.status, 0);
    const QStringList saved = filesBelow(path("twins"));
    QCOMPARE(saved.size(), 2);
    names = twins.each("salvaged");
    QCOMPARE(names.removeDuplicates(), 0);
    QCOMPARE(names.size(), 2);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(decoded(contents(path("twins/RepairedFiles/" + twins.each("salvaged")[i]))),
                 decoded(wholeJpeg(i + 1)));
}

void TestBatchDeep::sourcesStayAsTheyAre()
{
    const QString source = path("bad/a.jpg");
    write(source, lostJpeg(1));
    QCOMPARE(::chmod(QFile::encodeName(source).constData(), 0444), 0);
    QCOMPARE(::chmod(QFile::encodeName(path("bad")).constData(), 0555), 0);
    struct stat before = {};
    QCOMPARE(::stat(QFile::encodeName(source).constData(), &before), 0);
    const BatchCall call({"--json", "--deep", "--to", path("out"), source});
    struct stat after = {};
    QCOMPARE(::stat(QFile::encodeName(source).constData(), &after), 0);
    QCOMPARE(::chmod(QFile::encodeName(path("bad")).constData(), 0755), 0);
    QCOMPARE(call.each("salvaged"), QStringList{"a_salvaged.jpg"});
    QCOMPARE(contents(source), lostJpeg(1));
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    QCOMPARE(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
    QCOMPARE(QDir(path("bad")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList{"a.jpg"});
}

void TestBatchDeep::jpegsUnderOtherNamesAreTaken()
{
    write(path("raw/a.nef"), lostJpeg(1));
    write(path("raw/b.heic"), lostJpeg(1));
    const BatchCall call({"--json", "--deep", path("raw")});
    QCOMPARE(call.objects().size(), 2);
    for (const QJsonObject &object : call.objects()) {
        QCOMPARE(object["report"].toObject()["trueFormat"].toString(), QString("JPEG"));
        QVERIFY(object["salvaged"].toString().endsWith("_salvaged.jpg"));
    }
}

void TestBatchDeep::largeFilesArePassedOver()
{
    const QString source = path("bad/a.jpg");
    write(source, lostJpeg(1));
    QCOMPARE(::truncate(QFile::encodeName(source).constData(), (off_t(256) << 20) + 1), 0); // a hole behind the picture
    const BatchCall call({"--json", "--deep", source});
    const QJsonObject object = call.objects().at(0);
    QCOMPARE(salvageOf(object)["passedOver"].toString(), QString("too-large"));
    QVERIFY(!object.contains("salvaged"));
}

void TestBatchDeep::toldOutputsStayTheSame_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("eachOf");
    QTest::newRow("samples") << QStringLiteral(KESMIRA_SOURCE_DIR "/samples") << 1;
    // Some of the photographs, each with its DQT or DHT hit or as it is, so that salvage has something to do.
    QTest::newRow("photographs") << QStringLiteral(KESMIRA_CORPUS "/jpeg") << 12;
}

void TestBatchDeep::toldOutputsStayTheSame()
{
    QFETCH(QString, folder);
    QFETCH(int, eachOf);
    QStringList names = QDir(folder).entryList({"*.jpg", "*.jpeg", "*.JPG"}, QDir::Files, QDir::Name);
    if (names.isEmpty()) QSKIP("no real photographs here");
    QStringList sources;
    for (int i = 0; i < names.size(); i += eachOf) {
        QByteArray file = contents(folder + '/' + names[i]);
        if (file.size() > 300 * 1024) continue;
        const int n = sources.size();
        const int table = file.lastIndexOf(n % 3 ? "\xFF\xDB" : "\xFF\xC4");
        if (eachOf > 1 && n % 2 && table > 0) file.replace(table + 8, 3, "\x77\x05\x66");
        sources << path("sources/" + names[i]);
        write(sources.last(), file);
    }
    const BatchCall without(QStringList{"--json", "--work", path("without")} + sources);
    const BatchCall with(QStringList{"--json", "--deep", "--work", path("with")} + sources);
    QCOMPARE(with.err, without.err);
    QCOMPARE(with.objects().size(), sources.size());
    for (int i = 0; i < sources.size(); ++i)
        QCOMPARE(withoutSalvage(with.objects()[i]), withoutSalvage(without.objects()[i]));
    const QMap<QString, QByteArray> told = toldFiles(path("without"));
    QVERIFY(told.size() >= sources.size() / 2);
    QCOMPARE(toldFiles(path("with")).keys(), told.keys());
    QVERIFY(toldFiles(path("with")) == told);
    QVERIFY(with.each("salvaged").count(QString()) < sources.size()); // some were salvaged, and it made no difference
}

QTEST_GUILESS_MAIN(TestBatchDeep)
#include "tst_batch_deep.moc"
