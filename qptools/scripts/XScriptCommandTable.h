// The script commands of one result, on their way into the caller's array.
#pragma once

#include "ScriptCommand.h"

#include <windows.h>

#include <oleauto.h>

#include <utility>
#include <vector>

namespace qptools
{
class ScriptArray;
struct NamedCommand;

/// Takes commands in the order in which they are found and delivers them under unique names, in the order of
/// names.
class XScriptCommandTable
{
public:
    /// Throws std::bad_alloc.
    void Add(ScriptCommand&& command) { m_commands.push_back(std::move(command)); }

    /// Makes an array with one row per name and the columns display name, script object or macro name, and
    /// mode ("0" once for all objects, "1" for each object), and moves it into `*target`, whose old value is
    /// cleared; a null `target` discards it.
    ///
    /// Returns the status of the last cell put, or `status` if there was none. A cell that cannot be put ends
    /// the filling, and the array is delivered as it is. If no array can be made, `*target` is left as it is.
    /// Throws std::bad_alloc and ComException(E_OUTOFMEMORY) with `*target` as it was.
    HRESULT Deliver(VARIANT* target, HRESULT status) const;

private:
    static HRESULT PutRow(ScriptArray& result, LONG row, const NamedCommand& named);

    std::vector<ScriptCommand> m_commands;
};
} // namespace qptools
