#include "window/Background.h"

#include <utility>

Background::~Background()
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.clear();
        m_ends = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable()) m_thread.join();
}

void Background::start(std::function<void()> task)
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
        if (!m_thread.joinable()) m_thread = std::thread([this] { work(); });
    }
    m_changed.notify_all();
}

void Background::dropWaiting()
{
    const std::lock_guard lock(m_mutex);
    m_tasks.clear();
}

void Background::waitForDone()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_tasks.empty() && !m_working; });
}

void Background::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ends || !m_tasks.empty(); });
        if (m_ends) return;
        std::function<void()> task = std::move(m_tasks.front());
        m_tasks.pop_front();
        m_working = true;
        lock.unlock();
        task();
        task = nullptr; // what it holds goes before anybody hears that it is done
        lock.lock();
        m_working = false;
        m_changed.notify_all();
    }
}
