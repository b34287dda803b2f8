// Undoes what a transfer in text mode did to a file.
#pragma once

#include <QByteArray>

namespace salvage {

/// Where a file has several 0A bytes and each of them stands behind a 0D, they were put there by a transfer that took the
/// file for text: every 0D in front of a 0A goes, in place. False, with `file` as it was, for any other file.
bool undoTextTransfer(QByteArray &file);

} // namespace salvage
