// What is packed beside the programs agrees with them: man pages, completion, starter, the desktop's files.

#include "support/Files.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kPackaging = QStringLiteral(KESMIRA_SOURCE_DIR "/packaging/");

struct Outcome
{
    int status = -1;
    QString out;
    QString err;
};

/// Runs a program with `variables` added to an environment that knows neither display nor locale.
Outcome run(const QString &program, const QStringList &arguments, const QStringList &variables = {},
            const QString &folder = {})
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LC_ALL", "LC_MESSAGES", "LANG"})
        environment.remove(name);
    for (const QString &variable : variables) environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit) return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString packed(const QString &name)
{
    return QString::fromUtf8(contents(kPackaging + name));
}

/// Everything that the expression's first group finds, sorted, each once.
QStringList allMatches(const QString &expression, const QString &text)
{
    QStringList found;
    auto matches = QRegularExpression(expression, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext()) found << matches.next().captured(1);
    found.sort();
    found.removeDuplicates();
    return found;
}

/// Options that the man page heads a paragraph with, and those that it names anywhere.
QStringList manOptions(QString page, bool everywhere)
{
    page.replace("\\-", "-");
    // A macro of two fonts sets "-h", ", " and "--help" in quotes and blanks.
    page.remove('"');
    if (everywhere) return allMatches("(?<![\\w-])(--?[a-z][a-z-]*)", page.section(".SH SYNOPSIS", 1));
    QString heads;
    for (const QString &head : allMatches("^\\.TP\\n(\\.B.*)$", page)) heads += head + '\n';
    return allMatches("(?<![\\w-])(--?[a-z][a-z-]*)", heads);
}

} // namespace

class TestPackage : public QObject
{
    Q_OBJECT

private slots:
    void optionsAreTold_data();
    void optionsAreTold();
    void completion_data();
    void completion();
    void starter_data();
    void starter();
    void commandLineWithoutADisplay_data();
    void commandLineWithoutADisplay();
    void oneVersion();
    void pagesAreWellFormed_data();
    void pagesAreWellFormed();
    void desktopFiles_data();
    void desktopFiles();
    void everyLanguage();

private:
    /// What Tab offers at the end of `words`, for a command whose completion lies in the file of that name.
    QStringList offered(const QString &command, const QStringList &words, const QString &folder);
};

QStringList TestPackage::offered(const QString &command, const QStringList &words, const QString &folder)
{
    const QString script = "source \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1))\n"
                           "$(complete -p \"$1\" | sed 's/.*-F \\([^ ]*\\).*/\\1/')\n"
                           "((${#COMPREPLY[@]} == 0)) || printf '%s\\n' \"${COMPREPLY[@]}\"";
    const Outcome outcome =
        run("bash", QStringList{"-c", script, "bash", kPackaging + "completions/" + command, command} + words,
            {"LC_ALL=C.UTF-8"}, folder);
    QStringList lines = outcome.out.split('\n', Qt::SkipEmptyParts);
    lines.sort();
    return outcome.status == 0 && outcome.err.isEmpty() ? lines : QStringList{"failed", outcome.err};
}

void TestPackage::optionsAreTold_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("name");
    QTest::newRow("window") << KESMIRA_WINDOW_PROGRAM << "kesmira";
    QTest::newRow("window, Chinese build") << KESMIRA_CHINESE_PROGRAM << "kesmira";
    QTest::newRow("batch") << KESMIRA_BATCH_PROGRAM << "kesmira-batch";
}

void TestPackage::optionsAreTold()
{
    QFETCH(QString, program);
    QFETCH(QString, name);
    const Outcome help = run(program, {"--help"});
    QCOMPARE(help.status, 0);
    QStringList options;
    for (const QString &line : help.out.split('\n'))
        if (line.startsWith("  -")) options << allMatches("(?:^|, )\\s*(--?[a-z][a-z-]*)", line);
    options.sort();
    QVERIFY2(options.contains("--help") && options.contains("-v"), qPrintable(help.out));

    QCOMPARE(manOptions(packed("man/" + name + ".1"), false), options);
    QCOMPARE(manOptions(packed("man/" + name + ".1"), true), options);
    QStringList all = offered(name, {"-"}, kPackaging);
    QCOMPARE(all, options);
}

void TestPackage::completion_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *command, const char *words, const char *expected) {
        QTest::addRow("%s %s", command, words) << command << words << expected;
    };
    row("kesmira", "", "A.CR2|a b.jpg|folder");
    row("kesmira", "|a", "a b.jpg");
    row("kesmira", "--ver", "--version");
    row("kesmira", "--|--ver", "");
    row("kesmira", "--|-", "-x.heic");
    row("kesmira-batch", "", "-x.heic|A.CR2|a b.jpg|folder|text");
    row("kesmira-batch", "--o", "--on-conflict");
    row("kesmira-batch", "--on-conflict|", "overwrite|rename|skip");
    row("kesmira-batch", "--on-conflict|=", "overwrite|rename|skip");
    row("kesmira-batch", "--on-conflict|=|s", "skip");
    row("kesmira-batch", "--to|", "folder");
    row("kesmira-batch", "--work|=|f", "folder");
    row("kesmira-batch", "--sample|a", "a b.jpg");
    row("kesmira-batch", "--json|--|-", "-x.heic");
}

void TestPackage::completion()
{
    QFETCH(QString, command);
    QFETCH(QString, words);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    for (const char *name : {"A.CR2", "a b.jpg", "-x.heic", "text"}) write(folder.filePath(name), "x");
    QDir(folder.path()).mkdir("folder");
    QStringList found = offered(command, words.split('|'), folder.path());
    if (words.isEmpty() || words.startsWith('|')) found.removeAll("-x.heic");
    QStringList wanted = expected.split('|', Qt::SkipEmptyParts);
    if (words.isEmpty()) wanted.removeAll("-x.heic");
    QCOMPARE(found, wanted);
}

void TestPackage::starter_data()
{
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<QString>("program");
    QTest::newRow("no locale") << QStringList() << "kesmira-international";
    QTest::newRow("German") << QStringList{"LANG=de_DE.UTF-8"} << "kesmira-international";
    QTest::newRow("Chinese") << QStringList{"LANG=zh_CN.UTF-8"} << "kesmira";
    QTest::newRow("Chinese messages") << QStringList{"LANG=de_DE.UTF-8", "LC_MESSAGES=zh_TW"} << "kesmira";
    QTest::newRow("all is above them") << QStringList{"LANG=zh_CN.UTF-8", "LC_MESSAGES=zh_TW", "LC_ALL=C"}
                                       << "kesmira-international";
    QTest::newRow("empty counts as unset") << QStringList{"LANG=zh_CN.UTF-8", "LC_ALL="} << "kesmira";
}

/// A tree as it is installed, with two scripts in place of the programs, at a place with a blank, called through a link.
void TestPackage::starter()
{
    QFETCH(QStringList, variables);
    QFETCH(QString, program);
    const QTemporaryDir folder;
    const QString top = folder.filePath("a place");
    const QString bin = top + "/lib/programs/";
    for (const char *name : {"kesmira", "kesmira-international"})
        write(bin + name, QByteArray("#!/bin/sh\nprintf '%s|' ") + name + " \"$@\"\n");
    write(top + "/bin/kesmira", packed("kesmira.in").replace("@KESMIRA_PACKAGED_PROGRAMS@", "lib/programs").toUtf8());
    for (const QString &file : {bin + "kesmira", bin + "kesmira-international", top + "/bin/kesmira"})
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner));
    QVERIFY(QFile::link(top + "/bin/kesmira", folder.filePath("link")));
    const Outcome outcome = run(folder.filePath("link"), {"a b", "--", "-c"}, variables);
    QCOMPARE(outcome.out, program + "|a b|--|-c|");
}

void TestPackage::commandLineWithoutADisplay_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("begin"); ///< of standard output
    QTest::newRow("help") << QStringList{"--help"} << "Usage: kesmira [options] [FILE...]\n";
    QTest::newRow("version") << QStringList{"-v"} << "Kesmira 7.";
    QTest::newRow("with a file") << QStringList{"a.jpg", "--version"} << "Kesmira 7.";
    QTest::newRow("with an option of the toolkit") << QStringList{"-platform", "xcb", "--version"} << "Kesmira 7.";
}

void TestPackage::commandLineWithoutADisplay()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, begin);
    for (const char *program : {KESMIRA_WINDOW_PROGRAM, KESMIRA_CHINESE_PROGRAM}) {
        const Outcome outcome = run(program, arguments);
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.out.left(begin.size()), begin);
        QCOMPARE(outcome.err, QString());
    }
    const Outcome wrong = run(KESMIRA_WINDOW_PROGRAM, {"--such"}, {"QT_QPA_PLATFORM=offscreen"});
    QCOMPARE(wrong.status, 2);
    // The toolkit may have words of its own.
    QVERIFY2(allMatches("^kesmira: (.*such.*)$", wrong.err).size() == 1, qPrintable(wrong.err));
}

/// The changelog gives the package its date; whatever else names a release must name the same.
void TestPackage::oneVersion()
{
    const QString version = QStringLiteral(KESMIRA_VERSION).section('.', 0, 2);
    const QString changelog = packed("debian/changelog");
    QVERIFY2(changelog.startsWith("kesmira (" + version + ") "), qPrintable(changelog.section('\n', 0, 0)));
    const QDateTime date = QDateTime::fromString(
        allMatches("^ -- .*  (.*)$", changelog.section("\nkesmira (", 0, 0)).value(0), Qt::RFC2822Date);
    QVERIFY(date.isValid());
    const QString day = date.toUTC().date().toString(Qt::ISODate);
    const QString metainfo = packed("example.vorlane.Kesmira.metainfo.xml");
    QCOMPARE(metainfo.section("<release ", 1, 1).section("/>", 0, 0),
             QString("version=\"%1\" date=\"%2\"").arg(version, day));
    for (const QString &page : QDir(kPackaging + "man").entryList({"*.1"}))
        QVERIFY2(packed("man/" + page).section('\n', 0, 0).contains(day + " \"Kesmira " + version + '"'),
                 qPrintable(page));
}

void TestPackage::pagesAreWellFormed_data()
{
    QTest::addColumn<QString>("page");
    for (const QString &page : QDir(kPackaging + "man").entryList({"*.1"})) QTest::newRow(qPrintable(page)) << page;
}

void TestPackage::pagesAreWellFormed()
{
    QFETCH(QString, page);
    if (QStandardPaths::findExecutable("man").isEmpty()) QSKIP("man isn't installed (package man-db)");
    const Outcome outcome =
        run("man", {"--warnings", "-E", "UTF-8", "-l", "-Tutf8", kPackaging + "man/" + page}, {"LC_ALL=C.UTF-8"});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.err, QString());
    QString shown = outcome.out;
    shown.remove(QRegularExpression(".\x08")); // struck twice, for bold letters
    QVERIFY2(shown.contains("SYNOPSIS"), qPrintable(shown));
}

void TestPackage::desktopFiles_data()
{
    QTest::addColumn<QString>("checker");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("desktop entry") << "desktop-file-validate"
                                   << QStringList{kPackaging + "example.vorlane.Kesmira.desktop"};
    QTest::newRow("AppStream") << "appstreamcli"
                               << QStringList{"validate", "--no-net",
                                              kPackaging + "example.vorlane.Kesmira.metainfo.xml"};
}

void TestPackage::desktopFiles()
{
    QFETCH(QString, checker);
    QFETCH(QStringList, arguments);
    if (QStandardPaths::findExecutable(checker).isEmpty()) QSKIP(qPrintable(checker + " isn't installed"));
    const Outcome outcome = run(checker, arguments, {"LC_ALL=C.UTF-8"});
    QVERIFY2(outcome.status == 0, qPrintable(outcome.out + outcome.err));
}

/// What the desktop shows comes in the seven languages of the program.
void TestPackage::everyLanguage()
{
    const QString entry = packed("example.vorlane.Kesmira.desktop");
    const QStringList languages{"de", "es", "fr", "it", "ja", "zh_CN"};
    for (const char *key : {"GenericName", "Comment", "Keywords"})
        QCOMPARE(allMatches(QString("^%1\\[(\\w+)\\]=.").arg(key), entry), languages);
    const QString metainfo = packed("example.vorlane.Kesmira.metainfo.xml");
    QStringList tags = languages;
    tags.replaceInStrings("_", "-");
    for (const char *tag : {"summary", "p", "li"}) {
        QCOMPARE(allMatches(QString("<%1 xml:lang=\"([\\w-]+)\">.").arg(tag), metainfo), tags);
        QCOMPARE(metainfo.count(QString("<%1 xml:lang=").arg(tag)), 6 * metainfo.count(QString("<%1>").arg(tag)));
    }
}

QTEST_GUILESS_MAIN(TestPackage)
#include "tst_package.moc"
