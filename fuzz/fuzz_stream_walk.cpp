// The walk of a copy cut out of a container stream against the slow walk, and the stream's own walk with it.
// By hand: build/fuzz/fuzz/fuzz_stream_walk -max_len=4096 CORPUS_FOLDER samples
#include "support/EngineView.h"
#include "support/Grammar.h"
#include "support/SteppingWalk.h"

#include <cstdio>
#include <cstdlib>

namespace {

void demandEqual(const WalkResult &actual, const WalkResult &expected)
{
    const QString difference = describeDifference(actual, expected);
    if (difference.isEmpty()) return;
    std::fprintf(stderr, "%s\n", qPrintable(difference));
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray copy(reinterpret_cast<const char *>(data), int(size));
    const int blockSize = 1 + (size ? data[size - 1] : 0);
    demandEqual(engineRawWalk(copy, blockSize), steppingRawWalk(copy));
    // Three whole images in front make a stream of anything.
    const QByteArray stream = (nestedImage(words::DQT, 67) + bytes({0})).repeated(3) + copy;
    demandEqual(engineWalk(stream, blockSize), steppingWalk(stream));
    return 0;
}
