// The steps that the searches for script actions and for script commands have in common.
#pragma once

#include "XScriptMasters.h"

#include "FixedText.h"

#include "qpobjects.h"

#include <initializer_list>
#include <string_view>

namespace qptools
{
/// The type name that a script action or a script command is attached to.
inline constexpr FixedText kAttributeType = L"type";

/// Composes one search on the host's query. The caller keeps the query alive.
///
/// A catenation or a criterion that the host refuses does not stop a search: SetCatenation and SetCriterion
/// return the status, and the searches ignore it on purpose.
class XScriptSearch
{
public:
    explicit XScriptSearch(IQP_Query* query) noexcept : m_query(query) {}

    /// Passes `catenation` to the host. Returns E_POINTER without a query, else the host's status.
    HRESULT SetCatenation(LONG catenation);

    /// Adds the criterion `attribute` `comparison` `value`, joined to nothing. The host gets a copy of the
    /// value, with references resolved. Returns E_POINTER without a query; the status of the copy if the
    /// value cannot be copied, and then the host is not called; else the host's status.
    HRESULT SetCriterion(const FixedText& attribute, LONG comparison, const VARIANT& value);

    // Criteria of equality.

    void Equals(const FixedText& attribute, const VARIANT& value);
    /// With the text as the caller gave it: a null one is searched for as a null BSTR.
    void EqualsText(const FixedText& attribute, BSTR text);
    void EqualsObject(const FixedText& attribute, IUnknown* object);
    void EqualsNumber(const FixedText& attribute, LONG number);
    void EqualsTrue(const FixedText& attribute);

    /// Resets the query and sets the table. Returns the first negative status, else that of the last call.
    HRESULT Begin(const FixedText& table);

    /// `type` = `typeName` AND.
    void NarrowByType(BSTR typeName);

    /// (`orvoplantype` = the plan type OR `type` = `typeName`) AND. If the plan type has a master, then also
    /// `orvoplantype` = the master, and `type` = each of `typesWithMaster`, which are ignored without one.
    void NarrowByPlanType(IQP_BaseDataObject* planType, BSTR typeName, const XScriptMasters& masters,
                          std::initializer_list<FixedText> typesWithMaster = {});

    /// (`orvoplantypeset` = the set OR `orvoplantypeset` = its master) AND; without a master the set alone.
    void NarrowByPlanTypeSet(IQP_BaseDataObject* planTypeSet, const XScriptMasters& masters);

    /// Runs the search. If the host answers S_OK and gives an enumerator, `*found` gets a reference to it;
    /// otherwise, or with a null `found`, nothing is written. Returns the host's status.
    HRESULT Finish(IEnumBaseDataObject** found);

private:
    IQP_Query* m_query;
};

/// The whole text of a BSTR, null characters included; empty for null.
inline std::wstring_view WholeText(BSTR text) noexcept
{
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}
} // namespace qptools
