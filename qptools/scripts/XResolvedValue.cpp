#include "XResolvedValue.h"

#include "ComException.h"

namespace qptools
{

XResolvedValue::XResolvedValue(const VARIANT& value) : m_value(&value)
{
    if (!(value.vt & VT_BYREF))
        return;
    m_value = &m_copy.Value();
    if (VariantCopyInd(&m_copy, const_cast<VARIANT*>(&value)) == E_OUTOFMEMORY)
        ThrowOutOfMemory();
}

ComPtr<IQP_BaseDataObject> XResolvedValue::DataObject() const
{
    ComPtr<IQP_BaseDataObject> object;
    if (IsObject())
        object.queryFrom(m_value->punkVal);
    return object;
}

bool ConvertToText(XQPComVariant& value)
{
    if (value.Type() == VT_BSTR)
        return true;
    const HRESULT status = value.ChangeType(VT_BSTR);
    if (status == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    return status >= 0;
}

} // namespace qptools
