// What the decoder process does for each kind of request.
#pragma once

#include "decoder/Protocol.h"
#include "engine/BlockSource.h"

namespace decoder {

/// Loads what decoding needs, while files can still be opened. False if the JPEG decoder isn't there.
bool loadDecoders();

/// Answers a request about `file`, which holds nothing for a Trial. The warnings are what the decoder says meanwhile.
Answer handle(const Request &request, FileSource &file);

} // namespace decoder
