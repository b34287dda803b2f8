// A sample's header on a damaged file's entropy data. The first two bytes say where the input is cut into the two.
// By hand: build/fuzz/fuzz/fuzz_sample_scan -max_len=16384 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "engine/jpg_repair.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2) return 0;
    prepareFuzzRun();
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 2, int(size) - 2);
    const int cut = (data[0] << 8 | data[1]) % (bytes.size() + 1);
    const QByteArray healthy = bytes.left(cut);
    const QByteArray damaged = bytes.mid(cut);
    const QString sample = fuzzSource(QStringLiteral("sample.jpg"), healthy);
    const QString source = fuzzSource(QStringLiteral("source.jpg"), damaged);
    demand(beginRun(), "the working folder can't be made");
    const FileOutcome outcome = repairOneFileWithSample(sample, source);

    demand(fileBytes(sample) == healthy && fileBytes(source) == damaged, "a source has changed");
    const QByteArray made = fileBytes(pApp->strTempDir + QStringLiteral("source.jpg"));
    demand(made.startsWith("\xFF\xD8"), "no SOI in front");
    // Behind the header stands the damaged file from 14 bytes behind its last SOS on.
    const int scan = damaged.lastIndexOf("\xFF\xDA");
    if (scan >= 2) demand(made.endsWith(damaged.mid(scan + 14)), "not the damaged file's tail");
    if (scan < 2 && healthy.mid(2, 2) != "\xFF\xE1") demand(made.size() == 2, "bytes out of nowhere");
    demand(outcome.results.size() <= 1, "more than one output");
    return 0;
}
