// Which names may select a log.
#pragma once

/// True if `name` is a plain file name that stays within the log directory whatever system it is used on: not
/// empty, not of dots alone, at most 100 characters, no separator, wildcard, stream mark or control
/// character, and not the name of a device (with whatever extension). A name equal to `reserved`, in any case
/// of its letters, is none.
bool IsPlainLogName(const wchar_t* name, const wchar_t* reserved) noexcept;
