#include "XScriptCommandFinder.h"

#include "XScriptSearch.h"

#include "HostConstants.h"

#include "UiState.h"

namespace qptools
{
namespace
{
constexpr FixedText kAttributeUserInterfaceType = L"userinterfacetype";
constexpr LONG kBothUserInterfaces = 3;

void NarrowByOffer(XScriptSearch& search, int userInterfaceType)
{
    search.EqualsTrue(L"visible");
    search.SetCatenation(kCatenationAnd);
    search.SetCatenation(kCatenationOpen);
    search.EqualsNumber(kAttributeUserInterfaceType, userInterfaceType);
    search.SetCatenation(kCatenationOr);
    search.EqualsNumber(kAttributeUserInterfaceType, kBothUserInterfaces);
    search.SetCatenation(kCatenationClose);
}
} // namespace

HRESULT XScriptCommandFinder::FindScriptCommands(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                 BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                 int iUserInterfaceType, BSTR /*bstrBrowserId*/,
                                                 IEnumBaseDataObject** ppEnum)
{
    const CUiState uiState;
    m_ptrQuery = ComPtr<IQP_Query>(pQuery);
    if (!pQuery)
        return E_POINTER;
    if (!pPTS)
        return E_INVALIDARG;
    if (!pPlanType && WholeText(bstrTypename).empty())
        return E_INVALIDARG;

    const XScriptMasters masters(pPTS, pPlanType);
    XScriptSearch search(m_ptrQuery.get());
    const HRESULT begun = search.Begin(kTableScriptCommand);
    if (begun < 0)
        return begun;
    // The two fixed types are searched for plan types with a master only, on purpose.
    if (pPlanType)
        search.NarrowByPlanType(pPlanType, bstrTypename, masters, {kTypeDefaultImpl, kTypeCompBase});
    else
        search.NarrowByType(bstrTypename);
    search.NarrowByPlanTypeSet(pPTS, masters);
    NarrowByOffer(search, iUserInterfaceType);
    return search.Finish(ppEnum);
}
} // namespace qptools
