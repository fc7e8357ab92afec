// The floors that the script service is measured against: bare loops that make the very same host calls and
// fill the same array, and do nothing else.
#pragma once

#include "qpobjects.h"

/// The calls of GetScriptCommands on a host whose commands all have a prompt and a script and all rights. The
/// names are sorted once, by the same comparison; none is made unique.
void CommandsFloor(IQP_Query* query, IQP_BaseDataObject* set, BSTR typeName, VARIANT* result);

/// The calls of GetScriptsForAction on a host whose actions all have a script.
void ScriptsFloor(IQP_Query* query, IQP_BaseDataObject* set, BSTR typeName, VARIANT* result);
