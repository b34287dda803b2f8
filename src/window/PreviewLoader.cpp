#include "window/PreviewLoader.h"

#include "window/EffectQueue.h"

PreviewLoader::PreviewLoader(EffectQueue &effects) : m_effects(effects) {}

PreviewLoader::~PreviewLoader()
{
    cancel();
}

void PreviewLoader::request(const QString &path, const QSize &box, const Shown &shown, Load load)
{
    const quint64 number = ++m_latest;
    m_thread.dropWaiting();
    m_thread.start([this, path, box, shown, load, number] {
        if (number != m_latest) return;
        QSize fullSize;
        const QImage image = load(path, box, fullSize, [this, number] { return number != m_latest; });
        m_effects.post([this, image, fullSize, shown, number] {
            if (number == m_latest) shown(image, fullSize);
        });
    });
}

void PreviewLoader::cancel()
{
    ++m_latest;
    m_thread.dropWaiting();
}
