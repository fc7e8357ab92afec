// Identifiers as text, and ProgIDs.
#include "guids.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <sys/random.h>

namespace winport
{
namespace
{
std::optional<unsigned> HexDigit(wchar_t character)
{
    if (character >= L'0' && character <= L'9')
        return character - L'0';
    if (character >= L'a' && character <= L'f')
        return character - L'a' + 10;
    if (character >= L'A' && character <= L'F')
        return character - L'A' + 10;
    return std::nullopt;
}

// Reads `bytes` bytes written in hexadecimal.
bool ReadHex(const wchar_t*& text, int bytes, unsigned* value)
{
    *value = 0;
    for (int i = 0; i < 2 * bytes; ++i, ++text)
    {
        const std::optional<unsigned> digit = HexDigit(*text);
        if (!digit)
            return false;
        *value = (*value << 4) | *digit;
    }
    return true;
}

template <class T>
bool ReadField(const wchar_t*& text, T* field)
{
    unsigned value = 0;
    const bool read = ReadHex(text, sizeof(T), &value);
    *field = static_cast<T>(value);
    return read;
}

bool ReadSign(const wchar_t*& text, wchar_t sign)
{
    return *text == sign && *text++ != L'\0';
}

// The class in the registry key of a ProgID.
HRESULT RegisteredClass(LPCOLESTR progId, CLSID* clsid) noexcept
{
    try
    {
        std::wstring text;
        if (!*progId || ReadClassesText(std::wstring(progId) + L"\\CLSID", &text) != ERROR_SUCCESS)
            return CO_E_CLASSSTRING;
        return ParseGuid(text.c_str(), clsid) ? S_OK : CO_E_CLASSSTRING;
    }
    catch (...)
    {
        return E_OUTOFMEMORY;
    }
}
} // namespace

bool ParseGuid(const wchar_t* text, GUID* guid)
{
    GUID read{};
    bool good = ReadSign(text, L'{') && ReadField(text, &read.Data1) && ReadSign(text, L'-') &&
                ReadField(text, &read.Data2) && ReadSign(text, L'-') && ReadField(text, &read.Data3) &&
                ReadSign(text, L'-');
    for (int i = 0; good && i < 8; ++i)
        good = (i != 2 || ReadSign(text, L'-')) && ReadField(text, &read.Data4[i]);
    if (!good || !ReadSign(text, L'}') || *text)
        return false;
    *guid = read;
    return true;
}

std::wstring GuidText(REFGUID guid)
{
    wchar_t text[kGuidLength + 1] = L"";
    StringFromGUID2(guid, text, static_cast<int>(kGuidLength) + 1);
    return text;
}

LSTATUS ReadClassesText(const std::wstring& path, std::wstring* text)
{
    HKEY key = nullptr;
    LSTATUS status = RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key);
    if (status != ERROR_SUCCESS)
        return status;
    DWORD type = REG_NONE;
    DWORD size = 0;
    status = RegQueryValueExW(key, nullptr, nullptr, &type, nullptr, &size);
    if (status == ERROR_SUCCESS && type == REG_SZ)
    {
        // One more, for a terminator.
        text->assign(size / sizeof(wchar_t) + 1, L'\0');
        status = RegQueryValueExW(key, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(text->data()), &size);
        text->resize(std::wcslen(text->c_str()));
    }
    RegCloseKey(key);
    return status == ERROR_SUCCESS && type != REG_SZ ? ERROR_FILE_NOT_FOUND : status;
}
} // namespace winport

using namespace winport;

HRESULT CLSIDFromString(LPCOLESTR text, LPCLSID clsid)
{
    if (!clsid)
        return E_INVALIDARG;
    *clsid = GUID{};
    if (!text || ParseGuid(text, clsid))
        return S_OK;
    return *text == L'{' ? CO_E_CLASSSTRING : RegisteredClass(text, clsid);
}

HRESULT IIDFromString(LPCOLESTR text, LPIID iid)
{
    if (!iid)
        return E_INVALIDARG;
    *iid = GUID{};
    if (!text)
        return S_OK;
    if (std::wcslen(text) != kGuidLength)
        return E_INVALIDARG;
    return ParseGuid(text, iid) ? S_OK : CO_E_IIDSTRING;
}

int StringFromGUID2(REFGUID guid, LPOLESTR text, int size)
{
    if (!text || size <= static_cast<int>(kGuidLength))
        return 0;
    std::swprintf(text, kGuidLength + 1, L"{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.Data1,
                  guid.Data2, guid.Data3, guid.Data4[0], guid.Data4[1], guid.Data4[2], guid.Data4[3],
                  guid.Data4[4], guid.Data4[5], guid.Data4[6], guid.Data4[7]);
    return static_cast<int>(kGuidLength) + 1;
}

HRESULT CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid)
{
    if (!progId || !clsid)
        return E_INVALIDARG;
    *clsid = GUID{};
    return RegisteredClass(progId, clsid);
}
