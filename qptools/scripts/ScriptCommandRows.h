// The script commands of one result: read from the host, delivered as the caller's array.
#pragma once

#include "XScriptCommandNames.h"

#include "qpobjects.h"

#include <string_view>

namespace qptools
{
/// The commands that the user may run, each under a unique name. Created for one call.
///
/// A walk has one running status: that of the last check of a right or read of the attributes "script",
/// "name" and "m_strVBAMacroName". It does not tell how much was found; callers look at the rows.
class ScriptCommandRows
{
public:
    /// Walks `commands`, which may be null, and adds each command, up to one whose script cannot be read.
    /// Returns the running status, which may be any that the host gave; `status` if no host call set it.
    /// Throws std::bad_alloc and ComException(E_OUTOFMEMORY).
    HRESULT AppendFrom(IEnumBaseDataObject* commands, HRESULT status);

    /// Creates an array with one row per name and the columns display name, script object or macro name, and
    /// mode ("0" once for all objects, "1" for each object), and moves it into `*target`, whose old value is
    /// cleared; a null `target` discards it.
    ///
    /// Returns the status of the last cell put, or `status` if there was none. The first cell that cannot be
    /// put ends the filling, and the array is delivered as it is. If no array can be created, `*target` is
    /// untouched. Throws std::bad_alloc and ComException(E_OUTOFMEMORY), with `*target` untouched.
    HRESULT Deliver(VARIANT* target, HRESULT status);

private:
    bool Append(IQP_BaseDataObject* command);
    void AppendScript(ComPtr<IQP_BaseDataObject> script, Variant prompt, std::wstring_view shortName);
    void AppendMacro(IQP_BaseDataObject* command, Variant prompt);
    bool MayExecute(IQP_BaseDataObject* object);
    bool IsOnceForAll(std::wstring_view shortName);

    XScriptCommandNames m_names;
    HRESULT m_status = S_OK; ///< the running status
    std::wstring_view m_onceForAll;
};
} // namespace qptools
