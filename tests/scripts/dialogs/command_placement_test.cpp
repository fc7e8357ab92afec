// How the property dialog of a script command shows the stored place of the command on the properties sheet,
// and whose pages, groups and attributes it lists.
#include "CommandFixture.h"

namespace
{
using namespace command_dialog;

class CommandPlacement : public CommandFixture
{
protected:
    void Place(int type, const wchar_t* id)
    {
        command->Set(L"customizationobjecttype", type)->Set(L"customizationobjectid", id);
    }

    /// Shows the dialog, which has this radio button checked and this element chosen.
    void ShowPlaced(int radio, const wchar_t* element)
    {
        Show({Sees(Checked(radio)), Sees(Chosen(kElement, element)), Presses(IDCANCEL)});
    }

    /// The elements of the fixture that each kind lists for the type "cell", at a drop-down.
    Steps ListsPages() const { return {Drops(kElement), Sees(Offers(kElement, {L"Costs", L"General"}))}; }
};

// Restoring.

TEST_F(CommandPlacement, OfAPageIsFoundByItsNumber)
{
    Place(0, L"1");
    ShowPlaced(kPage, L"General");
}

TEST_F(CommandPlacement, OfAGroupIsFoundByItsNumber)
{
    Place(1, L"101");
    ShowPlaced(kGroup, L"Usage");
}

/// The list shows another name than the one that identifies the attribute and is shown when that is restored.
TEST_F(CommandPlacement, OfAnAttributeIsFoundByItsOtherName)
{
    cell->Attribute(L"length")->Set(L"attributename", L"Length of the cell");
    Place(2, L"length");
    Show({Sees(Checked(kAttribute)), Sees(Offers(kElement, {L"length", L"Length of the cell", L"weight"})),
          Sees(Chosen(kElement, L"length")), Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, IsASecondEntryUntilTheListIsOpened)
{
    Show(Steps{Sees(Offers(kElement, {L"Costs", L"Costs", L"General"})), Sees(Chosen(kElement, L"Costs"))} +
         ListsPages() + Steps{Sees(Shows(kElement, L"")), Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, IsAnEmptyEntryIfNothingMatches)
{
    for (const auto& [type, id] :
         {std::pair(0, L"99"), {0, L""}, {0, L"02"}, {0, L" 2"}, {1, L"2"}, {2, L"Weight"}, {2, L""}})
    {
        Place(type, id);
        Show({Sees(Checked(kPage + type)), Sees(Chosen(kElement, L"")), Sees(Shows(kElement, L"")),
              Presses(IDCANCEL)});
    }
}

TEST_F(CommandPlacement, IsNoneForOtherKinds)
{
    for (const int type : {-1, 3, 7})
    {
        Place(type, L"2");
        Show({Sees(Unchecked(kPage)), Sees(Unchecked(kGroup)), Sees(Unchecked(kAttribute)),
              Sees(Offers(kElement, {})), Sees(Enabled(kElement)), Presses(IDCANCEL)});
    }
}

TEST_F(CommandPlacement, ComparesIdentifiersAsNumbersInDecimals)
{
    cell->Page(L"Text", 0)->Set(6, L"44");
    cell->Page(L"Minus", -5);
    Place(0, L"44");
    ShowPlaced(kPage, L"Text");
    Place(0, L"-5");
    ShowPlaced(kPage, L"Minus");
}

TEST_F(CommandPlacement, TakesAnIdentifierWithASuccessStatus)
{
    cell->Page(L"Text", 0)->Set(6, 44, S_FALSE);
    Place(0, L"44");
    ShowPlaced(kPage, L"Text");
}

TEST_F(CommandPlacement, SkipsIdentifiersThatAreNoNumber)
{
    cell->Page(L"Broken", 0)->Set(6, L"forty");
    cell->Page(L"Unreadable", 0)->Fail(6, E_FAIL);
    for (const wchar_t* id : {L"forty", L"0", L""})
    {
        Place(0, id);
        ShowPlaced(kPage, L"");
    }
}

TEST_F(CommandPlacement, IsTheLastOfEqualNamesAlone)
{
    cell->Page(L"Costs", 4);
    Place(0, L"2");
    ShowPlaced(kPage, L"");
    Place(0, L"4");
    ShowPlaced(kPage, L"Costs");
}

TEST_F(CommandPlacement, IsTheFirstNameOfEqualNumbers)
{
    cell->Page(L"Accounts", 2);
    ShowPlaced(kPage, L"Accounts");
}

TEST_F(CommandPlacement, GoesOnIfTheNameOfTheMatchIsGone)
{
    cell->Page(L"Accounts", 2);
    // It can be read when it is listed, and not again.
    host.onCall = [this](const std::string& call) {
        if (call == "cell/Accounts.GetProperty(6)")
            cell->pages.objects.back()->Fail(0, E_FAIL);
    };
    ShowPlaced(kPage, L"Costs");
    host.onCall = nullptr;
}

// The type at opening.

TEST_F(CommandPlacement, IsOfThePlanTypeAlsoWithoutTheMark)
{
    command->Set(L"m_pPlanType", milling);
    Place(0, L"7");
    Show({Sees(Chosen(kConfigType, L"cell")), Sees(NoneChosen(kPlanType)),
          Sees(Offers(kElement, {L"Planning", L"Planning"})), Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, FallsBackToNoTypeOfAPlanTypeWithout)
{
    command->Set(L"m_pPlanType", milling);
    const Steps look = {Sees(Chosen(kConfigType, L"cell")), Sees(Checked(kPage)), Sees(Offers(kElement, {})),
                        Presses(IDCANCEL)};
    milling->Fail(L"configtypename", E_FAIL);
    Show(look);
    milling->Set(L"configtypename", weld);
    Show(look);
    milling->Set(L"configtypename", L"nothing");
    Show(look);
}

TEST_F(CommandPlacement, IsOfTheTypeWhateverItsStatus)
{
    BindToPlanType();
    host.Config().typeStatus = E_FAIL;
    ShowPlaced(kPage, L"Planning");
}

TEST_F(CommandPlacement, ReadsATypeNameThatIsANumber)
{
    BindToPlanType();
    milling->Set(L"configtypename", 17);
    Show({Sees(Offers(kElement, {})), Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({"drill.GetAttribute(m_name)", "milling.GetAttribute(m_name)"},
                         {"milling.GetAttribute(configtypename)", "GetType(17, null)"}));
}

TEST_F(CommandPlacement, HasNoElementsOfAnUnknownType)
{
    command->Set(L"m_strType", L"nothing");
    Show({Sees(Chosen(kConfigType, L"nothing")), Sees(Checked(kPage)), Sees(Offers(kElement, {})),
          Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({"drill.GetAttribute(m_name)"}, kReadTypes));
}

TEST_F(CommandPlacement, HasNoElementsOfAPlanTypeGivenAsType)
{
    command->Set(L"m_strType", L"plan");
    Show({Sees(Offers(kElement, {})), Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, HasNoElementsWithoutAnyType)
{
    command->Set(L"m_strType", L"");
    Show({Sees(Checked(kPage)), Sees(Offers(kElement, {})), Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({"drill.GetAttribute(m_name)"}, {}));
}

/// Only a list whose last type could be read counts.
TEST_F(CommandPlacement, HasNoElementsIfTheLastTypeCannotBeRead)
{
    MemoryType& last = *host.Config().types.objects.back();
    const Steps look = {Sees(Chosen(kConfigType, L"cell")), Sees(Offers(kElement, {})), Presses(IDCANCEL)};
    last.Fail(L"isplantype", E_FAIL);
    Show(look);
    last.Set(L"isplantype", L"no flag");
    Show(look);
    last.Set(L"isplantype", false)->Fail(L"typename", E_FAIL);
    Show(look);
    last.Set(L"typename", L"scriptcommand", S_FALSE);
    Show(look);
    last.Set(L"typename", L"scriptcommand");
    line->Fail(L"typename", E_FAIL);
    ShowPlaced(kPage, L"Costs");
}

TEST_F(CommandPlacement, HasNoElementsIfTheTypesCannotBeRead)
{
    const Steps look = {Sees(Checked(kPage)), Sees(Offers(kElement, {})), Presses(IDCANCEL)};
    host.Config().types.status = E_FAIL;
    Show(look);
    host.Config().types.status = S_OK;
    host.Config().types.null = true;
    Show(look);
    host.Config().types.null = false;
    host.Config().types.statuses[0] = E_FAIL;
    Show(look);
}

// The type at a drop-down: resolved each time, from what the boxes show.

TEST_F(CommandPlacement, IsOfTheTypeThatIsChosen)
{
    line->Page(L"Stations", 11);
    Show(Steps{Chooses(kConfigType, L"line"), Sees(Offers(kElement, {})), Drops(kElement),
               Sees(Offers(kElement, {L"Stations"})), Chooses(kConfigType, L"cell")} +
         ListsPages() + Steps{Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, IsOfThePlanTypeThatIsChosen)
{
    assembly->Set(L"configtypename", L"line");
    line->Page(L"Stations", 11);
    Show({Chooses(kPlanType, L"Milling"), Drops(kElement), Sees(Offers(kElement, {L"Planning"})),
          Chooses(kPlanType, L"Assembly"), Drops(kElement), Sees(Offers(kElement, {L"Stations"})),
          Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, IsOfTheStoredPlanTypeUntilItsListIsOpened)
{
    BindToPlanType();
    Show({Drops(kElement), Sees(Offers(kElement, {L"Planning"})), Presses(IDCANCEL)});
    EXPECT_EQ(Asked(),
              (Calls{"milling.GetAttribute(configtypename)", "GetType(plan, null)", "plan.GetPageEnum()",
                     "plan pages.GetSingleNext()", "plan/Planning.GetProperty(5)",
                     "plan/Planning.GetProperty(0)", "plan pages.GetSingleNext()"}));
}

TEST_F(CommandPlacement, HasNoElementsOfAChosenPlanTypeWithoutAType)
{
    milling->Fail(L"configtypename", E_FAIL);
    const Steps look = {Chooses(kPlanType, L"Milling"), Drops(kElement), Sees(Offers(kElement, {})),
                        Presses(IDCANCEL)};
    Show(look);
    milling->Set(L"configtypename", weld);
    Show(look);
    milling->Set(L"configtypename", L"nothing");
    Show(look);
}

/// The types are read by their own list alone.
TEST_F(CommandPlacement, HasNoElementsOfATypeWhoseListWasNotRead)
{
    command->Set(L"m_pPlanType", milling);
    Show({Sees(Offers(kElement, {L"", L"Planning"})), Drops(kElement), Sees(Offers(kElement, {})),
          Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, WarnsIfThereIsNoTypeAndListsNothing)
{
    command->Set(L"m_strType", L"");
    ExpectWarning(kNoType);
    Show({Drops(kElement), Sees(Offers(kElement, {})), Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, ListsNothingWithoutAKind)
{
    Place(-1, L"");
    Show({Drops(kElement), Sees(Offers(kElement, {})), Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, ListsTheKindThatIsChecked)
{
    Show(Steps{Checks(kGroup), Sees(Shows(kElement, L"")), Drops(kElement),
               Sees(Offers(kElement, {L"Limits", L"Usage"})), Checks(kAttribute), Drops(kElement),
               Sees(Offers(kElement, {L"weight"})), Checks(kPage)} +
         ListsPages() + Steps{Presses(IDCANCEL)});
}

TEST_F(CommandPlacement, IsShownOfANewCommandWithTheGroupDisabled)
{
    command->Set(L"m_lUserInterfaceType", 1);
    Place(0, L"");
    Show({Sees(Checked(kPage)), Sees(Offers(kElement, {L"", L"Costs", L"General"})),
          Sees(Chosen(kElement, L"")), Sees(Disabled(kElement)), Sees(Disabled(kPage)), Presses(IDCANCEL)});
}
} // namespace
