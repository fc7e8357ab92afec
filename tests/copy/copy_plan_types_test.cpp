// The radio buttons and the list of plan types in the enhanced copy dialog.
#include "ChoiceFixture.h"

namespace
{
using namespace copy_dialog;

/// A station, and a fixture by way of a relationship: Normal finds the relationship's own type.
class CopyPlanTypes : public ChoiceFixture
{
protected:
    CopyPlanTypes()
    {
        chosen = {press, uses};
        host.Config().Find(L"Fixture")->Attribute(L"Order");
    }

    /// What each radio button offers.
    static inline const Texts kOfNormal = {L"Station", L"Uses"};
    static inline const Texts kOfDeep = {L"Fixture", L"Station"};

    static Steps SeesNothing()
    {
        return {Sees(Offers(kPlanType, {})), Sees(NoneChosen(kPlanType)), Sees(RowCount(0))};
    }

    static DialogStep ClosesList()
    {
        return {"closes the list", [](DialogView& view) {
                    SendMessageW(view.Control(kPlanType), CB_SHOWDROPDOWN, FALSE, 0);
                }};
    }

    static const Calls kStation;
};

const Calls CopyPlanTypes::kStation = FillOf("Station", {"Order", "Mass", "Due"}) +
                                      Calls{"Drawing.GetProperty(54)", "Station attributes.GetSingleNext()"};

// The list.

TEST_F(CopyPlanTypes, AreListedWhenTheListOpens)
{
    Open(Expands() + SeesNothing() +
         Steps{Drops(kPlanType), Sees(Offers(kPlanType, kOfNormal)), Sees(NoneChosen(kPlanType)),
               LedToNoCall(), Types("Escape"), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, OfDeepLookThroughRelationships)
{
    Open(Expands() + Steps{Checks(kDeepRadio), Drops(kPlanType), Sees(Offers(kPlanType, kOfDeep)),
                           LedToNoCall(), Types("Escape"), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, AreSorted)
{
    chosen = {Typed(L"weld", {}), Typed(L"Drill", {}), Typed(L"Assembly", {}), Typed(L"anvil", {}), press};
    Open(Expands() + Steps{Drops(kPlanType),
                           Sees(Offers(kPlanType, {L"anvil", L"Assembly", L"Drill", L"Station", L"weld"})),
                           Types("Escape"), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, AreListedOnce)
{
    Open(Expands() + Steps{Drops(kPlanType), ClosesList(), Drops(kPlanType), ClosesList(), Drops(kPlanType),
                           Sees(Offers(kPlanType, kOfNormal)), ClosesList(), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, OfLaterWalksAppearWhenTheListIsFilledAgain)
{
    chosen = {cell};
    cell->FreshChildren(L"nodes", {press});
    const auto crane = host.Node(L"crane", L"Crane");
    Open(Expands() + Steps{Checks(kDeepRadio), Drops(kPlanType),
                           Sees(Offers(kPlanType, {L"Cell", L"Station"})), ClosesList(),
                           [&](DialogView&) {
                               cell->FreshChildren(L"nodes", {press, crane});
                           },
                           Presses(kAdvanced), Presses(kAdvanced), Drops(kPlanType),
                           Sees(Offers(kPlanType, {L"Cell", L"Station"})), ClosesList(), Checks(kNormalRadio),
                           Drops(kPlanType), ClosesList(), Checks(kDeepRadio), Drops(kPlanType),
                           Sees(Offers(kPlanType, {L"Cell", L"Crane", L"Station"})), ClosesList(),
                           Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, OfOneCaptionAreTwoRowsAndTheSecondIsNotRead)
{
    host.Config().typeCopies = true;
    chosen = {press, lathe};
    Open(Expands() + Steps{Drops(kPlanType), Sees(Offers(kPlanType, {L"Station", L"Station"})),
                           Chooses(kPlanType, 0), LedTo(kStation), Sees(RowCount(3)), Chooses(kPlanType, 1),
                           LedToNoCall(), Sees(RowCount(3)), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, WithoutATypeAreNotListed)
{
    lathe->Type(nullptr, S_OK);
    chosen = {lathe, press};
    Open(Expands() + Steps{Drops(kPlanType), Sees(Offers(kPlanType, {L"Station"})), ClosesList(),
                           Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, WithANumberForACaptionShowIt)
{
    host.Config().Find(L"Station")->Set(L"captionsingular", 17);
    Open(Expands() +
         Steps{Chooses(kPlanType, L"17"), LedTo(kStation), Sees(RowCount(3)), Presses(kAdvancedCancel)});
}

/// Without a text there is nothing to tell it from no plan type: it is read whenever it is chosen.
TEST_F(CopyPlanTypes, WithoutACaptionAreReadOnceForEachChoice)
{
    chosen = {press};
    host.Config().Find(L"Station")->Set(L"captionsingular", MemoryValue());
    Open(Expands() + Steps{Drops(kPlanType), Sees(Offers(kPlanType, {L""})), Chooses(kPlanType, 0),
                           LedTo(kStation), Sees(RowCount(3)), Drops(kPlanType), ClosesList(), LedToNoCall(),
                           Chooses(kPlanType, 0), Presses(kAdvancedCancel)});
}

// Radio buttons.

TEST_F(CopyPlanTypes, StayForTheRadioButtonTheyWereListedFor)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station"), LedTo(kStation), Presses(kNormalRadio),
                           LedToNoCall(), Sees(RowCount(3)), Sees(Chosen(kPlanType, L"Station")),
                           Sees(Offers(kPlanType, kOfNormal)), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, AreEmptiedByTheOtherRadioButton)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station"), Sees(RowCount(3)), Marks(), Checks(kDeepRadio)} +
         SeesNothing() +
         Steps{LedToNoCall(), Drops(kPlanType), Sees(Offers(kPlanType, kOfDeep)), LedToNoCall(),
               Chooses(kPlanType, L"Station"), LedTo(kStation), Sees(RowCount(3)), Presses(kAdvancedCancel)});
}

/// The list is empty and due, although it was last filled for the button that is checked again.
TEST_F(CopyPlanTypes, AreListedAgainAfterThereAndBack)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station"), Checks(kDeepRadio), Checks(kNormalRadio)} +
         SeesNothing() +
         Steps{Drops(kPlanType), Sees(Offers(kPlanType, kOfNormal)), ClosesList(), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, FollowTheRadioButtonBeforeTheFirstList)
{
    Open(Expands() + Steps{Presses(kNormalRadio), Checks(kDeepRadio), Checks(kNormalRadio)} + SeesNothing() +
         Steps{LedToNoCall(), Drops(kPlanType), Sees(Offers(kPlanType, kOfNormal)), ClosesList(),
               Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, FollowTheRadioButtonsByArrowKeys)
{
    Open(Expands() +
         Steps{Chooses(kPlanType, L"Station"), Sees(RowCount(3)),
               [](DialogView& view) { view.GiveFocus(kNormalRadio); }, Types("Right", FocusOn(kDeepRadio)),
               Sees(Checked(kDeepRadio))} +
         SeesNothing() +
         Steps{Types("Left", FocusOn(kNormalRadio)), Sees(Checked(kNormalRadio)), Drops(kPlanType),
               Sees(Offers(kPlanType, kOfNormal)), ClosesList(), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, KeepTheirValuesOverAChangeOfTheRadioButton)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station")} + Fills(2, L"next") +
         Steps{Checks(kDeepRadio), Chooses(kPlanType, L"Station"), Sees(InColumn(1, {L"", L"", L"next"})),
               Presses(kAdvancedOk)});
    EXPECT_EQ(Clicked(), 8);
    Apply({press});
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'next'");
}

// An open list.

TEST_F(CopyPlanTypes, AreNotReadWhenTheListClosesWithoutAChoice)
{
    Open(Expands() + Steps{Drops(kPlanType), Types("Escape"), Sees(Undropped(kPlanType)), LedToNoCall()} +
         Steps{Sees(RowCount(0)), Sees(Visible(kGrid)), Drops(kPlanType), ClosesList(), LedToNoCall(),
               Presses(kAdvancedCancel)});
    EXPECT_EQ(Clicked(), -1);
}

TEST_F(CopyPlanTypes, AreReadWhenABrowsedListCloses)
{
    Open(Expands() + Steps{Drops(kPlanType), Types("Down"), Types("Down"), Types("Up"), LedToNoCall(),
                           Sees(Dropped(kPlanType)), Types("Return"), Sees(Undropped(kPlanType)),
                           LedTo(kStation), Sees(Chosen(kPlanType, L"Station")), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, AreReadWhenTabLeavesABrowsedList)
{
    Open(Expands() + Steps{Drops(kPlanType), Types("Down"), LedToNoCall(), Types("Tab", FocusOn(kGrid)),
                           Sees(Undropped(kPlanType)), LedTo(kStation), Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, AreReadAtOnceByArrowsInAClosedList)
{
    Open(Expands() + Steps{Drops(kPlanType), ClosesList(), LedToNoCall(), Types("Down"), LedTo(kStation),
                           Sees(RowCount(3)), Types("Up"), LedToNoCall(), Presses(kAdvancedCancel)});
}

/// Nothing is listed for arrows before the list has opened.
TEST_F(CopyPlanTypes, AreNotListedByArrows)
{
    Open(Expands() +
         Steps{[](DialogView& view) { view.GiveFocus(kPlanType); }, Types("Down"), LedToNoCall()} +
         SeesNothing() + Steps{Presses(kAdvancedCancel)});
}

TEST_F(CopyPlanTypes, AreListedByF4)
{
    Open(Expands() + Steps{[](DialogView& view) { view.GiveFocus(kPlanType); },
                           Types("F4", Dropped(kPlanType)), Sees(Offers(kPlanType, kOfNormal)),
                           Types("Escape", Undropped(kPlanType)), Sees(Visible(kGrid)),
                           Presses(kAdvancedCancel)});
}

/// After Escape the grid belongs to the plan type that the list shows.
TEST_F(CopyPlanTypes, AndTheGridAgreeAfterEscapeFromABrowsedList)
{
    chosen = {press, Typed(L"Tool", {L"Wear"})};
    Open(Expands() + Steps{Chooses(kPlanType, L"Station"), Drops(kPlanType), Types("Down"), Types("Escape"),
                           Sees(Undropped(kPlanType)), Sees(Visible(kGrid)),
                           [](DialogView& view) {
                               EXPECT_EQ(view.Rows(view.List()), view.Text(kPlanType) == L"Tool" ? 1 : 3);
                           },
                           Presses(kAdvancedCancel)});
}
} // namespace
