// The scripts that XSelectOrvoitemDlg lists, and the script actions that it does not.
#include "XSelectOrvoitemDlg.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ObjectRights.h"
#include "ObjectValue.h"
#include "ProjectSearch.h"

#include "WaitCursor.h"

#include <optional>
#include <utility>
#include <vector>

namespace qptools
{
namespace
{
/// Meant as it is: the label of the one routine that reports nothing ends in a tab, not in two blanks.
[[maybe_unused]] constexpr wchar_t kActionLabel[] = L"XSelectOrvoitemDlg::AddScriptActionVectorToMap\t";

/// The status of each read is of no account: what cannot be read is an empty value.
XQPComVariant Read(IQP_BaseDataObject* object, const FixedText& attribute)
{
    XQPComVariant value;
    object->GetAttribute(attribute, &value);
    return value;
}

ComPtr<IQP_BaseDataObject> ReadObject(IQP_BaseDataObject* object, const FixedText& attribute)
{
    const XQPComVariant value = Read(object, attribute);
    ComPtr<IQP_BaseDataObject> referred;
    referred.queryFrom(ObjectOf(value.Value()));
    return referred;
}

/// The 32 bits of the value as they are; 0 without a value.
LONG ReadNumber(IQP_BaseDataObject* object, const FixedText& attribute)
{
    const XQPComVariant value = Read(object, attribute);
    return value.Type() == VT_EMPTY ? 0 : value.Value().lVal;
}

/// These two are shown as they stand, in no other language.
const wchar_t* LocationOf(const XQPComVariant& project)
{
    return project.Type() == VT_UNKNOWN && project.Value().punkVal ? L"Project Lib" : L"Library";
}
} // namespace

HRESULT XSelectOrvoitemDlg::GetScriptsFromProject(XBaseListCtrl* list) const
{
    const CWaitCursor wait;
    ScriptMap scripts;
    const HRESULT status = CollectScripts(scripts);
    if (status < 0)
        return status;
    int row = 0;
    for (auto& [pointer, record] : scripts)
        list->AddEntry(std::move(record), row++, -1);
    return status;
}

HRESULT XSelectOrvoitemDlg::CollectScripts(ScriptMap& out) const
{
    ComPtr<IQP_BaseDataObject> project;
    HRESULT status = GetProjectFromDO(m_ptrDataObject.get(), project.put());
    if (status < 0)
        return status;
    ComPtr<IEnumBaseDataObject> found;
    status = SearchProject(m_ptrQuery.get(), kTableScript, project.get(), found);
    if (status != S_OK || !found)
        return status;
    WalkBatches(
        found.get(),
        [&](IQP_BaseDataObject* script) {
            // Before anything is read: a script that the user may not run costs no more than this.
            const std::optional<HRESULT> right = HasRight(script, QPRT_execute);
            if (!right)
                return BatchStep::NextObject;
            status = *right == S_OK ? AddScriptVectorToMap(script, out) : S_OK;
            return status == S_OK ? BatchStep::NextObject : BatchStep::Stop;
        },
        [&] { status = E_POINTER; });
    return status;
}

HRESULT XSelectOrvoitemDlg::AddScriptVectorToMap(IQP_BaseDataObject* script, ScriptMap& out) const
{
    if (!script)
        return E_POINTER;
    ScriptRecord record;
    record.reserve(kScriptObject + 1);
    record.push_back(Read(script, kAttributeName));
    // The key of the relation that the search knows by the name of its column.
    record.emplace_back(LocationOf(Read(script, L"m_pDODefaultImpl")));
    record.push_back(Read(script, L"languagetype"));
    record.push_back(Read(script, L"creationdate"));
    record.push_back(Read(script, L"modificationdate"));
    record.emplace_back(BorrowedObject(script));
    out.try_emplace(script, std::move(record));
    return S_OK;
}

HRESULT XSelectOrvoitemDlg::ScriptQuery(ScriptActionMap& out) const
{
    ComPtr<IQP_BaseDataObject> project;
    if (GetProjectFromDO(m_ptrDataObject.get(), project.put()) != S_OK || !project)
        return Report(E_POINTER, L"XSelectOrvoitemDlg::ScriptQuery    piPrj: Invalid", 385);
    ComPtr<IEnumBaseDataObject> actions;
    HRESULT status = project->GetChildren(FixedText(L"scriptactions"), actions.put());
    if (status != S_OK || !actions)
        return Report(status, L"m_ptrDataObject->GetChildren(scriptactions)", 394);
    EnumWalk walk(actions.get(), WalkBy::RemNext, WalkEnd::AtStatusOnly);
    while (walk.Next())
    {
        status = AddScriptActionVectorToMap(walk.Object(), out);
        if (status != S_OK)
            return status;
    }
    return S_OK;
}

HRESULT XSelectOrvoitemDlg::ScriptActionQuery(IQP_BaseDataObject*, const wchar_t*, ScriptActionMap&) const
{
    return S_FALSE;
}

HRESULT XSelectOrvoitemDlg::AddScriptActionVectorToMap(IQP_BaseDataObject* action, ScriptActionMap& out) const
{
    if (!action)
        return E_POINTER;
    ScriptActionRecord record;
    record.action = ComPtr<IQP_BaseDataObject>(action);
    record.name = Read(action, kAttributeName);
    record.project = ReadObject(action, L"project");
    record.script = ReadObject(action, kAttributeScript);
    record.planType = ReadObject(action, kAttributePlanType);
    record.actionType = ReadNumber(action, kAttributeActionType);
    record.beforeAfter = ReadNumber(action, kAttributeBeforeAfter);
    record.creationDate = Read(action, L"creationdate");
    record.modificationDate = Read(action, L"modificationdate");
    out.emplace(action, std::move(record));
    return S_OK;
}
} // namespace qptools
