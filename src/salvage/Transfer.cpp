#include "salvage/Transfer.h"

#include <algorithm>

namespace salvage {

bool undoTextTransfer(QByteArray &file)
{
    // In data that were never text one 0A in 256 follows a 0D.
    constexpr int kEnough = 4;
    int ends = 0;
    for (int at = file.indexOf('\n'); at >= 0; at = file.indexOf('\n', at + 1), ++ends)
        if (at == 0 || file.at(at - 1) != '\r') return false;
    if (ends < kEnough) return false;
    char *to = file.data();
    const char *const end = file.data() + file.size();
    for (const char *from = file.data(); from < end; ++from)
        if (*from != '\r' || from + 1 == end || from[1] != '\n') *to++ = *from;
    file.truncate(int(to - file.data()));
    return true;
}

} // namespace salvage
