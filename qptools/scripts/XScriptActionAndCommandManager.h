// The component that the host calls for everything about scripted actions and commands.
#pragma once

#include "XScriptActionPairs.h"

#include "ComObject.h"
#include "DispatchTail.h"

#include "qptools.h"

namespace qptools
{
/// Answers with arrays that a caller can walk without knowing the data model: the commands to offer for a
/// context and the scripts to run for an action. It runs neither.
///
/// The status of both answers tells only how the last step went: a walk that the host broke off is not seen
/// in it once a row was filled. Callers read the rows.
class XScriptActionAndCommandManager final
    : public ComObject<XScriptActionAndCommandManager, DispatchTail<IScriptActionAndCommandManager>>
{
public:
    /// Will open the property dialog of a script action or command. Returns E_NOTIMPL.
    HRESULT STDMETHODCALLTYPE ShowScriptActionOrCommandDlg(IQPFObjectManager* pObjectManager,
                                                           IQPConfigFactory* pCF, IQP_Query* pQuery,
                                                           IQP_BaseDataObject* pProject,
                                                           IQP_BaseDataObject* pPTS,
                                                           IQP_BaseDataObject* pScriptAction,
                                                           BSTR bstrTypename) override;

    /// Finds the script commands that the user may run, as XScriptCommandFinder does. `*pvCommandArray`, a
    /// valid variant, is cleared and gets an array of rows by 3 columns: display name, unique in the array
    /// and in the order of names (VT_BSTR); script object (VT_UNKNOWN) or macro name (VT_BSTR); "0" once for
    /// all objects or "1" for each object (VT_BSTR). It may be null, and then the search and the walk run all
    /// the same.
    ///
    /// Returns the status of the last cell put; without rows, that of the last host call that counts (see
    /// XScriptCommandReader), for example E_NOINTERFACE if the only command found has no rights to ask for,
    /// or the finder's; without memory for the array, that same status with the variant as it was;
    /// E_OUTOFMEMORY if memory ran out elsewhere, with the variant as it was.
    HRESULT STDMETHODCALLTYPE GetScriptCommands(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                int iUserInterfaceType, BSTR bstrBrowserId,
                                                VARIANT* pvCommandArray) override;

    /// Finds the script actions of an action type, as XScriptActionFinder does, and adds them to those that
    /// this object has found before; one object per call gives one result at a time.
    /// `*pvScriptAndActionArray`, a valid variant, is cleared and gets an array of rows by 2 columns, in the
    /// order found: the script action and its script (both VT_UNKNOWN). It may be null. No rights are
    /// checked.
    ///
    /// Returns the status of the last cell put; without rows, that of the last read of an action's script, or
    /// the finder's; without memory for the array, that same status with the variant as it was; E_OUTOFMEMORY
    /// if memory ran out elsewhere, with the variant as it was.
    HRESULT STDMETHODCALLTYPE GetScriptsForAction(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                  BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                  int iActionType, int iActionBeforeAfter,
                                                  VARIANT* pvScriptAndActionArray) override;

private:
    /// Grows with every call of GetScriptsForAction, on purpose.
    XScriptActionPairs m_scriptActionPairs;
};
} // namespace qptools
