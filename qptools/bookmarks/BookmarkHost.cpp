#include "BookmarkHost.h"

#include "XQPError.h"

#include "ComPtr.h"

#include "qpobjects.h"

namespace qptools
{
namespace
{
constexpr FixedText kAttributeConfiguredName = L"configured_name";
} // namespace

void LogBookmarkFailure(HRESULT status, const wchar_t* message, ULONG line) noexcept
{
    XQPError::HandleComError(status, kBookmarkSource, message, line, true, false);
}

XQPComBSTR ConfiguredName(IUnknown* object)
{
    ComPtr<IQP_BaseDataObject> data;
    data.queryFrom(object);
    XQPComVariant name;
    if (data)
        data->GetAttribute(kAttributeConfiguredName, &name);
    return TakeText(name);
}

XQPComBSTR TakeText(XQPComVariant& value)
{
    XQPComBSTR text;
    if (value.Type() == VT_BSTR)
        text.Attach(value.Detach().bstrVal);
    else
        text = value.GetString();
    value.Clear();
    return text;
}
} // namespace qptools
