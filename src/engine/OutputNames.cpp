#include "engine/OutputNames.h"

#include "app/KesmiraApp.h"
#include "app/Originals.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int kLongestName = 255; ///< bytes; what all usual file systems take

/// Of files that no source has, and that stay.
const QLatin1String kNobody("");

bool belongsToAnother(const QString &name, const QString &source)
{
    const auto owner = pApp->mapNameOwners.constFind(name);
    return owner != pApp->mapNameOwners.constEnd() && *owner != source;
}

QString copyPrefix(int number)
{
    return number == 0 ? QString() : QStringLiteral("Copy(%1)_").arg(number);
}

} // namespace

void reserveNames(const QStringList &sources)
{
    pApp->mapWorkingNames.clear();
    pApp->mapNameOwners.clear();
    for (QDirIterator left(pApp->strTempDir, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
         left.hasNext();)
        if (isOriginal(left.next())) pApp->mapNameOwners.insert(left.fileName(), kNobody);
    for (const QString &source : sources) workingName(source);
}

QString workingName(const QString &path)
{
    const auto known = pApp->mapWorkingNames.constFind(path);
    if (known != pApp->mapWorkingNames.constEnd()) return *known;
    const QString fileName = QFileInfo(path).fileName();
    QString name = fileName;
    // A name that an output of the same path has already got is no free one either.
    for (int n = 0; pApp->mapNameOwners.contains(name); ++n) name = fittingName(copyPrefix(n), fileName);
    pApp->mapWorkingNames.insert(path, name);
    pApp->mapNameOwners.insert(name, path);
    return name;
}

QString outputName(const QString &source, const QString &wanted, const QString &front)
{
    for (int n = 0;; ++n) {
        const QString name = fittingName(copyPrefix(n), wanted, front);
        if (belongsToAnother(name, source) || (!front.isEmpty() && belongsToAnother(front + name, source))) continue;
        pApp->mapNameOwners.insert(name, source);
        if (!front.isEmpty()) pApp->mapNameOwners.insert(front + name, source);
        return name;
    }
}

FurtherName::FurtherName(const QString &source) : m_source(source), m_told(workingName(source))
{
    const QString fileName = QFileInfo(source).fileName();
    int n = 1;
    do m_name = fittingName(copyPrefix(n++), fileName);
    while (pApp->mapNameOwners.contains(m_name));
    pApp->mapNameOwners.insert(m_name, source);
    pApp->mapWorkingNames[source] = m_name;
}

FurtherName::~FurtherName()
{
    pApp->mapWorkingNames[m_source] = m_told;
    if (!m_kept) pApp->mapNameOwners.remove(m_name);
}

QString sourceOfOutput(const QString &name)
{
    return pApp->mapNameOwners.value(name);
}

QString fittingName(const QString &prefix, const QString &name, const QString &front)
{
    static const QRegularExpression kind(QStringLiteral(R"((_\[T\d+\]|_\d|_salvaged|_readable)?(\.[^.]*)?$)"));
    const int room = kLongestName - QFile::encodeName(front + prefix).size();
    if (QFile::encodeName(name).size() <= room) return prefix + name;
    QString tail = kind.match(name).captured();
    if (QFile::encodeName(tail).size() > room / 2) tail.clear(); // a suffix of that length tells nothing
    QString stem = name.chopped(tail.size());
    while (!stem.isEmpty() && QFile::encodeName(stem + tail).size() > room) {
        const bool isHalf = stem.size() > 1 && stem.at(stem.size() - 1).isLowSurrogate();
        stem.chop(isHalf ? 2 : 1);
    }
    return prefix + stem + tail;
}
