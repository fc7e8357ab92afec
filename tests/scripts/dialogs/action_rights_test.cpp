// What a user who may not change a script action can do with its property dialog.
#include "ActionFixture.h"

namespace
{
using namespace action_dialog;

using Controls = std::vector<int>;

class ActionRights : public ActionFixture
{
protected:
    /// The enabled ones of all controls a user can use.
    Controls Enabled()
    {
        Controls enabled;
        Open({[&](DialogView& view) {
            for (const int control : {kName, kSequence, kActionType, kScript, kAfter, kBefore, kEnabled,
                                      kPlanType, kConfigType, int{IDOK}, int{IDCANCEL}})
                if (view.IsEnabled(control))
                    enabled.push_back(control);
        }});
        return enabled;
    }

    const Controls kAll = {kName,    kSequence, kActionType, kScript, kAfter,  kBefore,
                           kEnabled, kPlanType, kConfigType, IDOK,    IDCANCEL};
    const Controls kCancelOnly = {IDCANCEL};
};

TEST_F(ActionRights, SOkEnablesAll)
{
    EXPECT_EQ(Enabled(), kAll);
}

TEST_F(ActionRights, SFalseLeavesCancelAlone)
{
    action->right = S_FALSE;
    EXPECT_EQ(Enabled(), kCancelOnly);
}

TEST_F(ActionRights, AFailureLeavesCancelAlone)
{
    action->right = E_ACCESSDENIED;
    EXPECT_EQ(Enabled(), kCancelOnly);
}

TEST_F(ActionRights, NoRightsInterfaceLeavesCancelAlone)
{
    action->offersRights = false;
    EXPECT_EQ(Enabled(), kCancelOnly);
}

TEST_F(ActionRights, NoActionEnablesAll)
{
    action.reset();
    EXPECT_EQ(Enabled(), kAll);
}

TEST_F(ActionRights, TheRecordIsShownAllTheSame)
{
    action->right = S_FALSE;
    Open({Sees(Shows(kName, L"Deburr")), Sees(Shows(kSequence, L"30")), Sees(Chosen(kActionType, L"Close")),
          Sees(Chosen(kScript, L"Drill")), Sees(Chosen(kConfigType, L"cell")), Sees(Checked(kBefore)),
          Sees(Checked(kEnabled))});
}

TEST_F(ActionRights, EnterDoesNothingWithoutTheRight)
{
    action->right = S_FALSE;
    Open({Types("Return"), Sees(Disabled(IDOK))});
}

TEST_F(ActionRights, EscapeAndTheCloseBoxLeaveWithoutTheRight)
{
    action->right = S_FALSE;
    EXPECT_EQ(Show({Types("Escape")}), S_FALSE);
    EXPECT_EQ(Show({Closes()}), S_FALSE);
    EXPECT_EQ(Written(), "");
}
} // namespace
