// Every way to end the enhanced copy dialog, and the copy option that the host reads then.
#include "CopyFixture.h"

#include <ostream>

namespace
{
using namespace copy_dialog;

constexpr LONG kNormalCopy = 0;
constexpr LONG kDeepCopy = 8;
constexpr LONG kNoCopy = -1;

struct CopyEnd
{
    const char* name;
    Steps steps;
    LONG option;
};

std::ostream& operator<<(std::ostream& stream, const CopyEnd& end)
{
    return stream << end.name;
}

std::string NameOfEnd(const testing::TestParamInfo<CopyEnd>& info)
{
    return info.param.name;
}

class CopyEnds : public CopyFixture, public testing::WithParamInterface<CopyEnd>
{
protected:
    CopyEnds() { chosen.clear(); }
};

TEST_P(CopyEnds, WithThisOption)
{
    EXPECT_EQ(Open(GetParam().steps), S_OK) << "whatever ended it";
    EXPECT_EQ(Clicked(), GetParam().option);
    EXPECT_EQ(Clicked(), GetParam().option) << "it is not reset";
}

const Steps kExpand = {Presses(kAdvanced)};
const Steps kExpandAndContract = {Presses(kAdvanced), Presses(kAdvanced)};

INSTANTIATE_TEST_SUITE_P(
    Contracted, CopyEnds,
    testing::Values(
        CopyEnd{"Normal", {Presses(kNormal)}, kNormalCopy}, CopyEnd{"Deep", {Presses(kDeep)}, kDeepCopy},
        CopyEnd{"Cancel", {Presses(kCancel)}, kNoCopy}, CopyEnd{"CloseBox", {Closes()}, kNoCopy},
        CopyEnd{"Escape", {Types("Escape")}, kNoCopy}, CopyEnd{"Enter", {Types("Return")}, kNormalCopy},
        CopyEnd{"SpaceOnNormal", {Types("space")}, kNormalCopy},
        CopyEnd{"EnterOnDeep", {Types("Tab", FocusOn(kDeep)), Types("Return")}, kDeepCopy},
        CopyEnd{"SpaceOnDeep", {Types("Tab", FocusOn(kDeep)), Types("space")}, kDeepCopy},
        CopyEnd{"EnterOnCancel", {Types("Tab Tab", FocusOn(kCancel)), Types("Return")}, kNoCopy},
        CopyEnd{"EscapeOnDeep", {Types("Tab", FocusOn(kDeep)), Types("Escape")}, kNoCopy},
        // Both buttons below the lower edge can be reached by Tab.
        CopyEnd{"EnterOnOk",
                {Types("shift+Tab"), Types("shift+Tab", FocusOn(kAdvancedOk)), Types("Return")},
                kNormalCopy},
        CopyEnd{
            "EnterOnCancelBelow", {Types("shift+Tab", FocusOn(kAdvancedCancel)), Types("Return")}, kNoCopy}),
    NameOfEnd);

INSTANTIATE_TEST_SUITE_P(
    Expanded, CopyEnds,
    testing::Values(
        CopyEnd{"Ok", kExpand + Steps{Presses(kAdvancedOk)}, kNormalCopy},
        CopyEnd{"OkWithDeep", kExpand + Steps{Checks(kDeepRadio), Presses(kAdvancedOk)}, kDeepCopy},
        CopyEnd{"OkWithNormalAgain",
                kExpand + Steps{Checks(kDeepRadio), Checks(kNormalRadio), Presses(kAdvancedOk)}, kNormalCopy},
        CopyEnd{"Cancel", kExpand + Steps{Presses(kAdvancedCancel)}, kNoCopy},
        CopyEnd{"CancelWithDeep", kExpand + Steps{Checks(kDeepRadio), Presses(kAdvancedCancel)}, kNoCopy},
        CopyEnd{"CloseBox", kExpand + Steps{Closes()}, kNoCopy},
        CopyEnd{"CloseBoxWithDeep", kExpand + Steps{Checks(kDeepRadio), Closes()}, kNoCopy},
        CopyEnd{"Escape", kExpand + Steps{Types("Escape")}, kNoCopy}),
    NameOfEnd);

INSTANTIATE_TEST_SUITE_P(
    ContractedAgain, CopyEnds,
    testing::Values(CopyEnd{"Normal", kExpandAndContract + Steps{Presses(kNormal)}, kNormalCopy},
                    CopyEnd{"Deep", kExpandAndContract + Steps{Presses(kDeep)}, kDeepCopy},
                    CopyEnd{"Cancel", kExpandAndContract + Steps{Presses(kCancel)}, kNoCopy},
                    CopyEnd{"CloseBox", kExpandAndContract + Steps{Closes()}, kNoCopy},
                    CopyEnd{"Escape", kExpandAndContract + Steps{Types("Escape")}, kNoCopy},
                    // A radio button that is out of sight does not matter to the buttons.
                    CopyEnd{"NormalWithDeepChecked",
                            {Presses(kAdvanced), Checks(kDeepRadio), Presses(kAdvanced), Presses(kNormal)},
                            kNormalCopy},
                    CopyEnd{"DeepWithNormalChecked",
                            {Presses(kAdvanced), Presses(kAdvanced), Presses(kDeep)},
                            kDeepCopy}),
    NameOfEnd);
} // namespace
