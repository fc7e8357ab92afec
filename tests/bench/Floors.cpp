#include "Floors.h"

#include "XQPComBSTR.h"

#include "qpservices.h"

#include <algorithm>
#include <vector>

namespace
{
void Criterion(IQP_Query* query, const wchar_t* column, VARTYPE type, LONG number)
{
    VARIANT value;
    value.vt = type;
    value.lVal = number;
    if (type == VT_BOOL)
        value.boolVal = static_cast<VARIANT_BOOL>(number);
    query->SetSearchAttribute(XQPComBSTR(column), 1, value, 0);
}

void Begin(IQP_Query* query, const wchar_t* table, IQP_BaseDataObject* set, BSTR typeName)
{
    VARIANT value;
    VariantInit(&value);
    set->GetAttribute(XQPComBSTR(L"master"), &value);
    VariantClear(&value);
    query->ResetSearch(0);
    query->SetSearchTable(XQPComBSTR(table));
    value.vt = VT_BSTR;
    value.bstrVal = typeName;
    query->SetSearchAttribute(XQPComBSTR(L"type"), 1, value, 0);
    query->SetSearchCatenation(1);
    value.vt = VT_UNKNOWN;
    value.punkVal = set;
    query->SetSearchAttribute(XQPComBSTR(L"orvoplantypeset"), 1, value, 0);
    query->SetSearchCatenation(1);
}

void HasRight(IUnknown* object)
{
    void* rights = nullptr;
    object->QueryInterface(__uuidof(IQPObjectRights), &rights);
    static_cast<IQPObjectRights*>(rights)->HasRight(QPRT_execute);
    static_cast<IQPObjectRights*>(rights)->Release();
}

IQP_BaseDataObject* TakeScript(IQP_BaseDataObject* object, BSTR attribute)
{
    VARIANT value;
    VariantInit(&value);
    object->GetAttribute(attribute, &value);
    void* script = nullptr;
    value.punkVal->QueryInterface(__uuidof(IQP_BaseDataObject), &script);
    VariantClear(&value);
    return static_cast<IQP_BaseDataObject*>(script);
}

BSTR TakeText(IQP_BaseDataObject* object, BSTR attribute)
{
    VARIANT value;
    VariantInit(&value);
    object->GetAttribute(attribute, &value);
    return value.bstrVal;
}

IQP_BaseDataObject* Next(IEnumBaseDataObject* objects)
{
    IQP_BaseDataObject* object = nullptr;
    ULONG fetched = 0;
    return objects->RemNext(1, &object, &fetched) == S_OK ? object : nullptr;
}

SAFEARRAY* Table(std::size_t rows, ULONG columns)
{
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows), 0}, {columns, 0}};
    return SafeArrayCreate(VT_VARIANT, 2, bounds);
}

void Put(SAFEARRAY* table, LONG row, LONG column, BSTR text)
{
    LONG cell[] = {row, column};
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = text;
    SafeArrayPutElement(table, cell, &value);
}

void Put(SAFEARRAY* table, LONG row, LONG column, IUnknown* object)
{
    LONG cell[] = {row, column};
    VARIANT value;
    value.vt = VT_UNKNOWN;
    value.punkVal = object;
    SafeArrayPutElement(table, cell, &value);
}

void Deliver(SAFEARRAY* table, VARIANT* result)
{
    VariantClear(result);
    result->vt = VT_ARRAY | VT_VARIANT;
    result->parray = table;
}

struct FloorCommand
{
    BSTR name;
    IQP_BaseDataObject* script;
    bool onceForAll;
};

struct FloorAction
{
    IQP_BaseDataObject* action;
    IQP_BaseDataObject* script;
};
} // namespace

void CommandsFloor(IQP_Query* query, IQP_BaseDataObject* set, BSTR typeName, VARIANT* result)
{
    Begin(query, L"scriptcommand", set, typeName);
    Criterion(query, L"visible", VT_BOOL, VARIANT_TRUE);
    query->SetSearchCatenation(1);
    query->SetSearchCatenation(4);
    Criterion(query, L"userinterfacetype", VT_I4, 1);
    query->SetSearchCatenation(2);
    Criterion(query, L"userinterfacetype", VT_I4, 3);
    query->SetSearchCatenation(8);
    IEnumBaseDataObject* found = nullptr;
    query->GetSearchResult(&found);

    const XQPComBSTR promptName(L"m_strPrompt");
    const XQPComBSTR shortNameName(L"m_nameShort");
    const XQPComBSTR scriptName(L"script");
    std::vector<FloorCommand> commands;
    while (IQP_BaseDataObject* object = Next(found))
    {
        HasRight(object);
        FloorCommand command{};
        command.name = TakeText(object, promptName);
        const BSTR shortName = TakeText(object, shortNameName);
        command.onceForAll = shortName[0] == L'0' && shortName[1] == L'\0';
        SysFreeString(shortName);
        command.script = TakeScript(object, scriptName);
        HasRight(command.script);
        object->Release();
        commands.push_back(command);
    }
    found->Release();

    std::stable_sort(commands.begin(), commands.end(),
                     [](const FloorCommand& first, const FloorCommand& second) {
                         return VarBstrCmp(first.name, second.name, LOCALE_USER_DEFAULT, 0) ==
                                static_cast<HRESULT>(VARCMP_LT);
                     });

    const XQPComBSTR once(L"0");
    const XQPComBSTR each(L"1");
    SAFEARRAY* table = Table(commands.size(), 3);
    LONG row = 0;
    for (const FloorCommand& command : commands)
    {
        Put(table, row, 0, command.name);
        Put(table, row, 1, command.script);
        Put(table, row, 2, static_cast<BSTR>(command.onceForAll ? once : each));
        ++row;
    }
    for (const FloorCommand& command : commands)
    {
        SysFreeString(command.name);
        command.script->Release();
    }
    Deliver(table, result);
}

void ScriptsFloor(IQP_Query* query, IQP_BaseDataObject* set, BSTR typeName, VARIANT* result)
{
    Begin(query, L"scriptaction", set, typeName);
    Criterion(query, L"beforeafter", VT_I4, 1);
    query->SetSearchCatenation(1);
    Criterion(query, L"actiontype", VT_I4, 7);
    Criterion(query, L"enabled", VT_I4, 1);
    query->SetOrderAttribute(XQPComBSTR(L"sequence"), 1);
    IEnumBaseDataObject* found = nullptr;
    query->GetSearchResult(&found);

    const XQPComBSTR scriptName(L"script");
    std::vector<FloorAction> actions;
    while (IQP_BaseDataObject* object = Next(found))
        actions.push_back({object, TakeScript(object, scriptName)});
    found->Release();

    SAFEARRAY* table = Table(actions.size(), 2);
    LONG row = 0;
    for (const FloorAction& action : actions)
    {
        Put(table, row, 0, action.action);
        Put(table, row, 1, action.script);
        ++row;
    }
    for (const FloorAction& action : actions)
    {
        action.action->Release();
        action.script->Release();
    }
    Deliver(table, result);
}
