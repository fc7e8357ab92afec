#include "PropertyDemo.h"

#include "Created.h"
#include "DialogUse.h"
#include "Results.h"
#include "Table.h"

#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "RegisteredProgId.h"

#include "SettingsClass.h"
#include "VbaLoader.h"

#include "Bstr.h"
#include "Variant.h"

#include <initializer_list>
#include <utility>

namespace
{
// The controls of the two dialogs.

constexpr int kActionName = 250;
constexpr int kSequence = 251;
constexpr int kActionType = 254;
constexpr int kActionScript = 256;
constexpr int kActionPlanType = 266;
constexpr int kActionConfigType = 268;

constexpr int kCommandName = 300;
constexpr int kPrompt = 302;
constexpr int kCommandScript = 306;
constexpr int kMacro = 308;
constexpr int kCommandPlanType = 316;
constexpr int kCommandConfigType = 318;
constexpr int kExecution = 356;
constexpr int kOnPage = 357;
constexpr int kInGroup = 358;
constexpr int kElement = 360;

constexpr int kCreate = 1;
constexpr int kAfterwards = 0;
constexpr int kContextMenu = 1;

constexpr wchar_t kAction[] = L"Weld: number spots";
constexpr wchar_t kCommand[] = L"Paint drying";
constexpr wchar_t kPromptText[] = L"Drying time";

/// Prints the fields that are not empty, each with its label.
void PrintFields(const DialogView& view, std::initializer_list<std::pair<const wchar_t*, int>> fields)
{
    PrintLine(L"  " + view.Title());
    for (const auto& [label, control] : fields)
    {
        const std::wstring text = view.Text(control);
        if (!text.empty())
            PrintLine(std::wstring(L"    ") + label + L": " + text);
    }
}

void PrintAction(const DialogView& view)
{
    PrintFields(view, {{L"Name", kActionName},
                       {L"Script", kActionScript},
                       {L"Plantype", kActionPlanType},
                       {L"Configuration Type", kActionConfigType},
                       {L"Action Type", kActionType},
                       {L"Processing Sequence", kSequence}});
}

void PrintCommandFields(const DialogView& view)
{
    PrintFields(view, {{L"Name", kCommandName},
                       {L"Prompt", kPrompt},
                       {L"Script", kCommandScript},
                       {L"VBA Macro", kMacro},
                       {L"Plantype", kCommandPlanType},
                       {L"Configuration Type", kCommandConfigType},
                       {L"Script execution", kExecution},
                       {L"Element", kElement}});
}
} // namespace

CPropertyDemo::CPropertyDemo(refhost::Plant& plant, CPictures& pictures, Expectation expect)
    : CDialogDemo(plant, pictures, std::move(expect))
{
}

void CPropertyDemo::Run()
{
    const refhost::SettingsClass settings(m_plant);
    const RegisteredProgId loader(refhost::kVbaLoaderProgId, refhost::kVbaLoaderClass);
    ChangeAction();
    RestoreAction();
    LeaveActionWithoutScript();
    ChangeCommand();
    RestoreCommand();
}

void CPropertyDemo::ChangeAction()
{
    PrintActions(L"A script action is to run earlier, and with another script", L"Weld: validate order 10");
    BoxAnswers boxes;
    ReadMessage(boxes, "script-action-no-type");
    DialogDriver user;
    user.OnDialog({[this](DialogView& view) {
                       Picture("script-action");
                       PrintAction(view);
                       Says(L"the list of configuration types is opened and left, and OK is pressed");
                       view.DropDown(kActionConfigType);
                   },
                   PressOk,
                   [](DialogView& view) {
                       view.Choose(kActionPlanType, L"Welding");
                       view.Choose(kActionScript, L"Check names");
                       view.SetText(kSequence, L"5");
                   },
                   [this](DialogView& view) {
                       Picture("script-action-changed");
                       PrintAction(view);
                       PressOk(view);
                   }});
    m_expect(ShowAction(kAction), L"the script action is changed");
    PrintActions(L"The scripts then", L"Weld: number spots 5");
}

void CPropertyDemo::RestoreAction()
{
    DialogDriver user;
    user.OnDialog({[](DialogView& view) {
                       view.Choose(kActionScript, L"Renumber weld spots");
                       view.SetText(kSequence, L"20");
                   },
                   PressOk});
    m_expect(ShowAction(kAction), L"the script action is changed back");
}

void CPropertyDemo::LeaveActionWithoutScript()
{
    PrintLine(L"\nA script action that has no script yet");
    BoxAnswers boxes;
    ReadMessage(boxes, "script-action-no-script");
    DialogDriver user;
    user.OnDialog({[](DialogView& view) {
                       PrintAction(view);
                       Says(L"OK is pressed");
                       PressOk(view);
                   },
                   [](DialogView& view) {
                       view.Click(IDCANCEL);
                   }});
    m_expect(!ShowAction(L"Paint: to be written"), L"the dialog is cancelled");
}

void CPropertyDemo::ChangeCommand()
{
    PrintCommand(L"A command is to run a macro instead of its script", kPromptText,
                 L"script Check drying time");
    BoxAnswers boxes;
    ReadMessage(boxes, "script-command-no-type");
    ReadMessage(boxes, "script-command-nothing-to-run");
    ReadMessage(boxes, "script-command-no-element");
    DialogDriver user;
    user.OnDialog({[this](DialogView& view) {
                       Picture("script-command");
                       PrintCommandFields(view);
                       Says(L"the list of configuration types is opened and left, and OK is pressed");
                       view.DropDown(kCommandConfigType);
                   },
                   PressOk,
                   [](DialogView& view) {
                       view.Choose(kCommandPlanType, L"Painting");
                       Says(L"the list of macros is opened and left, and OK is pressed");
                       view.DropDown(kMacro);
                   },
                   PressOk,
                   [](DialogView& view) {
                       view.Choose(kMacro, L"ModPaint.Mix");
                       view.Click(kInGroup);
                       Says(L"a group of the properties sheet is wanted, none is named, and OK is pressed");
                       PressOk(view);
                   },
                   [](DialogView& view) { view.Choose(kElement, L"Usage"); },
                   [this](DialogView& view) {
                       Picture("script-command-changed");
                       PrintCommandFields(view);
                       PressOk(view);
                   }});
    m_expect(ShowCommand(kCommand), L"the script command is changed");
    PrintCommand(L"The command then", kPromptText, L"macro ModPaint.Mix");
}

void CPropertyDemo::RestoreCommand()
{
    DialogDriver user;
    user.OnDialog({[](DialogView& view) {
                       view.Choose(kCommandScript, L"Check drying time");
                       view.Click(kOnPage);
                       view.Choose(kElement, L"Drying");
                   },
                   PressOk});
    m_expect(ShowCommand(kCommand), L"the script command is changed back");
}

bool CPropertyDemo::ShowDialog(const wchar_t* table, const wchar_t* name, const wchar_t* typeName)
{
    const ComPtr<IScriptActionAndCommandManager> manager = NewManager();
    const ComPtr<IQP_BaseDataObject> object = Find(table, name);
    const ComPtr<IQP_BaseDataObject> project = Find(L"project", L"Body Plant North");
    const ComPtr<IQP_BaseDataObject> planTypes = Find(L"plantypeset", L"Body Shop");
    if (!manager || !object || !project || !planTypes)
        return false;
    return manager->ShowScriptActionOrCommandDlg(m_plant.ObjectManager().get(), m_plant.ConfigFactory().get(),
                                                 m_plant.NewQuery().get(), project.get(), planTypes.get(),
                                                 object.get(), Bstr(typeName).get()) == S_OK;
}

bool CPropertyDemo::ShowAction(const wchar_t* name)
{
    return ShowDialog(L"scriptaction", name, L"XDOScriptAction");
}

bool CPropertyDemo::ShowCommand(const wchar_t* name)
{
    return ShowDialog(L"scriptcommand", name, L"XDOScriptCommand");
}

void CPropertyDemo::PrintActions(const wchar_t* heading, const std::wstring& first)
{
    PrintLine(std::wstring(L"\n") + heading);
    const ComPtr<IScriptActionAndCommandManager> manager = NewManager();
    if (!manager)
        return;
    Variant result;
    const HRESULT status =
        manager->GetScriptsForAction(m_plant.NewQuery().get(), Find(L"plantypeset", L"Body Shop").get(),
                                     Bstr(L"orvoplantype_workcell").get(),
                                     Find(L"plantype", L"Welding").get(), kCreate, kAfterwards, result.put());
    CTable table({L"Action", L"Sequence", L"Script"});
    std::wstring found;
    const long rows = status == S_OK ? RowsOf(result.get(), 2) : 0;
    for (long row = 0; row < rows; ++row)
    {
        const ComPtr<IQP_BaseDataObject> action = ObjectCell(result.get(), row, 0);
        const std::wstring name = AttributeText(action.get(), L"name");
        const std::wstring sequence = AttributeText(action.get(), L"m_iSequence");
        if (row == 0)
            found = name + L" " + sequence;
        table.AddRow({name, sequence, AttributeText(ObjectCell(result.get(), row, 1).get(), L"name")});
    }
    table.Print();
    m_expect(found == first, L"the first script to run is " + first);
}

void CPropertyDemo::PrintCommand(const wchar_t* heading, const std::wstring& prompt, const std::wstring& runs)
{
    PrintLine(std::wstring(L"\n") + heading);
    const ComPtr<IScriptActionAndCommandManager> manager = NewManager();
    if (!manager)
        return;
    Variant result;
    const HRESULT status =
        manager->GetScriptCommands(m_plant.NewQuery().get(), Find(L"plantypeset", L"Body Shop").get(),
                                   Bstr(L"orvoplantype_workcell").get(), Find(L"plantype", L"Painting").get(),
                                   kContextMenu, nullptr, result.put());
    CTable table({L"Command", L"Runs"});
    const long rows = status == S_OK ? RowsOf(result.get(), 3) : 0;
    std::wstring found;
    for (long row = 0; row < rows; ++row)
    {
        if (TextCell(result.get(), row, 0) != prompt)
            continue;
        const ComPtr<IQP_BaseDataObject> script = ObjectCell(result.get(), row, 1);
        found = script ? L"script " + AttributeText(script.get(), L"name")
                       : L"macro " + TextCell(result.get(), row, 1);
        table.AddRow({prompt, found});
    }
    table.Print();
    m_expect(found == runs, L"the command \"" + prompt + L"\" runs " + runs);
}

ComPtr<IScriptActionAndCommandManager> CPropertyDemo::NewManager()
{
    auto manager = CreateByProgId<IScriptActionAndCommandManager>(L"Qptools.XScriptActionAndCommandManager");
    m_expect(static_cast<bool>(manager), L"the script service is created by ProgID");
    return manager;
}
