// Logging and error reporting: named logs and the log book.
#pragma once

#include <windows.h>

/// Logs are files in UTF-8 in the log directory: %QPTOOLS_LOG_DIR%, or %LOCALAPPDATA%\qptools\logs where that
/// is not set; it is made when it is missing. Several processes may write to one log at once: each call is
/// one piece of it, never torn, and one for which the disk has no room is left out. A log that cannot be
/// written is left alone: no call here throws, shows or waits for long, and each leaves the thread's last
/// error as it was. Null texts are empty texts, and every text ends at its first null character.
///
/// `logbook.log` is the log book: one line for each call but WriteLogLine, of eight fields with a tab between
/// them: local time, kind, source, function, line, status in hex, flags, text. A field that a kind lacks is
/// "-". Inside a field a backslash, line feed, carriage return and tab read as \\, \n, \r and \t, any other
/// control character and line separator as \u and four hex digits.
class XQPError
{
public:
    XQPError() = delete;

    /// Appends `text` as it is to `<logName>.log`. A name that is no plain file name (empty, of dots alone,
    /// longer than 100 characters, a device's name, with a separator, a wildcard, a control character) or
    /// that would be the log book's selects no log: nothing is written, but the log book says so.
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

    /// Records a failure that is no host call, kind "failure", with its flag. Returns `status`.
    static LONG HandleStandardError(const wchar_t* source, const wchar_t* function, ULONG line,
                                    const wchar_t* message, LONG status, bool flag) noexcept;
};
