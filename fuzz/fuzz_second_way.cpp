// The way for a file without a header: what it leaves is an SOI and the file's own tail, or nothing.
// By hand: build/fuzz/fuzz/fuzz_second_way -max_len=16384 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "engine/jpg_repair.h"

namespace {

bool isOneOf(const QByteArray &file, int at, std::initializer_list<int> codes)
{
    if (at < 0 || at + 1 >= file.size() || quint8(file[at]) != 0xFF) return false;
    for (const int code : codes)
        if (quint8(file[at + 1]) == code) return true;
    return false;
}

/// Position by position: where the usable segments begin, or -1.
int entryOf(const QByteArray &file)
{
    bool segmentSeen = false;
    for (int at = 2; at < file.size();) {
        if (isOneOf(file, at, {0xE0, 0xE1, 0xE2, 0xEC, 0xED})) {
            segmentSeen = true;
            const auto byte = [&file](int i) { return i < file.size() ? quint8(file[i]) : 0; };
            const int length = byte(at + 2) << 8 | byte(at + 3);
            if (length < file.size()) {
                if (isOneOf(file, at + length + 2, {0xDB, 0xC4, 0xE0})) return at + length + 2;
                at += length + 1;
                continue;
            }
        }
        ++at;
    }
    if (segmentSeen) return -1;
    for (int at = file.size() - 1; at >= 2; --at)
        if (isOneOf(file, at, {0xDB})) return at;
    return -1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    prepareFuzzRun();
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QString source = fuzzSource(QStringLiteral("source.jpg"), bytes);
    demand(beginRun(), "the working folder can't be made");
    pApp->lstResultNames.clear();
    const bool loads = jpg_repair().reRepairing(source);
    const QByteArray made = fileBytes(pApp->strTempDir + QStringLiteral("/source.jpg"));
    const int entry = entryOf(bytes);
    demand(made == (entry < 0 ? QByteArray() : "\xFF\xD8" + bytes.mid(entry)), "not the tail behind a fresh SOI");
    demand(loads == !pApp->lstResultNames.isEmpty(), "result and list disagree");
    return 0;
}
