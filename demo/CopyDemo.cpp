#include "CopyDemo.h"

#include "Created.h"
#include "DialogUse.h"
#include "Results.h"

#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "GridSteps.h"

#include <commctrl.h>

namespace
{
using namespace copy_dialog;

constexpr LONG kNormalCopy = 0;
constexpr LONG kDeepCopy = 8;
constexpr LONG kNoCopy = -1;

constexpr wchar_t kStation[] = L"Station";
constexpr wchar_t kWorkCell[] = L"Work cell";
constexpr wchar_t kResource[] = L"Resource";
constexpr wchar_t kWorkStep[] = L"Work step";

/// Day and month are equal, so that their order in the user's language does not matter.
constexpr wchar_t kDayAndMonth[] = L"10";
constexpr wchar_t kYear[] = L"2026";
constexpr wchar_t kStoredDate[] = L"2026-10-10";

bool IsFocused(const DialogView& view, int row)
{
    return SendMessageW(view.List(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_FOCUSED) != 0;
}

/// Opens the editor of an attribute's value: with a click, after one into its row unless that is selected.
Steps OpensValue(const wchar_t* attribute)
{
    const std::wstring name = attribute;
    return {[name](DialogView& view) {
                const int row = RowOf(view, name);
                if (!IsFocused(view, row))
                    ClicksCell(row, 1).Do(view);
            },
            [name](DialogView& view) {
                ClicksCell(RowOf(view, name), 1).Do(view);
            }};
}

/// Types a value over what the cell shows. `shown` runs before Return is pressed.
Steps SetsValue(const wchar_t* attribute, const wchar_t* value, const DialogStep::Body& shown = {})
{
    Steps steps = Steps{Saying(std::wstring(attribute) + L": \"" + value + L"\" is typed")} +
                  OpensValue(attribute) + Steps{TypesInEditor(value)};
    if (shown)
        steps.emplace_back(shown);
    return steps + Steps{Types("Return", NoEditor())};
}

/// Enters the picker that is open, and types the date into its fields.
Steps TypesDate()
{
    return {Sees(PickerOpen()), [](DialogView& view) {
                view.Click(GridEditor(view)); },
            Types("Right"),     TypesInEditor(kDayAndMonth),
            Types("Right"),     TypesInEditor(kDayAndMonth),
            Types("Right"),     TypesInEditor(kYear)};
}
} // namespace

CCopyDemo::CCopyDemo(refhost::Plant& plant, CPictures& pictures, CTable& hostCalls, Expectation expect)
    : CDialogDemo(plant, pictures, std::move(expect)), m_hostCalls(hostCalls)
{
}

void CCopyDemo::Run()
{
    const long long before = ObjectCount(m_plant);
    CopyAsTheyAre();
    GiveUp();
    CopyWithValues();
    m_expect(ObjectCount(m_plant) == before, L"the plant has no more objects than before");
}

void CCopyDemo::CopyAsTheyAre()
{
    PrintLine(L"\nTwo objects are copied as they are");
    const DataObjects objects = {Find(L"plannode", L"Door line"), Find(L"plannode", L"Gauge store")};
    const ComPtr<IQPCopyOptDlg> copy = NewCopy(objects);
    if (!copy)
        return;
    const LONG option = Show(*copy, {[this](DialogView& view) {
        Picture("copy-options");
        PrintLine(L"  " + view.Title());
        PressButton(view, kNormal);
    }});
    m_expect(option == kNormalCopy, L"a copy of the objects alone is asked for");
    const DataObjects copies = MakeCopies(objects, option);
    const std::vector<CopiedValue> before = ValuesOf(copies);
    Apply(*copy, copies);
    m_expect(m_plant.Calls().Count() == 0, L"without values the copies are not read");
    PrintValues(before, {});
    End(*copy, copies);
}

void CCopyDemo::GiveUp()
{
    PrintLine(L"\nA copy is given up after a value was typed");
    const ComPtr<IQPCopyOptDlg> copy = NewCopy({Find(L"plannode", L"Door line")});
    if (!copy)
        return;
    const LONG option =
        Show(*copy, Steps{PressesSaying(kAdvanced)} + OpensPlanType(L"Line") +
                        SetsValue(L"planner", L"Team south") + Steps{PressesSaying(kAdvancedCancel)});
    m_expect(option == kNoCopy, L"no copy is asked for");
    PrintLine(L"  copied: nothing");
    End(*copy, {});
}

void CCopyDemo::CopyWithValues()
{
    PrintLine(L"\nA cell is copied with everything below it, and the copies get values of their own");
    const DataObjects objects = {Find(L"plannode", L"Hinge cell")};
    const ComPtr<IQPCopyOptDlg> copy = NewCopy(objects);
    if (!copy)
        return;
    BoxAnswers boxes;
    ReadMessage(boxes, "copy-options-no-attributes");
    const LONG option =
        Show(*copy, ExpandsForDeep() + LeavesMarkAndTypesOverIt() + SetsTextAndDate() + EmptiesAndSetsCost() +
                        ComesBackToStations() + Steps{PressesSaying(kAdvancedOk)});
    m_expect(option == kDeepCopy, L"a copy with everything below is asked for");
    const DataObjects copies = MakeCopies(objects, option);
    const std::vector<CopiedValue> before = ValuesOf(copies);
    Apply(*copy, copies);
    // The robot's are set twice: the relationship leads to it as well.
    Cost(L"Enhanced copy of a cell: values are set on its copies", 5, 56);
    PrintValues(before, {{{L"planstation", L"operators"}, L"2"},
                         {{L"orvoplantype_workcell", L"name"}, L"Hinge cell B"},
                         {{L"orvoplantype_workcell", L"cycletime"}, L"48"},
                         {{L"orvoplantype_workcell", L"startdate"}, kStoredDate},
                         {{L"planresource", L"supplier"}, L""},
                         {{L"planresource", L"cost"}, L"79000"}});
    End(*copy, copies);
}

// The user.

Steps CCopyDemo::ExpandsForDeep()
{
    return {[this](DialogView& view) {
                PrintLine(L"  " + view.Title());
                m_plant.Calls().Clear();
                PressButton(view, kAdvanced);
                Cost(L"Enhanced copy of a cell: its objects are collected", 7, 58);
            },
            [](DialogView& view) {
                Says(L"the radio button \"" + view.Text(kDeepRadio) + L"\" is checked");
                view.Click(kDeepRadio);
            }};
}

Steps CCopyDemo::LeavesMarkAndTypesOverIt()
{
    return OpensPlanType(kStation) +
           Steps{[this](DialogView&) { Picture("copy-options-advanced"); },
                 Saying(L"operators: the value is opened, and left by Escape")} +
           OpensValue(L"operators") + Steps{Types("Escape", NoEditor()), PrintsGrid(L"operators", L"X")} +
           SetsValue(L"operators", L"2", [this](DialogView&) { Picture("copy-options-text"); });
}

Steps CCopyDemo::SetsTextAndDate()
{
    return OpensPlanType(kWorkCell) + SetsValue(L"name", L"Hinge cell B") + SetsValue(L"cycletime", L"48") +
           Steps{Saying(L"startdate: a date is typed into the date picker")} + OpensValue(L"startdate") +
           TypesDate() +
           Steps{[this](DialogView&) { Picture("copy-options-date"); }, Types("Return", NoEditor()),
                 PrintsGrid(L"name", L"Hinge cell B"),
                 [this](DialogView&) {
                     Picture("copy-options-values");
                 }};
}

Steps CCopyDemo::EmptiesAndSetsCost()
{
    return OpensPlanType(kResource) + Steps{Saying(L"supplier: the value is opened, and left empty")} +
           OpensValue(L"supplier") + Steps{Types("Return", NoEditor())} + SetsValue(L"cost", L"79000") +
           Steps{PrintsGrid(L"cost", L"79000")};
}

Steps CCopyDemo::ComesBackToStations()
{
    return OpensPlanType(kWorkStep) + OpensPlanType(kStation) +
           Steps{PrintsGrid(L"operators", L"2"), PressesSaying(kAdvanced), PressesSaying(kAdvanced),
                 PrintsGrid(L"operators", L"2")};
}

Steps CCopyDemo::OpensPlanType(const wchar_t* caption)
{
    const std::wstring type = caption;
    return {[this, type](DialogView& view) {
        Says(L"the plan type \"" + type + L"\" is chosen");
        view.Choose(kPlanType, type);
    }};
}

DialogStep CCopyDemo::PrintsGrid(const wchar_t* attribute, const wchar_t* expected)
{
    return DialogStep([=, this](DialogView& view) {
        std::wstring rows;
        for (int row = 0; row < view.Rows(kGrid); ++row)
        {
            const std::wstring value = view.Cell(kGrid, row, 1);
            rows +=
                (row == 0 ? L"" : L" | ") + view.Cell(kGrid, row, 0) + (value.empty() ? L"" : L" = " + value);
        }
        Says(L"the list shows " + rows);
        m_expect(view.Cell(kGrid, RowOf(view, attribute), 1) == expected,
                 std::wstring(L"the grid shows ") + attribute + L" = " + expected);
    });
}

// The host.

ComPtr<IQPCopyOptDlg> CCopyDemo::NewCopy(const DataObjects& objects)
{
    auto copy = CreateByProgId<IQPCopyOptDlg>(L"Qptools.QPCopyOptDlg");
    m_expect(static_cast<bool>(copy), L"the enhanced copy is created by ProgID");
    if (!copy)
        return copy;
    m_plant.Calls().Clear();
    m_expect(copy->Initialize(m_plant.List(objects).get(), m_plant.ConfigFactory().get()) == S_OK,
             L"the enhanced copy takes the objects");
    m_expect(m_plant.Calls().Count() == 0, L"the objects are not read before they are needed");
    return copy;
}

LONG CCopyDemo::Show(IQPCopyOptDlg& copy, Steps steps)
{
    DialogDriver user;
    user.OnDialog(std::move(steps));
    LONG option = kNoCopy;
    m_expect(copy.ShowDialog() == S_OK && copy.GetButtonIDClicked(&option) == S_OK,
             L"the dialog is shown, and the copy option read");
    return option;
}

DataObjects CCopyDemo::MakeCopies(const DataObjects& objects, LONG option)
{
    return ObjectsOf(m_plant.Copy(objects, static_cast<refhost::CopyOption>(option)).get());
}

void CCopyDemo::Apply(IQPCopyOptDlg& copy, const DataObjects& copies)
{
    const ComPtr<IEnumBaseDataObject> list = m_plant.List(copies);
    m_plant.Calls().Clear();
    m_expect(copy.ApplyEnhanceCopy(list.get()) == S_OK, L"the values are set on the copies");
}

void CCopyDemo::End(IQPCopyOptDlg& copy, const DataObjects& copies)
{
    m_expect(copy.DeleteObjects() == S_OK, L"the dialog is freed");
    m_plant.Remove(copies);
}

void CCopyDemo::PrintValues(const std::vector<CopiedValue>& before, const NewValues& expected)
{
    CTable table({L"Copy", L"Attribute", L"Before", L"After", L"In the database"});
    for (const CopiedValue& value : before)
    {
        const std::wstring after = AttributeText(value.object.get(), value.attribute);
        const std::wstring stored = StoredText(m_plant, value.object.get(), value.attribute);
        table.AddRow({value.name, value.attribute, value.value, after, stored});
        const auto set = expected.find({value.type, value.attribute});
        const std::wstring& wanted = set == expected.end() ? value.value : set->second;
        m_expect(after == wanted && stored == wanted,
                 value.name + L": " + value.attribute + L" is \"" + wanted + L"\"");
    }
    table.Print();
}

void CCopyDemo::Cost(const wchar_t* call, long objects, long long expected)
{
    const long long count = m_plant.Calls().Count();
    m_hostCalls.AddRow({call, std::to_wstring(objects), std::to_wstring(count)});
    m_expect(count == expected, std::wstring(call) + L": " + std::to_wstring(expected) + L" host calls");
}
