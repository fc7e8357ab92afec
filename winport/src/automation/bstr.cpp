// Strings that carry their length: the number of bytes stands right before the first character, a zero after
// the last.
#include <oleauto.h>

#include "winport_alloc.h"

#include <cstring>
#include <cwchar>

namespace
{
// Before the characters, as long as on 64-bit Windows; the length is its second half.
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
    void* block = length <= kMostCharacters ? WinportAlloc(BlockSize(length)) : nullptr;
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

INT SysReAllocStringLen(BSTR* target, const OLECHAR* text, UINT length)
{
    if (!target)
        return FALSE;
    if (text || !*target)
    {
        // A fresh block, because `text` may lie in the old one.
        BSTR copy = SysAllocStringLen(text, length);
        if (!copy)
            return FALSE;
        SysFreeString(*target);
        *target = copy;
        return TRUE;
    }
    void* block = length <= kMostCharacters ? WinportRealloc(HeaderOf(*target), BlockSize(length)) : nullptr;
    if (!block)
        return FALSE;
    *target = Finish(block, length);
    return TRUE;
}

INT SysReAllocString(BSTR* target, const OLECHAR* text)
{
    if (!target)
        return FALSE;
    if (text)
        return SysReAllocStringLen(target, text, static_cast<UINT>(std::wcslen(text)));
    SysFreeString(*target);
    *target = nullptr;
    return TRUE;
}

void SysFreeString(BSTR text)
{
    if (text)
        WinportFree(HeaderOf(text));
}

UINT SysStringByteLen(BSTR text)
{
    return text ? HeaderOf(text)->bytes : 0;
}

UINT SysStringLen(BSTR text)
{
    return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
