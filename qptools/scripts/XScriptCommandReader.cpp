#include "XScriptCommandReader.h"

#include "XScriptCommandTable.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ObjectRights.h"

#include "Translation.h"

#include <utility>

namespace qptools
{
namespace
{
/// Reads an attribute as text and puts the host's answer into `status`. Anything without a text reads as
/// nothing.
XHostValue ReadText(IQP_BaseDataObject* object, const FixedText& attribute, HRESULT& status)
{
    XHostValue value;
    status = object->GetAttribute(attribute, value.put());
    if (status != S_OK || !value.ConvertToText())
        value.Clear();
    return value;
}
} // namespace

XScriptCommandReader::XScriptCommandReader(XScriptCommandTable& table, HRESULT status)
    : m_table(table), m_status(status)
{
}

HRESULT XScriptCommandReader::ReadAll(IEnumBaseDataObject* commands)
{
    if (!commands)
        return m_status;
    EnumWalk walk(commands, WalkBy::RemNext, WalkEnd::AtNull);
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
    row.name = ReadText(command, L"m_strPrompt", unused);
    const XHostValue shortName = ReadText(command, L"m_nameShort", unused);

    XHostValue value;
    m_status = command->GetAttribute(kAttributeScript, value.put());
    if (m_status < 0)
        return Step::Stop;
    value.Resolve();
    if (m_status != S_OK || !value.IsObject())
    {
        ReadMacroCommand(std::move(row), command);
        return Step::NextCommand;
    }
    ComPtr<IQP_BaseDataObject> script = value.DataObject();
    if (!script)
    {
        m_status = E_NOINTERFACE;
        return Step::Stop;
    }
    ReadScriptCommand(std::move(row), std::move(script), shortName.View());
    return Step::NextCommand;
}

void XScriptCommandReader::ReadScriptCommand(ScriptCommand&& row, ComPtr<IQP_BaseDataObject> script,
                                             std::wstring_view shortName)
{
    if (!MayExecute(script.get()))
        return;
    if (row.name.View().empty())
        row.name = ReadText(script.get(), kAttributeName, m_status);
    row.mode = IsOnceForAll(shortName) ? ScriptMode::OnceForAll : ScriptMode::EachObject;
    row.target = XHostValue::OfObject(std::move(script));
    m_table.Add(std::move(row));
}

void XScriptCommandReader::ReadMacroCommand(ScriptCommand&& row, IQP_BaseDataObject* command)
{
    m_status = command->GetAttribute(FixedText(L"m_strVBAMacroName"), row.target.put());
    row.target.Resolve();
    if (m_status != S_OK || !row.target.IsText())
        return;
    if (row.name.View().empty())
        row.name = XHostValue::OfText(row.target.View());
    // A macro runs for each object, whatever short name its command has: that name is for scripts.
    row.mode = ScriptMode::EachObject;
    row.isMacro = true;
    m_table.Add(std::move(row));
}

bool XScriptCommandReader::MayExecute(IQP_BaseDataObject* object)
{
    m_status = HasRight(object, QPRT_execute).value_or(E_NOINTERFACE);
    return m_status == S_OK;
}

bool XScriptCommandReader::IsOnceForAll(std::wstring_view shortName)
{
    // Translated when it is first asked for, so that the user's language is the one of this call.
    if (m_onceForAll.empty())
        m_onceForAll = CoTranslateText(L"Once for all objects");
    return shortName == L"0" || shortName == m_onceForAll;
}
} // namespace qptools
