// Misbehaviour on request, so that tests can watch what becomes of it.
#pragma once

#include "decoder/Protocol.h"

/// Escape: the name of each of the forbidden things that could be done, so nothing where the shelter holds. Any other
/// trial but Lie, which is the answer's, doesn't come back.
QStringList misbehave(decoder::Trial trial);
