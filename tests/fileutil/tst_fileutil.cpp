// The preview program: its command line, its panel, and real pictures that must come out as they went in.

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "engine/OutputRows.h"
#include "engine/heic/ReadingCopy.h"
#include "fileutil/DecodeProcess.h"
#include "fileutil/PictureExport.h"
#include "fileutil/PicturePanel.h"
#include "fileutil/PictureView.h"
#include "support/Files.h"
#include "support/HeicMaker.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"
#include "support/PlainTiles.h"
#include "support/RunFolder.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>

namespace {

const QString kCorpus = QStringLiteral(KESMIRA_CORPUS "/heic/");

struct Call
{
    int status = -1;
    QString out;
    QString err;

    explicit Call(const QStringList &arguments)
    {
        QProcess process;
        process.start(KESMIRA_FILEUTIL_PROGRAM, arguments);
        process.waitForFinished(-1);
        status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
        out = QString::fromUtf8(process.readAllStandardOutput());
        err = QString::fromUtf8(process.readAllStandardError());
    }
};

/// The contents of the index box gone, its name and size left.
QByteArray indexLost(QByteArray heic)
{
    const int at = heic.indexOf("iloc");
    const auto size = int(quint8(heic[at - 2]) << 8 | quint8(heic[at - 1]));
    return heic.replace(at + 4, size - 8, QByteArray(size - 8, 0));
}

/// All in front of the first tile gone.
QByteArray boxesLost(QByteArray heic)
{
    const auto first = int(plainFirstTile(heic));
    return heic.replace(0, first, QByteArray(first, 0));
}

} // namespace

class TestFileUtil : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void usage_data();
    void usage();
    void exportsTheReadingCopy();
    void exportNeverReplaces();
    void brokenFilesGiveAReason_data();
    void brokenFilesGiveAReason();
    void panelSaysWhy();
    void panelShowsAndZooms();
    void panelLeadsThroughTheFiles();
    void dialogsKeepTheirLook();
    void saveNeverTouchesTheShownFile();
    void realPictures_data();
    void realPictures();
    void realPicturesWithASample();

private:
    QScopedPointer<RunFolder> m_folder;
};

void TestFileUtil::init()
{
    m_folder.reset(); // its root goes before the next one comes
    m_folder.reset(new RunFolder);
    QVERIFY(prepareWorkingRoot().isEmpty() && beginRun());
}

void TestFileUtil::usage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::newRow("none") << QStringList() << 2;
    QTest::newRow("two to export") << QStringList{"--export", "a.png", "a.heic", "b.heic"} << 2;
    QTest::newRow("behind the last") << QStringList{"--at", "3", "a.heic", "b.jpg"} << 2;
    QTest::newRow("unknown option") << QStringList{"--what", "a.heic"} << 2;
    QTest::newRow("unknown suffix") << QStringList{"--export", "out.gif", "a.heic"} << 2;
    QTest::newRow("help") << QStringList{"--help"} << 0;
    QTest::newRow("version") << QStringList{"--version"} << 0;
}

void TestFileUtil::usage()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    const Call call(arguments);
    QCOMPARE(call.status, status);
    QCOMPARE(call.err.count('\n'), status ? 1 : 0);
    QCOMPARE(call.out.isEmpty(), status != 0);
}

void TestFileUtil::exportsTheReadingCopy()
{
    const MadeHeic made = makeHeic();
    const QByteArray rewritten = expectedRewrite(made, made);
    const QString path = m_folder->source("it's a \"name\" $(x) .heic", rewritten);
    const QString beside = m_folder->place("beside.heic");
    QCOMPARE(writeReadingCopy(path, beside), QString());
    const QString target = m_folder->place("- out.heic");
    const Call call({"--export", target, "--", path});
    QCOMPARE(call.status, 0);
    QCOMPARE(call.out + call.err, QString());
    QVERIFY(contents(target) == contents(beside));
    QVERIFY(contents(target) != rewritten);
    QVERIFY(contents(path) == rewritten);
    // A file that was never rewritten is readable as it is.
    const QString plain = m_folder->source("plain.heic", made.bytes);
    QCOMPARE(Call({"--export", m_folder->place("plain.heic"), plain}).status, 0);
    QVERIFY(contents(m_folder->place("plain.heic")) == made.bytes);
}

void TestFileUtil::exportNeverReplaces()
{
    const MadeHeic made = makeHeic();
    const QString path = m_folder->source("a.heic", expectedRewrite(made, made));
    const QString target = m_folder->source("mine.heic", "mine");
    for (const QString &out : {target, path, m_folder->place("no/such/folder.heic")}) {
        const QByteArray before = contents(out);
        const Call call({"--export", out, path});
        QCOMPARE(call.status, 3);
        QCOMPARE(call.err.count('\n'), 1);
        QVERIFY(contents(out) == before);
    }
}

void TestFileUtil::brokenFilesGiveAReason_data()
{
    QTest::addColumn<QByteArray>("file");
    const MadeHeic made = makeHeic();
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no picture at all");
    QTest::newRow("tiles alone") << made.stream;
    QTest::newRow("tiles of filler") << expectedRewrite(made, made); // a sound file around nothing that decodes
    QTest::newRow("cut") << expectedRewrite(made, made).left(900);
}

void TestFileUtil::brokenFilesGiveAReason()
{
    QFETCH(QByteArray, file);
    const QString path = m_folder->source("a.heic", file);
    const Call call({"--export", m_folder->place("a.png"), path});
    QCOMPARE(call.status, 1);
    QVERIFY2(call.err.startsWith("FileUtil: '" + path + "': ") && call.err.count('\n') == 1, qPrintable(call.err));
    QVERIFY(!QFileInfo::exists(m_folder->place("a.png")));
    const DecodedPicture decoded = decodePicture(path);
    QVERIFY(decoded.image.isNull() && !decoded.problem.isEmpty());
}

void TestFileUtil::panelSaysWhy()
{
    PicturePanel panel({m_folder->source("a.heic", "no picture")});
    panel.show();
    QTRY_VERIFY(panel.message().startsWith("This file can't be shown: "));
    QVERIFY(panel.view()->picture().isNull());
    for (const QPushButton *button : panel.findChildren<QPushButton *>()) QVERIFY(!button->isEnabled());
    QTest::keyClick(&panel, Qt::Key_Plus); // nothing to zoom
    QTest::keyClick(&panel, Qt::Key_Escape);
    QVERIFY(!panel.isVisible());
}

void TestFileUtil::panelShowsAndZooms()
{
    const QString path = kCorpus + "iPhone-7_3-frontcam.heic";
    if (!QFileInfo::exists(path)) QSKIP("no real photographs here");
    PicturePanel panel({path});
    panel.show();
    QTRY_VERIFY_WITH_TIMEOUT(!panel.view()->picture().isNull(), 60000);
    QCOMPARE(panel.view()->picture().size(), decodePicture(path).image.size());
    const double fitting = panel.view()->scale();
    QVERIFY(fitting < 1.0); // it is larger than any screen of the tests
    QTest::keyClick(&panel, Qt::Key_Plus);
    QVERIFY(qFuzzyCompare(panel.view()->scale(), fitting * 1.25));
    QTest::keyClick(&panel, Qt::Key_Minus);
    QTest::keyClick(&panel, Qt::Key_Minus);
    QVERIFY(qFuzzyCompare(panel.view()->scale(), fitting / 1.25));
    QTest::keyClick(&panel, Qt::Key_1);
    QCOMPARE(panel.view()->scale(), 1.0);
    panel.resize(500, 400); // what was zoomed stays
    QCOMPARE(panel.view()->scale(), 1.0);
    // The wheel keeps what is under the pointer in its place.
    QWidget *port = panel.view()->viewport();
    const QPoint place(port->width() / 3, port->height() / 2);
    const QPointF there = panel.view()->mapToScene(place);
    for (int i = 0; i < 4; ++i) {
        QWheelEvent turn(place, port->mapToGlobal(place), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(port, &turn);
    }
    QVERIFY(panel.view()->scale() > 1.0);
    QVERIFY((panel.view()->mapFromScene(there) - place).manhattanLength() <= 4); // rounding
    QTest::keyClick(&panel, Qt::Key_0);
    QVERIFY(panel.view()->scale() < fitting);
    QTest::keyClick(&panel, Qt::Key_Space);
    QVERIFY(!panel.isVisible());
}

void TestFileUtil::panelLeadsThroughTheFiles()
{
    JpegOptions camera;
    camera.segments = {exifSegment(makeJpeg(drawPicture(16, 12), {60}), 6)}; // held upright
    const QByteArray whole = makeJpeg(drawPicture(200, 120), {});
    const QString beside = m_folder->source("Thumbnail Repaired/b_[T1].jpg", makeJpeg(drawPicture(32, 24), {}));
    const QStringList files{m_folder->source("a.jpg", makeJpeg(drawPicture(300, 200), camera)),
                            m_folder->source("broken.jpg", "no picture"), m_folder->source("b_salvaged.jpg", whole),
                            beside};
    const QSize pictures[] = {{200, 300}, {}, {200, 120}, {32, 24}};
    const QSize witnesses[] = {{12, 16}, {0, 0}, {32, 24}, {0, 0}};
    PicturePanel panel(files, 2);
    panel.show();
    const auto *witness = panel.findChild<QLabel *>("thumbnail");
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_0, 2},      {Qt::Key_PageDown, 3}, {Qt::Key_PageDown, 3},
                                            {Qt::Key_Home, 0},   {Qt::Key_Right, 1},    {Qt::Key_PageDown, 2},
                                            {Qt::Key_PageUp, 1}, {Qt::Key_End, 3}};
    for (const auto &[key, at] : keys) {
        QTest::keyClick(&panel, key);
        QCOMPARE(panel.file(), files[at]);
        QVERIFY(panel.windowTitle().contains(QString("(%1 of 4)").arg(at + 1)));
        const QSize size = pictures[at];
        const QString shown = QString("%1 x %2 pixels").arg(size.width()).arg(size.height());
        QTRY_VERIFY(panel.message().startsWith(size.isEmpty() ? "This file can't be shown: " : shown));
        if (!size.isEmpty()) QCOMPARE(panel.view()->picture().size(), size);
        QCOMPARE(witness->pixmap(Qt::ReturnByValue).size() * int(witness->isVisible()), witnesses[at]);
    }
    QString problem;
    QCOMPARE(exportBytes(ExportKind::Jpeg, files[2], decodePicture(files[2]), problem), whole); // not encoded anew
    QVERIFY(QFile::remove(files[0])); // as it is when the page of results is left
    QTest::keyClick(&panel, Qt::Key_Home);
    QTRY_VERIFY(panel.message().startsWith("This picture isn't there any more."));
}

void TestFileUtil::dialogsKeepTheirLook()
{
    PicturePanel panel({m_folder->source("a.jpg", {})});
    QDialog dialog(&panel);
    const QLabel words("Look in:", &dialog);
    dialog.show();
    QCOMPARE(words.palette().color(QPalette::WindowText), QApplication::palette().color(QPalette::WindowText));
}

void TestFileUtil::saveNeverTouchesTheShownFile()
{
    const QString path = m_folder->source("a.heic", "shown");
    const QString link = m_folder->place("link.heic");
    QVERIFY(QFile::link(path, link));
    for (const QString &target : {path, link}) {
        QVERIFY(!replaceFile(target, "new", path).isEmpty());
        QCOMPARE(contents(path), QByteArray("shown"));
    }
    const QString other = m_folder->source("b.heic", "old");
    QCOMPARE(replaceFile(other, "new", path), QString());
    QCOMPARE(contents(other), QByteArray("new"));
}

void TestFileUtil::realPictures_data()
{
    QTest::addColumn<QString>("outcome");
    // What their own structure says: tiles, entry count, and whether the boxes stand in order.
    const std::pair<const char *, const char *> files[] = {
        {"ExifReader_test.heic", "picture"},
        {"iPhone-13-Pro_IMG-8564.HEIC", "picture"},
        {"iPhone-7_2-landscape.heic", "picture"},
        {"iPhone-7_IMG-2682.heic", "picture"},
        {"iPhone-7_iphone-7.heic", "picture"},
        {"iPhone-8-Plus_arrow.heic", "picture"},
        {"iPhone-XR_IMG-3578.heic", "picture"},
        {"iPhone-7_3-frontcam.heic", "picture"},
        {"iPhone-13-Pro_IMG-8565.HEIC", "tiles alone"},   // 0x35 entries
        {"iPhone-7_heic-24bit-exif.heic", "tiles alone"}, // 0x32
        {"iPhone-15-Pro_iphone-15-pro.heic", "boxes-lost"},
        {"iPhone-15-Pro_subsec-no-timezone.heic", "boxes-lost"},
        {"iPhone-11-Pro-Max_IMG-5195.HEIC", "tiles-unknown"},
        {"iPhone-15-Pro-Max_img-1914.heic", "tiles-unknown"},
        {"iPhone-11-Pro_IMG-2927.HEIC", "tiles-unknown"},
        {"php-heic-to-jpg_samsung-generated.heic", "tiles-unknown"},
    };
    for (const auto &[name, outcome] : files) QTest::newRow(name) << outcome;
}

void TestFileUtil::realPictures()
{
    QFETCH(QString, outcome);
    const QString path = kCorpus + QTest::currentDataTag();
    if (!QFileInfo::exists(path)) QSKIP("this photograph isn't here");
    const QByteArray healthy = contents(path);
    const FileOutcome repaired = repairOneFile(m_folder->source("lost.heic", indexLost(healthy)));
    if (outcome.contains('-')) {
        QCOMPARE(reasonWord(repaired.report.reason), outcome);
        QCOMPARE(makeRows(repaired).sourceStatus, QString(status::Invalid));
        return;
    }
    QCOMPARE(repaired.results, QStringList("lost.heic"));
    QCOMPARE(repaired.report.tilesAlone, outcome == "tiles alone");
    const DecodedPicture result = decodePicture(outputPath("lost.heic"));
    QCOMPARE(result.image.isNull(), repaired.report.tilesAlone);
    if (!repaired.report.tilesAlone) QVERIFY(result.image == decodePicture(path).image);
}

void TestFileUtil::realPicturesWithASample()
{
    const QString path = kCorpus + "iPhone-7_3-frontcam.heic";
    if (!QFileInfo::exists(path)) QSKIP("no real photographs here");
    const FileOutcome repaired = repairOneFileWithSample(path, m_folder->source("a.HEIC", boxesLost(contents(path))));
    QCOMPARE(repaired.results, QStringList("a.HEIC"));
    // By the program itself, as a picture and as a file.
    const QString picture = m_folder->place("a.png");
    QCOMPARE(Call({"--export", picture, outputPath("a.HEIC")}).status, 0);
    const QImage healthy = decodePicture(path).image;
    QVERIFY(QImage(picture).convertToFormat(healthy.format()) == healthy);
    const QString readable = m_folder->place("a.heic");
    QCOMPARE(Call({"--export", readable, outputPath("a.HEIC")}).status, 0);
    QVERIFY(decodePicture(readable).image == healthy);
}

QTEST_MAIN(TestFileUtil)
#include "tst_fileutil.moc"
