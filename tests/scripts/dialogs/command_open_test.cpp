// What the property dialog of a script command shows when it opens, and which host calls that takes.
#include "CommandFixture.h"

namespace
{
using namespace command_dialog;

class CommandOpens : public CommandFixture
{
};

TEST_F(CommandOpens, ShowsTheRecord)
{
    EXPECT_EQ(
        Show({Sees(Titled(L"Script Command Properties")), Sees(Shows(kName, L"Deburr")),
              Sees(Shows(kPrompt, L"Deburr now")), Sees(Chosen(kScript, L"Drill")), Sees(NoneChosen(kMacro)),
              Sees(Chosen(kConfigType, L"cell")), Sees(NoneChosen(kPlanType)), Sees(Checked(kVisible)),
              Sees(Checked(kContextMenu)), Sees(Checked(kProperties)), Sees(Chosen(kExecution, kOnce)),
              Sees(Checked(kPage)), Sees(Shows(kElement, L"Costs")), Presses(IDCANCEL)}),
        S_FALSE);
    EXPECT_EQ(Written(), "");
}

TEST_F(CommandOpens, WritesTheRecordBack)
{
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write());
}

TEST_F(CommandOpens, ShowsOneEntryOfEachList)
{
    Show({Sees(Offers(kScript, {L"Drill"})), Sees(Offers(kMacro, {})), Sees(Offers(kConfigType, {L"cell"})),
          Sees(Offers(kPlanType, {})), Sees(Offers(kExecution, {kOnce, kEach})), Presses(IDCANCEL)});
}

TEST_F(CommandOpens, ShowsAPlanTypeAndNoTypeOfAMarkedRecord)
{
    BindToPlanType();
    command->Set(L"m_strType", L"cell");
    Show({Sees(Chosen(kPlanType, L"Milling")), Sees(Offers(kPlanType, {L"Milling"})),
          Sees(Offers(kConfigType, {})), Presses(IDCANCEL)});
}

TEST_F(CommandOpens, ShowsTheTypeAloneWithoutTheMark)
{
    command->Set(L"m_pPlanType", milling);
    Show({Sees(Chosen(kConfigType, L"cell")), Sees(Offers(kPlanType, {})), Presses(IDCANCEL)});
}

TEST_F(CommandOpens, ShowsScriptAndMacroOfARecordWithBoth)
{
    command->Set(L"m_strVBAMacroName", L"Weld");
    Show({Sees(Chosen(kScript, L"Drill")), Sees(Chosen(kMacro, L"Weld")), Presses(IDCANCEL)});
}

TEST_F(CommandOpens, ReadsStoredNamesByAnotherKeyThanLists)
{
    drill->Set(L"m_name", L"Drill (stored)");
    milling->Set(L"m_name", L"Milling (stored)");
    BindToPlanType();
    Show({Sees(Chosen(kScript, L"Drill (stored)")), Sees(Chosen(kPlanType, L"Milling (stored)")),
          Drops(kScript), Sees(Offers(kScript, {L"Drill", L"Weld"})), Drops(kPlanType),
          Sees(Offers(kPlanType, {L"Assembly", L"Milling"})), Presses(IDCANCEL)});
}

TEST_F(CommandOpens, ShowsAPlanTypeWhoseTypeIsUnknown)
{
    BindToPlanType();
    milling->Set(L"configtypename", L"nothing");
    Show({Sees(Chosen(kPlanType, L"Milling")), Sees(Checked(kPage)), Sees(Offers(kElement, {})),
          Presses(IDCANCEL)});
}

// The host calls of a plain open, in full.

TEST_F(CommandOpens, ReadsOnceAndOneListForAPlanType)
{
    BindToPlanType();
    Show({Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({"drill.GetAttribute(m_name)", "milling.GetAttribute(m_name)"},
                         {"milling.GetAttribute(configtypename)", "GetType(plan, null)", "plan.GetPageEnum()",
                          "plan pages.GetSingleNext()", "plan/Planning.GetProperty(5)",
                          "plan/Planning.GetProperty(0)", "plan pages.GetSingleNext()",
                          "plan/Planning.GetProperty(6)", "plan/Planning.GetProperty(0)"}));
}

TEST_F(CommandOpens, ReadsTheTypesAndOneListForAType)
{
    command->Set(L"customizationobjecttype", 1)->Set(L"customizationobjectid", L"102");
    Show({Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({"drill.GetAttribute(m_name)"},
                         kReadTypes + Calls{"cell.GetGroupEnum()", "cell groups.GetSingleNext()",
                                            "cell/Usage.GetProperty(9)", "cell/Usage.GetProperty(0)",
                                            "cell groups.GetSingleNext()", "cell/Limits.GetProperty(9)",
                                            "cell/Limits.GetProperty(0)", "cell groups.GetSingleNext()",
                                            "cell/Limits.GetProperty(2)", "cell/Limits.GetProperty(0)"}));
}

TEST_F(CommandOpens, AsksForNoMacroOfAMacroCommand)
{
    RunMacro();
    command->Set(L"customizationobjecttype", -1);
    Show({Sees(Chosen(kMacro, L"Weld")), Sees(Offers(kMacro, {L"Weld"})), Sees(NoneChosen(kScript)),
          Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({}, kReadTypes));
}

// The constructor: without its arguments the dialog opens empty.

class CommandWithout : public CommandFixture
{
protected:
    /// No record: the host was not asked for one.
    Steps SeesDefaults() const
    {
        return {Sees(Titled(L"Script Command Properties")),
                Sees(Shows(kName, L"")),
                Sees(Shows(kPrompt, L"")),
                Sees(NoneChosen(kScript)),
                Sees(NoneChosen(kMacro)),
                Sees(NoneChosen(kConfigType)),
                Sees(NoneChosen(kPlanType)),
                Sees(NoneChosen(kExecution)),
                Sees(Checked(kVisible)),
                Sees(Checked(kContextMenu)),
                Sees(Unchecked(kProperties))};
    }
    /// With a command, its place is shown: none of a type that is not known.
    Steps SeesNoRecord() const
    {
        return SeesDefaults() + Steps{Sees(Checked(kPage)), Sees(Offers(kElement, {})),
                                      Sees(Disabled(kElement)), Sees(Enabled(IDOK))};
    }

    /// Nothing is read but the right, and OK, which validates all the same, writes nothing.
    void ExpectEmpty()
    {
        ExpectWarning(kNoType);
        EXPECT_EQ(Show(SeesNoRecord() + Steps{Presses(IDOK), Presses(IDCANCEL)}), S_FALSE);
        EXPECT_EQ(host.calls.front(), "command.HasRight(8)");
        EXPECT_EQ(Written(), "");
        EXPECT_EQ(logBook.Entries(), Entries{});
    }
};

TEST_F(CommandWithout, AnObjectManagerIsEmptyAndOkWritesNothing)
{
    manager = nullptr;
    ExpectEmpty();
    EXPECT_EQ(Show({Chooses(kConfigType, L"cell"), Chooses(kScript, L"Drill"), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), "");
}

TEST_F(CommandWithout, AFactoryIsEmpty)
{
    factory = nullptr;
    ExpectEmpty();
    EXPECT_EQ(Show({Drops(kConfigType), Sees(Offers(kConfigType, {})), Chooses(kPlanType, L"Milling"),
                    Chooses(kScript, L"Drill"), Checks(kProperties), Drops(kElement),
                    Sees(Offers(kElement, {})), Unchecks(kProperties), Presses(IDOK)}),
              S_OK);
    EXPECT_EQ(Written(), "");
}

TEST_F(CommandWithout, AQueryIsEmpty)
{
    query = nullptr;
    ExpectEmpty();
    Show({Drops(kScript), Sees(Offers(kScript, {})), Drops(kMacro), Sees(Offers(kMacro, {})),
          Presses(IDCANCEL)});
    EXPECT_EQ(host.calls, Calls{"command.HasRight(8)"});
}

TEST_F(CommandWithout, APlanTypeSetIsEmpty)
{
    planTypes = {};
    ExpectEmpty();
    Show({Drops(kPlanType), Sees(Offers(kPlanType, {})), Presses(IDCANCEL)});
    EXPECT_EQ(host.calls, Calls{"command.HasRight(8)"});
}

TEST_F(CommandWithout, ACommandShowsNoPlaceAndAsksForNoRight)
{
    command = {};
    ExpectWarning(kNoType);
    EXPECT_EQ(Show(SeesDefaults() + Steps{Sees(Unchecked(kPage)), Sees(Unchecked(kGroup)),
                                          Sees(Unchecked(kAttribute)), Sees(Enabled(IDOK)),
                                          Sees(Disabled(kElement)), Sees(Enabled(kPage)), Presses(IDOK),
                                          Presses(IDCANCEL)}),
              S_FALSE);
    EXPECT_EQ(host.calls, Calls{"box Script Command Properties Warning: Neither a configuration type nor a "
                                "plantype selected."});
    EXPECT_EQ(Show({Chooses(kConfigType, L"cell"), Chooses(kScript, L"Drill"), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), "");
}

TEST_F(CommandWithout, AProjectIsWhole)
{
    owner = {};
    EXPECT_EQ(Show({Sees(Shows(kName, L"Deburr")), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write());
}

TEST_F(CommandWithout, ItsTypeIsReportedAndEmpty)
{
    host.Config().types.objects.pop_back();
    EXPECT_EQ(Show(SeesNoRecord() + Steps{Presses(IDCANCEL)}), S_FALSE);
    EXPECT_TRACE(Calls{"GetType(scriptcommand, null)", "command.HasRight(8)"});
    EXPECT_EQ(logBook.Entries(),
              Entries{"error set\tQPTools\tXDlgScriptCommand::XDlgScriptCommand\t70\t0x80070057\t-\tInvalid "
                      "type"});
}

TEST_F(CommandWithout, AStatusIsNotReportedIfThereIsAType)
{
    host.Config().typeStatus = E_FAIL;
    Show({Sees(Shows(kName, L"Deburr")), Presses(IDCANCEL)});
    host.Config().typeStatus = S_OK;
    host.Config().typeNull = true;
    Show({Sees(Shows(kName, L"Deburr")), Presses(IDCANCEL)});
    EXPECT_EQ(logBook.Entries(), Entries{});
}
} // namespace
