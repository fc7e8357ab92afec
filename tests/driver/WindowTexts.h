// The texts of windows, as strings.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// UTF-8, for a test's message.
std::string Utf8Text(const std::wstring& text);

std::wstring ClassOf(HWND window);

/// A title, or the text of a control.
std::wstring TextOf(HWND window);

/// The children in the order of the Tab key.
std::vector<HWND> ChildrenOf(HWND window);

/// True if the window itself is visible; its parents may be hidden.
bool IsShown(HWND window);
