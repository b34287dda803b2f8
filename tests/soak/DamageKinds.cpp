#include "soak/DamageKinds.h"

namespace soak {

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
