// The events of the property dialog of a script command, as a table: what the dialog shows then and which
// calls and boxes follow, or how it ends.
#include "CommandFixture.h"
#include "EventTable.h"

namespace
{
using namespace command_dialog;

const std::vector<int> kControls = {IDOK, IDCANCEL, kPage, kGroup, kAttribute, kElement};
const std::vector<int> kButtons = {kVisible, kContextMenu, kProperties, kPage, kGroup, kAttribute};

// What the fixture's record enables and checks.
const std::vector<int> kPlaced = kControls;
const std::vector<int> kNotPlaced = {IDOK, IDCANCEL};
const std::vector<int> kOnPage = {kVisible, kContextMenu, kProperties, kPage};
const std::vector<int> kOnGroup = {kVisible, kContextMenu, kProperties, kGroup};
const std::vector<int> kOnAttribute = {kVisible, kContextMenu, kProperties, kAttribute};
const std::vector<int> kOnPageNotShown = {kVisible, kContextMenu, kPage};

/// Script, macro, plan type, type, execution mode and element as shown; "-" for an empty field.
std::wstring Choices(const DialogView& view)
{
    std::wstring choices;
    for (const int combo : {kScript, kMacro, kPlanType, kConfigType, kExecution, kElement})
    {
        const std::wstring text = view.Text(combo);
        choices += (choices.empty() ? L"" : L", ") + (text.empty() ? L"-" : text);
    }
    return choices;
}

class CommandEvents : public CommandFixture, public ::testing::WithParamInterface<DialogEvent>
{
protected:
    CommandEvents()
    {
        host.onCall = [this](const std::string& call) {
            if (call == "SetSearchTable(vbaproject)")
                host.Query().result = host.List({});
        };
    }
    ~CommandEvents() override { host.onCall = nullptr; }

    void RunRow()
    {
        ExpectBoxes(GetParam().written);
        const EventTable table{
            .controls = kControls,
            .buttons = kButtons,
            .selection = Choices,
            .record = host.calls,
            .show = [this](Steps steps) { return Show(std::move(steps)) == S_OK ? "ok" : "cancelled"; },
            .leave = {Presses(IDCANCEL)},
            .left = "cancelled"};
        table.Run(GetParam());
    }
};

TEST_P(CommandEvents, LeaveThis)
{
    RunRow();
}

// The lists. To open one deselects its opposite; those of types clear the element.

INSTANTIATE_TEST_SUITE_P(
    Lists, CommandEvents,
    ::testing::Values(
        Stays("ScriptsFirstTime", {}, Drops(kScript), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, Costs", kReadScripts),
        Stays("ScriptsAgain", {Drops(kScript), Types("Escape")}, Drops(kScript), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("ScriptsClosed", {Drops(kScript)}, Types("Escape"), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("AnotherScript", {Drops(kScript)}, Chooses(kScript, L"Weld"), kPlaced, kOnPage,
              L"Weld, -, -, cell, Once for all objects, Costs"),
        Stays("MacrosFirstTime", {}, Drops(kMacro), kPlaced, kOnPage,
              L"-, -, -, cell, Once for all objects, Costs", Searching("vbaproject")),
        Stays("MacrosAgainWhileThereAreNone", {Drops(kMacro), Types("Escape")}, Drops(kMacro), kPlaced,
              kOnPage, L"-, -, -, cell, Once for all objects, Costs", Searching("vbaproject")),
        Stays("MacrosClosed", {Drops(kMacro)}, Types("Escape"), kPlaced, kOnPage,
              L"-, -, -, cell, Once for all objects, Costs"),
        Stays("TypesFirstTime", {}, Drops(kConfigType), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, -", kReadTypes),
        Stays("TypesAgain", {Drops(kConfigType), Types("Escape")}, Drops(kConfigType), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, -"),
        Stays("AnotherType", {Drops(kConfigType)}, Chooses(kConfigType, L"line"), kPlaced, kOnPage,
              L"Drill, -, -, line, Once for all objects, -"),
        Stays("PlanTypesFirstTime", {}, Drops(kPlanType), kPlaced, kOnPage,
              L"Drill, -, -, -, Once for all objects, -", kReadPlanTypes),
        Stays("PlanTypesAgain", {Drops(kPlanType), Types("Escape")}, Drops(kPlanType), kPlaced, kOnPage,
              L"Drill, -, -, -, Once for all objects, -"),
        Stays("APlanType", {Drops(kPlanType)}, Chooses(kPlanType, L"Milling"), kPlaced, kOnPage,
              L"Drill, -, Milling, -, Once for all objects, -"),
        Stays("TypesAfterAPlanType", {Chooses(kPlanType, L"Milling")}, Drops(kConfigType), kPlaced, kOnPage,
              L"Drill, -, -, -, Once for all objects, -", kReadTypes),
        Stays("ExecutionModes", {}, Drops(kExecution), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("TheOtherExecutionMode", {Drops(kExecution)}, Chooses(kExecution, L"For each object"), kPlaced,
              kOnPage, L"Drill, -, -, cell, For each object, Costs"),
        Stays("ExecutionModesResetTheChoice", {Chooses(kExecution, L"For each object")}, Drops(kExecution),
              kPlaced, kOnPage, L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("Elements", {}, Drops(kElement), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, -", kReadPages),
        Stays("ElementsAgain", {Drops(kElement), Types("Escape")}, Drops(kElement), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, -", kReadPages),
        Stays("ElementsWithoutAType", {Drops(kPlanType), Types("Escape")}, Drops(kElement), kPlaced, kOnPage,
              L"Drill, -, -, -, Once for all objects, -", {BoxOf(kNoType)}),
        Stays("AnElement", {}, Chooses(kElement, L"General"), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, General", kReadPages)),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);

// The buttons.

INSTANTIATE_TEST_SUITE_P(
    Buttons, CommandEvents,
    ::testing::Values(
        Stays("PropertiesOff", {}, Unchecks(kProperties), kNotPlaced, kOnPageNotShown,
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("PropertiesOnAgain", {Unchecks(kProperties)}, Checks(kProperties), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("ContextMenuOff", {}, Unchecks(kContextMenu), kPlaced, {kVisible, kProperties, kPage},
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("VisibleOff", {}, Unchecks(kVisible), kPlaced, {kContextMenu, kProperties, kPage},
              L"Drill, -, -, cell, Once for all objects, Costs"),
        Stays("Group", {}, Checks(kGroup), kPlaced, kOnGroup, L"Drill, -, -, cell, Once for all objects, -"),
        Stays("Attribute", {}, Checks(kAttribute), kPlaced, kOnAttribute,
              L"Drill, -, -, cell, Once for all objects, -"),
        Stays("PageAgain", {}, Presses(kPage), kPlaced, kOnPage,
              L"Drill, -, -, cell, Once for all objects, -"),
        Stays("ElementsOfGroup", {Checks(kGroup)}, Drops(kElement), kPlaced, kOnGroup,
              L"Drill, -, -, cell, Once for all objects, -", kReadGroups),
        Stays("ElementsOfAttribute", {Checks(kAttribute)}, Drops(kElement), kPlaced, kOnAttribute,
              L"Drill, -, -, cell, Once for all objects, -", kReadAttributes)),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);

// OK and Cancel.

const std::string kDone = "cell/Costs.GetProperty(6)";

INSTANTIATE_TEST_SUITE_P(
    Ends, CommandEvents,
    ::testing::Values(
        Stays("OkWithoutType", {Drops(kConfigType), Types("Escape"), Drops(kPlanType), Types("Escape")},
              Presses(IDOK), kPlaced, kOnPage, L"Drill, -, -, -, Once for all objects, -", {BoxOf(kNoType)}),
        Stays("OkWithoutScript", {Drops(kMacro), Types("Escape")}, Presses(IDOK), kPlaced, kOnPage,
              L"-, -, -, cell, Once for all objects, Costs", {BoxOf(kNoScript)}),
        Stays("OkWithoutTypeAndScript", {Drops(kPlanType), Types("Escape"), Drops(kMacro), Types("Escape")},
              Presses(IDOK), kPlaced, kOnPage, L"-, -, -, -, Once for all objects, -", {BoxOf(kNoType)}),
        Stays("OkWithoutElement", {Checks(kGroup)}, Presses(IDOK), kPlaced, kOnGroup,
              L"Drill, -, -, cell, Once for all objects, -", {BoxOf(kNoElement)}),
        Stays("OkWithoutScriptAndElement", {Drops(kMacro), Types("Escape"), Checks(kGroup)}, Presses(IDOK),
              kPlaced, kOnGroup, L"-, -, -, cell, Once for all objects, -", {BoxOf(kNoScript)}),
        EndsWith("Ok", {}, Presses(IDOK), "ok", {kDone, Write()}),
        EndsWith("OkWithoutElementNotPlaced", {Checks(kGroup), Unchecks(kProperties)}, Presses(IDOK), "ok",
                 {Write(NotPlaced())}),
        EndsWith("Enter", {}, Types("Return"), "ok", {kDone, Write()}),
        EndsWith("EnterInAField", {Enters(kName, L"Deburr all")}, Types("Return"), "ok",
                 {kDone, Write({{"m_name", "BSTR 'Deburr all'"}})}),
        EndsWith("Cancel", {Enters(kName, L"Deburr all")}, Presses(IDCANCEL), "cancelled"),
        EndsWith("Escape", {Enters(kName, L"Deburr all")}, Types("Escape"), "cancelled"),
        EndsWith("CloseBox", {Enters(kName, L"Deburr all")}, Closes(), "cancelled")),
    NameOfEvent<::testing::TestParamInfo<DialogEvent>>);
} // namespace
