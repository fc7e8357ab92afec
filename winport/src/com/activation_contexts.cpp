// Activation contexts: counted handles and a stack for each thread. Nothing is looked up in a context: no
// window class and no library exists in more than one version.
#include <windows.h>

#include <atomic>
#include <new>
#include <vector>

#include "base/text.h"

using namespace winport;

namespace
{
struct Context
{
    std::atomic<unsigned> references{1};
};

struct Activation
{
    Context* context;
    ULONG_PTR cookie;
};

// The activations of one thread, the current one last.
thread_local std::vector<Activation> t_stack;
thread_local ULONG_PTR t_lastCookie = 0;

Context* ContextOf(HANDLE handle)
{
    return static_cast<Context*>(handle);
}

// Returns false, with the last error set, if the manifest is not found.
bool ManifestIsThere(const ACTCTXW& parameters)
{
    constexpr DWORD kWanted = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    if ((parameters.dwFlags & kWanted) == kWanted)
        return FindResourceW(parameters.hModule, parameters.lpResourceName, RT_MANIFEST) != nullptr;
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
}

// The process's own context (null) is not counted.
void AddReference(HANDLE handle)
{
    if (handle && handle != INVALID_HANDLE_VALUE)
        ++ContextOf(handle)->references;
}

BOOL Fail(DWORD error)
{
    SetLastError(error);
    return FALSE;
}
} // namespace

HANDLE CreateActCtxW(const ACTCTXW* parameters)
{
    if (!parameters || parameters->cbSize != sizeof(ACTCTXW))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    return WithMemory<HANDLE>(INVALID_HANDLE_VALUE, [&]() -> HANDLE {
        return ManifestIsThere(*parameters) ? new Context : INVALID_HANDLE_VALUE;
    });
}

BOOL ActivateActCtx(HANDLE handle, ULONG_PTR* cookie)
{
    if (!cookie || handle == INVALID_HANDLE_VALUE)
        return Fail(ERROR_INVALID_PARAMETER);
    return WithMemory(FALSE, [&] {
        // Null is the process's own context, which is activated like any other.
        t_stack.push_back({ContextOf(handle), t_lastCookie + 1});
        AddReference(handle);
        *cookie = ++t_lastCookie;
        return TRUE;
    });
}

BOOL DeactivateActCtx(DWORD flags, ULONG_PTR cookie)
{
    std::size_t index = t_stack.size();
    while (index > 0 && t_stack[index - 1].cookie != cookie)
        --index;
    if (index == 0)
        return Fail(ERROR_SXS_INVALID_DEACTIVATION);
    if (index != t_stack.size() && (flags & DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION) == 0)
        return Fail(ERROR_SXS_EARLY_DEACTIVATION);
    while (t_stack.size() >= index)
    {
        ReleaseActCtx(t_stack.back().context);
        t_stack.pop_back();
    }
    return TRUE;
}

BOOL GetCurrentActCtx(HANDLE* handle)
{
    if (!handle)
        return Fail(ERROR_INVALID_PARAMETER);
    *handle = t_stack.empty() ? nullptr : t_stack.back().context;
    AddReference(*handle);
    return TRUE;
}

void ReleaseActCtx(HANDLE handle)
{
    if (handle && handle != INVALID_HANDLE_VALUE && --ContextOf(handle)->references == 0)
        delete ContextOf(handle);
}
