#include "XScriptActionAndCommandManager.h"

#include "XScriptActionFinder.h"
#include "XScriptCommandFinder.h"
#include "XScriptCommandReader.h"
#include "XScriptCommandTable.h"

#include "ComBoundary.h"
#include "UiState.h"

namespace qptools
{
HRESULT XScriptActionAndCommandManager::ShowScriptActionOrCommandDlg(
    IQPFObjectManager* /*pObjectManager*/, IQPConfigFactory* /*pCF*/, IQP_Query* /*pQuery*/,
    IQP_BaseDataObject* /*pProject*/, IQP_BaseDataObject* /*pPTS*/, IQP_BaseDataObject* /*pScriptAction*/,
    BSTR /*bstrTypename*/)
{
    return ComBoundary([] {
        const CUiState uiState;
        return E_NOTIMPL;
    });
}

HRESULT XScriptActionAndCommandManager::GetScriptCommands(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                          BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                          int iUserInterfaceType, BSTR bstrBrowserId,
                                                          VARIANT* pvCommandArray)
{
    // The UI state is the search's alone: what follows it runs in the host's.
    return ComBoundary([&] {
        XScriptCommandFinder finder;
        ComPtr<IEnumBaseDataObject> commands;
        const HRESULT found = finder.FindScriptCommands(pQuery, pPTS, bstrTypename, pPlanType,
                                                        iUserInterfaceType, bstrBrowserId, commands.put());
        XScriptCommandTable table;
        XScriptCommandReader reader(table, found);
        const HRESULT status = reader.ReadAll(commands.get());
        return table.Deliver(pvCommandArray, status);
    });
}

HRESULT XScriptActionAndCommandManager::GetScriptsForAction(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                            BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                            int iActionType, int iActionBeforeAfter,
                                                            VARIANT* pvScriptAndActionArray)
{
    // The UI state is the search's alone: what follows it runs in the host's.
    return ComBoundary([&] {
        XScriptActionFinder finder;
        ComPtr<IEnumBaseDataObject> actions;
        const HRESULT found = finder.FindScriptActions(pQuery, pPTS, bstrTypename, pPlanType, iActionType,
                                                       iActionBeforeAfter, actions.put());
        const HRESULT status = m_scriptActionPairs.AppendFrom(actions.get(), found);
        return m_scriptActionPairs.Deliver(pvScriptAndActionArray, status);
    });
}
} // namespace qptools
