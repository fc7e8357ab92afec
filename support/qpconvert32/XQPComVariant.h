// An owning variant that converts on demand.
#pragma once

#include "XQPComBSTR.h"

#include <windows.h>

#include <oleauto.h>

#include <utility>

/// Holds one VARIANT and clears it at the end. Copying throws ComException(E_OUTOFMEMORY) when there is no
/// memory; a value that cannot be copied at all (of a type that no copy exists for) is copied as an empty
/// variant.
class XQPComVariant
{
public:
    /// Empty (VT_EMPTY).
    XQPComVariant() noexcept = default;

    /// A VT_BSTR with a copy of `text`; null is the empty text.
    XQPComVariant(const wchar_t* text); // NOLINT(google-explicit-constructor): a text stands in for it

    /// A copy of `value`, which stays the caller's.
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

    /// The address of the inner VARIANT for an out argument. What was held is released first, so that nothing
    /// leaks: to read the value, use Value().
    VARIANT* operator&() noexcept;

    /// The inner value for a by-value argument; what it refers to is still owned by this object.
    // NOLINTNEXTLINE(google-explicit-constructor): passed as it is
    operator VARIANT() const noexcept { return m_value; }

    /// The inner value where it stands.
    const VARIANT& Value() const noexcept { return m_value; }
    VARIANT& Value() noexcept { return m_value; }
    VARTYPE Type() const noexcept { return m_value.vt; }

    /// Releases what is held and makes the object empty.
    void Clear() noexcept;

    /// Gives the inner value to the caller, who clears it. The object is empty afterwards.
    VARIANT Detach() noexcept { return std::exchange(m_value, VARIANT{}); }

    /// Converts `source`, or the inner value when `source` is null, to the type `vt` and holds the result.
    /// Returns the status of the conversion; after a failure the value is what it was.
    HRESULT ChangeType(VARTYPE vt, const VARIANT* source = nullptr) noexcept;

    /// The value as an integer; 0 for a value that is no number.
    int GetInt() const noexcept;

    /// The value as text, never null; empty for a value that has no text. The text is owned by this object
    /// and good until the object is changed or asked again. Throws ComException(E_OUTOFMEMORY).
    wchar_t* GetString();

private:
    VARIANT m_value{};
    XQPComBSTR m_text;
};
