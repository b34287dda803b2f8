#include "salvage/Salvage.h"

#include "salvage/EighthBit.h"
#include "salvage/OnePicture.h"
#include "salvage/entropy/PictureReader.h"
#include "salvage/picture/Mending.h"
#include "salvage/tables/Quantization.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

/// Mean difference of the luminance of two pictures of one size, in levels.
double meanDifference(const Plane &first, const Plane &second)
{
    if (first.width != second.width || first.height != second.height || first.samples.empty()) return 255;
    double sum = 0;
    for (size_t i = 0; i < first.samples.size(); ++i) sum += std::abs(first.samples[i] - second.samples[i]);
    return sum / double(first.samples.size());
}

/// The output of another way, or a salvage, taken apart for a comparison.
struct Opened
{
    Header header;
    ByteView data;
    Reading reading;

    static Opened open(ByteView file, const KnownTables &known, Budget &budget)
    {
        Opened opened;
        opened.reading = readAsItStands(file, known, budget);
        size_t dataAt = 0;
        if (const auto header = readHeader(file, dataAt)) opened.header = *header;
        opened.data = slice(file, dataAt, file.size());
        return opened;
    }
    bool comparable() const
    {
        const auto has = [this](const Component &each) { return header.quant.count(each.quant) > 0; };
        return reading.readable && std::all_of(header.components.begin(), header.components.end(), has);
    }
    /// True where its coefficients may be held, too.
    bool canBeSeen() const { return comparable() && header.fitsMemory(); }
    Coefficients picture(Budget &budget) const { return pictureAsShown(header, data, budget); }
    Plane luminance(Budget &budget) const
    {
        return renderPlane(picture(budget), 0, header.quant.at(header.components[0].quant), header);
    }
    quint64 pixels() const { return quint64(reading.width) * reading.height; }
};

BorderSteps stepsOf(const Opened &opened, Budget &budget)
{
    const Coefficients picture = opened.picture(budget);
    return borderSteps(picture, opened.header, picture.mcusHigh);
}

bool has(const Result &result, Step step)
{
    return std::find(result.steps.begin(), result.steps.end(), step) != result.steps.end();
}

/// True where the components have the same quantization tables.
bool sameTables(const Header &a, const Header &b)
{
    return std::equal(
        a.components.begin(), a.components.end(), b.components.begin(), b.components.end(),
        [&](const Component &one, const Component &other) { return a.quant.at(one.quant) == b.quant.at(other.quant); });
}

bool worthInAnotherSize(const Result &result, const Opened &told, int toldBytes)
{
    const quint64 pixels = quint64(result.width) * result.height;
    if (!result.perfect) return false;
    // A preview in the place of the picture.
    const bool toldIsSmall = result.file.size() > 2 * toldBytes || pixels >= 4 * told.pixels();
    if (pixels > told.pixels() && toldIsSmall) return true;
    return told.reading.errors && !told.reading.progressive && told.reading.share < 0.5 && !result.sizeFound;
}

/// Both are clean and of one size: the tables decide.
bool worthAsClean(const Result &result, const Opened &own, const Opened &told, Budget &budget)
{
    if (!result.perfect || !own.canBeSeen() || !told.canBeSeen()) return false;
    // Tables that look damaged and stayed for want of better ones are no gain.
    if (own.reading.roughTables && !told.reading.roughTables) return false;
    const bool quantMended = has(result, Step::Quantization);
    // The other ways know tables too, and may have made the same picture.
    if (!quantMended || sameTables(own.header, told.header))
        return meanDifference(own.luminance(budget), told.luminance(budget)) > 0.5;
    if (result.quantSure) return true;
    const BorderSteps mine = stepsOf(own, budget);
    const BorderSteps theirs = stepsOf(told, budget);
    return mine.luminance + 0.3 * mine.chrominance < theirs.luminance + 0.3 * theirs.chrominance;
}

} // namespace

Reading readAsItStands(ByteView file, const KnownTables &known, Budget &budget)
{
    Reading reading;
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(file, dataAt);
    if (!header) return reading;
    reading.width = header->width;
    reading.height = header->height;
    reading.progressive = header->progressive();
    const auto hasQuant = [&](const Component &each) { return header->quant.count(each.quant) > 0; };
    reading.readable = std::all_of(header->components.begin(), header->components.end(), hasQuant);
    if (!reading.readable) return reading;
    reading.roughTables = quantLooksDamaged(*header, known);
    const bool oneScan = !header->progressive() && header->scan.size() == header->components.size();
    if (oneScan) {
        const size_t end = nextMarker(file, dataAt);
        const Fit fit = decode(*header, slice(file, dataAt, end), budget);
        reading.share = double(fit.done) / double(std::max(1U, fit.total));
        reading.ended = end + 1 < file.size() && file[end + 1] == 0xD9;
        // Data that happen to end in front of a stray marker go on behind it.
        const bool broken = end + 1 < file.size() && !reading.ended;
        reading.errors = fit.perfect && !broken ? 0 : 1;
        return reading;
    }
    const ScansReading scans = readScans(*header, slice(file, dataAt, file.size()), budget);
    reading.share = scans.share();
    reading.errors = scans.errors + (scans.complete ? 0 : 1);
    const size_t end = dataAt + scans.end;
    reading.ended = end + 1 < file.size() && file[end] == 0xFF && file[end + 1] == 0xD9;
    return reading;
}

std::optional<Result> salvage(ByteView file, const KnownTables &known, Budget &budget)
{
    if (const auto restored = restoreEighthBits(file, known, budget)) {
        std::optional<Result> result = salvage(view(*restored), known, budget);
        if (!result) return result;
        result->steps.insert(result->steps.begin(), Step::TransferUndone);
        // A run of zeros that was taken for another one leaves the data readable.
        result->certainty = std::min(result->certainty, Certainty::Likely);
        return result;
    }
    constexpr double kEnough = 0.9;    // a picture of which so much was read is the one that was looked for
    constexpr double kWorthATry = 0.3; // of the first candidate's data
    std::optional<Result> best;
    size_t first = 0;
    for (const Candidate &candidate : chooseScans(file, known, budget)) {
        const size_t bytes = candidate.chain.end - candidate.scan.start;
        if (first == 0) first = bytes;
        if (best && (best->share > kEnough || double(bytes) < kWorthATry * double(first))) break;
        if (budget.spent()) break;
        std::optional<Result> result = salvageOne(file, candidate, known, budget);
        if (result && (!best || result->share > best->share)) best = std::move(result);
    }
    if (budget.stopped()) return std::nullopt;
    return best;
}

bool worthShowing(const Result &result, ByteView told, ByteView source, const KnownTables &known, Budget &budget)
{
    if (told.empty()) return true;
    const ByteView bytes = view(result.file);
    if (std::equal(told.begin(), told.end(), bytes.begin(), bytes.end())) return false;
    const Opened theirs = Opened::open(told, known, budget);
    const Opened own = Opened::open(bytes, known, budget);
    if (!theirs.comparable()) return result.share > 0.05;
    const bool toldIsSource = told.size() == source.size() && std::equal(told.begin(), told.end(), source.begin());
    const quint32 errors = theirs.reading.errors;
    if (errors && !result.realigned && own.reading.errors == 0
        && double(result.file.size()) >= 0.9 * double(told.size()))
        return true;
    if (theirs.reading.width != result.width || theirs.reading.height != result.height)
        return worthInAnotherSize(result, theirs, int(told.size()));
    // A realigned one looks better than the data as they stand, or it wouldn't be there.
    if (result.realigned) return errors > 0;
    if (errors) {
        return result.share >= 0.5 && (own.reading.errors < errors || own.reading.share > theirs.reading.share + 0.02);
    }
    if (toldIsSource && !has(result, Step::Quantization)) return false;
    return worthAsClean(result, own, theirs, budget);
}

} // namespace salvage
