#include "XQPComBSTR.h"

#include "ComException.h"

#include <algorithm>
#include <cwchar>
#include <limits>
#include <utility>

namespace
{
// The longest text: its length in bytes has 32 bits, and indexes are of type int.
constexpr std::size_t kMaxLength = std::numeric_limits<int>::max() / sizeof(wchar_t) - sizeof(wchar_t);

// What an empty object reads as. A BSTR has a length prefix, and so has this text, because it may be passed
// to other components. It is static, so that reading never allocates and never fails.
struct EmptyText
{
    ULONG lengthAsBytes[4] = {};
    wchar_t text[2] = {};
};
EmptyText g_empty;

std::wstring_view ViewOf(const wchar_t* text) noexcept
{
    return text ? std::wstring_view(text) : std::wstring_view();
}

BSTR Allocate(const wchar_t* text, std::size_t length)
{
    if (length > kMaxLength)
        ThrowOutOfMemory();
    const BSTR made = SysAllocStringLen(text, static_cast<UINT>(length));
    if (!made)
        ThrowOutOfMemory();
    return made;
}

// The empty text is stored as a null BSTR.
BSTR AllocateUnlessEmpty(std::wstring_view text)
{
    return text.empty() ? nullptr : Allocate(text.data(), text.size());
}

BSTR Joined(std::wstring_view first, std::wstring_view second)
{
    const BSTR made = Allocate(nullptr, first.size() + second.size());
    std::copy(first.begin(), first.end(), made);
    std::copy(second.begin(), second.end(), made + first.size());
    return made;
}

int PositionOf(std::size_t found) noexcept
{
    return found == std::wstring_view::npos ? -1 : static_cast<int>(found);
}

std::size_t StartOf(int start) noexcept
{
    return static_cast<std::size_t>(std::max(start, 0));
}
} // namespace

XQPComBSTR::XQPComBSTR(const wchar_t* text) : m_text(AllocateUnlessEmpty(ViewOf(text))) {}

XQPComBSTR::XQPComBSTR(const wchar_t* text, int length)
    : m_text(text && length > 0 ? Allocate(text, static_cast<std::size_t>(length)) : nullptr)
{
}

XQPComBSTR::XQPComBSTR(const XQPComBSTR& other) : m_text(AllocateUnlessEmpty(other.View())) {}

XQPComBSTR::XQPComBSTR(XQPComBSTR&& other) noexcept : m_text(other.Detach()) {}

XQPComBSTR::~XQPComBSTR()
{
    SysFreeString(m_text);
}

XQPComBSTR& XQPComBSTR::operator=(const wchar_t* text)
{
    // Copied before the old text is freed, because `text` may be part of it.
    Attach(AllocateUnlessEmpty(ViewOf(text)));
    return *this;
}

XQPComBSTR& XQPComBSTR::operator=(const XQPComBSTR& other)
{
    if (this != &other)
        Attach(AllocateUnlessEmpty(other.View()));
    return *this;
}

XQPComBSTR& XQPComBSTR::operator=(XQPComBSTR&& other) noexcept
{
    // Right for this object itself, too: its text is taken before it would be freed.
    Attach(other.Detach());
    return *this;
}

XQPComBSTR::operator wchar_t*() const noexcept
{
    return m_text ? m_text : g_empty.text;
}

int XQPComBSTR::Length() const noexcept
{
    return static_cast<int>(SysStringLen(m_text));
}

std::wstring_view XQPComBSTR::View() const noexcept
{
    return m_text ? std::wstring_view(m_text, SysStringLen(m_text)) : std::wstring_view();
}

bool XQPComBSTR::operator==(const wchar_t* text) const noexcept
{
    return View() == ViewOf(text);
}

bool XQPComBSTR::operator==(const XQPComBSTR& other) const noexcept
{
    return View() == other.View();
}

std::strong_ordering XQPComBSTR::operator<=>(const wchar_t* text) const noexcept
{
    return View() <=> ViewOf(text);
}

std::strong_ordering XQPComBSTR::operator<=>(const XQPComBSTR& other) const noexcept
{
    return View() <=> other.View();
}

XQPComBSTR& XQPComBSTR::operator+=(const XQPComBSTR& other)
{
    if (!other.IsEmpty())
        Attach(Joined(View(), other.View()));
    return *this;
}

XQPComBSTR& XQPComBSTR::operator+=(const wchar_t* text)
{
    if (text && *text)
        Attach(Joined(View(), text));
    return *this;
}

int XQPComBSTR::Find(wchar_t character, int start) const noexcept
{
    return PositionOf(View().find(character, StartOf(start)));
}

int XQPComBSTR::Find(const wchar_t* text, int start) const noexcept
{
    return PositionOf(View().find(ViewOf(text), StartOf(start)));
}

XQPComBSTR XQPComBSTR::Mid(int first, int count) const
{
    const int start = std::max(first, 0);
    if (count <= 0 || start >= Length())
        return {};
    return {m_text + start, std::min(count, Length() - start)};
}

LONG XQPComBSTR::ToLower() noexcept
{
    if (m_text)
        CharLowerBuffW(m_text, SysStringLen(m_text));
    return 0;
}

BSTR* XQPComBSTR::put() noexcept
{
    Attach(nullptr);
    return &m_text;
}

void XQPComBSTR::Attach(BSTR text) noexcept
{
    SysFreeString(std::exchange(m_text, text));
}

BSTR XQPComBSTR::Detach() noexcept
{
    return std::exchange(m_text, nullptr);
}

BSTR XQPComBSTR::Copy() const
{
    return Allocate(*this, static_cast<std::size_t>(Length()));
}
