#include "decoderchild/Sandbox.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// Calls that reach nothing but what the process holds already.
constexpr int kHarmless[] = {
    SCMP_SYS(read),
    SCMP_SYS(pread64),
    SCMP_SYS(write),
    SCMP_SYS(writev),
    SCMP_SYS(recvmsg),
    SCMP_SYS(sendmsg),
    SCMP_SYS(poll),
    SCMP_SYS(ppoll),
    SCMP_SYS(close),
    SCMP_SYS(lseek),
    SCMP_SYS(eventfd2),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(brk),
    SCMP_SYS(madvise),
    SCMP_SYS(futex),
    SCMP_SYS(rseq),
    SCMP_SYS(set_robust_list),
    SCMP_SYS(sched_yield),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(getrandom),
    SCMP_SYS(getrusage),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(restart_syscall),
#ifdef KESMIRA_SANITIZED
    SCMP_SYS(pipe2), // a sanitizer writes to one to learn whether an object's type can be read where it should lie
#endif
};

bool allowWithConditions(scmp_filter_ctx filter)
{
    const auto allow = [filter](int call, const scmp_arg_cmp &condition) {
        return ::seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 1, &condition) == 0;
    };
    // Memory, but none whose bytes could be run.
    const scmp_arg_cmp notExecutable{2, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0};
    // Threads of its own, but no process: a decoder of tiles works on all cores.
    const scmp_arg_cmp thread{0, SCMP_CMP_MASKED_EQ, CLONE_THREAD | CLONE_VM, CLONE_THREAD | CLONE_VM};
    // Its own end.
    const scmp_arg_cmp itself{0, SCMP_CMP_EQ, scmp_datum_t(::getpid()), 0};
    return allow(SCMP_SYS(mmap), notExecutable) && allow(SCMP_SYS(mprotect), notExecutable)
        && allow(SCMP_SYS(clone), thread)
        && allow(SCMP_SYS(tgkill), itself)
        // The newer call keeps its flags where no filter sees them; told that it isn't there, the library takes the old.
        && ::seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) == 0;
}

} // namespace

void prepareForShelter()
{
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    const rlimit descriptors{32, 32};
    ::setrlimit(RLIMIT_NOFILE, &descriptors);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE}) ::signal(signal, SIG_IGN);
    if (const int score = ::open("/proc/self/oom_score_adj", O_WRONLY | O_CLOEXEC); score >= 0) {
        [[maybe_unused]] const ssize_t written = ::write(score, "1000", 4);
        ::close(score);
    }
#ifndef KESMIRA_SANITIZED // what a sanitizer finds is said there
    if (const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC); null >= 0) {
        ::dup2(null, STDERR_FILENO);
        ::close(null);
    }
#endif
}

bool enterShelter()
{
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    void *const filter = ::seccomp_init(SCMP_ACT_ERRNO(EPERM));
    if (!filter) return false;
    bool complete = allowWithConditions(filter);
    for (const int call : kHarmless) complete = complete && ::seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0) == 0;
    const bool entered = complete && ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return entered;
}
