#include "soak/DamageKinds.h"

namespace soak {

std::vector<DamageKind> evenly(std::vector<DamageKind> kinds)
{
    for (DamageKind &kind : kinds) kind.share = 0;
    return kinds;
}

const std::vector<DamageKind> &damageKinds()
{
    static const std::vector<DamageKind> all = [] {
        std::vector<DamageKind> kinds;
        for (const auto *some : {&fileDamage(), &tableDamage(), &headerDamage(), &scanDamage()})
            kinds.insert(kinds.end(), some->begin(), some->end());
        return kinds;
    }();
    return all;
}

} // namespace soak
