#include "batch/StopSignals.h"

#include "app/StopFlag.h"

namespace {

volatile std::sig_atomic_t signalSeen = 0;

static_assert(std::atomic_ref<bool>::is_always_lock_free, "the handler may touch nothing that locks");

extern "C" void onStopSignal(int number)
{
    if (signalSeen) { // who asks twice won't wait; the signal's own effect follows once this handler has returned
        std::signal(number, SIG_DFL);
        std::raise(number);
        return;
    }
    signalSeen = 1;
    setFlag(pApp->bStopRepair, true);
}

} // namespace

StopSignals::StopSignals()
{
    signalSeen = 0;
    struct sigaction stop = {};
    stop.sa_handler = onStopSignal;
    stop.sa_flags = SA_RESTART;
    for (size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i], nullptr, &m_before[i]);
        if (m_before[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &stop, nullptr);
    }
    struct sigaction ignore = {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &ignore, &m_pipeBefore);
    ::sigaction(SIGXFSZ, &ignore, &m_sizeBefore);
}

StopSignals::~StopSignals()
{
    for (size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &m_before[i], nullptr);
    ::sigaction(SIGPIPE, &m_pipeBefore, nullptr);
    ::sigaction(SIGXFSZ, &m_sizeBefore, nullptr);
}

bool StopSignals::seen()
{
    return signalSeen != 0;
}
