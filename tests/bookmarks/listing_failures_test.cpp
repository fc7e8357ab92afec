// The bookmark dialog without one of the host's services: it stays open and empty, and the log says why.
#include "ListingFixture.h"
#include "NullServices.h"

namespace
{
using namespace bookmark_dialog;

constexpr const char* kNoGateway =
    "XDeleteBookmarkDlg: OnInitdilaog        m_ptrIQPFObjectManager->GetObject failed";
constexpr const char* kNoClient =
    "XDeleteBookmarkDlg: OnInitdilaog       m_ptrQPIPDClient->GetServerCOMObject";
constexpr const char* kNoStore =
    "XOpenBookmarkDlg: OnInitdilaog        m_ptrIQPFObjectManager->GetObject failed";
constexpr const char* kNotAStore = "XOpenBookmarkDlg: OnInitdilaog                ->QueryInterface failed";

class EmptyBookmarks : public ListingFixture
{
protected:
    /// Opens, and finds the dialog empty. `calls` are the calls of the dialog's own opening.
    void OpensEmpty(std::size_t calls, const Entries& reports)
    {
        const Calls content = Content();
        Show({Sees(Titled(kTitle)), Sees(Offers(kProject, {})), Sees(NoneChosen(kProject)), Sees(RowCount(0)),
              Sees(Headings({})), Sees(Disabled(kOpen)), Sees(Disabled(kDelete)), Sees(Disabled(kDeleteAll)),
              Sees(Enabled(IDCANCEL)), [](DialogView& view) { view.GiveFocus(kList); }, Types("Delete"),
              Presses(IDCANCEL)});
        const Calls own = Services();
        EXPECT_EQ(Called(), Calls(own.begin(), own.begin() + 4 + static_cast<std::ptrdiff_t>(calls)));
        EXPECT_EQ(logBook.Entries(), reports);
        EXPECT_EQ(Content(), content);
    }
};

TEST_F(EmptyBookmarks, WithoutAGateway)
{
    host.Manager().script.Set("GetObject", 2, Failed());
    OpensEmpty(1, {Report(178, kFailed, kNoGateway)});
}

TEST_F(EmptyBookmarks, WithANullGateway)
{
    host.Manager().script.Set("GetObject", 2, {.givesNull = true});
    OpensEmpty(1, {Report(178, kOk, kNoGateway)});
}

TEST_F(EmptyBookmarks, WithoutAClient)
{
    host.Gateway().script.Set("GetClientIdByName", 1, Failed());
    OpensEmpty(2, {Report(192, kFailed, kNoClient)});
}

TEST_F(EmptyBookmarks, WithClientZero)
{
    host.Gateway().script.Set("GetClientIdByName", 1, {.givesNull = true});
    OpensEmpty(2, {Report(192, kOk, kNoClient)});
}

TEST_F(EmptyBookmarks, WithAGatewayWithoutItsInterface)
{
    host.Gateway().offersGateway = false;
    Show({Sees(Offers(kProject, {})), Sees(Disabled(kDeleteAll)), Presses(IDCANCEL)});
    EXPECT_EQ(host.calls, (Calls{kGetGateway, kGetStore, kGetGateway}));
    EXPECT_EQ(logBook.Entries(),
              (Entries{StoreOf(340, kNoPointer, kNoClient), StoreOf(350, kNoPointer, kNoClient),
                       Report(192, kNoPointer, kNoClient)}));
}

TEST_F(EmptyBookmarks, WithoutAQuery)
{
    host.Gateway().script.Set("GetServerCOMObject", 1, Failed());
    OpensEmpty(3, {Report(203, kFailed, kNoClient)});
}

TEST_F(EmptyBookmarks, WithANullQuery)
{
    host.Gateway().script.Set("GetServerCOMObject", 1, {.givesNull = true});
    OpensEmpty(3, {Report(203, kOk, kNoClient)});
}

TEST_F(EmptyBookmarks, WithoutAStore)
{
    host.Manager().script.Set("GetObject", 3, Failed());
    OpensEmpty(4, {Report(212, kFailed, kNoStore)});
}

TEST_F(EmptyBookmarks, WithANullStore)
{
    host.Manager().script.Set("GetObject", 3, {.givesNull = true});
    OpensEmpty(4, {Report(212, kOk, kNoStore)});
}

TEST_F(EmptyBookmarks, WithAStoreWithoutItsInterface)
{
    host.Store().offersStore = false;
    OpensEmpty(
        4, {StoreOf(374, kNoInterface, "XBookmarkMngr:: XBookmarkMngr              ->QueryInterface failed"),
            Report(219, kNoInterface, kNotAStore)});
}

TEST_F(EmptyBookmarks, WithAStoreWhoseInterfaceIsNull)
{
    host.Manager().Set(kStoreClass, NullServices());
    OpensEmpty(4, {StoreOf(374, kOk, "XBookmarkMngr:: XBookmarkMngr              ->QueryInterface failed"),
                   Report(219, kOk, kNotAStore)});
}

TEST_F(EmptyBookmarks, WithAGatewayWhoseInterfaceIsNull)
{
    host.Manager().Set(kGatewayClass, NullServices());
    Show({Sees(Offers(kProject, {})), Sees(Disabled(kDeleteAll)), Presses(IDCANCEL)});
    EXPECT_EQ(host.calls, (Calls{kGetGateway, kGetStore, kGetGateway}));
    EXPECT_EQ(logBook.Entries().back(), Report(192, kNoPointer, kNoClient));
}

TEST_F(EmptyBookmarks, WithoutAManager)
{
    manager = nullptr;
    Show({Sees(Offers(kProject, {})), Sees(RowCount(0)), Sees(Disabled(kOpen)), Sees(Disabled(kDelete)),
          Sees(Disabled(kDeleteAll)), Presses(IDCANCEL)});
    EXPECT_EQ(host.calls, Calls{});
    const Entries entries = logBook.Entries();
    ASSERT_EQ(entries.size(), 6u);
    EXPECT_EQ(entries.front(), StoreOf(325, kNoPointer, kNoGateway));
    EXPECT_EQ(entries.back(), Report(178, kNoPointer, kNoGateway));
}

TEST_F(EmptyBookmarks, EndByEnter)
{
    host.Manager().script.Set("GetObject", 2, Failed());
    EXPECT_EQ(Show({Ends("Return")}), S_OK);
}

TEST_F(EmptyBookmarks, AreFollowedByAFullDialog)
{
    host.Manager().script.Set("GetObject", 2, Failed());
    Show({Sees(RowCount(0)), Presses(IDCANCEL)});
    Show({Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(EmptyBookmarks, AreNotThereAtPositiveStatuses)
{
    for (const std::size_t call : {2, 3})
        host.Manager().script.Set("GetObject", call, {.status = S_FALSE});
    host.Gateway().script.Set("GetClientIdByName", 1, {.status = S_FALSE});
    host.Gateway().script.Set("GetServerCOMObject", 1, {.status = S_FALSE});
    Show({Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(EmptyBookmarks, ThatCannotBeShownAreASuccess)
{
    {
        const NoDialogs none;
        EXPECT_EQ(bookmarks->ShowDialog(manager), S_OK);
    }
    EXPECT_EQ(host.calls, Calls{});
    EXPECT_EQ(host.Manager().References(), 0u);
    Show({Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(EmptyBookmarks, AreNotThereWhenOnlyTheStoresOwnServicesFailed)
{
    host.Manager().script.Set("GetObject", 0, Failed());
    Show({Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
    EXPECT_EQ(logBook.Entries().size(), 3u);
}

TEST_F(EmptyBookmarks, WithoutTheStoreOfTheManagerTheDialogEnds)
{
    host.Manager().script.Set("GetObject", 1, Failed());
    const Calls content = Content();
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    EXPECT_EQ(Content(), content) << "nothing could be read";
}
} // namespace
