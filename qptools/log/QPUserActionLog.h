// The component through which the host keeps a readable trace of what the user did.
#pragma once

#include "ComObject.h"

#include "qptools.h"

#include <string>

namespace qptools
{
/// Composes texts and writes each, whole, by one call to a log. All methods return S_OK once they have
/// written, and no failure of the log is seen. Arguments may be null, which is the same as empty; of a text
/// with a null character inside, what stands before it counts.
///
/// If memory runs out while a text is composed, a ComException with the status E_OUTOFMEMORY leaves the
/// method, after the module's UI state has been left. No other exception does: the method returns E_FAIL and
/// has written nothing.
class QPUserActionLog final : public ComObject<QPUserActionLog, IQPUserActionLog>
{
public:
    /// Writes `bstrInfo`, " at  " and the time stamp, or the time stamp alone if there is no info; then a
    /// line feed.
    HRESULT STDMETHODCALLTYPE WriteTimeStampWithInfo(BSTR bstrInfo) override;

    /// Writes the text as given, up to its first null character; no line feed is added.
    HRESULT STDMETHODCALLTYPE WriteLine(BSTR bstrInfoLine) override;

    /// Writes a block of seven lines, each with its line feed: time stamp, action, identifier, GUID,
    /// configured name and type of the object, end mark. The labels of the configured name and of the type
    /// are in the user's language, the others are fixed, for tools that read the log.
    HRESULT STDMETHODCALLTYPE WriteUserActionInfo(BSTR bstrAction, BSTR bstrObjectId, BSTR bstrObjectGUID,
                                                  BSTR bstrObjectConfName, BSTR bstrPlanTypeName) override;

    /// Writes the time stamp alone; unlike WriteTimeStampWithInfo, no line feed is added.
    HRESULT STDMETHODCALLTYPE WriteTimeStamp() override;

private:
    template <class Compose>
    HRESULT Write(Compose&& compose);

    const std::wstring m_logName = L"UserActions";
};
} // namespace qptools
