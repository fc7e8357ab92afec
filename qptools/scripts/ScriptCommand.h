// One script command as it was found, before its name is made unique.
#pragma once

#include "XQPComBSTR.h"
#include "XQPComVariant.h"

namespace qptools
{

/// How a command runs on several objects.
enum class ScriptMode : unsigned char
{
    OnceForAll,
    EachObject
};

struct ScriptCommand
{
    XQPComBSTR name;      ///< display name; may be empty
    XQPComVariant target; ///< the script object (VT_UNKNOWN) or the name of the macro (VT_BSTR)
    ScriptMode mode = ScriptMode::EachObject;
    bool isMacro = false;
};

} // namespace qptools
