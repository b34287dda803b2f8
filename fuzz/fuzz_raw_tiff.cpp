// The scanners of TIFF-based formats, and their carves against the slow ones.
// By hand: build/fuzz/fuzz/fuzz_raw_tiff -max_len=2000 CORPUS_FOLDER build/fuzz/fuzz/seeds/raw
#include "RawCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QStringList suffixes{"CR2",  "NRW", "ARW", "NEF", "SR2", "SRF",
                                      "TIFF", "PEF", "ORF", "RW2", "DNG", "ERF"};
    checkRaw(QByteArray(reinterpret_cast<const char *>(data), int(size)), suffixes);
    return 0;
}
