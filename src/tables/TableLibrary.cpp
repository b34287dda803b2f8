#include "tables/TableLibrary.h"

#include "tables/TableText.h"

#include <QFile>

#include <algorithm>
#include <atomic>

// The data lies in a static library, whose resources nobody registers unasked; the macro wants the global namespace.
static void registerTableData()
{
    Q_INIT_RESOURCE(tables);
}

namespace {

constexpr const char *kHuffmanFile = "huffman.txt";
constexpr const char *kQuantizationFile = "quantization.txt";

QString located(const char *file, int line, const QString &what)
{
    return QStringLiteral("%1:%2: %3").arg(QLatin1String(file)).arg(line).arg(what);
}

// Hands each record of a text with its line number to `take`, which returns "" or what is wrong with the record.
template<typename Take>
QString eachRecord(const QByteArray &text, const char *file, Take take)
{
    std::string_view rest(text.constData(), size_t(text.size()));
    for (int number = 1; !rest.empty(); ++number) {
        const std::string_view line = tabletext::takeLine(rest);
        if (line.empty() || line.front() == '#') continue;
        const QString wrong = take(line, number);
        if (!wrong.isEmpty()) return located(file, number, wrong);
    }
    return {};
}

QString sortByPosition(std::vector<QuantizationRow> &rows)
{
    const auto earlier = [](const QuantizationRow &a, const QuantizationRow &b) { return a.position < b.position; };
    if (!std::is_sorted(rows.begin(), rows.end(), earlier)) std::stable_sort(rows.begin(), rows.end(), earlier);
    const auto twin =
        std::adjacent_find(rows.begin(), rows.end(),
                           [](const QuantizationRow &a, const QuantizationRow &b) { return a.position == b.position; });
    if (twin == rows.end()) return {};
    return located(kQuantizationFile, std::next(twin)->line,
                   QStringLiteral("position %1 is that of line %2").arg(twin->position).arg(twin->line));
}

struct BuiltIn
{
    TableLibrary library;
    QString error;
};

QString readBuiltIn(TableLibrary &library)
{
    registerTableData();
    QByteArray texts[2];
    constexpr const char *names[] = {kHuffmanFile, kQuantizationFile};
    for (int i = 0; i < 2; ++i) {
        QFile file(QStringLiteral(":/tables/") + QLatin1String(names[i]));
        if (!file.open(QIODevice::ReadOnly))
            return QStringLiteral("%1: the table data is missing").arg(QLatin1String(names[i]));
        texts[i] = file.readAll();
    }
    QString error;
    TableLibrary::load(texts[0], texts[1], library, &error);
    return error;
}

const BuiltIn &builtInTables()
{
    static const BuiltIn tables = [] {
        BuiltIn read;
        read.error = readBuiltIn(read.library);
        return read;
    }();
    return tables;
}

std::atomic<const TableLibrary *> installed = nullptr;

} // namespace

bool TableLibrary::load(const QByteArray &huffmanText, const QByteArray &quantizationText, TableLibrary &out,
                        QString *error)
{
    TableLibrary read;
    QString wrong = eachRecord(huffmanText, kHuffmanFile, [&read](std::string_view line, int number) {
        HuffmanRow &row = read.m_huffman.emplace_back();
        row.line = number;
        return tabletext::readHuffmanRecord(line, row);
    });
    if (wrong.isEmpty()) {
        wrong = eachRecord(quantizationText, kQuantizationFile, [&read](std::string_view line, int number) {
            QuantizationRow row;
            row.line = number;
            QuantizationFamily family{};
            QuantizationKind kind{};
            const QString bad = tabletext::readQuantizationRecord(line, family, kind, row);
            if (bad.isEmpty()) read.m_quantization[size_t(family)][size_t(kind)].push_back(std::move(row));
            return bad;
        });
    }
    for (auto &family : read.m_quantization) {
        for (std::vector<QuantizationRow> &rows : family) {
            if (wrong.isEmpty()) wrong = sortByPosition(rows);
        }
    }
    if (error) *error = wrong;
    if (!wrong.isEmpty()) return false;
    out = std::move(read);
    return true;
}

const TableLibrary &TableLibrary::builtIn()
{
    return builtInTables().library;
}

const TableLibrary &TableLibrary::current()
{
    const TableLibrary *const other = installed.load(std::memory_order_acquire);
    return other ? *other : builtIn();
}

QString checkBuiltInTables()
{
    return builtInTables().error;
}

ScopedTables::ScopedTables(const TableLibrary &library)
    : m_before(installed.exchange(&library, std::memory_order_acq_rel))
{
}

ScopedTables::~ScopedTables()
{
    installed.store(m_before, std::memory_order_release);
}
