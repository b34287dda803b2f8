// Holds the tree to the rules of the house, and the rules to cases of their own.
#include "architecture/ArchitectureRules.h"

#include <QDir>
#include <QDirIterator>
#include <QtTest>

using namespace architecture;

namespace {

struct SourceText
{
    QString path; ///< from the project's folder
    QString text;
};

/// The texts below a folder of the project (with "" those of the project's own folder, not below it).
QVector<SourceText> textsIn(const QString &folder)
{
    static const QStringList suffixes{"cpp", "h", "txt", "md", "cmake", "json", "qrc", "ui", "supp", "ts", ""};
    const QDir project(KESMIRA_SOURCE_DIR);
    const auto depth = folder.isEmpty() ? QDirIterator::NoIteratorFlags : QDirIterator::Subdirectories;
    QVector<SourceText> texts;
    for (QDirIterator it(project.filePath(folder), QDir::Files | QDir::Hidden, depth); it.hasNext();) {
        QFile file(it.next());
        const QString path = project.relativeFilePath(file.fileName());
        if (path.startsWith("fuzz/regressions/") || !suffixes.contains(QFileInfo(path).suffix())) continue;
        if (file.open(QIODevice::ReadOnly)) texts << SourceText{path, QString::fromUtf8(file.readAll())};
    }
    return texts;
}

QVector<SourceText> sourcesIn(const QStringList &folders)
{
    QVector<SourceText> sources;
    for (const QString &folder : folders) {
        for (const SourceText &source : textsIn(folder)) {
            if (source.path.endsWith(".cpp") || source.path.endsWith(".h")) sources << source;
        }
    }
    return sources;
}

/// Fails the calling test with every line, for a person who mends them all at once.
#define FAIL_WITH(lines)                                                                                               \
    if (!(lines).isEmpty()) QFAIL(qPrintable("\n  " + (lines).join("\n  ")))

} // namespace

class TestArchitecture : public QObject
{
    Q_OBJECT

private slots:
    void rulesJudgeIncludes_data();
    void rulesJudgeIncludes();
    void rulesJudgeLength();
    void rulesJudgeReferences_data();
    void rulesJudgeReferences();
    void includesPointOneWay();
    void filesStayShort();
    void treeExplainsItself();
};

void TestArchitecture::rulesJudgeIncludes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("right");

    const auto row = [](const char *path, const char *line, bool right) {
        QTest::addRow("%s %s", path, line) << QString(path) << QString(line) << right;
    };
    row("src/engine/A.cpp", "#include \"engine/A.h\"", true);
    row("src/engine/raw/Tiff.cpp", "#include \"engine/FileWindow.h\"", true);
    row("src/engine/A.cpp", "#include \"tables/Hoffmann.h\"", true);
    row("src/engine/A.cpp", "#include \"save/SaveFile.h\"", true);
    row("src/engine/A.cpp", "#include \"save/ConflictPrompt.h\"", false);
    row("src/engine/A.cpp", "#include \"window/BrowseRepair.h\"", false);
    row("src/engine/A.cpp", "  #  include <dialogs/FolderExist.h>", false);
    row("src/engine/A.cpp", "#include \"A.h\"", false);
    row("src/tables/A.cpp", "#include \"engine/FileWindow.h\"", false);
    row("src/app/KesmiraApp.h", "#include \"engine/RepairReport.h\"", true);
    row("src/app/Other.h", "#include \"engine/RepairReport.h\"", false);
    row("src/salvage/A.cpp", "#include \"app/KesmiraApp.h\"", false);
    row("src/save/A.cpp", "#include \"engine/Judge.h\"", true);
    row("src/save/A.cpp", "#include \"batch/Batch.h\"", false);
    row("src/batch/A.cpp", "#include \"save/SaveFile.h\"", true);
    row("src/batch/A.cpp", "#include \"window/BrowseRepair.h\"", false);
    row("src/window/A.cpp", "#include \"dialogs/FolderExist.h\"", true);
    row("src/cellar/A.cpp", "#include <QString>", false);
    row("src/engine/A.cpp", "#include <QImage>", true);
    row("src/engine/A.cpp", "#include <QtCore/QString>", true);
    row("src/engine/A.cpp", "#include <vector>", true);
    row("src/engine/A.cpp", "#include <queue>", true);
    row("src/engine/A.cpp", "#include <unistd.h>", true);
    row("src/engine/A.cpp", "#include <QWidget>", false);
    row("src/engine/A.cpp", "#include <qwidget.h>", false);
    row("src/engine/A.cpp", "#include <QtWidgets/QDialog>", false);
    row("src/save/A.cpp", "#include <QtWidgets>", false);
    row("src/batch/A.cpp", "#include <QNetworkAccessManager>", false);
    row("src/window/A.cpp", "#include <QWidget>", true);
    row("src/window/A.cpp", "#include <QTest>", false);
    row("src/dialogs/A.cpp", "#include \"window/BrowseRepair.h\"", false);
    row("src/desktop/A.cpp", "#include \"dialogs/FolderExist.h\"", false);
    row("src/app/main.cpp", "#include \"window/BrowseRepair.h\"", true);
    row("src/app/WorkingRoot.cpp", "#include \"window/BrowseRepair.h\"", false);
}

void TestArchitecture::rulesJudgeIncludes()
{
    QFETCH(QString, path);
    QFETCH(QString, line);
    QFETCH(bool, right);

    QVector<int> used;
    const QStringList found = wrongIncludes(path, "// first line\n" + line + "\n", used);
    QCOMPARE(found.size(), right ? 0 : 1);
    if (!right && !path.contains("cellar")) QVERIFY2(found[0].startsWith(path + ":2: "), qPrintable(found[0]));
}

void TestArchitecture::rulesJudgeLength()
{
    QCOMPARE(tooLong("src/engine/A.cpp", QString("\n").repeated(550)), QString());
    QVERIFY(tooLong("src/engine/A.cpp", QString("\n").repeated(551)).startsWith("src/engine/A.cpp:551: "));
}

void TestArchitecture::rulesJudgeReferences_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("right");

    const auto row = [](const char *name, const char *path, const QString &line, bool right) {
        QTest::newRow(name) << QString(path) << line << right;
    };
    // Each in two pieces, for the tree holds this file too.
    row("a paper", "src/engine/A.cpp", "// as the Speci" + QString("fication wants"), false);
    row("a chapter", "src/engine/A.cpp", "// see Pa" + QString("rt 4.5"), false);
    row("a ticket", "README.md", "as Iss" + QString("ue 12 says"), false);
    row("a machine's folder", "run", "cd /wo" + QString("rk/main"), false);
    row("the photographs, elsewhere", "test", "KESMIRA_CORPUS=../sha" + QString("red/corpus"), false);
    row("the photographs' default", "CMakeLists.txt", "KESMIRA_CORPUS ../sha" + QString("red/corpus"), true);
    row("plain words", "src/engine/A.cpp", "// the part of a special file; partly specific", true);
}

void TestArchitecture::rulesJudgeReferences()
{
    QFETCH(QString, path);
    QFETCH(QString, line);
    QFETCH(bool, right);

    const QStringList found = outsideReferences(path, "\n\n" + line);
    QCOMPARE(found.size(), right ? 0 : 1);
    if (!right) QVERIFY2(found[0].startsWith(path + ":3: "), qPrintable(found[0]));
}

void TestArchitecture::includesPointOneWay()
{
    const QVector<SourceText> sources = sourcesIn({"src"});
    QVERIFY(!sources.isEmpty());
    QStringList findings;
    QVector<int> used;
    for (const SourceText &source : sources) findings << wrongIncludes(source.path, source.text, used);
    for (int i = 0; i < listedExceptions().size(); ++i) {
        const ListedException &exception = listedExceptions()[i];
        if (!used.contains(i)) findings << exception.from + " no longer includes " + exception.header + ": unlist it";
    }
    FAIL_WITH(findings);
}

void TestArchitecture::filesStayShort()
{
    QStringList findings;
    for (const SourceText &source : sourcesIn({"src", "tests", "bench", "fuzz", "samples"})) {
        const QString finding = tooLong(source.path, source.text);
        if (!finding.isEmpty()) findings << finding;
    }
    FAIL_WITH(findings);
}

void TestArchitecture::treeExplainsItself()
{
    QVector<SourceText> texts;
    for (const char *folder :
         {"", ".ci", "cmake", "scripts", "src", "tests", "bench", "fuzz", "samples", "res", "PhotoTranslation"})
        texts << textsIn(folder);
    QVERIFY(texts.size() > 20);
    QStringList findings;
    for (const SourceText &text : qAsConst(texts)) findings << outsideReferences(text.path, text.text);
    FAIL_WITH(findings);
}

QTEST_GUILESS_MAIN(TestArchitecture)
#include "tst_architecture.moc"
