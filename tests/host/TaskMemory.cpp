#include "TaskMemory.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <vector>

#ifndef _WIN32
#include <winport_alloc.h>
#endif

namespace
{
int g_failFrom = 0;
int g_count = 0;

bool Granted() noexcept
{
    ++g_count;
    return g_failFrom == 0 || g_count < g_failFrom;
}

#ifdef _WIN32
std::vector<SIZE_T> g_sizes;
int g_live = 0;

/// Called by the allocator before each allocation.
class Spy final : public IMallocSpy
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        *result = iid == IID_IUnknown || iid == IID_IMallocSpy ? this : nullptr;
        return *result ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    /// A size of 0 makes the allocation fail.
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override
    {
        const bool granted = Granted();
        if (granted)
            g_sizes.push_back(size);
        return granted ? size : 0;
    }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override
    {
        g_live += block ? 1 : 0;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL spied) override
    {
        g_live -= block && spied ? 1 : 0;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** moved, BOOL) override
    {
        *moved = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}
};
Spy g_spy;

void Watch()
{
    g_sizes.clear();
    g_live = 0;
    EXPECT_EQ(CoRegisterMallocSpy(&g_spy), S_OK);
}

void Unwatch()
{
    EXPECT_EQ(CoRevokeMallocSpy(), S_OK);
}
#else
void Watch()
{
    WinportSetAllocHook(&Granted);
}

void Unwatch()
{
    WinportSetAllocHook(nullptr);
}
#endif
} // namespace

TaskMemory::TaskMemory(int failFrom)
{
    g_failFrom = failFrom;
    g_count = 0;
    Watch();
}

TaskMemory::~TaskMemory()
{
    Unwatch();
}

void TaskMemory::ExpectBlocks(int count, [[maybe_unused]] std::size_t size) const
{
    EXPECT_EQ(g_count, count);
#ifdef _WIN32
    for (const SIZE_T one : g_sizes)
        EXPECT_EQ(one, size);
    EXPECT_EQ(g_live, 0);
#endif
}
