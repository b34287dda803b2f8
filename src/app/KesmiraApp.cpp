#include "app/KesmiraApp.h"

namespace {
KesmiraApp theApp;
}

KesmiraApp *const pApp = &theApp;
