// One running program owns the working root. Called as "tst_single_instance --start ROOT [PATH...]" this program is one of
// two that start at once: it says what became of its start and stays, if it came first, until its input ends.

#include "app/RootLock.h"
#include "app/WorkingRoot.h"
#include "desktop/SingleInstance.h"
#include "support/Files.h"
#include "support/RunFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTest>

#include <cstdio>
#include <memory>
#include <thread>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kRounds = 20;
#else
constexpr int kRounds = 100;
#endif

namespace {

using Start = SingleInstance::Start;

void say(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

int startAsProgram(const QStringList &arguments)
{
    QCoreApplication::setApplicationName("Kesmira"); // not the program's file name
    setWorkingRoot(arguments.value(2));
    SingleInstance instance;
    QObject::connect(&instance, &SingleInstance::asked,
                     [](const QStringList &paths) { say("asked " + paths.join('|')); });
    QString why;
    switch (instance.start(arguments.mid(3), &why)) {
    case Start::HandedOver: say("handed over"); return 0;
    case Start::Refused: say("refused " + why); return 1;
    case Start::First: break;
    }
    say("first");
    QSocketNotifier told(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&told, &QSocketNotifier::activated, QCoreApplication::instance(), &QCoreApplication::quit);
    return QCoreApplication::exec();
}

/// A start in a process of its own.
class Program
{
public:
    explicit Program(const QString &root, const QStringList &paths = {})
    {
        m_process.start(QCoreApplication::applicationFilePath(), QStringList{"--start", root} + paths);
    }
    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    QString nextLine()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(20000)) {
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    bool end()
    {
        m_process.closeWriteChannel();
        return m_process.waitForFinished() && m_process.exitStatus() == QProcess::NormalExit;
    }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

} // namespace

class TestSingleInstance : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_room.reset(new RunFolder); }
    void cleanup() { m_room.reset(); }

    void oneOfTwo();
    void nextAfterAKilledOne();
    void pathsAreHandedOver();
    void refused();
    void ownerWithoutEars();
    void busyOwner();
    void leavingOwner();
    void longRoot();
    void badCallers_data();
    void badCallers();

private:
    QScopedPointer<RunFolder> m_room;
};

void TestSingleInstance::oneOfTwo()
{
    const QString kept = m_room->root() + "/RepairedFiles/a.jpg";
    for (int round = 0; round < kRounds; ++round) {
        Program one(m_room->root(), {"/1"}), other(m_room->root(), {"/2"});
        const QString first = one.nextLine();
        const QString second = other.nextLine();
        QCOMPARE((QSet<QString>{first, second}), (QSet<QString>{"first", "handed over"}));
        const bool isOneFirst = first == "first";
        QCOMPARE((isOneFirst ? one : other).nextLine(), QString("asked ") + (isOneFirst ? "/2" : "/1"));
        if (round == 0) write(kept, "result");
        QVERIFY(one.end() && other.end());
        QCOMPARE(QDir(m_room->root()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
                 QStringList{"RepairedFiles"});
    }
    QCOMPARE(contents(kept), QByteArray("result"));
}

void TestSingleInstance::nextAfterAKilledOne()
{
    Program killed(m_room->root());
    QCOMPARE(killed.nextLine(), QString("first"));
    killed.kill();
    QVERIFY(QFileInfo::exists(m_room->root() + "/kesmira.lock"));
    Program next(m_room->root());
    QCOMPARE(next.nextLine(), QString("first"));
    Program later(m_room->root());
    QCOMPARE(later.nextLine(), QString("handed over"));
    QVERIFY(next.end());
}

void TestSingleInstance::pathsAreHandedOver()
{
    SingleInstance owner;
    QString why;
    QVERIFY(owner.start({}, &why) == Start::First);
    QSignalSpy asked(&owner, &SingleInstance::asked);
    const QString strange = QString::fromUtf8("/\xC3\xA4 \"\\\n\xF0\x9F\x93\xB7.jpg");
    QStringList many, tooMany;
    for (int i = 0; i < 6000; ++i) {
        many << QString("/photos/IMG_%1.jpg").arg(i);
        tooMany << "/photos/" + QString(200, 'x');
    }
    for (const QStringList &paths : {QStringList(), QStringList{strange}, many, tooMany}) {
        QProcess caller;
        caller.start(QCoreApplication::applicationFilePath(), QStringList{"--start", m_room->root()} + paths);
        QTRY_COMPARE(caller.state(), QProcess::NotRunning); // the owner answers from this loop
        const QByteArray said = caller.readAllStandardOutput();
        QVERIFY2(said.startsWith(paths == tooMany ? "refused " : "handed over\n"), said.constData());
        if (paths == tooMany) continue;
        QTRY_COMPARE(asked.size(), 1);
        QCOMPARE(asked.takeFirst().first().toStringList(), paths);
    }
    QVERIFY(asked.isEmpty());
}

void TestSingleInstance::refused()
{
    write(m_room->root(), "a file where the folder should be");
    QString why;
    SingleInstance instance;
    QVERIFY(instance.start({}, &why) == Start::Refused);
    QCOMPARE(why, prepareWorkingRoot());
    QVERIFY(!why.isEmpty());
}

/// The batch program locks a root too, and never listens.
void TestSingleInstance::ownerWithoutEars()
{
    QCOMPARE(prepareWorkingRoot(), QString());
    auto lock = std::make_unique<RootLock>();
    QVERIFY(lock->tryLock(m_room->root() + "/kesmira.lock") == RootLock::Result::Locked);
    SingleInstance instance;
    instance.setPatience(50);
    QString why;
    QVERIFY(instance.start({"/a"}, &why) == Start::Refused);
    QVERIFY2(why.contains(m_room->root()) && why.contains(QString::number(QCoreApplication::applicationPid())),
             qPrintable(why));
    lock.reset();
    // One that was killed before it had written who it is must not lock its owner out.
    write(m_room->root() + "/kesmira.lock", {});
    QVERIFY(instance.start({"/a"}, &why) == Start::First);
}

/// A long copy keeps the owner from its event loop; the request waits for it.
void TestSingleInstance::busyOwner()
{
    SingleInstance owner;
    QString why;
    QVERIFY(owner.start({}, &why) == Start::First);
    QSignalSpy asked(&owner, &SingleInstance::asked);
    SingleInstance later;
    later.setPatience(100);
    QVERIFY(later.start({"/a"}, &why) == Start::Refused);
    QVERIFY2(why.contains("busy"), qPrintable(why));
    QTRY_COMPARE(asked.size(), 1);
}

/// An owner that wipes is waited for, longer than any patience.
void TestSingleInstance::leavingOwner()
{
    auto owner = std::make_unique<SingleInstance>();
    QString why;
    QVERIFY(owner->start({}, &why) == Start::First);
    owner->leave();
    std::thread wipes([&owner] {
        QThread::msleep(600);
        owner.reset();
    });
    SingleInstance next;
    const QSignalSpy waiting(&next, &SingleInstance::waiting);
    next.setPatience(50);
    const Start start = next.start({"/a"}, &why);
    wipes.join();
    QVERIFY2(start == Start::First, qPrintable(why));
    QVERIFY(!waiting.isEmpty()); // and a person is told
}

void TestSingleInstance::longRoot()
{
    const QString root = m_room->place(QString(120, 'x'));
    setWorkingRoot(root);
    Program owner(root);
    QCOMPARE(owner.nextLine(), QString("first"));
    const QString socket = SingleInstance::socketPath();
    QVERIFY(QFile::encodeName(socket).size() < 108);
    QVERIFY(QFileInfo::exists(socket));
    Program later(root);
    QCOMPARE(later.nextLine(), QString("handed over"));
    QVERIFY(owner.end());
    QVERIFY(!QFileInfo::exists(socket));
}

void TestSingleInstance::badCallers_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("answer");
    const QByteArray endless(3 << 20, '[');
    QTest::newRow("good") << QByteArray("{\"paths\":[\"/a\"]}\n") << QByteArray("taken\n");
    QTest::newRow("silent") << QByteArray() << QByteArray();
    QTest::newRow("unfinished") << QByteArray("{\"paths\":[\"/a\"]}") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("\0\xFF\xFE\n", 4) << QByteArray();
    QTest::newRow("no paths") << QByteArray("{\"files\":[]}\n") << QByteArray();
    QTest::newRow("not a list") << QByteArray("{\"paths\":\"/a\"}\n") << QByteArray();
    QTest::newRow("not a text") << QByteArray("{\"paths\":[1]}\n") << QByteArray();
    QTest::newRow("relative") << QByteArray("{\"paths\":[\"a\"]}\n") << QByteArray();
    QTest::newRow("endless") << endless << QByteArray();
    QTest::newRow("deep") << endless.left(500000) + '\n' << QByteArray();
}

void TestSingleInstance::badCallers()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, answer);
    SingleInstance owner;
    owner.setCallerTime(100);
    QString why;
    QVERIFY(owner.start({}, &why) == Start::First);
    QSignalSpy asked(&owner, &SingleInstance::asked);
    QLocalSocket caller;
    caller.connectToServer(SingleInstance::socketPath());
    QVERIFY(caller.waitForConnected());
    caller.write(message);
    QTRY_COMPARE(caller.state(), QLocalSocket::UnconnectedState);
    QCOMPARE(caller.readAll(), answer);
    QCoreApplication::processEvents();
    QCOMPARE(asked.size(), answer.isEmpty() ? 0 : 1);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == "--start") return startAsProgram(application.arguments());
    TestSingleInstance test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_single_instance.moc"
