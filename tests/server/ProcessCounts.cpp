#include "ProcessCounts.h"

#include <vector>

namespace
{
/// Allocates all slots and frees them again.
template <class Take, class GiveBack>
int FreeSlots(Take&& take, GiveBack&& giveBack)
{
    std::vector<DWORD> slots;
    slots.reserve(8192);
    for (DWORD slot = take(); slot != TLS_OUT_OF_INDEXES; slot = take())
        slots.push_back(slot);
    for (const DWORD slot : slots)
        giveBack(slot);
    return static_cast<int>(slots.size());
}

// Wine counts no handles, but numbers are used again from the lowest on, there as on Windows.
LONG_PTR NextHandle()
{
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(event);
    return reinterpret_cast<LONG_PTR>(event);
}

// Numbers of atoms are given out from the lowest free one on. So many free ones in a row are the end of a
// table: to ask for each number that there can be takes seconds under Wine.
constexpr int kEndOfAtoms = 250;

/// Counts the names in a table of atoms. `nameOf` returns 0 for a number without a name.
template <class NameOf>
int CountAtoms(NameOf&& nameOf)
{
    int count = 0;
    int unused = 0;
    wchar_t name[256];
    for (UINT atom = 0xC000; atom <= 0xFFFF && unused < kEndOfAtoms; ++atom)
    {
        const bool isUsed = nameOf(static_cast<ATOM>(atom), name, 256) > 0;
        count += isUsed;
        unused = isUsed ? 0 : unused + 1;
    }
    return count;
}

// Registered messages and window classes are names of clipboard formats.
int Atoms()
{
    return CountAtoms(&GetClipboardFormatNameW) + CountAtoms(&GlobalGetAtomNameW) + CountAtoms(&GetAtomNameW);
}

std::size_t BytesOf(HANDLE heap)
{
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry = {};
    HeapLock(heap);
    while (HeapWalk(heap, &entry))
    {
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            bytes += entry.cbData + entry.cbOverhead;
    }
    HeapUnlock(heap);
    return bytes;
}

std::size_t HeapBytes()
{
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i)
        bytes += BytesOf(heaps[i]);
    return bytes;
}
} // namespace

ProcessCounts ProcessCounts::Take()
{
    ProcessCounts counts = {};
    counts.tlsSlots = FreeSlots(&TlsAlloc, &TlsFree);
    counts.flsSlots = FreeSlots([] { return FlsAlloc(nullptr); }, &FlsFree);
    counts.nextHandle = NextHandle();
    counts.atoms = Atoms();
    counts.heapBytes = HeapBytes();
    return counts;
}

std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts)
{
    return out << "free TLS slots " << counts.tlsSlots << ", free FLS slots " << counts.flsSlots
               << ", next handle " << counts.nextHandle << ", atoms " << counts.atoms << ", heap bytes "
               << counts.heapBytes;
}
