// What OK of the property dialog of a script action writes.
#include "ActionFixture.h"

namespace
{
using namespace action_dialog;

class ActionSave : public ActionFixture
{
protected:
    /// Presses OK after these steps, which ends the dialog.
    void Save(const Steps& steps) { EXPECT_EQ(Show(steps + Steps{Presses(IDOK)}), S_OK); }

    int Writes() const
    {
        return static_cast<int>(
            std::count_if(host.calls.begin(), host.calls.end(), [](const std::string& call) {
                return call.find(".SetAttribute") != std::string::npos;
            }));
    }
};

TEST_F(ActionSave, WritesNinePairsByOneCall)
{
    BindToPlanType(assembly);
    Save({Enters(kName, L"Polish"), Enters(kSequence, L"-5"), Chooses(kActionType, L"Open"), Checks(kAfter),
          Unchecks(kEnabled), Chooses(kScript, L"Weld")});
    EXPECT_EQ(Written(),
              "action.SetAttributes(m_name = BSTR 'Polish', m_prompt = BSTR 'Ask first', "
              "m_pScript = UNKNOWN weld, m_pType = BSTR '', m_pPlanType = UNKNOWN assembly, "
              "m_actionType = I4 1, m_beforeAfter = I4 0, m_iSequence = I4 -5, m_bEnabled = I4 0)");
    EXPECT_EQ(Writes(), 1);
}

TEST_F(ActionSave, WritesAnEmptyName)
{
    Save({Enters(kName, L"")});
    EXPECT_TRUE(Wrote("m_name = BSTR '', m_prompt"));
}

TEST_F(ActionSave, KeepsThePrompt)
{
    action->Set(L"m_prompt", L"\x00FC\x4E2D ?");
    Save({});
    EXPECT_TRUE(Wrote("m_prompt = BSTR '\xC3\xBC\xE4\xB8\xAD ?'"));
}

TEST_F(ActionSave, WritesForeignText)
{
    Save({Enters(kName, L"\x00C4\x4E2D\x05D0")});
    EXPECT_TRUE(Wrote("m_name = BSTR '\xC3\x84\xE4\xB8\xAD\xD7\x90'"));
}

// The plan type and the script: chosen, kept, cleared.

TEST_F(ActionSave, AChosenPlanTypeReplacesTheStoredOne)
{
    BindToPlanType(assembly);
    Save({Chooses(kPlanType, L"Milling")});
    EXPECT_TRUE(Wrote("m_pType = BSTR '', m_pPlanType = UNKNOWN milling"));
}

TEST_F(ActionSave, AStoredPlanTypeIsKeptWhileItsListIsUnread)
{
    BindToPlanType(drill);
    Save({});
    EXPECT_TRUE(Wrote("m_pType = BSTR '', m_pPlanType = UNKNOWN drill"));
}

TEST_F(ActionSave, AStoredPlanTypeYieldsToTheListed)
{
    BindToPlanType(Named("older", L"Assembly"));
    Save({Drops(kPlanType)});
    EXPECT_TRUE(Wrote("m_pPlanType = UNKNOWN assembly"));
}

TEST_F(ActionSave, APlanTypeThatIsNotShownIsCleared)
{
    action->Set(L"m_pPlanType", assembly);
    Save({});
    EXPECT_TRUE(Wrote("m_pType = BSTR 'cell', m_pPlanType = EMPTY"));
}

TEST_F(ActionSave, AChosenTypeClearsThePlanType)
{
    BindToPlanType(assembly);
    Save({Chooses(kConfigType, L"line")});
    EXPECT_TRUE(Wrote("m_pType = BSTR 'line', m_pPlanType = EMPTY"));
}

TEST_F(ActionSave, AChosenPlanTypeClearsTheType)
{
    Save({Chooses(kPlanType, L"Milling")});
    EXPECT_TRUE(Wrote("m_pType = BSTR '', m_pPlanType = UNKNOWN milling"));
}

TEST_F(ActionSave, AStoredScriptIsKeptWhileItsListIsUnread)
{
    action->Set(L"m_pScript", Named("elsewhere", L"Of another project"));
    Save({});
    EXPECT_TRUE(Wrote("m_pScript = UNKNOWN elsewhere"));
}

TEST_F(ActionSave, AStoredScriptThatIsNotListedIsDeselected)
{
    action->Set(L"m_pScript", Named("elsewhere", L"Of another project"));
    ExpectBox(kWarning, kNoScript);
    Open({Drops(kScript), Presses(IDOK)});
}

TEST_F(ActionSave, AChosenScriptReplacesTheStoredOne)
{
    Save({Chooses(kScript, L"Weld")});
    EXPECT_TRUE(Wrote("m_pScript = UNKNOWN weld"));
}

TEST_F(ActionSave, AListedTypeOfThatPrefixReplacesTheStoredText)
{
    action->Set(L"m_pType", L"ce");
    Save({});
    EXPECT_TRUE(Wrote("m_pType = BSTR 'ce'"));
    action->Set(L"m_pType", L"ce");
    Save({Drops(kConfigType)});
    EXPECT_TRUE(Wrote("m_pType = BSTR 'cell'"));
}

// The action type.

TEST_F(ActionSave, WithoutAnActionTypeWritesTheOneLoaded)
{
    action->Set(L"m_actionType", 26);
    Save({});
    EXPECT_TRUE(Wrote("m_actionType = I4 26"));
}

TEST_F(ActionSave, OfANewActionWritesActionTypeZero)
{
    action = host.Object("new");
    Save({Chooses(kConfigType, L"cell"), Chooses(kScript, L"Weld")});
    EXPECT_EQ(Written(),
              "new.SetAttributes(m_name = BSTR '', m_prompt = BSTR '', m_pScript = UNKNOWN weld, "
              "m_pType = BSTR 'cell', m_pPlanType = EMPTY, m_actionType = I4 0, m_beforeAfter = I4 "
              "0, m_iSequence = I4 0, m_bEnabled = I4 0)");
}

TEST_F(ActionSave, AChosenActionTypeReplacesAnUnknownOne)
{
    action->Set(L"m_actionType", 99);
    Save({Chooses(kActionType, L"Close")});
    EXPECT_TRUE(Wrote("m_actionType = I4 2"));
}

TEST_F(ActionSave, AnActionTypeWithoutANameIsNotTaken)
{
    values->Value(L"", 8);
    action->Set(L"m_actionType", 99);
    Save({Chooses(kActionType, 0)});
    EXPECT_TRUE(Wrote("m_actionType = I4 99"));
}

// The sequence.

TEST_F(ActionSave, ABadSequenceKeepsItAndWhatFollows)
{
    for (const wchar_t* text :
         {L"12x", L"", L"x", L"1 2", L"1.5", L"2147483648", L"-2147483649", L"--1", L"-"})
    {
        action->Set(L"m_beforeAfter", 1)->Set(L"m_iSequence", 30)->Set(L"m_bEnabled", 1);
        Save({Enters(kName, L"New"), Enters(kSequence, text), Checks(kAfter), Unchecks(kEnabled)});
        EXPECT_TRUE(Wrote("m_name = BSTR 'New'")) << text;
        EXPECT_TRUE(Wrote("m_beforeAfter = I4 1, m_iSequence = I4 30, m_bEnabled = I4 1")) << text;
    }
}

TEST_F(ActionSave, ABadSequenceDoesNotKeepTheLists)
{
    Save({Enters(kSequence, L"12x"), Chooses(kScript, L"Weld"), Chooses(kPlanType, L"Milling"),
          Chooses(kActionType, L"Open")});
    EXPECT_TRUE(Wrote("m_pScript = UNKNOWN weld, m_pType = BSTR '', m_pPlanType = UNKNOWN milling, "
                      "m_actionType = I4 1, m_beforeAfter = I4 1, m_iSequence = I4 30"));
}

TEST_F(ActionSave, ASequenceMayHaveASignAndBlanks)
{
    const std::pair<const wchar_t*, const char*> numbers[] = {{L"+12", "12"},
                                                              {L"-12", "-12"},
                                                              {L"  12", "12"},
                                                              {L"12  ", "12"},
                                                              {L" -12 ", "-12"},
                                                              {L"0012", "12"},
                                                              {L"2147483647", "2147483647"},
                                                              {L"-2147483648", "-2147483648"}};
    for (const auto& [text, number] : numbers)
    {
        Save({Enters(kSequence, text), Checks(kAfter)});
        EXPECT_TRUE(Wrote(std::string("m_beforeAfter = I4 0, m_iSequence = I4 ") + number)) << text;
        action->Set(L"m_beforeAfter", 1);
    }
}

// The host.

TEST_F(ActionSave, RefusedAttributesAreNotShown)
{
    action->RefuseWrite(L"m_name", E_ACCESSDENIED)->RefuseWrite(L"m_bEnabled", S_FALSE);
    Save({Enters(kName, L"New")});
    EXPECT_EQ(Writes(), 1);
    EXPECT_EQ(action->ValueText(L"m_name"), "BSTR 'Deburr'");
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionSave, AFailureIsNotShown)
{
    for (const HRESULT status : {E_FAIL, E_ACCESSDENIED, S_FALSE})
    {
        action->writeStatus = status;
        Save({});
        EXPECT_EQ(Writes(), 1);
    }
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionSave, AnswersOfAnyShapeAreTaken)
{
    const MemoryObject::ArrayShape shapes[] = {{1, VT_VARIANT, 0, 0},  {3, VT_VARIANT, 0, 0},
                                               {2, VT_BSTR, 0, 0},     {2, VT_VARIANT, 5, 0},
                                               {2, VT_VARIANT, -1, 3}, {2, VT_I4, 0, 0}};
    for (const MemoryObject::ArrayShape& shape : shapes)
    {
        Save({[&](DialogView&) {
            action->shape = shape;
        }});
        EXPECT_EQ(Writes(), 1);
        action->shape = {};
    }
    Save({[&](DialogView&) {
        action->givesArrays = false;
    }});
    EXPECT_EQ(Writes(), 1);
}

TEST_F(ActionSave, OfWhatWasSavedWritesTheSame)
{
    Save({Enters(kName, L"Polish"), Chooses(kActionType, L"Open")});
    const std::string written = Written();
    Save({});
    EXPECT_EQ(Written(), written);
}

TEST_F(ActionSave, NothingIsWrittenUnlessOkEndsTheDialog)
{
    const Steps changes = {Enters(kName, L"New"), Chooses(kScript, L"Weld"), Checks(kAfter)};
    for (const DialogStep& end : {Presses(IDCANCEL), Types("Escape"), Closes()})
    {
        EXPECT_EQ(Show(changes + Steps{end}), S_FALSE);
        EXPECT_EQ(Writes(), 0);
    }
}
} // namespace
