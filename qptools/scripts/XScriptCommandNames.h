// Script commands under unique display names, in the user's order of names.
#pragma once

#include "Bstr.h"
#include "Variant.h"

#include <utility>
#include <vector>

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
    Bstr name;
    Variant target; ///< the script object (VT_UNKNOWN) or the name of the macro (VT_BSTR)
    ScriptMode mode = ScriptMode::EachObject;
};

/// Names commands as if each were inserted, in the order of Add, into a map keyed by display name. The user's
/// language decides the order and which names are equal.
///
/// - A script whose name is in use gets the first of the suffixes "(2)", "(3)" ... that makes it unique.
/// - A macro replaces the row of its name, on purpose.
class XScriptCommandNames
{
public:
    struct Named
    {
        BSTR name; ///< borrowed from a row
        const ScriptCommandRow* row;
    };

    /// Throws std::bad_alloc.
    void Add(ScriptCommandRow row) { m_rows.push_back(std::move(row)); }

    /// The rows in the order of names; called once, after the last Add. Throws std::bad_alloc and
    /// ComException(E_OUTOFMEMORY).
    std::vector<Named> InOrder();

private:
    std::vector<Named> Unique();

    std::vector<ScriptCommandRow> m_rows;
};
} // namespace qptools
