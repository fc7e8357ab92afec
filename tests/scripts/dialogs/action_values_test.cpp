// How the property dialog of a script action reads the values of the host, of whatever type they are.
#include "ActionFixture.h"

#include "ReferenceValues.h"

namespace
{
using namespace action_dialog;

class ActionValues : public ActionFixture
{
};

TEST_F(ActionValues, NumbersReadAsTexts)
{
    action->Set(L"m_name", 42)->Set(L"m_prompt", 7)->Set(L"m_pType", 12);
    EXPECT_EQ(Show({Sees(Shows(kName, L"42")), Sees(Chosen(kConfigType, L"12")), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_name = BSTR '42', m_prompt = BSTR '7'"));
    EXPECT_TRUE(Wrote("m_pType = BSTR '12'"));
}

TEST_F(ActionValues, TextsReadAsNumbers)
{
    action->Set(L"m_actionType", L"1")->Set(L"m_beforeAfter", L"0")->Set(L"m_iSequence", L"-17");
    action->Set(L"m_bEnabled", L"True");
    EXPECT_EQ(Show({Sees(Chosen(kActionType, L"Open")), Sees(Checked(kAfter)), Sees(Shows(kSequence, L"-17")),
                    Sees(Checked(kEnabled)), Presses(IDOK)}),
              S_OK);
    EXPECT_TRUE(Wrote("m_actionType = I4 1, m_beforeAfter = I4 0, m_iSequence = I4 -17, m_bEnabled = I4 1"));
}

TEST_F(ActionValues, AnyNumberButZeroIsEnabled)
{
    action->Set(L"m_bEnabled", 5);
    EXPECT_EQ(Show({Sees(Checked(kEnabled)), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_bEnabled = I4 1"));
}

TEST_F(ActionValues, FlagsReadAsEnabledOrNot)
{
    action->Answer(L"m_bEnabled", S_OK, MemoryValue(true).Value());
    Open({Sees(Checked(kEnabled))});
    action->Answer(L"m_bEnabled", S_OK, MemoryValue(false).Value());
    Open({Sees(Unchecked(kEnabled))});
}

TEST_F(ActionValues, ReferencesReadAsWhatTheyReferTo)
{
    const XQPComBSTR name(L"By address");
    BSTR text = name;
    LONG number = 9;
    VARIANT_BOOL enabled = VARIANT_FALSE;
    IUnknown* script = static_cast<IQP_BaseDataObject*>(weld.get());
    VARIANT inner = MemoryValue(1).Value();
    action->Answer(L"m_name", S_OK, ByAddress(VT_BSTR, &text));
    action->Answer(L"m_iSequence", S_OK, ByAddress(VT_I4, &number));
    action->Answer(L"m_bEnabled", S_OK, ByAddress(VT_BOOL, &enabled));
    action->Answer(L"m_pScript", S_OK, ByAddress(VT_UNKNOWN, static_cast<void*>(&script)));
    action->Answer(L"m_actionType", S_OK, ByAddress(VT_VARIANT, &inner));
    EXPECT_EQ(
        Show({Sees(Shows(kName, L"By address")), Sees(Shows(kSequence, L"9")), Sees(Unchecked(kEnabled)),
              Sees(Chosen(kScript, L"Weld")), Sees(Chosen(kActionType, L"Open")), Presses(IDOK)}),
        S_OK);
    EXPECT_TRUE(Wrote("m_pScript = UNKNOWN weld"));
}

TEST_F(ActionValues, NullReferencesReadAsNoValue)
{
    for (const VARIANT& value : NullAddresses())
    {
        for (const wchar_t* attribute : {L"m_name", L"m_pType", L"m_pPlanType", L"m_iSequence"})
            action->Answer(attribute, S_OK, value);
        Open({Sees(Shows(kName, L"")), Sees(NoneChosen(kConfigType)), Sees(Shows(kSequence, L"0")),
              Sees(Chosen(kScript, L"Drill")), Sees(Checked(kEnabled))});
    }
}

TEST_F(ActionValues, WhatIsNoTextLeavesTheText)
{
    for (const wchar_t* attribute : {L"m_name", L"m_prompt", L"m_pType"})
        action->Set(attribute, drill);
    action->Set(L"orvoplantype", 1)->Set(L"m_pPlanType", assembly);
    EXPECT_EQ(Show({Sees(Shows(kName, L"")), Sees(Chosen(kScript, L"Drill")), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_name = BSTR '', m_prompt = BSTR ''"));
    EXPECT_TRUE(Wrote("m_iSequence = I4 30"));
}

TEST_F(ActionValues, WhatIsNoNumberLeavesTheNumber)
{
    for (const wchar_t* attribute : {L"m_actionType", L"m_beforeAfter", L"m_iSequence", L"m_bEnabled"})
        action->Set(attribute, L"many");
    EXPECT_EQ(Show({Sees(NoneChosen(kActionType)), Sees(Checked(kAfter)), Sees(Shows(kSequence, L"0")),
                    Sees(Unchecked(kEnabled)), Presses(IDOK)}),
              S_OK);
    EXPECT_TRUE(Wrote("m_actionType = I4 0, m_beforeAfter = I4 0, m_iSequence = I4 0, m_bEnabled = I4 0"));
}

TEST_F(ActionValues, ANumberTooLargeIsNone)
{
    action->Set(L"m_iSequence", L"3000000000");
    Open({Sees(Shows(kSequence, L"0")), Sees(Checked(kEnabled))});
}

TEST_F(ActionValues, WhatIsNoReferenceIsSkipped)
{
    action->Set(L"m_pScript", L"Drill")->Set(L"m_pPlanType", 5);
    Open({Sees(NoneChosen(kScript)), Sees(Chosen(kConfigType, L"cell")), Sees(Shows(kSequence, L"30")),
          Sees(Checked(kEnabled))});
}

// The objects.

TEST_F(ActionValues, ANullScriptEndsTheLoad)
{
    action->Set(L"m_pScript", static_cast<IUnknown*>(nullptr));
    Open(EndsAtTheScript());
}

TEST_F(ActionValues, AScriptThatIsNoDataObjectEndsTheLoad)
{
    drill->offersData = false;
    Open(EndsAtTheScript());
}

TEST_F(ActionValues, AScriptWhoseNameFailsEndsTheLoad)
{
    drill->Fail(L"m_name", E_FAIL);
    Open(EndsAtTheScript());
}

TEST_F(ActionValues, AScriptWhoseNameIsNoTextIsNotShown)
{
    drill->Set(L"m_name", weld);
    Open({Sees(Offers(kScript, {})), Sees(Chosen(kConfigType, L"cell")), Sees(Shows(kSequence, L"30"))});
}

TEST_F(ActionValues, AScriptWithoutANameIsAnEmptyEntry)
{
    drill->Fail(L"m_name", S_FALSE);
    EXPECT_EQ(Show({Sees(Offers(kScript, {L""})), Sees(Chosen(kScript, L"")), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_pScript = EMPTY")) << "an empty text clears the script";
}

TEST_F(ActionValues, ANullPlanTypeEndsTheLoad)
{
    action->Set(L"m_pPlanType", static_cast<IUnknown*>(nullptr));
    Open(EndsAtThePlanType());
}

TEST_F(ActionValues, APlanTypeThatIsNoDataObjectEndsTheLoad)
{
    assembly->offersData = false;
    action->Set(L"m_pPlanType", assembly);
    Open(EndsAtThePlanType());
}

TEST_F(ActionValues, APlanTypeWhoseNameFailsEndsTheLoad)
{
    assembly->Fail(L"m_name", E_FAIL);
    action->Set(L"m_pPlanType", assembly);
    Open(EndsAtThePlanType());
}

TEST_F(ActionValues, WhatEndsTheLoadIsSavedAsDefaults)
{
    action->Set(L"m_pPlanType", static_cast<IUnknown*>(nullptr));
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_actionType = I4 0, m_beforeAfter = I4 0, m_iSequence = I4 0, m_bEnabled = I4 0"));
}

// The two types.

TEST_F(ActionValues, TheMarkShowsThePlanType)
{
    action->Set(L"orvoplantype", assembly)->Set(L"m_pType", L"")->Set(L"m_pPlanType", assembly);
    Open({Sees(Offers(kPlanType, {L"Assembly"})), Sees(Chosen(kPlanType, L"Assembly")),
          Sees(Offers(kConfigType, {}))});
}

TEST_F(ActionValues, TheMarkHidesTheConfiguredType)
{
    action->Set(L"orvoplantype", assembly)->Set(L"m_pPlanType", assembly);
    EXPECT_EQ(Show({Sees(NoneChosen(kConfigType)), Sees(Chosen(kPlanType, L"Assembly")), Presses(IDOK)}),
              S_OK);
    EXPECT_TRUE(Wrote("m_pType = BSTR '', m_pPlanType = UNKNOWN assembly"));
}

TEST_F(ActionValues, WithoutTheMarkThePlanTypeIsNotShown)
{
    action->Set(L"m_pPlanType", assembly);
    Open({Sees(Offers(kPlanType, {})), Sees(Chosen(kConfigType, L"cell"))});
}

TEST_F(ActionValues, TheMarkIsSetByAnyValueButZero)
{
    action->Set(L"m_pPlanType", assembly);
    const MemoryValue set[] = {1, -1, true, L"", L"x"};
    for (const MemoryValue& value : set)
    {
        action->Answer(L"orvoplantype", S_OK, value.Value());
        Open({Sees(Chosen(kPlanType, L"Assembly")), Sees(NoneChosen(kConfigType))});
    }
    const MemoryValue unset[] = {0, false, MemoryValue(), static_cast<IUnknown*>(nullptr)};
    for (const MemoryValue& value : unset)
    {
        action->Answer(L"orvoplantype", S_OK, value.Value());
        Open({Sees(NoneChosen(kPlanType)), Sees(Chosen(kConfigType, L"cell"))});
    }
}

TEST_F(ActionValues, NeitherTypeIsShownIfNeitherIsSet)
{
    action->Set(L"m_pType", L"");
    Open({Sees(NoneChosen(kPlanType)), Sees(NoneChosen(kConfigType)), Sees(Shows(kSequence, L"30"))});
}

// Numbers without a control for them.

TEST_F(ActionValues, AnUnknownActionTypeIsWrittenBack)
{
    action->Set(L"m_actionType", 99);
    EXPECT_EQ(Show({Sees(NoneChosen(kActionType)), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_actionType = I4 99"));
}

TEST_F(ActionValues, AnotherBeforeAfterChecksNothingAndIsWrittenBack)
{
    for (const LONG number : {7, -1})
    {
        action->Set(L"m_beforeAfter", number);
        EXPECT_EQ(Show({Sees(Unchecked(kAfter)), Sees(Unchecked(kBefore)), Presses(IDOK)}), S_OK);
        EXPECT_TRUE(Wrote("m_beforeAfter = I4 " + std::to_string(number)));
    }
}

TEST_F(ActionValues, AnotherBeforeAfterYieldsToAChoice)
{
    action->Set(L"m_beforeAfter", 7);
    EXPECT_EQ(Show({Checks(kAfter), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_beforeAfter = I4 0"));
}
} // namespace
