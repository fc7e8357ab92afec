// The scripts that XSelectOrvoitemDlg lists, and the script actions that it does not.
#include "XSelectOrvoitemDlg.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ObjectRights.h"
#include "ObjectValue.h"
#include "ProjectSearch.h"

#include "Variant.h"
#include "WaitCursor.h"

#include <optional>
#include <utility>
#include <vector>

namespace qptools
{
namespace
{
/// On purpose: the label of the one routine that reports nothing ends in a tab and not in two blanks.
[[maybe_unused]] constexpr wchar_t kActionLabel[] = L"XSelectOrvoitemDlg::AddScriptActionVectorToMap\t";

/// The status of the read is ignored: what cannot be read is an empty value. A VT_BYREF is resolved at once,
/// because what it refers to is the host's and may change or be freed at its next call.
Variant Read(IQP_BaseDataObject* object, const FixedText& attribute)
{
    Variant value;
    object->GetAttribute(attribute, value.put());
    ResolveReference(value);
    return value;
}

XQPComVariant ReadCell(IQP_BaseDataObject* object, const FixedText& attribute)
{
    XQPComVariant cell;
    cell.Value() = Read(object, attribute).detach();
    return cell;
}

ComPtr<IQP_BaseDataObject> ReadObject(IQP_BaseDataObject* object, const FixedText& attribute)
{
    const Variant value = Read(object, attribute);
    ComPtr<IQP_BaseDataObject> referred;
    referred.queryFrom(ObjectOf(value.get()));
    return referred;
}

/// The 32 bits of the value without a conversion; 0 without a value.
LONG ReadNumber(IQP_BaseDataObject* object, const FixedText& attribute)
{
    const Variant value = Read(object, attribute);
    return value.Type() == VT_EMPTY ? 0 : value->lVal;
}

/// These two texts are never translated, on purpose.
const wchar_t* LocationOf(const Variant& project)
{
    return project.Type() == VT_UNKNOWN && project->punkVal ? L"Project Lib" : L"Library";
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
            // Before any read: a script that the user may not run costs one call.
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
    record.push_back(ReadCell(script, kAttributeName));
    // The key of the relation of which the search uses the column name.
    record.emplace_back(LocationOf(Read(script, L"m_pDODefaultImpl")));
    record.push_back(ReadCell(script, L"languagetype"));
    record.push_back(ReadCell(script, L"creationdate"));
    record.push_back(ReadCell(script, L"modificationdate"));
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
    record.name = ReadCell(action, kAttributeName);
    record.project = ReadObject(action, L"project");
    record.script = ReadObject(action, kAttributeScript);
    record.planType = ReadObject(action, kAttributePlanType);
    record.actionType = ReadNumber(action, kAttributeActionType);
    record.beforeAfter = ReadNumber(action, kAttributeBeforeAfter);
    record.creationDate = ReadCell(action, L"creationdate");
    record.modificationDate = ReadCell(action, L"modificationdate");
    out.emplace(action, std::move(record));
    return S_OK;
}
} // namespace qptools
