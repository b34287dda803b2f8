#include "tables/Quantization.h"

#include "app/KesmiraApp.h"
#include "tables/QuantizationFamilies.h"
#include "tables/QuantizationHead.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr quint32 kOneTable = 67;
constexpr quint32 kPair = 132;
constexpr quint32 kTriple = 197;

using Head = quint8[kQuantizationHead];

// Stand where no table of a triple survived. For a pair it is 25 ones: the two differ on purpose.
constexpr Head kDefaultTripleHead = {4, 1, 1, 1, 1, 1, 2, 1, 1, 1, 2, 2, 2, 2, 3, 5, 3, 3, 3, 3, 3, 6, 4, 5, 3};

// A value of 0 is impossible in a quantization table.
bool present(const Head &head)
{
    return head[0] != 0;
}

// Fills a missing head from the first of two others that is present.
bool fill(Head &head, const Head &first, const Head &second)
{
    if (present(head)) return false;
    const Head &from = present(first) ? first : second;
    if (!present(from)) return false;
    std::memcpy(head, from, sizeof(Head));
    return true;
}

bool completePair()
{
    Head &one = pApp->aQuantHead1;
    Head &two = pApp->aQuantHead2;
    if (!present(one) && !present(two)) {
        std::memset(one, 1, sizeof(Head));
        std::memset(two, 1, sizeof(Head));
        return true;
    }
    return fill(one, two, two) || fill(two, one, one);
}

bool completeTriple()
{
    Head &one = pApp->aQuantHead1;
    Head &two = pApp->aQuantHead2;
    Head &three = pApp->aQuantHead3;
    bool patched = fill(one, two, three);
    patched |= fill(two, one, three);
    patched |= fill(three, two, one);
    if (present(one)) return patched;
    for (Head *head : {&one, &two, &three}) std::memcpy(*head, kDefaultTripleHead, sizeof(Head));
    return true;
}

void completeHeads()
{
    const bool single = pApp->nDqtLength == kOneTable;
    if (pApp->nDqtLength == kTriple) {
        if (completeTriple()) pApp->bQuantTriplePatched = true;
    } else if (pApp->nDqtLength == kPair) {
        if (completePair()) pApp->bQuantPairPatched = true;
    } else if (single && pApp->nDqt67Count == 3) {
        completeTriple();
    } else if (single && pApp->nDqt67Count == 2) {
        completePair();
    }
}

template<typename Family>
unsigned char *askFamily(int count)
{
    Family family;
    return family.standardQ_table(count);
}

struct FamilyChoice
{
    quint8 firstValue;
    unsigned char *(*ask)(int);
};

constexpr FamilyChoice kChoices[] = {
    {1, askFamily<Quantization_StandardTables>},
    {2, askFamily<Quantization_standard_02>},
    {3, askFamily<Quantization_standard_3_4_5>},
    {4, askFamily<Quantization_standard_3_4_5>},
    {5, askFamily<Quantization_standard_3_4_5>},
    {6, askFamily<Quantization_standard_6_8_9_10_12>},
    {7, askFamily<Quantization_standard_6_8_9_10_12>},
    {8, askFamily<Quantization_standard_6_8_9_10_12>},
    {9, askFamily<Quantization_standard_6_8_9_10_12>},
    {10, askFamily<Quantization_standard_15_21_50_others>},
    {11, askFamily<Quantization_standard_15_21_50_others>},
    {12, askFamily<Quantization_standard_15_21_50_others>},
    {13, askFamily<Quantization_standard_15_21_50_others>},
    {16, askFamily<Quantization_standard_6_8_9_10_12>},
    {18, askFamily<Quantization_standard_6_8_9_10_12>},
    {20, askFamily<Quantization_standard_15_21_50_others>},
    {21, askFamily<Quantization_standard_15_21_50_others>},
    {27, askFamily<Quantization_standard_15_21_50_others>},
    {32, askFamily<Quantization_standard_15_21_50_others>},
    {33, askFamily<Quantization_standard_15_21_50_others>},
    {43, askFamily<Quantization_standard_15_21_50_others>},
    {50, askFamily<Quantization_standard_15_21_50_others>},
    {80, askFamily<Quantization_standard_15_21_50_others>},
};

} // namespace

Quantization::Quantization() = default;
Quantization::~Quantization() = default;

unsigned char *Quantization::Quantization_table()
{
    completeHeads();
    if (!pApp->bQuantNotFound) return nullptr;

    // Always the first table's value, whichever table is wanted: a file's tables are kept together in the library.
    const quint8 firstValue = pApp->aQuantHead1[0];
    const FamilyChoice *const choice =
        std::find_if(std::begin(kChoices), std::end(kChoices),
                     [firstValue](const FamilyChoice &each) { return each.firstValue == firstValue; });
    if (choice == std::end(kChoices)) return nullptr;

    for (int count = kQuantizationHead; count >= 1; --count) {
        unsigned char *const result = choice->ask(count);
        if (!pApp->bQuantNotFound) return result;
    }
    return nullptr;
}
