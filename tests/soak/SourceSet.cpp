#include "soak/SourceSet.h"

#include "soak/Comparison.h"

#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <atomic>
#include <thread>

namespace soak {

namespace {

QStringList picturesBelow(const QString &folder)
{
    QStringList paths;
    QDirIterator entries(folder, {"*.jpg", "*.jpeg", "*.mpo"}, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) paths.append(entries.next());
    // By bytes: no locale changes the order.
    std::sort(paths.begin(), paths.end());
    return paths;
}

/// Empty where the file isn't fit.
Source sourceAt(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    Source source;
    source.bytes = file.readAll();
    source.map = mapOf(source.bytes);
    if (source.map.segments.empty() || !isHealthy(source.bytes)) return {};
    return source;
}

} // namespace

SourceSet::SourceSet(const QString &folder, int jobs)
{
    const QStringList paths = picturesBelow(folder);
    std::vector<Source> found(size_t(paths.size()));
    std::atomic<int> next = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < jobs; ++i) {
        threads.emplace_back([&] {
            for (int at = next++; at < paths.size(); at = next++) found[size_t(at)] = sourceAt(paths[at]);
        });
    }
    for (std::thread &thread : threads) thread.join();
    for (int i = 0; i < paths.size(); ++i) {
        if (found[size_t(i)].bytes.isEmpty()) {
            ++m_passedOver;
            continue;
        }
        m_paths.append(paths[i]);
        m_sources.push_back(std::move(found[size_t(i)]));
    }
}

std::optional<Sample> SourceSet::damagedOne(const DamageKind &kind, quint64 seed, int number) const
{
    Random random(seed, kind.name, quint64(number));
    // Few files have restart markers, fewer a DRI; a kind that needs them has to try more often.
    for (int attempt = 0; attempt < 400; ++attempt) {
        const int at = random.below(size());
        const Source &source = m_sources[size_t(at)];
        const auto bytes = kind.damage(source, random.pick(m_sources), random);
        if (bytes && *bytes != source.bytes) return Sample{QString::fromLatin1(kind.name), m_paths[at], *bytes};
    }
    return {};
}

std::vector<Sample> SourceSet::damaged(int count, quint64 seed, const std::vector<DamageKind> &kinds) const
{
    std::vector<Sample> samples;
    if (m_sources.empty() || kinds.empty()) return samples;
    const bool even = std::all_of(kinds.begin(), kinds.end(), [](const DamageKind &kind) { return kind.share == 0; });
    const auto shareOf = [&](const DamageKind &kind) { return qint64(even ? 1 : kind.share); };
    qint64 whole = 0;
    for (const DamageKind &kind : kinds) whole += shareOf(kind);
    qint64 passed = 0; // shares up to the present kind; the numbers up to there are rounded, so that their sum is right
    for (size_t i = 0; i < kinds.size(); ++i) {
        const qint64 before = (count * passed + whole / 2) / whole;
        passed += shareOf(kinds[i]);
        const qint64 after = (count * passed + whole / 2) / whole;
        for (int n = 0; n < after - before; ++n) {
            auto sample = damagedOne(kinds[i], seed, n);
            if (!sample) break;
            samples.push_back(std::move(*sample));
        }
    }
    return samples;
}

std::vector<Sample> SourceSet::intact(int count, quint64 seed) const
{
    std::vector<int> order(m_sources.size());
    for (size_t i = 0; i < order.size(); ++i) order[i] = int(i);
    Random random(seed, "intact", 0);
    for (int i = int(order.size()) - 1; i > 0; --i) std::swap(order[size_t(i)], order[size_t(random.below(i + 1))]);
    order.resize(std::min(order.size(), size_t(std::max(count, 0))));
    std::vector<Sample> samples;
    for (const int at : order) samples.push_back({QStringLiteral("intact"), m_paths[at], m_sources[size_t(at)].bytes});
    return samples;
}

} // namespace soak
