// A label or a group's frame.
#pragma once

#include "Wnd.h"

class CStatic : public CWnd
{
};
