// How the bookmarks reach the host's services: each step fails once, and the next is tried.
#include "NullServices.h"
#include "StoreFixture.h"

namespace
{
constexpr const char* kNoGateway =
    "XDeleteBookmarkDlg: OnInitdilaog        m_ptrIQPFObjectManager->GetObject failed";
constexpr const char* kNoClient =
    "XDeleteBookmarkDlg: OnInitdilaog       m_ptrQPIPDClient->GetServerCOMObject";
constexpr const char* kNoStore =
    "XBookmarkMngr:: XBookmarkMngr      m_ptrIQPFObjectManager->GetObject failed";
constexpr const char* kNotAStore = "XBookmarkMngr:: XBookmarkMngr              ->QueryInterface failed";

class BookmarkServices : public StoreFixture
{
protected:
    /// The references that the five pointers hold.
    std::vector<ULONG> Held()
    {
        return {host.Manager().References(), host.Gateway().References(), host.Query().References(),
                host.Store().References()};
    }

    const Calls allCalls = {kGetGateway, GetClient("XBookmarkManager"), GetQuery(1), kGetStore};
};

TEST_F(BookmarkServices, AreAskedForInThisOrder)
{
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(host.calls, allCalls);
    EXPECT_EQ(logBook.Entries(), Entries{});
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 2, 1, 1}));
    Manager::Release();
    EXPECT_EQ(Held(), (std::vector<ULONG>{0, 0, 0, 0}));
}

TEST_F(BookmarkServices, WithoutAGatewayTheStoreIsReached)
{
    host.Manager().script.Set("GetObject", 0, Failed());
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(host.calls, (Calls{kGetGateway, kGetStore}));
    EXPECT_EQ(logBook.Entries(),
              (Entries{Report(325, kFailed, kNoGateway), Report(340, kNoPointer, kNoClient),
                       Report(350, kNoPointer, kNoClient)}));
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 0, 0, 1}));
}

TEST_F(BookmarkServices, ANullGatewayIsAFailure)
{
    host.Manager().script.Set("GetObject", 0, {.givesNull = true});
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(host.calls, (Calls{kGetGateway, kGetStore}));
    EXPECT_EQ(logBook.Entries(), (Entries{Report(325, kOk, kNoGateway), Report(340, kNoPointer, kNoClient),
                                          Report(350, kNoPointer, kNoClient)}));
}

TEST_F(BookmarkServices, AGatewayWithoutItsInterfaceIsReportedByTheNextStep)
{
    host.Gateway().offersGateway = false;
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(host.calls, (Calls{kGetGateway, kGetStore}));
    EXPECT_EQ(logBook.Entries(),
              (Entries{Report(340, kNoPointer, kNoClient), Report(350, kNoPointer, kNoClient)}));
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 1, 0, 1}));
}

TEST_F(BookmarkServices, WithoutAClientTheQueryIsAskedForAsClientZero)
{
    host.Gateway().script.Set("GetClientIdByName", 0, Failed());
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(host.calls, (Calls{kGetGateway, GetClient("XBookmarkManager"), GetQuery(0), kGetStore}));
    EXPECT_EQ(logBook.Entries(), Entries{Report(340, kFailed, kNoClient)});
}

TEST_F(BookmarkServices, ClientZeroIsAFailure)
{
    host.Gateway().clientId = 0;
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(logBook.Entries(), Entries{Report(340, kOk, kNoClient)});
}

TEST_F(BookmarkServices, WithoutAQueryTheStoreIsReached)
{
    host.Gateway().script.Set("GetServerCOMObject", 0, Failed());
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(host.calls, allCalls);
    EXPECT_EQ(logBook.Entries(), Entries{Report(350, kFailed, kNoClient)});
}

TEST_F(BookmarkServices, ANullQueryIsNotReported)
{
    host.Gateway().script.Set("GetServerCOMObject", 0, {.givesNull = true});
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(logBook.Entries(), Entries{});
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 2, 0, 1}));
}

TEST_F(BookmarkServices, AreReachedDespitePositiveStatuses)
{
    host.Manager().script.Set("GetObject", 0, {.status = S_FALSE});
    host.Manager().script.Set("GetObject", 1, {.status = S_FALSE});
    host.Gateway().script.Set("GetClientIdByName", 0, {.status = S_FALSE});
    host.Gateway().script.Set("GetServerCOMObject", 0, {.status = S_FALSE});
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(logBook.Entries(), Entries{});
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 2, 1, 1}));
}

TEST_F(BookmarkServices, WithoutAStoreTheStatusIsThatOfTheMissingPointer)
{
    host.Manager().script.Set("GetObject", 1, Failed());
    EXPECT_EQ(Manager::Initialize(&host.Manager()), E_POINTER);
    EXPECT_EQ(host.calls, allCalls);
    EXPECT_EQ(logBook.Entries(),
              (Entries{Report(362, kFailed, kNoStore), Report(374, kNoPointer, kNotAStore)}));
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 2, 1, 0}));
}

TEST_F(BookmarkServices, ANullStoreIsAFailure)
{
    host.Manager().script.Set("GetObject", 1, {.givesNull = true});
    EXPECT_EQ(Manager::Initialize(&host.Manager()), E_POINTER);
    EXPECT_EQ(logBook.Entries(), (Entries{Report(362, kOk, kNoStore), Report(374, kNoPointer, kNotAStore)}));
}

TEST_F(BookmarkServices, AStoreWithoutItsInterfaceIsAFailure)
{
    host.Store().offersStore = false;
    EXPECT_EQ(Manager::Initialize(&host.Manager()), E_NOINTERFACE);
    EXPECT_EQ(logBook.Entries(), Entries{Report(374, kNoInterface, kNotAStore)});
    EXPECT_EQ(Held(), (std::vector<ULONG>{1, 2, 1, 0}));
}

TEST_F(BookmarkServices, InterfacesThatAreNullAreFailures)
{
    host.Manager().Set(kGatewayClass, NullServices())->Set(kStoreClass, NullServices());
    EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
    EXPECT_EQ(logBook.Entries(), (Entries{Report(340, kNoPointer, kNoClient),
                                          Report(350, kNoPointer, kNoClient), Report(374, kOk, kNotAStore)}));
    EXPECT_EQ(host.Store().References(), 0u);
}

TEST_F(BookmarkServices, WithoutAManagerEachStepIsReported)
{
    EXPECT_EQ(Manager::Initialize(nullptr), E_POINTER);
    EXPECT_EQ(host.calls, Calls{});
    EXPECT_EQ(logBook.Entries(),
              (Entries{Report(325, kNoPointer, kNoGateway), Report(340, kNoPointer, kNoClient),
                       Report(350, kNoPointer, kNoClient), Report(362, kNoPointer, kNoStore),
                       Report(374, kNoPointer, kNotAStore)}));
}

TEST_F(BookmarkServices, AreReplacedAtEachInitialize)
{
    Initialize();
    MemoryHost other;
    EXPECT_EQ(Manager::Initialize(&other.Manager()), S_OK);
    EXPECT_EQ(Held(), (std::vector<ULONG>{0, 0, 0, 0}));
    EXPECT_EQ(other.Store().References(), 1u);
    EXPECT_EQ(Manager::Initialize(nullptr), E_POINTER);
    EXPECT_EQ(other.Manager().References() + other.Gateway().References() + other.Query().References() +
                  other.Store().References(),
              0u);
}

TEST_F(BookmarkServices, EachOperationReportsTheMissingStore)
{
    EXPECT_EQ(Manager::Initialize(nullptr), E_POINTER);
    const std::size_t before = logBook.Entries().size();
    std::vector<XQPComBSTR> projects;
    bool wereRead = true;
    EXPECT_EQ(Manager::GetBookmarkprojectId(projects, wereRead), S_OK);
    EXPECT_FALSE(wereRead);
    Manager::Bookmarks bookmarks;
    EXPECT_EQ(Manager::GetBookmarks(kProject, bookmarks), S_OK);
    EXPECT_TRUE(projects.empty() && bookmarks.empty());
    EXPECT_EQ(Manager::Deletebokmark(kProject, L"tree a"), S_OK);
    EXPECT_EQ(Manager::DeleteAllBookmarks(kProject), S_OK);
    Entries entries = logBook.Entries();
    entries.erase(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(before));
    EXPECT_EQ(
        entries,
        (Entries{
            Report(
                139, kNoPointer,
                "XBookmarkManager::GetBookmarkprojectId              m_ptrSessionDataMng->GetSubKeys failed"),
            Report(242, kNoPointer, "XBookmarkmanager::Deletebokmark   m_pSessionDataMng->DeleteKey failed"),
            Report(300, kNoPointer,
                   "XBookmarkmanager: DeleteAllBookmarks                 m_ptrSessionDataMng->DeleteKey "
                   "failed")}));
}
} // namespace
