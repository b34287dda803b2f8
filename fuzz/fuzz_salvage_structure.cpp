// The parts of a damaged file as a salvage sees them: bodies, tables, segments, scans, the draft of a header. Whatever the
// bytes are, nothing reaches out of the file, overlaps or goes backwards.
// By hand: build/fuzz/fuzz/fuzz_salvage_structure -max_len=3000 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "engine/DeepRoad.h"
#include "salvage/search/Draft.h"
#include "salvage/structure/SegmentList.h"
#include "salvage/structure/Structure.h"
#include "salvage/tables/KnownTables.h"

#include <set>

using namespace salvage;

namespace {

bool isWithin(ByteView part, ByteView file)
{
    return part.empty() || (part.data() >= file.data() && part.data() + part.size() <= file.data() + file.size());
}

void checkBody(ByteView body)
{
    for (const double score : {sosScore(body), sofScore(body), dqtScore(body), dhtScore(body, knownTables())})
        demand(score >= 0 && score <= 1, "a score beyond 0 to 1");
    size_t behind = 0;
    for (const PlacedTable &each : soundTables(body)) {
        demand(each.begin >= behind && each.end <= body.size(), "tables overlap or reach out of the body");
        demand(each.end - each.begin == 17 + each.table.symbols.size(), "a table isn't as long as its symbols");
        behind = each.end;
    }
    for (const bool progressive : {false, true}) {
        const DhtReading reading = readDht(body, progressive);
        size_t bytes = 0;
        for (const ReadTable &each : reading.tables) {
            demand(int(each.table.symbols.size()) == symbolCount(each.table.counts), "counts and symbols disagree");
            demand(stateOf(each.key, each.table, progressive) == each.state, "not the state of the table");
            bytes += 17 + each.table.symbols.size();
        }
        for (const ByteView gap : reading.gaps) {
            demand(isWithin(gap, body), "a gap reaches out of the body");
            for (const KeyedOption &option : readingsOf(gap, knownTables()))
                demand(option.option.table.symbols.size() + 17 == gap.size(),
                       "a reading of another length than its gap");
            bytes += gap.size();
        }
        demand(bytes <= body.size(), "a byte belongs to two tables");
        if (reading.tables.empty()) continue;
        // One of them: the order of the symbols takes the square of their number.
        const ReadTable &last = reading.tables.back();
        const Doubt doubt = doubtIn(last.key, last.table, progressive);
        demand(doubt.doubtful.size() == last.table.symbols.size(), "doubts about symbols that aren't there");
    }
}

void checkSegments(ByteView file)
{
    size_t behind = 0;
    for (const Segment &each : walkSegments(file, 0, file.size())) {
        // A marker without its FF begins with the last byte of what stands in front of it.
        demand(each.begin + 1 >= behind && each.begin < behind + 4 && each.end > each.begin,
               "segments overlap or leave holes");
        demand(isWithin(each.body, file) && each.end <= file.size(), "a segment reaches out of the file");
        behind = each.end;
    }
    demand(file.size() - behind < 4, "the walk stops early");
    for (const Segment &each : gatherSegments(file, 0, file.size(), knownTables()))
        demand(each.begin < each.end && each.end <= file.size() && isWithin(each.body, file), "a gathered one does");
}

void checkDraft(ByteView file, const Candidate &candidate)
{
    const Draft draft = draftHeader(file, candidate, knownTables());
    const Header &header = draft.header;
    demand(!header.scan.empty() && header.scan.size() <= 4 && header.components.size() <= 4, "no scan");
    demand(header.components.empty() != draft.hasFrame, "components and frame disagree");
    for (const auto &[key, options] : draft.options)
        demand(!options.empty() && header.huffman.at(key) == options.front().table, "not the first choice");
    for (const auto &[key, table] : draft.quant) demand(key < 4, "a number that no component can name");
    for (const PictureSize &size : draft.exifSizes) demand(size.width && size.height, "an empty size");
    for (const QByteArray &app : header.apps)
        demand(app.size() >= 4 && wordAt(view(app), 2) == app.size() - 2, "not a whole segment");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ByteView file(data, size);
    checkBody(slice(file, 0, 1500));
    for (size_t at = 0, n = 0; at + 4 < size && n < 6; ++at) {
        if (data[at] != 0xFF || !isHeaderMarker(data[at + 1])) continue;
        checkBody(slice(file, at + 4, at + 2 + wordAt(file, at + 2)));
        ++n;
    }
    checkSegments(file);

    Budget budget;
    std::set<size_t> starts;
    for (const Scan &scan : findScans(file, budget)) {
        demand(scan.at <= scan.start && scan.start <= scan.end && scan.end <= size, "a scan reaches out of the file");
        demand(starts.insert(scan.start).second, "a scan is found twice");
        demand(isWithin(scan.body, file) && scan.score >= 0 && scan.score <= 1, "a scan header that isn't one");
    }
    const std::vector<Candidate> candidates = chooseScans(file, knownTables(), budget);
    demand(candidates.size() <= 3, "too many to try");
    for (const Candidate &each : candidates) {
        demand(each.headerFrom <= each.scan.at && each.scan.start < each.scan.end, "no room for header and data");
        demand(each.scan.end <= each.chain.end && each.chain.end <= size, "the picture ends in its first scan");
        checkDraft(file, each);
    }
    return 0;
}
