// One damaged file through all ways, and what came out.
#pragma once

#include "soak/Comparison.h"
#include "soak/SourceSet.h"

#include <QString>
#include <QStringList>

#include <array>

namespace soak {

enum class Way { Told, Alone, Both, Ffmpeg, Djpeg };
constexpr int kWays = 5;
constexpr std::array<const char *, kWays> kWayNames = {"told", "salvage alone", "told then salvage", "ffmpeg", "djpeg"};

struct Measured
{
    QString path; ///< of the damaged file
    std::array<Comparison, kWays> ways;
    bool salvageRan = false;
    bool salvaged = false; ///< a salvaged picture stood beside the told ones
    QStringList steps;     ///< of the salvaged picture; else of the salvage alone
    QString certainty;     ///< likewise
    QString aloneCertainty;
    qint64 milliseconds = -1; ///< of the salvage behind the told ways, -1 if it didn't run
    qint64 aloneMilliseconds = -1;
    QStringList differing; ///< told outputs that aren't the same with salvage switched on
    QStringList mishaps;   ///< crashes and hangs, in words

    const Comparison &of(Way way) const { return ways[size_t(way)]; }
    Comparison &of(Way way) { return ways[size_t(way)]; }
};

/// The programs; an empty path is a way that isn't tried.
struct Programs
{
    QString batch;
    QString alone; ///< takes `--alone --work DIR FILES...`, see runAlone()
    QString ffmpeg;
    QString djpeg;
};

/// Writes `samples` to `folder`, runs all ways over them as one group and compares. The damaged files and, for a
/// file that wasn't rescued, nothing else stay in `folder`. `first` is the number of the first of `samples` in the soak.
std::vector<Measured> measure(const Programs &programs, const std::vector<Sample> &samples, int first,
                              const QString &folder);

/// Salvages each of `files` whether or not it needs it, in this process. Writes what comes out to `folder` under the
/// file's name and prints a line of JSON for each: source, gave, steps, certainty, milliseconds.
void runAlone(const QString &folder, const QStringList &files);

} // namespace soak
