// What OK of the property dialog of a script command writes.
#include "CommandFixture.h"

namespace
{
using namespace command_dialog;

class CommandSaves : public CommandFixture
{
protected:
    /// The steps, and OK, which writes the record with these changes.
    void ExpectSaved(const Steps& steps, const Changes& changes)
    {
        EXPECT_EQ(Show(steps + Steps{Presses(IDOK)}), S_OK);
        EXPECT_EQ(Written(), Write(changes));
    }
    void Place(int type, const wchar_t* id)
    {
        command->Set(L"customizationobjecttype", type)->Set(L"customizationobjectid", id);
    }
};

TEST_F(CommandSaves, ElevenValuesByOneCall)
{
    ExpectSaved({Enters(kName, L"Grind"), Enters(kPrompt, L"Grind it"), Unchecks(kVisible),
                 Unchecks(kContextMenu), Chooses(kExecution, kEach), Chooses(kScript, L"Weld"),
                 Chooses(kConfigType, L"line"), Unchecks(kProperties)},
                {{"m_name", "BSTR 'Grind'"},
                 {"m_strPrompt", "BSTR 'Grind it'"},
                 {"m_pScript", "UNKNOWN weld"},
                 {"m_strType", "BSTR 'line'"},
                 {"m_bVisible", "I4 0"},
                 {"m_lUserInterfaceType", "I4 0"},
                 {"m_nameShort", "BSTR '1'"},
                 {"customizationobjectid", "BSTR ''"},
                 {"customizationobjecttype", "I4 -1"}});
    EXPECT_EQ(host.calls.back(), Written()) << "nothing is saved besides";
}

TEST_F(CommandSaves, AnEmptyNameAndPrompt)
{
    ExpectSaved({Enters(kName, L""), Enters(kPrompt, L"")},
                {{"m_name", "BSTR ''"}, {"m_strPrompt", "BSTR ''"}});
}

TEST_F(CommandSaves, BothScriptAndMacroUntilAListIsOpened)
{
    command->Set(L"m_strVBAMacroName", L"Weld");
    ExpectSaved({}, {{"m_strVBAMacroName", "BSTR 'Weld'"}});
    ExpectSaved({Drops(kScript), Types("Escape")}, {});
}

TEST_F(CommandSaves, AMacroWithoutAScript)
{
    RunMacro();
    ExpectSaved({}, {{"m_pScript", "EMPTY"}, {"m_strVBAMacroName", "BSTR 'Weld'"}});
}

// Script and plan type: what is chosen from a list; what was stored, if it is not in the list; none.

TEST_F(CommandSaves, TheScriptOfTheListUnderTheStoredName)
{
    weld->Set(L"name", L"Drill");
    drill->Set(L"name", L"Other");
    ExpectSaved({}, {});
    ExpectSaved({Drops(kScript), Sees(Chosen(kScript, L"Drill")), Types("Escape")},
                {{"m_pScript", "UNKNOWN weld"}});
}

TEST_F(CommandSaves, NoScriptIfTheStoredOneIsNotListed)
{
    drill->Set(L"m_name", L"Old name");
    ExpectWarning(kNoScript);
    Show({Drops(kScript), Sees(NoneChosen(kScript)), Types("Escape"), Presses(IDOK), Presses(IDCANCEL)});
}

TEST_F(CommandSaves, AStoredPlanTypeUnchanged)
{
    BindToPlanType();
    const Changes bound = {
        {"m_strType", "BSTR ''"}, {"m_pPlanType", "UNKNOWN milling"}, {"customizationobjectid", "BSTR '7'"}};
    ExpectSaved({}, bound);
    ExpectSaved({Drops(kPlanType), Types("Escape"), Unchecks(kProperties)},
                {{"m_strType", "BSTR ''"},
                 {"m_pPlanType", "UNKNOWN milling"},
                 {"m_lUserInterfaceType", "I4 1"},
                 {"customizationobjectid", "BSTR ''"},
                 {"customizationobjecttype", "I4 -1"}});
}

TEST_F(CommandSaves, AnotherPlanType)
{
    BindToPlanType();
    Changes changes = NotPlaced();
    changes.insert({{"m_strType", "BSTR ''"}, {"m_pPlanType", "UNKNOWN assembly"}});
    ExpectSaved({Chooses(kPlanType, L"Assembly"), Unchecks(kProperties)}, changes);
}

TEST_F(CommandSaves, ATypeInPlaceOfAPlanType)
{
    BindToPlanType();
    ExpectSaved({Chooses(kConfigType, L"cell"), Unchecks(kProperties)}, NotPlaced());
}

TEST_F(CommandSaves, NoPlanTypeThatTheMarkDoesNotShow)
{
    command->Set(L"m_pPlanType", milling);
    Place(0, L"7");
    ExpectSaved({}, {{"customizationobjectid", "BSTR '7'"}});
    EXPECT_EQ(command->ValueText(L"m_pPlanType"), "EMPTY");
}

TEST_F(CommandSaves, ATypeThatTheHostDoesNotKnow)
{
    command->Set(L"m_strType", L"foreign type");
    ExpectWarning(kNoElement);
    ExpectSaved({Presses(IDOK), Unchecks(kProperties)}, [] {
        Changes changes = NotPlaced();
        changes["m_strType"] = "BSTR 'foreign type'";
        return changes;
    }());
}

TEST_F(CommandSaves, AnEmptyEntryThatIsChosenAsNone)
{
    weld->Set(L"name", L"");
    ExpectSaved({Chooses(kScript, L"")}, {{"m_pScript", "EMPTY"}});
}

// The place.

TEST_F(CommandSaves, APage)
{
    ExpectSaved({Chooses(kElement, L"General")}, {{"customizationobjectid", "BSTR '1'"}});
}

TEST_F(CommandSaves, AGroup)
{
    ExpectSaved({Checks(kGroup), Chooses(kElement, L"Limits")},
                {{"customizationobjectid", "BSTR '102'"}, {"customizationobjecttype", "I4 1"}});
}

TEST_F(CommandSaves, AnAttributeByItsOtherName)
{
    cell->Attribute(L"length")->Set(L"attributename", L"Length of the cell");
    ExpectSaved({Checks(kAttribute), Chooses(kElement, L"Length of the cell")},
                {{"customizationobjectid", "BSTR 'length'"}, {"customizationobjecttype", "I4 2"}});
}

TEST_F(CommandSaves, ANumberOfAPageInDecimals)
{
    cell->Page(L"Text", 0)->Set(6, L"0044");
    cell->Page(L"Minus", -5);
    ExpectSaved({Chooses(kElement, L"Text")}, {{"customizationobjectid", "BSTR '44'"}});
    ExpectSaved({Chooses(kElement, L"Minus")}, {{"customizationobjectid", "BSTR '-5'"}});
}

TEST_F(CommandSaves, TheLastOfPagesWithOneName)
{
    cell->Page(L"Costs", 4);
    ExpectSaved({Chooses(kElement, L"Costs")}, {{"customizationobjectid", "BSTR '4'"}});
}

TEST_F(CommandSaves, TheOldIdentifierOfATypedName)
{
    ExpectSaved({Drops(kElement), Types("Escape"), Enters(kElement, L"no page")}, {});
    ExpectSaved({Checks(kGroup), Enters(kElement, L"no group")}, {{"customizationobjecttype", "I4 1"}});
    ExpectSaved({Checks(kAttribute), Enters(kElement, L"Weight")}, {{"customizationobjecttype", "I4 2"}});
}

TEST_F(CommandSaves, ThePageOfATypedName)
{
    ExpectSaved({Drops(kElement), Types("Escape"), Enters(kElement, L"General")},
                {{"customizationobjectid", "BSTR '1'"}});
}

/// Typed under a kind whose list was never read.
TEST_F(CommandSaves, TheOldIdentifierOfAListThatWasNotOpened)
{
    ExpectSaved({Checks(kGroup), Enters(kElement, L"Usage")}, {{"customizationobjecttype", "I4 1"}});
}

/// Each drop-down reads the list anew.
TEST_F(CommandSaves, TheOldIdentifierOfAnElementThatIsGone)
{
    const auto goneFrom = [](auto& list) {
        return [&list](DialogView&) {
            list.objects.erase(list.objects.begin());
        };
    };
    ExpectSaved({Drops(kElement), Types("Escape"), goneFrom(cell->pages), Drops(kElement), Types("Escape"),
                 Enters(kElement, L"General")},
                {});
    ExpectSaved({Checks(kGroup), Drops(kElement), Types("Escape"), goneFrom(cell->groups), Drops(kElement),
                 Types("Escape"), Enters(kElement, L"Usage")},
                {{"customizationobjecttype", "I4 1"}});
    ExpectSaved({Checks(kAttribute), Drops(kElement), Types("Escape"), goneFrom(cell->attributes),
                 Drops(kElement), Types("Escape"), Enters(kElement, L"weight")},
                {{"customizationobjecttype", "I4 2"}});
}

/// What was read of a kind stays, also while others are shown.
TEST_F(CommandSaves, ANameOfAListThatWasReadBefore)
{
    ExpectSaved(
        {Checks(kGroup), Drops(kElement), Types("Escape"), Checks(kPage), Enters(kElement, L"General")},
        {{"customizationobjectid", "BSTR '1'"}});
}

TEST_F(CommandSaves, TheOldIdentifierIfTheNewOneCannotBeRead)
{
    auto* const page = cell->pages.objects.front().get();
    page->Fail(6, E_FAIL);
    ExpectSaved({Chooses(kElement, L"General")}, {});
    page->Set(6, L"no number");
    ExpectSaved({Chooses(kElement, L"General")}, {});
}

TEST_F(CommandSaves, NoKindIfNoneIsChecked)
{
    Place(7, L"2");
    ExpectSaved({}, {{"customizationobjecttype", "I4 7"}});
}

TEST_F(CommandSaves, NoPlaceOfACommandThatIsNotInProperties)
{
    ExpectSaved({Unchecks(kProperties)}, NotPlaced());
    // What was written is read again: no radio button is checked.
    Show({Sees(Unchecked(kProperties)), Sees(Unchecked(kPage)), Sees(Unchecked(kGroup)),
          Sees(Unchecked(kAttribute)), Sees(Offers(kElement, {})), Presses(IDCANCEL)});
}

TEST_F(CommandSaves, ANewCommandInPropertiesOnlyWithAnElement)
{
    command->Set(L"m_lUserInterfaceType", 1);
    Place(0, L"");
    ExpectWarning(kNoElement);
    ExpectSaved({Checks(kProperties), Presses(IDOK), Chooses(kElement, L"Costs")}, {});
}

TEST_F(CommandSaves, AnotherTypeOnlyWithAnElementOfIt)
{
    line->Page(L"Stations", 11);
    ExpectWarning(kNoElement);
    ExpectSaved({Chooses(kConfigType, L"line"), Presses(IDOK), Chooses(kElement, L"Stations")},
                {{"m_strType", "BSTR 'line'"}, {"customizationobjectid", "BSTR '11'"}});
}

TEST_F(CommandSaves, NoPlaceThatMatchesNothing)
{
    Place(0, L"99");
    ExpectWarning(kNoElement);
    EXPECT_EQ(Show({Presses(IDOK), Presses(IDCANCEL)}), S_FALSE);
}

// A write that fails is not shown.

TEST_F(CommandSaves, RefusedAttributesWithoutAWord)
{
    command->RefuseWrite(L"m_name", E_ACCESSDENIED)->RefuseWrite(L"m_pScript", E_FAIL);
    EXPECT_EQ(Show({Enters(kName, L"Grind"), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_name", "BSTR 'Grind'"}}));
    EXPECT_EQ(command->ValueText(L"m_name"), "BSTR 'Deburr'");
}

TEST_F(CommandSaves, AFailedWriteWithoutAWord)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        command->writeStatus = status;
        ExpectSaved({}, {});
    }
    EXPECT_EQ(logBook.Entries(), Entries{});
}
} // namespace
