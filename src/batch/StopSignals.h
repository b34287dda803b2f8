// Ctrl-C and its like as the stop button of a run without a window.
#pragma once

#include <array>
#include <csignal>

/// While it lives, the first SIGINT, SIGTERM or SIGHUP raises the stop flag and the next one ends the program as ever; a
/// reader that goes away, or a limit on a file's size, shows as a failed write. What the process was told to ignore stays ignored.
class StopSignals
{
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals &) = delete;
    StopSignals &operator=(const StopSignals &) = delete;

    /// True once one of the signals has come, also where the start of a run has cleared the flag since.
    static bool seen();

private:
    static constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, 3> m_before = {};
    struct sigaction m_pipeBefore = {};
    struct sigaction m_sizeBefore = {};
};
