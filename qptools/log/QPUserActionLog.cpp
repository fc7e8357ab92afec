#include "QPUserActionLog.h"

#include "LocalTime.h"
#include "Translation.h"
#include "XQPError.h"

#include "ComException.h"
#include "UiState.h"

#include <new>
#include <stdexcept>
#include <string_view>

namespace qptools
{
namespace
{
/// The text up to its first null character; empty for null. A null character in a block would end the log's
/// text there, and what follows the argument would be lost.
std::wstring_view TextBeforeNull(BSTR text) noexcept
{
    return text ? std::wstring_view(text) : std::wstring_view();
}

/// The local time in a fixed form, which is never translated.
std::wstring TimeStamp()
{
    return LocalTime(L"Date/Time %04u-%02u-%02u @ %02u:%02u:%02u");
}

void AppendLine(std::wstring& block, std::wstring_view label, BSTR value)
{
    block += label;
    block += TextBeforeNull(value);
    block += L'\n';
}
} // namespace

/// Runs `compose`, which returns the text, in the module's UI state and writes the text. No InModule: an
/// exception for out of memory leaves these methods, on purpose. There is no host call during which the
/// component would have to hold itself.
template <class Compose>
HRESULT QPUserActionLog::Write(Compose&& compose)
{
    try
    {
        const CUiState uiState;
        XQPError::WriteLogLine(m_logName.c_str(), compose().c_str());
        return S_OK;
    }
    catch (const std::bad_alloc&)
    {
        ThrowOutOfMemory();
    }
    catch (const std::length_error&)
    {
        // A text longer than memory could hold.
        ThrowOutOfMemory();
    }
    catch (const ComException&)
    {
        throw;
    }
    catch (...)
    {
        return E_FAIL;
    }
}

HRESULT QPUserActionLog::WriteTimeStampWithInfo(BSTR bstrInfo)
{
    return Write([&] {
        const std::wstring timeStamp = TimeStamp();
        std::wstring text(TextBeforeNull(bstrInfo));
        if (!text.empty())
            text += L" at  ";
        text += timeStamp;
        text += L'\n';
        return text;
    });
}

HRESULT QPUserActionLog::WriteLine(BSTR bstrInfoLine)
{
    return Write([&] { return std::wstring(TextBeforeNull(bstrInfoLine)); });
}

HRESULT QPUserActionLog::WriteUserActionInfo(BSTR bstrAction, BSTR bstrObjectId, BSTR bstrObjectGUID,
                                             BSTR bstrObjectConfName, BSTR bstrPlanTypeName)
{
    return Write([&] {
        std::wstring block = TimeStamp();
        block += L'\n';
        AppendLine(block, L"# --> ", bstrAction);
        AppendLine(block, L"Object ID: ", bstrObjectId);
        AppendLine(block, L"Object GUID: ", bstrObjectGUID);
        AppendLine(block, CoTranslateText2("Configured Name of Object: "), bstrObjectConfName);
        AppendLine(block, CoTranslateText2("(Plan-)Type: "), bstrPlanTypeName);
        AppendLine(block, L"# <-- ", nullptr);
        return block;
    });
}

HRESULT QPUserActionLog::WriteTimeStamp()
{
    return Write([&] { return TimeStamp(); });
}
} // namespace qptools
