// The boxes of CR3, and its carve against the slow one.
// By hand: build/fuzz/fuzz/fuzz_raw_cr3 -max_len=2000 CORPUS_FOLDER build/fuzz/fuzz/seeds/raw
#include "FuzzRun.h"
#include "engine/Guards.h"
#include "support/ByteSource.h"
#include "support/SteppingCarve.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), int(size));
    ByteSource source(file);
    FileWindow window(source);
    FileWindow narrow(source, 1 + (size ? data[size - 1] : 0));
    quint32 position = 0;
    const Cr3Images images = findCr3Images(window, position);
    demand(findCr3Images(narrow, position) == images, "the block size shows");
    if (images.carved) demand(images == steppingCr3Carve(file), "the carves differ");
    for (const Cr3Image &image : {images.full, images.preview, images.thumbnail})
        demand(image.length <= guards::kCr3Image, "a length that no picture has");
    return 0;
}
