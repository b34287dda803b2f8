// Inputs of the benchmarks, made once for each process.
#pragma once

#include <QString>

/// An intact JPEG of about 100 MB (2 MB where KESMIRA_BENCH_SMALL is set): a real head, entropy data with stuffed zeros
/// and restart markers as an encoder leaves them, and an end.
QString largeJpeg();
/// A photograph-like JPEG of 12 megapixels and about 4 MB (0.1 megapixels where KESMIRA_BENCH_SMALL is set).
QString photograph();
/// A private folder for roots and outputs of the process.
QString benchFolder();
