#include "XScriptCommandReader.h"

#include "XResolvedValue.h"
#include "XScriptCommandTable.h"

#include "EnumWalk.h"
#include "HostConstants.h"

#include "Translation.h"

#include "qpservices.h"

#include <utility>

namespace qptools
{

namespace
{

/// Reads an attribute as text and puts the host's answer into `status`. Anything without a text reads as
/// empty.
XQPComBSTR ReadText(IQP_BaseDataObject* object, const XQPComBSTR& attribute, HRESULT& status)
{
    XQPComVariant value;
    XQPComBSTR text;
    status = object->GetAttribute(attribute, &value);
    if (status == S_OK && ConvertToText(value))
        text.Attach(value.Detach().bstrVal);
    return text;
}

} // namespace

XScriptCommandReader::XScriptCommandReader(XScriptCommandTable& table, HRESULT status)
    : m_table(table), m_status(status), m_promptAttribute(L"m_strPrompt"),
      m_shortNameAttribute(L"m_nameShort"), m_scriptAttribute(kAttributeScript),
      m_nameAttribute(kAttributeName), m_macroAttribute(L"m_strVBAMacroName")
{
}

HRESULT XScriptCommandReader::ReadAll(IEnumBaseDataObject* commands)
{
    if (!commands)
        return m_status;
    RemNextWalk walk(commands, WalkEnd::AtNull);
    while (walk.Next())
    {
        if (Read(walk.Object()) == Step::Stop)
            break;
    }
    return m_status;
}

XScriptCommandReader::Step XScriptCommandReader::Read(IQP_BaseDataObject* command)
{
    if (!MayExecute(command))
        return Step::NextCommand;
    ScriptCommand row;
    HRESULT unused = S_OK;
    row.name = ReadText(command, m_promptAttribute, unused);
    const XQPComBSTR shortName = ReadText(command, m_shortNameAttribute, unused);

    XQPComVariant value;
    m_status = command->GetAttribute(m_scriptAttribute, &value);
    if (m_status < 0)
        return Step::Stop;
    const XResolvedValue resolved(value.Value());
    if (m_status != S_OK || !resolved.IsObject())
    {
        ReadMacroCommand(std::move(row), command);
        return Step::NextCommand;
    }
    ComPtr<IQP_BaseDataObject> script = resolved.DataObject();
    if (!script)
    {
        m_status = E_NOINTERFACE;
        return Step::Stop;
    }
    ReadScriptCommand(std::move(row), std::move(script), shortName);
    return Step::NextCommand;
}

void XScriptCommandReader::ReadScriptCommand(ScriptCommand&& row, ComPtr<IQP_BaseDataObject> script,
                                             const XQPComBSTR& shortName)
{
    if (!MayExecute(script.get()))
        return;
    if (row.name.IsEmpty())
        row.name = ReadText(script.get(), m_nameAttribute, m_status);
    row.mode = IsOnceForAll(shortName) ? ScriptMode::OnceForAll : ScriptMode::EachObject;
    row.target.Value().vt = VT_UNKNOWN;
    row.target.Value().punkVal = script.detach();
    m_table.Add(std::move(row));
}

void XScriptCommandReader::ReadMacroCommand(ScriptCommand&& row, IQP_BaseDataObject* command)
{
    XQPComVariant macroName;
    m_status = command->GetAttribute(m_macroAttribute, &macroName);
    if (m_status != S_OK || XResolvedValue(macroName.Value()).Type() != VT_BSTR || !ConvertToText(macroName))
        return;
    if (row.name.IsEmpty())
        row.name =
            XQPComBSTR(macroName.Value().bstrVal, static_cast<int>(SysStringLen(macroName.Value().bstrVal)));
    // A macro runs for each object, whatever short name its command has: that name is for scripts.
    row.mode = ScriptMode::EachObject;
    row.isMacro = true;
    row.target = std::move(macroName);
    m_table.Add(std::move(row));
}

bool XScriptCommandReader::MayExecute(IQP_BaseDataObject* object)
{
    ComPtr<IQPObjectRights> rights;
    rights.queryFrom(object);
    m_status = rights ? rights->HasRight(QPRT_execute) : E_NOINTERFACE;
    return m_status == S_OK;
}

bool XScriptCommandReader::IsOnceForAll(const XQPComBSTR& shortName)
{
    // Translated when it is first asked for, so that the user's language is the one of this call.
    if (!m_onceForAll)
        m_onceForAll = CoTranslateText(L"Once for all objects");
    return shortName == L"0" || shortName == m_onceForAll;
}

} // namespace qptools
