#include "decoder/Client.h"

#include <QElapsedTimer>

#include <algorithm>

#include <sys/stat.h>

namespace decoder {
namespace {

constexpr int kSliceMilliseconds = 20;
constexpr int kStartMilliseconds = 15000;
/// Beside the picture: small buffers, icons, the memory in which answers stand.
constexpr quint64 kAddressesBeside = quint64(64) << 20;

qint64 now()
{
    QElapsedTimer timer;
    timer.start();
    return timer.msecsSinceReference();
}

/// Seconds of the processor for a file. A megabyte of JPEG takes 30 ms, of HEIC 300 ms; a slow machine ten times that.
int secondsFor(quint64 bytes)
{
    return int(std::min<quint64>(20 + 4 * (bytes >> 20), 300));
}

quint64 pictureRoom(const QSize &box)
{
    if (box.isEmpty()) return quint64(kWholePictureBytes);
    return quint64(box.width()) * quint64(box.height()) * 4;
}

Answer withoutPicture(Ending ending)
{
    Answer answer;
    answer.ending = ending;
    switch (ending) {
    case Ending::Told: break;
    case Ending::BrokeOff:
        answer.problem = QStringLiteral("the decoder broke off: the file is damaged, or asks for too much");
        break;
    case Ending::TookTooLong: answer.problem = QStringLiteral("the decoder took too long"); break;
    case Ending::Stopped: answer.problem = QStringLiteral("the decoder was stopped"); break;
    case Ending::NotStarted: answer.problem = QStringLiteral("the decoder can't be started"); break;
    }
    return answer;
}

} // namespace

void Client::start()
{
    const std::lock_guard lock(m_mutex);
    if (usable()) return;
    m_hello = Note();
    m_lastMoment = now();
    m_child.start(decoderProgram());
}

void Client::end()
{
    const std::lock_guard lock(m_mutex);
    m_child.end();
}

pid_t Client::pid()
{
    const std::lock_guard lock(m_mutex);
    return m_child.pid();
}

/// True for a process that is there and won't end by itself before the question reaches it.
bool Client::usable()
{
    if (!m_child.isStarted() || now() - m_lastMoment > kIdleSeconds * 1000 / 2) return false;
    if (m_hello.version == 0) return true; // its first note may be waiting
    Note unasked;
    return m_child.wait(unasked, 0) == ChildProcess::Wait::Silent;
}

Answer Client::view(int file, const QSize &box, const Terms &terms)
{
    return askForPicture(Task::View, file, box, terms);
}

Answer Client::show(int file, const QSize &box, const Terms &terms)
{
    return askForPicture(Task::Show, file, box, terms);
}

Answer Client::heic(int file, const QSize &box, const Terms &terms)
{
    return askForPicture(Task::Heic, file, box, terms);
}

Answer Client::askForPicture(Task task, int file, const QSize &box, const Terms &terms)
{
    Request request{kVersion, task};
    request.width = std::max(box.width(), 0);
    request.height = std::max(box.height(), 0);
    request.pictureBytes = pictureRoom(box);
    return ask(request, file, terms);
}

Answer Client::trial(Trial trial, const Terms &terms)
{
    Request request{kVersion, Task::Trial};
    request.width = qint32(trial);
    return ask(request, -1, terms);
}

/// Waits for the note with this number. The process is ended unless it came.
Ending Client::waitFor(quint64 number, Note &note, qint64 milliseconds, const Terms &terms)
{
    QElapsedTimer whole, grace;
    whole.start();
    Ending ending = Ending::TookTooLong;
    while (whole.elapsed() < milliseconds) {
        const ChildProcess::Wait wait = m_child.wait(note, kSliceMilliseconds);
        if (wait == ChildProcess::Wait::Said && note.number == number) return Ending::Told;
        if (wait != ChildProcess::Wait::Silent) {
            ending = Ending::BrokeOff;
            break;
        }
        if (!terms.stopped || !terms.stopped()) continue;
        if (!grace.isValid()) grace.start();
        if (grace.elapsed() < terms.graceMilliseconds) continue;
        ending = Ending::Stopped;
        break;
    }
    m_child.end();
    return ending;
}

/// Sees to it that a process waits for a question.
Ending Client::ready(const Terms &terms)
{
    if (!usable()) {
        m_hello = Note();
        if (!m_child.start(decoderProgram())) return Ending::NotStarted;
    }
    if (m_hello.version != 0) return Ending::Told;
    Note hello;
    const Ending ending = waitFor(0, hello, kStartMilliseconds, terms);
    if (ending == Ending::Stopped) return ending;
    if (ending != Ending::Told || hello.version != kVersion) {
        m_child.end();
        return Ending::NotStarted;
    }
    m_hello = hello;
    return Ending::Told;
}

Answer Client::ask(Request request, int file, const Terms &terms)
{
    struct stat info = {};
    if (file >= 0 && ::fstat(file, &info) == 0) request.fileBytes = quint64(info.st_size);
    request.memory = terms.memory;
    SharedMemory picture;
    if (request.pictureBytes > 0 && !picture.create("picture", qint64(request.pictureBytes)))
        return withoutPicture(Ending::NotStarted);

    const std::lock_guard lock(m_mutex);
    if (const Ending ending = ready(terms); ending != Ending::Told) return withoutPicture(ending);
    request.number = ++m_number;
    const int seconds = secondsFor(request.fileBytes);
    m_child.limit(m_hello.bytes + terms.memory + request.pictureBytes + kAddressesBeside, seconds);
    Note note;
    if (!m_child.send(request, {file, picture.number()})) {
        m_child.end();
        return withoutPicture(Ending::BrokeOff);
    }
    if (const Ending ending = waitFor(request.number, note, 2000 * seconds, terms); ending != Ending::Told)
        return withoutPicture(ending);
    m_lastMoment = now();

    Answer answer;
    const auto pixels = [&picture](quint64 bytes) { return picture.map(bytes); };
    if (unpack(m_child.arena(note.bytes), request.pictureBytes, pixels, answer)) return answer;
    m_child.end();
    return withoutPicture(Ending::BrokeOff);
}

} // namespace decoder
