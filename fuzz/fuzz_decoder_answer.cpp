// Foreign bytes in place of the decoder process's answer: nonsense is refused and changes nothing, and what is taken is
// what could have been said, in as little memory as was offered.
#include "FuzzRun.h"
#include "decoder/Protocol.h"

#include <vector>

namespace {

constexpr quint64 kRoom = 64 * 1024;

bool isSane(const decoder::Answer &answer)
{
    const bool sized = answer.size.width() > 0 && answer.size.height() > 0;
    return answer.opens == sized && (answer.opens || answer.picture.isNull()) && answer.warnings.size() <= 100
        && answer.problem.size() <= 1000 && answer.icon.width() <= decoder::kIconSide
        && answer.icon.height() <= decoder::kIconSide && decoder::pixelBytes(answer.picture) <= kRoom;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::vector<uchar> memory(kRoom, 0x5A);
    const auto pixels = [&memory](quint64 bytes) {
        demand(bytes <= kRoom, "more pixels are asked for than there is room");
        return memory.data();
    };
    decoder::Answer answer, again;
    const QByteArray before = decoder::pack(answer);
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    if (!decoder::unpack(input, kRoom, pixels, answer)) {
        demand(decoder::pack(answer) == before, "an answer that was refused has left something");
        return 0;
    }
    demand(isSane(answer), "an answer that can't have been given was taken");
    const QByteArray told = decoder::pack(answer);
    demand(told.size() <= decoder::kArenaBytes, "an answer is longer than its place");
    demand(decoder::unpack(told, kRoom, pixels, again) && decoder::pack(again) == told
               && again.picture == answer.picture,
           "said once more, an answer is another one");
    return 0;
}
