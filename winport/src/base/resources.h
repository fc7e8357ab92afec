// Resources in the RES format: a sequence of headers, each followed by its data.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace winport
{
/// A resource's type or name: a number or a text.
struct ResourceId
{
    WORD number = 0;
    std::wstring text; ///< empty: the number counts

    /// From an argument of the API: a number, a text, or a text of the form "#number".
    static ResourceId FromArgument(LPCWSTR argument);
    bool Equals(const ResourceId& other) const;
};

struct Resource
{
    ResourceId type;
    ResourceId name;
    const unsigned char* data = nullptr;
    DWORD size = 0;
};

/// The resources of one module, over bytes that live as long as the process.
class ResourceTable
{
public:
    /// Reads the headers up to the first damaged one.
    void Read(const unsigned char* data, std::size_t size);

    bool Empty() const { return m_resources.empty(); }

    /// The resource, the first one if it exists in several languages; null with `error` set if there is none.
    const Resource* Find(const ResourceId& type, const ResourceId& name, DWORD* error) const;

private:
    std::vector<Resource> m_resources;
};
} // namespace winport
