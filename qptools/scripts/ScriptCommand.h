// One script command as it was found, before its name is made unique.
#pragma once

#include "XHostValue.h"

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
    XHostValue name;   ///< display name; a text, or nothing for the empty one
    XHostValue target; ///< the script object (VT_UNKNOWN) or the name of the macro (VT_BSTR)
    ScriptMode mode = ScriptMode::EachObject;
    bool isMacro = false;
};
} // namespace qptools
