// Damages healthy photographs and counts how many come back, by kind of damage and by way.
#include "soak/SoakReport.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <atomic>
#include <cstdio>
#include <mutex>
#include <thread>

#include <unistd.h>

using namespace soak;

namespace {

/// Files that one process gets: few enough that jobs end together, many enough that its start costs nothing.
constexpr int kGroup = 16;

struct Wishes
{
    int count = 1000;
    int intact = 100;
    quint64 seed = 1;
    int jobs = 1;
    QString set;
    QString kind;
    QString keep;
    QString makeOnly;
    bool lost = false;
    bool every = false;
    Programs programs;
};

void fail(const QString &words)
{
    QTextStream(stderr) << "soak: " << words << '\n';
    std::exit(2);
}

int number(const QCommandLineParser &parser, const QString &name, int least)
{
    bool isNumber = false;
    const int value = parser.value(name).toInt(&isNumber);
    if (!isNumber || value < least) fail(QStringLiteral("--%1 takes a number from %2 on").arg(name).arg(least));
    return value;
}

QString listOfKinds()
{
    QStringList names;
    for (const DamageKind &kind : damageKinds()) names << QString::fromLatin1(kind.name);
    return names.join('\n');
}

Wishes wishesOf(const QCoreApplication &application)
{
    const QString folder = qEnvironmentVariable("KESMIRA_CORPUS", QStringLiteral(KESMIRA_CORPUS));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.setApplicationDescription("Damages healthy photographs and counts how many come back.");
    parser.addOptions({
        {"count", "Damaged files, in the usual mix of kinds.", "N", "1000"},
        {"every", "The same number of every kind, those outside the usual mix as well."},
        {"intact", "Intact files beside them.", "N", "100"},
        {"seed", "Equal seeds make equal files.", "N", "1"},
        {"jobs", "Processes at a time.", "N", QString::number(std::max(1U, std::thread::hardware_concurrency()))},
        {"set", "Folder with healthy photographs.", "FOLDER",
         QDir(folder + "/jpeg").exists() ? folder + "/jpeg" : folder},
        {"kind", "Only damage of this kind; --kind list names them.", "NAME"},
        {"lost", "List files that don't come back, and keep them."},
        {"keep", "Where lost files, regressions and changed intact files are kept.", "FOLDER", "soak-lost"},
        {"make", "Only write the damaged files there.", "FOLDER"},
        {"batch", "Another kesmira-batch.", "PROGRAM", KESMIRA_BATCH_PROGRAM},
        {"without", "Ways to leave out: ffmpeg, djpeg, alone.", "NAME"},
    });
    parser.process(application);
    if (parser.value("kind") == "list") {
        QTextStream(stdout) << listOfKinds() << '\n';
        std::exit(0);
    }
    const QStringList without = parser.values("without");
    const auto program = [&](const QString &name) {
        return without.contains(name) ? QString() : QStandardPaths::findExecutable(name);
    };
    Wishes wishes;
    wishes.count = number(parser, "count", 0);
    wishes.intact = number(parser, "intact", 0);
    wishes.seed = quint64(number(parser, "seed", 0));
    wishes.jobs = number(parser, "jobs", 1);
    wishes.set = parser.value("set");
    wishes.kind = parser.value("kind");
    wishes.keep = parser.value("keep");
    wishes.makeOnly = parser.value("make");
    wishes.lost = parser.isSet("lost");
    wishes.every = parser.isSet("every");
    wishes.programs = {parser.value("batch"),
                       without.contains("alone") ? QString() : QCoreApplication::applicationFilePath(),
                       program("ffmpeg"), program("djpeg")};
    return wishes;
}

std::vector<DamageKind> kindsOf(const Wishes &wishes)
{
    if (wishes.kind.isEmpty()) return wishes.every ? evenly(damageKinds()) : damageKinds();
    for (const DamageKind &kind : damageKinds())
        if (wishes.kind == kind.name) return {kind};
    fail(QStringLiteral("there is no kind '%1', but\n%2").arg(wishes.kind, listOfKinds()));
    return {};
}

/// Letters, digits and lines alone.
QString plain(QString name)
{
    for (QChar &c : name)
        if (!c.isLetterOrNumber() && c != '.' && c != '_') c = '-';
    return name;
}

QString keptName(const Soak &soak, size_t at)
{
    return plain(QStringLiteral("f%1_%2_%3.jpg")
                     .arg(at, 5, 10, QLatin1Char('0'))
                     .arg(soak.samples[at].kind, QFileInfo(soak.samples[at].source).completeBaseName()));
}

/// Removes what an earlier soak kept there, and nothing else that the folder may hold.
void forgetKept(const QString &folder)
{
    const QDir kept(folder);
    for (const QString &name : kept.entryList({"f[0-9][0-9][0-9][0-9][0-9]_*.jpg"}, QDir::Files))
        QFile::remove(kept.filePath(name));
}

/// Damaged files and nothing else, for whoever wants to look at them.
int makeFiles(const Soak &soak, const QString &folder)
{
    if (!QDir().mkpath(folder)) fail(QStringLiteral("'%1' can't be made").arg(folder));
    for (size_t i = 0; i < soak.samples.size(); ++i) {
        QFile file(folder + "/" + keptName(soak, i));
        if (!file.open(QIODevice::WriteOnly) || file.write(soak.samples[i].bytes) != soak.samples[i].bytes.size())
            fail(QStringLiteral("'%1' can't be written").arg(file.fileName()));
    }
    return 0;
}

bool isWorthKeeping(const Soak &soak, size_t at, bool lost)
{
    const Measured &measured = soak.measured[at];
    if (!measured.mishaps.isEmpty() || !measured.differing.isEmpty() || isRegression(measured)) return true;
    if (soak.samples[at].kind == "intact") return measured.salvaged;
    return lost && !measured.of(Way::Both).rescued();
}

/// Runs all groups with several threads, each of which waits for its processes.
void measureAll(Soak &soak, const Wishes &wishes, const QString &folder)
{
    const int total = int(soak.samples.size());
    soak.measured.resize(soak.samples.size());
    std::atomic<int> next = 0;
    std::mutex mutex;
    int done = 0;
    const auto work = [&] {
        for (int first = next.fetch_add(kGroup); first < total; first = next.fetch_add(kGroup)) {
            const int end = std::min(total, first + kGroup);
            const std::vector<Sample> group(soak.samples.begin() + first, soak.samples.begin() + end);
            const QString place = QStringLiteral("%1/%2").arg(folder).arg(first);
            auto measured = measure(wishes.programs, group, first, place);
            const std::lock_guard lock(mutex);
            std::move(measured.begin(), measured.end(), soak.measured.begin() + first);
            for (int at = first; at < end; ++at) {
                if (!isWorthKeeping(soak, size_t(at), wishes.lost)) continue;
                QDir().mkpath(wishes.keep);
                QFile::rename(soak.measured[size_t(at)].path, wishes.keep + "/" + keptName(soak, size_t(at)));
            }
            QDir(place).removeRecursively();
            done += end - first;
            if (isatty(STDERR_FILENO) == 1) QTextStream(stderr) << '\r' << done << " of " << total << "  " << Qt::flush;
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < wishes.jobs; ++i) threads.emplace_back(work);
    for (std::thread &thread : threads) thread.join();
    if (isatty(STDERR_FILENO) == 1) QTextStream(stderr) << '\n';
}

} // namespace

int main(int argc, char **argv)
{
    // Most of the files are broken, and every decoder says so.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtFatalMsg || type == QtCriticalMsg) fprintf(stderr, "soak: %s\n", qPrintable(text));
    });
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--alone" && arguments.value(2) == "--work") {
        runAlone(arguments.value(3), arguments.mid(4));
        return 0;
    }
    const Wishes wishes = wishesOf(application);
    QElapsedTimer clock;
    clock.start();
    const SourceSet set(wishes.set, wishes.jobs);
    if (set.size() == 0) fail(QStringLiteral("no healthy photograph below '%1'").arg(wishes.set));
    Soak soak;
    soak.samples = set.damaged(wishes.count, wishes.seed, kindsOf(wishes));
    for (Sample &sample : set.intact(wishes.intact, wishes.seed)) soak.samples.push_back(std::move(sample));
    if (!wishes.makeOnly.isEmpty()) return makeFiles(soak, wishes.makeOnly);
    soak.tried[size_t(Way::Alone)] = !wishes.programs.alone.isEmpty();
    soak.tried[size_t(Way::Ffmpeg)] = !wishes.programs.ffmpeg.isEmpty();
    soak.tried[size_t(Way::Djpeg)] = !wishes.programs.djpeg.isEmpty();
    forgetKept(wishes.keep);
    const QTemporaryDir folder;
    measureAll(soak, wishes, folder.path());

    QTextStream out(stdout);
    out << "Seed " << wishes.seed << ", " << set.size() << " healthy files of '" << wishes.set << "' ("
        << set.passedOver() << " passed over)\n";
    printReport(soak, out);
    if (wishes.lost) printLost(soak, out);
    out << "Took " << clock.elapsed() / 1000 << " s with " << wishes.jobs << " jobs\n";
    return 0;
}
