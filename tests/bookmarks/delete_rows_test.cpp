// How the user deletes bookmarks by the button and by the key.
#include "ListingFixture.h"

namespace
{
using namespace bookmark_dialog;

class DeletedRows : public ListingFixture
{
protected:
    DeletedRows() { Bookmark(L"$7)", 2, L"Saw", L"$73)"); }

    /// The question, and what it adds to the calls.
    std::string Asks(const wchar_t* question, int answer = IDYES)
    {
        ExpectBox(kDeleteTitle, question, answer);
        return "box Delete Bookmark Component: " + Utf8Of(XQPComBSTR(question));
    }

    /// Selects the first rows, as many as given.
    static Steps SelectsFirst(int rows)
    {
        Steps steps = {Selects(0)};
        for (int row = 1; row < rows; ++row)
            steps.push_back(Types("shift+Down"));
        return steps;
    }

    static Sight ButtonsOff()
    {
        return {"Open and Delete are disabled", [](const DialogView& view) {
                    return !view.IsEnabled(kOpen) && !view.IsEnabled(kDelete);
                }};
    }

    const ComPtr<MemoryObject> saw = host.Known(L"$73)", L"Saw cell");
    const std::string weldTree = "BrowserTree:$71);";
    const std::string drillTree = "BrowserTree:$72);";
    const std::string sawTree = "BrowserTree:$73);";
    const Calls south = {"~/gotoitemname/$8): gotoitemname0=Paint",
                         "~/gotoitemtree/$8): 0=BrowserTree:$81);"};
    const Calls drillDeleted = DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Saw}",
                                           "{0 = " + weldTree + ", 1 = " + sawTree + "}");
};

TEST_F(DeletedRows, OneIsDeletedWhenTheUserSaysYes)
{
    const std::string box = Asks(kDeleteOne);
    EXPECT_EQ(During({Selects(L"Drill"), Sees(Enabled(kDelete)), Presses(kDelete),
                      Sees(InColumn(0, {L"Saw", L"Weld"})), Sees(InColumn(1, {L"Saw cell", L"Weld cell"})),
                      Sees(ButtonsOff()), Sees(Enabled(kDeleteAll)), Sees(NoRowSelected())}),
              Calls{box} + drillDeleted);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(DeletedRows, OneIsDeletedByTheKey)
{
    const std::string box = Asks(kDeleteOne);
    EXPECT_EQ(During({Selects(L"Drill"), Types("Delete"), Sees(InColumn(0, {L"Saw", L"Weld"})),
                      Sees(ButtonsOff())}),
              Calls{box} + drillDeleted);
}

TEST_F(DeletedRows, NoneIsDeletedByTheKeyWithoutASelection)
{
    EXPECT_EQ(During({[](DialogView& view) { view.GiveFocus(kList); }, Types("Delete"), Sees(RowCount(3))}),
              Calls{});
}

TEST_F(DeletedRows, NoneIsDeletedWhenTheUserSaysNo)
{
    const std::string box = Asks(kDeleteOne, IDNO);
    EXPECT_EQ(During({Selects(L"Drill"), Presses(kDelete), Sees(RowCount(3)), Sees(Selected(L"Drill")),
                      Sees(Enabled(kDelete)), Sees(Enabled(kOpen))}),
              Calls{box});
}

TEST_F(DeletedRows, NoneIsDeletedWhenTheQuestionCannotBeShown)
{
    EXPECT_EQ(During({Selects(L"Drill"),
                      [](DialogView& view) {
                          const NoDialogs none;
                          view.Click(kDelete);
                      },
                      Sees(RowCount(3))}),
              Calls{});
}

TEST_F(DeletedRows, TheQuestionBelongsToTheDialog)
{
    HWND dialog = nullptr;
    Asks(kDeleteOne, IDNO);
    During({Selects(L"Drill"), [&](DialogView& view) { dialog = view.Window(); }, Presses(kDelete)});
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const ShownBox& box = boxes.Shown().front();
    EXPECT_EQ(box.owner, dialog);
    EXPECT_EQ(box.buttons, static_cast<UINT>(MB_YESNO));
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONQUESTION));
}

TEST_F(DeletedRows, SeveralAreDeletedFromTheTop)
{
    const std::string box = Asks(kDeleteSeveral);
    EXPECT_EQ(During(SelectsFirst(2) + Steps{Presses(kDelete), Sees(InColumn(0, {L"Weld"})),
                                             Sees(ButtonsOff()), Sees(Enabled(kDeleteAll))}),
              Calls{box} + drillDeleted +
                  DeleteCalls("$7)", 1, "{gotoitemname0 = Weld}", "{0 = " + weldTree + "}"));
}

TEST_F(DeletedRows, SeveralAreKeptWhenTheUserSaysNo)
{
    const std::string box = Asks(kDeleteSeveral, IDNO);
    EXPECT_EQ(During(SelectsFirst(3) + Steps{Types("Delete"), Sees(RowCount(3))}), Calls{box});
}

TEST_F(DeletedRows, AllAreDeletedAndTheNextProjectIsListed)
{
    const std::string box = Asks(kDeleteSeveral);
    EXPECT_EQ(
        During(SelectsFirst(3) + Steps{Presses(kDelete), Sees(Offers(kProject, {L"South"})),
                                       Sees(Chosen(kProject, L"South")), Sees(InColumn(0, {L"Paint"})),
                                       Sees(NoRowSelected()), Sees(ButtonsOff()), Sees(Enabled(kDeleteAll))}),
        Calls{box} + drillDeleted +
            DeleteCalls("$7)", 1, "{gotoitemname0 = Weld}", "{0 = " + weldTree + "}") +
            DeleteCalls("$7)", 0, "{}", "{}") + ListedSouth());
    EXPECT_EQ(Content(), (Calls{"~/gotoitemname/$7):", south.front(), "~/gotoitemtree/$7):", south.back()}));
}

TEST_F(DeletedRows, TheLastOfAProjectGoesWithItsEntry)
{
    const std::string box = Asks(kDeleteOne);
    const Calls calls = During({Chooses(kProject, L"South"), Selects(L"Paint"), Presses(kDelete),
                                Sees(Offers(kProject, {L"North"})), Sees(Chosen(kProject, L"North")),
                                Sees(InColumn(0, {L"Drill", L"Saw", L"Weld"})), Sees(ButtonsOff()),
                                Sees(Enabled(kDeleteAll))});
    EXPECT_EQ(calls, ListedSouth() + Calls{box} + DeleteCalls("$8)", 0, "{}", "{}") + Fresh() +
                         Read("$7)", 3) + Found("$71)", "Weld cell") + Found("$72)", "Drill cell") +
                         Found("$73)", "Saw cell"));
}

TEST_F(DeletedRows, TheLastOfTheLastProjectLeavesDeleteAllOn)
{
    host.Store().Clear();
    Bookmark(L"$8)", 0, L"Paint", L"$81)");
    const std::string box = Asks(kDeleteOne);
    EXPECT_EQ(During({Selects(L"Paint"), Presses(kDelete), Sees(Offers(kProject, {})), Sees(RowCount(0)),
                      Sees(ButtonsOff()), Sees(Enabled(kDeleteAll)), Presses(kDeleteAll),
                      Sees(Enabled(kDeleteAll))}),
              Calls{box} + DeleteCalls("$8)", 0, "{}", "{}"))
        << "Delete All does nothing without a project";
    EXPECT_EQ(Content(), (Calls{"~/gotoitemname/$8):", "~/gotoitemtree/$8):"}));
}

TEST_F(DeletedRows, AnEmptiedProjectIsListedAgainNextTime)
{
    host.Store().Clear();
    Bookmark(L"$8)", 0, L"Paint", L"$81)");
    Asks(kDeleteOne);
    During({Selects(L"Paint"), Presses(kDelete)});
    Show({Sees(Offers(kProject, {L"South"})), Sees(RowCount(0)), Presses(IDCANCEL)});
}

TEST_F(DeletedRows, OneThatTheStoreKeepsIsReportedAndListedAgain)
{
    Asks(kDeleteOne);
    host.Store().script.Set("DeleteKey", 0, Failed());
    host.Store().script.Set("DeleteKey", 1, Failed());
    During({Selects(L"Drill"), Presses(kDelete), Sees(InColumn(0, {L"Saw", L"Weld"})),
            Chooses(kProject, L"South"), Chooses(kProject, L"North"),
            Sees(InColumn(0, {L"Drill", L"Saw", L"Weld"}))});
    EXPECT_EQ(logBook.Entries(),
              Entries{StoreOf(242, kFailed,
                              "XBookmarkmanager::Deletebokmark   m_pSessionDataMng->DeleteKey failed")});
}

TEST_F(DeletedRows, OneOfARenamedRowIsFoundByItsTreeString)
{
    const std::string box = Asks(kDeleteOne);
    const Calls calls = During({Selects(L"Drill"), EditsLabel(0, L"Zed"), Types("Return"), Selects(L"Zed"),
                                Presses(kDelete), Sees(InColumn(0, {L"Saw", L"Weld"}))});
    EXPECT_EQ(Calls(calls.end() - 7, calls.end()), Calls{box} + drillDeleted);
}

TEST_F(DeletedRows, OneThatTheStoreHasLostTakesTheLastWithIt)
{
    const std::string box = Asks(kDeleteOne);
    host.Store().Clear();
    Bookmark(L"$7)", 0, L"Drill", L"$72)");
    During({[&](DialogView&) {
                host.Store().Clear();
                Bookmark(L"$7)", 0, L"Saw", L"$73)");
                Bookmark(L"$7)", 1, L"Weld", L"$71)");
            },
            Selects(L"Drill"), Presses(kDelete)});
    EXPECT_EQ(Content(),
              (Calls{"~/gotoitemname/$7): gotoitemname0=Saw", "~/gotoitemtree/$7): 0=" + sawTree}));
}
} // namespace
