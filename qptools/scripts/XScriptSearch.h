// The steps that the searches for script actions and for script commands have in common.
#pragma once

#include "XScriptMasters.h"

#include "qpobjects.h"

#include <initializer_list>
#include <string_view>

namespace qptools
{
/// The type name that a script action or a script command is attached to.
inline constexpr wchar_t kAttributeType[] = L"type";

/// Composes one search on the host's query. The caller keeps the query alive.
///
/// A catenation or a criterion that the host refuses does not stop a search: the statuses of SetCatenation
/// and of SetCriterion are there for who wants them, and the searches ignore them. No memory for a text of
/// our own throws ComException(E_OUTOFMEMORY).
class XScriptSearch
{
public:
    explicit XScriptSearch(IQP_Query* query) noexcept : m_ptrQuery(query) {}

    /// Passes `catenation` on. Returns E_POINTER without a query, else the host's status.
    HRESULT SetCatenation(LONG catenation);

    /// Adds the criterion `attribute` `comparison` `value`, joined to nothing. The host gets copies of the
    /// name and of the value, references resolved. Returns E_POINTER without a query; the status of the copy
    /// if the value cannot be copied, and then the host is not called; else the host's status.
    HRESULT SetCriterion(const wchar_t* attribute, LONG comparison, const VARIANT& value);

    // Criteria of equality.

    void Equals(const wchar_t* attribute, const VARIANT& value);
    void EqualsText(const wchar_t* attribute, std::wstring_view text);
    /// With the text as the caller gave it: a null one is searched for as a null BSTR.
    void EqualsBstr(const wchar_t* attribute, BSTR text);
    void EqualsObject(const wchar_t* attribute, IUnknown* object);
    void EqualsNumber(const wchar_t* attribute, LONG number);
    void EqualsTrue(const wchar_t* attribute);

    /// Forgets the query's last search and sets the table. Returns the first negative status, else that of
    /// the last call.
    HRESULT Begin(const wchar_t* table);

    /// `type` = `typeName` AND.
    void NarrowByType(BSTR typeName);

    /// (`orvoplantype` = the plan type OR `type` = `typeName`) AND. If the plan type has a master, then also
    /// `orvoplantype` = the master, and `type` = each of `typesWithMaster`, which play no part without one.
    void NarrowByPlanType(IQP_BaseDataObject* planType, BSTR typeName, const XScriptMasters& masters,
                          std::initializer_list<std::wstring_view> typesWithMaster = {});

    /// (`orvoplantypeset` = the set OR `orvoplantypeset` = its master) AND; without a master the set alone.
    void NarrowByPlanTypeSet(IQP_BaseDataObject* planTypeSet, const XScriptMasters& masters);

    /// Runs the search. If the host answers S_OK and gives an enumerator, `*found` gets a reference to it;
    /// otherwise, or with a null `found`, nothing is written. Returns the host's status.
    HRESULT Finish(IEnumBaseDataObject** found);

private:
    IQP_Query* m_ptrQuery;
};

/// The text of `text`, empty for null. Null characters count as any other.
inline std::wstring_view TextOf(BSTR text) noexcept
{
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}
} // namespace qptools
