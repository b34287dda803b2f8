// Recognises a damaged DHT segment by its head and hands back the sound one.
#pragma once

/// Holds no state of its own; input and output lie in `pApp`.
class Hoffmann
{
public:
    Hoffmann();
    ~Hoffmann();

    /// Looks up a DHT segment. `segment` holds its first 32 bytes from the marker on, `length` its length field.
    /// While `nDhtCount` is 1, `nDhtPart2` to `nDhtPart4` and `aDhtHead2` to `aDhtHead4` tell where the inner tables
    /// begin and what they count.
    /// Leaves the sound segment in `aHuffmanResult`, its size in bytes in `nHuffmanResultLength`, and returns it. Where
    /// none is known: nullptr and size 0; but in the file's only DHT the size is left as it is if the length is one at
    /// which inner tables are compared.
    unsigned char *Hoffmann_table(unsigned char *segment, int length);
};
