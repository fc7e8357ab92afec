// Shared by the sources of arrays.
#pragma once

#include <oleauto.h>

namespace winport
{
/// A feature that no public header names: the elements stand behind the descriptor, in one block with it.
constexpr USHORT kVector = 0x2000;

/// The number of all elements.
std::size_t CountElements(const SAFEARRAY* array) noexcept;

/// Locks an array; the destructor unlocks it.
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

/// Frees the content of all elements and sets them to zero.
void ClearElements(SAFEARRAY* array) noexcept;

/// The address of an element. DISP_E_BADINDEX if an index is outside of its bounds.
HRESULT PlaceOf(SAFEARRAY* array, const LONG* indices, void** element) noexcept;

/// Makes a copy of an array and of what its elements hold. A null array is copied as null.
HRESULT CopyArray(SAFEARRAY* source, SAFEARRAY** target) noexcept;

/// Replaces the element at `place` by a copy of the value at the address `value`. On E_OUTOFMEMORY and
/// DISP_E_BADVARTYPE the element is unchanged.
HRESULT AssignElement(const SAFEARRAY* array, void* place, const void* value) noexcept;
} // namespace winport
