// Reads the script commands that a search found.
#pragma once

#include "ScriptCommand.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <string_view>

namespace qptools
{
class XScriptCommandTable;

/// Walks an enumerator of script commands once, and adds those that the user may run to a table. It keeps one
/// status for the whole walk: that of the last check of a right or read of the attributes "script", "name"
/// and "m_strVBAMacroName". A walk's callers look at the rows, not only at the status.
class XScriptCommandReader
{
public:
    /// `table` must outlive this object. `status` stands until a host call gives another one. Throws
    /// ComException(E_OUTOFMEMORY).
    XScriptCommandReader(XScriptCommandTable& table, HRESULT status);

    /// Reads every command of `commands`, which may be null, up to one whose script cannot be read. Returns
    /// the walk's status, which may be any the host gave. Throws std::bad_alloc and
    /// ComException(E_OUTOFMEMORY).
    HRESULT ReadAll(IEnumBaseDataObject* commands);

private:
    enum class Step
    {
        NextCommand,
        Stop
    };

    Step Read(IQP_BaseDataObject* command);
    void ReadScriptCommand(ScriptCommand&& row, ComPtr<IQP_BaseDataObject> script,
                           std::wstring_view shortName);
    void ReadMacroCommand(ScriptCommand&& row, IQP_BaseDataObject* command);
    bool MayExecute(IQP_BaseDataObject* object);
    bool IsOnceForAll(std::wstring_view shortName);

    XScriptCommandTable& m_table;
    HRESULT m_status;
    std::wstring_view m_onceForAll;
};
} // namespace qptools
