// One thread beside the main one that does one task after the other; started by the first task.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// All members may be called from any thread, but by a task of its own.
class Background
{
public:
    Background() = default;
    /// Waits for the task in hand; tasks that haven't begun are dropped.
    ~Background();
    Background(const Background &) = delete;
    Background &operator=(const Background &) = delete;

    void start(std::function<void()> task);
    /// Drops the tasks that haven't begun.
    void dropWaiting();
    /// Waits until no task is left.
    void waitForDone();

private:
    void work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_tasks;
    bool m_working = false;
    bool m_ends = false;
    std::thread m_thread;
};
