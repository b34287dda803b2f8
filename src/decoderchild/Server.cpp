#include "decoderchild/Server.h"

#include "decoder/Channel.h"
#include "decoder/Protocol.h"
#include "decoderchild/Handlers.h"
#include "decoderchild/Sandbox.h"

#include <QFile>

#include <cstring>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace decoder {
namespace {

/// Bytes of addresses in use.
quint64 addressesUsed()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    const QByteArray pages = file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').first() : QByteArray();
    return pages.toULongLong() * quint64(::sysconf(_SC_PAGESIZE));
}

/// Ends the process when the parent is gone, whatever it is decoding then: nobody waits for the picture.
void watchParent()
{
    std::thread([] {
        pollfd poll{kSocketNumber, 0, 0};
        while (::poll(&poll, 1, -1) <= 0) {
        }
        ::_exit(0);
    }).detach();
}

/// The next request; false when the parent is gone, says nothing for long, or speaks another language.
bool nextRequest(Request &request, Companions &companions)
{
    pollfd poll{kSocketNumber, POLLIN, 0};
    return ::poll(&poll, 1, kIdleSeconds * 1000) == 1
        && receiveMessage(kSocketNumber, &request, sizeof request, &companions) && request.version == kVersion;
}

/// False if there was no room for it.
bool handOver(const Request &request, const Answer &answer, int memory)
{
    const quint64 bytes = pixelBytes(answer.picture);
    if (bytes == 0) return true;
    SharedMemory picture;
    uchar *to = bytes <= request.pictureBytes ? picture.map(memory, bytes) : nullptr;
    if (!to) return false;
    std::memcpy(to, answer.picture.constBits(), size_t(bytes));
    return true;
}

bool answerTo(const Request &request, Companions &companions, uchar *arena)
{
    const bool withFile = request.task != Task::Trial;
    FileSource file(withFile ? companions[0].release() : -1, request.fileBytes);
    QImage decoded;
    Answer answer = handle(request, file, decoded);
    if (!handOver(request, answer, companions[withFile ? 1 : 0].number())) {
        answer = Answer();
        answer.problem = QStringLiteral("the picture has more pixels than can be shown");
    }
    QByteArray bytes = pack(answer);
    if (bytes.size() > kArenaBytes) return false;
    if (request.task == Task::Trial && request.width == qint32(Trial::Lie)) bytes.fill('\x7F');
    std::memcpy(arena, bytes.constData(), size_t(bytes.size()));
    const Note note{request.number, quint64(bytes.size()), 0, 0};
    return sendMessage(kSocketNumber, &note, sizeof note);
}

} // namespace

int serve()
{
    for (const int number : {kSocketNumber, kArenaNumber}) ::fcntl(number, F_SETFD, FD_CLOEXEC);
    SharedMemory memory;
    uchar *const arena = memory.map(kArenaNumber, quint64(kArenaBytes));
    if (!arena || !loadDecoders()) return 1;
    prepareForShelter();
    const quint64 addresses = addressesUsed();
    const bool sheltered = enterShelter();
    watchParent(); // the filter covers threads that start behind it
    const Note hello{0, addresses, kVersion, sheltered ? 1U : 0U};
    if (!sendMessage(kSocketNumber, &hello, sizeof hello)) return 1;
    while (true) {
        Request request;
        Companions companions;
        if (!nextRequest(request, companions) || !answerTo(request, companions, arena)) break;
    }
    ::_exit(0); // nothing is left to be put away, and the shelter would refuse most of it
}

} // namespace decoder
