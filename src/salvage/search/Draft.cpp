#include "salvage/search/Draft.h"

#include "salvage/search/HuffmanDraft.h"
#include "salvage/structure/SegmentList.h"
#include "salvage/structure/Structure.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <tuple>

namespace salvage {

namespace {

constexpr quint8 kAdobe = 0xEE; // APP14

/// Puts one draft together, part by part, in the order of the functions.
class Drafter
{
public:
    Drafter(ByteView file, const Candidate &candidate, const KnownTables &known, const Budget &budget)
        : m_file(file), m_scan(candidate.scan), m_known(known),
          m_segments(gatherSegments(file, candidate.headerFrom, candidate.scan.at, known, budget))
    {
        draft.severalScans = candidate.chain.scans > 1;
        m_chainProgressive = candidate.chain.progressive;
        draft.exifSizes = exifSizes(file);
    }

    void run()
    {
        takeApps();
        takeScan();
        takeFrame();
        if (m_frame) mendFrame();
        agreeOnScan();
        takeInterval();
        takeHuffman();
        takeQuant();
        addAdobe();
    }

    Draft draft;

private:
    Header &header() { return draft.header; }
    bool spectralIs(quint8 start, quint8 end, quint8 approximation)
    {
        return header().spectral == std::array<quint8, 3>{start, end, approximation};
    }
    /// Segments of a marker, the last some hundred; those of an earlier picture only where no other stands.
    std::vector<const Segment *> segmentsOf(quint8 marker) const;

    void takeApps();
    void takeScan();
    void takeFrame();
    void mendFrame();
    void mendIds();
    void mendFirstScan();
    void agreeOnScan();
    void takeInterval();
    void takeHuffman();
    void takeQuant();
    void takeQuantBody(ByteView body);
    void addAdobe();

    ByteView m_file;
    const Scan &m_scan;
    bool m_chainProgressive = false;
    const KnownTables &m_known;
    std::vector<Segment> m_segments;
    const Segment *m_frame = nullptr;
    std::map<quint8, QuantTable> m_firstQuant; // the first of several tables of one number
};

std::vector<const Segment *> Drafter::segmentsOf(quint8 marker) const
{
    std::vector<const Segment *> all;
    bool ofMain = false;
    for (const Segment &segment : m_segments) {
        if (segment.marker != marker) continue;
        all.push_back(&segment);
        ofMain = ofMain || segment.ofMain;
    }
    if (ofMain) std::erase_if(all, [](const Segment *segment) { return !segment->ofMain; });
    constexpr size_t kMost = 200;
    if (all.size() > kMost) all.erase(all.begin(), all.end() - qptrdiff(kMost));
    return all;
}

void Drafter::takeApps()
{
    constexpr size_t kMost = 40;
    for (const Segment &segment : m_segments) {
        const bool kept = segment.strong && segment.ofMain
            && (segment.marker == 0xFE || (segment.marker > 0 && isApp(quint8(segment.marker))));
        if (!kept || header().apps.size() >= kMost) continue;
        header().apps.push_back(toBytes(slice(m_file, segment.begin, segment.end)));
        header().apps.back()[0] = char(0xFF); // which may be lost
    }
}

void Drafter::takeScan()
{
    const ByteView body = m_scan.body;
    draft.scanDoubtful = body.empty() || m_scan.score < 1 || !m_scan.marked;
    if (draft.scanDoubtful) draft.steps.insert(Step::ScanFound);
    if (body.empty()) return;
    for (size_t at = 1; at + 4 < body.size(); at += 2) header().scan.push_back({body[at], body[at + 1]});
    std::copy(body.end() - 3, body.end(), header().spectral.begin());
}

void Drafter::takeFrame()
{
    const auto rank = [](const Segment &segment) {
        const double score = sofScore(segment.body);
        return std::make_tuple(segment.ofMain, score > 0.9, segment.strong, score, segment.begin);
    };
    for (const Segment &segment : m_segments) {
        if (segment.marker < 0 || !isFrame(quint8(segment.marker)) || segment.body.size() < 9) continue;
        if (!m_frame || rank(segment) > rank(*m_frame)) m_frame = &segment;
    }
    draft.hasFrame = m_frame != nullptr;
    const bool looksProgressive =
        draft.severalScans && (header().spectral[1] == 0 || (draft.scanDoubtful && m_chainProgressive));
    draft.progressive = looksProgressive;
    quint8 marker = 0xC0;
    if (m_frame) {
        const ByteView body = m_frame->body;
        draft.frameFirm = m_frame->strong && m_frame->ofMain && sofScore(body) == 1;
        if (m_frame->strong && isFrame(m_file[m_frame->begin + 1])) marker = m_file[m_frame->begin + 1];
        if (m_frame->strong) draft.progressive = marker == 0xC2;
        header().height = wordAt(body, 1);
        header().width = wordAt(body, 3);
        if (body[0] != 8) draft.steps.insert(Step::FrameMended);
        for (size_t at = 6; at + 2 < body.size() && header().components.size() < 4; at += 3)
            header().components.push_back(
                {body[at], quint8(body[at + 1] >> 4), quint8(body[at + 1] & 15), body[at + 2]});
    }
    if (!m_scan.body.empty() && m_scan.score == 1) {
        if (looksProgressive) draft.progressive = true;
        if (spectralIs(0, 63, 0)) draft.progressive = false;
    }
    if (draft.scanDoubtful && m_chainProgressive) draft.progressive = true;
    header().frame = draft.progressive ? quint8(0xC2) : marker == 0xC2 ? quint8(0xC0) : marker;
}

/// How many of the ids count on from `first`, as encoders give them.
template<typename Parts>
int inTurn(const Parts &parts, size_t first)
{
    int count = 0;
    for (size_t i = 0; i < parts.size(); ++i) count += parts[i].id == first + i;
    return count;
}

template<typename Parts>
int inTurn(const Parts &parts)
{
    return std::max(inTurn(parts, 0), inTurn(parts, 1));
}

/// Sets the components' ids by the scan's, or both to what is usual.
void Drafter::mendIds()
{
    auto &components = header().components;
    auto &scan = header().scan;
    std::set<quint8> ids;
    std::set<quint8> scanIds;
    for (const Component &component : components) ids.insert(component.id);
    for (const ScanComponent &component : scan) scanIds.insert(component.id);
    const bool scanFits = std::includes(ids.begin(), ids.end(), scanIds.begin(), scanIds.end());
    const bool sameCount = scan.size() == components.size();
    const bool scanDiffers = scanIds.size() == scan.size();
    if (ids.size() == components.size() && scanFits && (scanDiffers || !sameCount)) return;
    draft.steps.insert(Step::FrameMended);
    // A frame that is sound in every field stays where the scan isn't. Later scans go by its ids too: of several scans the
    // first may be the one that was hit.
    const bool frameHolds = draft.scanDoubtful ? draft.severalScans || draft.frameFirm
                                               : draft.severalScans && inTurn(components) > inTurn(scan);
    if (sameCount && frameHolds && ids.size() == components.size()) {
        for (size_t i = 0; i < scan.size(); ++i) scan[i].id = components[i].id;
        return;
    }
    if (sameCount && scanDiffers) {
        for (size_t i = 0; i < scan.size(); ++i) components[i].id = scan[i].id;
        return;
    }
    const quint8 first = inTurn(components, 1) >= inTurn(components, 0) ? 1 : 0;
    for (size_t i = 0; i < components.size(); ++i) components[i].id = quint8(first + i);
    for (size_t i = 0; i < scan.size() && scan.size() == components.size(); ++i) scan[i].id = components[i].id;
}

/// Field by field, what can't be becomes what is usual.
void Drafter::mendFrame()
{
    mendIds();
    auto &components = header().components;
    for (size_t i = 1; i < components.size(); ++i) {
        Component &each = components[i];
        if (each.h >= 1 && each.h <= 2 && each.v >= 1 && each.v <= 2) continue;
        each.h = each.v = 1;
        draft.steps.insert(Step::FrameMended);
    }
}

/// The fields of a progressive picture's first scan, which brings levels alone. The scans behind it tell how many bits of them.
void Drafter::mendFirstScan()
{
    auto &spectral = header().spectral;
    if (header().scan.size() > 1 || (spectral[0] == 0 && spectral[1] == 0)) spectral = {0, 0, 0};
    if (spectral[0] != 0) return;
    for (size_t i = 0; i < header().scan.size(); ++i) header().scan[i].tables = quint8(i ? 0x10 : 0x00);
}

/// A scan of all components where the picture comes in one, with a made header where there is none.
void Drafter::agreeOnScan()
{
    auto &scan = header().scan;
    const size_t components = header().components.size();
    const bool oneScan = !draft.progressive && !draft.severalScans;
    // The first scan of a progressive picture gives the levels of all components as a rule.
    if (draft.progressive && draft.scanDoubtful && m_frame) scan.clear();
    if (scan.empty() || (m_frame && scan.size() != components && oneScan)) {
        scan.clear();
        for (size_t i = 0; i < (m_frame ? components : 3); ++i)
            scan.push_back({m_frame ? header().components[i].id : quint8(i + 1), quint8(i ? 0x11 : 0x00)});
        draft.steps.insert(Step::ScanFound);
        draft.scanDoubtful = true;
        if (draft.progressive) header().spectral = {0, 0, 0};
    }
    if (draft.progressive && draft.scanDoubtful) mendFirstScan();
    if (oneScan && !spectralIs(0, 63, 0)) {
        header().spectral = {0, 63, 0};
        draft.steps.insert(Step::FrameMended);
    }
}

void Drafter::takeInterval()
{
    for (const Segment &segment : m_segments)
        if (segment.marker == 0xDD && segment.ofMain && segment.body.size() >= 2)
            header().restartInterval = wordAt(segment.body, 0);
}

void Drafter::takeHuffman()
{
    std::vector<ByteView> bodies;
    for (const Segment *segment : segmentsOf(0xC4)) bodies.push_back(segment->body);
    draftHuffman(draft, bodies, m_known);
}

void Drafter::takeQuant()
{
    for (const Segment *segment : segmentsOf(0xDB)) takeQuantBody(segment->body);
    // Two tables of one number, and one that is missing: the second has lost its own number.
    for (const Component &each : header().components) {
        if (each.quant > 3 || draft.quant.count(each.quant) || m_firstQuant.empty()) continue;
        const auto [key, first] = *m_firstQuant.begin();
        draft.quant[each.quant] = draft.quant[key];
        draft.quant[key] = first;
        m_firstQuant.erase(m_firstQuant.begin());
    }
}

void Drafter::takeQuantBody(ByteView body)
{
    constexpr size_t kTable = 65;
    constexpr size_t kWideTable = 129;
    for (size_t at = 0; at + kTable <= body.size();) {
        quint8 key = body[at];
        QuantTable table{};
        const bool wide = key >> 4 == 1 && (key & 15) < 4 && at + kWideTable <= body.size() && body.size() % kTable;
        if (wide) {
            key &= 15;
            for (size_t i = 0; i < 64; ++i) table[i] = wordAt(body, at + 1 + 2 * i);
            draft.wideQuant.insert(key);
            draft.quant[key] = table;
            at += kWideTable;
            continue;
        }
        std::copy_n(body.begin() + qptrdiff(at) + 1, 64, table.begin());
        const auto place = quint8(at / kTable);
        const bool several = body.size() == 2 * kTable || body.size() == 3 * kTable;
        if (key > 3) {
            key = 0;
            while (key < 3 && draft.quant.count(key)) ++key;
        } else if (draft.quant.count(key) && at && several && !draft.quant.count(place)) {
            key = place; // a spoilt number that another table of the segment has
        }
        draft.wideQuant.erase(key);
        if (draft.quant.count(key) && draft.quant[key] != table) m_firstQuant.emplace(key, draft.quant[key]);
        draft.quant[key] = table;
        at += kTable;
    }
}

/// Four components without Adobe's segment would be taken for YCCK or CMYK by chance.
void Drafter::addAdobe()
{
    const auto &components = header().components;
    if (components.size() != 4) return;
    for (const QByteArray &app : header().apps)
        if (quint8(app[1]) == kAdobe) return;
    const bool sampled = components[1].h != components[0].h || components[1].v != components[0].v;
    header().apps.push_back(QByteArray("\xFF\xEE\0\x0E"
                                       "Adobe\0\x64\0\0\0\0",
                                       15)
                            + char(sampled ? 2 : 0));
}

bool isEntry(ByteView file, size_t at, quint8 tag, bool little)
{
    const ByteView entry = slice(file, at, at + 12);
    if (entry.size() < 12) return false;
    const auto typeIsNumber = [](quint8 type) { return type == 3 || type == 4; };
    if (little)
        return entry[0] == tag && entry[1] == 0xA0 && typeIsNumber(entry[2]) && entry[3] == 0 && entry[4] == 1
            && entry[5] == 0 && entry[6] == 0 && entry[7] == 0;
    return entry[0] == 0xA0 && entry[1] == tag && entry[2] == 0 && typeIsNumber(entry[3]) && entry[4] == 0
        && entry[5] == 0 && entry[6] == 0 && entry[7] == 1;
}

/// The value of an entry of type SHORT or LONG whose value is no larger than a SHORT's, 0 for a larger one.
quint16 entryValue(ByteView file, size_t at, bool little)
{
    const ByteView value = slice(file, at + 8, at + 12);
    if (little) return value[2] || value[3] ? quint16(0) : quint16(value[1] << 8 | value[0]);
    const quint16 upper = wordAt(value, 0);
    const quint16 lower = wordAt(value, 2);
    if (upper == 0) return lower;
    return lower == 0 ? upper : quint16(0);
}

} // namespace

Draft draftHeader(ByteView file, const Candidate &candidate, const KnownTables &known, const Budget &budget)
{
    Drafter drafter(file, candidate, known, budget);
    drafter.run();
    return std::move(drafter.draft);
}

const std::vector<std::vector<std::pair<quint8, quint8>>> &usualSamplings()
{
    static const std::vector<std::vector<std::pair<quint8, quint8>>> all = {{{2, 2}, {1, 1}, {1, 1}},
                                                                            {{1, 1}, {1, 1}, {1, 1}},
                                                                            {{2, 1}, {1, 1}, {1, 1}},
                                                                            {{1, 2}, {1, 1}, {1, 1}},
                                                                            {{1, 1}}};
    return all;
}

std::vector<Header> withOtherSamplings(const Header &header)
{
    std::vector<Header> others;
    for (const auto &sampling : usualSamplings()) {
        if (sampling.size() != header.components.size()) continue;
        Header other = header;
        for (size_t i = 0; i < sampling.size(); ++i)
            std::tie(other.components[i].h, other.components[i].v) = sampling[i];
        if (other.components != header.components) others.push_back(std::move(other));
    }
    return others;
}

std::vector<PictureSize> exifSizes(ByteView file)
{
    constexpr size_t kFront = 300'000;
    constexpr size_t kEntry = 12;
    constexpr size_t kMost = 16;
    std::vector<PictureSize> sizes;
    for (size_t at = 0; sizes.size() < kMost && at + 2 * kEntry <= std::min(file.size(), kFront); ++at) {
        if (file[at] != 0xA0 && file[at] != 0x02) continue;
        for (const bool little : {false, true}) {
            if (!isEntry(file, at, 0x02, little) || !isEntry(file, at + kEntry, 0x03, little)) continue;
            const PictureSize size{entryValue(file, at, little), entryValue(file, at + kEntry, little)};
            if (size.width && size.height && std::find(sizes.begin(), sizes.end(), size) == sizes.end())
                sizes.push_back(size);
        }
    }
    return sizes;
}

} // namespace salvage
