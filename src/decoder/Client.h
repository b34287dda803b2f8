// Asks a decoder process about files, one after the other, and gets a new one when the old one broke.
#pragma once

#include "decoder/ChildProcess.h"

#include <functional>
#include <mutex>

namespace decoder {

/// What a decoding may take, and what ends it before its time.
struct Terms
{
    /// Bytes for the picture and what the decoder keeps beside it.
    quint64 memory = quint64(3) << 30;
    /// Asked about fifty times a second; true ends the process, whatever it is at.
    std::function<bool()> stopped;
    /// From the first time that `stopped` says so, it has so long to come to its end by itself.
    int graceMilliseconds = 0;
};

/// Any thread may ask; who comes while another waits for its answer waits for that one too. Nobody's waiting is endless:
/// a file has twice the seconds of the processor that its size allows for.
class Client
{
public:
    /// Starts a process beside whatever the caller does next, so that the first question finds it ready.
    void start();
    /// Ends the process; the next question starts another.
    void end();

    /// Each takes the descriptor of a regular file that is open for reading, and leaves it open.
    Answer judge(int file, const Terms &terms) { return ask({kVersion, Task::Judge}, file, terms); }
    /// The picture at most as large as `box`: its own size where it is smaller both ways.
    /// An empty box asks for the picture as it is, or as large as kWholePictureBytes hold it.
    Answer view(int file, const QSize &box, const Terms &terms);
    /// As view(), but turned and mirrored as the file's Exif data say, and with its colour profile.
    Answer show(int file, const QSize &box, const Terms &terms);
    /// A HEIC, likewise turned and with its profile; a picture of more bytes isn't shown.
    Answer heic(int file, const QSize &box, const Terms &terms);
    Answer trial(Trial trial, const Terms &terms);

    /// The process in use, -1 if there is none.
    pid_t pid();

private:
    Answer askForPicture(Task task, int file, const QSize &box, const Terms &terms);
    Answer ask(Request request, int file, const Terms &terms);
    Ending ready(const Terms &terms);
    Ending waitFor(quint64 number, Note &note, qint64 milliseconds, const Terms &terms);
    bool usable();

    std::mutex m_mutex;
    ChildProcess m_child;
    Note m_hello;            ///< the process's first note; version 0 while it isn't there
    qint64 m_lastMoment = 0; ///< when the process was last known to be awake
    quint64 m_number = 0;
};

} // namespace decoder
