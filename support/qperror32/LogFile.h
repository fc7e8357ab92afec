// Appending to the files of the log directory.
#pragma once

#include <string>
#include <string_view>

/// Appends `text` as UTF-8 to `<name>.log` in the log directory, which is created if it does not exist. The
/// text is written in one piece, also if other processes append to the file at the same time. Does nothing if
/// the file cannot be written; a text for which the disk has no room is left out whole. Throws
/// std::bad_alloc.
void AppendToLog(std::wstring_view name, std::wstring_view text);

/// The log directory without a trailing separator: %QPTOOLS_LOG_DIR%, else %LOCALAPPDATA%\qptools\logs. Empty
/// if neither variable is set. Read again for each text, because a host may change it while it runs.
std::wstring LogDirectory();
