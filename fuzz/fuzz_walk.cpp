// The walk of a whole file against the slow walk that looks at every position.
// By hand: build/fuzz/fuzz/fuzz_walk -max_len=4096 CORPUS_FOLDER samples
#include "support/EngineView.h"
#include "support/SteppingWalk.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), int(size));
    const int blockSize = 1 + (size ? data[size - 1] : 0); // the input picks the block size too
    const QString difference = describeDifference(engineWalk(file, blockSize), steppingWalk(file));
    if (!difference.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(difference));
        std::abort();
    }
    return 0;
}
