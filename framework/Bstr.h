// The owner of one BSTR.
#pragma once

#include "ComException.h"

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <utility>

/// Frees its BSTR. A null BSTR is an empty text. There is no operator&: put() is for out arguments and frees
/// what was held before.
class Bstr
{
public:
    Bstr() noexcept = default;

    /// Copies `text`; null gives a null BSTR. Throws ComException(E_OUTOFMEMORY).
    explicit Bstr(const wchar_t* text) : m_text(text ? Copy(text) : nullptr) {}

    /// Copies `text`, null characters included. Throws ComException(E_OUTOFMEMORY).
    explicit Bstr(std::wstring_view text) : m_text(Copy(text)) {}
    Bstr(Bstr&& other) noexcept : m_text(other.detach()) {}
    Bstr& operator=(Bstr&& other) noexcept
    {
        SysFreeString(std::exchange(m_text, other.detach()));
        return *this;
    }
    ~Bstr() { SysFreeString(m_text); }

    BSTR get() const noexcept { return m_text; }

    /// The whole text, null characters included. Valid until the BSTR is freed.
    std::wstring_view View() const noexcept { return {m_text, SysStringLen(m_text)}; }

    /// The address for an out argument; what was held is freed first.
    BSTR* put() noexcept
    {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }

    /// Transfers the BSTR to the caller.
    BSTR detach() noexcept { return std::exchange(m_text, nullptr); }

private:
    static BSTR Copy(std::wstring_view text)
    {
        const BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        if (!copy)
            ThrowOutOfMemory();
        return copy;
    }

    BSTR m_text = nullptr;
};
