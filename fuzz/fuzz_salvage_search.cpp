// A whole salvage with little time. Whatever comes out is a JPEG that reads as the result says.
// By hand: build/fuzz/fuzz/fuzz_salvage_search -max_len=15000 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "engine/DeepRoad.h"
#include "salvage/Salvage.h"
#include "salvage/entropy/PictureReader.h"

using namespace salvage;

namespace {

constexpr int kMilliseconds = 50;
constexpr int kDecodes = 60;

void checkResult(const Result &result)
{
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(view(result.file), dataAt);
    demand(header.has_value(), "the header doesn't parse");
    demand(header->width == result.width && header->height == result.height, "another size in the file");
    demand(result.file.endsWith("\xFF\xD9"), "no end");
    demand(result.share >= 0 && result.share <= 1, "more than everything was read");
    Budget budget;
    const Reading reading = readAsItStands(view(result.file), knownTables(), budget);
    demand(reading.readable, "a component without a table");
    if (result.perfect && !result.realigned)
        demand(reading.errors == 0 && reading.share == 1, "perfect, but it doesn't read so");
    if (result.certainty == Certainty::Exact) demand(result.perfect, "exact, but not everything was read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    prepareFuzzRun();
    const ByteView file(data, size);
    Budget budget({}, kMilliseconds, kDecodes);
    readAsItStands(file, knownTables(), budget);
    const std::optional<Result> result = salvage::salvage(file, knownTables(), budget);
    if (!result) return 0;
    checkResult(*result);
    demand(worthShowing(*result, {}, file, knownTables(), budget), "better than nothing isn't good enough");
    worthShowing(*result, file, file, knownTables(), budget);
    demand(!worthShowing(*result, view(result->file), file, knownTables(), budget), "better than itself");
    return 0;
}
