// The toolkit's own JPEG decoder, asked by its name.
#pragma once

#include "engine/BlockSource.h"

#include <QIODevice>
#include <QImage>
#include <QImageIOHandler>

#include <memory>

/// Loads the toolkit's JPEG plug-in from the toolkit's own folder, and no other that says that it knows JPEG. From then on
/// no file is needed any more. False if it isn't there.
bool loadJpegDecoder();

/// Reads a source as a device that ends where the medium refuses, as a file does.
class SourceDevice : public QIODevice
{
public:
    /// `source` must outlive the device.
    explicit SourceDevice(BlockSource &source) : m_source(source) { open(QIODevice::ReadOnly); }
    qint64 size() const override { return qint64(m_source.size()); }

protected:
    qint64 readData(char *to, qint64 most) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    BlockSource &m_source;
};

/// Decodes one JPEG, as QImage::load with the format "JPG" does. loadJpegDecoder() must have worked.
class JpegDecoder
{
public:
    explicit JpegDecoder(BlockSource &source);

    /// As the header says it; invalid if it can't be read.
    QSize size() const;
    /// What makes it upright, as its Exif data say.
    QImageIOHandler::Transformations turn() const;
    /// From now on read() gives the picture in that size.
    void scaleTo(const QSize &size) { m_handler->setOption(QImageIOHandler::ScaledSize, size); }
    /// Null if it doesn't decode.
    QImage read();

private:
    SourceDevice m_device;
    std::unique_ptr<QImageIOHandler> m_handler;
};
