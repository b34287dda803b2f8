// The reading copy of what may be a rewritten HEIC: its boxes fill it to the end, and its tiles are the file's.
// By hand: build/fuzz/fuzz/fuzz_heic_reading_copy -max_len=6000 CORPUS_FOLDER
#include "FuzzRun.h"

#include "engine/heic/ReadingCopy.h"
#include "support/ByteSource.h"
#include "support/PlainTiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    ByteSource source(bytes);
    FileWindow file(source);
    const ReadingCopy copy = makeReadingCopy(file);
    QString problem;
    const QByteArray whole = readingCopyBytes(file, problem);
    demand(problem == copy.problem, "two opinions");
    demand(whole.isEmpty() == !problem.isEmpty(), "bytes with a problem, or neither");
    if (whole.isEmpty()) return 0;
    QByteArray types;
    qint64 at = 0;
    while (at < whole.size()) {
        types += whole.mid(int(at) + 4, 4);
        demand(plainNumber(whole, at) >= 8, "a box without room for its type");
        at += plainNumber(whole, at);
    }
    demand(at == whole.size() && types == "ftypmetamdat", "the boxes don't fill the copy");
    demand(whole.endsWith(bytes.mid(int(copy.tilesAt))), "not the file's tiles");
    demand(whole.size() <= 2 * bytes.size() + 200, "bytes out of nowhere");
    return 0;
}
