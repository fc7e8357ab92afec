#include "XScriptCommandTable.h"

#include "ScriptArray.h"
#include "XScriptCommandNames.h"

#include "XQPComBSTR.h"

namespace qptools
{
namespace
{
/// The mode as the caller reads it: the texts are made once for the process.
BSTR ModeText(ScriptMode mode)
{
    static const XQPComBSTR onceForAll(L"0");
    static const XQPComBSTR eachObject(L"1");
    return mode == ScriptMode::OnceForAll ? onceForAll : eachObject;
}
} // namespace

HRESULT XScriptCommandTable::Deliver(VARIANT* target, HRESULT status) const
{
    const XScriptCommandNames names(m_commands);
    const std::vector<NamedCommand>& rows = names.InOrder();
    ScriptArray result(static_cast<ULONG>(rows.size()), 3);
    if (!result.IsCreated())
        return status;
    LONG row = 0;
    for (const NamedCommand& named : rows)
    {
        status = PutRow(result, row++, named);
        if (status < 0)
            break;
    }
    result.MoveTo(target);
    return status;
}

HRESULT XScriptCommandTable::PutRow(ScriptArray& result, LONG row, const NamedCommand& named)
{
    const ScriptCommand& command = *named.command;
    HRESULT status = result.PutText(row, 0, named.name);
    if (status >= 0)
        status = command.isMacro ? result.PutText(row, 1, command.target.Text())
                                 : result.PutObject(row, 1, command.target.Value().punkVal);
    if (status >= 0)
        status = result.PutText(row, 2, ModeText(command.mode));
    return status;
}
} // namespace qptools
