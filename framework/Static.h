// A static control.
#pragma once

#include "Wnd.h"

class CStatic : public CWnd
{
};
