// Boxes of a HEIC as they are found by the four letters of their types: a size of four bytes stands in front of these.
#pragma once

#include "engine/FileWindow.h"

/// Four letters as a number in file order.
constexpr quint32 boxType(const char (&letters)[5])
{
    return quint32(quint8(letters[0])) << 24 | quint32(quint8(letters[1])) << 16 | quint32(quint8(letters[2])) << 8
        | quint8(letters[3]);
}

/// The four bytes at `offset` as one number in file order; zeros past the end.
inline quint32 fourBytesAt(FileWindow &file, quint64 offset)
{
    return quint32(file.wordAt(offset)) << 16 | file.wordAt(offset + 2);
}

/// A box by the place of its type.
struct Box
{
    quint64 typeAt = 0;
    quint32 size = 0; ///< as it stands in front of the type; 0 where the file has no room for it

    quint64 begin() const { return typeAt - 4; }
};

/// The box whose type stands at `typeAt`, whatever is there.
Box boxAt(FileWindow &file, quint64 typeAt);

/// Offset of the first `type` in [from, end), `end` if there is none or a stop was asked for. The letters count wherever
/// they stand, inside another box's data too.
quint64 findType(FileWindow &file, quint32 type, quint64 from, quint64 end);

/// True if `meta` follows `ftyp`, and in its usual place in there `iinf`, `iref`, `iprp`, `idat` and `iloc` follow each
/// other. A stop makes it false.
bool boxesInOrder(FileWindow &file);
