// Runs the engine's walks over bytes in memory and turns what they leave in `pApp` into the plain structs of the slow
// walks.
#pragma once

#include "engine/BlockSource.h"
#include "support/SteppingWalk.h"

#include <QByteArray>

/// Frees both chains and puts every field of `pApp` that a walk reads or writes back to its state at rest, with
/// `bRepairRunning` set.
void resetWalkState();

/// What the last walk left in `pApp`, with the nodes of the main chain.
WalkResult engineResult();
/// The same with the nodes of the raw chain.
WalkResult engineRawResult();

/// Each of these resets `pApp`, walks through a window of `blockSize` bytes, and frees what the walk made.
WalkResult engineWalk(BlockSource &source, int blockSize);
WalkResult engineWalk(const QByteArray &file, int blockSize);
/// `before`, if given, is walked first as a whole file, and the copy's walk continues its chain.
WalkResult engineTempWalk(const QByteArray &copy, int blockSize, bool container = false,
                          const QByteArray *before = nullptr);
/// `before`, if given, is a copy whose raw walk is continued.
WalkResult engineRawWalk(const QByteArray &copy, int blockSize, bool container = true,
                         const QByteArray *before = nullptr);
