// The one way in which a byte of the application object is shared between threads.
#pragma once

#include "app/KesmiraApp.h"

#include <atomic>

/// Reads a polled byte. Relaxed: the flag orders nothing but itself.
inline bool flagRaised(bool &flag)
{
    return std::atomic_ref<bool>(flag).load(std::memory_order_relaxed);
}

inline void setFlag(bool &flag, bool value)
{
    std::atomic_ref<bool>(flag).store(value, std::memory_order_relaxed);
}

/// True once the user has asked to stop; every long loop asks this.
inline bool stopRequested()
{
    return flagRaised(pApp->bStopRepair);
}
