#include "Demo.h"

#include "DemoLog.h"
#include "Results.h"

#include <objbase.h>

#include <set>

namespace
{
constexpr int kBefore = 1;
constexpr int kAfter = 0;
constexpr int kContextMenu = 1;
constexpr int kPropertiesSheet = 2;

// The action types of the sample plant.
constexpr int kCreate = 1;
constexpr int kChange = 2;

constexpr ActionCase kActionCases[] = {
    {L"After a weld is created: its plan type and both masters count", L"Body Shop", L"orvoplantype_workcell",
     L"Welding", kCreate, kAfter, 6},
    {L"Before a weld is created", L"Body Shop", L"orvoplantype_workcell", L"Welding", kCreate, kBefore, 2},
    {L"After a turning step is created: no masters", L"Machining", L"orvoplantype_work", L"Turning", kCreate,
     kAfter, 2},
    {L"After a machine is created: by type, the set has a master", L"Body Shop", L"machine", nullptr, kCreate,
     kAfter, 4},
    {L"After a work step is created: the general type counts too", L"Body Shop", L"orvoplantype_work",
     nullptr, kCreate, kAfter, 4},
    {L"After a tool is changed: by type, no master", L"Machining", L"tool", nullptr, kChange, kAfter, 1},
};

constexpr CommandCase kCommandCases[] = {
    {L"Context menu of a weld: masters count, repeated names are told apart", L"Body Shop",
     L"orvoplantype_workcell", L"Welding", kContextMenu, 14},
    {L"Properties sheet of a weld", L"Body Shop", L"orvoplantype_workcell", L"Welding", kPropertiesSheet, 5},
    {L"Context menu of a turning step: no masters", L"Machining", L"orvoplantype_work", L"Turning",
     kContextMenu, 2},
    {L"Context menu of a robot, by type: a macro takes the place of a script of its name", L"Body Shop",
     L"robot", nullptr, kContextMenu, 3},
};

/// An owning BSTR for an argument.
class CText
{
public:
    explicit CText(const wchar_t* text) : m_text(SysAllocString(text)) {}
    ~CText() { SysFreeString(m_text); }
    CText(const CText&) = delete;
    CText& operator=(const CText&) = delete;
    BSTR get() const { return m_text; }

private:
    BSTR m_text;
};

template <class Interface>
ComPtr<Interface> CreateByProgId(const wchar_t* progId)
{
    CLSID clsid{};
    ComPtr<Interface> object;
    if (CLSIDFromProgID(progId, &clsid) == S_OK)
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.putVoid());
    return object;
}

std::wstring Underlined(const std::wstring& heading)
{
    return L"\n" + heading + L"\n" + std::wstring(heading.size(), L'=');
}

std::wstring Shown(const wchar_t* text)
{
    return text ? std::wstring(L"\"") + text + L"\"" : L"none";
}
} // namespace

CDemo::CDemo(std::unique_ptr<refhost::Plant> plant)
    : m_plant(std::move(plant)), m_hostCalls({L"Call", L"Rows", L"Host calls"})
{
}

bool CDemo::Run()
{
    PrintLine(Underlined(L"Scripts for an action"));
    for (const ActionCase& search : kActionCases)
        ShowScripts(search);
    PrintLine(Underlined(L"Commands"));
    for (const CommandCase& search : kCommandCases)
        ShowCommands(search);
    PrintLine(Underlined(L"User action log"));
    ShowLog();
    PrintLine(Underlined(L"What it cost the host"));
    ShowHostCalls();

    PrintLine(L"");
    for (const std::wstring& what : m_broken)
        PrintLine(L"NOT AS EXPECTED: " + what);
    PrintLine(m_broken.empty() ? L"Everything held." : L"The demonstration failed.");
    return m_broken.empty();
}

void CDemo::ShowScripts(const ActionCase& search)
{
    PrintLine(std::wstring(L"\n") + search.title);
    PrintLine(std::wstring(L"  plan type set ") + Shown(search.planTypeSet) + L", type " +
              Shown(search.typeName) + L", plan type " + Shown(search.planType) + L", action type " +
              std::to_wstring(search.actionType) +
              (search.beforeAfter == kBefore ? L", before" : L", after"));
    // One object a call: its result is one search's alone.
    const ComPtr<IScriptActionAndCommandManager> manager = NewManager();
    const ComPtr<IQP_BaseDataObject> planTypeSet = Find(L"plantypeset", search.planTypeSet);
    const ComPtr<IQP_BaseDataObject> planType =
        search.planType ? Find(L"plantype", search.planType) : nullptr;
    const ComPtr<IQP_Query> query = m_plant->NewQuery();
    if (!manager || !planTypeSet)
        return;

    CVariantHolder result;
    m_plant->Calls().Clear();
    const HRESULT status =
        manager->GetScriptsForAction(query.get(), planTypeSet.get(), CText(search.typeName).get(),
                                     planType.get(), search.actionType, search.beforeAfter, result.get());
    const long rows = RowsOf(result.value(), 2);
    CountHostCalls(search.title, rows);
    Expect(status == S_OK, std::wstring(search.title) + L": the status is 0");
    Expect(rows == search.rows, std::wstring(search.title) + L": " + std::to_wstring(search.rows) + L" rows");

    CTable table({L"Action", L"Sequence", L"Script"});
    long last = 0;
    for (long row = 0; row < rows; ++row)
    {
        const ComPtr<IQP_BaseDataObject> action = ObjectCell(result.value(), row, 0);
        const ComPtr<IQP_BaseDataObject> script = ObjectCell(result.value(), row, 1);
        const std::wstring sequence = AttributeText(action.get(), L"m_iSequence");
        const long number = std::wcstol(sequence.c_str(), nullptr, 10);
        Expect(action && script && number >= last, std::wstring(search.title) + L": in ascending sequence");
        last = number;
        table.AddRow({AttributeText(action.get(), L"name"), sequence, AttributeText(script.get(), L"name")});
    }
    table.Print();
}

void CDemo::ShowCommands(const CommandCase& search)
{
    PrintLine(std::wstring(L"\n") + search.title);
    PrintLine(std::wstring(L"  plan type set ") + Shown(search.planTypeSet) + L", type " +
              Shown(search.typeName) + L", plan type " + Shown(search.planType));
    const ComPtr<IScriptActionAndCommandManager> manager = NewManager();
    const ComPtr<IQP_BaseDataObject> planTypeSet = Find(L"plantypeset", search.planTypeSet);
    const ComPtr<IQP_BaseDataObject> planType =
        search.planType ? Find(L"plantype", search.planType) : nullptr;
    const ComPtr<IQP_Query> query = m_plant->NewQuery();
    if (!manager || !planTypeSet)
        return;

    CVariantHolder result;
    m_plant->Calls().Clear();
    const HRESULT status =
        manager->GetScriptCommands(query.get(), planTypeSet.get(), CText(search.typeName).get(),
                                   planType.get(), search.userInterfaceType, nullptr, result.get());
    const long rows = RowsOf(result.value(), 3);
    CountHostCalls(search.title, rows);
    Expect(status == S_OK, std::wstring(search.title) + L": the status is 0");
    Expect(rows == search.rows, std::wstring(search.title) + L": " + std::to_wstring(search.rows) + L" rows");

    CTable table({L"Command", L"Runs", L"For"});
    std::set<std::wstring> names;
    for (long row = 0; row < rows; ++row)
    {
        const std::wstring name = TextCell(result.value(), row, 0);
        const std::wstring mode = TextCell(result.value(), row, 2);
        const ComPtr<IQP_BaseDataObject> script = ObjectCell(result.value(), row, 1);
        Expect(names.insert(name).second, L"the name \"" + name + L"\" is unique");
        Expect(mode == L"0" || mode == L"1", L"\"" + name + L"\" has a mode");
        table.AddRow({name,
                      script ? L"script " + AttributeText(script.get(), L"name")
                             : L"macro " + TextCell(result.value(), row, 1),
                      mode == L"0" ? L"all objects at once" : L"each object"});
    }
    table.Print();
}

void CDemo::ShowLog()
{
    const std::filesystem::path file = UserActionLogFile();
    const std::uintmax_t before = SizeOf(file);
    const ComPtr<IQPUserActionLog> log = CreateByProgId<IQPUserActionLog>(L"Qptools.QPUserActionLog");
    Expect(static_cast<bool>(log), L"the log is created by ProgID");
    if (!log)
        return;
    Expect(log->WriteTimeStampWithInfo(CText(L"qpdemo started").get()) == S_OK, L"a time stamp is written");
    Expect(log->WriteUserActionInfo(CText(L"Release").get(), CText(L"4711").get(),
                                    CText(L"{0B1E8C6A-52D3-4B0E-9E37-6C1D4A9F7E21}").get(),
                                    CText(L"Weld left door").get(), CText(L"Operation").get()) == S_OK,
           L"an action is written");
    Expect(log->WriteLine(CText(L"done\n").get()) == S_OK, L"a line is written");

    const std::vector<std::wstring> lines = LinesBehind(file, before);
    for (const std::wstring& line : lines)
        PrintLine(L"  " + line);
    Expect(lines.size() == 9 && lines.front().starts_with(L"qpdemo started at  Date/Time ") &&
               lines.back() == L"done",
           L"the log holds what was written");
}

void CDemo::ShowHostCalls() const
{
    m_hostCalls.Print();
}

ComPtr<IScriptActionAndCommandManager> CDemo::NewManager()
{
    auto manager = CreateByProgId<IScriptActionAndCommandManager>(L"Qptools.XScriptActionAndCommandManager");
    Expect(static_cast<bool>(manager), L"the script service is created by ProgID");
    return manager;
}

ComPtr<IQP_BaseDataObject> CDemo::Find(const wchar_t* table, const wchar_t* name)
{
    ComPtr<IQP_BaseDataObject> object = m_plant->Find(table, name);
    Expect(static_cast<bool>(object), std::wstring(L"the plant has the ") + table + L" \"" + name + L"\"");
    return object;
}

void CDemo::CountHostCalls(const wchar_t* title, long rows)
{
    m_hostCalls.AddRow({title, std::to_wstring(rows), std::to_wstring(m_plant->Calls().Count())});
}

void CDemo::Expect(bool held, const std::wstring& what)
{
    if (!held)
        m_broken.push_back(what);
}
