// The search for the header by which a baseline scan decodes to its end.
#pragma once

#include "salvage/search/Draft.h"

#include <optional>
#include <set>

namespace salvage {

/// A header and how far the data go with it.
struct Solution
{
    Header header;
    Fit fit;
    std::set<Step> steps;
    bool sizeFound = false;   ///< the size isn't the frame's
    bool sizeByCount = false; ///< and no header gives it: it is what the number of MCUs and the looks speak for
};

/// Tables for each key, one combination of the options.
using TableChoice = std::map<HuffmanKey, HuffmanTable>;
/// Combinations of the draft's options, the first choices first, at most 48.
std::vector<TableChoice> tableChoices(const Draft &draft);

/// The entropy data of a baseline scan, with the codes that can't stand in it mended.
struct ScanData
{
    QByteArray bytes;
    ByteView raw;             ///< the same as the file has it
    size_t offset = 0;        ///< in the file
    bool hasRestarts = false; ///< restart markers were left in
    int codesMended = 0;
};
ScanData takeScanData(ByteView file, const Scan &scan, const Draft &draft, const Budget &budget = Budget());

/// The header by which the data are used up, or else the one that gets furthest: tables, interval, samplings, size, spoilt
/// symbols, the number of MCUs, tried in this order. Nothing where no header can be made. Quantization is left alone.
std::optional<Solution> solveBaseline(const Draft &draft, const ScanData &data, const KnownTables &known,
                                      Budget &budget);

/// The size from the number of MCUs that the data hold, for each usual sampling. Nothing where no count is right.
std::optional<Solution> solveByCount(const Draft &draft, const ScanData &data, const std::vector<TableChoice> &choices,
                                     Budget &budget);

} // namespace salvage
