// A bag of named values over an array of tagINITVALUE, the parameter form that crosses the host's interfaces.
#pragma once

#include "XQPComBSTR.h"
#include "XQPComVariant.h"
#include "qptypes.h"

#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

/// Reads where the values stand and copies what it is asked for: an array of many records costs no more than
/// finding them. Names are compared exactly, up to their end mark; a null name is the empty name. Where an
/// array names a value twice, the first one counts.
class XInitValueWrapper
{
public:
    /// Wraps `count` records at `values`, which may be null. They stay the caller's, who must leave them as
    /// they are for as long as the bag lives. Throws ComException(E_OUTOFMEMORY).
    XInitValueWrapper(ULONG count, const tagINITVALUE* values);
    virtual ~XInitValueWrapper() = default;
    XInitValueWrapper(const XInitValueWrapper&) = delete;
    XInitValueWrapper& operator=(const XInitValueWrapper&) = delete;

    /// Copies the value named into `value`, an initialised variant whose old content is released. References
    /// to variants are followed, so that no copy depends on the variables of others. Returns false, with
    /// `value` untouched, if there is no such name, the value cannot be copied, or no memory for the copy.
    bool GetData(const wchar_t* name, VARIANT& value) const noexcept;

    /// Adds a copy of `value` under `name`, or holds it in place of the value of that name. A value that
    /// cannot be copied is held as an empty variant. Throws ComException(E_OUTOFMEMORY), with the bag as it
    /// was.
    void SetData(const wchar_t* name, const VARIANT& value);

    /// Gives copies of the contents as a new array in task memory, which the caller frees with FreeStruct; a
    /// value that cannot be copied is left out. An empty bag gives 0 and null. Returns false, with 0 and null
    /// and nothing left allocated, if there is no memory or `values` is null.
    bool GetStruct(ULONG& count, tagINITVALUE** values) const noexcept;

    /// Frees an array of GetStruct, or one that a callee returned: names, values and the array. A null array
    /// is none.
    static void FreeStruct(ULONG count, tagINITVALUE* values) noexcept;

private:
    /// What SetData copied.
    struct Own
    {
        XQPComBSTR name;
        XQPComVariant value;
    };

    struct Entry
    {
        std::wstring_view name;
        const VARIANT* value;
        Own* own; ///< null for a record of the array that nobody has replaced
    };

    /// The first entry of that name, or null.
    const Entry* Find(const wchar_t* name) const noexcept;

    /// Where in the table the name stands, or the free place where it belongs.
    std::size_t SlotOf(std::wstring_view name) const noexcept;

    /// Makes the table anew, with room for this many entries.
    void MakeTable(std::size_t entries);
    void Enter(std::size_t index) noexcept;

    void Add(const wchar_t* name, const VARIANT& value);
    void Replace(Entry& entry, const VARIANT& value);

    std::vector<Entry> m_entries;
    std::deque<Own> m_own; ///< where entries refer to it

    /// A hash table: the index of the first entry of each name, with at least as many free places. One piece
    /// of memory, where a map of the library would have one for each of ten thousand records.
    std::vector<std::uint32_t> m_table;
};
