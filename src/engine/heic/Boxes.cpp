#include "engine/heic/Boxes.h"

#include "app/StopFlag.h"

Box boxAt(FileWindow &file, quint64 typeAt)
{
    return {typeAt, typeAt < 4 ? 0 : fourBytesAt(file, typeAt - 4)};
}

quint64 findType(FileWindow &file, quint32 type, quint64 from, quint64 end)
{
    const auto first = quint8(type >> 24);
    quint64 at = file.nextByte(first, from, end);
    while (at < end && fourBytesAt(file, at) != type) at = file.nextByte(first, at + 1, end);
    return at;
}

bool boxesInOrder(FileWindow &file)
{
    const quint64 fileType = findType(file, boxType("ftyp"), 0, file.size());
    if (fileType >= file.size() || stopRequested()) return false;
    // The size serves as an offset: a healthy file begins with this box.
    const quint64 meta = boxAt(file, fileType).size;
    if (fourBytesAt(file, meta + 4) != boxType("meta")) return false;
    // Between the two stand the handler, the data references and the primary item, always of the same sizes.
    quint64 typeAt = meta + 100;
    if (fourBytesAt(file, typeAt) != boxType("iinf")) return false;
    for (const quint32 next : {boxType("iref"), boxType("iprp"), boxType("idat"), boxType("iloc")}) {
        typeAt += boxAt(file, typeAt).size;
        if (fourBytesAt(file, typeAt) != next) return false;
    }
    return !stopRequested();
}
