// One entry of the log book and how it reads as a line.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

/// What an entry says. Null texts read as empty ones; an empty source, function or flags reads as "-".
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

/// The entry as one line with its line feed, stamped with the local time of the call.
std::wstring LogBookLine(const LogBookEntry& entry);
