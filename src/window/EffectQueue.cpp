#include "window/EffectQueue.h"

#include <QElapsedTimer>

#include <utility>

namespace {

/// Then the event loop has its turn: the window answers while thousands of effects wait.
constexpr qint64 kSliceMs = 8;

} // namespace

void EffectQueue::post(std::function<void()> effect)
{
    const std::lock_guard lock(m_mutex);
    m_effects.push_back(std::move(effect));
    wake();
}

void EffectQueue::clear()
{
    const std::lock_guard lock(m_mutex);
    m_effects.clear();
}

void EffectQueue::wake()
{
    if (m_wakePending) return;
    m_wakePending = true;
    QMetaObject::invokeMethod(this, "drain", Qt::QueuedConnection);
}

void EffectQueue::drain()
{
    QElapsedTimer slice;
    slice.start();
    {
        const std::lock_guard lock(m_mutex);
        m_wakePending = false;
    }
    do {
        std::function<void()> effect;
        {
            const std::lock_guard lock(m_mutex);
            if (m_effects.empty()) return;
            effect = std::move(m_effects.front());
            m_effects.pop_front();
            // Before the effect runs: it may stay in a dialog for minutes.
            if (!m_effects.empty()) wake();
        }
        effect();
    } while (slice.elapsed() < kSliceMs);
}
