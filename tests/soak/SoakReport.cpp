#include "soak/SoakReport.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace soak {

namespace {

constexpr auto kIntact = "intact";

QString cell(const QString &text, int width)
{
    return QStringLiteral(" %1 |").arg(text, width);
}

/// Files of one kind, or of all.
struct Row
{
    QString name;
    int n = 0;
    std::array<int, kWays> rescued{};

    void count(const Measured &measured)
    {
        ++n;
        for (size_t way = 0; way < kWays; ++way) rescued[way] += measured.ways[way].rescued() ? 1 : 0;
    }
};

void print(const Row &row, const Soak &soak, QTextStream &out)
{
    out << "| " << row.name.leftJustified(34) << " |" << cell(QString::number(row.n), 4);
    for (size_t way = 0; way < kWays; ++way) {
        const int width = int(qstrlen(kWayNames[way]));
        out << cell(soak.tried[way] ? QString::number(row.rescued[way]) : QStringLiteral("-"), width);
    }
    out << '\n';
}

void printTable(const Soak &soak, QTextStream &out)
{
    out << "| " << QString("Damage").leftJustified(34) << " |    n |";
    for (const char *name : kWayNames) out << ' ' << name << " |";
    out << "\n|" << QString(36, '-') << "|-----:|";
    for (const char *name : kWayNames) out << QString(int(qstrlen(name)) + 1, '-') << ":|";
    out << '\n';
    std::vector<Row> rows;
    Row total{"all kinds"};
    for (size_t i = 0; i < soak.measured.size(); ++i) {
        if (soak.samples[i].kind == kIntact) continue;
        if (rows.empty() || rows.back().name != soak.samples[i].kind) rows.push_back({soak.samples[i].kind});
        rows.back().count(soak.measured[i]);
        total.count(soak.measured[i]);
    }
    for (const Row &row : rows) print(row, soak, out);
    print(total, soak, out);
}

/// The value that `share` of them don't exceed.
qint64 quantile(std::vector<qint64> values, double share)
{
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, size_t(share * double(values.size())))];
}

void printTimes(const char *what, const std::vector<qint64> &values, QTextStream &out)
{
    out << "Milliseconds of " << what << ", " << values.size() << " files: median " << quantile(values, 0.5)
        << ", 95 % " << quantile(values, 0.95) << ", worst " << quantile(values, 1) << '\n';
}

void printShares(const Soak &soak, int damaged, QTextStream &out)
{
    QStringList shares;
    for (size_t way = 0; way < kWays; ++way) {
        if (!soak.tried[way]) continue;
        double sum = 0;
        for (size_t i = 0; i < soak.measured.size(); ++i)
            if (soak.samples[i].kind != kIntact) sum += soak.measured[i].ways[way].rightShare;
        shares << QStringLiteral("%1 %2 %").arg(kWayNames[way], QString::number(100 * sum / damaged, 'f', 1));
    }
    out << "Mean share of right pixels (every channel within " << Comparison::kWrongFrom - 1
        << " levels; none where the size is another): " << shares.join(", ") << '\n';
}

void printCertainties(const Soak &soak, QTextStream &out)
{
    for (const char *word : {"exact", "likely", "guess"}) {
        int shown = 0;
        int shownRescued = 0;
        int alone = 0;
        int aloneRescued = 0;
        for (size_t i = 0; i < soak.measured.size(); ++i) {
            const Measured &one = soak.measured[i];
            if (soak.samples[i].kind == kIntact) continue;
            if (one.salvaged && one.certainty == word) {
                ++shown;
                shownRescued += one.of(Way::Both).rescued() ? 1 : 0;
            }
            if (one.aloneCertainty == word) {
                ++alone;
                aloneRescued += one.of(Way::Alone).rescued() ? 1 : 0;
            }
        }
        out << "Certainty " << word << ": " << shown << " shown, " << shownRescued << " of them rescued; alone "
            << alone << ", " << aloneRescued << " of them rescued\n";
    }
}

/// The heading with the number of what `wanted` picks, then a line for each.
void printList(const QString &heading, const Soak &soak, const std::function<QString(const Measured &, bool)> &wanted,
               QTextStream &out)
{
    QStringList lines;
    for (size_t i = 0; i < soak.measured.size(); ++i) {
        const QString word = wanted(soak.measured[i], soak.samples[i].kind == kIntact);
        if (!word.isEmpty()) lines << "  " + nameOf(soak, i) + ": " + word;
    }
    out << heading << ": " << lines.size() << '\n';
    for (const QString &line : qAsConst(lines)) out << line << '\n';
}

QString levels(const Comparison &comparison)
{
    return comparison.sameSize ? QString::number(comparison.meanDifference, 'f', 1) + " levels"
                               : QString("no such size");
}

QString workOf(const Measured &measured)
{
    const QString steps = measured.steps.isEmpty() ? QString("no step") : measured.steps.join(", ");
    return steps + "; " + (measured.certainty.isEmpty() ? QString("nothing") : measured.certainty)
        + (measured.salvaged         ? ""
               : measured.salvageRan ? " (alone; not shown)"
                                     : " (alone; didn't run)");
}

void printIntact(const Soak &soak, QTextStream &out)
{
    int intact = 0;
    int same = 0;
    for (size_t i = 0; i < soak.measured.size(); ++i) {
        if (soak.samples[i].kind != kIntact) continue;
        ++intact;
        same += soak.measured[i].of(Way::Alone).samePixels() ? 1 : 0;
    }
    if (intact == 0) return;
    out << "Intact files: " << intact << "; salvage alone leaves every pixel in " << same << '\n';
    printList(
        "Intact files changed", soak,
        [](const Measured &one, bool isIntact) { return isIntact && one.salvaged ? workOf(one) : QString(); }, out);
    printList(
        "Intact files that salvage alone changes", soak,
        [](const Measured &one, bool isIntact) {
            if (!isIntact || one.of(Way::Alone).samePixels()) return QString();
            return levels(one.of(Way::Alone)) + "; " + workOf(one);
        },
        out);
}

} // namespace

bool isRegression(const Measured &measured)
{
    return measured.of(Way::Told).rescued() && !measured.of(Way::Both).rescued();
}

QString nameOf(const Soak &soak, size_t at)
{
    return QStringLiteral("%1 %2, %3")
        .arg(QFileInfo(soak.measured[at].path).completeBaseName(), soak.samples[at].kind,
             QFileInfo(soak.samples[at].source).fileName());
}

void printReport(const Soak &soak, QTextStream &out)
{
    const int damaged = int(std::count_if(soak.samples.begin(), soak.samples.end(),
                                          [](const Sample &sample) { return sample.kind != kIntact; }));
    if (damaged > 0) {
        out << "Rescued: the size of the source, and a mean difference below " << Comparison::kRescuedBelow
            << " levels over all channels.\n\n";
        printTable(soak, out);
        out << '\n';
        printShares(soak, damaged, out);
        std::vector<qint64> behind;
        std::vector<qint64> alone;
        for (size_t i = 0; i < soak.measured.size(); ++i) {
            if (soak.samples[i].kind == kIntact) continue;
            if (soak.measured[i].milliseconds >= 0) behind.push_back(soak.measured[i].milliseconds);
            if (soak.measured[i].aloneMilliseconds >= 0) alone.push_back(soak.measured[i].aloneMilliseconds);
        }
        printTimes("the salvage behind the told ways", behind, out);
        printTimes("the salvage alone", alone, out);
        printCertainties(soak, out);
    }
    printIntact(soak, out);
    printList(
        "Told outputs that differ with salvage switched on", soak,
        [](const Measured &one, bool) { return one.differing.join(", "); }, out);
    printList(
        "Crashes and hangs", soak, [](const Measured &one, bool) { return one.mishaps.join(", "); }, out);
    printList(
        "Regressions (told rescued, told then salvage not)", soak,
        [](const Measured &one, bool) {
            return isRegression(one)
                ? levels(one.of(Way::Told)) + ", then " + levels(one.of(Way::Both)) + "; " + workOf(one)
                : QString();
        },
        out);
}

void printLost(const Soak &soak, QTextStream &out)
{
    printList(
        "Not rescued by told then salvage", soak,
        [](const Measured &one, bool isIntact) {
            if (isIntact || one.of(Way::Both).rescued()) return QString();
            const QString alone = one.of(Way::Alone).rescued() ? "; alone rescues" : "";
            return workOf(one) + "; " + levels(one.of(Way::Both)) + ", "
                + QString::number(100 * one.of(Way::Both).rightShare, 'f', 0) + " % right" + alone;
        },
        out);
}

} // namespace soak
