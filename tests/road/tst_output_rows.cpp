// From the names that a repair left to rows: order, types, resolutions, and where the files lie.

#include "Road.h"

#include "support/Damage.h"
#include "support/Files.h"
#include "support/Pictures.h"

#include <QTest>

using namespace words;

namespace {

QByteArray pictureOf(int width, int height)
{
    return makeJpeg(drawPicture(width, height));
}

QStringList describe(const OutputRows &rows)
{
    QStringList lines{rows.sourceStatus};
    for (const OutputRow &row : rows.rows) lines << QStringList{row.name, row.type, row.resolution}.join(" | ");
    return lines;
}

} // namespace

class TestOutputRows : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void rawRows_data();
    void rawRows();
    void rowsResolveTheirFiles();
    void sampleRows_data();
    void sampleRows();
    void places_data();
    void places();
};

void TestOutputRows::rows_data()
{
    QTest::addColumn<QString>("statusBefore");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("expected"); // the source's status, then the rows
    const QString main = "a.jpg | Repaired | 32x48";
    const auto thumbnail = [](int n) { return QString("a_[T%1].jpg | Thumbnail | %2x24").arg(n).arg(10 + n); };
    const QString fifth = "a_[T5].jpg | Repaired | 15x24";
    const auto t = [](int n) { return QString("a_[T%1].jpg").arg(n); };
    QTest::newRow("nothing") << "" << QStringList() << QStringList{""};
    QTest::newRow("nothing, invalid") << "2" << QStringList() << QStringList{"2"};
    QTest::newRow("main") << "" << QStringList{"a.jpg"} << QStringList{"5", main};
    QTest::newRow("main, T1") << "" << QStringList{"a.jpg", t(1)} << QStringList{"5", main, thumbnail(1)};
    QTest::newRow("main, T1, T2") << "" << QStringList{"a.jpg", t(1), t(2)}
                                  << QStringList{"5", main, thumbnail(1), thumbnail(2)};
    QTest::newRow("T1 alone") << "2" << QStringList{t(1)} << QStringList{"2", thumbnail(1)};
    QTest::newRow("T2 alone") << "2" << QStringList{t(2)} << QStringList{"2", thumbnail(2)};
    // With T1 in front the list is read backwards, as the main image, if any, is its last name.
    QTest::newRow("T1, T2") << "2" << QStringList{t(1), t(2)} << QStringList{"2", thumbnail(2), thumbnail(1)};
    QTest::newRow("T1, second way") << "" << QStringList{t(1), "/a.jpg"} << QStringList{"5", main, thumbnail(1)};
    QTest::newRow("T2, second way") << "" << QStringList{t(2), "/a.jpg"} << QStringList{"5", thumbnail(2), main};
    QTest::newRow("stream") << "" << QStringList{"a.jpg", t(1), t(2), t(3), t(4), t(5)}
                            << QStringList{"5", main, thumbnail(1), thumbnail(2), thumbnail(3), fifth};
    QTest::newRow("stream without a main image") << "2" << QStringList{t(1), t(2), t(3), t(4), t(5)}
                                                 << QStringList{"5", fifth, thumbnail(3), thumbnail(2), thumbnail(1)};
    QTest::newRow("T4 alone has no row") << "2" << QStringList{t(4)} << QStringList{"2"};
    QTest::newRow("doesn't decode") << "" << QStringList{"broken.jpg"}
                                    << QStringList{"5", "broken.jpg | Repaired | 0x0"};
    QTest::newRow("isn't there") << "" << QStringList{"gone.jpg"} << QStringList{"5", "gone.jpg | Repaired | 0x0"};
    QTest::newRow("stopped") << "1" << QStringList{"a.jpg", t(1)} << QStringList{"1"};
}

void TestOutputRows::rows()
{
    QFETCH(QString, statusBefore);
    QFETCH(QStringList, names);
    QFETCH(QStringList, expected);
    const Run run;
    const QString folder = pApp->strTempDir;
    write(folder + "a.jpg", pictureOf(48, 32));
    for (const int n : {1, 3, 4, 5})
        write(folder + QString("Thumbnail Repaired/a_[T%1].jpg").arg(n), pictureOf(24, 10 + n));
    write(folder + "Thumbnail Repaireda_[T2].jpg", pictureOf(24, 12));
    write(folder + "broken.jpg", filler(90));
    FileOutcome outcome;
    outcome.suffix = "jpg";
    outcome.statusCode = statusBefore;
    outcome.results = names;
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(describe(rows), expected);
    for (const OutputRow &row : rows.rows) {
        QCOMPARE(row.thumbnail, row.type == "Thumbnail");
        QCOMPARE(row.path.isEmpty(), row.name == "gone.jpg");
        QCOMPARE(QFileInfo::exists(row.path), row.name != "gone.jpg");
        if (row.resolution != "0x0")
            QCOMPARE(QString("%1x%2").arg(decodedFile(row.path).height()).arg(decodedFile(row.path).width()),
                     row.resolution);
    }
}

void TestOutputRows::rawRows_data()
{
    QTest::addColumn<QVector<int>>("widths"); // of the pictures in their order; 0 for one that doesn't decode
    QTest::addColumn<QStringList>("expected");
    // Pictures are as high as 10 and their number, so that an exchanged resolution shows.
    const auto row = [](const QVector<int> &widths, const QStringList &expected) {
        QStringList name;
        for (const int width : widths) name << QString::number(width);
        QTest::newRow(qPrintable("widths " + name.join(' '))) << widths << expected;
    };
    row({}, {""});
    row({40}, {"5", "1 Extracted 11x40 4"});
    row({0}, {"5", "1 Extracted 0x0 4"});
    row({40, 24}, {"5", "1 Extracted 11x40 4", "2 Thumbnail 12x24 4"});
    row({100, 99}, {"5", "1 Extracted 11x100 4", "2 Thumbnail 12x99 4"});
    row({99, 100}, {"5", "1 Extracted 12x100 4", "2 Thumbnail 11x99 4"});
    row({40, 40}, {"5", "1 Extracted 11x40 4", "2 Extracted 12x40 4"});
    row({0, 24}, {"5", "1 Extracted 12x24 4", "2 Thumbnail 0x0 4"});
    row({0, 0}, {"5", "1 Extracted 0x0 4", "2 Extracted 0x0 4"});
    row({100, 40, 24}, {"5", "1 Extracted 11x100 4", "2 Thumbnail 12x40 4", "3 Thumbnail 13x24 4"});
    row({100, 24, 99}, {"5", "1 Extracted 11x100 4", "2 Thumbnail 12x24 4", "3 Thumbnail 13x99 4"});
    // A third one that isn't the narrowest is called nothing, and the two in front keep what they were called.
    row({40, 24, 40}, {"5", "1 Extracted 11x40 4", "2 Thumbnail 12x24 4", "3  13x40 "});
    row({24, 40, 8}, {"5", "1 Extracted 12x40 4", "2 Thumbnail 11x24 4", "3  13x8 "});
    row({40, 40, 24}, {"5", "1 Extracted 11x40 4", "2 Extracted 12x40 4", "3  13x24 "});
    row({0, 0, 24}, {"5", "1 Extracted 0x0 4", "2 Extracted 0x0 4", "3  13x24 "});
}

void TestOutputRows::rawRows()
{
    QFETCH(QVector<int>, widths);
    QFETCH(QStringList, expected);
    const Run run;
    // The suffix decides, and no part of a raw file's name: "_[T4]" hides a JPEG's output alone.
    for (const QString base : {"a", "a_[T4]", "a_[T2]"}) {
        FileOutcome outcome;
        outcome.suffix = "cR3";
        for (int i = 0; i < widths.size(); ++i) {
            outcome.results << QString("%1_%2.jpg").arg(base).arg(i + 1);
            write(pApp->strTempDir + outcome.results.last(), widths[i] ? pictureOf(widths[i], 11 + i) : filler(90));
        }
        const OutputRows rows = makeRows(outcome);
        QStringList found{rows.sourceStatus};
        for (const OutputRow &row : rows.rows) {
            found << QStringList{row.name.mid(base.size() + 1, 1), row.type, row.resolution, row.statusCode}.join(' ');
            QCOMPARE(row.path, pApp->strTempDir + row.name);
            QCOMPARE(row.thumbnail, row.type == "Thumbnail");
        }
        QCOMPARE(found, expected);
    }
    // With "_[T1]" in it the list is read backwards, as for any source.
    FileOutcome outcome;
    outcome.suffix = "nrw";
    outcome.results = QStringList{"b_[T1]_1.jpg", "b_[T1]_2.jpg"};
    QCOMPARE(makeRows(outcome).rows[0].name, QString("b_[T1]_2.jpg"));
}

void TestOutputRows::rowsResolveTheirFiles()
{
    // Real outputs, the second thumbnail's odd place among them.
    const Run run;
    const QByteArray first = makeJpeg(drawPicture(24, 16, 1), {.oneDqt = true});
    const QByteArray second = makeJpeg(drawPicture(40, 24, 2), {.oneDqt = true});
    const QByteArray file =
        healthyJpeg({.jfif = false, .segments = {exifSegment(first), embeddingSegment(APP2, second)}});
    const FileOutcome outcome = run.repair("a.JPEG", file);
    const OutputRows rows = makeRows(outcome);
    QCOMPARE(describe(rows),
             QStringList({"5", "a.JPEG | Repaired | 32x48", "a_[T1].jpeg | Thumbnail | 16x24",
                          "a_[T2].jpeg | Thumbnail | 24x40"}));
    QCOMPARE(run.filesLeft(),
             QStringList({"Thumbnail Repaired/a_[T1].jpeg", "Thumbnail Repaireda_[T2].jpeg", "a.JPEG"}));
    const QByteArray pictures[] = {file, first, second};
    for (int i = 0; i < rows.rows.size(); ++i) {
        QCOMPARE(decodedFile(rows.rows[i].path), decoded(pictures[i]));
        QCOMPARE(QFileInfo(outputPath(outcome.results[i])), QFileInfo(rows.rows[i].path));
    }
}

void TestOutputRows::sampleRows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("expected");
    for (const char *name : {"a.jpg", "a.JPG", "a.jpeg", "a.JPEG"})
        QTest::addRow("%s", name) << name << QStringList{"5", QString(name) + " | Repaired | 32x48"};
    for (const char *name : {"a.JpEg", "a.Jpg", "a.jpG"}) QTest::addRow("%s", name) << name << QStringList{"2"};
    for (const char *name : {"a_[T1].jpg", "a_[T4].JPG"})
        QTest::addRow("%s", name) << name << QStringList{"2", QString(name) + " | Thumbnail | 32x48"};
    QTest::newRow("a_[T5].jpg") << "a_[T5].jpg" << QStringList{"5", "a_[T5].jpg | Repaired | 32x48"};
}

void TestOutputRows::sampleRows()
{
    QFETCH(QString, name);
    QFETCH(QStringList, expected);
    const Run run;
    const QByteArray whole = healthyJpeg({.jfif = false, .segments = {exifSegment({})}});
    const QString sample = run.source("sample/s.jpg", whole);
    Damage lost(whole);
    lost.zero(fromStart(0), int(lost.offsetOf(upTo(SOS))));
    const FileOutcome outcome = repairOneFileWithSample(sample, run.source(name, lost));
    QCOMPARE(outcome.results, QStringList(name)); // written and listed, row or not
    QCOMPARE(outcome.statusCode, QString(status::Invalid));
    QCOMPARE(decoded(run.output(name)), decoded(whole));
    QCOMPARE(describe(makeSampleRows(outcome)), expected);
}

void TestOutputRows::places_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("files"); // of the working folder
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("destination");
    const QString sub = "Thumbnail Repaired/";
    QTest::newRow("main") << "a.jpg" << QStringList{"a.jpg", sub + "a.jpg"} << "a.jpg"
                          << "a.jpg";
    QTest::newRow("second way") << "/a.jpg" << QStringList{"a.jpg"} << "a.jpg"
                                << "a.jpg";
    QTest::newRow("first") << "a_[T1].jpg" << QStringList{sub + "a_[T1].jpg", "a_[T1].jpg"} << sub + "a_[T1].jpg"
                           << sub + "a_[T1].jpg";
    QTest::newRow("second, where it is written") << "a_[T2].jpg" << QStringList{"Thumbnail Repaireda_[T2].jpg"}
                                                 << "Thumbnail Repaireda_[T2].jpg" << sub + "a_[T2].jpg";
    QTest::newRow("second, of a stream") << "a_[T2].jpg"
                                         << QStringList{"Thumbnail Repaireda_[T2].jpg", sub + "a_[T2].jpg"}
                                         << sub + "a_[T2].jpg" << sub + "a_[T2].jpg";
    QTest::newRow("fourth") << "a_[T4].jpg" << QStringList{sub + "a_[T4].jpg"} << sub + "a_[T4].jpg"
                            << "a_[T4].jpg";
    QTest::newRow("fifth") << "a_[T5].jpg" << QStringList{sub + "a_[T5].jpg"} << sub + "a_[T5].jpg"
                           << "a_[T5].jpg";
    QTest::newRow("a picture that is named like a thumbnail")
        << "a_[t1].jpg" << QStringList{"a_[t1].jpg"} << "a_[t1].jpg" << sub + "a_[t1].jpg";
    QTest::newRow("in neither place") << "a.jpg" << QStringList{"b.jpg"} << ""
                                      << "a.jpg";
}

void TestOutputRows::places()
{
    QFETCH(QString, name);
    QFETCH(QStringList, files);
    QFETCH(QString, expected);
    QFETCH(QString, destination);
    const Run run;
    for (const QString &file : files) write(pApp->strTempDir + file, "x");
    const QString path = outputPath(name);
    QCOMPARE(path.isEmpty() ? path : QDir(pApp->strTempDir).relativeFilePath(path), expected);
    QCOMPARE(destinationPlace(name), destination);
}

QTEST_GUILESS_MAIN(TestOutputRows)
#include "tst_output_rows.moc"
