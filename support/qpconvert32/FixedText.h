// A literal in the form of a BSTR, for names that are passed to the host again and again.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <string_view>

/// A short constant text with its length prefix, as in any BSTR, so that passing it allocates nothing. Only
/// for input arguments: it must be neither freed nor modified.
class FixedText
{
public:
    static constexpr std::size_t kMaxLength = 31;

    /// A longer text does not compile.
    // NOLINTNEXTLINE(google-explicit-constructor): converts from a literal
    consteval FixedText(const wchar_t* text)
    {
        std::size_t length = 0;
        for (; text[length] != L'\0'; ++length)
            m_text[length] = length < kMaxLength ? text[length] : throw "too long";
        m_bytes = static_cast<ULONG>(length * sizeof(wchar_t));
    }

    constexpr std::wstring_view View() const noexcept { return {m_text, m_bytes / sizeof(wchar_t)}; }

    operator BSTR() const noexcept // NOLINT(google-explicit-constructor): passed as it is
    {
        return const_cast<BSTR>(m_text);
    }

private:
    // The same prefix as in memory from the system: 4 bytes of padding, 4 bytes of length, aligned to 8.
    alignas(8) [[maybe_unused]] ULONG m_padding = 0;
    ULONG m_bytes = 0;
    wchar_t m_text[kMaxLength + 1] = {};
};
