#include "salvage/tables/Quantization.h"

#include "salvage/structure/Structure.h"
#include "salvage/tables/KnownTables.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>
#include <set>

namespace salvage {

namespace {

constexpr quint64 kFirstThree = 7;
constexpr int kManyRough = 3;

quint64 agreementMask(const QuantTable &a, const QuantTable &b)
{
    quint64 mask = 0;
    for (size_t i = 0; i < 64; ++i)
        if (a[i] == b[i]) mask |= 1ULL << i;
    return mask;
}

bool hasZero(const QuantTable &table)
{
    return std::find(table.begin(), table.end(), 0) != table.end();
}

/// True where the tables differ in one of the `places` by more than a factor of 1.7.
bool differsWidely(const QuantTable &a, const QuantTable &b, quint64 places)
{
    constexpr double kFactor = 0.8; // as a power of two
    for (size_t i = 0; i < 64; ++i) {
        const bool asked = places >> i & 1;
        if (asked && std::abs(std::log2((a[i] + 1.0) / (b[i] + 1.0))) >= kFactor) return true;
    }
    return false;
}

/// How well a table agrees with a known one; values that stand out from their neighbours count less.
double agreement(const QuantTable &table, quint64 rough, const QuantTable &known)
{
    const quint64 same = agreementMask(table, known);
    const quint64 sameSound = same & ~rough;
    return std::popcount(same) + 0.5 * std::popcount(sameSound) + ((same & kFirstThree) == kFirstThree ? 1 : 0);
}

/// The known set that agrees best with the tables of the file together.
struct SetMatch
{
    std::map<quint8, QuantTable> tables; ///< by the file's numbers; empty where no set agrees in 60 %
    bool headsAlone = false;             ///< all that differs are first values
};

/// The tables of one file and what is found for them.
class QuantChooser
{
public:
    QuantChooser(Header &header, const std::map<quint8, QuantTable> &found, const std::set<quint8> &wide,
                 const KnownTables &known, const PictureInHand &picture)
        : m_header(header), m_found(found), m_wide(wide), m_known(known), m_picture(picture)
    {
        for (Component &each : m_header.components) m_needed.insert(each.quant);
        if (*m_needed.rbegin() > 3) {
            m_needed.clear();
            for (size_t i = 0; i < m_header.components.size(); ++i) {
                Component &each = m_header.components[i];
                if (each.quant > 3) each.quant = i ? 1 : 0;
                m_needed.insert(each.quant);
            }
        }
        m_luma = m_header.components.front().quant;
        for (const quint8 key : m_needed)
            if (key != m_luma && !m_chroma) m_chroma = key;
        useSpareTables();
    }

    QuantOutcome run();
    bool looksDamaged();

private:
    void useSpareTables();
    SetMatch matchSet();
    const QuantSet &bestLooking(const std::vector<const QuantSet *> &sets);
    bool replacedBySet(quint8 key, const QuantTable &found) const;
    void make(quint8 key);
    QuantTable guessed(quint8 key);
    QuantTable likeliest(const std::vector<QuantTable> &choices);
    int peakLevel();
    std::vector<QuantTable> otherHalves(quint8 key) const;
    void mend(quint8 key, const QuantTable &found);
    QuantTable bestOf(quint8 key, const std::vector<QuantTable> &choices);
    double look(quint8 key, const QuantTable &table);
    void set(quint8 key, const QuantTable &table, bool sure)
    {
        m_header.quant[key] = table;
        ++m_outcome.replaced;
        if (sure) ++m_outcome.sure;
        m_sound.push_back(table);
    }
    const QuantTable *found(quint8 key) const
    {
        const auto table = m_found.find(key);
        return table == m_found.end() ? nullptr : &table->second;
    }

    Header &m_header;
    std::map<quint8, QuantTable> m_found;
    const std::set<quint8> &m_wide;
    const KnownTables &m_known;
    const PictureInHand &m_picture;
    std::set<quint8> m_needed;
    quint8 m_luma = 0;
    std::optional<quint8> m_chroma;
    SetMatch m_match;
    std::vector<QuantTable> m_sound; // tables that are taken for right, as partners of the others
    QuantOutcome m_outcome;
};

/// A table whose number is spoilt takes the place of one that is missing.
void QuantChooser::useSpareTables()
{
    if (m_needed.size() < 2) return;
    std::vector<quint8> spare;
    for (const auto &[key, table] : m_found)
        if (!m_needed.count(key)) spare.push_back(key);
    for (const quint8 key : m_needed) {
        if (found(key) || spare.empty()) continue;
        m_found[key] = m_found[spare.front()];
        spare.erase(spare.begin());
    }
}

/// Of sets that agree alike: some encoders' differ in the first values alone, which are the ones that get hit.
const QuantSet &QuantChooser::bestLooking(const std::vector<const QuantSet *> &sets)
{
    constexpr size_t kMost = 8;
    if (sets.size() == 1 || !m_picture) return *sets.front();
    std::vector<QuantTable> lumas;
    for (size_t i = 0; i < std::min(kMost, sets.size()); ++i) lumas.push_back(sets[i]->front());
    const QuantTable best = bestOf(m_luma, lumas);
    return *sets[size_t(std::find(lumas.begin(), lumas.end(), best) - lumas.begin())];
}

SetMatch QuantChooser::matchSet()
{
    SetMatch match;
    const QuantTable *luma = found(m_luma);
    const QuantTable *chroma = m_chroma ? found(*m_chroma) : nullptr;
    if (!luma || !m_wide.empty()) return match;
    const quint64 lumaRough = roughValues(*luma);
    const quint64 chromaRough = chroma ? roughValues(*chroma) : 0;
    std::vector<const QuantSet *> best;
    double bestValue = -1;
    for (const QuantSet &set : m_known.quantSets()) {
        const QuantTable &second = set.size() > 1 ? set[1] : set[0];
        const double value =
            agreement(*luma, lumaRough, set[0]) + (chroma ? agreement(*chroma, chromaRough, second) : 0);
        if (value < bestValue) continue;
        if (value > bestValue) best.clear();
        bestValue = value;
        best.push_back(&set);
    }
    if (best.empty()) return match;
    const QuantSet &chosen = bestLooking(best);
    const QuantTable &second = chosen.size() > 1 ? chosen[1] : chosen[0];
    const quint64 lumaMask = agreementMask(*luma, chosen[0]);
    const quint64 chromaMask = chroma ? agreementMask(*chroma, second) : 0;
    const int same = std::popcount(lumaMask) + std::popcount(chromaMask);
    const int all = chroma ? 128 : 64;
    if (same < 0.6 * all) return match;
    match.headsAlone = chroma && ((lumaMask & chromaMask) | kFirstThree) == ~quint64(0);
    match.tables[m_luma] = chosen[0];
    if (m_chroma) match.tables[*m_chroma] = second;
    return match;
}

double QuantChooser::look(quint8 key, const QuantTable &table)
{
    const auto [picture, rows] = m_picture();
    if (!picture) return 9;
    double sum = 0;
    int n = 0;
    for (size_t i = 0; i < std::min<size_t>(3, picture->sampling.size()); ++i) {
        if (m_header.components[i].quant != key) continue;
        sum += borderStep(*picture, i, table, std::max(1u, rows));
        ++n;
        if (i == 0) break; // luminance has the say on its table
    }
    return n ? sum / n : 9;
}

QuantTable QuantChooser::bestOf(quint8 key, const std::vector<QuantTable> &choices)
{
    QuantTable best = choices.front();
    double least = 1e9;
    for (const QuantTable &choice : choices) {
        const double step = look(key, choice);
        if (step >= least) continue;
        least = step;
        best = choice;
    }
    return best;
}

/// Tables that stand beside those that are taken for right in the known sets.
std::vector<QuantTable> QuantChooser::otherHalves(quint8 key) const
{
    constexpr size_t kSets = 6;
    std::vector<QuantTable> halves;
    for (const QuantTable &sound : m_sound) {
        const auto &places = m_known.placesOf(sound);
        for (size_t n = 0; n < std::min(kSets, places.size()); ++n) {
            const auto &[set, place] = places[n];
            const QuantSet &tables = m_known.quantSets()[set];
            for (size_t i = 0; i < tables.size(); ++i) {
                const bool wanted = i == std::min<size_t>(key, tables.size() - 1) || place == 0;
                if (i == place || !wanted || std::find(halves.begin(), halves.end(), tables[i]) != halves.end())
                    continue;
                halves.push_back(tables[i]);
            }
        }
    }
    return halves;
}

/// A table out of nothing: Annex K's in the quality that the other one, or the picture, speaks for.
QuantTable QuantChooser::guessed(quint8 key)
{
    const bool isLuma = key == m_luma;
    const auto luma = m_header.quant.find(m_luma);
    if (!isLuma && luma != m_header.quant.end()) {
        int best = 50;
        long least = -1;
        for (int quality = 1; quality <= 100; ++quality) {
            const QuantTable scaled = KnownTables::scaled(false, quality);
            long apart = 0;
            for (size_t i = 0; i < 64; ++i) apart += std::abs(long(scaled[i]) - long(luma->second[i]));
            if (least >= 0 && apart >= least) continue;
            least = apart;
            best = quality;
        }
        return KnownTables::scaled(true, best);
    }
    std::vector<QuantTable> choices;
    for (const int quality : {10, 20, 30, 40, 50, 55, 60, 65, 70, 75, 80, 83, 85, 88, 90, 92, 94, 95, 96, 97, 98, 99})
        choices.push_back(KnownTables::scaled(!isLuma, quality));
    return isLuma ? likeliest(choices) : bestOf(key, choices);
}

/// The table of luminance by looks and by how far the levels go: none leave the range of samples, and most pictures use
/// nearly all of it (half of a set of photographs have a block within 3 % of its end, nine in ten within 26 %).
QuantTable QuantChooser::likeliest(const std::vector<QuantTable> &choices)
{
    constexpr double kEnd = 1024; // of what a DC coefficient of 8-bit samples can be
    constexpr double kUsual = 0.97;
    const double peak = peakLevel();
    const QuantTable *best = &choices.front();
    double least = 1e9;
    for (const QuantTable &choice : choices) {
        const double reach = peak * choice[0] / kEnd;
        if (reach > 1 + choice[0] / kEnd) continue;
        const double value = look(m_luma, choice) * (1 + 2 * std::max(0.0, kUsual - reach));
        if (value >= least) continue;
        least = value;
        best = &choice;
    }
    return *best;
}

/// The greatest DC coefficient of luminance in the rows that were read, as it is coded; 0 without a picture.
int QuantChooser::peakLevel()
{
    const auto [picture, rows] = m_picture();
    if (!picture) return 0;
    const quint32 mcus = std::min(rows, picture->mcusHigh) * picture->mcusWide;
    const int blocks = picture->sampling.empty() ? 0 : picture->sampling[0].h * picture->sampling[0].v;
    int peak = 0;
    for (quint32 mcu = 0; mcu < mcus; ++mcu)
        for (int block = 0; block < blocks; ++block) peak = std::max(peak, std::abs(picture->mcu(mcu)[block * 64]));
    return peak;
}

void QuantChooser::make(quint8 key)
{
    constexpr size_t kChoices = 6;
    std::vector<QuantTable> choices = otherHalves(key);
    if (choices.empty()) {
        set(key, guessed(key), false);
        return;
    }
    if (choices.size() > kChoices) choices.resize(kChoices);
    QuantTable best = choices.front();
    if (choices.size() > 1) {
        const QuantTable other = bestOf(key, choices);
        if (look(key, other) < 0.95 * look(key, best)) best = other;
    }
    set(key, best, false);
}

bool QuantChooser::replacedBySet(quint8 key, const QuantTable &table) const
{
    const auto match = m_match.tables.find(key);
    if (match == m_match.tables.end() || match->second == table) return false;
    const quint64 same = agreementMask(table, match->second);
    const std::optional<quint8> other = key == m_luma ? m_chroma : m_luma;
    const QuantTable *partner = other ? found(*other) : nullptr;
    const bool pairsWell = partner && *partner == m_match.tables.at(*other);
    const bool headAlone = (same | kFirstThree) == ~quint64(0);
    if (headAlone && differsWidely(table, match->second, ~same)
        && (!m_known.isKnown(table) || pairsWell || m_match.headsAlone))
        return true;
    return (pairsWell || std::popcount(same) >= 40) && std::popcount(roughValues(table)) >= kManyRough;
}

/// The found table where it is smooth, the scaled example table where it isn't.
QuantTable smoothed(const QuantTable &table, bool chroma, quint64 rough)
{
    const QuantTable &example = KnownTables::example(chroma);
    size_t first = 64; // from here on nothing is believed
    for (size_t i = 3; i < 61 && first == 64; ++i)
        if (std::popcount(rough >> i & 63) >= 2) first = i;
    std::vector<double> scales;
    for (size_t i = 0; i < first; ++i)
        if (!(rough >> i & 1) && table[i]) scales.push_back(double(table[i]) / example[i]);
    if (scales.empty()) scales.push_back(double(std::max<int>(1, table[0])) / example[0]);
    std::sort(scales.begin(), scales.end());
    const size_t middle = scales.size() / 2;
    const double scale = scales.size() % 2 ? scales[middle] : (scales[middle - 1] + scales[middle]) / 2;
    QuantTable smooth = table;
    for (size_t i = 0; i < 64; ++i)
        if (rough >> i & 1 || i >= first) smooth[i] = quint16(std::clamp(std::lround(example[i] * scale), 1L, 255L));
    return smooth;
}

/// Tables with other first values, where these alone stand out.
void addFirstValues(const QuantTable &smooth, quint64 rough, std::vector<QuantTable> &choices)
{
    std::vector<quint16> near;
    for (size_t i = 1; i < 8; ++i)
        if (!(rough >> i & 1)) near.push_back(smooth[i]);
    if (near.empty()) near.push_back(8);
    std::sort(near.begin(), near.end());
    for (const double factor : {0.25, 0.4, 0.6, 0.8, 1.0, 1.3, 1.7}) {
        QuantTable choice = smooth;
        choice[0] = quint16(std::max(1L, std::lround(near[near.size() / 2] * factor)));
        choices.push_back(choice);
    }
}

/// A table that is neither known nor a set's: mended by the single known one that agrees, or by its own shape.
void QuantChooser::mend(quint8 key, const QuantTable &table)
{
    const quint64 rough = roughValues(table);
    const int good = 64 - std::popcount(rough);
    const std::vector<QuantTable> partners = otherHalves(key);
    const auto isPartner = [&](const QuantTable &each) {
        return std::find(partners.begin(), partners.end(), each) != partners.end();
    };
    const QuantTable *nearest = nullptr;
    double value = -1;
    for (const QuantTable &each : m_known.quantTables()) {
        const quint64 same = agreementMask(each, table);
        const double own = std::popcount(same) + 0.5 * std::popcount(same & ~rough) + (isPartner(each) ? 8 : 0);
        if (own <= value) continue;
        value = own;
        nearest = &each;
    }
    const quint64 same = nearest ? agreementMask(*nearest, table) : 0;
    const int total = std::popcount(same);
    const int onGood = std::popcount(same & ~rough);
    const bool broken = std::popcount(rough) >= kManyRough || (rough & kFirstThree) || hasZero(table);
    const QuantTable smooth = smoothed(table, key != m_luma, rough);
    if (broken) {
        const bool agrees = total >= 40 || (onGood >= 0.85 * good && good >= 8)
            || (nearest && isPartner(*nearest) && onGood >= 0.7 * good);
        if (nearest && agrees) {
            set(key, *nearest, true);
            return;
        }
        std::vector<QuantTable> choices = {smooth};
        if (nearest && total >= 14) choices.push_back(*nearest);
        if ((rough & ~kFirstThree) == 0) addFirstValues(smooth, rough, choices);
        const QuantTable best = bestOf(key, choices);
        if (hasZero(table) || look(key, best) <= 0.97 * look(key, table)) {
            set(key, best, false);
            return;
        }
    } else if (nearest && total >= 61 && (same | kFirstThree) == ~quint64(0)
               && differsWidely(table, *nearest, ~same & kFirstThree)) {
        if (look(key, *nearest) <= look(key, table) * 1.03) {
            set(key, *nearest, false);
            return;
        }
    } else if (rough && look(key, smooth) < 0.97 * look(key, table)) {
        set(key, smooth, false);
        return;
    }
    m_sound.push_back(table);
}

QuantOutcome QuantChooser::run()
{
    m_header.quant.clear();
    for (const quint8 key : m_needed)
        if (const QuantTable *table = found(key)) m_header.quant[key] = *table;
    m_match = matchSet();
    for (const auto &[key, table] : m_found) {
        const auto match = m_match.tables.find(key);
        if (m_known.isKnown(table) && (match == m_match.tables.end() || match->second == table))
            m_sound.push_back(table);
    }
    for (const quint8 key : m_needed) {
        if (m_wide.count(key) && found(key)) continue;
        const QuantTable *table = found(key);
        const auto match = m_match.tables.find(key);
        if (table ? replacedBySet(key, *table) : match != m_match.tables.end())
            set(key, match->second, true);
        else if (!table)
            make(key);
        else if (!m_known.isKnown(*table))
            mend(key, *table);
    }
    return m_outcome;
}

bool QuantChooser::looksDamaged()
{
    m_match = matchSet();
    for (const quint8 key : m_needed) {
        const QuantTable *table = found(key);
        if (!table || hasZero(*table)) return true;
        if (m_wide.count(key)) continue;
        if (replacedBySet(key, *table)) return true;
        if (!m_known.isKnown(*table) && std::popcount(roughValues(*table)) >= kManyRough) return true;
    }
    return false;
}

} // namespace

QuantOutcome chooseQuant(Header &header, const Draft &draft, const KnownTables &known, const PictureInHand &picture)
{
    return QuantChooser(header, draft.quant, draft.wideQuant, known, picture).run();
}

bool quantLooksDamaged(const Header &header, const KnownTables &known)
{
    Header copy = header;
    std::set<quint8> wide;
    for (const auto &[key, table] : header.quant)
        if (*std::max_element(table.begin(), table.end()) > 0xFF) wide.insert(key);
    return QuantChooser(copy, header.quant, wide, known, {}).looksDamaged();
}

} // namespace salvage
