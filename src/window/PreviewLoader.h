// Decodes the picture of a clicked row beside the main thread, so that the window answers while a large one loads.
#pragma once

#include "engine/Judge.h"
#include "window/Background.h"

#include <QImage>
#include <QString>

#include <atomic>
#include <functional>

class EffectQueue;

class PreviewLoader
{
public:
    /// The queue brings the pictures to the main thread.
    explicit PreviewLoader(EffectQueue &effects);
    /// Waits for the picture that is being decoded, if any.
    ~PreviewLoader();

    using Shown = std::function<void(const QImage &, const QSize &fullSize)>;
    /// loadForView or its sibling for another format.
    using Load = QImage (*)(const QString &path, const QSize &box, QSize &fullSize,
                            const std::function<bool()> &abandoned);
    /// Loads the picture at `path` for a view of `box` pixels and hands it over on the main thread; a null image if it
    /// doesn't decode. A later request, or cancel(), drops the earlier ones, that which is being decoded included.
    void request(const QString &path, const QSize &box, const Shown &shown, Load load = loadForView);
    void cancel();

private:
    EffectQueue &m_effects;
    std::atomic<quint64> m_latest{0};
    Background m_thread;
};
