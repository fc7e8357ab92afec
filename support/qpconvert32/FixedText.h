// A text of the program itself in the form of a BSTR, for names that the host is given again and again.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>

/// A short text that needs no memory when it is passed: its length stands in front of it as in any BSTR. Only
/// for arguments that are read; it can be neither freed nor changed.
class FixedText
{
public:
    static constexpr std::size_t kMaxLength = 31;

    /// A longer text does not compile.
    // NOLINTNEXTLINE(google-explicit-constructor): a literal stands in for it
    consteval FixedText(const wchar_t* text)
    {
        std::size_t length = 0;
        for (; text[length] != L'\0'; ++length)
            m_text[length] = length < kMaxLength ? text[length] : throw "too long";
        m_bytes = static_cast<ULONG>(length * sizeof(wchar_t));
    }

    operator BSTR() const noexcept // NOLINT(google-explicit-constructor): passed as it is
    {
        return const_cast<BSTR>(m_text);
    }

private:
    // As long in front of the text as the system has it, so that the text stands as it would in memory of its
    // own.
    alignas(8) [[maybe_unused]] ULONG m_padding = 0;
    ULONG m_bytes = 0;
    wchar_t m_text[kMaxLength + 1] = {};
};
