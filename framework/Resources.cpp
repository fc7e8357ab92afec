#include "Resources.h"

#include "UiState.h"

std::wstring ResourceString(UINT id)
{
    std::wstring text(64, L'\0');
    for (;;)
    {
        const int length = LoadStringW(CurrentModule(), id, text.data(), static_cast<int>(text.size()));
        if (length + 1 < static_cast<int>(text.size()))
        {
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
        text.resize(text.size() * 4); // truncated: retry with a larger buffer
    }
}

std::string_view ResourceBytes(HINSTANCE module, UINT id, LPCWSTR type)
{
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    return bytes ? std::string_view(static_cast<const char*>(bytes), SizeofResource(module, found))
                 : std::string_view();
}

std::wstring ModulePath(HINSTANCE module)
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;)
    {
        const DWORD room = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(module, path.data(), room);
        if (length < room)
        {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 4); // truncated: retry with a larger buffer
    }
}
