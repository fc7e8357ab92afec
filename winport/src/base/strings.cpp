// String tables of a module: blocks of sixteen strings, each a count and that many UTF-16 units.
#include "text.h"

#include <algorithm>

using namespace winport;

namespace
{
// The text with index `index` in a block of `size` bytes; empty if the block ends before it.
std::wstring StringInBlock(const unsigned char* data, DWORD size, unsigned index)
{
    for (DWORD position = 0; position + 2 <= size;)
    {
        const DWORD units = data[position] | (static_cast<DWORD>(data[position + 1]) << 8);
        position += 2;
        if (units > (size - position) / 2)
            break;
        if (index-- == 0)
            return WideFromUtf16(data + position, units);
        position += 2 * units;
    }
    return {};
}
} // namespace

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size)
{
    if (!buffer || size <= 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    buffer[0] = L'\0';
    const HRSRC block = FindResourceW(module, MAKEINTRESOURCEW((id >> 4) + 1), RT_STRING);
    if (!block)
        return 0;
    return WithMemory(0, [&] {
        const auto* data = static_cast<const unsigned char*>(LoadResource(module, block));
        const std::wstring text = StringInBlock(data, SizeofResource(module, block), id & 15);
        const std::size_t length = std::min(text.size(), static_cast<std::size_t>(size - 1));
        text.copy(buffer, length);
        buffer[length] = L'\0';
        return static_cast<int>(length);
    });
}
