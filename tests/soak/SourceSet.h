// The healthy photographs of a folder, and the damaged files made of them.
#pragma once

#include "soak/DamageKinds.h"

#include <QString>
#include <QStringList>

namespace soak {

/// One file of the soak, damaged or intact.
struct Sample
{
    QString kind;   ///< name of the kind, "intact" for an intact file
    QString source; ///< path of the healthy file
    QByteArray bytes;
};

class SourceSet
{
public:
    /// Takes the files below `folder`, by name, that end in jpg, jpeg or mpo and are whole and healthy. Looks at them
    /// with `jobs` threads; keeps their bytes.
    SourceSet(const QString &folder, int jobs);

    int size() const { return int(m_paths.size()); }
    int passedOver() const { return m_passedOver; }

    /// `count` damaged files, of each of `kinds` so many as its share says; of each the same number where all shares
    /// are 0. Equal sets, seeds and kinds give equal bytes: the n-th file of a kind hangs on nothing else. A kind that
    /// finds nothing to damage in the whole set is left out.
    std::vector<Sample> damaged(int count, quint64 seed, const std::vector<DamageKind> &kinds) const;
    /// `count` different healthy files, all of them where there aren't as many.
    std::vector<Sample> intact(int count, quint64 seed) const;

private:
    std::optional<Sample> damagedOne(const DamageKind &kind, quint64 seed, int number) const;

    QStringList m_paths;
    std::vector<Source> m_sources;
    int m_passedOver = 0;
};

} // namespace soak
