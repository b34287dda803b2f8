#include "decoderchild/JpegDecoder.h"

#include <QImageIOPlugin>
#include <QLibraryInfo>
#include <QPluginLoader>

#include <algorithm>

namespace {

QImageIOPlugin *&plugin()
{
    static QImageIOPlugin *loaded = nullptr;
    return loaded;
}

} // namespace

bool loadJpegDecoder()
{
    QPluginLoader loader(QLibraryInfo::location(QLibraryInfo::PluginsPath) + QStringLiteral("/imageformats/libqjpeg"));
    plugin() = qobject_cast<QImageIOPlugin *>(loader.instance());
    return plugin() != nullptr;
}

qint64 SourceDevice::readData(char *to, qint64 most)
{
    const qint64 count = std::min(most, size() - pos());
    if (count <= 0) return 0;
    return m_source.read(quint64(pos()), to, count) ? count : -1;
}

JpegDecoder::JpegDecoder(BlockSource &source)
    : m_device(source), m_handler(plugin()->create(&m_device, QByteArrayLiteral("jpg")))
{
}

QSize JpegDecoder::size() const
{
    return m_handler->option(QImageIOHandler::Size).toSize();
}

QImageIOHandler::Transformations JpegDecoder::turn() const
{
    return QImageIOHandler::Transformations(m_handler->option(QImageIOHandler::ImageTransformation).toInt());
}

QImage JpegDecoder::read()
{
    QImage image;
    return m_handler->read(&image) ? image : QImage();
}
