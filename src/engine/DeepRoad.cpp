#include "engine/DeepRoad.h"

#include "app/StopFlag.h"
#include "app/WorkingRoot.h"
#include "engine/Judge.h"
#include "engine/OutputRows.h"
#include "engine/WholeFile.h"
#include "engine/Wholeness.h"
#include "salvage/Salvage.h"
#include "salvage/Transfer.h"
#include "save/ScratchFile.h"
#include "tables/TableLibrary.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <new>

namespace {

/// By its name, or by its bytes under another format's name.
bool isJpeg(const FileOutcome &outcome)
{
    const QString suffix = QFileInfo(outcome.source).suffix().toUpper();
    if (suffix == QLatin1String("JPG") || suffix == QLatin1String("JPEG")) return true;
    return outcome.report.trueFormat == QLatin1String("JPEG");
}

/// The main image among the outputs, nullptr if there is none.
const OutputReport *mainOutput(const FileOutcome &outcome)
{
    const auto &outputs = outcome.report.outputs;
    const auto found = std::find_if(outputs.begin(), outputs.end(), [](const OutputReport &output) {
        return !isThumbnailName(output.name) && QFileInfo::exists(output.path);
    });
    return found == outputs.end() ? nullptr : &*found;
}

salvage::KnownTables tablesOf(const TableLibrary &library)
{
    std::vector<QByteArray> dht;
    for (const HuffmanRow &row : library.huffmanRows()) dht.push_back(row.segment);
    std::vector<QByteArray> dqt;
    for (int family = 0; family < kQuantizationFamilies; ++family)
        for (int kind = 0; kind < kQuantizationKinds; ++kind)
            for (const QuantizationRow &row :
                 library.quantizationRows(QuantizationFamily(family), QuantizationKind(kind)))
                dqt.push_back(row.segment);
    return {dht, dqt};
}

} // namespace

const salvage::KnownTables &knownTables()
{
    static const salvage::KnownTables known = tablesOf(TableLibrary::builtIn());
    return known;
}

const char *wordOf(salvage::Step step)
{
    switch (step) {
    case salvage::Step::TransferUndone: return "transfer undone";
    case salvage::Step::ScanFound: return "scan found";
    case salvage::Step::FrameMended: return "frame mended";
    case salvage::Step::IntervalFound: return "interval found";
    case salvage::Step::TablesKnown: return "tables known";
    case salvage::Step::CountsMended: return "counts mended";
    case salvage::Step::SymbolsSearched: return "symbols searched";
    case salvage::Step::SizeFound: return "size found";
    case salvage::Step::Quantization: return "quantization";
    case salvage::Step::CodesMended: return "codes mended";
    case salvage::Step::HitsRepaired: return "hits repaired";
    case salvage::Step::Resynchronised: return "interval resynchronised";
    case salvage::Step::Realigned: return "realigned";
    }
    return "";
}

const char *wordOf(salvage::Certainty certainty)
{
    switch (certainty) {
    case salvage::Certainty::Guess: return "guess";
    case salvage::Certainty::Likely: return "likely";
    case salvage::Certainty::Exact: return "exact";
    }
    return "";
}

namespace {

/// True if `told`, the main output, leaves something to be wished for.
bool leavesToBeDone(const OutputReport *output, const QByteArray &told, const QByteArray &source,
                    salvage::Budget &budget)
{
    if (!output || told.isEmpty()) return true;
    const salvage::Reading reading = salvage::readAsItStands(salvage::view(told), knownTables(), budget);
    if (!reading.clean()) return true;
    // The second way takes what it finds first, which may be a thumbnail.
    constexpr int kThumbnailSide = 320;
    return output->way == RepairWay::SecondWay
        && (std::max(reading.width, reading.height) <= kThumbnailSide || source.size() > 2 * told.size());
}

bool isFlawless(const Verdict &verdict)
{
    return verdict.decodes && verdict.warnings.isEmpty();
}

bool writeWhole(const QString &path, const QByteArray &bytes)
{
    FILE *file = createOutput(path);
    if (!file) return false;
    writeBytes(file, bytes.constData(), bytes.size());
    return closeFile(file);
}

} // namespace

DeepRoad::DeepRoad(const QStringList &sources)
{
    for (const QString &source : sources) m_sourceNames.insert(QFileInfo(source).fileName().toLower());
}

QString DeepRoad::freeName(const QString &source) const
{
    // The working name, so that two sources of one name have two salvaged pictures.
    const QString base =
        fittingName({}, QFileInfo(workingName(source)).completeBaseName() + QLatin1String("_salvaged.jpg"));
    QString name = base;
    for (int n = 1; m_sourceNames.contains(name.toLower()) || QFileInfo::exists(pApp->strTempDir + name); ++n)
        name = fittingName(QStringLiteral("Copy(%1)_").arg(n), base);
    return outputName(source, name);
}

void DeepRoad::run(FileOutcome &outcome, const std::function<void()> &began)
{
    try {
        salvageSource(outcome, began);
    } catch (const std::bad_alloc &) {
        outcome.report.salvage.passedOver = QStringLiteral("too-large");
    }
}

void DeepRoad::salvageSource(FileOutcome &outcome, const std::function<void()> &began)
{
    SalvageReport &report = outcome.report.salvage;
    if (!isJpeg(outcome) || stopRequested()) return;
    QElapsedTimer clock;
    clock.start();
    if (QFileInfo(outcome.source).size() > kFileLimit) {
        report.passedOver = QStringLiteral("too-large");
        return;
    }
    QByteArray source = readWhole(outcome.source, kFileLimit);
    if (source.isEmpty()) return;
    const bool undone = salvage::undoTextTransfer(source);

    salvage::Budget budget(stopRequested);
    const salvage::ByteView bytes = salvage::view(source);
    const OutputReport *output = mainOutput(outcome);
    salvage::Reading reading = salvage::readAsItStands(bytes, knownTables(), budget);
    if (undone) reading.readable = false; // as it is now, but not as it stands on the disk
    // Where nothing came out of a source that reads well, or something else than its picture, the toolkit's decoder has
    // found something to blame.
    const bool byMainWay = output && output->way != RepairWay::SecondWay;
    if (reading.clean() && (byMainWay || (reading.ended && isFlawless(judgeJpeg(outcome.source))))) return;
    const QByteArray told = output ? readWhole(output->path, kFileLimit) : QByteArray();
    // Other tables in the place of damaged ones make a file that reads well, whether they are the right ones or not.
    if (!undone && !reading.roughTables && !leavesToBeDone(output, told, source, budget)) return;

    report.ran = true;
    if (began) began();
    auto found = salvage::salvage(bytes, knownTables(), budget);
    if (found && undone) found->steps.insert(found->steps.begin(), salvage::Step::TransferUndone);
    if (found && !budget.stopped() && salvage::worthShowing(*found, salvage::view(told), bytes, knownTables(), budget))
        keep(outcome, *found);
    report.milliseconds = clock.elapsed();
}

void DeepRoad::keep(FileOutcome &outcome, const salvage::Result &found) const
{
    SalvageReport &report = outcome.report.salvage;
    const QString name = freeName(outcome.source);
    const QString path = pApp->strTempDir + name;
    if (!writeWhole(path, found.file)) {
        dropFile(path);
        return;
    }
    const Verdict verdict = judgeJpeg(path);
    if (!verdict.decodes) {
        dropFile(path);
        return;
    }
    report.name = name;
    report.path = path;
    report.size = verdict.size;
    report.icon = verdict.icon;
    report.wholeness = wholenessOf(path, verdict);
    for (const salvage::Step step : found.steps) report.steps.append(QString::fromLatin1(wordOf(step)));
    report.certainty = QString::fromLatin1(wordOf(found.certainty));
}
