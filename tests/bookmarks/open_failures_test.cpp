// Opening a bookmark in the navigator where the object, the host or its tree expander does not answer.
#include "BookmarkFixture.h"

#include "XBookmarkListCtrl.h"

namespace
{
using namespace bookmark_dialog;

class OpenFails : public BookmarkFixture
{
protected:
    void SetOption(const wchar_t* text) { host.Store().Set(4, L"common", L"expandbrowser", text); }

    /// Opens "Weld" after `change`, which happens when the list is filled. The dialog ends.
    void OpenAfter(std::function<void()> change)
    {
        Show({Selects(L"Weld"), TraceBegins(), [change](DialogView&) { change(); }, Presses(kOpen)});
    }

    /// The same where the object is gone: the box is shown, and the dialog stays as it is.
    void OpenGoneAfter(std::function<void()> change)
    {
        ExpectBox(kGoto, kNoObject);
        Show({Selects(L"Weld"), TraceBegins(), [change](DialogView&) { change(); }, Presses(kOpen),
              Sees(InColumn(0, {L"Drill", L"Weld"})), Sees(Selected(L"Weld")), Sees(Enabled(kOpen)),
              Sees(Enabled(kDelete)), Sees(Enabled(kDeleteAll)), Presses(IDCANCEL)});
    }

    /// Puts a row into the list of a dialog that has none.
    static DialogStep PutsRow(qptools::XBookmarkListCtrl::Row& row)
    {
        return {"puts a row into the list", [&row](DialogView& view) {
                    const HWND list = view.List();
                    LVCOLUMNW column{};
                    column.mask = LVCF_WIDTH;
                    column.cx = 100;
                    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
                    LVITEMW item{};
                    item.mask = LVIF_TEXT | LVIF_PARAM;
                    item.pszText = row.name;
                    item.lParam = reinterpret_cast<LPARAM>(&row);
                    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
                }};
    }

    const std::vector<std::string> bookmarksBefore = host.Store().Content();
};
} // namespace

// The object.

TEST_F(OpenFails, AnObjectThatWasDeletedIsToldAndTheRowStays)
{
    OpenGoneAfter([&] { host.Query().Set(L"$71)", nullptr, E_FAIL); });
    EXPECT_EQ(host.Store().Content(), bookmarksBefore);
}

TEST_F(OpenFails, NoObjectWithASuccessIsToldAsWell)
{
    OpenGoneAfter([&] { host.Query().Set(L"$71)", nullptr, S_OK); });
}

TEST_F(OpenFails, AnObjectWithoutAttributesIsToldAsWell)
{
    OpenGoneAfter([&] { weld->offersData = false; });
}

TEST_F(OpenFails, AnUnreadableNameMeansThatTheObjectIsGone)
{
    OpenGoneAfter([&] { weld->Fail(L"name", E_FAIL); });
}

TEST_F(OpenFails, ANameWithoutAValueMeansThatTheObjectIsGone)
{
    OpenGoneAfter([&] { weld->Fail(L"name", S_FALSE); });
}

TEST_F(OpenFails, ByADoubleClickTheDialogStays)
{
    ExpectBox(kGoto, kNoObject);
    Show({TraceBegins(), [&](DialogView&) { weld->Fail(L"name", E_FAIL); }, DoubleClicks(L"Weld"),
          Sees(Selected(L"Weld")), Presses(IDCANCEL)});
}

TEST_F(OpenFails, ByEnterTheDialogEndsAfterTheBox)
{
    ExpectBox(kGoto, kNoObject);
    Show({Selects(L"Weld"), TraceBegins(), [&](DialogView&) { weld->Fail(L"name", E_FAIL); },
          Types("Return")});
}

TEST_F(OpenFails, TheMessageBelongsToTheDialogInFront)
{
    HWND dialog = nullptr;
    ExpectBox(kGoto, kNoObject);
    Show({Selects(L"Weld"), TraceBegins(),
          [&](DialogView& view) {
              dialog = view.Window();
              weld->Fail(L"name", E_FAIL);
          },
          Presses(kOpen), Presses(IDCANCEL)});
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const ShownBox& box = boxes.Shown().front();
    EXPECT_EQ(box.owner, dialog);
    EXPECT_EQ(box.buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONINFORMATION));
}

TEST_F(OpenFails, AnotherBookmarkCanBeOpenedAfterTheBox)
{
    SetOption(L"1");
    ExpectBox(kGoto, kNoObject);
    Show({Selects(L"Weld"), TraceBegins(), [&](DialogView&) { weld->Fail(L"name", E_FAIL); }, Presses(kOpen),
          Selects(L"Drill"), Presses(kOpen)});
}

TEST_F(OpenFails, AnObjectThatIsFoundWithAWarningIsOpened)
{
    SetOption(L"1");
    OpenAfter([&] { host.Query().Set(L"$71)", weld, S_FALSE); });
}

TEST_F(OpenFails, AnObjectCountsEvenIfTheSearchFailed)
{
    SetOption(L"1");
    OpenAfter([&] { host.Query().Set(L"$71)", weld, E_FAIL); });
}

TEST_F(OpenFails, AnEmptyNameIsAName)
{
    SetOption(L"1");
    OpenAfter([&] { weld->Set(L"name", L""); });
}

// The expander.

TEST_F(OpenFails, WithoutAnExpanderTheDialogEnds)
{
    SetOption(L"1");
    OpenAfter([&] { host.Manager().Set(MemoryExpander::kClass, nullptr, E_FAIL); });
    OpenAfter([&] { host.Manager().Set(MemoryExpander::kClass, nullptr, S_OK); });
}

TEST_F(OpenFails, WithoutAnExpanderTheOptionIsWrittenTwice)
{
    OpenAfter([&] { host.Manager().Set(MemoryExpander::kClass, nullptr, E_FAIL); });
    EXPECT_EQ(Stored("expandbrowser"), (std::vector<std::string>{"4 common: expandbrowser=0"}));
}

TEST_F(OpenFails, AnExpanderWithoutItsInterfaceIsNone)
{
    OpenAfter([&] { host.Expander().offersExpander = false; });
    EXPECT_EQ(host.Expander().References(), 0U);
}

TEST_F(OpenFails, AnExpanderThatIsNoViewExpandsTheTree)
{
    SetOption(L"1");
    OpenAfter([&] { host.Expander().offersView = false; });
}

TEST_F(OpenFails, TheStatusOfTheExpandersObjectDoesNotCount)
{
    SetOption(L"1");
    OpenAfter([&] {
        host.Manager().Set(MemoryExpander::kClass, static_cast<IQPFObject*>(&host.Expander()), E_FAIL);
    });
}

TEST_F(OpenFails, AnUnknownProgIdAsksForTheClassOfNoName)
{
    SetOption(L"1");
    const RegisteredProgId none(MemoryExpander::kProgId);
    host.Manager().Set(GUID_NULL, static_cast<IQPFObject*>(&host.Expander()));
    OpenAfter([] {});
}

TEST_F(OpenFails, RunningExpandersAreNotWalked)
{
    SetOption(L"1");
    host.Manager().Running(MemoryExpander::kClass, host.Views({host.View("other")}));
    OpenAfter([] {});
}

TEST_F(OpenFails, AFailedExpansionIsReportedAndTheDialogEnds)
{
    SetOption(L"1");
    OpenAfter([&] { host.Expander().status = E_ACCESSDENIED; });
}

TEST_F(OpenFails, AFailedForcedExpansionHasALineOfItsOwn)
{
    SetOption(L"0");
    OpenAfter([&] { host.Expander().status = E_ACCESSDENIED; });
    EXPECT_EQ(Stored("expandbrowser"), (std::vector<std::string>{"4 common: expandbrowser=0"}));
}

TEST_F(OpenFails, APositiveStatusOfTheExpansionIsNoFailure)
{
    for (const wchar_t* option : {L"1", L"0"})
    {
        SetOption(option);
        OpenAfter([&] { host.Expander().status = S_FALSE; });
    }
    EXPECT_EQ(logBook.Entries(), Entries{});
}

// The dialog's state.

TEST_F(OpenFails, WithoutAHostTheProgIdIsCalledInvalid)
{
    manager = nullptr;
    qptools::XBookmarkListCtrl::Row row{L"Weld cell", L"Weld", XQPComBSTR(L"BrowserTree:$71);")};
    Show({Sees(RowCount(0)), PutsRow(row), Selects(L"Weld"), Sees(Enabled(kOpen)), Presses(kOpen)});
    EXPECT_EQ(host.calls, Calls{});
}

/// The dialog is empty, but for the row that the test puts into it.
TEST_F(OpenFails, WithoutAKeyStoreTheTreeIsExpanded)
{
    host.Manager().script.Set("GetObject", 3, Failed());
    qptools::XBookmarkListCtrl::Row row{L"Weld cell", L"Weld", XQPComBSTR(L"BrowserTree:$71);")};
    Show({Sees(RowCount(0)), PutsRow(row), Selects(L"Weld"), TraceBegins(), Presses(kOpen)});
}

TEST_F(OpenFails, WithoutAQueryTheObjectIsGone)
{
    host.Gateway().script.Set("GetServerCOMObject", 1, Failed());
    ExpectBox(kGoto, kNoObject);
    qptools::XBookmarkListCtrl::Row row{L"Weld cell", L"Weld", XQPComBSTR(L"BrowserTree:$71);")};
    Show({Sees(RowCount(0)), PutsRow(row), Selects(L"Weld"), TraceBegins(), Presses(kOpen),
          Sees(Selected(L"Weld")), Presses(IDCANCEL)});
}

TEST_F(OpenFails, TheExpanderIsReleasedWithTheDialog)
{
    SetOption(L"1");
    std::vector<ULONG> during;
    host.Expander().onExpand = [&] {
        during.push_back(host.Expander().References());
    };
    OpenAfter([] {});
    OpenAfter([&] { host.Expander().offersView = false; });
    ASSERT_EQ(during.size(), 2U);
    EXPECT_EQ(during[0], during[1] + 1) << "the view is kept, too";
    EXPECT_EQ(host.Expander().References(), 0U);
}

TEST_F(OpenFails, TheObjectIsReleasedWithTheDialog)
{
    const auto references = [this] {
        weld->AddRef();
        return weld->Release();
    };
    SetOption(L"1");
    const ULONG before = references();
    ULONG during = 0;
    host.Expander().onExpand = [&] {
        during = references();
    };
    OpenAfter([] {});
    EXPECT_EQ(during, before + 1) << "the object found last is kept";
    EXPECT_EQ(references(), before);
}

/// A host that handles messages while it expands its tree.
TEST_F(OpenFails, ASecondOpeningReplacesTheInterfaces)
{
    SetOption(L"1");
    HWND dialog = nullptr;
    std::vector<ULONG> references;
    host.Expander().onExpand = [&] {
        references.push_back(host.Expander().References());
        if (references.size() == 1)
            SendMessageW(GetDlgItem(dialog, kOpen), BM_CLICK, 0, 0);
    };
    Show(
        {Selects(L"Weld"), TraceBegins(), [&](DialogView& view) { dialog = view.Window(); }, Presses(kOpen)});
    ASSERT_EQ(references.size(), 2U);
    EXPECT_LE(references[1], references[0] + 1) << "the call itself may hold one";
    EXPECT_EQ(host.Expander().References(), 0U);
}
