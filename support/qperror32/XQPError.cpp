#include "XQPError.h"

#include "LogBookEntry.h"
#include "LogFile.h"
#include "LogName.h"

#include <string>

namespace
{
constexpr const wchar_t* kLogBook = L"logbook";

// Runs `body` without side effects for the caller: no exception, and the same last error as before.
template <class Body>
void Undisturbed(Body&& body) noexcept
{
    const DWORD lastError = GetLastError();
    try
    {
        body();
    }
    catch (...)
    {
        // A failed log entry must not fail the work that it reports on.
    }
    SetLastError(lastError);
}

void Record(const LogBookEntry& entry) noexcept
{
    Undisturbed([&] { AppendToLog(kLogBook, LogBookLine(entry)); });
}

const wchar_t* Text(bool flag) noexcept
{
    return flag ? L"true" : L"false";
}

void RecordBadName(const wchar_t* logName)
{
    const std::wstring text = std::wstring(L"No log has the name: ") + (logName ? logName : L"");
    Record({.kind = L"error",
            .source = L"XQPError",
            .function = L"WriteLogLine",
            .status = E_INVALIDARG,
            .text = text.c_str()});
}
} // namespace

void XQPError::WriteLogLine(const wchar_t* logName, const wchar_t* text) noexcept
{
    Undisturbed([&] {
        if (IsPlainLogName(logName, kLogBook))
            AppendToLog(logName, text ? text : L"");
        else
            RecordBadName(logName);
    });
}

void XQPError::WriteLogLineToLogBook(const wchar_t* source, const wchar_t* function, ULONG line,
                                     const wchar_t* text) noexcept
{
    Record({.kind = L"note", .source = source, .function = function, .line = line, .text = text});
}

void XQPError::WriteErrorToLogBook(const wchar_t* source, const wchar_t* function, ULONG line,
                                   const wchar_t* text, LONG status) noexcept
{
    Record({.kind = L"error",
            .source = source,
            .function = function,
            .line = line,
            .status = status,
            .text = text});
}

LONG XQPError::HandleComError(LONG status, const wchar_t* source, const wchar_t* message, ULONG line,
                              bool firstFlag, bool secondFlag) noexcept
{
    Undisturbed([&] {
        const std::wstring flags = std::wstring(Text(firstFlag)) + L"," + Text(secondFlag);
        Record({.kind = L"host call",
                .source = source,
                .line = line,
                .status = status,
                .flags = flags.c_str(),
                .text = message});
    });
    return status;
}

LONG XQPError::SetComError(const wchar_t* source, const wchar_t* function, ULONG line, const wchar_t* text,
                           LONG status) noexcept
{
    Record({.kind = L"error set",
            .source = source,
            .function = function,
            .line = line,
            .status = status,
            .text = text});
    return status;
}

LONG XQPError::HandleStandardError(const wchar_t* source, const wchar_t* function, ULONG line,
                                   const wchar_t* message, LONG status, bool flag) noexcept
{
    Record({.kind = L"failure",
            .source = source,
            .function = function,
            .line = line,
            .status = status,
            .flags = Text(flag),
            .text = message});
    return status;
}
