// The one reader of files under analysis, held against a plain array at every block size.

#include "app/StopFlag.h"
#include "engine/FileWindow.h"
#include "support/ByteSource.h"
#include "support/Grammar.h"
#include "support/RunFolder.h"

#include <QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Ranges = std::vector<RefusingSource::Range>;

const int kBlockSizes[] = {1, 2, 3, 16, 4096, 5000, 256 * 1024};
constexpr quint64 kTop = ~quint64(0);
constexpr int kPage = 4096;

/// What a reader must see: whole pages of zeros where a byte of them is refused.
QByteArray asSeen(const QByteArray &bytes, const Ranges &bad)
{
    QByteArray seen = bytes;
    for (const auto &[begin, end] : bad) {
        const int first = int(begin) / kPage * kPage;
        const int last = (int(end) + kPage - 1) / kPage * kPage;
        for (int i = first; i < last && i < seen.size(); ++i) seen[i] = 0;
    }
    return seen;
}

/// The obvious answers.
struct Plain
{
    QByteArray bytes;

    quint8 byteAt(quint64 offset) const { return offset < quint64(bytes.size()) ? quint8(bytes[int(offset)]) : 0; }
    quint16 wordAt(quint64 offset) const
    {
        return quint16(byteAt(offset) * 256 + (offset == kTop ? 0 : byteAt(offset + 1)));
    }
    QByteArray read(quint64 offset, int count) const
    {
        return (offset < quint64(bytes.size()) ? bytes.mid(int(offset), count) : QByteArray())
            .leftJustified(count, '\0');
    }
    quint64 nextFF(quint64 from, quint64 end) const
    {
        for (quint64 at = from; at < end && at < quint64(bytes.size()); ++at)
            if (byteAt(at) == 0xFF) return at;
        return end;
    }
    quint64 previousFF(quint64 from, quint64 begin) const
    {
        for (quint64 behind = std::min(from, quint64(bytes.size())) + 1; behind > begin; --behind)
            if (byteAt(behind - 1) == 0xFF) return behind - 1;
        return begin - 1;
    }
};

/// Pseudo-random bytes in which every `every`-th one or so is an FF.
QByteArray sprinkled(int count, int every)
{
    QByteArray bytes = junk(count, quint32(every));
    for (int at = every / 2; at < count; at += 1 + (at * 7 + every) % (2 * every)) bytes[at] = char(0xFF);
    return bytes;
}

} // namespace

Q_DECLARE_METATYPE(Ranges)

class TestFileWindow : public QObject
{
    Q_OBJECT

private slots:
    void equalsPlainArray_data();
    void equalsPlainArray();
    void farOffsets();
    void readsEachBlockOnce_data();
    void readsEachBlockOnce();
    void stopEndsSearches();
    void shrinkingFile();
    void opensFilesOnly_data();
    void opensFilesOnly();
};

void TestFileWindow::equalsPlainArray_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<Ranges>("bad");
    struct Case
    {
        const char *name;
        QByteArray file;
        Ranges bad;
    };
    const QByteArray three = sprinkled(2 * kPage + 700, 40);
    QByteArray edges = sprinkled(2 * kPage + 1, 90);
    for (int at : {0, kPage - 1, kPage, 2 * kPage - 1, 2 * kPage}) edges[at] = char(0xFF);
    const Case cases[] = {
        {"empty", {}, {}},
        {"one byte", bytes({0x5A}), {}},
        {"one FF", bytes({0xFF}), {}},
        {"two bytes", bytes({0xFF, 0xD8}), {}},
        {"three pages", three, {}},
        {"FF on both sides of each edge", edges, {}},
        {"no FF", filler(kPage + 50), {}},
        {"FF alone", QByteArray(700, char(0xFF)), {}},
        {"two pages exactly", sprinkled(2 * kPage, 300), {}},
        {"refused: a byte at the start", three, {{0, 1}}},
        {"refused: a byte in the middle", three, {{6000, 6001}}},
        {"refused: on both sides of an edge", three, {{kPage - 1, kPage + 1}}},
        {"refused: the last byte", three, {{quint64(three.size() - 1), quint64(three.size())}}},
        {"refused: a page and no more", three, {{kPage, 2 * kPage}}},
        {"refused: first and last page", three, {{100, 120}, {2 * kPage + 9, 2 * kPage + 10}}},
        {"refused: all", three, {{0, quint64(three.size())}}},
        {"refused: the only byte", bytes({0xFF}), {{0, 1}}},
    };
    for (const Case &one : cases) QTest::newRow(one.name) << one.file << one.bad;
}

void TestFileWindow::equalsPlainArray()
{
    QFETCH(QByteArray, file);
    QFETCH(Ranges, bad);
    const Plain plain{asSeen(file, bad)};
    const auto size = quint64(file.size());
    for (const int block : kBlockSizes) {
        RefusingSource source(file, bad);
        FileWindow window(source, block);
        QVERIFY(window.isOpen());
        QCOMPARE(window.size(), size);

        for (quint64 at = 0; at < size + 3; ++at) {
            if (window.byteAt(at) != plain.byteAt(at) || window.wordAt(at) != plain.wordAt(at))
                QFAIL(qPrintable(QString("block %1, at %2 going up").arg(block).arg(at)));
        }
        for (quint64 at = size + 3; at-- > 0;)
            if (window.wordAt(at) != plain.wordAt(at))
                QFAIL(qPrintable(QString("block %1, at %2 going down").arg(block).arg(at)));
        quint32 dice = 1;
        for (int i = 0; i < 400; ++i) { // here and there, with an eye on the page edges
            dice = dice * 1664525 + 1013904223;
            const quint64 at =
                i % 3 == 0 ? quint64(dice >> 8) % 4 * kPage + (dice >> 20) % 5 - 2 : (dice >> 8) % (size + 9);
            const int count = i % 50 == 0 ? int(dice >> 18) % 9000 : int(dice >> 24) % 90;
            QByteArray got(count, '?');
            window.read(at, got.data(), count);
            QVERIFY2(got == plain.read(at, count), qPrintable(QString("%1 bytes from %2").arg(count).arg(at)));
            QCOMPARE(window.wordAt(at), plain.wordAt(at));
        }
        // A search from each place through pages without FF would take the square of their size.
        const quint64 step = !file.contains(char(0xFF)) || !bad.empty() ? 431 : block < 4096 ? 29 : 1;
        for (quint64 at = 0; at < size + 2; at += step) {
            QCOMPARE(window.nextFF(at, size), plain.nextFF(at, size));
            QCOMPARE(window.nextFF(at, at + 5), plain.nextFF(at, at + 5));
        }
        for (quint64 from = 0; from < size + 3; from += step) {
            const quint64 at = size + 2 - from;
            QCOMPARE(window.previousFF(at, 0), plain.previousFF(at, 0));
            QCOMPARE(window.previousFF(at, 2), plain.previousFF(at, 2));
            QCOMPARE(window.previousFF(at, at), plain.previousFF(at, at));
        }
        QCOMPARE(source.refusals() > 0, !bad.empty());
    }
}

void TestFileWindow::farOffsets()
{
    for (const QByteArray &file : {QByteArray(), bytes({0xFF}), bytes({0x11, 0xFF, 0x22})}) {
        ByteSource source(file);
        FileWindow window(source, 2);
        for (quint64 at : {kTop, kTop - 1, kTop / 2, kTop / 2 + 1, quint64(1) << 32}) {
            QCOMPARE(window.byteAt(at), quint8(0));
            QCOMPARE(window.wordAt(at), quint16(0)); // not the file's first byte behind the last offset there is
            QByteArray got(5, '?');
            window.read(at, got.data(), got.size());
            QCOMPARE(got, QByteArray(5, '\0'));
            QCOMPARE(window.nextFF(at, kTop), kTop);
            QCOMPARE(window.previousFF(at, 0), Plain{file}.previousFF(quint64(file.size()), 0));
            QCOMPARE(window.previousFF(at, at), at - 1);
        }
        QCOMPARE(window.nextFF(2, 0), quint64(0));
        QByteArray none("?");
        window.read(0, none.data(), 0);
        QCOMPARE(none, QByteArray("?"));
    }
}

void TestFileWindow::readsEachBlockOnce_data()
{
    QTest::addColumn<bool>("backwards");
    QTest::newRow("forwards") << false;
    QTest::newRow("backwards") << true;
}

void TestFileWindow::readsEachBlockOnce()
{
    QFETCH(bool, backwards);
    // Words across each edge are asked for; loading two blocks in turn for them would read all of the file many times.
    const QByteArray file(3000000, char(0xFF));
    ByteSource source(file);
    FileWindow window(source, 64 * 1024);
    quint64 words = 0;
    if (backwards)
        for (quint64 at = window.previousFF(window.size(), 0); at != kTop && window.wordAt(at) >= 0xFF00; ++words)
            at = at == 0 ? kTop : window.previousFF(at - 1, 0);
    else
        for (quint64 at = 0; at < window.size() && window.wordAt(at) >= 0xFF00; ++words)
            at = window.nextFF(at + 1, window.size());
    QCOMPARE(words, quint64(file.size()));
    QVERIFY2(source.bytesRead() < file.size() * 9 / 8, qPrintable(QString::number(source.bytesRead())));
}

void TestFileWindow::stopEndsSearches()
{
    ByteSource source(QByteArray(100, 'x') + bytes({0xFF}) + QByteArray(100, 'x'));
    FileWindow forwards(source, 16);
    FileWindow back(source, 16);
    setFlag(pApp->bStopRepair, true);
    const quint64 next = forwards.nextFF(3, 201);
    const quint64 previous = back.previousFF(200, 3);
    setFlag(pApp->bStopRepair, false);
    QCOMPARE(next, quint64(201));
    QCOMPARE(previous, quint64(2));
    QCOMPARE(forwards.nextFF(3, 201), quint64(100));
    QCOMPARE(back.previousFF(200, 3), quint64(100));
}

void TestFileWindow::shrinkingFile()
{
    const RunFolder folder;
    const QByteArray whole = sprinkled(5 * kPage, 50);
    for (const int block : kBlockSizes) {
        const QString path = folder.source("shrinks.jpg", whole);
        FileWindow window(path, block);
        QVERIFY(window.isOpen());
        constexpr int kLeft = kPage + 904;
        QVERIFY(QFile::resize(path, kLeft));
        QCOMPARE(window.size(), quint64(whole.size()));
        QByteArray got(whole.size() + 10, '?');
        window.read(0, got.data(), got.size());
        QVERIFY(got == whole.left(kLeft) + QByteArray(whole.size() - kLeft + 10, '\0'));
        QCOMPARE(window.nextFF(kLeft, window.size()), window.size());
        QCOMPARE(window.previousFF(window.size(), 0), quint64(whole.left(kLeft).lastIndexOf(char(0xFF))));
    }
}

void TestFileWindow::opensFilesOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("opens");
    QTest::newRow("a file") << "file" << true;
    QTest::newRow("an empty file") << "empty" << true;
    QTest::newRow("a link to a file") << "link" << true;
    QTest::newRow("a name that is no ASCII") << QString::fromUtf8("фото 照片.jpg") << true;
    QTest::newRow("nothing") << "nothing" << false;
    QTest::newRow("a dead link") << "dead" << false;
    QTest::newRow("a link to itself") << "circle" << false;
    QTest::newRow("a folder") << "folder" << false;
    QTest::newRow("a file as a folder") << "file/inside" << false;
    QTest::newRow("a pipe that nobody writes to") << "pipe" << false;
    QTest::newRow("a socket") << "socket" << false;
    QTest::newRow("a device without end") << "/dev/zero" << false;
    QTest::newRow("a device without bytes") << "/dev/null" << false;
    QTest::newRow("no name") << "" << false;
    QTest::newRow("a name longer than a name may be") << QString(300, 'n') << false;
}

void TestFileWindow::opensFilesOnly()
{
    QFETCH(QString, name);
    QFETCH(bool, opens);
    const RunFolder folder;
    const QString base = folder.sources() + '/';
    const QByteArray content = "content";
    folder.source("file", content);
    folder.source("empty", {});
    folder.source(QString::fromUtf8("фото 照片.jpg"), content);
    QVERIFY(QFile::link(base + "file", base + "link"));
    QVERIFY(QFile::link(base + "nowhere", base + "dead"));
    QVERIFY(QFile::link(base + "circle", base + "circle"));
    QVERIFY(QDir(base).mkdir("folder"));
    QCOMPARE(::mkfifo(QFile::encodeName(base + "pipe").constData(), 0600), 0);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{AF_UNIX, {}};
    qstrncpy(address.sun_path, QFile::encodeName(base + "socket").constData(), sizeof address.sun_path);
    QCOMPARE(::bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    ::close(listener);

    FileWindow window(name.isEmpty() || name.startsWith('/') ? name : base + name);
    QCOMPARE(window.isOpen(), opens);
    if (!opens || name == "empty") {
        QCOMPARE(window.size(), quint64(0));
        return;
    }
    QByteArray got(content.size(), '?');
    window.read(0, got.data(), got.size());
    QCOMPARE(got, content);
}

QTEST_GUILESS_MAIN(TestFileWindow)
#include "tst_file_window.moc"
