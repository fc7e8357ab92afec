#include "HostVariant.h"

#include "StatusError.h"

namespace refhost
{
HostVariant::HostVariant(const VARIANT& source) : HostVariant()
{
    const HRESULT status = VariantCopyInd(&m_value, const_cast<VARIANT*>(&source));
    if (status < 0)
        throw StatusError{status};
}

void HostVariant::Become(VARTYPE type)
{
    if (m_value.vt == type)
        return;
    const HRESULT status = VariantChangeType(&m_value, &m_value, 0, type);
    if (status < 0)
        throw StatusError{status};
}

bool IsNothing(const VARIANT& value)
{
    return value.vt == VT_EMPTY || value.vt == VT_NULL || (IsReference(value) && !value.punkVal);
}

bool IsReference(const VARIANT& value)
{
    return value.vt == VT_UNKNOWN || value.vt == VT_DISPATCH;
}
} // namespace refhost
