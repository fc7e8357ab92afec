// What the sources of arrays share.
#pragma once

#include <oleauto.h>

namespace winport
{
/// Features that no public header names: the elements stand behind the descriptor, or are gone.
constexpr USHORT kVector = 0x2000;
constexpr USHORT kDataGone = 0x1000;

/// The number of all elements.
std::size_t CountElements(const SAFEARRAY* array) noexcept;

/// A locked look at an array: unlocks when it goes.
class CArrayLock
{
public:
    explicit CArrayLock(SAFEARRAY* array) noexcept : m_array(array), m_status(SafeArrayLock(array)) {}
    ~CArrayLock()
    {
        if (m_status >= 0)
            SafeArrayUnlock(m_array);
    }
    CArrayLock(const CArrayLock&) = delete;
    CArrayLock& operator=(const CArrayLock&) = delete;
    HRESULT Status() const noexcept { return m_status; }

private:
    SAFEARRAY* m_array;
    HRESULT m_status;
};

/// Whether elements are interface pointers.
inline bool HoldsObjects(const SAFEARRAY* array) noexcept
{
    return (array->fFeatures & (FADF_UNKNOWN | FADF_DISPATCH)) != 0;
}

/// Gives back what elements hold and makes them zero.
void ClearElements(SAFEARRAY* array) noexcept;

/// Copies one value over another, which is given back. `value` is the address of a value of the array's type.
/// E_OUTOFMEMORY or DISP_E_BADVARTYPE leave `place` as it was.
HRESULT AssignElement(const SAFEARRAY* array, void* place, const void* value) noexcept;
} // namespace winport
