// The built program itself: what only a process of its own has, standard streams, signals, and the raw command line.

#include "support/Damage.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

class TestBatchProgram : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void outputThatCantBeWritten_data();
    void outputThatCantBeWritten();
    void readerThatGoesAway();
    void bareLocale();
    void runsSideBySide();
    void rootsOfKilledRunsGo();
    void foreignBytesOnTheCommandLine();
    void signalEndsALongRun_data();
    void signalEndsALongRun();

private:
    /// Runs a line of the shell in the test's folder; $KB is the program.
    void shell(const QString &line);

    QScopedPointer<QTemporaryDir> m_dir;
    QProcessEnvironment m_environment;
    QProcess m_process;
};

void TestBatchProgram::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(QDir(m_dir->path()).mkdir("tmp"));
    QFile file(m_dir->filePath("a.jpg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(healthyJpeg());
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert("TMPDIR", m_dir->filePath("tmp"));
    m_environment.insert("KB", KESMIRA_BATCH_PROGRAM);
    m_process.setWorkingDirectory(m_dir->path());
}

void TestBatchProgram::cleanup()
{
    QVERIFY2(QDir(m_dir->filePath("tmp")).isEmpty(), "a temporary root is left");
}

void TestBatchProgram::shell(const QString &line)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start("/bin/sh", {"-c", line});
    QVERIFY(m_process.waitForFinished(60000));
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
}

void TestBatchProgram::outputThatCantBeWritten_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("full, table") << "$KB a.jpg > /dev/full";
    QTest::newRow("full, json") << "$KB --json a.jpg > /dev/full";
    QTest::newRow("full, help") << "$KB --help > /dev/full";
    QTest::newRow("closed") << "$KB --json --work work a.jpg >&-";
    QTest::newRow("all closed") << "$KB --json --work work a.jpg <&- >&- 2>&-";
}

void TestBatchProgram::outputThatCantBeWritten()
{
    QFETCH(QString, line);
    shell(line);
    QCOMPARE(m_process.exitCode(), 3);
    // The text must not have gone into a file that got the closed stream's number.
    QFile source(m_dir->filePath("a.jpg"));
    QVERIFY(source.open(QIODevice::ReadOnly));
    QCOMPARE(source.readAll(), healthyJpeg());
    QFile result(m_dir->filePath("work/RepairedFiles/a.jpg"));
    if (result.open(QIODevice::ReadOnly)) QVERIFY(!result.readAll().contains("\"source\""));
}

void TestBatchProgram::readerThatGoesAway()
{
    shell("{ $KB --json $(yes a.jpg | head -2000); echo $? > status; } | head -1 > first");
    QFile first(m_dir->filePath("first"));
    QVERIFY(first.open(QIODevice::ReadOnly));
    QVERIFY(first.readAll().startsWith('{'));
    QFile status(m_dir->filePath("status"));
    QVERIFY(status.open(QIODevice::ReadOnly));
    QCOMPARE(status.readAll(), QByteArray("3\n"));
    QCOMPARE(m_process.readAllStandardError(), QByteArray());
}

void TestBatchProgram::bareLocale()
{
    const QString name = QString::fromUtf8("\u65e5\u672c.jpg");
    QVERIFY(QFile::copy(m_dir->filePath("a.jpg"), m_dir->filePath(name)));
    m_environment.insert("LC_ALL", "C");
    shell("$KB --json --to out *.jpg");
    QCOMPARE(m_process.exitCode(), 0);
    QVERIFY(m_process.readAllStandardOutput().contains("\"source\":\"" + name.toUtf8() + '"'));
    QVERIFY(QFile::exists(m_dir->filePath("out/RepairedFiles/" + name)));
}

void TestBatchProgram::runsSideBySide()
{
    shell("for i in $(seq 20); do $KB --to out a.jpg > said$i 2>&1 & p=\"$p $!\"; done;"
          "for i in $p; do wait $i || exit 1; done");
    QCOMPARE(m_process.exitCode(), 0);
    const QDir out(m_dir->filePath("out/RepairedFiles"));
    QCOMPARE(out.entryList(QDir::Files | QDir::Hidden).size(), 20);
    for (const QFileInfo &file : out.entryInfoList(QDir::Files)) QVERIFY(file.size() > 500);
}

void TestBatchProgram::rootsOfKilledRunsGo()
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(KESMIRA_BATCH_PROGRAM, QStringList{"--json"} + QVector<QString>(5000, "a.jpg").toList());
    QVERIFY(m_process.waitForReadyRead(60000));
    m_process.kill();
    QVERIFY(m_process.waitForFinished(60000));
    QCOMPARE(QDir(m_dir->filePath("tmp")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    shell("$KB a.jpg");
    QCOMPARE(m_process.exitCode(), 0);
}

void TestBatchProgram::foreignBytesOnTheCommandLine()
{
    shell("$KB --to \"$(printf 'b\\377')\" a.jpg");
    QCOMPARE(m_process.exitCode(), 2);
    shell("b=$(printf 'b\\377.jpg'); cp a.jpg \"$b\" || exit 99; $KB --json \"$b\" a.jpg; s=$?; rm \"$b\"; exit $s");
    if (m_process.exitCode() == 99) QSKIP("the file system takes no such names");
    QCOMPARE(m_process.exitCode(), 1);
    QCOMPARE(m_process.readAllStandardOutput().count('\n'), 1);
    QVERIFY(m_process.readAllStandardError().contains("is not a valid UTF-8 name; passed over"));
}

void TestBatchProgram::signalEndsALongRun_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

// The results of so many sources don't fit into the pipe, so the run can't be over before the signal comes.
void TestBatchProgram::signalEndsALongRun()
{
    QFETCH(int, number);
    m_process.setProcessEnvironment(m_environment);
    m_process.start(KESMIRA_BATCH_PROGRAM, QStringList{"--json"} + QVector<QString>(5000, "a.jpg").toList());
    QVERIFY(m_process.waitForReadyRead(60000));
    QCOMPARE(::kill(pid_t(m_process.processId()), number), 0);
    QVERIFY(m_process.waitForFinished(60000));
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process.exitCode(), 1);
    const QByteArray out = m_process.readAllStandardOutput();
    QCOMPARE(out.count('\n'), 5000);
    QVERIFY(out.contains("\"reason\":\"stopped\""));
}

QTEST_GUILESS_MAIN(TestBatchProgram)
#include "tst_batch_program.moc"
