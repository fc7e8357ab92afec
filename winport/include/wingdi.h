// Device contexts and fonts, only for measuring text. The one font is 6 pixels wide and 13 high.
#pragma once

#include "wpbase.h"

#include "wpwinstyles.h"

extern "C" HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
extern "C" BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
