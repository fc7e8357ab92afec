// A bag of named values over an array of tagINITVALUE, the parameter form that crosses the host's interfaces.
#pragma once

#include "XQPComBSTR.h"
#include "XQPComVariant.h"
#include "qptypes.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Refers to the array's values and copies only what it is asked for. Names are compared exactly, up to their
/// first null character; a null name is the empty name. If an array has a name twice, the first one counts.
class XInitValueWrapper
{
public:
    /// Wraps `count` records at `values`, which may be null. They are borrowed and must stay unchanged while
    /// the bag lives. Throws ComException(E_OUTOFMEMORY).
    XInitValueWrapper(ULONG count, const tagINITVALUE* values);
    virtual ~XInitValueWrapper() = default;
    XInitValueWrapper(const XInitValueWrapper&) = delete;
    XInitValueWrapper& operator=(const XInitValueWrapper&) = delete;

    /// Copies the named value to `value`, an initialised variant whose old content is released. VT_BYREF is
    /// resolved, so that the copy does not depend on the caller's variables; a null address gives an empty
    /// value. Returns false, with `value` untouched, if the name is not found, the value cannot be copied, or
    /// on out of memory.
    bool GetData(const wchar_t* name, VARIANT& value) const noexcept;

    /// Adds a copy of `value` under `name`, or replaces the value of that name. A value that cannot be copied
    /// is held as an empty variant. Throws ComException(E_OUTOFMEMORY) and leaves the bag unchanged then.
    void SetData(const wchar_t* name, const VARIANT& value);

    /// Copies the contents, in the order of their adding, to a new array in task memory, which the caller
    /// frees with FreeStruct. A value that cannot be copied is left out. An empty bag gives 0 and null.
    /// Returns false, with 0 and null and nothing allocated, on out of memory or if `values` is null.
    bool GetStruct(ULONG& count, tagINITVALUE** values) const noexcept;

    /// Frees an array of GetStruct, or one that a callee returned: names, values and the array. Does nothing
    /// for a null array.
    static void FreeStruct(ULONG count, tagINITVALUE* values) noexcept;

private:
    /// A value that SetData copied; the name is empty if it replaces one of the array.
    struct Own
    {
        XQPComBSTR name;
        XQPComVariant value;
    };

    struct Entry
    {
        std::wstring_view name;
        const VARIANT* value;
        std::unique_ptr<Own> own; ///< null for a record of the array that has not been replaced
    };

    /// Indexes an entry by its name; the first entry of a name stays.
    void Add(Entry entry);
    const Entry* Find(const wchar_t* name) const noexcept;

    std::vector<Entry> m_entries;
    std::unordered_map<std::wstring_view, std::size_t> m_indexes; ///< of the first entry of each name
};
