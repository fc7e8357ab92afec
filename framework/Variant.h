// The owner of one VARIANT.
#pragma once

#include "ComPtr.h"

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <utility>

/// Clears its VARIANT. There is no operator&: put() is for out arguments and clears what was held before.
/// Hundreds of thousands of these are read in one call of a host: what stands in this header stays inline.
class Variant
{
public:
    /// Empty (VT_EMPTY).
    Variant() noexcept = default;
    Variant(Variant&& other) noexcept : m_value(other.detach()) {}
    Variant& operator=(Variant&& other) noexcept
    {
        const VARIANT taken = other.detach();
        Clear();
        m_value = taken;
        return *this;
    }
    ~Variant() { Clear(); }

    /// A VT_BSTR with a copy of `text`. Throws ComException(E_OUTOFMEMORY).
    static Variant OfText(std::wstring_view text);

    /// A VT_I4.
    static Variant OfNumber(LONG number) noexcept
    {
        Variant made;
        made.m_value.vt = VT_I4;
        made.m_value.lVal = number;
        return made;
    }

    /// A VT_UNKNOWN that takes over the reference of `object`, which may be null.
    template <class T>
    static Variant OfObject(ComPtr<T>&& object) noexcept
    {
        Variant made;
        made.m_value.vt = VT_UNKNOWN;
        made.m_value.punkVal = object.detach();
        return made;
    }

    const VARIANT& get() const noexcept { return m_value; }
    const VARIANT* operator->() const noexcept { return &m_value; }
    VARTYPE Type() const noexcept { return m_value.vt; }

    /// The text of a VT_BSTR, null characters included; empty for any other type. Valid until the value is
    /// cleared.
    std::wstring_view View() const noexcept
    {
        return m_value.vt == VT_BSTR ? std::wstring_view(m_value.bstrVal, SysStringLen(m_value.bstrVal))
                                     : std::wstring_view();
    }

    /// The address for an out argument; what was held is cleared first.
    VARIANT* put() noexcept
    {
        Clear();
        return &m_value;
    }

    /// Transfers the value to the caller, who clears it.
    VARIANT detach() noexcept
    {
        const VARIANT value = m_value;
        m_value.vt = VT_EMPTY;
        return value;
    }

    /// The member is empty before anything is released, because a release may call back. A locked array
    /// cannot be destroyed and is left to its lock's owner.
    void Clear() noexcept
    {
        if (m_value.vt == VT_EMPTY)
            return;
        VARIANT old = detach();
        VariantClear(&old);
    }

private:
    VARIANT m_value{};
};

/// Writes a copy of `source` to `copy`, with VT_BYREF resolved. A null address reads as no value: `copy` is
/// empty and the status S_OK. Returns the status of VariantCopyInd, and `copy` is empty if that failed.
HRESULT CopyResolved(const VARIANT& source, Variant& copy) noexcept;

/// Writes a copy of `source`, converted to `type` with VT_BYREF resolved, to `copy`. Returns false, with
/// `copy` empty, if it cannot be converted. Throws ComException(E_OUTOFMEMORY).
bool CopyConverted(const VARIANT& source, VARTYPE type, Variant& copy);

/// The rest of ResolveReference, for a VT_BYREF.
void ReplaceReference(Variant& value);

/// Replaces a VT_BYREF with a copy of what it refers to; a null address and what cannot be copied give an
/// empty value. Does nothing for any other type. Throws ComException(E_OUTOFMEMORY).
inline void ResolveReference(Variant& value)
{
    if (value.Type() & VT_BYREF)
        ReplaceReference(value);
}

/// The rest of ConvertToText, for any type but VT_BSTR.
bool ChangeToText(Variant& value);

/// Converts `value` to VT_BSTR in place, VT_BYREF resolved. Returns false if it has no text form; a VT_BYREF
/// is resolved then, any other value as it was. Throws ComException(E_OUTOFMEMORY).
inline bool ConvertToText(Variant& value)
{
    return value.Type() == VT_BSTR || ChangeToText(value);
}
