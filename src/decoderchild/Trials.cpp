#include "decoderchild/Trials.h"

#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool runsAnotherProgram()
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl("/bin/true", "true", nullptr);
        ::_exit(1);
    }
    return child > 0 && ::waitpid(child, nullptr, 0) == child;
}

QStringList escapes()
{
    struct stat info = {};
    struct Attempt
    {
        const char *name;
        bool done;
    };
    const Attempt attempts[] = {
        {"read a file", ::open("/etc/passwd", O_RDONLY | O_CLOEXEC) >= 0},
        {"write a file", ::open("/tmp/kesmira-escaped", O_WRONLY | O_CREAT | O_CLOEXEC, 0600) >= 0},
        {"look for a file", ::stat("/etc/passwd", &info) == 0},
        {"remove a file", ::unlink("/tmp/kesmira-escaped") == 0},
        {"reach the network", ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0) >= 0},
        {"reach a local service", ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0) >= 0},
        {"start a process", runsAnotherProgram()},
        {"signal the parent", ::kill(::getppid(), 0) == 0},
        {"trace", ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0},
        {"run what it wrote",
         ::mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED},
    };
    QStringList done;
    for (const Attempt &attempt : attempts)
        if (attempt.done) done.append(QString::fromLatin1(attempt.name));
    return done;
}

[[noreturn]] void hoard()
{
    constexpr size_t kPart = size_t(16) << 20;
    while (void *part = std::malloc(kPart)) std::memset(part, 1, kPart);
    std::abort();
}

} // namespace

QStringList misbehave(decoder::Trial trial)
{
    switch (trial) {
    case decoder::Trial::Escape: return escapes();
    case decoder::Trial::Break: std::abort();
    case decoder::Trial::Spin:
        for (volatile bool on = true; on;) {
        }
        break;
    case decoder::Trial::Hoard: hoard();
    case decoder::Trial::Lie: break;
    }
    return {};
}
