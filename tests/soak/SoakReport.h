// The table of a soak and the lists below it.
#pragma once

#include "soak/Measure.h"

#include <QTextStream>

namespace soak {

struct Soak
{
    std::vector<Sample> samples; ///< their bytes aren't needed any more
    std::vector<Measured> measured;
    std::array<bool, kWays> tried{true, true, true, false, false};
};

/// By kind: the number of files and how many each way rescued; then totals, shares, times, certainties, regressions.
void printReport(const Soak &soak, QTextStream &out);
/// A line for each damaged file that told then salvage doesn't rescue.
void printLost(const Soak &soak, QTextStream &out);

/// Told rescued it, told then salvage doesn't.
bool isRegression(const Measured &measured);
/// For lists: the number in the soak, the kind, the source.
QString nameOf(const Soak &soak, size_t at);

} // namespace soak
