// The drop-downs of the property dialog of a script command: when a list is read again, and what is selected
// in it. How the lists are read is what the dialog of a script action tests.
#include "CommandFixture.h"

#include <algorithm>

namespace
{
using namespace command_dialog;

class CommandLists : public CommandFixture
{
protected:
    /// Removes what was read of the host before.
    DialogStep Forgets()
    {
        return [this](DialogView&) {
            host.calls.clear();
        };
    }
    DialogStep SeesCalls(const Calls& calls)
    {
        return [this, calls](DialogView&) {
            EXPECT_EQ(host.calls, calls);
        };
    }
    void PlanTypes(const std::vector<ComPtr<MemoryObject>>& objects)
    {
        planTypes = host.Object("set");
        planTypes->Children(L"orvoplantype", host.List(objects));
    }
};

// The lists of types are read again unless they show all that was read.

TEST_F(CommandLists, TheOneTypeThatWasReadIsShownAlready)
{
    auto& types = host.Config().types.objects;
    types.erase(types.begin() + 1, types.end());
    host.Config().Type(L"scriptcommand", true);
    Show({Sees(Offers(kConfigType, {L"cell"})), Forgets(), Drops(kConfigType), SeesCalls({}),
          Sees(Chosen(kConfigType, L"cell")), Presses(IDCANCEL)});
}

TEST_F(CommandLists, TypesThatWereReadForThePlaceAreReadAgain)
{
    Show({Forgets(), Drops(kConfigType), SeesCalls(kReadTypes), Types("Escape"), Forgets(),
          Drops(kConfigType), SeesCalls({}), Presses(IDCANCEL)});
}

TEST_F(CommandLists, TypesThatAreGoneStayUntilTheDialogEnds)
{
    const Steps steps = {[this](DialogView&) {
                             auto& types = host.Config().types.objects;
                             types.erase(types.begin() + 1);
                         },
                         Drops(kConfigType), Sees(Offers(kConfigType, {L"cell", L"line", L"scriptcommand"})),
                         Presses(IDCANCEL)};
    Show(steps);
    Show({Drops(kConfigType), Sees(Offers(kConfigType, {L"cell", L"scriptcommand"})), Presses(IDCANCEL)});
}

TEST_F(CommandLists, TypesAreReadAgainWhileThereAreNone)
{
    host.Config().types.status = E_FAIL;
    Show({Drops(kConfigType), Sees(Offers(kConfigType, {})), Types("Escape"),
          [this](DialogView&) { host.Config().types.status = S_OK; }, Drops(kConfigType),
          Sees(Offers(kConfigType, {L"cell", L"line", L"scriptcommand"})), Presses(IDCANCEL)});
}

TEST_F(CommandLists, OnePlanTypeIsReadOnce)
{
    BindToPlanType();
    PlanTypes({milling});
    Show({Forgets(), Drops(kPlanType),
          SeesCalls({"set.GetChildren(orvoplantype)", "RemNext(25)", "milling.GetAttribute(name)"}),
          Types("Escape"), Forgets(), Drops(kPlanType), SeesCalls({}), Presses(IDCANCEL)});
}

TEST_F(CommandLists, PlanTypesAreReadAgainWhileThereAreNone)
{
    PlanTypes({});
    const Calls reading = {"set.GetChildren(orvoplantype)", "RemNext(25)"};
    Show({Forgets(), Drops(kPlanType), SeesCalls(reading), Types("Escape"), Forgets(), Drops(kPlanType),
          SeesCalls(reading), Presses(IDCANCEL)});
}

/// Scripts are read again only while there are none, however many the box shows.
TEST_F(CommandLists, ScriptsAreReadAgainWhileThereAreNone)
{
    host.Query().result = host.List({});
    Show({Drops(kScript), Sees(Offers(kScript, {})), Types("Escape"),
          [this](DialogView&) { host.Query().result = host.List({weld}); }, Drops(kScript),
          Sees(Offers(kScript, {L"Weld"})), Types("Escape"),
          [this](DialogView&) {
              host.Query().result = host.List({drill, weld});
          },
          Forgets(), Drops(kScript), SeesCalls({}), Sees(Offers(kScript, {L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(CommandLists, ScriptsOfOneNameAreTheLast)
{
    drill->Set(L"name", L"Weld");
    host.Query().result = host.List({weld, drill});
    EXPECT_EQ(Show({Drops(kScript), Sees(Offers(kScript, {L"Weld"})), Sees(NoneChosen(kScript)),
                    Chooses(kScript, L"Weld"), Presses(IDOK)}),
              S_OK);
    EXPECT_EQ(Written(), Write());
}

TEST_F(CommandLists, ScriptsOfNoProjectAreThoseWithoutOne)
{
    owner = {};
    Show({Forgets(), Drops(kScript), Presses(IDCANCEL)});
    EXPECT_EQ(host.calls, (Calls{"ResetSearch(0)", "SetSearchTable(script)",
                                 "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)", "GetSearchResult()",
                                 "RemNext(25)", "drill.GetAttribute(name)", "weld.GetAttribute(name)"}));
}

// What is selected: what was, by its beginning, searched for behind the first entry.

TEST_F(CommandLists, SelectWhatWasSelected)
{
    Show({Drops(kScript), Sees(Chosen(kScript, L"Drill")), Types("Escape"), Drops(kConfigType),
          Sees(Chosen(kConfigType, L"cell")), Presses(IDCANCEL)});
}

TEST_F(CommandLists, SelectALongerNameThatFollowsTheFirst)
{
    weld->Set(L"name", L"Drill holes");
    EXPECT_EQ(Show({Drops(kScript), Sees(Chosen(kScript, L"Drill holes")), Types("Escape"), Presses(IDOK)}),
              S_OK);
    EXPECT_EQ(Written(), Write({{"m_pScript", "UNKNOWN weld"}}));
}

TEST_F(CommandLists, SelectInAnyCase)
{
    drill->Set(L"m_name", L"DRILL");
    Show({Drops(kScript), Sees(Chosen(kScript, L"Drill")), Presses(IDCANCEL)});
}

TEST_F(CommandLists, SelectNothingIfNothingBeginsLikeThat)
{
    command->Set(L"m_strType", L"nothing");
    ExpectWarning(kNoType);
    Show({Drops(kConfigType), Sees(NoneChosen(kConfigType)), Types("Escape"), Presses(IDOK),
          Presses(IDCANCEL)});
}

TEST_F(CommandLists, SelectNothingInPlaceOfNothing)
{
    Show({Drops(kPlanType), Sees(NoneChosen(kPlanType)), Types("Escape"), Drops(kConfigType),
          Sees(NoneChosen(kConfigType)), Presses(IDCANCEL)});
}

TEST_F(CommandLists, ShowTheWaitCursorWhileTheyAreRead)
{
    const HCURSOR waiting = LoadCursorW(nullptr, IDC_WAIT);
    Calls waited;
    host.onCall = [&](const std::string& call) {
        if (GetCursor() == waiting)
            waited.push_back(call);
        if (call == "SetSearchTable(vbaproject)")
            host.Query().result = host.List({});
    };
    Show({Drops(kScript), Drops(kMacro), Drops(kConfigType), Drops(kPlanType),
          [&](DialogView&) { EXPECT_NE(GetCursor(), waiting); }, Presses(IDCANCEL)});
    host.onCall = nullptr;
    EXPECT_EQ(waited, kReadScripts + Searching("vbaproject") + kReadTypes + kReadPlanTypes);
}
} // namespace
