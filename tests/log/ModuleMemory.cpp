#include "ModuleMemory.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{
int g_left = 0;
bool g_struck = false;

bool MayAllocate() noexcept
{
    if (--g_left != 0)
        return true;
    g_struck = true;
    return false;
}

void* FailingMalloc(std::size_t size)
{
    return MayAllocate() ? std::malloc(size) : nullptr;
}

void* FailingCalloc(std::size_t count, std::size_t size)
{
    return MayAllocate() ? std::calloc(count, size) : nullptr;
}

template <class T>
T* At(HMODULE module, std::size_t offset)
{
    return reinterpret_cast<T*>(reinterpret_cast<char*>(module) + offset);
}

/// The place where the module keeps the address of a function of the runtime.
void** Import(HMODULE module, const char* function)
{
    const auto* header = At<IMAGE_NT_HEADERS>(module, At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    const auto& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress); library->Name;
         ++library)
    {
        const auto* name = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* address = At<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; name->u1.AddressOfData; ++name, ++address)
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) &&
                std::strcmp(At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData)->Name, function) == 0)
                return reinterpret_cast<void**>(&address->u1.Function);
    }
    std::fprintf(stderr, "ModuleMemory: the module does not import %s\n", function);
    std::abort();
}

void Put(void** place, void* function)
{
    DWORD before = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
    *place = function;
    VirtualProtect(place, sizeof *place, before, &before);
}
} // namespace

ModuleMemory::ModuleMemory(HMODULE module, int n)
    : m_malloc(Import(module, "malloc")), m_calloc(Import(module, "calloc"))
{
    g_left = n;
    g_struck = false;
    Put(m_malloc, reinterpret_cast<void*>(&FailingMalloc));
    Put(m_calloc, reinterpret_cast<void*>(&FailingCalloc));
}

ModuleMemory::~ModuleMemory()
{
    Put(m_malloc, reinterpret_cast<void*>(&std::malloc));
    Put(m_calloc, reinterpret_cast<void*>(&std::calloc));
}

bool ModuleMemory::Struck() const noexcept
{
    return g_struck;
}
