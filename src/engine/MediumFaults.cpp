#include "engine/MediumFaults.h"

#include <algorithm>
#include <map>

namespace {

struct Watch
{
    QString path;
    std::map<quint64, quint64> refused; ///< offset of a page -> its bytes
};

Watch &watch()
{
    static thread_local Watch ours;
    return ours;
}

} // namespace

void watchMedium(const QString &path)
{
    watch() = {path, {}};
}

bool isWatched(const QString &path)
{
    return !path.isEmpty() && watch().path == path;
}

void noteRefused(quint64 offset, quint64 count)
{
    // A window reads whole pages, so that the same offset comes with the same count.
    watch().refused.emplace(offset, count);
}

quint64 refusedBytes(quint64 begin, quint64 end)
{
    quint64 sum = 0;
    for (const auto &[offset, count] : watch().refused) {
        const quint64 from = std::max(begin, offset);
        const quint64 to = std::min(end, offset + count);
        if (from < to) sum += to - from;
    }
    return sum;
}
