// What a rewritten HEIC begins with, whatever its source holds.
#pragma once

#include <QtGlobal>

#include <array>

namespace heic {

/// The whole first box; its brand is that of a still picture coded by HEVC.
constexpr std::array<quint8, 24> kFileType = {
    0, 0, 0, 24, 'f', 't', 'y', 'p', 'h', 'e', 'i', 'c', 0, 0, 0, 0, 'm', 'i', 'f', '1', 'h', 'e', 'i', 'c',
};

/// `meta` behind its size field, up to the boxes that are copied. The primary item is 0: readers that mind get a copy
/// with the right one.
constexpr std::array<quint8, 92> kMetaFront = {
    'm', 'e', 't', 'a', 0,   0,   0,   0,                                               // version and flags
    0,   0,   0,   34,  'h', 'd', 'l', 'r', 0, 0, 0, 0, 0, 0, 0, 0, 'p', 'i', 'c', 't', // handler
    0,   0,   0,   0,   0,   0,   0,   0,   0, 0, 0, 0, 0, 0,                           // reserved, and an empty name
    0,   0,   0,   36,  'd', 'i', 'n', 'f',                                             // data information
    0,   0,   0,   28,  'd', 'r', 'e', 'f', 0, 0, 0, 0, 0, 0, 0, 1,                     // one reference
    0,   0,   0,   12,  'u', 'r', 'l', ' ', 0, 0, 0, 1,                                 // to this very file
    0,   0,   0,   14,  'p', 'i', 't', 'm', 0, 0, 0, 0, 0, 0,                           // primary item
};

/// Bytes from the handler's size field to the end of its box.
constexpr size_t kHandlerAt = 8;
constexpr size_t kHandlerSize = 34;

} // namespace heic
