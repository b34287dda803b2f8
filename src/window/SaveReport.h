// A save's outcome in words, for the dialog behind it.
#pragma once

#include "dialogs/SavingFinishDlg.h"
#include "save/Destination.h"

/// `couldTake` holds the outputs that the camera's data could have been put into, whether they were or not.
SavingReport savingReport(const SaveOutcome &outcome, const CameraSources &couldTake);
