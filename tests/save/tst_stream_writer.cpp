// Files that are a stream of images: each image gives an output of its own, however many there are.
#include "app/KesmiraApp.h"
#include "engine/FileWindow.h"
#include "engine/Guards.h"
#include "engine/SegmentList.h"
#include "engine/jpg_repair.h"
#include "save/SaveFile.h"
#include "save/SaveRoom.h"
#include "support/Damage.h"
#include "support/Grammar.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"
#include "tables/TableLibrary.h"
#include "tables/TableTexts.h"

#include <QtTest>

using namespace words;
using Images = QVector<QByteArray>;

namespace {

QByteArray image(int variant, const std::vector<QByteArray> &segments = {})
{
    JpegOptions options;
    options.segments = segments;
    return makeJpeg(drawPicture(40, 24, variant), options);
}

const QByteArray kOne = image(1);
const QByteArray kTwo = image(2, {commentSegment(junk(1500))});
const QByteArray kThree = image(3, {commentSegment(junk(300))});

// Images a few bytes apart: right behind an end a start goes unnoticed.
QByteArray stream(const Images &images, const QByteArray &front = {})
{
    QByteArray all = front;
    for (const QByteArray &each : images) all += each + filler(5);
    return all.chopped(5);
}

QByteArray output(const QByteArray &image)
{
    return blockwise(bareJpeg(image), image.size());
}

QString outputName(int number)
{
    return QStringLiteral("Thumbnail Repaired/a_[T%1].jpg").arg(number);
}

QByteArray tableOf(const QByteArray &jpeg, int index)
{
    return jpeg.mid(int(Damage(jpeg).offsetOf(at(DQT, index))) + 3, 64);
}

// A picture whose tables lost all behind their first 25 values.
QByteArray brokenTables(const QByteArray &jpeg)
{
    return Damage(jpeg).fill(at(DQT, 0) + 3 + 25, 39, 99).fill(at(DQT, 1) + 3 + 25, 39, 99);
}

} // namespace

class TestStreamWriter : public QObject
{
    Q_OBJECT

private slots:
    void outputs_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<Images>("images"); // by number
        const QByteArray front = filler(9);
        const QByteArray nested = image(4);
        const QByteArray outer = image(5, {exifSegment(nested)});
        const QByteArray other = image(6, {embeddingSegment(APP2, nested)});
        QTest::newRow("bytes in front") << stream({kOne, kTwo, kThree}, front) << Images{kOne, kTwo, kThree};
        // The first start is no image's: an offset of 0 stands for none. The second image then serves its turn as well.
        QTest::newRow("nothing in front") << stream({kOne, kTwo, kThree}) << Images{kTwo, kTwo, kThree};
        QTest::newRow("two, and bytes in front") << stream({kTwo, kOne}, front) << Images{kTwo, kOne};
        QTest::newRow("images with thumbnails")
            << stream({outer, other}, front) << Images{outer, nested, other, nested};
        QTest::newRow("more than four") << stream({kOne, kTwo, kThree, kTwo, kOne, kThree}, front)
                                        << Images{kOne, kTwo, kThree, kTwo, kOne, kThree};
        QTest::newRow("one without a frame")
            << stream({kOne, Damage(kTwo).zero(upTo(SOF0), 2), kThree}, front) << Images{kOne, {}, kThree};
        QTest::newRow("a start that nothing ends")
            << stream({kOne, kTwo, kThree}, front) + filler(8) + kTwo.left(100) << Images{kOne, kTwo, kThree};
    }
    void outputs()
    {
        QFETCH(QByteArray, source);
        QFETCH(Images, images);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.save("a.jpg", source);
        QStringList files;
        std::vector<Record> records;
        bool failed = false;
        for (int i = 0; i < images.size(); ++i) {
            failed |= images[i].isEmpty();
            if (images[i].isEmpty()) continue;
            files << outputName(i + 1);
            // The stream's own header check has failed before, and is counted.
            records.push_back(
                {outputName(i + 1).section('/', 1), outputName(i + 1), i + 2, i + 2, i + 1, failed ? 101 : 102, true});
        }
        QCOMPARE(room.outputs(), files);
        for (int i = 0; i < images.size(); ++i)
            if (!images[i].isEmpty()) QCOMPARE(room.output(outputName(i + 1)), output(images[i]));
        QCOMPARE(describe(room.records()), describe(records));
        QCOMPARE(int(pApp->nResultCounter), 1 + images.size());
        QCOMPARE(pApp->nInvalidCount, 1u);
        QCOMPARE(pApp->nNestedTotalA, quint32(images.size()));
        QCOMPARE(pApp->bUseOuterFileSize, false);
        QCOMPARE(pApp->nSavePhase, 0u);
        QCOMPARE(room.leftovers(), QStringList());
    }

    void longSuffix()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        room.save("a.JPEG", stream({kOne, kTwo}, filler(3)));
        QCOMPARE(pApp->lstResultNames, QStringList({"a_[T1].jpeg", "a_[T2].jpeg"}));
    }

    // Codes of one image are overwritten in those behind it, too; where such an image is shorter, its file grows.
    void faultsStay()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        const QByteArray larger = makeJpeg(drawPicture(120, 120));
        JpegOptions options;
        options.segments = {commentSegment(junk(1500))};
        const QByteArray shorter = makeJpeg(drawPicture(16, 16), options);
        const int last = larger.size() - larger.indexOf(word(SOS)) - int(sos().size()) - 40;
        const QByteArray damaged =
            Damage(larger).put(inScan(8), bytes({0xFF, 0x4A})).put(inScan(last), bytes({0xFF, 0x01}));
        room.save("a.jpg", stream({damaged, shorter}, filler(9)));

        QByteArray scratch = bareJpeg(shorter);
        const int data = scratch.indexOf(word(SOS)) + sos().size();
        scratch[data + 8] = '\0';
        QVERIFY(data + last > scratch.size());
        scratch.append(data + last + 1 - scratch.size(), '\0');
        QCOMPARE(room.output(outputName(1)),
                 output(Damage(larger).put(inScan(8), bytes({0, 0x4A})).put(inScan(last), bytes({0, 0x01}))));
        QCOMPARE(room.output(outputName(2)), blockwise(scratch, shorter.size()));
    }

    // Single tables are counted on from image to image, and only the first three of the stream are looked up.
    void tablesAreCountedOn()
    {
        using namespace tabletest;
        const QByteArray a = tableOf(kOne, 0), b = tableOf(kOne, 1);
        QCOMPARE(a[0], '\5');
        const TableLibrary tables = library({}, quantizationRecord("standard_3_4_5", 1, tabletest::dqt({a, b})));
        const ScopedTables own(tables);
        SaveRoom room;
        room.save("a.jpg", stream({brokenTables(kOne), brokenTables(kTwo)}, filler(9)));
        QCOMPARE(room.output(outputName(1)), output(kOne));
        QCOMPARE(room.output(outputName(2)), output(brokenTables(kTwo)));
    }

    void mainStage_data()
    {
        QTest::addColumn<int>("copySize"); // of an earlier working copy
        QTest::newRow("no working copy so far") << 0;
        QTest::newRow("shorter than the image") << 300;
        QTest::newRow("longer than the image") << 5000;
    }
    // With segments on the stream's chain there is a main image. It gets the length of whatever was carved last.
    void mainStage()
    {
        QFETCH(int, copySize);
        const ScopedTables none(noTables());
        SaveRoom room;
        room.walk(room.addSource("a.jpg", stream({kOne, kTwo, kThree})));
        {
            FileWindow file(pApp->strCurrentPath);
            pApp->pCurrentFile = &file;
            pApp->nFileSize = quint64(kOne.size());
            jpg_repair().TraverseTempThumbFileRaw({}, &file, 0);
            pApp->pCurrentFile = nullptr;
        }
        pApp->nTempCopySize = quint64(copySize);
        pApp->bThumbFound = false; // leaves the images out
        SaveFile().Save();
        QCOMPARE(room.outputs(), QStringList("a.jpg"));
        QCOMPARE(room.output("a.jpg"), blockwise(bareJpeg(kOne), copySize));
        QCOMPARE(describe(room.records()), describe({{"a.jpg", "a.jpg", 1, 1, 0, 1, true}}));
        QCOMPARE(pApp->nInvalidCount, 0u);
        QCOMPARE(room.leftovers(), QStringList());
    }

    void carving_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QByteArray>("carved");
        QTest::newRow("0") << 0 << kOne;
        QTest::newRow("1") << 1 << kTwo;
        QTest::newRow("2") << 2 << kThree;
        QTest::newRow("behind the last") << 3 << QByteArray();
    }
    // The image goes to the copy, its start to the raw chain with the place that it has in the stream.
    void carving()
    {
        QFETCH(int, index);
        QFETCH(QByteArray, carved);
        SaveRoom room;
        const QByteArray source = stream({kOne, kTwo, kThree}, filler(9));
        room.walk(room.addSource("a.jpg", source));
        SaveFile writer;
        pApp->bSaveCancelled = true; // counts the images and writes none
        writer.Save();
        pApp->nFileSize = 1; // as a working copy has left it
        QCOMPARE(room.written([&](FILE *out) { writer.ReadForSave_thumb_Raw(out, index); }), carved);
        QVERIFY(pApp->pMainListRawHead && !pApp->pMainListRawHead->pNext);
        const int start = source.indexOf(carved.isEmpty() ? kOne : carved);
        QCOMPARE(pApp->pMainListRawHead->nOffset, qint64(start) + 2);
        QCOMPARE(pApp->nFileSize, quint64(source.size()));
    }

    void stopsAndSkips_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<int>("phase");
        QTest::newRow("skip this file") << 0 << 2;
        QTest::newRow("skip all files") << 1 << 2;
        QTest::newRow("save cancelled") << 2 << 0;
    }
    void stopsAndSkips()
    {
        QFETCH(int, which);
        SaveRoom room;
        bool *const flags[] = {&pApp->bSkipCurrentFile, &pApp->bSkipAllFiles, &pApp->bSaveCancelled};
        *flags[which] = true;
        room.save("a.jpg", stream({kOne, kTwo, kThree}));
        QCOMPARE(room.outputs(), QStringList());
        QCOMPARE(int(pApp->nResultCounter), 0);
        QTEST(int(pApp->nSavePhase), "phase");
        QVERIFY(pApp->bSaveDone && pApp->bNestedOnlyFile);
    }

    void thumbnailsOnly()
    {
        const ScopedTables none(noTables());
        SaveRoom room;
        pApp->bThumbOnlyMode = true;
        room.save("a.jpg", stream({kOne, Damage(kThree).put(at(SOF0) + 2, bytes({99})), kTwo}, filler(9)));
        QCOMPARE(room.outputs(), QStringList({"a_[T1].jpg", "a_[T3].jpg"}));
        QCOMPARE(room.output("a_[T3].jpg"), output(kTwo));
        QCOMPARE(pApp->strStatusText, QString("Marker missing. Failed to extract thumbnail"));
        QCOMPARE(describe(room.records()),
                 describe({{"a_[T1].jpg", "a_[T1].jpg", 1, 1, 1, 1, true},
                           {"a_[T3].jpg", "a_[T3].jpg", 3, 3, 3, 104, true}}));
        QCOMPARE(int(pApp->nResultCounter), 3);
    }

    // What could cost the square of a file's size is cut off; nothing of a real stream is.
    void hostile_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<int>("least"); // images tried
        QTest::addColumn<int>("most");
        const QByteArray start = word(SOI) + declared(APP0, 4, "ab");
        const QByteArray tiny = start + word(EOI);
        const QByteArray tail = filler(5) + tiny + filler(5) + tiny;
        constexpr int kMost = int(guards::kStreamCarveFactor) + 2;
        QTest::newRow("a few starts with one end") << filler(3) + start.repeated(9) + word(EOI) + tail << 11 << 11;
        QTest::newRow("many starts with one end")
            << filler(3) + start.repeated(3000) + word(EOI) + tail << 16 << 2 * kMost;
        QTest::newRow("one long image and many open starts")
            << start + filler(100000) + word(EOI) + tail + start.repeated(4000) << 3 << kMost + 3;
        QTest::newRow("images one behind the other") << tiny.repeated(1500) << 1500 << 1500;
        // Each a scan with one illegal code, which all later images get as well.
        const QByteArray head = word(SOI) + declared(DQT, 2) + declared(SOF0, 2) + declared(DHT, 2) + declared(SOS, 2);
        QTest::newRow("images with illegal codes")
            << (head + "\xFF\x01" + filler(3) + word(EOI) + filler(3)).repeated(1500) << 1500 << 1500;
    }
    void hostile()
    {
        QFETCH(QByteArray, source);
        QFETCH(int, least);
        QFETCH(int, most);
        SaveRoom room;
        room.save("a.jpg", source);
        const int tried = pApp->nResultCounter - 1;
        QVERIFY2(tried >= least && tried <= most, qPrintable(QString::number(tried)));
        QCOMPARE(room.outputs(), QStringList());
        QCOMPARE(room.leftovers(), QStringList());
    }
};

QTEST_GUILESS_MAIN(TestStreamWriter)
#include "tst_stream_writer.moc"
