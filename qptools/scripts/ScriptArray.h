// The two-dimensional array of variants that the script service returns.
#pragma once

#include "SafeArray.h"

#include <windows.h>

#include <oleauto.h>

namespace qptools
{
/// Rows by columns, both from 0. Owns the array until MoveTo.
class ScriptArray
{
public:
    /// Creates the array with empty cells. Check IsCreated afterwards.
    ScriptArray(ULONG rows, ULONG columns) noexcept;

    /// Returns false if the array could not be created.
    bool IsCreated() const noexcept { return static_cast<bool>(m_array); }

    // Put a copy of a text, of which null is empty, or a reference to an object into a cell. Return the
    // status of SafeArrayPutElement.

    HRESULT PutText(LONG row, LONG column, BSTR text) noexcept;
    HRESULT PutObject(LONG row, LONG column, IUnknown* object) noexcept;

    /// Clears the variant at `target`, which must be valid, and moves the array into it. With a null `target`
    /// the array is destroyed with this object. An old value that cannot be cleared, because it is a locked
    /// array, is left to the owner of the lock.
    void MoveTo(VARIANT* target) noexcept;

private:
    HRESULT Put(LONG row, LONG column, VARIANT& value) noexcept;

    SafeArray m_array;
};
} // namespace qptools
