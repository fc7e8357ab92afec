#include "XHostValue.h"

#include "XQPComBSTR.h"

#include "ComException.h"

namespace qptools
{
XHostValue XHostValue::OfText(std::wstring_view text)
{
    XHostValue made;
    made.m_value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!made.m_value.bstrVal)
        ThrowOutOfMemory();
    made.m_value.vt = VT_BSTR;
    return made;
}

XHostValue XHostValue::OfObject(ComPtr<IQP_BaseDataObject>&& object) noexcept
{
    XHostValue made;
    made.m_value.vt = VT_UNKNOWN;
    made.m_value.punkVal = object.detach();
    return made;
}

BSTR XHostValue::Text() const
{
    static const XQPComBSTR empty;
    return IsText() && m_value.bstrVal ? m_value.bstrVal : static_cast<BSTR>(empty);
}

void XHostValue::FollowReference()
{
    XHostValue resolved;
    if (VariantCopyInd(&resolved.m_value, &m_value) == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    *this = std::move(resolved);
}

bool XHostValue::ChangeToText()
{
    XHostValue text;
    const HRESULT status = VariantChangeType(&text.m_value, &m_value, 0, VT_BSTR);
    if (status == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    if (status < 0)
        return false;
    *this = std::move(text);
    return true;
}
} // namespace qptools
