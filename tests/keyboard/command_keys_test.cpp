// The properties of a script command, used without a mouse.
#include "CommandWords.h"
#include "PropertiesByKeyboard.h"

namespace
{
using namespace command_dialog;

class CommandByKeyboard : public PropertiesByKeyboard
{
protected:
    HRESULT Show()
    {
        return PropertiesByKeyboard::Show(L"scriptcommand", L"Paint drying", L"XDOScriptCommand");
    }
};

TEST_F(CommandByKeyboard, TabGoesRoundTheDialogAndBack)
{
    user.Does(GoesRound({kName, kPrompt, kScript, kMacro, kPlanType, kConfigType, IDOK, IDCANCEL,
                         kContextMenu, kVisible, kExecution, kProperties, kElement, kPage}) +
              Steps{Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}

TEST_F(CommandByKeyboard, ThePlaceIsChangedAndWritten)
{
    user.Does({Types("shift+Tab", FocusOn(kPage)), Types("Down", Checked(kGroup)),
               Types("shift+Tab", FocusOn(kElement)), Types("alt+Down", Dropped(kElement)),
               Types("Down", Shows(kElement, L"Names")), Types("Return", Undropped(kElement)),
               Ends("Return")});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Attribute(L"customizationobjecttype"), "1");
    EXPECT_EQ(Attribute(L"customizationobjectid"), "101");
}

TEST_F(CommandByKeyboard, SpaceSwitchesThePlaceOff)
{
    user.Does({Types("shift+Tab", FocusOn(kPage)), Types("shift+Tab", FocusOn(kElement)),
               Types("shift+Tab", FocusOn(kProperties)), Types("space", Disabled(kElement)),
               Types("Tab", FocusOn(kName)), Ends("Return")});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Attribute(L"customizationobjecttype"), "-1");
    EXPECT_EQ(Attribute(L"m_lUserInterfaceType"), "1");
}

TEST_F(CommandByKeyboard, AWarningLeavesTheDialogOpen)
{
    user.Does({Types("shift+Tab", FocusOn(kPage)), Types("Down", Checked(kGroup)),
               Types("Return", Box(L"Script Command Properties Warning")), Ends("Return"),
               Sees(FocusOn(kGroup)), Ends("Escape")});
    EXPECT_EQ(Show(), S_FALSE);
}
} // namespace
