// Which enabled script actions of a plan type set apply to a type name and a plan type.
#pragma once

#include "ComPtr.h"

#include "qpobjects.h"

namespace qptools
{
/// Created on the stack for one search. The search runs in the module's UI state.
class XScriptActionFinder
{
public:
    XScriptActionFinder() = default;
    XScriptActionFinder(const XScriptActionFinder&) = delete;
    XScriptActionFinder& operator=(const XScriptActionFinder&) = delete;
    virtual ~XScriptActionFinder() = default;

    /// Searches `pQuery`, to which a reference is kept, for the script actions of the set `pPTS`, in
    /// ascending order of their sequence.
    ///
    /// The search is by type name if `pPlanType` is null or `bstrTypename` is "scriptaction" or
    /// "scriptcommand", else by plan type and type name. A null `bstrTypename` counts as empty.
    /// `iActionBeforeAfter` is ignored if `iActionType` is 0.
    ///
    /// Returns E_POINTER without a query; E_INVALIDARG without a plan type set, or for a search by an empty
    /// type name; a negative status of ResetSearch or SetSearchTable; else the status of GetSearchResult.
    /// `*ppEnum` gets a reference to the host's enumerator if there is one and the status is S_OK; otherwise
    /// it is untouched. Throws ComException(E_OUTOFMEMORY).
    HRESULT FindScriptActions(IQP_Query* pQuery, IQP_BaseDataObject* pPTS, BSTR bstrTypename,
                              IQP_BaseDataObject* pPlanType, int iActionType, int iActionBeforeAfter,
                              IEnumBaseDataObject** ppEnum);

private:
    ComPtr<IQP_Query> m_ptrQuery;
};
} // namespace qptools
