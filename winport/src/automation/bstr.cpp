// Strings with a length: the number of bytes is stored right before the first character, a zero after the
// last.
#include <oleauto.h>

#include "allocation.h"

#include <cstring>
#include <cwchar>

namespace
{
// Precedes the characters; as large as on 64-bit Windows.
struct Header
{
    ULONG padding;
    ULONG bytes;
};

constexpr UINT kMostCharacters = (0x7FFFFFFF - sizeof(Header)) / sizeof(OLECHAR) - 1;

Header* HeaderOf(BSTR text)
{
    return reinterpret_cast<Header*>(text) - 1;
}

std::size_t BlockSize(UINT length)
{
    return sizeof(Header) + (static_cast<std::size_t>(length) + 1) * sizeof(OLECHAR);
}

BSTR Finish(void* block, UINT length)
{
    auto* header = static_cast<Header*>(block);
    header->padding = 0;
    header->bytes = length * static_cast<UINT>(sizeof(OLECHAR));
    auto* text = reinterpret_cast<BSTR>(header + 1);
    text[length] = L'\0';
    return text;
}
} // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    void* block = length <= kMostCharacters ? winport::Allocate(BlockSize(length)) : nullptr;
    if (!block)
        return nullptr;
    BSTR copy = Finish(block, length);
    if (text)
        std::wmemcpy(copy, text, length);
    else
        std::wmemset(copy, L'\0', length);
    return copy;
}

BSTR SysAllocString(const OLECHAR* text)
{
    return text ? SysAllocStringLen(text, static_cast<UINT>(std::wcslen(text))) : nullptr;
}

void SysFreeString(BSTR text)
{
    if (text)
        winport::Free(HeaderOf(text));
}

UINT SysStringByteLen(BSTR text)
{
    return text ? HeaderOf(text)->bytes : 0;
}

UINT SysStringLen(BSTR text)
{
    return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
