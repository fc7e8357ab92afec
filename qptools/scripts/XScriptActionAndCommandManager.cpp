#include "XScriptActionAndCommandManager.h"

#include "ScriptCommandRows.h"
#include "XScriptActionFinder.h"
#include "XScriptCommandFinder.h"

#include "XDlgScriptAction.h"
#include "XDlgScriptCommand.h"

#include "HostConstants.h"

#include "InModule.h"

namespace qptools
{
namespace
{
/// Tells only by which button the dialog ended: a write that failed is not reported.
HRESULT Show(CDialog&& dialog)
{
    return dialog.DoModal() == IDOK ? S_OK : S_FALSE;
}
} // namespace

HRESULT XScriptActionAndCommandManager::ShowScriptActionOrCommandDlg(
    IQPFObjectManager* pObjectManager, IQPConfigFactory* pCF, IQP_Query* pQuery, IQP_BaseDataObject* pProject,
    IQP_BaseDataObject* pPTS, IQP_BaseDataObject* pScriptAction, BSTR bstrTypename)
{
    return InModule(*this, [&]() -> HRESULT {
        const std::wstring_view type(bstrTypename, SysStringLen(bstrTypename));
        if (type == kClassScriptAction.View())
            return Show(XDlgScriptAction(pCF, pQuery, pProject, pPTS, pScriptAction, nullptr));
        if (type == kClassScriptCommand.View())
            return Show(
                XDlgScriptCommand(pObjectManager, pCF, pQuery, pProject, pPTS, pScriptAction, nullptr));
        return E_INVALIDARG;
    });
}

// The two methods that search enter the UI state inside the search alone: the rest runs in the host's, on
// purpose. Hence no InModule.

HRESULT XScriptActionAndCommandManager::GetScriptCommands(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                          BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                          int iUserInterfaceType, BSTR bstrBrowserId,
                                                          VARIANT* pvCommandArray)
{
    const ComPtr self(this);
    return ComBoundary([&] {
        XScriptCommandFinder finder;
        ComPtr<IEnumBaseDataObject> commands;
        const HRESULT found = finder.FindScriptCommands(pQuery, pPTS, bstrTypename, pPlanType,
                                                        iUserInterfaceType, bstrBrowserId, commands.put());
        ScriptCommandRows rows;
        const HRESULT status = rows.AppendFrom(commands.get(), found);
        return rows.Deliver(pvCommandArray, status);
    });
}

HRESULT XScriptActionAndCommandManager::GetScriptsForAction(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                            BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                            int iActionType, int iActionBeforeAfter,
                                                            VARIANT* pvScriptAndActionArray)
{
    const ComPtr self(this);
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
