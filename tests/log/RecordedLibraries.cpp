#include "RecordedLibraries.h"

#include "Translation.h"
#include "XQPError.h"

#include "UiState.h"

#include <deque>

std::vector<LogCall> g_logCalls;
std::vector<TranslationCall> g_translationCalls;
std::function<void()> g_atTranslation;

namespace
{
/// Every translation is its text in square brackets.
wchar_t* Translated(const std::wstring& text, bool changeable, bool narrow)
{
    static std::deque<std::wstring> kept;
    g_translationCalls.push_back({text, changeable, narrow, CUiState::Depth()});
    if (g_atTranslation)
        g_atTranslation();
    return kept.emplace_back(L"[" + text + L"]").data();
}
} // namespace

void XQPError::WriteLogLine(const wchar_t* logName, const wchar_t* text) noexcept
{
    g_logCalls.push_back({logName, text, CUiState::Depth()});
}

void XQPError::WriteLogLineToLogBook(const wchar_t*, const wchar_t*, ULONG, const wchar_t*) noexcept {}

void XQPError::WriteErrorToLogBook(const wchar_t*, const wchar_t*, ULONG, const wchar_t*, LONG) noexcept {}

LONG XQPError::HandleComError(LONG status, const wchar_t*, const wchar_t*, ULONG, bool, bool) noexcept
{
    return status;
}

LONG XQPError::SetComError(const wchar_t*, const wchar_t*, ULONG, const wchar_t*, LONG status) noexcept
{
    return status;
}

LONG XQPError::HandleStandardError(const wchar_t*, const wchar_t*, ULONG, const wchar_t*, LONG status,
                                   bool) noexcept
{
    return status;
}

const wchar_t* CoTranslateText(const wchar_t* text) noexcept
{
    return Translated(text, false, false);
}

wchar_t* CoTranslateText2(const wchar_t* text)
{
    return Translated(text, true, false);
}

wchar_t* CoTranslateText2(const char* text)
{
    const std::string narrow(text);
    return Translated(std::wstring(narrow.begin(), narrow.end()), true, true);
}
