#include "ChooserDemo.h"

#include "Created.h"
#include "DialogUse.h"
#include "Results.h"
#include "SelectParameters.h"
#include "Table.h"

#include "BoxAnswers.h"
#include "DialogDriver.h"

#include "Bstr.h"

#include <memory>
#include <utility>

namespace
{
constexpr int kCreateNewButton = 3;

// Prompts in other scripts. Written as character codes because the second one runs from right to left.
constexpr wchar_t kAssemblyInJapanese[] = L"\u7d44\u7acb";
constexpr wchar_t kPaintingInArabic[] = L"\u0637\u0644\u0627\u0621";

std::wstring NameOf(IQP_BaseDataObject* object)
{
    return object ? AttributeText(object, L"name") : L"none";
}
} // namespace

CChooserDemo::CChooserDemo(refhost::Plant& plant, CPictures& pictures, const std::wstring& language,
                           Expectation expect)
    : CDialogDemo(plant, pictures, std::move(expect)), m_texts(HostTextsIn(language))
{
}

void CChooserDemo::Run()
{
    ChooseProject();
    PassOverAProject();
    AskForSomethingNew();
    ChooseScript();
    FindNoScripts();
    AskForOtherItems();
    ChooseAmongObjects();
    LookUpContexts();
}

void CChooserDemo::ChooseProject()
{
    PrintLine(L"\nOne of the projects");
    const auto choice = NewProjectChoice(m_texts.noneOfThese);
    const ComPtr<IQP_BaseDataObject> root = Find(L"root", L"root");
    if (!choice || !root)
        return;
    BoxAnswers boxes;
    ReadMessage(boxes, "project-choice-nothing-selected");
    DialogDriver user;
    user.OnDialog({[](DialogView& view) {
                       PrintRows(view);
                       PrintLine(L"    OK is pressed, with nothing selected");
                       PressOk(view);
                   },
                   [this](DialogView& view) {
                       view.SelectRow(view.List(), 0);
                       Picture("project-choice");
                       PressOk(view);
                   }});
    LONG canceled = 1;
    ComPtr<IQP_BaseDataObject> project;
    const HRESULT status =
        choice->ShowDialog(root.get(), Bstr(m_texts.chooseProject).get(), &canceled, project.put(), 0);
    PrintLine(L"  chosen: " + NameOf(project.get()));
    m_expect(status == S_OK && canceled == 0 && project, L"a project is chosen");
}

void CChooserDemo::PassOverAProject()
{
    PrintLine(L"\nProjects of which the first has no name to be read");
    constexpr int kReadOfTheFirstName = 4; // after two child lists of projects and one RemNext
    const auto choice = NewProjectChoice(m_texts.noneOfThese);
    const ComPtr<IQP_BaseDataObject> root = Find(L"root", L"root");
    if (!choice || !root)
        return;
    BoxAnswers boxes;
    ReadMessage(boxes, "project-choice-unreadable");
    DialogDriver user;
    user.OnDialog({[](DialogView& view) {
        PrintRows(view);
        PressButton(view, kCreateNewButton);
    }});
    m_plant.Calls().Clear();
    m_plant.Calls().FailCall(kReadOfTheFirstName, refhost::Fault::Status, E_FAIL);
    LONG canceled = 1;
    ComPtr<IQP_BaseDataObject> project;
    const HRESULT status =
        choice->ShowDialog(root.get(), Bstr(m_texts.chooseProject).get(), &canceled, project.put(), 0);
    PrintLine(L"  chosen: " + NameOf(project.get()));
    m_expect(m_plant.Calls().Struck(), L"a project cannot be read");
    m_plant.Calls().FailCall(0, refhost::Fault::None);
    m_expect(status == S_OK && canceled == 0 && !project, L"none of the projects is chosen");
}

void CChooserDemo::AskForSomethingNew()
{
    PrintLine(L"\nSomething new instead of a template");
    const auto choice = NewProjectChoice(m_texts.withoutTemplate);
    const ComPtr<IQP_BaseDataObject> root = Find(L"root", L"root");
    if (!choice || !root)
        return;
    BoxAnswers boxes;
    ReadMessage(boxes, "template-choice-nothing-selected");
    DialogDriver user;
    user.OnDialog({[this](DialogView& view) {
                       PrintRows(view);
                       Picture("template-choice");
                       PrintLine(L"    OK is pressed, with nothing selected");
                       PressOk(view);
                   },
                   [](DialogView& view) {
                       PressButton(view, kCreateNewButton);
                   }});
    LONG canceled = 1;
    LONG create = 0;
    ComPtr<IQP_BaseDataObject> project;
    const HRESULT status = choice->ShowDialogEx(root.get(), Bstr(m_texts.chooseTemplate).get(), TRUE,
                                                &canceled, &create, project.put(), 0);
    PrintLine(L"  chosen: " + (create ? L"a new one, without a template" : NameOf(project.get())));
    m_expect(status == S_OK && canceled == 0 && create == 1 && !project, L"something new is asked for");
}

void CChooserDemo::ChooseScript()
{
    PrintLine(L"\nOne of the scripts for an item");
    const ComPtr<IQPSelectOrvoItem> choice = NewItemChoice(m_plant);
    const ComPtr<IQP_BaseDataObject> panel = Find(L"orvoitem", L"Side panel left");
    if (!choice || !panel)
        return;
    const std::wstring wanted = L"Assign robot program";
    BoxAnswers boxes;
    ReadMessage(boxes, "script-picker-nothing-selected");
    DialogDriver user;
    user.OnDialog({[this](DialogView& view) {
                       Picture("script-picker");
                       PrintLine(L"  " + view.Title() + L" for \"Side panel left\": " +
                                 std::to_wstring(view.Rows(view.List())) + L" that the user may run");
                       SelectNothing(view);
                   },
                   [](DialogView& view) {
                       PrintLine(L"    OK is pressed, with nothing selected");
                       PressOk(view);
                   },
                   [&](DialogView& view) {
                       PickRow(view, wanted);
                   }});
    ComPtr<IQP_BaseDataObject> script;
    const HRESULT status = choice->ShowDialog(panel.get(), Bstr(L"script").get(), script.put());
    PrintLine(L"  chosen: " + NameOf(script.get()));
    m_expect(status == S_OK && NameOf(script.get()) == wanted, L"the script that was picked comes back");
}

void CChooserDemo::FindNoScripts()
{
    PrintLine(L"\nScripts of a plant that has none");
    const std::unique_ptr<refhost::Plant> newPlant = refhost::Plant::OpenMemory();
    const ComPtr<IQP_BaseDataObject> project = newPlant->Add(L"project", L"New plant");
    const ComPtr<IQPSelectOrvoItem> choice = NewItemChoice(*newPlant);
    if (!choice)
        return;
    BoxAnswers boxes;
    ReadMessage(boxes, "script-picker-no-scripts");
    ComPtr<IQP_BaseDataObject> script;
    const HRESULT status = choice->ShowDialog(project.get(), Bstr(L"script").get(), script.put());
    PrintLine(L"  chosen: " + NameOf(script.get()));
    m_expect(status == S_FALSE && !script, L"no dialog opens where there are no scripts");
}

void CChooserDemo::AskForOtherItems()
{
    PrintLine(L"\nItems of another kind than scripts");
    const ComPtr<IQPSelectOrvoItem> choice = NewItemChoice(m_plant);
    const ComPtr<IQP_BaseDataObject> panel = Find(L"orvoitem", L"Side panel left");
    if (!choice || !panel)
        return;
    BoxAnswers boxes;
    ReadMessage(boxes, "script-picker-other-items");
    ComPtr<IQP_BaseDataObject> item;
    const HRESULT status = choice->ShowDialog(panel.get(), Bstr(L"orvoitem").get(), item.put());
    PrintLine(L"  chosen: " + NameOf(item.get()));
    m_expect(status == S_FALSE && !item, L"no dialog opens for items that are no scripts");
}

void CChooserDemo::ChooseAmongObjects()
{
    PrintLine(L"\nOne of the objects that the host gives");
    const auto choice = CreateByProgId<IQPSelectDlg>(L"Qptools.QPSelectDlg");
    m_expect(static_cast<bool>(choice), L"the selection is created by ProgID");
    const ComPtr<IQP_BaseDataObject> welding = Find(L"plantype", L"Welding");
    const ComPtr<IQP_BaseDataObject> turning = Find(L"plantype", L"Turning");
    const ComPtr<IQP_BaseDataObject> assembly = Find(L"plantype", L"Assembly");
    const ComPtr<IQP_BaseDataObject> painting = Find(L"plantype", L"Painting");
    if (!choice || !welding || !turning || !assembly || !painting)
        return;
    CSelectParameters parameters;
    parameters.Add(L"Caption", m_texts.choosePlanType);
    parameters.AddEntry(m_texts.welding, welding.get());
    parameters.AddEntry(m_texts.turning, turning.get());
    parameters.AddEntry(kAssemblyInJapanese, assembly.get());
    parameters.AddEntry(kPaintingInArabic, painting.get());
    BoxAnswers boxes;
    ReadMessage(boxes, "generic-selection-nothing-selected");
    DialogDriver user;
    user.OnDialog({[this](DialogView& view) {
                       Picture("generic-selection");
                       PrintRows(view);
                       SelectNothing(view);
                   },
                   [](DialogView& view) {
                       PrintLine(L"    OK is pressed, with nothing selected");
                       PressOk(view);
                   },
                   [this](DialogView& view) {
                       PickRow(view, m_texts.turning);
                   }});
    ComPtr<IUnknown> selected;
    const HRESULT status = choice->ShowDialog(parameters.Count(), parameters.Records(), selected.put());
    ComPtr<IQP_BaseDataObject> object;
    object.queryFrom(selected.get());
    PrintLine(L"  chosen: " + NameOf(object.get()));
    m_expect(status == S_OK && object.get() == turning.get(), L"the object behind the prompt comes back");
}

void CChooserDemo::LookUpContexts()
{
    PrintLine(L"\nWhat objects belong to");
    const ComPtr<IQPSelectOrvoItem> lookup = NewItemChoice(m_plant);
    if (!lookup)
        return;
    CTable table({L"Object", L"Kind", L"Project", L"Plan type"});
    const std::pair<const wchar_t*, const wchar_t*> objects[] = {{L"orvoitem", L"Side panel left"},
                                                                 {L"plantypeset", L"Machining"},
                                                                 {L"relationship", L"Shaft to block"},
                                                                 {L"scriptaction", L"Weld: times"}};
    for (const auto& [kind, name] : objects)
    {
        const ComPtr<IQP_BaseDataObject> object = Find(kind, name);
        ComPtr<IQP_BaseDataObject> project;
        ComPtr<IQP_BaseDataObject> planType;
        if (!object)
            continue;
        // Only items have a plan type; asking another object for one is an error of the caller.
        const bool isItem = std::wstring(kind) == L"orvoitem";
        const HRESULT status =
            isItem ? lookup->GetProjectAndPlanType(object.get(), project.put(), planType.put())
                   : lookup->GetProject(object.get(), project.put());
        m_expect(status == S_OK && project, std::wstring(L"the project of ") + name + L" is found");
        table.AddRow({name, kind, NameOf(project.get()), NameOf(planType.get())});
    }
    table.Print();
}

ComPtr<IQPProjectChoice> CChooserDemo::NewProjectChoice(const wchar_t* buttonText)
{
    auto choice = CreateByProgId<IQPProjectChoice>(L"Qptools.QPProjectChoice");
    m_expect(static_cast<bool>(choice), L"the project choice is created by ProgID");
    if (choice)
        choice->Initialize(Bstr(buttonText).get());
    return choice;
}

ComPtr<IQPSelectOrvoItem> CChooserDemo::NewItemChoice(refhost::Plant& plant)
{
    auto choice = CreateByProgId<IQPSelectOrvoItem>(L"Qptools.QPSelectOrvoItem");
    m_expect(static_cast<bool>(choice), L"the item choice is created by ProgID");
    if (!choice)
        return choice;
    const ComPtr<IQP_Query> query = plant.NewQuery();
    VARIANT given{};
    given.vt = VT_UNKNOWN;
    given.punkVal = query.get();
    m_expect(choice->Initialize(&given) == S_OK, L"the item choice takes the search");
    return choice;
}
