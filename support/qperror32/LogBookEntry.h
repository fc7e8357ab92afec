// An entry of the log book and its form as a line.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

/// Null texts are empty texts; an empty source, function or flags is written as "-".
struct LogBookEntry
{
    const wchar_t* kind = nullptr;
    const wchar_t* source = nullptr;
    const wchar_t* function = nullptr;
    ULONG line = 0;
    std::optional<LONG> status;
    const wchar_t* flags = nullptr;
    const wchar_t* text = nullptr;
};

/// The entry as one line, with the local time of the call and a line feed.
std::wstring LogBookLine(const LogBookEntry& entry);
