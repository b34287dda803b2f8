// The real window with many files: how long adding them takes, and what a run costs the main thread for each row while
// the engine's own work is next to nothing. Prints seconds, milliseconds a row, and the longest time for which the window
// did not answer.
#include "MainThreadMeter.h"

#include "desktop/Look.h"
#include "tables/TableLibrary.h"
#include "window/Photos.h"
#include "window/WindowRoom.h"

#include <QElapsedTimer>
#include <QEventLoop>

#include <benchmark/benchmark.h>

namespace {

int rowCount()
{
    return qEnvironmentVariableIsSet("KESMIRA_BENCH_SMALL") ? 20 : 2000;
}

MainThreadMeter &meter()
{
    return *static_cast<MainThreadMeter *>(QCoreApplication::instance());
}

QStringList manySources(const WindowRoom &room, const QByteArray &bytes)
{
    QStringList paths;
    for (int i = 0; i < rowCount(); ++i)
        paths << room.source(QStringLiteral("IMG_%1.JPG").arg(i, 5, 10, QChar('0')), bytes);
    return paths;
}

void printMeter(benchmark::State &state)
{
    state.counters["main_thread_ms_a_row"] = meter().busySeconds() * 1e3 / rowCount();
    state.counters["longest_ms"] = meter().longestMs();
    state.counters["longest_cpu_ms"] = meter().longestProcessorMs();
    state.SetLabel(meter().longestEvent().toStdString());
}

void addFiles(benchmark::State &state)
{
    for (auto _ : state) {
        WindowRoom room;
        const QStringList paths = manySources(room, {});
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        room.add(paths);
        QCoreApplication::processEvents(); // and shown
        state.SetIterationTime(double(clock.nsecsElapsed()) * 1e-9);
        if (room.list()->topLevelItemCount() != rowCount()) state.SkipWithError("not all were taken");
    }
}

void wholeRun(benchmark::State &state, const QByteArray &bytes, int rowsForEach)
{
    for (auto _ : state) {
        WindowRoom room;
        room.add(manySources(room, bytes));
        QCoreApplication::processEvents();
        QEventLoop untilDone;
        QObject::connect(room.window.get(), &BrowseRepair::workerLeft, &untilDone, &QEventLoop::quit);
        room.script.expect("CompletionMsg", "OkBtn");
        QElapsedTimer clock;
        clock.start();
        meter().reset();
        room.click("StartRepairFilesBtn");
        untilDone.exec();
        QCoreApplication::processEvents(); // the last look of the page
        state.SetIterationTime(double(clock.nsecsElapsed()) * 1e-9);
        printMeter(state);
        const bool whole = room.rows().size() == rowCount() * rowsForEach && room.complaint().isEmpty();
        if (!whole) state.SkipWithError("the run went another way");
    }
}

void runOfEmptyFiles(benchmark::State &state)
{
    wholeRun(state, {}, 1);
}

void runWithOutputs(benchmark::State &state)
{
    wholeRun(state, photos::plain(), 2);
}

} // namespace

// Once is enough: each makes thousands of files first.
BENCHMARK(addFiles)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK(runOfEmptyFiles)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK(runWithOutputs)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    MainThreadMeter application(argc, argv);
    look::apply(application);
    checkBuiltInTables();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
