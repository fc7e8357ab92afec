#include "resources.h"

#include "modules.h"
#include "text.h"

#include <cstring>

namespace winport
{
namespace
{
// Reads the bytes of a resource file; every read returns false at the end.
class CReader
{
public:
    CReader(const unsigned char* data, std::size_t size) : m_data(data), m_size(size) {}

    bool Word(WORD* value) { return Take(value, sizeof(*value)); }
    bool Dword(DWORD* value) { return Take(value, sizeof(*value)); }
    bool AtEnd() const { return m_position >= m_size; }
    void Align() { m_position = (m_position + 3) & ~std::size_t{3}; }

    const unsigned char* Skip(std::size_t count)
    {
        if (m_position > m_size || count > m_size - m_position)
            return nullptr;
        const unsigned char* start = m_data + m_position;
        m_position += count;
        return start;
    }

    bool Id(ResourceId* id)
    {
        WORD unit = 0;
        if (!Word(&unit))
            return false;
        if (unit == 0xFFFF)
            return Word(&id->number);
        const unsigned char* start = m_data + m_position - sizeof(WORD);
        std::size_t units = 0;
        for (; unit != 0; ++units)
            if (!Word(&unit))
                return false;
        id->text = WideFromUtf16(start, units);
        return true;
    }

private:
    bool Take(void* target, std::size_t count)
    {
        const unsigned char* source = Skip(count);
        if (source)
            std::memcpy(target, source, count);
        return source != nullptr;
    }

    const unsigned char* m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};

bool ReadResource(CReader& reader, Resource* resource)
{
    DWORD headerSize = 0;
    DWORD skipped = 0;
    WORD ignored = 0;
    if (!reader.Dword(&resource->size) || !reader.Dword(&headerSize) || !reader.Id(&resource->type) ||
        !reader.Id(&resource->name))
        return false;
    reader.Align();
    if (!reader.Dword(&skipped) || !reader.Word(&ignored) || !reader.Word(&ignored) ||
        !reader.Dword(&skipped) || !reader.Dword(&skipped))
        return false;
    resource->data = reader.Skip(resource->size);
    reader.Align();
    return resource->data != nullptr;
}
} // namespace

ResourceId ResourceId::FromArgument(LPCWSTR argument)
{
    ResourceId id;
    if (IS_INTRESOURCE(argument))
        id.number = static_cast<WORD>(reinterpret_cast<ULONG_PTR>(argument));
    else if (argument[0] == L'#')
        id.number = static_cast<WORD>(std::wcstoul(argument + 1, nullptr, 10));
    else
        id.text = argument;
    return id;
}

bool ResourceId::Equals(const ResourceId& other) const
{
    return number == other.number && CompareNoCase(text, other.text) == 0;
}

void ResourceTable::Read(const unsigned char* data, std::size_t size)
{
    CReader reader(data, size);
    while (data && !reader.AtEnd())
    {
        Resource resource;
        if (!ReadResource(reader, &resource))
            return;
        // The empty first entry of type 0 marks the 32-bit format.
        if (resource.type.number != 0 || !resource.type.text.empty())
            m_resources.push_back(std::move(resource));
    }
}

const Resource* ResourceTable::Find(const ResourceId& type, const ResourceId& name, DWORD* error) const
{
    *error = Empty() ? ERROR_RESOURCE_DATA_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND;
    for (const Resource& resource : m_resources)
    {
        if (!resource.type.Equals(type))
            continue;
        *error = ERROR_RESOURCE_NAME_NOT_FOUND;
        if (resource.name.Equals(name))
            return &resource;
    }
    return nullptr;
}
} // namespace winport

using namespace winport;

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    return WithMemory<HRSRC>(nullptr, [&] {
        DWORD error = ERROR_INVALID_HANDLE;
        const Module* known = ModuleOf(module);
        const Resource* found = nullptr;
        if (known)
            found =
                known->resources.Find(ResourceId::FromArgument(type), ResourceId::FromArgument(name), &error);
        if (!found)
            SetLastError(error);
        return reinterpret_cast<HRSRC>(const_cast<Resource*>(found));
    });
}

HGLOBAL LoadResource(HMODULE, HRSRC resource)
{
    if (resource)
        return const_cast<unsigned char*>(reinterpret_cast<const Resource*>(resource)->data);
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

LPVOID LockResource(HGLOBAL data)
{
    return data;
}

DWORD SizeofResource(HMODULE, HRSRC resource)
{
    if (resource)
        return reinterpret_cast<const Resource*>(resource)->size;
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return 0;
}
