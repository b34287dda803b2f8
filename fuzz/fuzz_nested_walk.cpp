// The walk of a working copy, alone and behind another image's chain, against the slow walk.
// By hand: build/fuzz/fuzz/fuzz_nested_walk -max_len=4096 CORPUS_FOLDER samples
#include "support/EngineView.h"
#include "support/SteppingWalk.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray whole(reinterpret_cast<const char *>(data), int(size));
    // The first byte says how much of the rest is the image in front.
    const int cut = size ? whole.size() * quint8(whole[0]) / 512 : 0;
    const QByteArray before = whole.mid(1, cut);
    const QByteArray copy = whole.mid(1 + cut);
    const int blockSize = 1 + (size ? data[size - 1] : 0);
    const WalkResult first = steppingWalk(before);
    const QString difference = describeDifference(engineTempWalk(copy, blockSize, first.bContainerWalk, &before),
                                                  steppingTempWalk(copy, {first.bContainerWalk, first, 3}));
    if (!difference.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(difference));
        std::abort();
    }
    return 0;
}
