#include "engine/WholeFile.h"

#include "engine/FileWindow.h"

QByteArray readWhole(const QString &path, qint64 limit)
{
    FileWindow file(path);
    if (!file.isOpen() || file.size() > quint64(limit)) return {};
    QByteArray bytes(int(file.size()), Qt::Uninitialized);
    file.read(0, bytes.data(), quint64(bytes.size()));
    return bytes;
}
