// How the user deletes all bookmarks of a project.
#include "ListingFixture.h"

namespace
{
using namespace bookmark_dialog;

class DeletedProjects : public ListingFixture
{
protected:
    /// The question for that project, and what it adds to the calls.
    std::string Asks(const std::wstring& project, int answer = IDYES)
    {
        ExpectBox(kDeleteAllTitle,
                  L"Do you really want to delete all the bookmarks from the project ' " + project + L" ' ?",
                  answer);
        return "box Delete All Bookmarks : Do you really want to delete all the bookmarks from the project "
               "' " +
               Utf8Of(XQPComBSTR(project.c_str())) + " ' ?";
    }

    static Calls Gone(const std::string& project)
    {
        const Calls calls = Purged(project);
        return {calls.begin() + 1, calls.end()};
    }

    const Calls northLeft = {
        "~/gotoitemname/$7): gotoitemname0=Weld", "~/gotoitemname/$7): gotoitemname1=Drill",
        "~/gotoitemtree/$7): 0=BrowserTree:$71);", "~/gotoitemtree/$7): 1=BrowserTree:$72);"};
    const Calls southLeft = {"~/gotoitemname/$8): gotoitemname0=Paint",
                             "~/gotoitemtree/$8): 0=BrowserTree:$81);"};
};

TEST_F(DeletedProjects, AreFollowedByTheNextOne)
{
    const std::string box = Asks(L"North");
    EXPECT_EQ(During({Presses(kDeleteAll), Sees(Offers(kProject, {L"South"})),
                      Sees(Chosen(kProject, L"South")), Sees(InColumn(0, {L"Paint"})), Sees(Disabled(kOpen)),
                      Sees(Disabled(kDelete)), Sees(Enabled(kDeleteAll))}),
              Calls{box} + Gone("$7)") + ListedSouth());
    EXPECT_EQ(Content(), southLeft);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(DeletedProjects, AreFollowedByTheFirstOne)
{
    const std::string box = Asks(L"South");
    EXPECT_EQ(During({Chooses(kProject, L"South"), Presses(kDeleteAll), Sees(Offers(kProject, {L"North"})),
                      Sees(Chosen(kProject, L"North")), Sees(InColumn(0, {L"Drill", L"Weld"}))}),
              ListedSouth() + Calls{box} + Gone("$8)") + ListedNorth());
    EXPECT_EQ(Content(), northLeft);
}

TEST_F(DeletedProjects, LeaveTheOtherButtonsOnWhereProjectsRemain)
{
    Asks(L"North");
    During({Selects(L"Weld"), Sees(Enabled(kOpen)), Presses(kDeleteAll), Sees(InColumn(0, {L"Paint"})),
            Sees(NoRowSelected()), Sees(Enabled(kOpen)), Sees(Enabled(kDelete)), Sees(Enabled(kDeleteAll)),
            Presses(kOpen), Presses(kDelete)});
    EXPECT_EQ(Content(), southLeft) << "without a selected row neither does anything";
}

TEST_F(DeletedProjects, OfWhichNoneIsLeftTurnOpenAndDeleteAllOff)
{
    host.Store().Clear();
    Bookmark(L"$8)", 0, L"Paint", L"$81)");
    const std::string box = Asks(L"South");
    EXPECT_EQ(
        During({Selects(L"Paint"), Presses(kDeleteAll), Sees(Offers(kProject, {})), Sees(RowCount(0)),
                Sees(Disabled(kOpen)), Sees(Disabled(kDeleteAll)), Sees(Enabled(kDelete)), Presses(kDelete)}),
        Calls{box} + Gone("$8)"));
    EXPECT_EQ(Content(), Calls{});
}

TEST_F(DeletedProjects, OfWhichNoneIsLeftKeepDeleteOff)
{
    host.Store().Clear();
    Bookmark(L"$8)", 0, L"Paint", L"$81)");
    Asks(L"South");
    During({Presses(kDeleteAll), Sees(Disabled(kOpen)), Sees(Disabled(kDelete)), Sees(Disabled(kDeleteAll)),
            Sees(Enabled(IDCANCEL))});
}

TEST_F(DeletedProjects, AreKeptWhenTheUserSaysNo)
{
    const std::string box = Asks(L"North", IDNO);
    EXPECT_EQ(During({Selects(L"Weld"), Presses(kDeleteAll), Sees(Offers(kProject, {L"North", L"South"})),
                      Sees(Selected(L"Weld")), Sees(Enabled(kOpen))}),
              Calls{box});
    EXPECT_EQ(Content().size(), 6u);
}

TEST_F(DeletedProjects, TheQuestionBelongsToTheDialog)
{
    HWND dialog = nullptr;
    Asks(L"North", IDNO);
    During({[&](DialogView& view) { dialog = view.Window(); }, Presses(kDeleteAll)});
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const ShownBox& box = boxes.Shown().front();
    EXPECT_EQ(box.owner, dialog);
    EXPECT_EQ(box.buttons, static_cast<UINT>(MB_YESNO));
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONQUESTION));
}

TEST_F(DeletedProjects, AreKeptWhenTheQuestionCannotBeShown)
{
    EXPECT_EQ(During({[](DialogView& view) {
                          const NoDialogs none;
                          view.Click(kDeleteAll);
                      },
                      Sees(RowCount(2))}),
              Calls{});
}

TEST_F(DeletedProjects, WithAPlaceholderInTheirNameAreNamedAsTheyAre)
{
    north->Set(L"configured_name", L"100 %s %d");
    Asks(L"100 %s %d", IDNO);
    During({Presses(kDeleteAll)});
}

TEST_F(DeletedProjects, OfOneNameAreToldApart)
{
    south->Set(L"configured_name", L"North");
    Asks(L"North");
    During({Sees(InColumn(0, {L"Paint"})), Presses(kDeleteAll), Sees(InColumn(0, {L"Drill", L"Weld"}))});
    EXPECT_EQ(Content(), northLeft);
}

TEST_F(DeletedProjects, ThatTheStoreKeepsAreReportedAndListedNextTime)
{
    Asks(L"North");
    host.Store().script.Set("DeleteKey", 0, Failed());
    host.Store().script.Set("DeleteKey", 1, Failed());
    During({Presses(kDeleteAll), Sees(Offers(kProject, {L"South"}))});
    EXPECT_EQ(logBook.Entries(), Entries{StoreOf(300, kFailed,
                                                 "XBookmarkmanager: DeleteAllBookmarks                 "
                                                 "m_ptrSessionDataMng->DeleteKey failed")});
    Show({Sees(Offers(kProject, {L"North", L"South"})), Presses(IDCANCEL)});
}

TEST_F(DeletedProjects, AreEachDeletedAndNothingElse)
{
    host.Store().Set(2, L"QPR-Navigator/BrowserConfiguration1", L"a", L"b");
    Asks(L"North");
    Asks(L"South");
    During({Presses(kDeleteAll), Presses(kDeleteAll), Sees(Disabled(kDeleteAll))});
    EXPECT_EQ(Content(), Calls{"~: a=b"});
}
} // namespace
