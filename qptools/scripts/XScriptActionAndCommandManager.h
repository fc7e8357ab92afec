// The component that the host calls for everything about scripted actions and commands.
#pragma once

#include "XScriptActionPairs.h"

#include "ComObject.h"
#include "DispatchTail.h"

#include "qptools.h"

namespace qptools
{
/// Returns arrays that a caller can walk without knowing the data model: the commands to offer for a context
/// and the scripts to run for an action. It runs neither. It also shows the property dialogs of both.
///
/// The status of the two methods that return arrays is that of the last step only: once a row was filled, it
/// does not tell that the walk ended early. Callers read the rows.
class XScriptActionAndCommandManager final
    : public ComObject<XScriptActionAndCommandManager, DispatchTail<IScriptActionAndCommandManager>>
{
public:
    /// Shows the property dialog of a script action (`bstrTypename` "XDOScriptAction") or of a script command
    /// ("XDOScriptCommand") and returns when it is closed. `pScriptAction` is the object to edit in either
    /// case, `pPTS` the plan type set; only the command needs `pObjectManager`, and `pProject` may be null.
    /// If another argument is null, the dialog opens with empty controls and writes nothing. The object is
    /// not saved.
    ///
    /// Returns S_OK if the dialog ended with OK, also if the host then refused the attributes; S_FALSE if it
    /// ended without OK; E_INVALIDARG, without a dialog, for any other type name: it is compared exactly.
    /// E_OUTOFMEMORY on out of memory.
    HRESULT STDMETHODCALLTYPE ShowScriptActionOrCommandDlg(IQPFObjectManager* pObjectManager,
                                                           IQPConfigFactory* pCF, IQP_Query* pQuery,
                                                           IQP_BaseDataObject* pProject,
                                                           IQP_BaseDataObject* pPTS,
                                                           IQP_BaseDataObject* pScriptAction,
                                                           BSTR bstrTypename) override;

    /// Finds the script commands that the user may run (see XScriptCommandFinder). `*pvCommandArray`, a
    /// valid variant, is cleared and gets an array of rows by 3 columns: display name, unique in the array
    /// and in the order of names (VT_BSTR); script object (VT_UNKNOWN) or macro name (VT_BSTR); "0" once for
    /// all objects or "1" for each object (VT_BSTR). With a null pointer the search and the walk run all the
    /// same.
    ///
    /// Returns the status of the last cell put; without rows, the running status of the walk (see
    /// ScriptCommandRows), for example E_NOINTERFACE if the only command found has no IQPObjectRights, or
    /// the finder's; the same with the variant untouched if the array cannot be created; E_OUTOFMEMORY, with
    /// the variant untouched, if out of memory elsewhere.
    HRESULT STDMETHODCALLTYPE GetScriptCommands(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                int iUserInterfaceType, BSTR bstrBrowserId,
                                                VARIANT* pvCommandArray) override;

    /// Finds the script actions of an action type (see XScriptActionFinder) and appends them to those that
    /// this object found before; one object per call gives one result at a time.
    /// `*pvScriptAndActionArray`, a valid variant, is cleared and gets an array of rows by 2 columns, in the
    /// order found: the script action and its script (both VT_UNKNOWN). It may be null. No rights are
    /// checked.
    ///
    /// Returns the status of the last cell put; without rows, that of the last read of an action's script, or
    /// the finder's; the same with the variant untouched if the array cannot be created; E_OUTOFMEMORY, with
    /// the variant untouched, if out of memory elsewhere.
    HRESULT STDMETHODCALLTYPE GetScriptsForAction(IQP_Query* pQuery, IQP_BaseDataObject* pPTS,
                                                  BSTR bstrTypename, IQP_BaseDataObject* pPlanType,
                                                  int iActionType, int iActionBeforeAfter,
                                                  VARIANT* pvScriptAndActionArray) override;

private:
    /// Grows with every call of GetScriptsForAction, on purpose.
    XScriptActionPairs m_scriptActionPairs;
};
} // namespace qptools
