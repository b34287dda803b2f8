// The small drawing that stands for a kind of file where there is no picture of it.
#pragma once

#include <QIcon>
#include <QString>

/// By the suffix, in any case: a JPEG, a HEIC, else a camera raw file.
QIcon kindIcon(const QString &suffix);
