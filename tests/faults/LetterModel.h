// A second, plain implementation of the script service, independent of the real one: it computes the expected
// result of a run with an injected fault.
#pragma once

#include "ArrayText.h"
#include "XQPComVariant.h"

#include "qpobjects.h"

#include <string>
#include <vector>

/// The context of a call.
struct ScriptContext
{
    IQP_Query* query = nullptr;
    IQP_BaseDataObject* set = nullptr;
    std::wstring typeName;
    IQP_BaseDataObject* planType = nullptr;
};

struct ModelResult
{
    HRESULT status = S_OK;
    std::vector<std::vector<XQPComVariant>> rows;
};

/// What GetScriptCommands delivers. Makes the same host calls.
ModelResult CommandsByTheLetter(const ScriptContext& context, int userInterfaceType);

/// What GetScriptsForAction delivers on a new object. Makes the same host calls.
ModelResult ScriptsByTheLetter(const ScriptContext& context, int actionType, int beforeAfter);

/// The rows in the form of RowsOf for a real result; names are read from the objects.
TextRows TextOf(const ModelResult& result);
