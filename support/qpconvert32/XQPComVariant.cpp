#include "XQPComVariant.h"

#include "ComException.h"

#include <memory>
#include <utility>

namespace
{
VARIANT EmptyValue() noexcept
{
    VARIANT value;
    VariantInit(&value);
    return value;
}

VARIANT TextValue(const wchar_t* text)
{
    VARIANT value = EmptyValue();
    value.bstrVal = SysAllocString(text ? text : L"");
    if (!value.bstrVal)
        ThrowOutOfMemory();
    value.vt = VT_BSTR;
    return value;
}

VARIANT CopyOf(const VARIANT& source)
{
    VARIANT copy = EmptyValue();
    const HRESULT status = VariantCopy(&copy, const_cast<VARIANT*>(&source));
    if (status == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    return status < 0 ? EmptyValue() : copy;
}

HRESULT Convert(const VARIANT& source, VARTYPE vt, VARIANT& result) noexcept
{
    result = EmptyValue();
    return VariantChangeType(&result, const_cast<VARIANT*>(&source), 0, vt);
}
} // namespace

XQPComVariant::XQPComVariant(const wchar_t* text) : m_value(TextValue(text)) {}

XQPComVariant::XQPComVariant(const VARIANT& value) : m_value(CopyOf(value)) {}

XQPComVariant::XQPComVariant(const XQPComVariant& other) : m_value(CopyOf(other.m_value)) {}

XQPComVariant& XQPComVariant::operator=(const wchar_t* text)
{
    // Copied before the old value is cleared, because `text` may be part of it.
    const VARIANT made = TextValue(text);
    Clear();
    m_value = made;
    return *this;
}

XQPComVariant& XQPComVariant::operator=(const VARIANT& value)
{
    const VARIANT made = CopyOf(value);
    Clear();
    m_value = made;
    return *this;
}

XQPComVariant& XQPComVariant::operator=(const XQPComVariant& other)
{
    return *this = other.m_value;
}

XQPComVariant& XQPComVariant::operator=(XQPComVariant&& other) noexcept
{
    const VARIANT taken = other.Detach();
    Clear();
    m_value = taken;
    return *this;
}

VARIANT* XQPComVariant::operator&() noexcept
{
    Clear();
    return std::addressof(m_value);
}

void XQPComVariant::Clear() noexcept
{
    // The member is empty before anything is released, because a release may call back. A locked array cannot
    // be destroyed and is left to its lock's owner.
    VARIANT old = std::exchange(m_value, EmptyValue());
    VariantClear(&old);
}

HRESULT XQPComVariant::ChangeType(VARTYPE vt, const VARIANT* source) noexcept
{
    // Into a local value, so that a failure leaves this one unchanged and `source` may be part of it.
    VARIANT result;
    const HRESULT status = Convert(source ? *source : m_value, vt, result);
    if (status < 0)
        return status;
    Clear();
    m_value = result;
    return status;
}

int XQPComVariant::GetInt() const noexcept
{
    VARIANT number;
    return Convert(m_value, VT_I4, number) < 0 ? 0 : static_cast<int>(number.lVal);
}

wchar_t* XQPComVariant::GetString()
{
    if (m_value.vt == VT_BSTR && m_value.bstrVal)
        return m_value.bstrVal;
    VARIANT text;
    const HRESULT status = Convert(m_value, VT_BSTR, text);
    if (status == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    m_text.Attach(status < 0 ? nullptr : text.bstrVal);
    return m_text;
}
