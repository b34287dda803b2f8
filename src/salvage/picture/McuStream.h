// The MCUs of damaged entropy data, one behind the other, with what can't be read left out.
#pragma once

#include "salvage/entropy/Entropy.h"

namespace salvage {

/// What a reader gets that looks for its way again behind each error.
struct McuStream
{
    std::vector<qint16> values; ///< coefficients of each MCU, DC by differences from the last place of an error on
    std::vector<bool> bad;      ///< an error stood there; values are 0
    std::vector<size_t> begin;  ///< offset in the data at which each begins
    bool ended = false;         ///< the last MCU uses the data up
    quint32 mcus() const { return quint32(bad.size()); }
};

/// Reads MCUs up to an error and goes on at the place behind it from which the data are read furthest, whatever bit that is.
/// Stretches of zeros as long as a sector are taken for damage. At most `most` MCUs; fewer once the budget is spent.
McuStream readStream(const Header &header, ByteView data, quint32 most, Budget &budget);

} // namespace salvage
