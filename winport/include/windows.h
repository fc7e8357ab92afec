// The Windows API: everything but the component runtime and the shell, which have headers of their own.
#pragma once

#include "wpbase.h"

#include "winerror.h"

#include "winbase.h"

#include "winnls.h"
#include "winreg.h"
#include "winuser.h"
