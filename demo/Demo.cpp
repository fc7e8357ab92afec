#include "Demo.h"

#include "BookmarkDemo.h"
#include "ChooserDemo.h"
#include "CopyDemo.h"
#include "Created.h"
#include "DemoLog.h"
#include "HostCalls.h"
#include "PropertyDemo.h"

#include "ObjectPlaces.h"

#include "Bstr.h"
#include "Utf8.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
std::wstring Underlined(const std::wstring& heading)
{
    return L"\n" + heading + L"\n" + std::wstring(heading.size(), L'=');
}

std::wstring Shown(const wchar_t* text)
{
    return text ? std::wstring(L"\"") + text + L"\"" : L"none";
}

/// The arguments common to both kinds of searches.
struct Question
{
    IScriptActionAndCommandManager* manager;
    IQP_Query* query;
    IQP_BaseDataObject* planTypeSet;
    BSTR typeName;
    IQP_BaseDataObject* planType;
    VARIANT* result;
};

void PrintContext(const SearchContext& context, const std::wstring& more)
{
    PrintLine(std::wstring(L"\n") + context.title);
    PrintLine(std::wstring(L"  plan type set ") + Shown(context.planTypeSet) + L", type " +
              Shown(context.typeName) + L", plan type " + Shown(context.planType) + more);
}

void PrintTable(std::vector<std::wstring> headings, const ShownRows& rows)
{
    CTable table(std::move(headings));
    for (const std::vector<std::wstring>& row : rows)
        table.AddRow(row);
    table.Print();
}

std::wstring ModeText(const std::wstring& mode)
{
    if (mode == L"0")
        return L"all objects at once";
    return mode == L"1" ? L"each object" : L"no mode but \"" + mode + L"\"";
}

/// Compares names in the user's sort order, as commands are sorted.
bool ComesBefore(const std::vector<std::wstring>& first, const std::vector<std::wstring>& second)
{
    const Bstr firstName(first.front());
    const Bstr secondName(second.front());
    return VarBstrCmp(firstName.get(), secondName.get(), LOCALE_USER_DEFAULT, 0) ==
           static_cast<HRESULT>(VARCMP_LT);
}

std::wstring InOneLine(const std::vector<std::wstring>& row)
{
    std::wstring line;
    for (const std::wstring& cell : row)
        line += (line.empty() ? L"" : L" | ") + cell;
    return line;
}

/// A line of the log with its time stamp replaced by "<time stamp>".
std::wstring WithoutTime(const std::wstring& line)
{
    const std::wstring shape = L"Date/Time 0000-00-00 @ 00:00:00";
    const std::size_t start = line.find(L"Date/Time ");
    if (start == std::wstring::npos || line.size() != start + shape.size())
        return line;
    for (std::size_t i = 0; i < shape.size(); ++i)
    {
        const wchar_t character = line[start + i];
        const bool isDigit = character >= L'0' && character <= L'9';
        if (shape[i] == L'0' ? !isDigit : character != shape[i])
            return line;
    }
    return line.substr(0, start) + L"<time stamp>";
}
} // namespace

CDemo::CDemo(std::unique_ptr<refhost::Plant> plant, CPictures pictures, std::wstring language)
    : m_plant(std::move(plant)), m_pictures(std::move(pictures)), m_language(std::move(language)),
      m_hostCalls({L"Call", L"Rows", L"Host calls"})
{
}

bool CDemo::Run()
{
    PrintLine(Underlined(L"Scripts for an action"));
    for (const ActionCase& search : ActionCases())
        ShowScripts(search);
    PrintLine(Underlined(L"Commands"));
    for (const CommandCase& search : CommandCases())
        ShowCommands(search);
    ShowDialogs();
    PrintLine(Underlined(L"User action log"));
    ShowLog();
    PrintLine(Underlined(L"What it cost the host"));
    ShowHostCalls();
    return Conclude();
}

bool CDemo::RunDialogs()
{
    ShowDialogs();
    return Conclude();
}

void CDemo::ShowDialogs()
{
    const auto expect = [this](bool held, const std::wstring& what) {
        Expect(held, what);
    };
    PrintLine(Underlined(L"Choosers"));
    // The order of two lists is that of the objects' addresses.
    const refhost::ObjectsInOrder inOrder;
    CChooserDemo(*m_plant, m_pictures, m_language, expect).Run();
    PrintLine(Underlined(L"Properties of scripts"));
    CPropertyDemo(*m_plant, m_pictures, expect).Run();
    PrintLine(Underlined(L"Enhanced copy"));
    CCopyDemo(*m_plant, m_pictures, m_hostCalls, expect).Run();
    PrintLine(Underlined(L"Bookmarks"));
    CBookmarkDemo(*m_plant, m_pictures, m_hostCalls, expect).Run();
    Expect(!testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed(), L"every dialog could be used");
}

bool CDemo::Conclude() const
{
    PrintLine(L"");
    for (const std::wstring& what : m_broken)
        PrintLine(L"NOT AS EXPECTED: " + what);
    PrintLine(m_broken.empty() ? L"Everything held." : L"The demonstration failed.");
    return m_broken.empty();
}

void CDemo::ShowScripts(const ActionCase& search)
{
    PrintContext(search.context, L", action type " + std::to_wstring(search.actionType) +
                                     (search.beforeAfter == kBefore ? L", before" : L", after"));
    Variant result;
    const long count = Ask(search.context, 2, result, [&](const Question& ask) {
        return ask.manager->GetScriptsForAction(ask.query, ask.planTypeSet, ask.typeName, ask.planType,
                                                search.actionType, search.beforeAfter, ask.result);
    });
    if (count < 0)
        return;
    CheckHostCalls(search.context, search.hostCalls, search.calls);
    ShownRows rows;
    for (long row = 0; row < count; ++row)
    {
        const ComPtr<IQP_BaseDataObject> action = ObjectCell(result.get(), row, 0);
        const ComPtr<IQP_BaseDataObject> script = ObjectCell(result.get(), row, 1);
        rows.push_back({AttributeText(action.get(), L"name"), AttributeText(action.get(), L"m_iSequence"),
                        AttributeText(script.get(), L"name")});
    }
    CheckRows(search.context, rows, search.rows);
    PrintTable({L"Action", L"Sequence", L"Script"}, rows);
}

void CDemo::ShowCommands(const CommandCase& search)
{
    PrintContext(search.context, L"");
    Variant result;
    const long count = Ask(search.context, 3, result, [&](const Question& ask) {
        return ask.manager->GetScriptCommands(ask.query, ask.planTypeSet, ask.typeName, ask.planType,
                                              search.userInterfaceType, nullptr, ask.result);
    });
    if (count < 0)
        return;
    CheckHostCalls(search.context, search.hostCalls, search.calls);
    ShownRows rows;
    for (long row = 0; row < count; ++row)
    {
        const ComPtr<IQP_BaseDataObject> script = ObjectCell(result.get(), row, 1);
        rows.push_back({TextCell(result.get(), row, 0),
                        script ? L"script " + AttributeText(script.get(), L"name")
                               : L"macro " + TextCell(result.get(), row, 1),
                        ModeText(TextCell(result.get(), row, 2))});
    }
    ShownRows expected = search.rows;
    std::sort(expected.begin(), expected.end(), ComesBefore);
    CheckRows(search.context, rows, expected);
    PrintTable({L"Command", L"Runs", L"For"}, rows);
}

template <class Method>
long CDemo::Ask(const SearchContext& context, long columns, Variant& result, Method&& method)
{
    // A new object for each call: its result is valid for one search.
    const ComPtr<IScriptActionAndCommandManager> manager = NewManager();
    const ComPtr<IQP_BaseDataObject> planTypeSet = Find(L"plantypeset", context.planTypeSet);
    const ComPtr<IQP_BaseDataObject> planType =
        context.planType ? Find(L"plantype", context.planType) : nullptr;
    const ComPtr<IQP_Query> query = m_plant->NewQuery();
    if (!manager || !planTypeSet)
        return -1;

    m_plant->Calls().Clear();
    m_plant->Calls().Record(true);
    const Bstr typeName(context.typeName);
    const HRESULT status = method(Question{manager.get(), query.get(), planTypeSet.get(), typeName.get(),
                                           planType.get(), result.put()});
    m_plant->Calls().Record(false);
    Expect(status == S_OK, std::wstring(context.title) + L": the status is 0");
    const long rows = RowsOf(result.get(), columns);
    Expect(rows >= 0, std::wstring(context.title) + L": the result is a table");
    m_hostCalls.AddRow({context.title, std::to_wstring(rows), std::to_wstring(m_plant->Calls().Count())});
    return rows;
}

void CDemo::CheckHostCalls(const SearchContext& context, int count, const char* calls)
{
    const refhost::CallGate& gate = m_plant->Calls();
    Expect(gate.Count() == count,
           std::wstring(context.title) + L": " + std::to_wstring(count) + L" host calls");
    std::wstring made;
    std::wstring expected;
    WideFromUtf8(InWords(gate.Calls()), made);
    WideFromUtf8(OnOneLine(calls), expected);
    if (made == expected)
        return;
    const auto [first, unused] = std::mismatch(made.begin(), made.end(), expected.begin(), expected.end());
    Expect(false, std::wstring(context.title) + L": the host calls and their order, from here on: " +
                      made.substr(static_cast<std::size_t>(first - made.begin()), 80));
}

void CDemo::CheckRows(const SearchContext& context, const ShownRows& rows, const ShownRows& expected)
{
    Expect(rows.size() == expected.size(),
           std::wstring(context.title) + L": " + std::to_wstring(expected.size()) + L" rows");
    for (std::size_t row = 0; row < std::min(rows.size(), expected.size()); ++row)
    {
        Expect(rows[row] == expected[row], std::wstring(context.title) + L": row " +
                                               std::to_wstring(row + 1) + L" is " + InOneLine(expected[row]));
    }
}

void CDemo::ShowLog()
{
    const std::filesystem::path file = UserActionLogFile();
    const std::uintmax_t before = SizeOf(file);
    const ComPtr<IQPUserActionLog> log = CreateByProgId<IQPUserActionLog>(L"Qptools.QPUserActionLog");
    Expect(static_cast<bool>(log), L"the log is created by ProgID");
    if (!log)
        return;
    Expect(log->WriteTimeStampWithInfo(Bstr(L"qpdemo started").get()) == S_OK, L"a time stamp is written");
    Expect(log->WriteUserActionInfo(Bstr(L"Release").get(), Bstr(L"4711").get(),
                                    Bstr(L"{0B1E8C6A-52D3-4B0E-9E37-6C1D4A9F7E21}").get(),
                                    Bstr(L"Weld left door").get(), Bstr(L"Operation").get()) == S_OK,
           L"an action is written");
    Expect(log->WriteLine(Bstr(L"done\n").get()) == S_OK, L"a line is written");

    const std::vector<std::wstring> expected = {L"qpdemo started at  <time stamp>",
                                                L"<time stamp>",
                                                L"# --> Release",
                                                L"Object ID: 4711",
                                                L"Object GUID: {0B1E8C6A-52D3-4B0E-9E37-6C1D4A9F7E21}",
                                                L"Configured Name of Object: Weld left door",
                                                L"(Plan-)Type: Operation",
                                                L"# <-- ",
                                                L"done"};
    const std::vector<std::wstring> lines = LinesBehind(file, before);
    for (const std::wstring& line : lines)
        PrintLine(L"  " + line);
    Expect(lines.size() == expected.size(),
           L"the log grows by " + std::to_wstring(expected.size()) + L" lines");
    for (std::size_t line = 0; line < std::min(lines.size(), expected.size()); ++line)
    {
        Expect(WithoutTime(lines[line]) == expected[line],
               L"line " + std::to_wstring(line + 1) + L" of the log is \"" + expected[line] + L"\"");
    }
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

void CDemo::Expect(bool held, const std::wstring& what)
{
    if (!held)
        m_broken.push_back(what);
}
