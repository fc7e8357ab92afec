// An owning wide string, kept as a real BSTR so that it can cross any interface as it is.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <compare>
#include <string_view>

/// A text of its own. Embedded null characters are kept; a null text and the empty text are the same thing,
/// and both read as a valid empty text. Every operation that allocates throws ComException(E_OUTOFMEMORY)
/// when there is no memory, and leaves the object as it was.
class XQPComBSTR
{
public:
    XQPComBSTR() noexcept = default;

    /// Copies `text`; null is the empty text.
    XQPComBSTR(const wchar_t* text); // NOLINT(google-explicit-constructor): a text stands in for it

    /// Copies `length` characters from `text`, null characters among them. A null text or a length below 1 is
    /// empty.
    XQPComBSTR(const wchar_t* text, int length);
    XQPComBSTR(const XQPComBSTR& other);
    XQPComBSTR(XQPComBSTR&& other) noexcept;
    virtual ~XQPComBSTR();

    XQPComBSTR& operator=(const wchar_t* text);
    XQPComBSTR& operator=(const XQPComBSTR& other);
    XQPComBSTR& operator=(XQPComBSTR&& other) noexcept;

    /// The raw text, still owned by this object: a valid BSTR, never null, changeable within its length.
    operator wchar_t*() const noexcept; // NOLINT(google-explicit-constructor): passed as it is

    /// The number of characters (code units).
    int Length() const noexcept;
    bool IsEmpty() const noexcept { return Length() == 0; }
    std::wstring_view View() const noexcept;

    /// Exact, case-sensitive comparison. A null text equals the empty one. (Changeable texts have overloads
    /// of their own here and below, as the conversion to raw text would make the comparison of two pointers
    /// as good a match.)
    bool operator==(const wchar_t* text) const noexcept;
    bool operator==(const XQPComBSTR& other) const noexcept;
    bool operator==(wchar_t* text) const noexcept { return *this == static_cast<const wchar_t*>(text); }

    /// The order of maps keyed by this class, also as a part of the key: code unit by code unit, whatever the
    /// user's language.
    std::strong_ordering operator<=>(const wchar_t* text) const noexcept;
    std::strong_ordering operator<=>(const XQPComBSTR& other) const noexcept;
    std::strong_ordering operator<=>(wchar_t* text) const noexcept
    {
        return *this <=> static_cast<const wchar_t*>(text);
    }

    /// Appends; appending a text to itself doubles it.
    XQPComBSTR& operator+=(const XQPComBSTR& other);
    XQPComBSTR& operator+=(const wchar_t* text);

    /// The index of the first match at or after `start`, -1 without one. A start below 0 counts as 0. An
    /// empty text matches at the start, as long as that lies within the text or at its end.
    int Find(wchar_t character, int start = 0) const noexcept;
    int Find(const wchar_t* text, int start = 0) const noexcept;

    /// The `count` characters from `first` on: a first below 0 counts as 0, a count beyond the end is cut.
    /// Empty when the count is below 1 or `first` lies beyond the text.
    XQPComBSTR Mid(int first, int count) const;

    /// Turns the text to lower case in place. Returns 0.
    LONG ToLower() noexcept;

    /// The address for an out argument; what was held is freed first.
    BSTR* put() noexcept;

    /// Takes over a BSTR that the caller owns; null is the empty text.
    void Attach(BSTR text) noexcept;

    /// Gives the BSTR to the caller, who frees it. Null if nothing was ever held. The object is empty
    /// afterwards.
    BSTR Detach() noexcept;

    /// A new BSTR with the same text, never null, owned by the caller.
    BSTR Copy() const;

private:
    BSTR m_text = nullptr;
};
