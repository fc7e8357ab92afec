// The enhanced copy dialog when it opens, and the way of a value from the grid to the copies.
#include "CopyFixture.h"

namespace
{
using namespace copy_dialog;

class CopyOpens : public CopyFixture
{
};

TEST_F(CopyOpens, WithoutAHostCall)
{
    EXPECT_EQ(Open({Sees(Titled(kTitle)), Presses(kCancel)}), S_OK);
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Clicked(), -1);
}

TEST_F(CopyOpens, AndATypedValueReachesTheCopies)
{
    EXPECT_EQ(Open(Steps{Presses(kAdvanced), Checks(kDeepRadio), Chooses(kPlanType, L"Station"),
                         Sees(InColumn(0, {L"Due", L"Mass", L"Order"}))} +
                   OpensEditor(2) +
                   Steps{TypesInEditor(L"next"), Types("Return"), Sees(InRow(2, {L"Order", L"next"})),
                         Sees(NoEditor()), Presses(kAdvancedOk)}),
              S_OK);
    EXPECT_EQ(Clicked(), 8);
    Apply({cell});
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(cell->ValueText(L"Order"), "EMPTY");
}
} // namespace
