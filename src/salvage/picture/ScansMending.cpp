#include "salvage/picture/ScansMending.h"

#include "salvage/structure/Structure.h"

#include <algorithm>

namespace salvage {

namespace {

/// What an FF in front of anything but a zero may have been.
enum class Code : quint8 {
    Hit,      ///< another byte: the least change is FE
    ZeroHit,  ///< FF 00, and the zero was hit
    ZeroLost, ///< FF 00, and the zero is lost
};

/// How well a scan is read with certain choices.
struct Trial
{
    std::vector<Code> codes;
    QByteArray bytes;
    ScansReading reading; ///< of this scan alone, over the picture of those before
    bool perfect() const { return reading.errors == 0 && reading.done == reading.total; }
    bool betterThan(const Trial &other) const
    {
        return perfect() != other.perfect() ? perfect() : reading.done > other.reading.done;
    }
};

class CodeMender
{
public:
    CodeMender(const ScanPart &part, ByteView raw, const Coefficients &before, Budget &budget)
        : m_part(part), m_raw(raw), m_before(before), m_budget(budget)
    {
    }

    /// The best choices for `count` codes; several where more than one lets the scan be read whole.
    std::vector<Trial> run(size_t count);

private:
    QByteArray bytesBy(const std::vector<Code> &codes) const;
    Trial attempt(const std::vector<Code> &codes);
    bool improve(Trial &best, const std::vector<Code> &codes);

    const ScanPart &m_part;
    ByteView m_raw;
    const Coefficients &m_before;
    Budget &m_budget;
};

QByteArray CodeMender::bytesBy(const std::vector<Code> &codes) const
{
    QByteArray out;
    out.reserve(int(m_raw.size() + codes.size()));
    const bool restarts = m_part.header.restartInterval > 0;
    size_t number = 0;
    for (size_t at = 0; at < m_raw.size(); ++at) {
        const quint8 byte = m_raw[at];
        const int next = at + 1 < m_raw.size() ? m_raw[at + 1] : 0xD9;
        const bool stands = byte != 0xFF || next == 0 || (restarts && isRestart(quint8(next)));
        if (stands) {
            out.append(char(byte));
            if (byte == 0xFF) out.append(char(m_raw[++at]));
            continue;
        }
        const Code code = number < codes.size() ? codes[number] : Code::Hit;
        ++number;
        if (code == Code::Hit) {
            out.append(char(0xFE));
            continue;
        }
        out.append("\xFF\0", 2);
        if (code == Code::ZeroHit) ++at;
    }
    return out;
}

Trial CodeMender::attempt(const std::vector<Code> &codes)
{
    Trial trial;
    trial.codes = codes;
    trial.bytes = bytesBy(codes);
    trial.reading.picture = m_before;
    m_budget.countDecode();
    readScan(m_part.header, view(trial.bytes), trial.reading, m_budget);
    return trial;
}

/// True once `best` can't be bettered.
bool CodeMender::improve(Trial &best, const std::vector<Code> &codes)
{
    if (best.perfect() || m_budget.spent()) return true;
    Trial trial = attempt(codes);
    if (trial.betterThan(best)) best = std::move(trial);
    return best.perfect();
}

std::vector<Trial> CodeMender::run(size_t count)
{
    constexpr size_t kMostCodes = 40;
    constexpr int kRounds = 2;
    std::vector<Trial> whole;
    Trial best;
    // Mostly all of them came about in one way.
    for (const Code code : {Code::Hit, Code::ZeroLost, Code::ZeroHit}) {
        Trial trial = attempt(std::vector<Code>(count, code));
        if (code == Code::Hit || trial.betterThan(best)) best = trial;
        if (trial.perfect()) whole.push_back(std::move(trial));
        if (count == 0 || count > kMostCodes || m_budget.spent()) break;
    }
    if (!whole.empty()) return whole;
    for (int round = 0; round < kRounds && count <= kMostCodes; ++round) {
        for (size_t i = 0; i < count; ++i) {
            for (const Code code : {Code::Hit, Code::ZeroHit, Code::ZeroLost}) {
                std::vector<Code> codes = best.codes;
                if (codes[i] == code) continue;
                codes[i] = code;
                if (improve(best, codes)) return {best};
            }
        }
    }
    return {best};
}

/// A scan may be read whole by chance; the scans that refine it aren't then.
Trial likeliest(std::vector<Trial> &&trials, const Header &header, ScansData &scans, RawScan &scan, Budget &budget)
{
    size_t best = 0;
    quint64 most = 0;
    for (size_t i = 0; i < trials.size() && trials.size() > 1; ++i) {
        scan.bytes = trials[i].bytes;
        const QByteArray joined = scans.joined();
        const quint64 done = readScans(header, view(joined), budget).done;
        if (done <= most) continue;
        most = done;
        best = i;
    }
    return std::move(trials[best]);
}

} // namespace

void mendCodes(const Header &header, ScansData &scans, Budget &budget)
{
    constexpr size_t kMostValues = 40'000'000; // each trial copies them
    if (scans.codesMended() == 0 || !header.decodable() || !header.fitsMemory()) return;
    const QByteArray joined = scans.joined();
    const std::vector<ScanPart> parts = splitScans(header, view(joined));
    if (parts.size() != scans.scans.size()) return;
    Header whole = header;
    whole.scan.resize(whole.components.size());
    Coefficients picture(whole);
    if (picture.values.size() > kMostValues) return;
    for (size_t i = 0; i < parts.size() && !budget.spent(); ++i) {
        RawScan &scan = scans.scans[i];
        CodeMender mender(parts[i], scan.raw, picture, budget);
        Trial best = likeliest(mender.run(size_t(scan.codesMended)), header, scans, scan, budget);
        scan.bytes = best.bytes;
        picture = std::move(best.reading.picture);
    }
}

} // namespace salvage
