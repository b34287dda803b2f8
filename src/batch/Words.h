// Words for people, and the one shape in which foreign text reaches a terminal.
#pragma once

#include "engine/RepairReport.h"

#include <QString>

/// `text` as one line that can't steer a terminal: control characters, line ends and the marks that turn the direction of
/// writing come out as escapes.
QString printable(const QString &text);

/// What was mended in a file, in a few words; "" if nothing was.
QString mendedText(const RepairReport &report);
