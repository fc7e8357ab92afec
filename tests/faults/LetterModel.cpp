#include "LetterModel.h"

#include "NameInPlant.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "ComPtr.h"

#include "qpservices.h"

#include <map>

namespace
{
HRESULT Read(IQP_BaseDataObject* object, const wchar_t* attribute, XQPComVariant& value)
{
    return object->GetAttribute(XQPComBSTR(attribute), &value);
}

bool ReadsText(IQP_BaseDataObject* object, const wchar_t* attribute, std::wstring& text, HRESULT& status)
{
    XQPComVariant value;
    status = Read(object, attribute, value);
    if (status != S_OK || value.ChangeType(VT_BSTR) < 0)
        return false;
    text = value.GetString();
    return true;
}

ComPtr<IQP_BaseDataObject> ObjectIn(const XQPComVariant& value)
{
    ComPtr<IQP_BaseDataObject> object;
    if (value.Type() == VT_UNKNOWN)
        object.queryFrom(value.Value().punkVal);
    return object;
}

XQPComVariant Reference(const ComPtr<IQP_BaseDataObject>& object)
{
    XQPComVariant value;
    value.Value().vt = VT_UNKNOWN;
    value.Value().punkVal = ComPtr<IQP_BaseDataObject>(object).detach();
    return value;
}

/// One search, written as the list of its words.
class LetterSearch
{
public:
    LetterSearch(const ScriptContext& context, const wchar_t* table)
        : m_context(context), m_query(context.query)
    {
        hasMasterSet = Read(context.set, L"master", masterSet) == S_OK && ObjectIn(masterSet);
        if (hasMasterSet && context.planType)
            hasMasterType = Read(context.planType, L"master", masterType) == S_OK && ObjectIn(masterType);
        status = m_query->ResetSearch(0);
        if (status >= 0)
            status = m_query->SetSearchTable(XQPComBSTR(table));
    }

    LetterSearch& Cat(LONG catenation)
    {
        m_query->SetSearchCatenation(catenation);
        return *this;
    }
    LetterSearch& Is(const wchar_t* column, const XQPComVariant& value)
    {
        m_query->SetSearchAttribute(XQPComBSTR(column), 1, value, 0);
        return *this;
    }
    LetterSearch& Is(const wchar_t* column, const std::wstring& text)
    {
        return Is(column, XQPComVariant(text.c_str()));
    }
    LetterSearch& Is(const wchar_t* column, LONG number)
    {
        XQPComVariant value;
        value.Value().vt = VT_I4;
        value.Value().lVal = number;
        return Is(column, value);
    }
    LetterSearch& Is(const wchar_t* column, IUnknown* object)
    {
        XQPComVariant value;
        value.Value().vt = VT_UNKNOWN;
        value.Value().punkVal = object;
        object->AddRef();
        return Is(column, value);
    }
    LetterSearch& InSet()
    {
        if (!hasMasterSet)
            return Is(L"orvoplantypeset", m_context.set).Cat(1);
        return Cat(4).Is(L"orvoplantypeset", m_context.set).Cat(2).Is(L"orvoplantypeset", masterSet).Cat(9);
    }
    ComPtr<IEnumBaseDataObject> Run()
    {
        ComPtr<IEnumBaseDataObject> found;
        status = m_query->GetSearchResult(found.put());
        return status == S_OK ? found : ComPtr<IEnumBaseDataObject>();
    }

    HRESULT status = S_OK;
    XQPComVariant masterSet;
    XQPComVariant masterType;
    bool hasMasterSet = false;
    bool hasMasterType = false;

private:
    const ScriptContext& m_context;
    IQP_Query* m_query;
};

ComPtr<IEnumBaseDataObject> FindCommands(const ScriptContext& context, int userInterfaceType, HRESULT& status)
{
    LetterSearch search(context, L"scriptcommand");
    status = search.status;
    if (status < 0)
        return {};
    if (!context.planType)
        search.Is(L"type", context.typeName).Cat(1);
    else if (!search.hasMasterType)
        search.Cat(4).Is(L"orvoplantype", context.planType).Cat(2).Is(L"type", context.typeName).Cat(9);
    else
        search.Cat(4)
            .Cat(4)
            .Is(L"type", std::wstring(L"dodefaultimpl"))
            .Cat(2)
            .Is(L"type", std::wstring(L"orvocompbase"))
            .Cat(2)
            .Is(L"orvoplantype", context.planType)
            .Cat(2)
            .Is(L"orvoplantype", search.masterType)
            .Cat(8)
            .Cat(2)
            .Is(L"type", context.typeName)
            .Cat(9);
    search.InSet();
    XQPComVariant yes;
    yes.Value().vt = VT_BOOL;
    yes.Value().boolVal = VARIANT_TRUE;
    search.Is(L"visible", yes).Cat(1);
    search.Cat(4).Is(L"userinterfacetype", userInterfaceType).Cat(2).Is(L"userinterfacetype", 3).Cat(8);
    ComPtr<IEnumBaseDataObject> found = search.Run();
    status = search.status;
    return found;
}

ComPtr<IEnumBaseDataObject> FindActions(const ScriptContext& context, int type, int before, HRESULT& status)
{
    LetterSearch search(context, L"scriptaction");
    status = search.status;
    if (status < 0)
        return {};
    const bool special = context.typeName == L"scriptaction" || context.typeName == L"scriptcommand";
    if (!context.planType && context.typeName.rfind(L"orvoplantype_", 0) == 0)
        search.Cat(4)
            .Is(L"type", std::wstring(L"orvoplantypewsc"))
            .Cat(2)
            .Is(L"type", context.typeName)
            .Cat(8)
            .Cat(1);
    else if (!context.planType || special)
        search.Is(L"type", context.typeName).Cat(1);
    else if (!search.hasMasterType)
        search.Cat(4).Is(L"orvoplantype", context.planType).Cat(2).Is(L"type", context.typeName).Cat(9);
    else
        search.Cat(4)
            .Cat(4)
            .Is(L"orvoplantype", context.planType)
            .Cat(2)
            .Is(L"orvoplantype", search.masterType)
            .Cat(8)
            .Cat(2)
            .Is(L"type", context.typeName)
            .Cat(9);
    search.InSet();
    if (type != 0)
        search.Is(L"beforeafter", before).Cat(1);
    search.Is(L"actiontype", type).Is(L"enabled", 1);
    context.query->SetOrderAttribute(XQPComBSTR(L"sequence"), 1);
    ComPtr<IEnumBaseDataObject> found = search.Run();
    status = search.status;
    return found;
}

ComPtr<IQP_BaseDataObject> NextOf(IEnumBaseDataObject* objects)
{
    ComPtr<IQP_BaseDataObject> object;
    ULONG fetched = 0;
    if (objects->RemNext(1, object.put(), &fetched) != S_OK)
        object.reset();
    return object;
}

HRESULT MayExecute(IQP_BaseDataObject* object)
{
    ComPtr<IQPObjectRights> rights;
    rights.queryFrom(object);
    return rights ? rights->HasRight(QPRT_execute) : E_NOINTERFACE;
}

struct LetterRow
{
    XQPComVariant target;
    std::wstring mode;
};

struct NameOrder
{
    bool operator()(const std::wstring& first, const std::wstring& second) const
    {
        return VarBstrCmp(XQPComBSTR(first.c_str()), XQPComBSTR(second.c_str()), 0x400, 0) ==
               static_cast<HRESULT>(VARCMP_LT);
    }
};

using LetterTable = std::map<std::wstring, LetterRow, NameOrder>;

void StoreScript(LetterTable& table, const std::wstring& name, const LetterRow& row)
{
    std::wstring candidate = name;
    for (int counter = 2; !table[candidate].mode.empty(); ++counter)
        candidate = name + L"(" + std::to_wstring(counter) + L")";
    table[candidate] = row;
}

/// One command. Returns false where the walk stops.
bool TakeCommand(LetterTable& table, IQP_BaseDataObject* command, HRESULT& status)
{
    status = MayExecute(command);
    if (status != S_OK)
        return true;
    std::wstring name;
    std::wstring shortName;
    HRESULT ignored = S_OK;
    ReadsText(command, L"m_strPrompt", name, ignored);
    ReadsText(command, L"m_nameShort", shortName, ignored);
    XQPComVariant value;
    status = Read(command, L"script", value);
    if (status < 0)
        return false;
    if (status != S_OK || value.Type() != VT_UNKNOWN)
    {
        XQPComVariant macro;
        status = Read(command, L"m_strVBAMacroName", macro);
        if (status == S_OK && macro.Type() == VT_BSTR)
            table[name.empty() ? macro.GetString() : name] = {macro, L"1"};
        return true;
    }
    const ComPtr<IQP_BaseDataObject> script = ObjectIn(value);
    status = script ? MayExecute(script.get()) : E_NOINTERFACE;
    if (!script || status != S_OK)
        return static_cast<bool>(script);
    if (name.empty())
        ReadsText(script.get(), L"name", name, status);
    const bool once = shortName == L"0" || shortName == L"Once for all objects";
    StoreScript(table, name, {Reference(script), once ? L"0" : L"1"});
    return true;
}
} // namespace

TextRows TextOf(const ModelResult& result)
{
    TextRows rows;
    for (const auto& cells : result.rows)
    {
        auto& row = rows.emplace_back();
        for (const XQPComVariant& cell : cells)
            row.push_back(CellText(cell.Value(), NameInPlant));
    }
    return rows;
}

ModelResult CommandsByTheLetter(const ScriptContext& context, int userInterfaceType)
{
    ModelResult result;
    LetterTable table;
    if (const auto commands = FindCommands(context, userInterfaceType, result.status))
    {
        while (const auto command = NextOf(commands.get()))
        {
            if (!TakeCommand(table, command.get(), result.status))
                break;
        }
    }
    for (const auto& [name, row] : table)
        result.rows.push_back({XQPComVariant(name.c_str()), row.target, XQPComVariant(row.mode.c_str())});
    if (!result.rows.empty())
        result.status = S_OK; // that of the last cell
    return result;
}

ModelResult ScriptsByTheLetter(const ScriptContext& context, int actionType, int beforeAfter)
{
    ModelResult result;
    const auto actions = FindActions(context, actionType, beforeAfter, result.status);
    while (actions)
    {
        const auto action = NextOf(actions.get());
        if (!action)
            break;
        XQPComVariant value;
        result.status = Read(action.get(), L"script", value);
        if (result.status < 0)
            break;
        if (result.status != S_OK || value.Type() != VT_UNKNOWN)
            continue;
        const ComPtr<IQP_BaseDataObject> script = ObjectIn(value);
        if (!script)
        {
            result.status = E_NOINTERFACE;
            break;
        }
        result.rows.push_back({Reference(action), Reference(script)});
    }
    if (!result.rows.empty())
        result.status = S_OK; // that of the last cell
    return result;
}
