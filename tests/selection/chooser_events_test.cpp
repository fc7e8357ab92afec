// The events of the choosers, as tables: what the dialog shows and which calls and boxes follow, or how it
// ends.
#include "EventTable.h"
#include "ProjectChoiceFixture.h"
#include "ScriptPickerFixture.h"
#include "SelectDialogFixture.h"

namespace
{
template <class Value>
std::string InWords(const Value& value)
{
    std::ostringstream words;
    words << value;
    return words.str();
}

// The project choice.

const std::string kNoProject = "box Information: You must either select a project and choose ok, \nor you "
                               "must choose the 'New' button!";
const std::string kNoTemplate = "box Information: You must either select a template and choose ok, \nor "
                                "you must choose the 'New' button!";
constexpr int kNew = 3;
const std::vector<int> kProjectControls = {IDOK, kNew, 202};

class ProjectEvents : public ProjectChoiceFixture, public ::testing::WithParamInterface<DialogEvent>
{
protected:
    ProjectEvents()
    {
        NameButton(L"New");
        Has({Child("north", L"North"), Child("south", L"South")});
        root->Children(L"template", host.List({Child("template", L"Plant")}));
    }

    void RunRow(const Steps& leave, const std::function<Outcome(Steps steps)>& show)
    {
        ExpectBoxes(GetParam().written);
        const EventTable table{.controls = kProjectControls,
                               .buttons = {},
                               .record = host.calls,
                               .show = [&](Steps steps) { return InWords(show(std::move(steps))); },
                               .leave = leave,
                               .left = "0 canceled 1 create 77 null"};
        table.Run(GetParam());
    }
};

/// ShowDialog writes no wish for something new.
class ProjectDialogEvents : public ProjectEvents
{
};

TEST_P(ProjectDialogEvents, LeaveThis)
{
    RunRow({Closes()}, [this](Steps steps) { return Show(std::move(steps)); });
}

INSTANTIATE_TEST_SUITE_P(
    Choosers, ProjectDialogEvents,
    ::testing::Values(Stays("SelectRow", {}, Selects(1), kProjectControls, {}, L"South"),
                      Stays("DoubleClickRow", {}, DoubleClicks(1), kProjectControls, {}, L"South"),
                      Stays("SelectNone", {Selects(1)}, SelectsNone(), kProjectControls, {}, L""),
                      Stays("OkWithoutRow", {}, Presses(IDOK), kProjectControls, {}, L"", {kNoProject}),
                      EndsWith("OkWithRow", {Selects(1)}, Presses(IDOK), "0 canceled 0 create 77 south"),
                      EndsWith("EnterOnRow", {Selects(0)}, Types("Return"), "0 canceled 0 create 77 north"),
                      EndsWith("NewWithoutRow", {}, Presses(kNew), "0 canceled 0 create 77 null"),
                      EndsWith("NewWithRow", {Selects(1)}, Presses(kNew), "0 canceled 0 create 77 null"),
                      EndsWith("CloseBox", {Selects(1)}, Closes(), "0 canceled 1 create 77 null"),
                      EndsWith("Escape", {}, Types("Escape"), "0 canceled 1 create 77 null")),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);

/// ShowDialogEx for projects.
class CancellableDialogEvents : public ProjectEvents
{
};

TEST_P(CancellableDialogEvents, LeaveThis)
{
    RunRow({Presses(IDCANCEL)}, [this](Steps steps) { return ShowEx(std::move(steps)); });
}

INSTANTIATE_TEST_SUITE_P(
    Choosers, CancellableDialogEvents,
    ::testing::Values(Stays("DoubleClickRow", {}, DoubleClicks(1), kProjectControls, {}, L"South"),
                      Stays("OkWithoutRow", {}, Presses(IDOK), kProjectControls, {}, L"", {kNoProject}),
                      Stays("OkAfterSelectNone", {Selects(0), SelectsNone()}, Presses(IDOK), kProjectControls,
                            {}, L"", {kNoProject}),
                      EndsWith("OkWithRow", {Selects(0)}, Presses(IDOK), "0 canceled 0 create 0 north"),
                      EndsWith("New", {Selects(0)}, Presses(kNew), "0 canceled 0 create 1 null"),
                      EndsWith("EnterOnNew", {Types("Tab", FocusOn(kNew))}, Types("Return"),
                               "0 canceled 0 create 1 null"),
                      EndsWith("Cancel", {Selects(0)}, Presses(IDCANCEL), "0 canceled 1 create 77 null"),
                      EndsWith("Escape", {}, Types("Escape"), "0 canceled 1 create 77 null"),
                      EndsWith("CloseBox", {}, Closes(), "0 canceled 1 create 77 null")),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);

/// ShowDialogEx for templates.
class TemplateDialogEvents : public ProjectEvents
{
};

TEST_P(TemplateDialogEvents, LeaveThis)
{
    RunRow({Presses(IDCANCEL)}, [this](Steps steps) { return ShowEx(std::move(steps), 1); });
}

INSTANTIATE_TEST_SUITE_P(
    Choosers, TemplateDialogEvents,
    ::testing::Values(Stays("OkWithoutRow", {}, Presses(IDOK), kProjectControls, {}, L"", {kNoTemplate}),
                      EndsWith("OkWithRow", {Selects(0)}, Presses(IDOK), "0 canceled 0 create 0 template")),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);

// The choice of a script. Its first row is selected from the start; which that is follows the addresses.

const std::string kNoScript = "box Execute script: Please select a script.";
const std::vector<int> kTwoButtons = {IDOK, IDCANCEL};

class ScriptPickerEvents : public ScriptPickerFixture, public ::testing::WithParamInterface<DialogEvent>
{
};

TEST_P(ScriptPickerEvents, LeaveThis)
{
    Finds({Script("weld"), Script("drill"), Script("paint")});
    ExpectBoxes(GetParam().written);
    const EventTable table{.controls = kTwoButtons,
                           .buttons = {},
                           .record = host.calls,
                           .show = [this](Steps steps) { return InWords(Show(std::move(steps))); },
                           .leave = {Presses(IDCANCEL)},
                           .left = "1 untouched"};
    table.Run(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Choosers, ScriptPickerEvents,
    ::testing::Values(Stays("SelectRow", {}, Selects(L"drill"), kTwoButtons, {}, L"drill"),
                      Stays("DoubleClickRow", {}, DoubleClicks(L"paint"), kTwoButtons, {}, L"paint"),
                      Stays("OkWithoutRow", {SelectsNone()}, Presses(IDOK), kTwoButtons, {}, L"",
                            {kNoScript}),
                      EndsWith("OkOnWeld", {Selects(L"weld")}, Presses(IDOK), "0 weld"),
                      EndsWith("OkOnDrill", {Selects(L"drill")}, Presses(IDOK), "0 drill"),
                      EndsWith("OkOnPaint", {Selects(L"paint")}, Presses(IDOK), "0 paint"),
                      EndsWith("EnterOnRow", {Selects(L"weld")}, Types("Return"), "0 weld"),
                      EndsWith("Cancel", {}, Presses(IDCANCEL), "1 untouched"),
                      EndsWith("Escape", {}, Types("Escape"), "1 untouched"),
                      EndsWith("CloseBox", {}, Closes(), "1 untouched")),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);

// The choice among given objects, ordered and selected like scripts.

const std::string kNoObject = "box Attention !: Select a ParentChildRelation, please.";

class GivenObjectEvents : public SelectDialog, public ::testing::WithParamInterface<DialogEvent>
{
};

TEST_P(GivenObjectEvents, LeaveThis)
{
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    ExpectBoxes(GetParam().written);
    const EventTable table{.controls = kTwoButtons,
                           .buttons = {},
                           .record = host.calls,
                           .show = [this](Steps steps) { return Show(std::move(steps)); },
                           .leave = {Presses(IDCANCEL)},
                           .left = "untouched"};
    table.Run(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Choosers, GivenObjectEvents,
                         ::testing::Values(Stays("SelectRow", {}, Selects(L"B"), kTwoButtons, {}, L"B"),
                                           Stays("DoubleClickRow", {}, DoubleClicks(L"A"), kTwoButtons, {},
                                                 L"A"),
                                           Stays("OkWithoutRow", {SelectsNone()}, Presses(IDOK), kTwoButtons,
                                                 {}, L"", {kNoObject}),
                                           EndsWith("OkOnA", {Selects(L"A")}, Presses(IDOK), "a"),
                                           EndsWith("OkOnB", {Selects(L"B")}, Presses(IDOK), "b"),
                                           EndsWith("OkOnC", {Selects(L"C")}, Presses(IDOK), "c"),
                                           EndsWith("EnterOnRow", {Selects(L"B")}, Types("Return"), "b"),
                                           EndsWith("Cancel", {}, Presses(IDCANCEL), "untouched"),
                                           EndsWith("Escape", {}, Types("Escape"), "untouched"),
                                           EndsWith("CloseBox", {}, Closes(), "untouched")),
                         NameOfEvent<::testing::TestParamInfo<DialogEvent>>);
} // namespace
