#include "LocalTime.h"

#include <windows.h>

#include <cwchar>
#include <iterator>

std::wstring LocalTime(const wchar_t* format)
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t text[64];
    const int length = std::swprintf(text, std::size(text), format, now.wYear, now.wMonth, now.wDay,
                                     now.wHour, now.wMinute, now.wSecond, now.wMilliseconds);
    return {text, static_cast<std::size_t>(length < 0 ? 0 : length)};
}
