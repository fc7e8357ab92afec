// The enhanced copy dialog, used without a mouse.
#include "CopyByKeyboard.h"

namespace
{
using namespace copy_dialog;

constexpr LONG kNormalCopy = 0;
constexpr LONG kDeepCopy = 8;
constexpr LONG kNoCopy = -1;
} // namespace

TEST_F(CopyByKeyboard, TabGoesRoundTheContractedFormAndBack)
{
    EXPECT_EQ(Show(GoesRound({kNormal, kDeep, kCancel, kAdvanced, kAdvancedOk, kAdvancedCancel}) +
                   Steps{Ends("Escape")}),
              kNoCopy);
}

TEST_F(CopyByKeyboard, TabGoesRoundTheExpandedFormAndBack)
{
    EXPECT_EQ(Show(Expands() +
                   GoesRound({kAdvanced, kNormalRadio, kPlanType, kGrid, kAdvancedOk, kAdvancedCancel}) +
                   Steps{Ends("Escape")}),
              kNoCopy);
}

TEST_F(CopyByKeyboard, EnterAtTheBeginningIsNormal)
{
    EXPECT_EQ(Show({Sees(FocusOn(kNormal)), Ends("Return")}), kNormalCopy);
}

TEST_F(CopyByKeyboard, SpaceOrEnterPressesTheButtonWithTheFocus)
{
    for (const char* key : {"space", "Return"})
    {
        EXPECT_EQ(Show({Types("Tab", FocusOn(kDeep)), Ends(key)}), kDeepCopy) << key;
        EXPECT_EQ(Show({Types("Tab Tab", FocusOn(kCancel)), Ends(key)}), kNoCopy) << key;
    }
}

TEST_F(CopyByKeyboard, SpaceOrEnterOnAdvancedExpandsAndContracts)
{
    for (const char* key : {"space", "Return"})
        EXPECT_EQ(Show({Types("Tab Tab Tab", FocusOn(kAdvanced)), Types(key, Visible(kGrid)),
                        Sees(Shows(kAdvanced, L"Advanced <<")), Types(key, Hidden(kGrid)),
                        Sees(Shows(kAdvanced, L"Advanced >>")), Types("shift+Tab", FocusOn(kCancel)),
                        Types("shift+Tab shift+Tab", FocusOn(kNormal)), Ends("space")}),
                  kNormalCopy)
            << key;
}

TEST_F(CopyByKeyboard, ArrowsChangeTheKindOfCopy)
{
    EXPECT_EQ(Show(Expands() + Steps{Types("Tab", FocusOn(kNormalRadio)), Types("Down", Checked(kDeepRadio)),
                                     Types("Up", Checked(kNormalRadio)), Types("Right", Checked(kDeepRadio)),
                                     Types("Tab Tab Tab", FocusOn(kAdvancedOk)), Ends("space")}),
              kDeepCopy);
}

TEST_F(CopyByKeyboard, ArrowsChooseAPlanTypeThatIsShownWhenItsListCloses)
{
    EXPECT_EQ(Show(Expands() +
                   Steps{Types("Tab Tab", FocusOn(kPlanType)), Types("alt+Down", Dropped(kPlanType)),
                         Types("Down", Chosen(kPlanType, L"Cell")), Types("Return", RowCount(1)),
                         Types("alt+Down", Dropped(kPlanType)), Types("Down", Chosen(kPlanType, L"Station")),
                         Types("Return", RowCount(3)), Types("Up", RowCount(1)), Ends("Escape")}),
              kNoCopy);
}

TEST_F(CopyByKeyboard, ArrowsGoThroughTheRowsOfTheGrid)
{
    EXPECT_EQ(Show(ShowsStations() + Steps{Types("Tab", FocusOn(kGrid)), Types("Down", RowFocused(0)),
                                           Types("Down", RowFocused(1)), Types("End", RowFocused(2)),
                                           Types("Home", RowFocused(0)), Sees(NoEditor()),
                                           Types("Tab", FocusOn(kAdvancedOk)), Ends("Return")}),
              kNormalCopy);
}

TEST_F(CopyByKeyboard, EscapeInTheListOfPlanTypesClosesTheListOnly)
{
    EXPECT_EQ(
        Show(Expands() + Steps{Types("Tab Tab", FocusOn(kPlanType)), Types("alt+Down", Dropped(kPlanType)),
                               Types("Escape", Undropped(kPlanType)), Ends("Escape")}),
        kNoCopy);
}
