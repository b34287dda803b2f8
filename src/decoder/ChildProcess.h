// One decoder process as its parent sees it: started, limited, asked, ended.
#pragma once

#include "decoder/Channel.h"
#include "decoder/Protocol.h"

#include <QString>

#include <sys/types.h>

namespace decoder {

/// The decoder's program: beside the running one, or in the folder "bin" beside its folder, where programs are built.
/// To be asked for at each start: an update moves the running program's folder.
QString decoderProgram();

class ChildProcess
{
public:
    ChildProcess() = default;
    /// Ends the process.
    ~ChildProcess() { end(); }
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    /// Starts `program` and returns at once; it is ready when its first note is there. False if it can't be started.
    bool start(const QString &program);
    /// Kills it. What the system still has to clean up behind it isn't waited for.
    void end();
    bool isStarted() const { return m_pid > 0; }
    pid_t pid() const { return m_pid; }

    /// From now on it is killed when it takes so many more seconds of the processor, and gets no memory beyond so many
    /// bytes of addresses (under a sanitizer, which reserves terabytes, as much as it wants).
    void limit(quint64 addresses, int seconds) const;

    bool send(const Request &request, const std::array<int, 2> &companions) const;
    enum class Wait { Said, Silent, Gone };
    /// Waits for its next note, at most so many milliseconds.
    Wait wait(Note &note, int milliseconds) const;
    /// A copy of the first bytes of the arena, at most all of it, which the process can no longer change.
    QByteArray arena(quint64 bytes) const;

private:
    pid_t m_pid = -1;
    Descriptor m_socket;
    SharedMemory m_arena;
    const uchar *m_arenaBytes = nullptr;
};

} // namespace decoder
