// The places of the dialog's controls, before and after its window is resized.
#include "BookmarkFixture.h"

#include <algorithm>
#include <array>

namespace
{
using namespace bookmark_dialog;

class BookmarkLayout : public BookmarkFixture
{
protected:
    static SIZE WindowSize(const DialogView& view)
    {
        RECT rect{};
        GetWindowRect(view.Window(), &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }

    static void ExpectPlace(const DialogView& view, int control, int left, int top, int width, int height)
    {
        const RECT rect = view.Rect(control);
        EXPECT_EQ(rect.left, left) << control;
        EXPECT_EQ(rect.top, top) << control;
        EXPECT_EQ(rect.right - rect.left, std::max(width, 0)) << control;
        EXPECT_EQ(rect.bottom - rect.top, std::max(height, 0)) << control;
    }

    /// Resizes the window. A system may keep a window from being smaller than its caption.
    static DialogStep Resizes(int width, int height)
    {
        return {"resizes to " + std::to_string(width) + " x " + std::to_string(height),
                [=](DialogView& view) {
                    SetWindowPos(view.Window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
                }};
    }

    /// The places for the window's width and height. The halves of the buttons' offsets are cut.
    static DialogStep SeesLayout()
    {
        return {"sees the layout", [](DialogView& view) {
                    const SIZE size = WindowSize(view);
                    const int width = static_cast<int>(size.cx);
                    const int height = static_cast<int>(size.cy);
                    SCOPED_TRACE(testing::Message() << width << " x " << height);
                    const int middle = width / 2;
                    ExpectPlace(view, kList, 7, 95, width - 19, height - 195);
                    const auto expectButton = [&](int button, int doubledOffset) {
                        ExpectPlace(view, button, (2 * middle + doubledOffset) / 2, height - 90, 75, 23);
                    };
                    expectButton(kOpen, -335);
                    expectButton(kDelete, -171);
                    expectButton(kDeleteAll, -11);
                    expectButton(IDCANCEL, 149);
                }};
    }

    /// The places of the labels and of the box.
    static std::vector<RECT> Fixed(const DialogView& view)
    {
        std::vector<RECT> places;
        for (const HWND control : view.Controls())
            if (const int id = GetDlgCtrlID(control); id == kProject || id == -1 || id == 65535)
                places.push_back(view.Rect(control));
        return places;
    }

    static std::array<LONG, 4> Sides(const RECT& rect)
    {
        return {rect.left, rect.top, rect.right, rect.bottom};
    }

    void See(const Steps& steps) { EXPECT_EQ(Show(steps + Steps{TraceBegins(), Presses(IDCANCEL)}), S_OK); }
};
} // namespace

TEST_F(BookmarkLayout, BeginsAsTheTemplateSays)
{
    See({[](DialogView& view) {
        // A control's size is converted by itself.
        const auto expectUnits = [&](int control, int left, int top, int width, int height) {
            RECT place{left, top, 0, 0};
            RECT size{0, 0, width, height};
            MapDialogRect(view.Window(), &place);
            MapDialogRect(view.Window(), &size);
            const RECT rect = view.Rect(control);
            EXPECT_EQ(rect.left, place.left) << control;
            EXPECT_EQ(rect.top, place.top) << control;
            EXPECT_EQ(rect.right - rect.left, size.right) << control;
            if (control != kProject) // the height of its list
            {
                EXPECT_EQ(rect.bottom - rect.top, size.bottom) << control;
            }
        };
        expectUnits(kProject, 7, 26, 199, 78);
        expectUnits(kList, 7, 57, 348, 137);
        expectUnits(kOpen, 66, 202, 50, 14);
        expectUnits(kDelete, 126, 202, 50, 14);
        expectUnits(kDeleteAll, 188, 202, 50, 14);
        expectUnits(IDCANCEL, 246, 202, 50, 14);
    }});
}

TEST_F(BookmarkLayout, HasItsIcon)
{
    See({[](DialogView& view) {
        EXPECT_NE(SendMessageW(view.Window(), WM_GETICON, ICON_BIG, 0), 0);
    }});
}

TEST_F(BookmarkLayout, CanBeResizedByItsBorder)
{
    See({[](DialogView& view) {
        EXPECT_TRUE(GetWindowLongPtrW(view.Window(), GWL_STYLE) & WS_THICKFRAME);
    }});
}

TEST_F(BookmarkLayout, FollowsTheSizeOfTheWindow)
{
    See({Resizes(700, 500), SeesLayout(), Resizes(900, 640), SeesLayout(), Resizes(546, 382), SeesLayout()});
}

TEST_F(BookmarkLayout, FollowsOddSizes)
{
    See({Resizes(701, 501), SeesLayout(), Resizes(703, 499), SeesLayout(), Resizes(335, 301), SeesLayout(),
         Resizes(337, 195), SeesLayout()});
}

/// The first button begins left of the window, the list has no height.
TEST_F(BookmarkLayout, FollowsSizesThatAreTooSmall)
{
    See({Resizes(334, 196), SeesLayout(), Resizes(260, 150), SeesLayout(), Resizes(150, 90), SeesLayout(),
         Resizes(1, 1), SeesLayout(), Resizes(600, 400), SeesLayout()});
}

TEST_F(BookmarkLayout, FollowsOneSideAlone)
{
    See({Resizes(600, 400), Resizes(600, 480), SeesLayout(), Resizes(640, 480), SeesLayout()});
}

TEST_F(BookmarkLayout, TheBoxAndTheLabelsStay)
{
    std::vector<RECT> before;
    See({[&](DialogView& view) { before = Fixed(view); }, Resizes(801, 601), Resizes(300, 200),
         [&](DialogView& view) {
             const std::vector<RECT> after = Fixed(view);
             ASSERT_EQ(before.size(), 3U);
             ASSERT_EQ(after.size(), 3U);
             for (std::size_t control = 0; control < before.size(); ++control)
                 EXPECT_EQ(Sides(before[control]), Sides(after[control])) << control;
         }});
}

TEST_F(BookmarkLayout, TheColumnsKeepTheirWidths)
{
    See({Resizes(1200, 700), [](DialogView& view) {
             EXPECT_EQ(view.Columns(view.List()),
                       (std::vector<ShownColumn>{{L"Bookmark Name", 250}, {L"Component Name", 500}}));
         }});
}

TEST_F(BookmarkLayout, AMoveChangesNothing)
{
    See({Resizes(640, 480),
         [](DialogView& view) {
             SetWindowPos(view.Window(), nullptr, 31, 47, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
         },
         SeesLayout()});
}

TEST_F(BookmarkLayout, TheButtonsWorkWhereTheyAre)
{
    See({Resizes(801, 601), Selects(L"Weld"), Sees(Enabled(kOpen)), Sees(Enabled(kDelete))});
}
