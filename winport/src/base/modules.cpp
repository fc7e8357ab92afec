#include "modules.h"

#include "text.h"

#include <dlfcn.h>
#include <unistd.h>

#include <climits>
#include <cstring>
#include <deque>
#include <mutex>

namespace winport
{
namespace
{
// Held while an entry point runs, like the loader lock.
std::recursive_mutex& LoaderLock()
{
    static std::recursive_mutex lock;
    return lock;
}

std::wstring ProgramPath()
{
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
    return length > 0 ? Wide(std::string_view(path, static_cast<std::size_t>(length)))
                      : std::wstring(L"program");
}

// The program first, then the linked-in modules. A deque, because handles are addresses.
std::deque<Module>& Modules()
{
    static std::deque<Module>& modules = *[] {
        auto* list = new std::deque<Module>(1);
        list->front().path = ProgramPath();
        list->front().count = 1;
        list->front().pinned = true;
        return list;
    }();
    return modules;
}

bool CallEntryPoint(Module& module, DWORD reason)
{
    if (!module.descriptor || !module.descriptor->dllMain)
        return true;
    return module.descriptor->dllMain(reinterpret_cast<HINSTANCE>(&module), reason, nullptr) != FALSE;
}

Module* Load(std::wstring_view name)
{
    Module* module = FindModule(name);
    if (!module)
    {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    if (++module->count == 1 && !CallEntryPoint(*module, DLL_PROCESS_ATTACH))
    {
        CallEntryPoint(*module, DLL_PROCESS_DETACH);
        module->count = 0;
        SetLastError(ERROR_DLL_INIT_FAILED);
        return nullptr;
    }
    return module;
}

// The module whose entry point or export is at `address`; the program for any other address.
Module* ModuleAt(const void* address)
{
    for (Module& module : Modules())
    {
        const WinportModule* descriptor = module.descriptor;
        if (!descriptor || module.count == 0)
            continue;
        if (reinterpret_cast<const void*>(descriptor->dllMain) == address || &module == address)
            return &module;
        for (std::size_t i = 0; i < descriptor->exportCount; ++i)
            if (reinterpret_cast<const void*>(descriptor->exports[i].address) == address)
                return &module;
    }
    Dl_info where;
    Dl_info self;
    const bool known =
        dladdr(address, &where) != 0 && dladdr(reinterpret_cast<const void*>(&LoadLibraryW), &self) != 0;
    return known && where.dli_fbase == self.dli_fbase ? &Modules().front() : nullptr;
}

Module* LoadedModule(HMODULE handle)
{
    Module* module = ModuleOf(handle);
    return module && module->count > 0 ? module : nullptr;
}
} // namespace

std::wstring_view Module::FileName() const
{
    const std::wstring_view whole = path;
    return whole.substr(whole.find_last_of(L'/') + 1);
}

Module* FindModule(std::wstring_view name)
{
    const std::lock_guard lock(LoaderLock());
    const std::size_t slash = name.find_last_of(L"\\/");
    std::wstring base(slash == std::wstring_view::npos ? name : name.substr(slash + 1));
    if (base.find(L'.') == std::wstring::npos)
        base += L".dll";
    for (Module& module : Modules())
        if (CompareNoCase(module.FileName(), base) == 0)
            return &module;
    const Module& program = Modules().front();
    return CompareNoCase(program.FileName(), name) == 0 ? &Modules().front() : nullptr;
}

Module* ModuleOf(HMODULE handle)
{
    const std::lock_guard lock(LoaderLock());
    if (!handle)
        return &Modules().front();
    for (Module& module : Modules())
        if (reinterpret_cast<HMODULE>(&module) == handle)
            return &module;
    return nullptr;
}

const std::wstring& ProgramDirectory()
{
    static const std::wstring& directory = *[] {
        const std::wstring path = Modules().front().path;
        return new std::wstring(path.substr(0, path.find_last_of(L'/')));
    }();
    return directory;
}
} // namespace winport

using namespace winport;

int WinportRegisterModule(const WinportModule* descriptor)
{
    const std::lock_guard lock(LoaderLock());
    Module& module = Modules().emplace_back();
    module.descriptor = descriptor;
    module.path = ProgramDirectory() + L"/" + Wide(descriptor->fileName);
    module.resources.Read(descriptor->resources, descriptor->resourceSize);
    return 0;
}

HMODULE LoadLibraryW(LPCWSTR name)
{
    if (!name)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return WithMemory<HMODULE>(nullptr, [&] {
        const std::lock_guard lock(LoaderLock());
        return reinterpret_cast<HMODULE>(Load(name));
    });
}

BOOL FreeLibrary(HMODULE handle)
{
    const std::lock_guard lock(LoaderLock());
    Module* module = handle ? LoadedModule(handle) : nullptr;
    if (!module)
    {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (module->pinned)
        return TRUE;
    // Decremented after the call: the module counts as loaded while its entry point runs.
    if (module->count == 1)
        CallEntryPoint(*module, DLL_PROCESS_DETACH);
    --module->count;
    return TRUE;
}

HMODULE GetModuleHandleW(LPCWSTR name)
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, name, &module);
    return module;
}

BOOL GetModuleHandleExW(DWORD flags, LPCWSTR nameOrAddress, HMODULE* result)
{
    if (!result)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *result = nullptr;
    return WithMemory(FALSE, [&] {
        const std::lock_guard lock(LoaderLock());
        Module* module = !nameOrAddress                                          ? &Modules().front()
                         : (flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) != 0 ? ModuleAt(nameOrAddress)
                                                                                 : FindModule(nameOrAddress);
        if (!module || module->count == 0)
        {
            SetLastError(ERROR_MOD_NOT_FOUND);
            return FALSE;
        }
        if ((flags & GET_MODULE_HANDLE_EX_FLAG_PIN) != 0)
            module->pinned = true;
        else if ((flags & GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) == 0 && !module->pinned)
            ++module->count;
        *result = reinterpret_cast<HMODULE>(module);
        return TRUE;
    });
}

DWORD GetModuleFileNameW(HMODULE handle, LPWSTR path, DWORD size)
{
    const std::lock_guard lock(LoaderLock());
    const Module* module = LoadedModule(handle);
    if (!module || !path || size == 0)
    {
        SetLastError(module ? ERROR_INSUFFICIENT_BUFFER : ERROR_MOD_NOT_FOUND);
        return 0;
    }
    if (CopyOut(module->path, path, size) == module->path.size())
    {
        SetLastError(ERROR_SUCCESS);
        return static_cast<DWORD>(module->path.size());
    }
    module->path.copy(path, size - 1);
    path[size - 1] = L'\0';
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

FARPROC GetProcAddress(HMODULE handle, LPCSTR name)
{
    const std::lock_guard lock(LoaderLock());
    const Module* module = LoadedModule(handle);
    if (!module)
    {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    const std::size_t count =
        module->descriptor && !IS_INTRESOURCE(name) ? module->descriptor->exportCount : 0;
    for (std::size_t i = 0; i < count; ++i)
        if (std::strcmp(module->descriptor->exports[i].name, name) == 0)
            return module->descriptor->exports[i].address;
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}
