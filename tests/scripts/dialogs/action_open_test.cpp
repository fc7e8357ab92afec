// What the property dialog of a script action shows when it opens, and which host calls that takes.
#include "ActionFixture.h"

namespace
{
class ActionOpens : public ActionFixture
{
};

TEST_F(ActionOpens, ShowsTheRecord)
{
    EXPECT_EQ(Show({Sees(Titled(L"Script Action Properties")), Sees(Shows(kName, L"Deburr")),
                    Sees(Shows(kSequence, L"30")), Sees(Chosen(kActionType, L"Close")),
                    Sees(Chosen(kScript, L"Drill")), Sees(Chosen(kConfigType, L"cell")),
                    Sees(NoneChosen(kPlanType)), Sees(Checked(kBefore)), Sees(Unchecked(kAfter)),
                    Sees(Checked(kEnabled)), Presses(IDCANCEL)}),
              S_FALSE);
    EXPECT_EQ(Written(), "");
}

TEST_F(ActionOpens, WritesTheRecordBack)
{
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), "action.SetAttributes(m_name = BSTR 'Deburr', m_prompt = BSTR 'Ask first', "
                         "m_pScript = UNKNOWN drill, m_pType = BSTR 'cell', m_pPlanType = EMPTY, "
                         "m_actionType = I4 2, m_beforeAfter = I4 1, m_iSequence = I4 30, "
                         "m_bEnabled = I4 1)");
}
} // namespace
