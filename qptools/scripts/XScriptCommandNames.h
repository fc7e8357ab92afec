// Script commands under unique display names, in the user's order of names.
#pragma once

#include "Bstr.h"
#include "Variant.h"

#include <map>

namespace qptools
{
/// How a command runs on several objects.
enum class ScriptMode : unsigned char
{
    OnceForAll,
    EachObject
};

struct ScriptCommandRow
{
    Variant target; ///< the script object (VT_UNKNOWN) or the name of the macro (VT_BSTR)
    ScriptMode mode = ScriptMode::EachObject;
    int nextSuffix = 2; ///< the first that was not yet tried for a repeat of this name
};

/// A map by display name. The user's language decides the order and which names are equal.
class XScriptCommandNames
{
public:
    struct Before
    {
        bool operator()(const Bstr& first, const Bstr& second) const noexcept;
    };
    using Rows = std::map<Bstr, ScriptCommandRow, Before>;

    /// Adds a command that runs a script. A name in use gets the first of the suffixes "(2)", "(3)" ... that
    /// makes it unique. Throws std::bad_alloc and ComException(E_OUTOFMEMORY).
    void AddScript(Bstr name, Variant script, ScriptMode mode);

    /// Adds a command that runs a macro, for each object. It replaces the row of its name, on purpose: only
    /// scripts get unique names. Throws std::bad_alloc.
    void AddMacro(Bstr name, Variant macro);

    const Rows& InOrder() const noexcept { return m_rows; }

private:
    Rows m_rows;
};
} // namespace qptools
