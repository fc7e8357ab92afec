#include "ChooserDemo.h"

#include "Created.h"
#include "Results.h"
#include "Table.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace
{
constexpr int kCreateNewButton = 3;

std::wstring NameOf(IQP_BaseDataObject* object)
{
    return object ? AttributeText(object, L"name") : L"none";
}

void PrintRows(const DialogView& view)
{
    PrintLine(L"  " + view.Title());
    for (int row = 0; row < view.Rows(view.List()); ++row)
        PrintLine(L"    " + view.Cell(view.List(), row, 0));
}

/// The row that the user means, by what its first column shows.
int RowOf(const DialogView& view, const std::wstring& name)
{
    int row = view.Rows(view.List()) - 1;
    while (row >= 0 && view.Cell(view.List(), row, 0) != name)
        --row;
    return row;
}

void PickRow(const DialogView& view, const std::wstring& name)
{
    view.SelectRow(view.List(), RowOf(view, name));
    view.Click(IDOK);
}

/// A list whose rows follow the objects' addresses is shown by name.
std::vector<std::wstring> SortedNames(const DialogView& view)
{
    std::vector<std::wstring> names(static_cast<std::size_t>(view.Rows(view.List())));
    for (std::size_t row = 0; row < names.size(); ++row)
        names[row] = view.Cell(view.List(), static_cast<int>(row), 0);
    std::sort(names.begin(), names.end());
    return names;
}

/// Prompts and objects as the generic selection wants them. The texts and objects are the caller's.
class CSelectParameters
{
public:
    void Add(const std::wstring& name, const wchar_t* text)
    {
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = Keep(text);
        m_records.push_back({Keep(name.c_str()), value});
    }
    void Add(const std::wstring& name, IUnknown* object)
    {
        VARIANT value{};
        value.vt = VT_UNKNOWN;
        value.punkVal = object;
        m_records.push_back({Keep(name.c_str()), value});
    }
    ULONG Count() const { return static_cast<ULONG>(m_records.size()); }
    tagINITVALUE* Records() { return m_records.data(); }

private:
    BSTR Keep(const wchar_t* text) { return m_texts.emplace_back(std::make_unique<CText>(text))->get(); }

    std::vector<std::unique_ptr<CText>> m_texts;
    std::vector<tagINITVALUE> m_records;
};
} // namespace

CChooserDemo::CChooserDemo(refhost::Plant& plant, const CPictures& pictures,
                           std::function<void(bool, const std::wstring&)> expect)
    : m_plant(plant), m_pictures(pictures), m_expect(std::move(expect))
{
}

void CChooserDemo::Run()
{
    ChooseProject();
    AskForSomethingNew();
    ChooseScript();
    ChooseAmongObjects();
    LookUpContexts();
    m_expect(!testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed(), L"every dialog could be used");
}

void CChooserDemo::ChooseProject()
{
    const auto choice = CreateByProgId<IQPProjectChoice>(L"Qptools.QPProjectChoice");
    const ComPtr<IQP_BaseDataObject> root = Find(L"root", L"root");
    m_expect(static_cast<bool>(choice), L"the project choice is created by ProgID");
    if (!choice || !root)
        return;
    choice->Initialize(CText(L"&None of these").get());
    DialogDriver user;
    user.OnDialog({[this](DialogView& view)
                   {
                       PrintRows(view);
                       view.SelectRow(view.List(), 0);
                       Picture("project-choice");
                       view.Click(IDOK);
                   }});
    LONG canceled = 1;
    ComPtr<IQP_BaseDataObject> project;
    const HRESULT status =
        choice->ShowDialog(root.get(), CText(L"Choose a project").get(), &canceled, project.put(), 0);
    PrintLine(L"  chosen: " + NameOf(project.get()));
    m_expect(status == S_OK && canceled == 0 && project, L"a project is chosen");
}

void CChooserDemo::AskForSomethingNew()
{
    const auto choice = CreateByProgId<IQPProjectChoice>(L"Qptools.QPProjectChoice");
    const ComPtr<IQP_BaseDataObject> root = Find(L"root", L"root");
    if (!choice || !root)
        return;
    choice->Initialize(CText(L"&Without a template").get());
    DialogDriver user;
    user.OnDialog({[this](DialogView& view)
                   {
                       PrintRows(view);
                       Picture("template-choice");
                       PrintLine(L"    the button \"" + view.Text(kCreateNewButton) + L"\" is pressed");
                       view.Click(kCreateNewButton);
                   }});
    LONG canceled = 1;
    LONG create = 0;
    ComPtr<IQP_BaseDataObject> project;
    const HRESULT status = choice->ShowDialogEx(root.get(), CText(L"Choose a template").get(), TRUE,
                                                &canceled, &create, project.put(), 0);
    PrintLine(std::wstring(L"  to be made without a template: ") + (create ? L"yes" : L"no"));
    m_expect(status == S_OK && canceled == 0 && create == 1 && !project, L"something new is asked for");
}

void CChooserDemo::ChooseScript()
{
    const ComPtr<IQPSelectOrvoItem> choice = NewItemChoice();
    const ComPtr<IQP_BaseDataObject> panel = Find(L"orvoitem", L"Side panel left");
    if (!choice || !panel)
        return;
    std::wstring picked;
    DialogDriver user;
    user.OnDialog({[&](DialogView& view)
                   {
                       Picture("script-picker");
                       const std::vector<std::wstring> names = SortedNames(view);
                       PrintLine(L"  " + view.Title() + L" for \"Side panel left\": " +
                                 std::to_wstring(names.size()) + L" that the user may run");
                       // One of the sample's scripts has no name.
                       const auto named =
                           std::find_if(names.begin(), names.end(),
                                        [](const std::wstring& name) { return !name.empty(); });
                       picked = named == names.end() ? L"" : *named;
                       PickRow(view, picked);
                   }});
    ComPtr<IQP_BaseDataObject> script;
    const HRESULT status = choice->ShowDialog(panel.get(), CText(L"script").get(), script.put());
    PrintLine(L"  chosen: " + NameOf(script.get()));
    m_expect(status == S_OK && NameOf(script.get()) == picked, L"the script that was picked comes back");
}

void CChooserDemo::ChooseAmongObjects()
{
    const auto choice = CreateByProgId<IQPSelectDlg>(L"Qptools.QPSelectDlg");
    const ComPtr<IQP_BaseDataObject> welding = Find(L"plantype", L"Welding");
    const ComPtr<IQP_BaseDataObject> turning = Find(L"plantype", L"Turning");
    m_expect(static_cast<bool>(choice), L"the selection is created by ProgID");
    if (!choice || !welding || !turning)
        return;
    CSelectParameters parameters;
    parameters.Add(L"Caption", L"Choose a plan type");
    parameters.Add(L"Prompt0", L"Welding, by robot or by hand");
    parameters.Add(L"Object0", welding.get());
    parameters.Add(L"Prompt1", L"Turning");
    parameters.Add(L"Object1", turning.get());
    DialogDriver user;
    user.OnDialog({[this](DialogView& view)
                   {
                       Picture("generic-selection");
                       PrintLine(L"  " + view.Title());
                       for (const std::wstring& prompt : SortedNames(view))
                           PrintLine(L"    " + prompt);
                       PickRow(view, L"Turning");
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
    const ComPtr<IQPSelectOrvoItem> lookup = NewItemChoice();
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
        // A plan type is an item's alone; to ask others for one is an error of the caller's.
        const bool isItem = std::wstring(kind) == L"orvoitem";
        const HRESULT status =
            isItem ? lookup->GetProjectAndPlanType(object.get(), project.put(), planType.put())
                   : lookup->GetProject(object.get(), project.put());
        m_expect(status == S_OK && project, std::wstring(L"the project of ") + name + L" is found");
        table.AddRow({name, kind, NameOf(project.get()), NameOf(planType.get())});
    }
    table.Print();
}

void CChooserDemo::Picture(const char* name) const
{
    m_expect(m_pictures.Take(name), L"a picture is taken of the dialog");
}

ComPtr<IQP_BaseDataObject> CChooserDemo::Find(const wchar_t* table, const wchar_t* name)
{
    ComPtr<IQP_BaseDataObject> object = m_plant.Find(table, name);
    m_expect(static_cast<bool>(object), std::wstring(L"the plant has the ") + table + L" \"" + name + L"\"");
    return object;
}

ComPtr<IQPSelectOrvoItem> CChooserDemo::NewItemChoice()
{
    auto choice = CreateByProgId<IQPSelectOrvoItem>(L"Qptools.QPSelectOrvoItem");
    m_expect(static_cast<bool>(choice), L"the item choice is created by ProgID");
    if (!choice)
        return choice;
    const ComPtr<IQP_Query> query = m_plant.NewQuery();
    VARIANT given{};
    given.vt = VT_UNKNOWN;
    given.punkVal = query.get();
    m_expect(choice->Initialize(&given) == S_OK, L"the item choice takes the search");
    return choice;
}
