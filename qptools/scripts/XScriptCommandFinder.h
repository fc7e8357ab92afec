// Which visible script commands of a plan type set are offered for a type name and a plan type.
#pragma once

#include "ComPtr.h"

#include "qpobjects.h"

namespace qptools
{
/// Created on the stack for one search. The search runs in the module's UI state.
class XScriptCommandFinder
{
public:
    XScriptCommandFinder() = default;
    XScriptCommandFinder(const XScriptCommandFinder&) = delete;
    XScriptCommandFinder& operator=(const XScriptCommandFinder&) = delete;
    virtual ~XScriptCommandFinder() = default;

    /// Searches `pQuery`, to which a reference is kept, for the script commands of the set `pPTS` that are
    /// offered in the user interface `iUserInterfaceType` (1 context menu, 2 properties sheet) or in both.
    /// They come in the host's order. The search is by type name if `pPlanType` is null, else by plan type
    /// and type name. `bstrBrowserId` is never read.
    ///
    /// Returns E_POINTER without a query; E_INVALIDARG without a plan type set, or for a search by an empty
    /// type name; a negative status of ResetSearch or SetSearchTable; else the status of GetSearchResult.
    /// `*ppEnum` gets a reference to the host's enumerator if there is one and the status is S_OK; otherwise
    /// it is untouched. Throws ComException(E_OUTOFMEMORY).
    HRESULT FindScriptCommands(IQP_Query* pQuery, IQP_BaseDataObject* pPTS, BSTR bstrTypename,
                               IQP_BaseDataObject* pPlanType, int iUserInterfaceType, BSTR bstrBrowserId,
                               IEnumBaseDataObject** ppEnum);

private:
    ComPtr<IQP_Query> m_ptrQuery;
};
} // namespace qptools
