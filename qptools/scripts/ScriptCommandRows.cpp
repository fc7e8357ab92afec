#include "ScriptCommandRows.h"

#include "ScriptArray.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ObjectRights.h"

#include "Translation.h"

#include <utility>

namespace qptools
{
namespace
{
/// Reads an attribute as text and writes the host's status to `status`. What has no text reads as empty.
Variant ReadText(IQP_BaseDataObject* object, const FixedText& attribute, HRESULT& status)
{
    Variant value;
    status = object->GetAttribute(attribute, value.put());
    if (status != S_OK || !ConvertToText(value))
        value.Clear();
    return value;
}

/// Moves the text out of `value`; null for any other type.
Bstr TakeText(Variant value)
{
    Bstr text;
    if (value.Type() == VT_BSTR)
        *text.put() = value.detach().bstrVal;
    return text;
}

HRESULT PutTarget(ScriptArray& result, LONG row, const VARIANT& target)
{
    return target.vt == VT_BSTR ? result.PutText(row, 1, target.bstrVal)
                                : result.PutObject(row, 1, target.punkVal);
}

HRESULT PutRow(ScriptArray& result, LONG row, const XScriptCommandNames::Named& named)
{
    static constexpr FixedText kOnceForAll = L"0";
    static constexpr FixedText kEachObject = L"1";
    HRESULT status = result.PutText(row, 0, named.name);
    if (status >= 0)
        status = PutTarget(result, row, named.row->target.get());
    if (status >= 0)
        status =
            result.PutText(row, 2, named.row->mode == ScriptMode::OnceForAll ? kOnceForAll : kEachObject);
    return status;
}
} // namespace

HRESULT ScriptCommandRows::AppendFrom(IEnumBaseDataObject* commands, HRESULT status)
{
    m_status = status;
    if (!commands)
        return m_status;
    EnumWalk walk(commands, WalkBy::RemNext, WalkEnd::AtNull);
    while (walk.Next() && Append(walk.Object()))
    {
    }
    return m_status;
}

/// Returns false if the walk ends here.
bool ScriptCommandRows::Append(IQP_BaseDataObject* command)
{
    if (!MayExecute(command))
        return true;
    HRESULT unused = S_OK;
    Variant prompt = ReadText(command, L"m_strPrompt", unused);
    const Variant shortName = ReadText(command, L"m_nameShort", unused);
    Variant value;
    m_status = command->GetAttribute(kAttributeScript, value.put());
    if (m_status < 0)
        return false;
    ResolveReference(value);
    if (m_status != S_OK || value.Type() != VT_UNKNOWN)
    {
        AppendMacro(command, std::move(prompt));
        return true;
    }
    ComPtr<IQP_BaseDataObject> script;
    script.queryFrom(value->punkVal);
    if (!script)
    {
        m_status = E_NOINTERFACE;
        return false;
    }
    AppendScript(std::move(script), std::move(prompt), shortName.View());
    return true;
}

void ScriptCommandRows::AppendScript(ComPtr<IQP_BaseDataObject> script, Variant prompt,
                                     std::wstring_view shortName)
{
    if (!MayExecute(script.get()))
        return;
    if (prompt.View().empty())
        prompt = ReadText(script.get(), kAttributeName, m_status);
    const ScriptMode mode = IsOnceForAll(shortName) ? ScriptMode::OnceForAll : ScriptMode::EachObject;
    m_names.Add({TakeText(std::move(prompt)), Variant::OfObject(std::move(script)), mode});
}

/// A macro runs for each object, whatever short name its command has: that name is for scripts.
void ScriptCommandRows::AppendMacro(IQP_BaseDataObject* command, Variant prompt)
{
    Variant macro;
    m_status = command->GetAttribute(FixedText(L"m_strVBAMacroName"), macro.put());
    if (m_status != S_OK)
        return;
    ResolveReference(macro);
    if (macro.Type() != VT_BSTR)
        return;
    Bstr name = prompt.View().empty() ? Bstr(macro.View()) : TakeText(std::move(prompt));
    m_names.Add({std::move(name), std::move(macro), ScriptMode::EachObject});
}

bool ScriptCommandRows::MayExecute(IQP_BaseDataObject* object)
{
    m_status = HasRight(object, QPRT_execute).value_or(E_NOINTERFACE);
    return m_status == S_OK;
}

bool ScriptCommandRows::IsOnceForAll(std::wstring_view shortName)
{
    // Translated at the first use, so that the user's language is the one of this call.
    if (m_onceForAll.empty())
        m_onceForAll = CoTranslateText(L"Once for all objects");
    return shortName == L"0" || shortName == m_onceForAll;
}

HRESULT ScriptCommandRows::Deliver(VARIANT* target, HRESULT status)
{
    const std::vector<XScriptCommandNames::Named> rows = m_names.InOrder();
    ScriptArray result(static_cast<ULONG>(rows.size()), 3);
    if (!result.IsCreated())
        return status;
    LONG row = 0;
    for (const XScriptCommandNames::Named& named : rows)
    {
        status = PutRow(result, row++, named);
        if (status < 0)
            break;
    }
    result.MoveTo(target);
    return status;
}
} // namespace qptools
