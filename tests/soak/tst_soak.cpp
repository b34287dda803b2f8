// Checks what the soak counts by: that damage is damage and hits what its name says, that a comparison tells a rescued
// picture from a spoilt one, and that programs that crash or lie are found out.
#include "soak/BatchRunner.h"
#include "soak/Measure.h"
#include "soak/SoakReport.h"
#include "support/Files.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

using namespace soak;

namespace {

/// A photograph with all that a kind may look for: APPn, DRI, tables of its own, line ends, several clusters.
QByteArray madeJpeg(bool progressive, int variant)
{
    JpegOptions options;
    options.quality = 92;
    options.optimised = true;
    options.progressive = progressive;
    options.restartMcus = progressive ? 0 : 7;
    options.segments = {exifSegment(makeJpeg(drawPicture(80, 60))), commentSegment("two\r\nlines\r\n")};
    options.trailing = "behind";
    return makeJpeg(drawPicture(480, 320, variant), options);
}

QImage plain(int level)
{
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(qRgb(level, level, level));
    return picture;
}

/// A shell program; `lines` find the working folder in $work, the files in $@, and whether --deep was given in $deep.
QString program(const QTemporaryDir &folder, const QString &name, const QByteArray &lines)
{
    const QString path = folder.filePath(name);
    write(path,
          "#!/bin/bash\ndeep=\n"
          "while [ \"$1\" != --work ]; do if [ \"$1\" = --deep ]; then deep=1; fi; shift; done\n"
          "work=$2/RepairedFiles; mkdir -p \"$work\"; shift 2\n"
          "for file in \"$@\"; do name=${file##*/}\n"
              + lines + "\ndone\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

} // namespace

class TestSoak : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void mapFindsTheMainImage_data();
    void mapFindsTheMainImage();
    void mapRefuses();
    void kindsHaveNamesOfTheirOwn();
    void kindDamages_data();
    void kindDamages();
    void setTakesHealthyFilesAlone();
    void comparisonCounts_data();
    void comparisonCounts();
    void mishapsAreNamed();
    void measureFindsWhatSalvageAdds();
    void reportCounts();

private:
    QTemporaryDir m_photographs;
    std::unique_ptr<SourceSet> m_set;
};

void TestSoak::initTestCase()
{
    for (int i = 0; i < 4; ++i) write(m_photographs.filePath(QString("%1.jpg").arg(i)), madeJpeg(i == 3, i));
    // So few bytes that damage finds every edge of the scan.
    JpegOptions few;
    few.quality = 10;
    write(m_photographs.filePath("small.jpg"), makeJpeg(drawPicture(16, 16), few));
    m_set = std::make_unique<SourceSet>(m_photographs.path(), 2);
    QCOMPARE(m_set->size(), 5);
}

void TestSoak::mapFindsTheMainImage_data()
{
    QTest::addColumn<bool>("progressive");
    QTest::newRow("baseline") << false;
    QTest::newRow("progressive") << true;
}

void TestSoak::mapFindsTheMainImage()
{
    QFETCH(bool, progressive);
    const QByteArray file = madeJpeg(progressive, 0);
    const JpegMap map = mapOf(file);
    QVERIFY(!map.segments.empty());
    const std::vector<SegmentPlace> places = segmentPlaces(file);
    for (size_t i = 0; i < map.segments.size(); ++i) {
        QCOMPARE(int(map.segments[i].marker), places[i + 1].marker & 0xFF);
        QCOMPARE(map.segments[i].begin, int(places[i + 1].offset));
        QCOMPARE(map.segments[i].size(), places[i + 1].length + 2);
    }
    QCOMPARE(int(map.segments.back().marker), 0xDA);
    QCOMPARE(map.scanBegin, map.segments.back().end);
    QCOMPARE(map.imageEnd, file.size() - 6);
    QCOMPARE(map.scanEnd, map.imageEnd - 2);
    // 480 x 320 in MCUs of 16 x 16, an interval each seven.
    QCOMPARE(int(map.restarts.size()), progressive ? 0 : (30 * 20 - 1) / 7);
}

void TestSoak::mapRefuses()
{
    const QByteArray file = madeJpeg(false, 0);
    const JpegMap map = mapOf(file);
    QVERIFY(mapOf({}).segments.empty());
    QVERIFY(mapOf("\xFF\xD8").segments.empty());
    QVERIFY(mapOf(file.mid(2)).segments.empty());
    QVERIFY(mapOf(file.left(map.scanEnd)).segments.empty());
    QVERIFY(mapOf(QByteArray(file).insert(map.segments[1].begin, 'x')).segments.empty());
    const Segment &frame = *map.frame();
    QVERIFY(mapOf(QByteArray(file).remove(frame.begin, frame.size())).segments.empty());
}

void TestSoak::kindsHaveNamesOfTheirOwn()
{
    QSet<QString> names;
    for (const DamageKind &kind : damageKinds()) names.insert(kind.name);
    QCOMPARE(names.size(), int(damageKinds().size()));
}

void TestSoak::kindDamages_data()
{
    QTest::addColumn<int>("number");
    for (size_t i = 0; i < damageKinds().size(); ++i) QTest::newRow(damageKinds()[i].name) << int(i);
}

void TestSoak::kindDamages()
{
    QFETCH(int, number);
    const DamageKind &kind = damageKinds()[size_t(number)];
    const auto isIn = [&](const std::vector<DamageKind> &kinds) {
        return std::any_of(kinds.begin(), kinds.end(),
                           [&](const DamageKind &one) { return qstrcmp(one.name, kind.name) == 0; });
    };
    const std::vector<Sample> samples = m_set->damaged(80, 7, {kind});
    const std::vector<Sample> again = m_set->damaged(12, 7, {kind});
    const std::vector<Sample> others = m_set->damaged(80, 8, {kind});
    QCOMPARE(int(samples.size()), 80);
    bool another = false;
    for (size_t i = 0; i < samples.size(); ++i) {
        const QByteArray healthy = contents(samples[i].source);
        const QByteArray &bytes = samples[i].bytes;
        QVERIFY(bytes != healthy);
        QVERIFY(!bytes.isEmpty());
        if (i < again.size()) QCOMPARE(again[i].bytes, bytes);
        another = another || others[i].bytes != bytes;
        // What a kind doesn't name stays.
        const JpegMap map = mapOf(healthy);
        if (isIn(headerDamage()) || isIn(tableDamage())) QVERIFY(bytes.endsWith(healthy.mid(map.scanBegin)));
        if (isIn(scanDamage())) {
            QVERIFY(bytes.startsWith(healthy.left(map.scanBegin)));
            QVERIFY(bytes.endsWith(healthy.mid(map.scanEnd)));
        }
    }
    QVERIFY2(another, "another seed gave the same files");
}

void TestSoak::setTakesHealthyFilesAlone()
{
    QTemporaryDir folder;
    const QByteArray file = madeJpeg(false, 0);
    const JpegMap map = mapOf(file);
    write(folder.filePath("healthy.JPG"), file);
    write(folder.filePath("below/healthy.jpeg"), madeJpeg(true, 1));
    write(folder.filePath("cut.jpg"), file.left(file.size() / 2));
    write(folder.filePath("hole.jpg"), QByteArray(file).replace(map.scanBegin + 900, 400, QByteArray(400, '\0')));
    write(folder.filePath("text.jpg"), "no picture");
    const SourceSet set(folder.path(), 1);
    QCOMPARE(set.size(), 2);
    QCOMPARE(set.passedOver(), 3);
    const std::vector<Sample> intact = set.intact(5, 1);
    QCOMPARE(int(intact.size()), 2);
    QVERIFY(intact[0].source != intact[1].source);
    for (const Sample &sample : intact) QCOMPARE(sample.bytes, contents(sample.source));
}

void TestSoak::comparisonCounts_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::addColumn<double>("difference");
    QTest::addColumn<double>("share");
    QTest::addColumn<bool>("rescued");

    QImage red = plain(100);
    red.fill(qRgb(111, 100, 100));
    QImage quarter = plain(100);
    QPainter(&quarter).fillRect(0, 0, 20, 20, QColor(200, 200, 200));
    QImage corner = plain(100);
    QPainter(&corner).fillRect(0, 0, 8, 8, QColor(116, 100, 100));
    QTest::newRow("the same") << plain(100) << 0.0 << 1.0 << true;
    QTest::newRow("three levels brighter") << plain(103) << 3.0 << 1.0 << true;
    QTest::newRow("four levels darker") << plain(96) << 4.0 << 1.0 << false;
    QTest::newRow("sixteen levels darker") << plain(84) << 16.0 << 0.0 << false;
    QTest::newRow("one channel off") << red << 11.0 / 3 << 1.0 << true;
    QTest::newRow("a quarter wrong") << quarter << 25.0 << 0.75 << false;
    QTest::newRow("a corner wrong in one channel") << corner << 16.0 / 3 / 25 << 0.96 << true;
    QTest::newRow("another size") << plain(100).copy(0, 0, 40, 39) << 255.0 << 0.0 << false;
    QTest::newRow("turned") << plain(100).copy(0, 0, 20, 40) << 255.0 << 0.0 << false;
    QTest::newRow("none") << QImage() << 255.0 << 0.0 << false;
}

void TestSoak::comparisonCounts()
{
    QFETCH(QImage, picture);
    QFETCH(double, difference);
    QFETCH(double, share);
    QFETCH(bool, rescued);

    const Comparison comparison = compare(plain(100), picture);
    QVERIFY(qAbs(comparison.meanDifference - difference) < 1e-9);
    QVERIFY(qAbs(comparison.rightShare - share) < 1e-9);
    QCOMPARE(comparison.rescued(), rescued);
    QCOMPARE(comparison.samePixels(), difference == 0);
}

void TestSoak::mishapsAreNamed()
{
    QTemporaryDir folder;
    // Every other file is something that a program doesn't get over.
    const QString fake = program(folder, "fake",
                                 "case $name in *2.jpg) kill -SEGV $$;; *4.jpg) exec sleep 60;; *5.jpg) exit 3;; esac\n"
                                 "cp \"$file\" \"$work/$name\"; echo '{\"results\":[\"'$name'\"]}'");
    QStringList files;
    for (int i = 1; i <= 6; ++i) {
        files << folder.filePath(QString("f%1.jpg").arg(i));
        write(files.last(), QByteArray::number(i));
    }
    const QList<Leaving> all = runOver(fake, {"--json"}, folder.filePath("work"), files, 2);
    QCOMPARE(all.size(), 6);
    QStringList mishaps;
    for (int i = 0; i < 6; ++i) {
        mishaps << all[i].mishap;
        QCOMPARE(all[i].json.isEmpty(), !all[i].mishap.isEmpty());
        QCOMPARE(all[i].pathOf(QString("f%1.jpg").arg(i + 1)).isEmpty(), !all[i].mishap.isEmpty());
    }
    QCOMPARE(mishaps, QStringList({"", "crashed", "", "hangs", "ended without a word, exit 3", ""}));
    QCOMPARE(contents(all[5].pathOf("f6.jpg")), QByteArray("6"));
    QCOMPARE(contents(all[5].pathOf("/f6.jpg")), QByteArray("6")); // as the second way calls its outputs
    QCOMPARE(all[5].pathOf({}), QString());

    const QList<Leaving> missing = runOver(folder.filePath("nobody"), {}, folder.filePath("work"), files.mid(0, 2), 2);
    QCOMPARE(missing.size(), 2);
    QCOMPARE(missing[1].mishap, QString("crashed"));
}

void TestSoak::measureFindsWhatSalvageAdds()
{
    QTemporaryDir folder;
    const QString truth = m_photographs.filePath("0.jpg");
    const QByteArray bytes = contents(truth);
    const QByteArray broken = QByteArray(bytes).replace(mapOf(bytes).scanBegin, 4000, QByteArray(4000, '\x55'));
    // Leaves each file as it is; salvage has the truth for the second, spoils the first, and touches an output of the
    // third that isn't its own.
    const QByteArray lines =
        "cp \"$file\" \"$work/$name\"; cp \"$file\" \"$work/${name%.jpg}_[T1].jpg\"; more=\n"
        "case $deep$name in\n"
        "1f00010.jpg) cp BROKEN \"$work/f00010_salvaged.jpg\";;\n"
        "1f00011.jpg) cp TRUTH \"$work/f00011_salvaged.jpg\";;\n"
        "1f00012.jpg) echo >>\"$work/f00012_[T1].jpg\";;\n"
        "esac\n"
        "case $deep$name in 1*[01].jpg) more=',\"salvaged\":\"'${name%.jpg}'_salvaged.jpg\","
        "\"report\":{\"salvage\":{\"steps\":[\"one\",\"two\"],\"certainty\":\"likely\","
        "\"milliseconds\":12}}';; esac\n"
        "echo '{\"results\":[\"'${name%.jpg}'_[T1].jpg\",\"'$name'\"],\"status\":\"repaired\"'$more'}'";
    write(folder.filePath("broken.jpg"), broken);
    Programs programs;
    programs.batch = program(folder, "fake",
                             QByteArray(lines)
                                 .replace("TRUTH", '"' + truth.toUtf8() + '"')
                                 .replace("BROKEN", '"' + folder.filePath("broken.jpg").toUtf8() + '"'));
    const std::vector<Sample> samples = {
        {"healthy", truth, bytes}, {"broken", truth, broken}, {"again", truth, broken}};
    const std::vector<Measured> measured = measure(programs, samples, 10, folder.filePath("work"));

    QCOMPARE(int(measured.size()), 3);
    QVERIFY(measured[0].of(Way::Told).samePixels());
    QVERIFY(isRegression(measured[0]));
    QVERIFY(!measured[1].of(Way::Told).rescued());
    QVERIFY(measured[1].of(Way::Both).samePixels());
    QCOMPARE(measured[1].steps, QStringList({"one", "two"}));
    QCOMPARE(measured[1].certainty, QString("likely"));
    QCOMPARE(int(measured[1].milliseconds), 12);
    QVERIFY(measured[1].differing.isEmpty());
    QVERIFY(!measured[2].salvaged);
    QVERIFY(!measured[2].salvageRan);
    QCOMPARE(measured[2].differing, QStringList("RepairedFiles/f00012_[T1].jpg"));
    for (const Measured &one : measured) QVERIFY(one.mishaps.isEmpty());
    QCOMPARE(contents(measured[1].path), broken);
}

void TestSoak::reportCounts()
{
    Comparison good{true, 1, 1};
    Soak soak;
    soak.tried[size_t(Way::Alone)] = false;
    const auto add = [&](const char *kind, bool told, bool both, bool salvaged) {
        Measured one;
        if (told) one.of(Way::Told) = good;
        if (both) one.of(Way::Both) = good;
        one.path = QString("/x/f%1.jpg").arg(soak.samples.size());
        one.salvaged = salvaged;
        one.certainty = salvaged ? "exact" : "";
        one.milliseconds = salvaged ? qint64(soak.samples.size()) * 10 : -1;
        soak.samples.push_back({kind, "/y/source.jpg", {}});
        soak.measured.push_back(one);
    };
    add("one kind", true, true, false);
    add("one kind", false, true, true);
    add("one kind", true, false, true);
    add("other kind", false, false, false);
    add("intact", true, true, true);

    QString text;
    QTextStream out(&text);
    printReport(soak, out);
    printLost(soak, out);
    const QString report = text.simplified();
    for (const char *words : {
             "| one kind | 3 | 2 | - | 2 | - | - |",
             "| other kind | 1 | 0 | - | 0 | - | - |",
             "| all kinds | 4 | 2 | - | 2 | - | - |",
             "told 50.0 %, told then salvage 50.0 %",
             "the salvage behind the told ways, 2 files: median 20, 95 % 20, worst 20",
             "Certainty exact: 2 shown, 1 of them rescued;",
             "Intact files changed: 1 f4 intact, source.jpg",
             "Told outputs that differ with salvage switched on: 0",
             "Regressions (told rescued, told then salvage not): 1 f2 one kind, source.jpg",
             "Not rescued by told then salvage: 2 f2 one kind",
         })
        QVERIFY2(report.contains(words), qPrintable(QString("%1\nis not in\n%2").arg(words, text)));
}

QTEST_GUILESS_MAIN(TestSoak)
#include "tst_soak.moc"
