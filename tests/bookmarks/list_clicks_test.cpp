// Clicks into the list of bookmarks and the buttons that follow them.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

class ListClicks : public BookmarkFixture
{
protected:
    ListClicks() { Bookmark(L"$7)", 2, L"Zinc", L"$72)x"); }

    static Steps SeesButtons(Sight (*open)(int), Sight (*remove)(int))
    {
        return {Sees(open(kOpen)), Sees(remove(kDelete)), Sees(Enabled(kDeleteAll))};
    }

    /// Nothing is asked of the host.
    void Click(const Steps& steps)
    {
        EXPECT_EQ(Show(Steps{TraceBegins()} + steps + Steps{Presses(IDCANCEL)}), S_OK);
        EXPECT_EQ(host.calls, Calls{});
    }
};
} // namespace

TEST_F(ListClicks, OneRowCanBeOpenedAndDeleted)
{
    Click(SeesButtons(&Disabled, &Disabled) + Steps{Selects(L"Weld")} + SeesButtons(&Enabled, &Enabled));
}

TEST_F(ListClicks, SeveralRowsCanBeDeleted)
{
    Click(Steps{Selects(L"Drill"), ClicksRow(L"Zinc", MK_CONTROL), Sees(SelectedCount(2))} +
          SeesButtons(&Disabled, &Enabled) + Steps{ClicksRow(L"Weld", MK_CONTROL), Sees(SelectedCount(3))} +
          SeesButtons(&Disabled, &Enabled));
}

TEST_F(ListClicks, ARangeOfRowsCanBeDeleted)
{
    Click(Steps{Selects(L"Drill"), ClicksRow(L"Zinc", MK_SHIFT), Sees(SelectedCount(3))} +
          SeesButtons(&Disabled, &Enabled));
}

TEST_F(ListClicks, OneRowLeftOfTwoCanBeOpened)
{
    Click(Steps{Selects(L"Drill"), ClicksRow(L"Zinc", MK_CONTROL), ClicksRow(L"Drill", MK_CONTROL),
                Sees(Selected(L"Zinc")), Sees(SelectedCount(1))} +
          SeesButtons(&Enabled, &Enabled));
}

TEST_F(ListClicks, WithoutARowOnlyDeleteAllIsLeft)
{
    Click(Steps{Selects(L"Weld"), SelectsNone()} + SeesButtons(&Disabled, &Disabled));
}

TEST_F(ListClicks, TheLastRowClickedOffLeavesOnlyDeleteAll)
{
    Click(Steps{Selects(L"Weld"), ClicksRow(L"Weld", MK_CONTROL), Sees(NoRowSelected())} +
          SeesButtons(&Disabled, &Disabled));
}

TEST_F(ListClicks, KeysSelectRowsAndLeaveTheButtons)
{
    Click(Steps{[](DialogView& view) { view.GiveFocus(kList); }, Types("Down"), Types("Down"),
                Sees(SelectedCount(1))} +
          SeesButtons(&Disabled, &Disabled) +
          Steps{Selects(L"Drill"), Types("shift+Down", SelectedCount(2))} + SeesButtons(&Enabled, &Enabled));
}

TEST_F(ListClicks, WithoutTheButtonsAreWithoutEffect)
{
    Click(Steps{[](DialogView& view) {
                    for (const int button : {kOpen, kDelete, kDeleteAll})
                        EXPECT_TRUE(DestroyWindow(view.Control(button)));
                },
                Selects(L"Weld"), Sees(SelectedCount(1)), ClicksRow(L"Zinc", MK_SHIFT),
                Sees(SelectedCount(2)), SelectsNone(), Sees(NoRowSelected()),
                [](DialogView& view) {
                    SetWindowPos(view.Window(), nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER);
                    EXPECT_EQ(view.Rect(IDCANCEL).left, 640 / 2 + 74);
                }});
}

TEST_F(ListClicks, AreLeftToTheList)
{
    Click({[](DialogView& view) {
        NMITEMACTIVATE told{};
        told.hdr = {view.List(), static_cast<UINT_PTR>(kList), static_cast<UINT>(NM_CLICK)};
        EXPECT_EQ(SendMessageW(view.Window(), WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&told)), 0);
    }});
}

TEST_F(ListClicks, AClickIntoTheEmptyListEnablesDeleteAllAgain)
{
    ExpectBox(kDeleteAllTitle, L"Do you really want to delete all the bookmarks from the project ' North ' ?",
              IDYES);
    ExpectBox(kDeleteAllTitle, L"Do you really want to delete all the bookmarks from the project ' South ' ?",
              IDYES);
    EXPECT_EQ(Show({Presses(kDeleteAll), Presses(kDeleteAll), Sees(Disabled(kDeleteAll)), SelectsNone(),
                    Sees(Enabled(kDeleteAll)), Sees(Disabled(kOpen)), Sees(Disabled(kDelete)), TraceBegins(),
                    Presses(kDeleteAll), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(host.calls, Calls{}) << "no project is chosen";
}
