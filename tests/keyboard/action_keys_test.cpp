// The properties of a script action, used without a mouse.
#include "ActionWords.h"
#include "PropertiesByKeyboard.h"

namespace
{
using namespace action_dialog;

class ActionByKeyboard : public PropertiesByKeyboard
{
protected:
    HRESULT Show()
    {
        return PropertiesByKeyboard::Show(L"scriptaction", L"Weld: number spots", L"XDOScriptAction");
    }
};

TEST_F(ActionByKeyboard, TabGoesRoundTheDialogAndBack)
{
    user.Does(GoesRound({kName, kScript, kPlanType, kConfigType, kActionType, kEnabled, kAfter, kSequence,
                         IDOK, IDCANCEL}) +
              Steps{Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}

TEST_F(ActionByKeyboard, EveryFieldIsChanged)
{
    user.Does(Steps{Types("N", Shows(kName, L"N")), Types("Tab", FocusOn(kScript)),
                    Types("alt+Down", Dropped(kScript)), Types("Home Down", Chosen(kScript, L"Archive plan")),
                    Types("Return", Undropped(kScript)), Types("Tab", FocusOn(kPlanType)),
                    Types("alt+Down", Dropped(kPlanType)), Types("Up", Chosen(kPlanType, L"Painting")),
                    Types("Return", Undropped(kPlanType)), Types("Tab", FocusOn(kConfigType)),
                    Types("Tab", FocusOn(kActionType)), Types("r", Chosen(kActionType, L"Release")),
                    Types("Tab", FocusOn(kEnabled)), Types("space", Unchecked(kEnabled)),
                    Types("Tab", FocusOn(kAfter)), Types("Down", Checked(kBefore)),
                    Types("Tab", FocusOn(kSequence)), Types("7", Shows(kSequence, L"7")), Ends("Return")});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Attribute(L"m_name"), "N");
    EXPECT_EQ(Attribute(L"m_actionType"), "5");
    EXPECT_EQ(Attribute(L"m_beforeAfter"), "1");
    EXPECT_EQ(Attribute(L"m_iSequence"), "7");
    EXPECT_EQ(Attribute(L"m_bEnabled"), "0");
}

TEST_F(ActionByKeyboard, EscapeClosesAListBeforeTheDialog)
{
    user.Does({Types("Tab", FocusOn(kScript)), Types("alt+Down", Dropped(kScript)),
               Types("Escape", Undropped(kScript)), Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
    EXPECT_EQ(Attribute(L"m_name"), "Weld: number spots");
}

TEST_F(ActionByKeyboard, EachKeyOfTheWarningClosesIt)
{
    user.Does({Types("Tab", FocusOn(kScript)), Types("Tab", FocusOn(kPlanType)),
               Types("Tab", FocusOn(kConfigType)), Types("alt+Down", Dropped(kConfigType)),
               Types("Escape", Undropped(kConfigType))});
    for (const char* key : {"Return", "space", "Escape"})
        user.Does({Types("Return", Box(L"Script Action Properties Warning")), Ends(key),
                   Sees(FocusOn(kConfigType))});
    user.Does({Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}
} // namespace
