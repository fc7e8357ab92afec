// The component runtime together with automation.
#pragma once

#include "objbase.h"
#include "oleauto.h"
#include "oleidl.h"

WINOLEAPI OleInitialize(LPVOID reserved);
WINOLEAPI_(void) OleUninitialize();
