// Entering and leaving the component runtime.
#include "apartment.h"

#include <ole2.h>

#include <atomic>

namespace winport
{
namespace
{
struct ThreadState
{
    DWORD model = COINIT_MULTITHREADED;
    unsigned count = 0;
};

thread_local ThreadState t_state;
std::atomic<unsigned> g_threads{0};
std::atomic<unsigned> g_multithreaded{0};

constexpr DWORD kFlags = COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE | COINIT_SPEED_OVER_MEMORY;
} // namespace

bool InApartment()
{
    return t_state.count > 0 || g_multithreaded > 0;
}
} // namespace winport

using namespace winport;

HRESULT CoInitialize(LPVOID reserved)
{
    return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
}

HRESULT CoInitializeEx(LPVOID, DWORD flags)
{
    if ((flags & ~kFlags) != 0)
        return E_INVALIDARG;
    const DWORD model = flags & COINIT_APARTMENTTHREADED;
    if (t_state.count > 0 && t_state.model != model)
        return RPC_E_CHANGED_MODE;
    if (t_state.count++ > 0)
        return S_FALSE;
    t_state.model = model;
    ++g_threads;
    g_multithreaded += model == COINIT_MULTITHREADED ? 1 : 0;
    return S_OK;
}

void CoUninitialize()
{
    if (t_state.count == 0)
        return;
    if (t_state.count == 1)
    {
        // The thread leaves last, because the destructors of objects may still call the runtime.
        if (g_threads == 1)
            ShutDownClasses();
        --g_threads;
        g_multithreaded -= t_state.model == COINIT_MULTITHREADED ? 1 : 0;
    }
    --t_state.count;
}
