// Combo boxes and lists as a step sees and handles them.
#include "DialogDriver.h"
#include "ListDialog.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
using Events = std::vector<int>;

void AddItem(HWND dialog, int combo, const wchar_t* item)
{
    SendDlgItemMessageW(dialog, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
}

// A dialog whose combo boxes have three items; records the notifications of one of them.
struct Boxes
{
    int watched = kDropDown;
    Events events;

    INT_PTR operator()(HWND dialog, UINT message, WPARAM wParam, LPARAM)
    {
        if (message == WM_INITDIALOG)
            for (const int combo : {kDropDown, kDropDownList})
                for (const wchar_t* item : {L"one", L"two", L"three"})
                    AddItem(dialog, combo, item);
        if (message == WM_COMMAND && LOWORD(wParam) == watched)
            events.push_back(HIWORD(wParam));
        return FALSE;
    }
};

bool Has(const Events& events, UINT code)
{
    return std::find(events.begin(), events.end(), static_cast<int>(code)) != events.end();
}

void RunWithBoxes(Boxes& boxes, const DialogStep& step)
{
    DialogDriver driver;
    driver.OnDialog({step, Presses(IDOK)});
    EXPECT_EQ(RunSmallDialog(std::ref(boxes)), IDOK);
}
} // namespace

TEST(DialogView, ShowsTheItemsOfABox)
{
    Boxes boxes;
    RunWithBoxes(boxes, [](DialogView& view) {
        EXPECT_EQ(view.Items(kDropDown), (std::vector<std::wstring>{L"one", L"two", L"three"}));
        EXPECT_EQ(view.Selected(kDropDown), -1);
        EXPECT_FALSE(view.IsDropped(kDropDown));
        EXPECT_NE(view.Dump().find("    item  \"two\""), std::string::npos);
    });
}

TEST(DialogView, OpensABox)
{
    Boxes boxes;
    RunWithBoxes(boxes, [](DialogView& view) {
        view.DropDown(kDropDown);
        EXPECT_TRUE(view.IsDropped(kDropDown));
        EXPECT_EQ(view.Focus(), kDropDown);
    });
    EXPECT_TRUE(Has(boxes.events, CBN_DROPDOWN));
}

TEST(DialogView, ChoosesAnItemWithAllNotificationsOfABox)
{
    for (const int combo : {kDropDown, kDropDownList})
    {
        Boxes boxes{.watched = combo};
        RunWithBoxes(boxes, [&](DialogView& view) {
            view.GiveFocus(combo);
            boxes.events.clear();
            view.Choose(combo, L"two");
            EXPECT_EQ(boxes.events, (Events{CBN_DROPDOWN, CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP}));
            EXPECT_EQ(view.Selected(combo), 1);
            EXPECT_EQ(view.Text(combo), L"two");
            EXPECT_FALSE(view.IsDropped(combo));
            view.Choose(combo, 0);
            EXPECT_EQ(view.Text(combo), L"one");
            view.Choose(combo, 2);
            EXPECT_EQ(view.Text(combo), L"three");
            EXPECT_NE(view.Dump().find("    item* \"three\""), std::string::npos);
        });
    }
}

TEST(DialogView, TypesIntoTheEditFieldOfABox)
{
    Boxes boxes;
    RunWithBoxes(boxes, [&](DialogView& view) {
        view.Choose(kDropDown, 1);
        boxes.events.clear();
        view.SetText(kDropDown, L"t");
        EXPECT_EQ(view.Text(kDropDown), L"t");
        EXPECT_EQ(view.Focus(), kDropDown);
    });
    EXPECT_TRUE(Has(boxes.events, CBN_EDITCHANGE));
}

TEST(DialogView, ShowsTheListThatIsShown)
{
    ListDialog lists;
    RunWithList(lists, {[](DialogView& view) {
                    EXPECT_NE(view.List(), GetDlgItem(view.Window(), kList)) << "the placeholder comes first";
                    EXPECT_EQ(view.Rows(kList), 0);
                    const HWND list = view.List();
                    EXPECT_EQ(view.Rows(list), 20);
                    EXPECT_EQ(view.Columns(list), (std::vector<ShownColumn>{{L"Name", 120}, {L"", 0}}));
                    EXPECT_EQ(view.Cell(list, 2, 0), L"row 2");
                    EXPECT_EQ(view.Cell(list, 3, 0), std::wstring(300, L'x'));
                    EXPECT_EQ(view.Cell(list, 2, 1), L"");
                    EXPECT_EQ(view.SelectedRow(list), -1);
                    EXPECT_NE(view.Dump().find("column \"Name\" 120"), std::string::npos);
                    EXPECT_NE(view.Dump().find("row  \"row 2\" \"\""), std::string::npos);
                }});
}

TEST(DialogView, SelectsRowsByTheMouse)
{
    ListDialog lists;
    RunWithList(lists, {Selects(1),
                        [](DialogView& view) {
                            EXPECT_EQ(view.SelectedRow(view.List()), 1);
                            EXPECT_EQ(view.Focus(), kList);
                            EXPECT_NE(view.Dump().find("row* \"row 1\" \"\""), std::string::npos);
                            view.SelectRow(view.List(), 19);
                        },
                        Sees(RowSelected(19))});
    EXPECT_TRUE(Has(lists.events, NM_CLICK));
    EXPECT_TRUE(Has(lists.events, LVN_ITEMCHANGED));
    EXPECT_FALSE(Has(lists.events, NM_DBLCLK));
}

TEST(DialogView, DoubleClicksRows)
{
    ListDialog lists;
    RunWithList(lists, {DoubleClicks(2), Sees(RowSelected(2))});
    EXPECT_TRUE(Has(lists.events, NM_CLICK));
    EXPECT_TRUE(Has(lists.events, NM_DBLCLK));
}
