// Limits that only end what could never end, or what no memory could hold. None changes what a real file gives.
#pragma once

#include <QtGlobal>

namespace guards {

/// Nodes that one walk puts on its chain. The most that was seen in a photograph is some hundreds; a stream of this many
/// pictures would be hours of film. A file of nothing but four-byte segments would ask for one node for each of them.
constexpr size_t kChainNodes = 262144;

/// Images kept of what lies behind the first one. Readers look at two of them; a node knows up to 1,024.
constexpr size_t kTrailingImages = kChainNodes;

/// Bytes carved out of a stream in all, as a multiple of its size. Images of a real stream overlap only where one lies in
/// another's metadata, three or four deep; a run of starts with one common end would be copied once for each of them.
constexpr quint64 kStreamCarveFactor = 16;

/// Images of a stream in a row that don't decode. A film that is broken for minutes stays below it; a file that only
/// looks like a million tiny pictures would be many minutes of making files and wiping them.
constexpr int kStreamRefusals = 4096;

/// Bytes of one picture that the boxes of a CR3 lead to. The largest cameras store some 40 MB; a damaged length would
/// make a file of zeros of up to 4 GB.
constexpr quint32 kCr3Image = 256 * 1024 * 1024;

/// Bytes of the boxes that describe a HEIC, where they have to be held at once. Phones write about ten thousand; a damaged
/// length could claim all of the file.
constexpr quint64 kHeicDescription = 16 * 1024 * 1024;

} // namespace guards
