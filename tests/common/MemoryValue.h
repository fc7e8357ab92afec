// What a host in memory answers.
#pragma once

#include "XQPComVariant.h"

#include <type_traits>

/// A value as a test writes it: a text, a number, a flag, an object or a whole VARIANT.
class MemoryValue
{
public:
    /// No value.
    MemoryValue() = default;
    // NOLINTBEGIN(google-explicit-constructor): each stands for the value
    MemoryValue(const wchar_t* text) : m_value(text) {}
    MemoryValue(const VARIANT& value) : m_value(value) {}
    MemoryValue(IUnknown* object)
    {
        VARIANT value{};
        value.vt = VT_UNKNOWN;
        value.punkVal = object;
        m_value = value;
    }
    /// A template, so that no pointer becomes a flag.
    template <class Number, class = std::enable_if_t<std::is_integral_v<Number>>>
    MemoryValue(Number number)
    {
        if constexpr (std::is_same_v<Number, bool>)
        {
            m_value.Value().vt = VT_BOOL;
            m_value.Value().boolVal = number ? VARIANT_TRUE : VARIANT_FALSE;
        }
        else
        {
            m_value.Value().vt = VT_I4;
            m_value.Value().lVal = static_cast<LONG>(number);
        }
    }
    // NOLINTEND(google-explicit-constructor)

    const VARIANT& Value() const noexcept { return m_value.Value(); }

private:
    XQPComVariant m_value;
};

/// What the host answers to one read.
struct MemoryAnswer
{
    HRESULT status = S_OK;
    XQPComVariant value;
};
