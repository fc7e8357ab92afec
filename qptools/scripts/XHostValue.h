// A value that the host delivers.
#pragma once

#include "ComPtr.h"

#include "qpobjects.h"

#include <oleauto.h>

#include <string_view>
#include <utility>

namespace qptools
{
/// Owns one variant, with no more ado than reading hundreds of thousands of them allows.
class XHostValue
{
public:
    XHostValue() noexcept { VariantInit(&m_value); }
    XHostValue(XHostValue&& other) noexcept : m_value(other.Detach()) {}
    XHostValue& operator=(XHostValue&& other) noexcept
    {
        const VARIANT taken = other.Detach();
        Clear();
        m_value = taken;
        return *this;
    }
    ~XHostValue() { Clear(); }

    /// A text of its own. Throws ComException(E_OUTOFMEMORY).
    static XHostValue OfText(std::wstring_view text);

    /// A reference to an object, taken over from the caller.
    static XHostValue OfObject(ComPtr<IQP_BaseDataObject>&& object) noexcept;

    /// The address for an out argument; what was held is released first.
    VARIANT* put() noexcept
    {
        Clear();
        return &m_value;
    }

    const VARIANT& Value() const noexcept { return m_value; }
    VARTYPE Type() const noexcept { return m_value.vt; }
    bool IsText() const noexcept { return Type() == VT_BSTR; }
    /// True for an object reference (VT_UNKNOWN), which may be null.
    bool IsObject() const noexcept { return Type() == VT_UNKNOWN; }

    /// Puts in place of a reference (VT_BYREF) what it refers to, nothing if that cannot be had. Throws
    /// ComException(E_OUTOFMEMORY).
    void Resolve()
    {
        if (m_value.vt & VT_BYREF)
            FollowReference();
    }

    /// Converts the value to a text in place. Returns false, and leaves it as it is, if it has none. Throws
    /// ComException(E_OUTOFMEMORY).
    bool ConvertToText() { return IsText() || ChangeToText(); }

    /// The text, never null; empty for any other value.
    BSTR Text() const;
    std::wstring_view View() const noexcept
    {
        return IsText() ? std::wstring_view(m_value.bstrVal, SysStringLen(m_value.bstrVal))
                        : std::wstring_view();
    }

    /// The data object that an object reference stands for; null for a null reference, for an object that is
    /// no data object and for every other value.
    ComPtr<IQP_BaseDataObject> DataObject() const noexcept
    {
        ComPtr<IQP_BaseDataObject> object;
        if (IsObject())
            object.queryFrom(m_value.punkVal);
        return object;
    }

    void Clear() noexcept
    {
        if (m_value.vt != VT_EMPTY)
            VariantClear(&m_value);
    }

private:
    VARIANT Detach() noexcept
    {
        const VARIANT value = m_value;
        m_value.vt = VT_EMPTY;
        return value;
    }
    void FollowReference();
    bool ChangeToText();

    VARIANT m_value;
};
} // namespace qptools
