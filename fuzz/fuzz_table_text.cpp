// Foreign bytes as table texts; what loads is then searched, and must agree with a plain search of the same texts.
// By hand: build with clang, then `fuzz_table_text -max_len=8192 SEEDS...`; one input again: `fuzz_table_text FILE`.
// An input is a Huffman text and a quantization text with the first "|" between them; the byte behind the last "|"
// picks the damage of the requests.
#include "tables/Hoffmann.h"
#include "tables/PlainTableSearch.h"
#include "tables/Quantization.h"
#include "tables/TableLibrary.h"

#include <cstdlib>

namespace {

void demand(bool holds)
{
    if (!holds) std::abort();
}

QByteArray copyOf(const quint8 *bytes, qint64 count)
{
    return bytes ? QByteArray(reinterpret_cast<const char *>(bytes), int(count)) : QByteArray();
}

void searchHuffman(const QVector<plainsearch::Row> &rows, int damage)
{
    for (const plainsearch::Row &row : rows) {
        *pApp = KesmiraApp();
        pApp->nDhtCount = 1 + quint32(damage & 1);
        QByteArray segment = row.segment;
        segment[damage % segment.size()] = char(segment[damage % segment.size()] ^ damage);
        plainsearch::setInnerTables(segment);
        QByteArray head = segment.leftJustified(32, '\0', true);
        const quint8 *const found =
            Hoffmann().Hoffmann_table(reinterpret_cast<quint8 *>(head.data()), quint8(head[2]) << 8 | quint8(head[3]));
        demand(copyOf(found, qint64(pApp->nHuffmanResultLength)) == plainsearch::findHuffman(rows, segment));
    }
}

void searchQuantization(const QVector<plainsearch::Row> &rows, int damage)
{
    for (const plainsearch::Row &row : rows) {
        for (const quint32 form : {67, 132, 197}) {
            *pApp = KesmiraApp();
            pApp->nDqtLength = form;
            pApp->nDqtIndex = quint32(damage) % 4;
            pApp->nDqt67Count = quint32(damage) % 5;
            quint8 *const heads[] = {pApp->aQuantHead1, pApp->aQuantHead2, pApp->aQuantHead3};
            for (int table = 0; table < row.tables(); ++table) {
                std::copy_n(row.values(table).constData(), 25, heads[table]);
                if (damage >> table & 1) heads[table][damage % 25] = quint8(damage);
            }
            const quint8 *const found = Quantization().Quantization_table();
            demand((found == nullptr) == pApp->bQuantNotFound);
            demand(copyOf(found, form + 2) == plainsearch::findQuantization(rows));
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input = copyOf(data, qint64(size));
    const int middle = input.indexOf('|');
    const int end = input.lastIndexOf('|');
    if (middle < 0) return 0;
    const QByteArray huffmanText = input.left(middle);
    const QByteArray quantizationText = end > middle ? input.mid(middle + 1, end - middle - 1) : input.mid(middle + 1);
    const int damage = end > middle && end + 1 < input.size() ? quint8(input[end + 1]) : 0;

    TableLibrary library;
    QString error;
    const bool loaded = TableLibrary::load(huffmanText, quantizationText, library, &error);
    demand(loaded == error.isEmpty() && !error.contains('\n') && error.size() < 200);
    if (!loaded) return 0;
    const ScopedTables scope(library);
    searchHuffman(plainsearch::rowsOf(huffmanText), damage);
    searchQuantization(plainsearch::rowsOf(quantizationText), damage);
    return 0;
}
