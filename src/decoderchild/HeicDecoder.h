// Pictures out of HEIC files, by the one library that decodes them.
#pragma once

#include "decoder/Protocol.h"
#include "engine/BlockSource.h"

/// Has the library build what it needs; false if it can't.
bool loadHeicDecoder();

/// Decodes the main picture of a HEIC, a rewritten one included: turned and mirrored as the file says, in the colours of
/// `answer.profile`. Where there is none, `answer.problem` says why.
void decodeHeic(BlockSource &source, decoder::Answer &answer);
