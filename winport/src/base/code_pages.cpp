// Conversion between code pages and wide text. UTF-8 is the only code page; CP_ACP is UTF-8, too.
#include "text.h"

#include <cstring>

using namespace winport;

namespace
{
// Checks the parameters of both directions. A `size` of 0 asks for the length, without a target.
template <class Source, class Target>
bool Acceptable(UINT page, DWORD flags, DWORD known, const Source* text, int length, const Target* target,
                int size)
{
    DWORD error = ERROR_SUCCESS;
    if (!text || length == 0 || length < -1 || size < 0 || (size > 0 && !target) ||
        static_cast<const void*>(text) == static_cast<const void*>(target) ||
        (page != CP_UTF8 && page != CP_ACP))
        error = ERROR_INVALID_PARAMETER;
    else if ((flags & ~known) != 0)
        error = ERROR_INVALID_FLAGS;
    if (error != ERROR_SUCCESS)
        SetLastError(error);
    return error == ERROR_SUCCESS;
}

template <class String, class Target>
int Deliver(const String& converted, Target* target, int size)
{
    const int length = static_cast<int>(converted.size());
    if (size == 0)
        return length;
    if (length > size)
    {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    converted.copy(target, converted.size());
    return length;
}

int Refuse()
{
    SetLastError(ERROR_NO_UNICODE_TRANSLATION);
    return 0;
}
} // namespace

int MultiByteToWideChar(UINT page, DWORD flags, LPCSTR text, int length, LPWSTR target, int size)
{
    const DWORD known = MB_ERR_INVALID_CHARS | (page == CP_ACP ? MB_PRECOMPOSED : 0);
    if (!Acceptable(page, flags, known, text, length, target, size))
        return 0;
    return WithMemory(0, [&] {
        bool invalid = false;
        const std::size_t bytes = length < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
        const std::wstring wide = Wide(std::string_view(text, bytes), &invalid);
        if (invalid && (flags & MB_ERR_INVALID_CHARS) != 0)
            return Refuse();
        return Deliver(wide, target, size);
    });
}

int WideCharToMultiByte(UINT page, DWORD flags, LPCWSTR text, int length, LPSTR target, int size,
                        LPCSTR defaultChar, LPBOOL usedDefault)
{
    if (!Acceptable(page, flags, WC_ERR_INVALID_CHARS, text, length, target, size))
        return 0;
    // UTF-8 encodes every character, so a default character is refused, as on Windows.
    if (page == CP_UTF8 && (defaultChar || usedDefault))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (usedDefault)
        *usedDefault = FALSE;
    return WithMemory(0, [&] {
        bool invalid = false;
        const std::size_t count = length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
        const std::string bytes = Utf8(std::wstring_view(text, count), &invalid);
        if (invalid && (flags & WC_ERR_INVALID_CHARS) != 0)
            return Refuse();
        return Deliver(bytes, target, size);
    });
}
