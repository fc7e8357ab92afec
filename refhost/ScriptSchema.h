// The kinds of objects that scripting is made of: scripts, their actions and commands, macros.
#pragma once

#include "Schema.h"

namespace refhost
{
Kind ScriptKind();
Kind ScriptActionKind();
Kind ScriptCommandKind();
Kind VbaProjectKind();
Kind VbaMacroKind();
} // namespace refhost
