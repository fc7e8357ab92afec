// Registry functions: values. Sizes are in bytes and so depend on the size of a character.
#include "registry.h"

#include <cstring>

using namespace winport;

namespace
{
bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Copies the data of a value. A text stored without a terminator gets one if there is room.
LSTATUS Deliver(const RegistryValue& value, DWORD* type, BYTE* data, DWORD* size)
{
    const auto needed = static_cast<DWORD>(value.data.size());
    if (type)
        *type = value.type;
    if (!size)
        return ERROR_SUCCESS;
    const DWORD room = *size;
    *size = needed;
    if (!data)
        return ERROR_SUCCESS;
    if (room < needed)
        return ERROR_MORE_DATA;
    if (needed > 0)
        std::memcpy(data, value.data.data(), needed);
    if (IsText(value.type) && room - needed >= sizeof(wchar_t))
        std::memset(data + needed, 0, sizeof(wchar_t));
    return ERROR_SUCCESS;
}
} // namespace

LSTATUS RegSetValueExW(HKEY handle, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size)
{
    if (reserved || (!data && size > 0))
        return ERROR_INVALID_PARAMETER;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = registry.Key(handle, KEY_SET_VALUE, &status);
        if (!key)
            return status;
        std::vector<BYTE> bytes(data, data + size);
        RegistryValue* value = key->Value(NameView(name));
        if (!value)
            value = &key->values.emplace_back(RegistryValue{std::wstring(NameView(name)), type, {}});
        value->type = type;
        value->data = std::move(bytes);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryValueExW(HKEY handle, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size)
{
    if (reserved || (data && !size))
        return ERROR_INVALID_PARAMETER;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = registry.Key(handle, KEY_QUERY_VALUE, &status);
        if (!key)
            return status;
        const RegistryValue* value = key->Value(NameView(name));
        return value ? Deliver(*value, type, data, size) : ERROR_FILE_NOT_FOUND;
    });
}

LSTATUS RegDeleteValueW(HKEY handle, LPCWSTR name)
{
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = registry.Key(handle, KEY_SET_VALUE, &status);
        if (!key)
            return status;
        const RegistryValue* value = key->Value(NameView(name));
        if (!value)
            return ERROR_FILE_NOT_FOUND;
        key->values.erase(key->values.begin() + (value - key->values.data()));
        return ERROR_SUCCESS;
    });
}

LSTATUS RegEnumValueW(HKEY handle, DWORD index, LPWSTR name, DWORD* nameSize, DWORD* reserved, DWORD* type,
                      BYTE* data, DWORD* size)
{
    if (!name || !nameSize || reserved || (data && !size))
        return ERROR_INVALID_PARAMETER;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = registry.Key(handle, KEY_QUERY_VALUE, &status);
        if (!key)
            return status;
        if (index >= key->values.size())
            return ERROR_NO_MORE_ITEMS;
        const RegistryValue& value = key->values[index];
        if (*nameSize <= value.name.size())
            return ERROR_MORE_DATA;
        *nameSize = CopyOut(value.name, name, *nameSize);
        return Deliver(value, type, data, size);
    });
}
