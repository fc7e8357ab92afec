// The component through which the host logs what the user did.
#pragma once

#include "ComObject.h"

#include "qptools.h"

#include <string>

namespace qptools
{
/// Composes a text and writes it to a log in one call. All methods return S_OK after the write; a failure of
/// the log is not reported. Arguments may be null, which is the same as empty; a text ends at its first null
/// character.
///
/// If out of memory while a text is composed, the method throws ComException(E_OUTOFMEMORY), after it has
/// left the module's UI state. It throws nothing else: for any other exception it returns E_FAIL and writes
/// nothing.
class QPUserActionLog final : public ComObject<QPUserActionLog, IQPUserActionLog>
{
public:
    /// Writes `bstrInfo`, " at  " and the time stamp, or the time stamp alone if there is no info; then a
    /// line feed.
    HRESULT STDMETHODCALLTYPE WriteTimeStampWithInfo(BSTR bstrInfo) override;

    /// Writes the text; no line feed is added.
    HRESULT STDMETHODCALLTYPE WriteLine(BSTR bstrInfoLine) override;

    /// Writes a block of seven lines, each with its line feed: time stamp, action, identifier, GUID,
    /// configured name and type of the object, end mark. The labels of the configured name and of the type
    /// are in the user's language. The others are never translated, so that tools can read the log.
    HRESULT STDMETHODCALLTYPE WriteUserActionInfo(BSTR bstrAction, BSTR bstrObjectId, BSTR bstrObjectGUID,
                                                  BSTR bstrObjectConfName, BSTR bstrPlanTypeName) override;

    /// Writes the time stamp alone. No line feed is added, unlike WriteTimeStampWithInfo, on purpose.
    HRESULT STDMETHODCALLTYPE WriteTimeStamp() override;

private:
    template <class Compose>
    HRESULT Write(Compose&& compose);

    const std::wstring m_logName = L"UserActions";
};
} // namespace qptools
