// The scanners of CRW, RAF and MRW, and their carves against the slow ones.
// By hand: build/fuzz/fuzz/fuzz_raw_other -max_len=2000 CORPUS_FOLDER build/fuzz/fuzz/seeds/raw
#include "RawCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    checkRaw(QByteArray(reinterpret_cast<const char *>(data), int(size)), {"CRW", "RAF", "MRW"});
    return 0;
}
