// A bag of named values over an array of tagINITVALUE, the parameter form that crosses the host's interfaces.
#pragma once

#include "WideTextHash.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"
#include "qptypes.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

/// Holds copies: the array it is made from stays the caller's, who may free or change it at any time. Names
/// are compared exactly; a null name is the empty name. Where an array names a value twice, the first one
/// counts.
class XInitValueWrapper
{
public:
    /// Copies `count` records from `values`, which may be null. Names are read up to their end mark.
    /// References to variants are followed, so that no record depends on the caller's variables. A record
    /// whose value cannot be copied is left out. Throws ComException(E_OUTOFMEMORY).
    XInitValueWrapper(ULONG count, const tagINITVALUE* values);
    virtual ~XInitValueWrapper() = default;
    XInitValueWrapper(const XInitValueWrapper&) = default;
    XInitValueWrapper(XInitValueWrapper&&) = default;
    XInitValueWrapper& operator=(const XInitValueWrapper&) = default;
    XInitValueWrapper& operator=(XInitValueWrapper&&) = default;

    /// Copies the value named into `value`, an initialised variant whose old content is released. Returns
    /// false, with `value` untouched, if there is no such name or no memory for the copy.
    bool GetData(const wchar_t* name, VARIANT& value) const noexcept;

    /// Adds a copy of `value` under `name`, or replaces the value of that name. A value that cannot be copied
    /// is held as an empty variant. Throws ComException(E_OUTOFMEMORY), with the bag as it was.
    void SetData(const wchar_t* name, const VARIANT& value);

    /// Gives the contents as a new array in task memory, which the caller frees with FreeStruct. An empty bag
    /// gives 0 and null. Returns false, with 0 and null and nothing left allocated, if there is no memory or
    /// `values` is null.
    bool GetStruct(ULONG& count, tagINITVALUE** values) const noexcept;

    /// Frees an array of GetStruct, or one that a callee returned: names, values and the array. A null array
    /// is none.
    static void FreeStruct(ULONG count, tagINITVALUE* values) noexcept;

private:
    struct Entry
    {
        XQPComBSTR name;
        XQPComVariant value;
    };

    /// The index of the first entry of that name, or the number of entries.
    std::size_t IndexOf(const wchar_t* name) const noexcept;

    /// Adds the entry whole or, thrown out by std::bad_alloc, not at all.
    void Append(Entry entry);

    std::vector<Entry> m_entries;
    std::unordered_map<std::wstring, std::size_t, WideTextHash, std::equal_to<>>
        m_places; ///< of the first entry of each name
};
