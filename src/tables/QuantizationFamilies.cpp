#include "tables/QuantizationFamilies.h"

#include "app/KesmiraApp.h"
#include "tables/TableLibrary.h"

#include <cstring>

namespace {

constexpr size_t kOneTableBytes = 69;

// The rows of a family that a search may take.
enum class Tried { All, SameFirstValue };

// One call of a family: the rows it may try and the heads of the file, cut to the number of values to compare.
class Search
{
public:
    Search(QuantizationFamily family, Tried tried, int count)
        : m_family(family), m_tried(tried),
          m_firstValue(pApp->aQuantHead1[0]), m_heads{QuantizationPrefix(pApp->aQuantHead1, count),
                                                      QuantizationPrefix(pApp->aQuantHead2, count),
                                                      QuantizationPrefix(pApp->aQuantHead3, count)}
    {
    }

    // Each returns the result buffer or nullptr.
    unsigned char *findOne(quint32 index) const
    {
        if (index > 2) return nullptr;
        unsigned char *found = index == 2 ? nullptr : findOneAmong(QuantizationKind::Pair, m_heads[index]);
        return found ? found : findOneAmong(QuantizationKind::Triple, m_heads[index]);
    }

    unsigned char *findWhole(QuantizationKind kind, bool oneIsEnough, quint8 *result) const
    {
        for (const QuantizationRow &row : rows(kind)) {
            if (!isTried(row) || !agrees(row, oneIsEnough)) continue;
            std::memcpy(result, row.segment.constData(), size_t(row.segment.size()));
            return result;
        }
        return nullptr;
    }

private:
    const std::vector<QuantizationRow> &rows(QuantizationKind kind) const
    {
        return TableLibrary::current().quantizationRows(m_family, kind);
    }

    bool isTried(const QuantizationRow &row) const { return m_tried == Tried::All || *row.values(0) == m_firstValue; }

    bool agrees(const QuantizationRow &row, bool oneIsEnough) const
    {
        for (int table = 0; table < row.tableCount(); ++table) {
            if (m_heads[size_t(table)].opens(row.heads[size_t(table)]) == oneIsEnough) return oneIsEnough;
        }
        return !oneIsEnough;
    }

    unsigned char *findOneAmong(QuantizationKind kind, const QuantizationPrefix &head) const
    {
        for (const QuantizationRow &row : rows(kind)) {
            if (!isTried(row)) continue;
            for (int table = 0; table < row.tableCount(); ++table) {
                if (!head.opens(row.heads[size_t(table)])) continue;
                std::memcpy(pApp->aQuantOne, row.values(table) - QuantizationRow::kFirstValue, kOneTableBytes);
                return pApp->aQuantOne;
            }
        }
        return nullptr;
    }

    QuantizationFamily m_family;
    Tried m_tried;
    quint8 m_firstValue;
    std::array<QuantizationPrefix, 3> m_heads;
};

unsigned char *find(QuantizationFamily family, Tried tried, int count)
{
    if (count < 1 || count > kQuantizationHead) return nullptr;
    const Search search(family, tried, count);
    switch (pApp->nDqtLength) {
    case 67: return search.findOne(pApp->nDqtIndex);
    case 132: return search.findWhole(QuantizationKind::Pair, pApp->bQuantPairPatched, pApp->aQuantPair);
    case 197: return search.findWhole(QuantizationKind::Triple, pApp->bQuantTriplePatched, pApp->aQuantTriple);
    default: return nullptr;
    }
}

unsigned char *ask(QuantizationFamily family, Tried tried, int count)
{
    pApp->bQuantNotFound = true;
    unsigned char *const result = find(family, tried, count);
    if (result) pApp->bQuantNotFound = false;
    return result;
}

} // namespace

Quantization_StandardTables::Quantization_StandardTables() = default;
Quantization_StandardTables::~Quantization_StandardTables() = default;

unsigned char *Quantization_StandardTables::standardQ_table(int count)
{
    return ask(QuantizationFamily::Standard, Tried::All, count);
}

Quantization_standard_02::Quantization_standard_02() = default;
Quantization_standard_02::~Quantization_standard_02() = default;

unsigned char *Quantization_standard_02::standardQ_table(int count)
{
    return ask(QuantizationFamily::Standard02, Tried::All, count);
}

Quantization_standard_3_4_5::Quantization_standard_3_4_5() = default;
Quantization_standard_3_4_5::~Quantization_standard_3_4_5() = default;

unsigned char *Quantization_standard_3_4_5::standardQ_table(int count)
{
    return ask(QuantizationFamily::Standard345, Tried::SameFirstValue, count);
}

Quantization_standard_6_8_9_10_12::Quantization_standard_6_8_9_10_12() = default;
Quantization_standard_6_8_9_10_12::~Quantization_standard_6_8_9_10_12() = default;

unsigned char *Quantization_standard_6_8_9_10_12::standardQ_table(int count)
{
    return ask(QuantizationFamily::Standard689, Tried::SameFirstValue, count);
}

Quantization_standard_15_21_50_others::Quantization_standard_15_21_50_others() = default;
Quantization_standard_15_21_50_others::~Quantization_standard_15_21_50_others() = default;

unsigned char *Quantization_standard_15_21_50_others::standardQ_table(int count)
{
    return ask(QuantizationFamily::StandardOthers, Tried::SameFirstValue, count);
}
