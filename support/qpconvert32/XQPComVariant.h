// An owning variant that converts on demand.
#pragma once

#include "XQPComBSTR.h"

#include <windows.h>

#include <oleauto.h>

#include <utility>

/// Owns one VARIANT. Copying throws ComException(E_OUTOFMEMORY) on out of memory; a value that cannot be
/// copied for another reason, such as an invalid type, is copied as an empty variant.
class XQPComVariant
{
public:
    /// Empty (VT_EMPTY).
    XQPComVariant() noexcept = default;

    /// A VT_BSTR with a copy of `text`; null is the empty text.
    XQPComVariant(const wchar_t* text); // NOLINT(google-explicit-constructor): converts from a text

    /// A copy of `value`.
    explicit XQPComVariant(const VARIANT& value);
    XQPComVariant(const XQPComVariant& other);
    XQPComVariant(XQPComVariant&& other) noexcept : m_value(other.Detach()) {}
    ~XQPComVariant()
    {
        if (m_value.vt != VT_EMPTY)
            VariantClear(&m_value);
    }

    XQPComVariant& operator=(const wchar_t* text);
    XQPComVariant& operator=(const VARIANT& value);
    XQPComVariant& operator=(const XQPComVariant& other);
    XQPComVariant& operator=(XQPComVariant&& other) noexcept;

    /// The address for an out argument; what was held is cleared first. To read the value, use Value().
    VARIANT* operator&() noexcept;

    /// The value for a by-value argument, still owned by this object.
    // NOLINTNEXTLINE(google-explicit-constructor): passed as it is
    operator VARIANT() const noexcept { return m_value; }

    /// The value in place.
    const VARIANT& Value() const noexcept { return m_value; }
    VARIANT& Value() noexcept { return m_value; }
    VARTYPE Type() const noexcept { return m_value.vt; }

    /// Releases the value; the object is empty afterwards.
    void Clear() noexcept;

    /// Transfers the value to the caller, who clears it. The object is empty afterwards.
    VARIANT Detach() noexcept { return std::exchange(m_value, VARIANT{}); }

    /// Converts `source`, or this object's value if `source` is null, to the type `vt` and holds the result.
    /// Returns the status of the conversion; a failure leaves the value unchanged.
    HRESULT ChangeType(VARTYPE vt, const VARIANT* source = nullptr) noexcept;

    /// The value as an integer; 0 if it is not a number.
    int GetInt() const noexcept;

    /// The value as text, never null; empty if it has no text form. Owned by this object, valid until it is
    /// modified or GetString is called again. Throws ComException(E_OUTOFMEMORY).
    wchar_t* GetString();

private:
    VARIANT m_value{};
    XQPComBSTR m_text;
};
