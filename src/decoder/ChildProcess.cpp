#include "decoder/ChildProcess.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <ctime>
#include <mutex>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace decoder {
namespace {

/// Takes leave of killed processes. One that held gigabytes takes its time to vanish, and nobody should wait for that.
void bury(pid_t pid)
{
    // Never destroyed: the last process may be ended when the program's statics go.
    static std::mutex &mutex = *new std::mutex;
    static std::vector<pid_t> &dying = *new std::vector<pid_t>;
    const std::lock_guard lock(mutex);
    if (pid > 0) dying.push_back(pid);
    const auto gone = [](pid_t one) { return ::waitpid(one, nullptr, WNOHANG) != 0; };
    dying.erase(std::remove_if(dying.begin(), dying.end(), gone), dying.end());
}

/// What a new process does before it becomes another program.
class SpawnOrders
{
public:
    SpawnOrders(int socket, int arena)
    {
        // From numbers above those that they get, so that neither takes the other's place too early.
        m_socket = Descriptor(::fcntl(socket, F_DUPFD_CLOEXEC, kArenaNumber + 1));
        m_arena = Descriptor(::fcntl(arena, F_DUPFD_CLOEXEC, kArenaNumber + 1));
        ::posix_spawn_file_actions_init(&m_files);
        ::posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&m_files, m_socket.number(), kSocketNumber);
        ::posix_spawn_file_actions_adddup2(&m_files, m_arena.number(), kArenaNumber);
        ::posix_spawn_file_actions_addclosefrom_np(&m_files, kArenaNumber + 1);
        ::posix_spawnattr_init(&m_attributes);
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        ::posix_spawnattr_setsigmask(&m_attributes, &none);
        ::posix_spawnattr_setsigdefault(&m_attributes, &all);
        ::posix_spawnattr_setpgroup(&m_attributes, 0); // an interrupt from the terminal is the parent's to answer
        ::posix_spawnattr_setflags(&m_attributes,
                                   POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    ~SpawnOrders()
    {
        ::posix_spawn_file_actions_destroy(&m_files);
        ::posix_spawnattr_destroy(&m_attributes);
    }
    SpawnOrders(const SpawnOrders &) = delete;
    SpawnOrders &operator=(const SpawnOrders &) = delete;

    pid_t spawn(const QString &program) const
    {
        QByteArray path = QFile::encodeName(program);
        char *const arguments[] = {path.data(), nullptr};
        pid_t pid = -1;
        return ::posix_spawn(&pid, path.constData(), &m_files, &m_attributes, arguments, environ) == 0 ? pid : -1;
    }

private:
    Descriptor m_socket, m_arena;
    posix_spawn_file_actions_t m_files = {};
    posix_spawnattr_t m_attributes = {};
};

} // namespace

QString decoderProgram()
{
    QString folder = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
    if (folder.isEmpty()) folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + QStringLiteral("/KesmiraDecoder");
    return QFileInfo::exists(beside) ? beside : folder + QStringLiteral("/../bin/KesmiraDecoder");
}

bool ChildProcess::start(const QString &program)
{
    end();
    int pair[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair) != 0) return false;
    m_socket = Descriptor(pair[0]);
    const Descriptor theirs(pair[1]);
    if (!m_arena.create("answers", kArenaBytes)) return false;
    m_arenaBytes = m_arena.map(kArenaBytes);
    if (!m_arenaBytes) return false;
    m_pid = SpawnOrders(theirs.number(), m_arena.number()).spawn(program);
    if (m_pid <= 0) m_socket.reset();
    return m_pid > 0;
}

void ChildProcess::end()
{
    m_socket.reset();
    m_arena.unmap();
    m_arenaBytes = nullptr;
    if (m_pid > 0) ::kill(m_pid, SIGKILL);
    bury(m_pid);
    m_pid = -1;
}

void ChildProcess::limit(quint64 addresses, int seconds) const
{
    if (m_pid <= 0) return;
    const auto set = [this](__rlimit_resource resource, quint64 value) {
        rlimit limit = {};
        if (::prlimit(m_pid, resource, nullptr, &limit) != 0) return;
        limit.rlim_cur = std::min<rlim_t>(rlim_t(value), limit.rlim_max);
        ::prlimit(m_pid, resource, &limit, nullptr);
    };
#ifdef KESMIRA_SHADOW_MEMORY
    Q_UNUSED(addresses)
#else
    set(RLIMIT_AS, addresses);
#endif
    clockid_t clock = {};
    timespec used = {};
    if (::clock_getcpuclockid(m_pid, &clock) == 0 && ::clock_gettime(clock, &used) == 0)
        set(RLIMIT_CPU, quint64(used.tv_sec) + quint64(seconds));
}

bool ChildProcess::send(const Request &request, const std::array<int, 2> &companions) const
{
    return sendMessage(m_socket.number(), &request, sizeof request, companions);
}

ChildProcess::Wait ChildProcess::wait(Note &note, int milliseconds) const
{
    pollfd poll{m_socket.number(), POLLIN, 0};
    const int ready = ::poll(&poll, 1, milliseconds);
    if (ready == 0 || (ready < 0 && errno == EINTR)) return Wait::Silent;
    if (ready < 0) return Wait::Gone;
    return receiveMessage(m_socket.number(), &note, sizeof note) ? Wait::Said : Wait::Gone;
}

QByteArray ChildProcess::arena(quint64 bytes) const
{
    if (!m_arenaBytes || bytes > quint64(kArenaBytes)) return {};
    return {reinterpret_cast<const char *>(m_arenaBytes), int(bytes)};
}

} // namespace decoder
