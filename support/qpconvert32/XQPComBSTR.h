// An owning wide string, stored as a BSTR so that it can be passed to any interface.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <compare>
#include <string_view>

/// Embedded null characters are kept. A null text and an empty text are the same, and both read as a valid
/// empty text. Every operation that allocates throws ComException(E_OUTOFMEMORY) on out of memory and leaves
/// the object unchanged.
class XQPComBSTR
{
public:
    XQPComBSTR() noexcept = default;

    /// Copies `text`; null is the empty text.
    XQPComBSTR(const wchar_t* text); // NOLINT(google-explicit-constructor): converts from a text

    /// Copies `length` characters of `text`, null characters included. A null text or a length below 1 gives
    /// an empty text.
    XQPComBSTR(const wchar_t* text, int length);
    XQPComBSTR(const XQPComBSTR& other);
    XQPComBSTR(XQPComBSTR&& other) noexcept;
    virtual ~XQPComBSTR();

    XQPComBSTR& operator=(const wchar_t* text);
    XQPComBSTR& operator=(const XQPComBSTR& other);
    XQPComBSTR& operator=(XQPComBSTR&& other) noexcept;

    /// The BSTR, owned by this object: never null, writable within its length.
    operator wchar_t*() const noexcept; // NOLINT(google-explicit-constructor): passed as it is

    /// The number of characters (code units).
    int Length() const noexcept;
    bool IsEmpty() const noexcept { return Length() == 0; }
    std::wstring_view View() const noexcept;

    /// Exact, case-sensitive comparison. A null text equals the empty one. The overloads for wchar_t* here
    /// and below are needed: without them the conversion to wchar_t* makes a comparison of pointers an
    /// equally good match.
    bool operator==(const wchar_t* text) const noexcept;
    bool operator==(const XQPComBSTR& other) const noexcept;
    bool operator==(wchar_t* text) const noexcept { return *this == static_cast<const wchar_t*>(text); }

    /// Compares code units, whatever the user's language; the order of maps keyed by this class.
    std::strong_ordering operator<=>(const wchar_t* text) const noexcept;
    std::strong_ordering operator<=>(const XQPComBSTR& other) const noexcept;
    std::strong_ordering operator<=>(wchar_t* text) const noexcept
    {
        return *this <=> static_cast<const wchar_t*>(text);
    }

    /// Appends. An object may be appended to itself.
    XQPComBSTR& operator+=(const XQPComBSTR& other);
    XQPComBSTR& operator+=(const wchar_t* text);

    /// Returns the index of the first match at or after `start`, or -1. A `start` below 0 counts as 0. An
    /// empty text matches at `start` if that is not beyond the end.
    int Find(wchar_t character, int start = 0) const noexcept;
    int Find(const wchar_t* text, int start = 0) const noexcept;

    /// Returns `count` characters from the index `first`, fewer at the end of the text. A `first` below 0
    /// counts as 0. Empty if `count` is below 1 or `first` is beyond the end.
    XQPComBSTR Mid(int first, int count) const;

    /// Converts the text to lower case in place. Returns 0.
    LONG ToLower() noexcept;

    /// The address for an out argument; what was held is freed first.
    BSTR* put() noexcept;

    /// Takes ownership of a BSTR; null is the empty text.
    void Attach(BSTR text) noexcept;

    /// Transfers the BSTR to the caller, who frees it; null for the empty text. The object is empty
    /// afterwards.
    BSTR Detach() noexcept;

    /// A new BSTR with the same text, never null, owned by the caller.
    BSTR Copy() const;

private:
    BSTR m_text = nullptr;
};
