// Valid names of logs.
#pragma once

/// Returns true if `name` is a plain file name that stays within the log directory on every system: not
/// empty, not only dots, at most 100 characters, without separator, wildcard, colon or control character, and
/// not the name of a device (with any extension). Returns false for a name that equals `reserved`, ignoring
/// case.
bool IsPlainLogName(const wchar_t* name, const wchar_t* reserved) noexcept;
