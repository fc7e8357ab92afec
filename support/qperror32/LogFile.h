// Appending to the files of the log directory.
#pragma once

#include <string>
#include <string_view>

/// Appends `text` as UTF-8 to `<name>.log` in the log directory, which is made when it is missing. The text
/// arrives in one piece, whoever else appends to the file at the time. Does nothing where the file cannot be
/// written, and leaves out a text for which the disk has no room, whole.
void AppendToLog(std::wstring_view name, std::wstring_view text);

/// The log directory without a separator at its end: %QPTOOLS_LOG_DIR%, else %LOCALAPPDATA%\qptools\logs.
/// Empty if neither variable is set. Asked anew for each text, for an operator may move the logs of a running
/// process.
std::wstring LogDirectory();
