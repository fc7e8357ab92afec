// Logging and error reporting: named logs and the log book.
#pragma once

#include <windows.h>

/// Logs are UTF-8 files in the log directory: %QPTOOLS_LOG_DIR%, or %LOCALAPPDATA%\qptools\logs if that is
/// not set; it is created if it does not exist. Several processes may write to one log at once: the text of
/// each call is written in one piece, and one for which the disk has no room is left out. A log that cannot
/// be written is ignored: no call here throws, shows a message or waits for more than about a second, and
/// each preserves the thread's last error. Null texts are empty texts, and every text ends at its first null
/// character.
///
/// `logbook.log` is the log book: one line for each call except WriteLogLine, of eight fields separated by
/// tabs: local time, kind, source, function, line, status in hex, flags, text. A field that a kind does not
/// have is
/// "-". Inside a field a backslash, line feed, carriage return and tab are written as \\, \n, \r and \t, any
/// other control character or line separator as \u and four hex digits.
class XQPError
{
public:
    XQPError() = delete;

    /// Appends `text` unchanged to `<logName>.log`. If the name is not a plain file name (empty, only dots,
    /// longer than 100 characters, a device's name, with a separator, a wildcard, a control character) or is
    /// that of the log book, nothing is written but an entry in the log book.
    static void WriteLogLine(const wchar_t* logName, const wchar_t* text) noexcept;

    /// Writes an entry of kind "note" to the log book.
    static void WriteLogLineToLogBook(const wchar_t* source, const wchar_t* function, ULONG line,
                                      const wchar_t* text) noexcept;

    /// Writes an entry of kind "error" with its status to the log book.
    static void WriteErrorToLogBook(const wchar_t* source, const wchar_t* function, ULONG line,
                                    const wchar_t* text, LONG status) noexcept;

    /// Records a failed host call, kind "host call", with both flags. Returns `status`.
    static LONG HandleComError(LONG status, const wchar_t* source, const wchar_t* message, ULONG line,
                               bool firstFlag, bool secondFlag) noexcept;

    /// Records an error set for the caller, kind "error set". Returns `status`.
    static LONG SetComError(const wchar_t* source, const wchar_t* function, ULONG line, const wchar_t* text,
                            LONG status) noexcept;

    /// Records a failure other than of a host call, kind "failure", with its flag. Returns `status`.
    static LONG HandleStandardError(const wchar_t* source, const wchar_t* function, ULONG line,
                                    const wchar_t* message, LONG status, bool flag) noexcept;
};
