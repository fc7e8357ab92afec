// What the bookmark dialog holds of the host, during a dialog, after it, and after the module.
#include "BookmarkWords.h"
#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "LogFolder.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"

#include "qptools.h"

#include <gtest/gtest.h>

namespace
{
using namespace bookmark_dialog;

class BookmarkLife : public testing::Test
{
protected:
    using Counts = std::vector<ULONG>;

    BookmarkLife() { host.Store().Bookmark(L"$7)", 0, L"Weld", MemoryHost::TreeString(L"$71)").c_str()); }

    /// References to the manager, the gateway, the query, the store and the two objects.
    Counts Held()
    {
        return {host.Manager().References(), host.Gateway().References(), host.Query().References(),
                host.Store().References(),   References(north),           References(weld)};
    }
    /// Held by the host and the test.
    static ULONG References(const ComPtr<MemoryObject>& object)
    {
        object->AddRef();
        return object->Release();
    }

    HRESULT Show(const ComPtr<IXBookMark>& bookmarks, Steps steps, IQPFObjectManager* manager)
    {
        dialogs.OnDialog(std::move(steps) + Steps{Presses(IDCANCEL)});
        const HRESULT status = bookmarks->ShowDialog(manager);
        EXPECT_TRUE(dialogs.AllShown());
        return status;
    }
    HRESULT Show(const ComPtr<IXBookMark>& bookmarks, Steps steps = {})
    {
        return Show(bookmarks, std::move(steps), &host.Manager());
    }

    LogFolder folder;
    MemoryHost host;
    BoxAnswers boxes;
    DialogDriver dialogs;
    const ComPtr<MemoryObject> north = host.Known(L"$7)", L"North");
    const ComPtr<MemoryObject> weld = host.Known(L"$71)", L"Weld cell");
    const Counts none = Held();
    /// The five pointers that the module keeps: the gateway is two of them.
    const Counts kept = {1, 2, 1, 1, 2, 2};
};

TEST_F(BookmarkLife, AfterADialogFivePointersAreLeftAndAfterTheModuleNone)
{
    EXPECT_EQ(none, (Counts{0, 0, 0, 0, 2, 2}));
    {
        const ModuleUnderTest module;
        ComPtr<IXBookMark> bookmarks;
        ASSERT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
        EXPECT_EQ(Held(), none);
        EXPECT_EQ(Show(bookmarks, {[&](DialogView&) {
                           const Counts held = Held();
                           EXPECT_EQ((Counts(held.begin(), held.begin() + 4)), (Counts{2, 3, 2, 2}));
                       }}),
                  S_OK);
        EXPECT_EQ(Held(), kept);
        bookmarks.reset();
        EXPECT_EQ(Held(), kept);
        EXPECT_EQ(module.CanUnloadNow(), S_OK) << "the pointers do not keep the module";
    }
    EXPECT_EQ(Held(), none);
}

TEST_F(BookmarkLife, EachActionLeavesTheSamePointers)
{
    const ModuleUnderTest module;
    ComPtr<IXBookMark> bookmarks;
    ASSERT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
    boxes.Expect(kDeleteTitle, kDeleteOne, IDYES);
    EXPECT_EQ(
        Show(bookmarks, {Selects(0), EditsLabel(0, L"Other"), Types("Return"), Selects(0), Presses(kDelete)}),
        S_OK);
    EXPECT_EQ(Held(), kept);
}

TEST_F(BookmarkLife, ASecondDialogOfTheComponentWorksAsTheFirst)
{
    const ModuleUnderTest module;
    ComPtr<IXBookMark> bookmarks;
    ASSERT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
    for (int dialog = 0; dialog < 3; ++dialog)
    {
        HWND window = nullptr;
        EXPECT_EQ(Show(bookmarks, {Sees(InColumn(0, {L"Weld"})),
                                   [&](DialogView& view) {
                                       window = view.Window();
                                   }}),
                  S_OK);
        EXPECT_EQ(Held(), kept);
        EXPECT_FALSE(IsWindow(window));
    }
}

TEST_F(BookmarkLife, AnotherHostTakesThePlaceOfTheFirst)
{
    const ModuleUnderTest module;
    ComPtr<IXBookMark> bookmarks;
    ASSERT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
    EXPECT_EQ(Show(bookmarks), S_OK);
    EXPECT_EQ(Show(bookmarks, {Sees(RowCount(0)), Sees(Disabled(kDeleteAll))}, nullptr), S_OK);
    EXPECT_EQ(Held(), none) << "null is another host";
}

TEST_F(BookmarkLife, ADialogOverAnotherListsTheSame)
{
    const ModuleUnderTest module;
    ComPtr<IXBookMark> first;
    ComPtr<IXBookMark> second;
    ASSERT_EQ(module.Create(CLSID_XBookMark, first), S_OK);
    ASSERT_EQ(module.Create(CLSID_XBookMark, second), S_OK);
    EXPECT_EQ(
        Show(first, {[&](DialogView&) { EXPECT_EQ(Show(second, {Sees(InColumn(0, {L"Weld"}))}), S_OK); },
                     Sees(InColumn(0, {L"Weld"}))}),
        S_OK);
    EXPECT_EQ(Held(), kept);
}

TEST_F(BookmarkLife, TheHostReleasesTheComponentDuringItsDialog)
{
    const ModuleUnderTest module;
    ComPtr<IXBookMark> bookmarks;
    ASSERT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
    IXBookMark* const raw = bookmarks.get();
    dialogs.OnDialog(
        {[&](DialogView&) { bookmarks.reset(); }, Sees(InColumn(0, {L"Weld"})), Presses(IDCANCEL)});
    EXPECT_EQ(raw->ShowDialog(&host.Manager()), S_OK);
    EXPECT_EQ(Held(), kept);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}
} // namespace
