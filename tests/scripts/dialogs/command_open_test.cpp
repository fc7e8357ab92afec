// What the property dialog of a script command shows when it opens, and which host calls that takes.
#include "CommandFixture.h"

namespace
{
class CommandOpens : public CommandFixture
{
};

TEST_F(CommandOpens, ShowsTheRecord)
{
    EXPECT_EQ(Show({Sees(Titled(L"Script Command Properties")), Sees(Shows(kName, L"Deburr")),
                    Sees(Shows(kPrompt, L"Deburr now")), Sees(Chosen(kScript, L"Drill")),
                    Sees(NoneChosen(kMacro)), Sees(Chosen(kConfigType, L"cell")), Sees(NoneChosen(kPlanType)),
                    Sees(Checked(kVisible)), Sees(Checked(kContextMenu)), Sees(Checked(kProperties)),
                    Sees(Chosen(kExecution, L"Once for all objects")), Sees(Checked(kPage)),
                    Sees(Shows(kElement, L"Costs")), Presses(IDCANCEL)}),
              S_FALSE);
    EXPECT_EQ(Written(), "");
}

TEST_F(CommandOpens, WritesTheRecordBack)
{
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(),
              "command.SetAttributes(m_name = BSTR 'Deburr', m_strPrompt = BSTR 'Deburr now', "
              "m_pScript = UNKNOWN drill, m_strVBAMacroName = BSTR '', m_strType = BSTR 'cell', "
              "m_pPlanType = EMPTY, m_bVisible = I4 1, m_lUserInterfaceType = I4 3, m_nameShort = BSTR '0', "
              "customizationobjectid = BSTR '2', customizationobjecttype = I4 0)");
}
} // namespace
