// Why a picture can't be shown or written, for a person.
#pragma once

#include <QString>

/// What the parts of this program say in English, in the reader's language; what a decoder's library says, as it is.
QString problemText(const QString &problem);
