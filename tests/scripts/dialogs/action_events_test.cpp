// The events of the property dialog of a script action, as tables: what the dialog shows and which calls and
// boxes follow, or how it ends.
#include "ActionFixture.h"

#include "EventTable.h"

namespace
{
using namespace action_dialog;

/// A row, and what the host holds in it.
class ActionEvents;
struct ActionEvent : DialogEvent
{
    void (ActionEvents::*given)() = nullptr;
};

const Calls kTypesRead = {
    "GetTypeEnum(null)",         "types.RemNext(25)",  "cell.Get(isplantype)", "cell.Get(typename)",
    "line.Get(isplantype)",      "line.Get(typename)", "plan.Get(isplantype)", "scriptaction.Get(isplantype)",
    "scriptaction.Get(typename)"};
const Calls kPlanTypesRead = {"set.GetChildren(orvoplantype)", "RemNext(25)", "assembly.GetAttribute(name)",
                              "milling.GetAttribute(name)"};
const Calls kSearch = {"ResetSearch(0)", "SetSearchTable(script)",
                       "SetSearchAttribute(dodefaultimpl, 1, UNKNOWN project, 1)",
                       "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)", "GetSearchResult()"};

Calls operator+(Calls first, const Calls& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

const Calls kScriptsRead =
    kSearch + Calls{"RemNext(25)", "drill.GetAttribute(name)", "weld.GetAttribute(name)"};

const std::string kTypeWarning = "box Script Action Properties Warning: Neither a configuration type nor a "
                                 "plantype selected.";
const std::string kScriptWarning = "box Script Action Properties Warning: No script selected.";

class ActionEvents : public ActionFixture, public ::testing::WithParamInterface<ActionEvent>
{
public:
    static constexpr int kNameEdit = kName;
    static constexpr int kSequenceEdit = kSequence;
    static constexpr int kTypeBox = kActionType;
    static constexpr int kScriptBox = kScript;
    static constexpr int kAfterRadio = kAfter;
    static constexpr int kBeforeRadio = kBefore;
    static constexpr int kEnabledBox = kEnabled;
    static constexpr int kPlanTypeBox = kPlanType;
    static constexpr int kConfigTypeBox = kConfigType;

    // What the host holds.

    void NoUsualType()
    {
        host.Config().types.objects.erase(host.Config().types.objects.begin(),
                                          host.Config().types.objects.begin() + 2);
        host.Config().types.objects.back()->Set(L"isplantype", true);
    }
    void FailingTypes()
    {
        host.Config().types.status = E_FAIL;
        host.Config().types.null = true;
    }
    void AnotherCase() { action->Set(L"m_pType", L"LIN"); }
    void UnknownType() { action->Set(L"m_pType", L"gone"); }
    void OfAPlanType() { BindToPlanType(assembly); }
    void NoPlanTypes()
    {
        BindToPlanType(assembly);
        planTypes = host.Object("bare");
        planTypes->Children(L"orvoplantype", host.List({}));
    }
    void FailingPlanTypes()
    {
        BindToPlanType(assembly);
        planTypes = host.Object("bare");
    }
    void PlanAndPlanA()
    {
        const auto plan = Named("p", L"Plan");
        planTypes = host.Object("bare");
        planTypes->Children(L"orvoplantype", host.List({plan, Named("pa", L"Plan A")}));
        BindToPlanType(plan);
    }
    void NoScripts() { host.Query().result = host.List({}); }
    void FailingScripts() { host.Query().resultStatus = E_FAIL; }
    void BothTypes() { action->Set(L"m_pPlanType", assembly); }
    void NoScriptStored() { action->Set(L"m_pScript", L""); }
    void NeitherType() { action->Set(L"m_pType", L""); }
    void NothingStored() { action = host.Object("action"); }

    static ActionEvent Row(DialogEvent event, void (ActionEvents::*given)() = nullptr)
    {
        return {std::move(event), given};
    }

    // A row that leaves the dialog open, with everything enabled and the radio button and the check box as
    // the record has them.
    static ActionEvent Leaves(const char* name, Steps before, DialogStep event, std::wstring shown,
                              Calls written = {}, void (ActionEvents::*given)() = nullptr)
    {
        return Row(Stays(name, std::move(before), std::move(event), kControls, {kBefore, kEnabled},
                         std::move(shown), std::move(written)),
                   given);
    }
    static ActionEvent Ends(const char* name, Steps before, DialogStep event, std::string result,
                            Calls written = {}, void (ActionEvents::*given)() = nullptr)
    {
        return Row(EndsWith(name, std::move(before), std::move(event), std::move(result), std::move(written)),
                   given);
    }

    static inline const std::vector<int> kControls = {kName,   kSequence, kActionType, kScript,     kAfter,
                                                      kBefore, kEnabled,  kPlanType,   kConfigType, IDOK};

protected:
    /// The entries of the plan types, the configured types and the scripts, the selected ones in brackets.
    static std::wstring Lists(const DialogView& view)
    {
        return Entries(view, kPlanType) + L"/" + Entries(view, kConfigType) + L"/" + Entries(view, kScript);
    }

private:
    static std::wstring Entries(const DialogView& view, int combo)
    {
        std::wstring text;
        int index = 0;
        for (const std::wstring& item : view.Items(combo))
        {
            const bool chosen = view.Selected(combo) == index;
            text += (index++ == 0 ? L"" : L",") + (chosen ? L"[" + item + L"]" : item);
        }
        return text;
    }
};

TEST_P(ActionEvents, LeaveThis)
{
    if (GetParam().given)
        (this->*GetParam().given)();
    ExpectBoxes(GetParam().written);
    const EventTable table{.controls = kControls,
                           .buttons = {kAfter, kBefore, kEnabled},
                           .selection = &ActionEvents::Lists,
                           .record = host.calls,
                           .show =
                               [this](Steps steps) {
                                   std::ostringstream status;
                                   status << Show(std::move(steps));
                                   return status.str();
                               },
                           .leave = {Presses(IDCANCEL)},
                           .left = "1"};
    table.Run(GetParam());
}

using E = ActionEvents;

INSTANTIATE_TEST_SUITE_P(
    ConfigTypes, ActionEvents,
    ::testing::Values(
        E::Leaves("Drop", {}, Drops(E::kConfigTypeBox), L"/[cell],line,scriptaction/[Drill]", kTypesRead),
        E::Leaves("DropAgain", {Drops(E::kConfigTypeBox), Drops(E::kScriptBox)}, Drops(E::kConfigTypeBox),
                  L"/[cell],line,scriptaction/[Drill],Weld"),
        E::Leaves("DropOfARecordOfAPlanType", {}, Drops(E::kConfigTypeBox),
                  L"Assembly/cell,line,scriptaction/[Drill]", kTypesRead, &E::OfAPlanType),
        E::Leaves("DropAfterAPlanType", {Drops(E::kConfigTypeBox), Chooses(E::kPlanTypeBox, L"Milling")},
                  Drops(E::kConfigTypeBox), L"Assembly,Milling/cell,line,scriptaction/[Drill]"),
        E::Leaves("DropInAnotherCase", {}, Drops(E::kConfigTypeBox), L"/cell,[line],scriptaction/[Drill]",
                  kTypesRead, &E::AnotherCase),
        E::Leaves("DropOfAnUnknownType", {}, Drops(E::kConfigTypeBox), L"/cell,line,scriptaction/[Drill]",
                  kTypesRead, &E::UnknownType),
        E::Leaves("DropOfAnEmptyList", {}, Drops(E::kConfigTypeBox), L"//[Drill]",
                  {"GetTypeEnum(null)", "types.RemNext(25)", "plan.Get(isplantype)",
                   "scriptaction.Get(isplantype)"},
                  &E::NoUsualType),
        E::Leaves("DropOfAnEmptyListAgain", {Drops(E::kConfigTypeBox), Drops(E::kScriptBox)},
                  Drops(E::kConfigTypeBox), L"//[Drill],Weld",
                  {"GetTypeEnum(null)", "types.RemNext(25)", "plan.Get(isplantype)",
                   "scriptaction.Get(isplantype)"},
                  &E::NoUsualType),
        E::Leaves("DropOfAFailingList", {}, Drops(E::kConfigTypeBox), L"//[Drill]", {"GetTypeEnum(null)"},
                  &E::FailingTypes),
        E::Leaves("Choose", {Drops(E::kConfigTypeBox)}, Chooses(E::kConfigTypeBox, L"line"),
                  L"/cell,[line],scriptaction/[Drill]")),
    NameOfEvent<::testing::TestParamInfo<ActionEvent>>);

INSTANTIATE_TEST_SUITE_P(
    PlanTypes, ActionEvents,
    ::testing::Values(E::Leaves("Drop", {}, Drops(E::kPlanTypeBox), L"[Assembly],Milling//[Drill]",
                                kPlanTypesRead, &E::OfAPlanType),
                      E::Leaves("DropAgain", {Drops(E::kPlanTypeBox), Drops(E::kScriptBox)},
                                Drops(E::kPlanTypeBox), L"[Assembly],Milling//[Drill],Weld", {},
                                &E::OfAPlanType),
                      E::Leaves("DropOfARecordOfAType", {}, Drops(E::kPlanTypeBox),
                                L"Assembly,Milling/cell/[Drill]", kPlanTypesRead),
                      E::Leaves("DropOfARecordOfBoth", {}, Drops(E::kPlanTypeBox),
                                L"Assembly,Milling/cell/[Drill]", kPlanTypesRead, &E::BothTypes),
                      E::Leaves("DropAfterAType",
                                {Drops(E::kPlanTypeBox), Chooses(E::kConfigTypeBox, L"line")},
                                Drops(E::kPlanTypeBox), L"Assembly,Milling/cell,line,scriptaction/[Drill]"),
                      E::Leaves("DropOfAPrefix", {}, Drops(E::kPlanTypeBox), L"Plan,[Plan A]//[Drill]",
                                {"bare.GetChildren(orvoplantype)", "RemNext(25)", "p.GetAttribute(name)",
                                 "pa.GetAttribute(name)"},
                                &E::PlanAndPlanA),
                      E::Leaves("DropOfAnEmptyList", {}, Drops(E::kPlanTypeBox), L"//[Drill]",
                                {"bare.GetChildren(orvoplantype)", "RemNext(25)"}, &E::NoPlanTypes),
                      E::Leaves("DropOfAnEmptyListAgain", {Drops(E::kPlanTypeBox), Drops(E::kScriptBox)},
                                Drops(E::kPlanTypeBox), L"//[Drill],Weld",
                                {"bare.GetChildren(orvoplantype)", "RemNext(25)"}, &E::NoPlanTypes),
                      E::Leaves("DropOfAFailingList", {}, Drops(E::kPlanTypeBox), L"//[Drill]",
                                {"bare.GetChildren(orvoplantype)"}, &E::FailingPlanTypes),
                      E::Leaves("Choose", {Drops(E::kPlanTypeBox)}, Chooses(E::kPlanTypeBox, L"Milling"),
                                L"Assembly,[Milling]/cell/[Drill]")),
    NameOfEvent<::testing::TestParamInfo<ActionEvent>>);

INSTANTIATE_TEST_SUITE_P(
    Scripts, ActionEvents,
    ::testing::Values(E::Leaves("Drop", {}, Drops(E::kScriptBox), L"/[cell]/[Drill],Weld", kScriptsRead),
                      E::Leaves("DropAgain", {Drops(E::kScriptBox), Drops(E::kConfigTypeBox)},
                                Drops(E::kScriptBox), L"/[cell],line,scriptaction/[Drill],Weld"),
                      E::Leaves("DropWithoutAStoredOne", {}, Drops(E::kScriptBox), L"/[cell]/Drill,Weld",
                                kScriptsRead, &E::NoScriptStored),
                      E::Leaves("DropOfAnEmptyList", {}, Drops(E::kScriptBox), L"/[cell]/",
                                kSearch + Calls{"RemNext(25)"}, &E::NoScripts),
                      E::Leaves("DropOfAnEmptyListAgain", {Drops(E::kScriptBox), Drops(E::kConfigTypeBox)},
                                Drops(E::kScriptBox), L"/[cell],line,scriptaction/",
                                kSearch + Calls{"RemNext(25)"}, &E::NoScripts),
                      E::Leaves("DropOfAFailingList", {}, Drops(E::kScriptBox), L"/[cell]/", kSearch,
                                &E::FailingScripts),
                      E::Leaves("Close", {Drops(E::kScriptBox)}, Types("Escape"), L"/[cell]/[Drill],Weld"),
                      E::Leaves("Choose", {Drops(E::kScriptBox)}, Chooses(E::kScriptBox, L"Weld"),
                                L"/[cell]/Drill,[Weld]")),
    NameOfEvent<::testing::TestParamInfo<ActionEvent>>);

const std::string kSaved = "action.SetAttributes(m_name = BSTR 'Deburr', m_prompt = BSTR 'Ask first', "
                           "m_pScript = UNKNOWN drill, m_pType = BSTR 'cell', m_pPlanType = EMPTY, "
                           "m_actionType = I4 2, m_beforeAfter = I4 1, m_iSequence = I4 30, "
                           "m_bEnabled = I4 1)";
const std::string kSavedMilling = "action.SetAttributes(m_name = BSTR 'Deburr', m_prompt = BSTR 'Ask first', "
                                  "m_pScript = UNKNOWN weld, m_pType = BSTR '', m_pPlanType = UNKNOWN "
                                  "milling, m_actionType = I4 1, m_beforeAfter = I4 0, m_iSequence = I4 7, "
                                  "m_bEnabled = I4 0)";

INSTANTIATE_TEST_SUITE_P(
    Ok, ActionEvents,
    ::testing::Values(
        E::Ends("AtOnce", {}, Presses(IDOK), "0", {kSaved}),
        E::Ends("ByEnter", {}, Types("Return"), "0", {kSaved}),
        E::Ends("AfterChanges",
                {Chooses(E::kPlanTypeBox, L"Milling"), Chooses(E::kScriptBox, L"Weld"),
                 Chooses(E::kTypeBox, L"Open"), Checks(E::kAfterRadio), Unchecks(E::kEnabledBox),
                 Enters(E::kSequenceEdit, L"7")},
                Presses(IDOK), "0", {kSavedMilling}),
        E::Leaves("WithoutAType", {Drops(E::kPlanTypeBox)}, Presses(IDOK), L"Assembly,Milling/cell/[Drill]",
                  {kTypeWarning}),
        E::Leaves("WithoutAPlanType", {Drops(E::kConfigTypeBox)}, Presses(IDOK),
                  L"Assembly/cell,line,scriptaction/[Drill]", {kTypeWarning}, &E::OfAPlanType),
        E::Leaves("WithNeitherType", {}, Presses(IDOK), L"//[Drill]", {kTypeWarning}, &E::NeitherType),
        E::Leaves("WithoutAScript", {}, Presses(IDOK), L"/[cell]/", {kScriptWarning}, &E::NoScriptStored),
        E::Leaves("WithoutAScriptInTheList", {Drops(E::kScriptBox)}, Presses(IDOK), L"/[cell]/",
                  {kScriptWarning}, &E::NoScripts),
        E::Row(Stays("WithNothing", {}, Presses(IDOK), E::kControls, {E::kAfterRadio}, L"//", {kTypeWarning}),
               &E::NothingStored),
        E::Ends("AfterAWarning", {Drops(E::kPlanTypeBox), Chooses(E::kConfigTypeBox, L"cell")}, Presses(IDOK),
                "0", {kSaved})),
    NameOfEvent<::testing::TestParamInfo<ActionEvent>>);

INSTANTIATE_TEST_SUITE_P(
    End, ActionEvents,
    ::testing::Values(E::Ends("Cancel", {Enters(E::kNameEdit, L"x")}, Presses(IDCANCEL), "1"),
                      E::Ends("Escape", {Enters(E::kNameEdit, L"x")}, Types("Escape"), "1"),
                      E::Ends("CloseBox", {Enters(E::kNameEdit, L"x")}, Closes(), "1"),
                      E::Leaves("EscapeOfAList", {Drops(E::kConfigTypeBox)}, Types("Escape"),
                                L"/[cell],line,scriptaction/[Drill]"),
                      E::Leaves("EnterOfAList", {Drops(E::kConfigTypeBox)}, Types("Return"),
                                L"/[cell],line,scriptaction/[Drill]")),
    NameOfEvent<::testing::TestParamInfo<ActionEvent>>);

INSTANTIATE_TEST_SUITE_P(
    Others, ActionEvents,
    ::testing::Values(E::Leaves("Name", {}, Enters(E::kNameEdit, L"New"), L"/[cell]/[Drill]"),
                      E::Leaves("Sequence", {}, Enters(E::kSequenceEdit, L"5"), L"/[cell]/[Drill]"),
                      E::Leaves("ActionType", {}, Chooses(E::kTypeBox, L"Open"), L"/[cell]/[Drill]"),
                      E::Row(Stays("After", {}, Checks(E::kAfterRadio), E::kControls,
                                   {E::kAfterRadio, E::kEnabledBox}, L"/[cell]/[Drill]")),
                      E::Row(Stays("Disabled", {}, Unchecks(E::kEnabledBox), E::kControls, {E::kBeforeRadio},
                                   L"/[cell]/[Drill]"))),
    NameOfEvent<::testing::TestParamInfo<ActionEvent>>);
} // namespace
