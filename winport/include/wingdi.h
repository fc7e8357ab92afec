// Device contexts and fonts, as far as texts are measured. There is one font, 6 pixels wide and 13 high.
#pragma once

#include "wpbase.h"

#include "wpwinstyles.h"

extern "C" HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
extern "C" BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
