#include "XScriptActionFinder.h"

#include "XScriptSearch.h"

#include "HostConstants.h"

#include "UiState.h"

namespace qptools
{
namespace
{
constexpr LONG kEnabled = 1;

/// Actions attached to this type apply to every type whose name starts with kGeneralPrefix.
constexpr FixedText kGeneralType = L"orvoplantypewsc";
constexpr std::wstring_view kGeneralPrefix = L"orvoplantype_";

bool IsSearchedByTypeAlone(std::wstring_view typeName, IQP_BaseDataObject* planType)
{
    return !planType || typeName == kTypeScriptAction.View() || typeName == kTypeScriptCommand.View();
}

void NarrowByTypeOrGeneralType(XScriptSearch& search, BSTR typeName)
{
    if (!WholeText(typeName).starts_with(kGeneralPrefix))
    {
        search.NarrowByType(typeName);
        return;
    }
    search.SetCatenation(kCatenationOpen);
    search.EqualsText(kAttributeType, kGeneralType);
    search.SetCatenation(kCatenationOr);
    search.EqualsText(kAttributeType, typeName);
    search.SetCatenation(kCatenationClose);
    search.SetCatenation(kCatenationAnd);
}

void NarrowByAction(XScriptSearch& search, int actionType, int beforeAfter)
{
    if (actionType != 0)
    {
        search.EqualsNumber(kAttributeBeforeAfter, beforeAfter);
        search.SetCatenation(kCatenationAnd);
    }
    // No catenation between these two: the host joins criteria that stand side by side.
    search.EqualsNumber(kAttributeActionType, actionType);
    search.EqualsNumber(L"enabled", kEnabled);
}
} // namespace

HRESULT XScriptActionFinder::FindScriptActions(IQP_Query* pQuery, IQP_BaseDataObject* pPTS, BSTR bstrTypename,
                                               IQP_BaseDataObject* pPlanType, int iActionType,
                                               int iActionBeforeAfter, IEnumBaseDataObject** ppEnum)
{
    const CUiState uiState;
    m_ptrQuery = ComPtr<IQP_Query>(pQuery);
    if (!pQuery)
        return E_POINTER;
    if (!pPTS)
        return E_INVALIDARG;
    const std::wstring_view typeName = WholeText(bstrTypename);
    const bool byTypeAlone = IsSearchedByTypeAlone(typeName, pPlanType);
    if (byTypeAlone && typeName.empty())
        return E_INVALIDARG;

    const XScriptMasters masters(pPTS, pPlanType);
    XScriptSearch search(m_ptrQuery.get());
    const HRESULT begun = search.Begin(kTableScriptAction);
    if (begun < 0)
        return begun;
    if (byTypeAlone)
        NarrowByTypeOrGeneralType(search, bstrTypename);
    else
        search.NarrowByPlanType(pPlanType, bstrTypename, masters);
    search.NarrowByPlanTypeSet(pPTS, masters);
    NarrowByAction(search, iActionType, iActionBeforeAfter);
    // The status is ignored on purpose: a host that cannot sort still finds.
    m_ptrQuery->SetOrderAttribute(FixedText(L"sequence"), kOrderAscending);
    return search.Finish(ppEnum);
}
} // namespace qptools
