// The kinds of damage that the soak tries, each with the name under which its table shows it.
#pragma once

#include "soak/JpegMap.h"
#include "soak/Random.h"

#include <QString>

#include <optional>

namespace soak {

/// Breaks `source`; `other` is another healthy file for kinds that mix. Nothing where `source` lacks what the kind
/// breaks (restart markers, for instance). The bytes in front of SOI and behind EOI are spared but where the name says
/// otherwise.
using Damager = std::optional<QByteArray> (*)(const Source &source, const Source &other, Random &random);

struct DamageKind
{
    const char *name;
    Damager damage;
    /// Files of a thousand in the usual mix, which leans towards what people meet with; 0 for what only --every asks.
    int share = 0;
};

/// All kinds, in the order of the table.
const std::vector<DamageKind> &damageKinds();

/// `kinds` in equal numbers, those outside the usual mix as well.
std::vector<DamageKind> evenly(std::vector<DamageKind> kinds);

/// Kinds that break segments of the header.
const std::vector<DamageKind> &headerDamage();
/// Kinds that break the tables alone.
const std::vector<DamageKind> &tableDamage();
/// Kinds that break the entropy data.
const std::vector<DamageKind> &scanDamage();
/// Kinds that know no segment: whole sectors, transfers, cuts.
const std::vector<DamageKind> &fileDamage();

} // namespace soak
