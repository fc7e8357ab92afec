// Which project is chosen when the bookmark dialog opens: that of a view of the navigator.
#include "ListingFixture.h"

namespace
{
using namespace bookmark_dialog;

class BookmarkViews : public ListingFixture
{
protected:
    /// Opens with these views. Returns the calls from the views to the first project that is read.
    Calls OpensAt(const std::wstring& project)
    {
        Show({Sees(Chosen(kProject, project)), Presses(IDCANCEL)});
        const Calls all = Called();
        const auto start = std::find(all.begin(), all.end(), "views.RemNext(1)");
        return {start, std::find(start, all.end(), GetClient("XOpenBookmarkDlg"))};
    }

    const ComPtr<MemoryView> view = host.View("view");
    const ComPtr<MemoryView> other = host.View("other");
    const Calls next = {"views.RemNext(1)"};
    const Calls asked = {"view.IsProjectShown($7))", "view.IsProjectShown($8))"};
    const Calls askedOther = {"other.IsProjectShown($7))", "other.IsProjectShown($8))"};
};

TEST_F(BookmarkViews, ThatShowAProjectChooseIt)
{
    view->Show(L"$8)");
    host.Views({view});
    EXPECT_EQ(OpensAt(L"South"), next + asked + next);
}

TEST_F(BookmarkViews, ThatShowNoneChooseTheFirst)
{
    host.Views({view});
    EXPECT_EQ(OpensAt(L"North"), next + asked + next);
}

TEST_F(BookmarkViews, OfTwoTheLaterOneChooses)
{
    view->Show(L"$8)");
    other->Show(L"$7)");
    host.Views({view, other});
    EXPECT_EQ(OpensAt(L"North"), next + asked + next + askedOther + next);
}

TEST_F(BookmarkViews, OfTwoTheOneThatShowsAnyChooses)
{
    view->Show(L"$8)");
    host.Views({view, other});
    EXPECT_EQ(OpensAt(L"South"), next + asked + next + askedOther + next);
}

TEST_F(BookmarkViews, ThatShowBothChooseTheLaterOne)
{
    view->Show(L"$7)")->Show(L"$8)");
    host.Views({view});
    EXPECT_EQ(OpensAt(L"South"), next + asked + next);
}

TEST_F(BookmarkViews, ThatShowAProjectThatIsGoneChooseTheFirst)
{
    host.Query().Set(L"$8)", nullptr, S_FALSE);
    view->Show(L"$8)");
    host.Views({view});
    EXPECT_EQ(OpensAt(L"North"), next + asked + next);
}

TEST_F(BookmarkViews, ThatAlsoShowAProjectThatIsGoneChooseTheOther)
{
    host.Store().Bookmark(L"$9)", 0, L"Lost", L"tree");
    view->Show(L"$8)")->Show(L"$9)");
    host.Views({view});
    EXPECT_EQ(OpensAt(L"South"), next + asked + Calls{"view.IsProjectShown($9))"} + next);
}

TEST_F(BookmarkViews, OfAProjectWithTwoEntriesChooseTheFirst)
{
    host.Store().Clear();
    Bookmark(L"$8)", 0, L"Paint", L"$81)");
    host.Store().Bookmark(L"South $8)", 0, L"Lost", L"tree");
    Bookmark(L"$7)", 0, L"Weld", L"$71)");
    view->Show(L"$8)");
    host.Views({view});
    Show({Sees(Offers(kProject, {L"North", L"South", L"South"})),
          [](DialogView& dialog) { EXPECT_EQ(dialog.Selected(kProject), 1); }, Presses(IDCANCEL)});
}

TEST_F(BookmarkViews, AreReachedBehindFortyNullOnes)
{
    view->Show(L"$8)");
    std::vector<ComPtr<MemoryView>> views(40);
    views.push_back(view);
    host.Views(views);
    Calls calls = {};
    for (int null = 0; null < 40; ++null)
        calls = calls + next;
    EXPECT_EQ(OpensAt(L"South"), calls + next + asked + next);
}

TEST_F(BookmarkViews, BehindAThousandNullOnesAreNotReached)
{
    view->Show(L"$8)");
    std::vector<ComPtr<MemoryView>> views(1'000);
    views.push_back(view);
    host.Views(views);
    EXPECT_EQ(OpensAt(L"North"), Calls(1'000, next.front()));
}

TEST_F(BookmarkViews, WithoutTheirInterfaceAreSkipped)
{
    view->offersView = false;
    view->Show(L"$7)");
    other->Show(L"$8)");
    host.Views({view, other});
    EXPECT_EQ(OpensAt(L"South"), next + next + askedOther + next);
}

TEST_F(BookmarkViews, ShowAProjectByStatusZeroAlone)
{
    view->Show(L"$7)", 2)->Show(L"$8)", E_FAIL);
    other->Show(L"$8)", S_FALSE);
    host.Views({view, other});
    EXPECT_EQ(OpensAt(L"North"), next + asked + next + askedOther + next);
}

TEST_F(BookmarkViews, EndAtAnyStatusButZero)
{
    other->Show(L"$8)");
    const ComPtr<MemoryRunning> views = host.Views({view, other});
    views->statuses[1] = 2; // with the other view
    EXPECT_EQ(OpensAt(L"North"), next + asked + next);
}

TEST_F(BookmarkViews, ThatCannotBeListedChooseTheFirst)
{
    view->Show(L"$8)");
    host.Manager().Running(MemoryView::kClass, host.Views({view}), E_FAIL);
    EXPECT_EQ(OpensAt(L"North"), Calls{});
    host.Manager().Running(MemoryView::kClass, {});
    EXPECT_EQ(OpensAt(L"North"), Calls{});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkViews, ListedByAPositiveStatusAreAsked)
{
    view->Show(L"$8)");
    host.Manager().Running(MemoryView::kClass, host.Views({view}), S_FALSE);
    EXPECT_EQ(OpensAt(L"South"), next + asked + next);
}

TEST_F(BookmarkViews, OfAnUnknownClassAreReportedAndAskedForAllTheSame)
{
    viewClass.reset();
    const RegisteredProgId none(MemoryView::kProgId);
    view->Show(L"$8)");
    host.Manager().Running(CLSID{}, host.Views({view}));
    EXPECT_EQ(OpensAt(L"South"), next + asked + next);
    EXPECT_EQ(logBook.Entries(), Entries{"host call\tOpenBookmarkDlg\t-\t250\t0x800401F3\tfalse,false\t"
                                         "XopenBookmarkDlg::openBookmark"});
}
} // namespace
