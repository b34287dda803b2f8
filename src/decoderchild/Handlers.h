// What the decoder process does for each kind of request.
#pragma once

#include "decoder/Protocol.h"
#include "engine/BlockSource.h"

namespace decoder {

/// Loads what decoding needs, while files can still be opened. False if the JPEG decoder isn't there.
bool loadDecoders();

/// Answers a request about `file`, which holds nothing for a Trial. The warnings are what the decoder says meanwhile.
/// `decoded` gets the picture that the answer was made from, to be let go once the answer is out: giving back its pages
/// takes the system as long as a twentieth of the decoding, and nobody needs to wait for that.
Answer handle(const Request &request, FileSource &file, QImage &decoded);

} // namespace decoder
