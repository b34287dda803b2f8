// What an ordinary JPEG gives: how many outputs, under which names, with which bytes, and what is recorded of them.
#include "app/KesmiraApp.h"
#include "engine/SegmentList.h"
#include "save/SaveFile.h"
#include "save/SaveRoom.h"
#include "support/Damage.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"
#include "tables/TableLibrary.h"

#include <QImage>
#include <QtTest>

using namespace words;
using Records = std::vector<Record>;

namespace {

// Nested images of three pictures. Each carries metadata of its own, so that its rebuild is shorter than its copy.
QByteArray thumbnail(int variant, int metadata = 60)
{
    JpegOptions options;
    options.segments = {commentSegment(junk(metadata, quint32(variant)))};
    return makeJpeg(drawPicture(24, 16, variant), options);
}

const QByteArray kT1 = thumbnail(1);
const QByteArray kT2 = thumbnail(2, 2500);
const QByteArray kT3 = thumbnail(3);

QByteArray picture(const std::vector<QByteArray> &segments)
{
    JpegOptions options;
    options.segments = segments;
    return healthyJpeg(options);
}

// The rebuilt image, as long as the image was in its file.
QByteArray nestedOutput(const QByteArray &image)
{
    return blockwise(bareJpeg(image), image.size());
}

// SOI and a segment's head: an image that nothing ends.
const QByteArray kOpenImage = word(SOI) + declared(APP1, 30, filler(10));

const QString kFirst = "Thumbnail Repaired/a_[T1].jpg";
const QString kSecond = "Thumbnail Repaireda_[T2].jpg";

Record first(int number, int of, int state = 0)
{
    return {"a_[T1].jpg", kFirst, number, number, of, state, false};
}
Record second(int number, int state = 0)
{
    return {"a_[T2].jpg", kSecond, number, number, 3, state, false};
}
Record mainRecord(int of)
{
    return {"a.jpg", "a.jpg", 1, 1, of, 0, false};
}

// The first image, as long as it is told to be.
QByteArray sized(int size)
{
    const QByteArray image = thumbnail(1, size - thumbnail(1, 0).size());
    if (image.size() != size) qFatal("no image of %d bytes", size);
    return image;
}

// A frame of 99 bits a sample: nobody decodes it.
const QByteArray kNoPrecision = bytes({99});
const QString kRefused = "Important marker missing. File can't repaire.";

} // namespace

class TestSaveOutputs : public QObject
{
    Q_OBJECT

private slots:
    void outputs_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QVector<QByteArray>>("nested"); // of the first and the second output, empty for none
        QTest::addColumn<int>("expected");               // outputs counted on
        QTest::addColumn<int>("done");                   // outputs tried
        using Images = QVector<QByteArray>;
        const auto row = [](const char *name, const std::vector<QByteArray> &segments, const Images &nested,
                            int expected, int done = -1) {
            QTest::newRow(name) << picture(segments) << nested << expected << (done < 0 ? 1 + nested.size() : done);
        };
        row("none", {}, {}, 1);
        row("APP1: one", {exifSegment(kT1)}, {kT1}, 2);
        row("APP2: one", {embeddingSegment(APP2, kT2)}, {kT2}, 2);
        row("APP13: one", {embeddingSegment(APP13, kT3)}, {kT3}, 2);
        row("APP1: one and one left open", {exifSegment(kT1 + kOpenImage)}, {kT1}, 2);
        row("APP1: one left open", {embeddingSegment(APP1, kOpenImage)}, {}, 1);
        row("APP1: two", {exifSegment(kT1 + kT2)}, {kT1, kT2}, 3);
        row("APP1: two and one left open", {exifSegment(kT1 + kT2 + kOpenImage)}, {kT1, kT2}, 3);
        row("APP1: three", {exifSegment(kT1 + kT2 + kT3)}, {kT1, kT2}, 3);
        row("APP1 and APP2", {exifSegment(kT1), embeddingSegment(APP2, kT2)}, {kT1, kT2}, 3);
        row("APP2 and APP1: in the file's order", {embeddingSegment(APP2, kT2), exifSegment(kT1)}, {kT2, kT1}, 3);
        row("APP1 and APP13", {exifSegment(kT1), embeddingSegment(APP13, kT3)}, {kT1, kT3}, 3);
        row("APP13: two", {embeddingSegment(APP13, kT1 + kT2)}, {kT1, kT2}, 3);
        row("APP1 one, APP2 two", {exifSegment(kT1), embeddingSegment(APP2, kT2 + kT3)}, {kT1, kT2}, 3);
        row("APP1 with two nodes of one: the second has no entry 1", {exifSegment(kT1), exifSegment(kT2)}, {kT1, {}},
            3);
        row("APP13: an empty entry is used up", {embeddingSegment(APP13, kT1), embeddingSegment(APP13, kT2 + kT3)},
            {kT1, {}}, 3);
        row("two halves make one", {embeddingSegment(APP1, kOpenImage), embeddingSegment(APP2, kT1 + kOpenImage)},
            {kT1, {}}, 3);
        for (const int size : {1024, 1025, 2048, 2047})
            QTest::addRow("a copy of %d bytes", size)
                << picture({exifSegment(sized(size))}) << Images{sized(size)} << 2 << 2;
    }
    void outputs()
    {
        QFETCH(QByteArray, source);
        QFETCH(QVector<QByteArray>, nested);
        QFETCH(int, expected);
        QFETCH(int, done);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.save("a.jpg", source);
        QCOMPARE(room.output("a.jpg"), bareJpeg(source));

        Records records = {mainRecord(expected)};
        QStringList files = {"a.jpg"};
        nested.resize(2);
        if (!nested[0].isEmpty()) {
            files << kFirst;
            records.push_back(first(2, expected));
            QCOMPARE(room.output(kFirst), nestedOutput(nested[0]));
        }
        if (!nested[1].isEmpty()) {
            files << kSecond;
            records.push_back(second(3));
            QCOMPARE(room.output(kSecond), nestedOutput(nested[1]));
        }
        files.sort();
        QCOMPARE(room.outputs(), files);
        QCOMPARE(describe(room.records()), describe(records));
        QCOMPARE(int(pApp->nResultCounter), done);
        QCOMPARE(pApp->nInvalidCount, 0u);
        QCOMPARE(pApp->bSaveDone, true);
        QCOMPARE(pApp->nSavePhase, 0u);
        QCOMPARE(pApp->nThumbPass, 0u);
        QCOMPARE(room.leftovers(), QStringList());
    }

    void carving_data()
    {
        QTest::addColumn<QVector<int>>("indices"); // asked for in turn
        QTest::addColumn<QByteArray>("carved");    // the last time
        QTest::newRow("first") << QVector<int>{0} << kT1;
        QTest::newRow("first, used up") << QVector<int>{0, 0} << kT2;
        QTest::newRow("first, twice used up") << QVector<int>{0, 0, 0} << kT2; // the second of two counted images
        QTest::newRow("all used up") << QVector<int>{0, 0, 0, 0} << QByteArray();
        QTest::newRow("a second entry, where one is") << QVector<int>{1} << kT3;
        QTest::newRow("a third entry") << QVector<int>{2} << QByteArray();
    }
    // APP1 holds one image, APP2 two. Each image taken counts its segment's kind down, whichever entry was asked for.
    void carving()
    {
        QFETCH(QVector<int>, indices);
        SaveRoom room;
        room.walk(room.addSource("a.jpg", picture({exifSegment(kT1), embeddingSegment(APP2, kT2 + kT3)})));
        SaveFile writer;
        pApp->bSaveCancelled = true; // counts the images and writes none
        writer.Save();
        QByteArray carved;
        for (const int index : indices) carved = room.written([&](FILE *out) { writer.ReadForSave_thumb(out, index); });
        QTEST(carved, "carved");
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("base");
        QTest::addColumn<QString>("extension");
        const auto row = [](const QString &name, const QString &base, const QString &extension) {
            QTest::newRow(qPrintable(name)) << name << base << extension;
        };
        row("a.JPG", "a", ".jpg");
        row("a.JPEG", "a", ".jpeg");
        row("a.jpeg", "a", ".jpeg");
        row("a.JPeg", "a.", ".jpg");
        row("a.jpEG", "a.", ".jpg");
        row("a.b.jpg", "a.b", ".jpg");
        row("abc", "", ".jpg");
        row("x", "", ".jpg");
        row("peg", "", ".jpeg");
        row("holidays", "holi", ".jpg");
        row("%1 \"quoted\" 'n'.jpg", "%1 \"quoted\" 'n'", ".jpg");
        row("two\nlines.jpg", "two\nlines", ".jpg");
        row(QString::fromUtf8("\xE5\x9B\xBE\xE7\x89\x87.JPEG"), QString::fromUtf8("\xE5\x9B\xBE\xE7\x89\x87"), ".jpeg");
    }
    void names()
    {
        QFETCH(QString, name);
        QFETCH(QString, base);
        QFETCH(QString, extension);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.save(name, picture({exifSegment(kT1 + kT2)}));
        const QString one = base + "_[T1]" + extension;
        const QString two = base + "_[T2]" + extension;
        QCOMPARE(pApp->lstResultNames, QStringList({name, one, two}));
        QStringList files = {name, "Thumbnail Repaired/" + one, "Thumbnail Repaired" + two};
        files.sort();
        QCOMPARE(room.outputs(), files);
        QCOMPARE(pApp->strThumb1Path, pApp->strTempDir + "Thumbnail Repaired/" + one);
        QCOMPARE(pApp->strThumb2Path, pApp->strTempDir + "Thumbnail Repaired" + two);
        QCOMPARE(pApp->strRepairedPath, pApp->strTempDir + name);
    }

    // The scratch file's name has a prefix of its own, and the source's may be as long as the file system allows.
    void longName()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        const QString name = QString::fromUtf8("\xC3\xBC").repeated(125) + 'x' + ".jpg";
        const QByteArray source = picture({});
        room.save(name, source);
        QCOMPARE(room.outputs(), QStringList(name));
        QCOMPARE(room.output(name), bareJpeg(source));
        QCOMPARE(room.leftovers(), QStringList());
    }

    void brokenFiles_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("main"); // empty for none
        QTest::addColumn<QByteArray>("nested");
        QTest::addColumn<int>("state"); // of the nested image's record
        QTest::addColumn<QString>("status");
        const QByteArray healthyFile = picture({exifSegment(kT1)});
        const QByteArray bare = bareJpeg(healthyFile);
        const Damage whole(healthyFile);
        const QByteArray broken = Damage(kT1).put(at(SOF0) + 2, kNoPrecision);
        const QByteArray end = word(EOI);

        QTest::newRow("frame lost") << Damage(whole).zero(upTo(SOF0), 2).bytes() << QByteArray() << kT1 << 102
                                    << "Invalid File";
        QTest::newRow("Huffman tables lost") << Damage(whole)
                                                    .zero(upTo(DHT, 0), 2)
                                                    .zero(upTo(DHT, 1), 2)
                                                    .zero(upTo(DHT, 2), 2)
                                                    .zero(upTo(DHT, 3), 2)
                                                    .bytes()
                                             << QByteArray() << kT1 << 102 << "Invalid File";
        QTest::newRow("main refused by the decoder")
            << Damage(whole).put(at(SOF0) + 2, kNoPrecision).bytes() << QByteArray() << kT1 << 101 << kRefused;
        QTest::newRow("nested refused") << picture({exifSegment(broken)}) << bare << QByteArray() << 101 << kRefused;
        QTest::newRow("both refused") << Damage(picture({exifSegment(broken)})).put(at(SOF0) + 2, kNoPrecision).bytes()
                                      << QByteArray() << QByteArray() << 101 << kRefused;
        QTest::newRow("end lost") << whole.bytes().chopped(2) << bare.chopped(4) + end << kT1 << 0 << "";
        QTest::newRow("half of the scan lost")
            << Damage(whole).cutAt(inScan(300)).bytes() << bareJpeg(Damage(whole).cutAt(inScan(298)).bytes() + end)
            << kT1 << 0 << "";
        QTest::newRow("bytes behind the end") << healthyFile + filler(77) << bare + filler(75) + end << kT1 << 0 << "";
    }
    void brokenFiles()
    {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, main);
        QFETCH(QByteArray, nested);
        QFETCH(int, state);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.save("a.jpg", source);
        Records records;
        QStringList files;
        if (!nested.isEmpty()) {
            files << kFirst;
            QVERIFY(room.outputs().contains(kFirst));
            QCOMPARE(room.output(kFirst), nestedOutput(nested));
        }
        if (!main.isEmpty()) {
            files << "a.jpg";
            records.push_back(mainRecord(2));
            QCOMPARE(room.output("a.jpg"), main);
        }
        if (!nested.isEmpty()) records.push_back(first(2, 2, state));
        QCOMPARE(room.outputs(), files);
        QCOMPARE(describe(room.records()), describe(records));
        QCOMPARE(int(pApp->nResultCounter), 2);
        QCOMPARE(int(pApp->nInvalidCount), state == 102 ? 1 : 0);
        QTEST(pApp->strStatusText, "status");
        QCOMPARE(room.leftovers(), QStringList());
    }

    void invalidWithoutAName()
    {
        SaveRoom room;
        room.walk(room.addSource("a.jpg", filler(100)));
        pApp->strFileName.clear();
        SaveFile().Save();
        QCOMPARE(pApp->nInvalidCount, 0u);
        QCOMPARE(int(pApp->nResultCounter), 1);
        QCOMPARE(room.outputs(), QStringList());
    }

    // The fault list is not emptied in front of the first nested image: it gets the main scan's zeros too, and those behind
    // its end stretch it, so that what pads the copy is no left-over of the copy's buffer.
    void faultsOfTheMainImage_data()
    {
        QTest::addColumn<QByteArray>("nested");
        QTest::addColumn<QVector<int>>("places"); // in the main scan's data
        QTest::newRow("within") << kT1 << QVector<int>{20, 41};
        QTest::newRow("behind, not as far as the copy") << kT2 << QVector<int>{30, 1700};
        QTest::newRow("farther than the copy") << kT2 << QVector<int>{3600};
        QTest::newRow("farther, and the copy is short") << kT1 << QVector<int>{3000};
    }
    void faultsOfTheMainImage()
    {
        QFETCH(QByteArray, nested);
        QFETCH(QVector<int>, places);
        const ScopedTables none(noTables());
        SaveRoom room;
        JpegOptions options;
        options.segments = {exifSegment(nested)};
        const QByteArray healthyFile = makeJpeg(drawPicture(200, 200), options);
        Damage source(healthyFile);
        Damage main(bareJpeg(healthyFile));
        QByteArray scratch = bareJpeg(nested);
        const int header = scratch.indexOf(word(SOS));
        for (const int place : places) {
            source.put(inScan(place), bytes({0xFF, 0x4A}));
            main.put(inScan(place), bytes({0x00, 0x4A}));
            const int behind = header + sos().size() + place;
            if (behind >= scratch.size()) scratch.append(behind + 1 - scratch.size(), '\0');
            scratch[behind] = '\0';
        }
        room.save("a.jpg", source);
        QCOMPARE(room.output("a.jpg"), main.bytes());
        QCOMPARE(room.output(kFirst), blockwise(scratch, nested.size()));
    }

    // Images left in APP13 keep the first name and the grown chain, unless another kind holds a single one.
    void firstNameTwice_data()
    {
        QTest::addColumn<int>("app13");
        QTest::addColumn<int>("app2");
        QTest::addColumn<QString>("last");
        QTest::newRow("two left") << 6 << 0 << "a_[T1].jpg";
        QTest::newRow("one left") << 4 << 0 << "a_[T2].jpg";
        QTest::newRow("two left, and a single one elsewhere") << 6 << 2 << "a_[T2].jpg";
        QTest::newRow("two left, and several elsewhere") << 6 << 4 << "a_[T1].jpg";
    }
    void firstNameTwice()
    {
        QFETCH(int, app13);
        QFETCH(int, app2);
        QFETCH(QString, last);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.walk(
            room.addSource("a.jpg", picture({exifSegment(kT1), embeddingSegment(APP13, kT1), segment(APP2, 40)})));
        for (tagMainList *node = pApp->pMainListHead; node; node = node->pNext) {
            if (node->wMarker == APP13) node->nApp13Nested = quint16(app13);
            if (node->wMarker == APP2) node->nApp2Nested = quint16(app2);
        }
        SaveFile().Save();
        QCOMPARE(pApp->lstResultNames, QStringList({"a.jpg", "a_[T1].jpg", last}));
    }

    void stopsAndSkips_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<int>("phase");
        QTest::addColumn<bool>("scratchStays");
        QTest::newRow("stop") << 0 << 0 << true;
        QTest::newRow("skip this file") << 1 << 2 << false;
        QTest::newRow("skip all files") << 2 << 2 << false;
        QTest::newRow("save cancelled") << 3 << 0 << false;
    }
    void stopsAndSkips()
    {
        QFETCH(int, which);
        QFETCH(bool, scratchStays);
        SaveRoom room;
        room.walk(room.addSource("a.jpg", picture({exifSegment(kT1)})));
        QDir().mkpath(room.root() + "/Vorlane");
        QFile scratch(room.root() + "/Vorlane/earlier");
        QVERIFY(scratch.open(QIODevice::WriteOnly));
        scratch.close();
        bool *const flags[] = {&pApp->bStopRepair, &pApp->bSkipCurrentFile, &pApp->bSkipAllFiles,
                               &pApp->bSaveCancelled};
        *flags[which] = true;
        SaveFile().Save();
        QCOMPARE(room.outputs(), QStringList());
        QCOMPARE(describe(room.records()), QString());
        QCOMPARE(int(pApp->nResultCounter), 0);
        QTEST(int(pApp->nSavePhase), "phase");
        QCOMPARE(pApp->bSaveDone, true);
        QCOMPARE(scratch.exists(), scratchStays);
        QCOMPARE(pApp->strRepairedPath, which == 0 ? QString() : pApp->strTempDir + "a.jpg");
        *flags[which] = false;
    }

    void mainImageOnly()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        pApp->nRepairOutputMode = 1;
        room.save("a.jpg", picture({exifSegment(kT1)}));
        QCOMPARE(describe(room.records()), describe({mainRecord(1)}));
        QCOMPARE(pApp->strThumb1Name, QString());
    }

    void thumbnailsOnly_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QVector<QByteArray>>("nested");
        QTest::addColumn<QString>("status");
        QTest::addColumn<int>("absent");
        using Images = QVector<QByteArray>;
        const QByteArray broken = Damage(kT1).put(at(SOF0) + 2, kNoPrecision);
        QTest::newRow("none") << picture({}) << Images{} << "No Thumbnail found" << 1;
        QTest::newRow("one") << picture({exifSegment(kT1)}) << Images{kT1} << "" << 0;
        QTest::newRow("two") << picture({exifSegment(kT1 + kT2)}) << Images{kT1, kT2} << "" << 0;
        QTest::newRow("refused") << picture({exifSegment(broken)}) << Images{}
                                 << "Marker missing. Failed to extract thumbnail" << 0;
    }
    void thumbnailsOnly()
    {
        QFETCH(QByteArray, source);
        QFETCH(QVector<QByteArray>, nested);
        QFETCH(int, absent);
        const ScopedTables none(noTables());
        SaveRoom room;
        pApp->bThumbOnlyMode = true;
        room.save("a.jpg", source);
        Records records;
        QStringList names;
        for (int i = 0; i < nested.size(); ++i) {
            names << QStringLiteral("a_[T%1].jpg").arg(i + 1);
            records.push_back({names[i], names[i], i + 1, i + 1, int(nested.size()), 0, false});
        }
        QCOMPARE(room.outputs(), names);
        for (int i = 0; i < nested.size(); ++i) QCOMPARE(room.output(names[i]), nestedOutput(nested[i]));
        QCOMPARE(describe(room.records()), describe(records));
        QTEST(pApp->strStatusText, "status");
        QCOMPARE(int(pApp->nThumbAbsentCount), absent);
        QCOMPARE(int(pApp->nResultCounter), std::max(1, int(nested.size())));
        QCOMPARE(room.leftovers(), QStringList());
    }

    // A writer that is asked twice starts anew.
    void savedTwice()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        room.walk(room.addSource("a.jpg", picture({})));
        SaveFile writer;
        writer.Save();
        writer.Save();
        QCOMPARE(describe(room.records()), describe({mainRecord(1), {"a.jpg", "a.jpg", 2, 1, 1, 0, false}}));
    }

    void recordsNeedAFile()
    {
        SaveRoom room;
        const QString path = room.addSource("a.jpg", "x");
        SaveFile writer;
        RepairedFileList *head = nullptr;
        RepairedFileList *tail = nullptr;
        const auto add = [&](const QString &where, const char *name) {
            writer.AddRepairedFileList(&head, &tail, where, name, 7, 2, 3, 101, true);
        };
        add(path + "x", "absent");
        QVERIFY(!head && !tail);
        add(path, "one");
        QVERIFY(head && head == tail);
        add(path + "x", "absent");
        add(path, "two");
        QVERIFY(head->pNextResult == tail && !tail->pNextResult);
        std::swap(head, tail); // a tail with something behind it takes nothing
        QCOMPARE(pApp->lstResultNames, QStringList({"one", "two"}));
        QCOMPARE(tail->strName, QString("one"));
        QCOMPARE(head->nResultNumber, 7u);
        QCOMPARE(int(head->wOutputsDone) * 100 + head->wOutputIndex * 10 + head->bNested, 231);
        add(path, "refused");
        QCOMPARE(pApp->lstResultNames, QStringList({"one", "two"}));
        delete head;
        delete tail;
    }
};

QTEST_GUILESS_MAIN(TestSaveOutputs)
#include "tst_save_outputs.moc"
