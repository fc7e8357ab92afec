// The dialog in which a user chooses an item, and the look-ups of the context of any data object.
#pragma once

#include "Dialog.h"
#include "XBaseListCtrl.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <map>
#include <vector>

namespace qptools
{
/// The columns of the list of scripts.
enum ScriptColumn : int
{
    kScriptName,
    kScriptLocation, ///< a fixed text
    kScriptLanguage,
    kScriptCreationDate,
    kScriptModificationDate,
    kScriptObject ///< of width 0: the script itself, VT_UNKNOWN
};

/// A row of that list: one value per column.
using ScriptRecord = std::vector<XQPComVariant>;

/// A script action and its attributes.
struct ScriptActionRecord
{
    ComPtr<IQP_BaseDataObject> action;
    XQPComVariant name;
    ComPtr<IQP_BaseDataObject> project;
    ComPtr<IQP_BaseDataObject> script;
    ComPtr<IQP_BaseDataObject> planType;
    LONG actionType = 0;
    LONG beforeAfter = 0;
    XQPComVariant creationDate;
    XQPComVariant modificationDate;
};

/// Keyed by the object's pointer: an object has one record, the first, and the order is that of the pointers.
using ScriptMap = std::map<IQP_BaseDataObject*, ScriptRecord>;
using ScriptActionMap = std::map<IQP_BaseDataObject*, ScriptActionRecord>;

/// Lists the items of a kind. The only kind that it can list is "script": of the scripts of a given object's
/// project and of those of no project, the ones that the user may run. Any other kind shows a message and no
/// dialog.
///
/// The look-ups need no window: a caller that wants them alone creates the object and does not show it. Each
/// takes an object and writes its result, with a reference for the caller, only if it finds one; result
/// pointers may be null. Everything here may throw ComException(E_OUTOFMEMORY) and std::bad_alloc.
class XSelectOrvoitemDlg final : public CDialog
{
public:
    /// All pointers may be null. `dataObject` need not be a project.
    XSelectOrvoitemDlg(HWND parent, const wchar_t* itemType, IQP_BaseDataObject* dataObject,
                       IQP_Query* query);

    /// Writes the chosen object with a reference for the caller; null before OK. Returns E_POINTER if `out`
    /// is null, else S_OK.
    HRESULT GetSelectedObject(IQP_BaseDataObject** out) const;

    // The look-ups, in XSelectOrvoitemLookups.cpp.

    /// Finds the project of any data object by the object's class: the object itself, its project, or the
    /// project of what a relationship or script action refers to. Returns E_INVALIDARG for a null object;
    /// S_FALSE for a work system component, which has no project; the status of an attribute that cannot be
    /// read; E_NOINTERFACE for a reference to anything but a data object; else S_OK, also without a project.
    HRESULT GetProjectFromDO(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject) const;

    /// Finds the plan type of an object. Returns E_INVALIDARG for a null object; the status of the read if it
    /// is not S_OK (a failure is reported); else S_OK, also without a plan type.
    HRESULT GetPlantypeFromDO(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppPlanType) const;

    /// Finds the name of an object's table, on purpose not that of its type; the caller frees it. Returns
    /// E_INVALIDARG for a null object, a reported failure, or S_OK.
    HRESULT GetTypeNameFromDO(IQP_BaseDataObject* pDO, BSTR* pbstrTypeName) const;

    /// Finds the component base of a sub-component item, recognised by `typeName` ("subcompitem" or
    /// "subcompitempro"); any other object is its own. Returns S_OK with nothing found for a null object, on
    /// purpose unlike GetProjectFromDO; the reported status of a read that gave no object, S_OK included;
    /// else S_OK.
    HRESULT GetOrvoCompBase(IQP_BaseDataObject* pDO, const wchar_t* typeName,
                            IQP_BaseDataObject** ppBase) const;

    // The scripts, in XSelectOrvoitemScripts.cpp.

    /// Adds a row to `list` for each script. Returns a failure of CollectScripts, with no row added, else its
    /// status.
    HRESULT GetScriptsFromProject(XBaseListCtrl* list) const;

    /// Collects the scripts that SearchProject (host/) finds and the user may run. Returns a failure to find
    /// the project; the status of SearchProject if it is not S_OK; E_POINTER if the host delivered a null
    /// script and none after it; else S_OK.
    HRESULT CollectScripts(ScriptMap& out) const;

    /// Reads one script; an attribute that cannot be read is an empty value. Returns E_POINTER for null, else
    /// S_OK.
    HRESULT AddScriptVectorToMap(IQP_BaseDataObject* script, ScriptMap& out) const;

    // Nothing calls the next three. They are here on purpose: a list of script actions would be built from
    // them.

    /// Collects the script actions, not the scripts, of the project. Returns E_POINTER without a project, or
    /// the status of a list that cannot be read, both reported; the first status of
    /// AddScriptActionVectorToMap that is not S_OK; else S_OK.
    HRESULT ScriptQuery(ScriptActionMap& out) const;

    /// Does nothing and returns S_FALSE.
    HRESULT ScriptActionQuery(IQP_BaseDataObject* project, const wchar_t* typeName,
                              ScriptActionMap& out) const;

    /// Reads one script action as AddScriptVectorToMap does a script.
    HRESULT AddScriptActionVectorToMap(IQP_BaseDataObject* action, ScriptActionMap& out) const;

protected:
    const CMessageMap& GetMessageMap() const override;
    bool OnInitDialog() override;

    /// Ends the dialog if a row with a script is selected; otherwise shows a message.
    void OnOK() override;

private:
    void OnDoubleClick(NMHDR* header, LRESULT* result);
    bool CreateList();

    /// Moves the selected row's object to `out` and ends the dialog. Returns S_FALSE if no row is selected,
    /// E_NOINTERFACE if its object is no data object, else S_OK.
    HRESULT GetSelectionFromList(IQP_BaseDataObject** out);

    /// Records a failed host call. Returns `status`.
    static HRESULT Report(HRESULT status, const wchar_t* message, ULONG line) noexcept;

    ComPtr<IQP_BaseDataObject> m_ptrDataObject;
    ComPtr<IQP_BaseDataObject> m_ptrSelected;
    ComPtr<IQP_Query> m_ptrQuery;
    XQPComBSTR m_bstrItemType;
    XBaseListCtrl m_list;
};
} // namespace qptools
