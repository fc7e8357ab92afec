// The "Advanced" button of the enhanced copy dialog: both walks on every click, whichever way.
#include "ChoiceFixture.h"

#include "WindowTexts.h"

namespace
{
using namespace copy_dialog;

class CopyAdvanced : public ChoiceFixture
{
protected:
    static Calls RecordOf(const std::string& object, const std::string& type)
    {
        return {object + ".GetAttribute(configtypename)", object + ".GetTypeName()",
                object + ".GetType(node, " + type + ")", type + ".Get(captionsingular)"};
    }

    /// For the press: down to its children, then again by itself.
    static Calls BothWalks()
    {
        return Calls{"selection.RemNext(1)", "press.IsDerivedFromClass(XDORelationship)"} +
               RecordOf("press", "Station") +
               Calls{"press.GetChildren(nodes)", "press nodes.RemNext(1)", "selection.RemNext(1)",
                     "selection.Reset()", "selection.GetSingleNext()"} +
               RecordOf("press", "Station") + Calls{"selection.GetSingleNext()", "selection.Reset()"};
    }
};

TEST_F(CopyAdvanced, WalksDeepFirstAndResetsAfterEach)
{
    Open({Presses(kAdvanced), Presses(kAdvancedOk)});
    EXPECT_TRACE(BothWalks());
}

TEST_F(CopyAdvanced, WalksOnEveryClickInBothDirections)
{
    Open({Presses(kAdvanced), Presses(kAdvanced), Presses(kAdvanced), Presses(kAdvanced), Presses(kNormal)});
    EXPECT_TRACE(BothWalks() + BothWalks() + BothWalks() + BothWalks());
}

TEST_F(CopyAdvanced, ChangesTheLayoutBeforeItWalks)
{
    HWND dialog = nullptr;
    std::vector<bool> expanded;
    host.onCall = [&](const std::string& call) {
        if (call == "press.GetChildren(nodes)")
            expanded.push_back(IsShown(GetDlgItem(dialog, kGrid)));
    };
    Open({[&](DialogView& view) { dialog = view.Window(); }, Presses(kAdvanced), Presses(kAdvanced),
          Presses(kNormal)});
    EXPECT_EQ(expanded, (std::vector<bool>{true, false}));
    host.onCall = nullptr;
}

TEST_F(CopyAdvanced, IsTheLastButtonWhileItWalks)
{
    std::vector<LONG> options;
    host.onCall = [&](const std::string& call) {
        if (call == "selection.Reset()")
            options.push_back(Clicked());
    };
    Open({Presses(kAdvanced), Presses(kAdvancedOk)});
    EXPECT_EQ(options, (std::vector<LONG>{-1, -1}));
    host.onCall = nullptr;
}

TEST_F(CopyAdvanced, IsSilentAboutAListThatFails)
{
    Initialize({press, lathe});
    selection->statuses = {{0, E_FAIL}};
    selection->resetStatus = E_FAIL;
    Show({Presses(kAdvanced),
          LedTo({"selection.RemNext(1)", "selection.Reset()", "selection.GetSingleNext()",
                 "selection.Reset()"}),
          Sees(Visible(kGrid)), Drops(kPlanType), Sees(Offers(kPlanType, {})), Presses(kAdvancedOk)});
    EXPECT_EQ(Clicked(), 0);
}

TEST_F(CopyAdvanced, ListsATypeOnceHoweverOftenItIsPressed)
{
    chosen = {press, lathe};
    Open({Presses(kAdvanced), Presses(kAdvanced), Presses(kAdvanced), Drops(kPlanType),
          Sees(Offers(kPlanType, {L"Station"})), Presses(kAdvancedCancel)});
}

TEST_F(CopyAdvanced, LeavesThePlanTypeAndItsRowsAlone)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station")} + Fills(2, L"next") +
         Steps{Presses(kAdvanced), Presses(kAdvanced), Sees(Chosen(kPlanType, L"Station")),
               Sees(InColumn(0, {L"Due", L"Mass", L"Order"})), Sees(InColumn(1, {L"", L"", L"next"})),
               Presses(kAdvancedCancel)});
}

TEST_F(CopyAdvanced, EndsAnOpenEditorWithItsText)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station")} + OpensEditor(2) +
         Steps{TypesInEditor(L"next"), Presses(kAdvanced), Sees(NoEditor()), Presses(kAdvanced),
               Sees(InColumn(1, {L"", L"", L"next"})), Presses(kAdvancedCancel)});
}

class CopyContracted : public ChoiceFixture, public testing::WithParamInterface<int>
{
};

/// The values typed in the expanded form are those of the buttons in the contracted one, too.
TEST_P(CopyContracted, KeepsTheTypedValues)
{
    chosen = {cell};
    Open(Expands() + Steps{Checks(kDeepRadio), Chooses(kPlanType, L"Station")} + Fills(2, L"next") +
         Steps{Presses(kAdvanced), Presses(GetParam())});
    EXPECT_EQ(Clicked(), GetParam() == kNormal ? 0 : 8);
    Apply({press, cell});
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(lathe->ValueText(L"Order"), GetParam() == kNormal ? "EMPTY" : "BSTR 'next'");
}

INSTANTIATE_TEST_SUITE_P(EndedBy, CopyContracted, testing::Values(kNormal, kDeep),
                         [](const testing::TestParamInfo<int>& info) {
                             return std::string(info.param == kNormal ? "Normal" : "Deep");
                         });
} // namespace
