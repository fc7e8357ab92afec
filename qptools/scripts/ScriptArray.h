// The two-dimensional array of variants that the script service answers with.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qptools
{
/// Rows by columns, both from 0. Owns the array until it is handed over.
class ScriptArray
{
public:
    /// Creates the array, empty in every cell. Look at IsCreated afterwards.
    ScriptArray(ULONG rows, ULONG columns) noexcept;
    ~ScriptArray();
    ScriptArray(const ScriptArray&) = delete;
    ScriptArray& operator=(const ScriptArray&) = delete;

    /// False if there was no memory for the array.
    bool IsCreated() const noexcept { return m_array != nullptr; }

    // Put a copy of a text or a reference to an object into a cell. Return the status of SafeArrayPutElement.

    HRESULT PutText(LONG row, LONG column, BSTR text) noexcept;
    HRESULT PutObject(LONG row, LONG column, IUnknown* object) noexcept;

    /// Clears the variant at `target`, which must be a valid one, and gives it the array. A null `target`
    /// leaves the array to be destroyed. An old value that cannot be cleared, for it is an array that
    /// somebody has locked, remains theirs to destroy; the variant gets the new one all the same.
    void MoveTo(VARIANT* target) noexcept;

private:
    HRESULT Put(LONG row, LONG column, VARIANT& value) noexcept;

    SAFEARRAY* m_array;
};
} // namespace qptools
