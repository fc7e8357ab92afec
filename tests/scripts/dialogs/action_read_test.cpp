// What the property dialog of a script action makes of a read of the record that fails, in part or as a
// whole, and of a construction that fails.
#include "ActionFixture.h"

namespace
{
using namespace action_dialog;

class ActionRead : public ActionFixture
{
protected:
    /// The validation of OK applies in any case.
    void OpensEmptyAndWritesNothing()
    {
        ExpectBox(kWarning, kNoType);
        Open(EndsAtOnce() + Steps{Presses(IDOK)});
    }

    /// With a type and a script, OK ends the dialog all the same, and nothing is written.
    void EndsWithOkAndWritesNothing()
    {
        EXPECT_EQ(Show({Chooses(kConfigType, L"cell"), Chooses(kScript, L"Weld"), Presses(IDOK)}), S_OK);
        EXPECT_EQ(Written(), "");
    }

    bool Asked(const std::string& part) const
    {
        for (const std::string& call : host.calls)
            if (call.find(part) != std::string::npos)
                return true;
        return false;
    }

    const Entries kInvalidType = {
        "error set\tQPTools\tXDlgScriptAction::XDlgScriptAction\t61\t0x80070057\t-\tInvalid type"};
};

// The read as a whole.

TEST_F(ActionRead, OfAPartLoadsNothing)
{
    for (const HRESULT status : {0x8004035E, 0x80040344})
    {
        action->readStatus = status;
        Open(EndsAtOnce());
        EXPECT_TRUE(Asked("action.HasRight(8)"));
    }
}

TEST_F(ActionRead, WithSFalseLoadsNothing)
{
    action->readStatus = S_FALSE;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, ThatFailsLoadsNothing)
{
    action->readStatus = E_ACCESSDENIED;
    action->givesArrays = false;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, ThatFailsIsSavedAsDefaults)
{
    action->readStatus = E_FAIL;
    EXPECT_EQ(Show({Chooses(kConfigType, L"line"), Chooses(kScript, L"Weld"), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), "action.SetAttributes(m_name = BSTR '', m_prompt = BSTR '', "
                         "m_pScript = UNKNOWN weld, m_pType = BSTR 'line', m_pPlanType = EMPTY, "
                         "m_actionType = I4 0, m_beforeAfter = I4 0, m_iSequence = I4 0, "
                         "m_bEnabled = I4 0)");
}

TEST_F(ActionRead, WithoutAnArrayLoadsNothing)
{
    action->givesArrays = false;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, OfOneDimensionLoadsNothing)
{
    action->shape.dimensions = 1;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, OfThreeDimensionsLoadsNothing)
{
    action->shape.dimensions = 3;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, OfTextsLoadsNothing)
{
    action->shape.type = VT_BSTR;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, WhoseColumnsBeginAtOneLoadsNothing)
{
    action->shape.firstColumn = 1;
    Open(EndsAtOnce());
}

TEST_F(ActionRead, WhoseRowsBeginAnywhereIsComplete)
{
    for (const LONG row : {-3, 1, 100})
    {
        action->shape.firstRow = row;
        Open({Sees(Shows(kName, L"Deburr")), Sees(Chosen(kScript, L"Drill")), Sees(Checked(kEnabled))});
    }
}

TEST_F(ActionRead, WithoutSomeRowsLoadsTheOthers)
{
    for (const wchar_t* attribute : {L"m_name", L"m_pScript", L"m_iSequence"})
        action->Fail(attribute, E_FAIL);
    action->readStatus = S_OK;
    Open({Sees(Shows(kName, L"")), Sees(Offers(kScript, {})), Sees(Chosen(kConfigType, L"cell")),
          Sees(Chosen(kActionType, L"Close")), Sees(Shows(kSequence, L"0")), Sees(Checked(kEnabled))});
}

TEST_F(ActionRead, WithoutAnyRowLoadsNothing)
{
    for (const wchar_t* attribute :
         {L"m_name", L"m_prompt", L"m_pScript", L"orvoplantype", L"m_pType", L"m_pPlanType", L"m_actionType",
          L"m_beforeAfter", L"m_iSequence", L"m_bEnabled"})
        action->Fail(attribute, E_FAIL);
    action->readStatus = S_OK;
    Open(EndsAtOnce());
}

// The construction.

TEST_F(ActionRead, NeedsAFactory)
{
    factory = nullptr;
    OpensEmptyAndWritesNothing();
    EXPECT_FALSE(Asked("GetAttributes"));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionRead, NeedsAQuery)
{
    query = nullptr;
    OpensEmptyAndWritesNothing();
    EXPECT_FALSE(Asked("GetType("));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionRead, NeedsAPlanTypeSet)
{
    planTypes.reset();
    OpensEmptyAndWritesNothing();
    EXPECT_FALSE(Asked("GetType("));
    EndsWithOkAndWritesNothing();
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionRead, NeedsAnAction)
{
    action.reset();
    OpensEmptyAndWritesNothing();
    EXPECT_FALSE(Asked("HasRight"));
    EndsWithOkAndWritesNothing();
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionRead, NeedsNoProject)
{
    owner.reset();
    Open({Sees(Shows(kName, L"Deburr")), Sees(Chosen(kScript, L"Drill"))});
}

TEST_F(ActionRead, WithoutAnythingOpensEmpty)
{
    factory = nullptr;
    query = nullptr;
    owner.reset();
    planTypes.reset();
    action.reset();
    ExpectBox(kWarning, kNoType);
    Open(EndsAtOnce() + Steps{Drops(kScript), Drops(kPlanType), Drops(kConfigType), Presses(IDOK)});
    EXPECT_EQ(host.calls, Calls{"box Script Action Properties Warning: Neither a configuration type nor a "
                                "plantype selected."});
}

TEST_F(ActionRead, ReportsAnUnknownType)
{
    host.Config().types.objects.pop_back();
    OpensEmptyAndWritesNothing();
    EXPECT_FALSE(Asked("GetAttributes"));
    EXPECT_TRUE(Asked("action.HasRight(8)"));
    EXPECT_EQ(logBook.Entries(), kInvalidType);
}

TEST_F(ActionRead, ReportsAnUnknownTypeOnceForEachDialog)
{
    host.Config().types.objects.pop_back();
    EndsWithOkAndWritesNothing();
    EXPECT_EQ(logBook.Entries(), kInvalidType);
}

TEST_F(ActionRead, NeedsNoTypeIfTheHostFindsIt)
{
    host.Config().typeNull = true;
    Open(Steps{Sees(Shows(kName, L"Deburr")), Sees(Chosen(kScript, L"Drill")), Sees(Offers(kActionType, {})),
               Sees(NoneChosen(kActionType))});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ActionRead, TakesATypeThatComesWithAFailure)
{
    host.Config().typeStatus = E_FAIL;
    Open({Sees(Shows(kName, L"Deburr")), Sees(Chosen(kActionType, L"Close"))});
    EXPECT_EQ(logBook.Entries(), Entries{});
}
} // namespace
