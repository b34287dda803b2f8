// Deep salvage behind the road of one file: whether it runs, its output, and what is reported of it.
#pragma once

#include "engine/OneFile.h"

#include <QSet>
#include <QStringList>

#include <functional>

namespace salvage {
class KnownTables;
struct Result;
enum class Certainty;
enum class Step;
} // namespace salvage

/// The tables that salvage knows: those of the built-in library. Read at the first call; lives as long as the program.
const salvage::KnownTables &knownTables();

/// The words of a report, the same in every language.
const char *wordOf(salvage::Step step);
const char *wordOf(salvage::Certainty certainty);

/// One for each run. With it the outputs and rows of the other ways stay as they are; a salvaged picture stands beside
/// them.
class DeepRoad
{
public:
    /// Files above this size, in bytes, are passed over.
    static constexpr qint64 kFileLimit = qint64(256) << 20;

    /// `sources` are the paths of the whole run: a salvaged picture takes no name that one of them has.
    explicit DeepRoad(const QStringList &sources);

    /// Salvages the source of `outcome`, which repairOneFile has just handed back: a JPEG that doesn't decode without an
    /// error as it stands, and whose main output is missing or a thumbnail, has missing rows, an error in its entropy
    /// data or a quantization table that looks damaged; also one whose own tables do, or that went through a transfer in
    /// text mode, since the others may have put wrong bytes there that read well. A picture that is better than the main output is written to
    /// `<base>_salvaged.jpg` in the working folder, judged, and entered in `outcome.report.salvage`; makeRows gives it a
    /// row of type "Salvaged". Asks stopRequested() all along; takes 12 s at the most. Never throws, never writes the
    /// source.
    /// `began`, if given, is called once, on the same thread, when the salvage itself begins; not for a file that needs
    /// none.
    void run(FileOutcome &outcome, const std::function<void()> &began = {});

private:
    void salvageSource(FileOutcome &outcome, const std::function<void()> &began);
    QString freeName(const QString &source) const;
    void keep(FileOutcome &outcome, const salvage::Result &found) const;

    QSet<QString> m_sourceNames; ///< in lower case
};
