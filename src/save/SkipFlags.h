// What a conflict dialog may have decided while a writer is at work.
#pragma once

#include "app/StopFlag.h"

inline bool skippingThisFile()
{
    return flagRaised(pApp->bSkipCurrentFile);
}

inline bool skipping()
{
    return flagRaised(pApp->bSkipAllFiles) || skippingThisFile();
}
