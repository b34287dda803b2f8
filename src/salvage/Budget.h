// What one salvage may use up: time, decodes, and the patience of whoever may ask it to stop.
#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>

namespace salvage {

/// Every loop of a search asks one of these before it goes on; what is found by then is used.
class Budget
{
public:
    using Clock = std::chrono::steady_clock;
    static constexpr int kMilliseconds = 12'000;
    static constexpr int kSymbolMilliseconds = 5'000;
    static constexpr int kDecodes = 2'000;
    static constexpr int kSymbolDecodes = 1'800; // of these for symbols: what they leave open has to be mended

    /// `stop` is asked often and from the thread of the salvage; empty for never.
    explicit Budget(std::function<bool()> stop = {}, int milliseconds = kMilliseconds, int decodes = kDecodes)
        : m_stop(std::move(stop)), m_begin(Clock::now()), m_milliseconds(milliseconds), m_decodes(decodes)
    {
    }

    /// True once the time or the decodes are used up, or a stop was asked for.
    bool spent() const { return m_decodesUsed >= m_decodes || stopped() || late(); }
    /// True once the time is used up.
    bool late() const { return elapsed() >= m_milliseconds; }
    /// True once a stop was asked for; nothing that was found is wanted then.
    bool stopped() const { return m_stop && m_stop(); }
    void countDecode() { ++m_decodesUsed; }
    int decodes() const { return m_decodesUsed; }
    int decodesLeft() const { return m_decodes - m_decodesUsed; }
    /// True once the search for symbols, which began after `begin` milliseconds, has had its share.
    bool symbolsSpent(int begin) const
    {
        return spent() || m_decodesUsed >= kSymbolDecodes || elapsed() - begin > kSymbolMilliseconds;
    }
    /// Milliseconds since the salvage began.
    int elapsed() const
    {
        return int(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_begin).count());
    }

private:
    std::function<bool()> m_stop;
    Clock::time_point m_begin;
    int m_milliseconds;
    int m_decodes;
    int m_decodesUsed = 0;
};

/// For loops of many short turns: asks for a stop once in a while. A turn may take some microseconds.
class StopPoll
{
public:
    explicit StopPoll(const Budget &budget) : m_budget(budget) {}
    /// Once in each turn; true once a stop was asked for.
    bool stopped()
    {
        if (++m_turns % kEvery == 0) m_stopped = m_budget.stopped();
        return m_stopped;
    }

private:
    static constexpr quint32 kEvery = 4096;
    const Budget &m_budget;
    quint32 m_turns = 0;
    bool m_stopped = false;
};

/// How many dear tests a loop may do that come to nothing. Damage never needs so many; a file that is made to cost does.
class Patience
{
public:
    explicit Patience(int tests = 2'000) : m_left(tests) {}
    bool lost() const { return m_left <= 0; }
    /// Takes the outcome of a test, and gives it back.
    bool saw(bool success)
    {
        if (!success) --m_left;
        return success;
    }

private:
    int m_left;
};

} // namespace salvage
