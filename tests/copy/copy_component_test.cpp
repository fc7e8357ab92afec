// The enhanced copy component: its methods in every state, and the references that its dialog holds.
#include "CopyFixture.h"
#include "CountedEnum.h"

namespace
{
using namespace copy_dialog;

class CopyComponent : public CopyFixture
{
protected:
    CopyComponent() { chosen.clear(); }

    /// All methods but Initialize do nothing.
    void ExpectNoDialog()
    {
        host.calls.clear();
        EXPECT_EQ(copy->ShowDialog(), S_FALSE);
        EXPECT_EQ(Clicked(), -1);
        const auto copies = host.List({press}, "copies");
        EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
        EXPECT_EQ(References(copies), 1u);
        EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
        EXPECT_EQ(copy->DeleteObjects(), S_OK);
        EXPECT_TRACE(Calls{});
    }
};

TEST_F(CopyComponent, DoesNothingBeforeInitialize)
{
    ExpectNoDialog();
}

TEST_F(CopyComponent, DoesNothingAfterDeleteObjects)
{
    Open({Presses(kDeep)});
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    ExpectNoDialog();
    EXPECT_EQ(copy->DeleteObjects(), S_OK) << "twice";
}

TEST_F(CopyComponent, BeginsAgainAfterDeleteObjects)
{
    Open({Presses(kDeep)});
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    Initialize({});
    EXPECT_EQ(Clicked(), -1);
    Show({Presses(kNormal)});
    EXPECT_EQ(Clicked(), 0);
}

TEST_F(CopyComponent, InitializeReadsNothing)
{
    Initialize({cell});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Clicked(), -1) << "no button yet";
    EXPECT_EQ(References(selection), 2u);
    EXPECT_EQ(host.Config().References(), 1u);
}

TEST_F(CopyComponent, DeleteObjectsReleasesBothArguments)
{
    Initialize({cell});
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(References(selection), 1u);
    EXPECT_EQ(host.Config().References(), 0u);
    EXPECT_TRACE(Calls{});
}

TEST_F(CopyComponent, TakesNullForBothArguments)
{
    EXPECT_EQ(copy->Initialize(nullptr, nullptr), S_OK);
    EXPECT_EQ(Show({Presses(kAdvanced), Drops(kPlanType), Sees(Offers(kPlanType, {})), Presses(kAdvanced),
                    Presses(kDeep)}),
              S_OK);
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Clicked(), 8);
    EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
    EXPECT_TRACE(Calls{});
}

TEST_F(CopyComponent, NeedsAPlaceForTheOption)
{
    EXPECT_EQ(copy->GetButtonIDClicked(nullptr), E_POINTER);
    Open({Presses(kDeep)});
    EXPECT_EQ(copy->GetButtonIDClicked(nullptr), E_POINTER);
    EXPECT_EQ(Clicked(), 8);
}

TEST_F(CopyComponent, InTheDocumentedOrder)
{
    Initialize({cell});
    EXPECT_EQ(Show({Presses(kNormal)}), S_OK);
    EXPECT_EQ(Clicked(), 0);
    Apply({press});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(References(selection), 1u) << "the dialog holds the copies instead";
    EXPECT_EQ(Clicked(), 0) << "as before";
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(host.Config().References(), 0u);
}

TEST_F(CopyComponent, AppliesNothingWithoutADialogShown)
{
    Initialize({cell});
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(CopyComponent, HoldsTheCopiesUntilDeleteObjects)
{
    Open({Presses(kNormal)});
    const auto copies = host.List({press}, "copies");
    EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
    EXPECT_EQ(References(copies), 2u);
    EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
    EXPECT_EQ(References(copies), 1u);
    EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(References(copies), 1u);
}

// What the dialog holds grows with each click on Advanced and is gone after DeleteObjects.
TEST_F(CopyComponent, HoldsEveryObjectOncePerWalk)
{
    Initialize({press, press, lathe});
    const ULONG before = References(press);
    Show({Presses(kAdvanced),
          [&](DialogView&) { EXPECT_EQ(References(press), before + 4) << "two for each of two walks"; },
          Presses(kAdvanced), [&](DialogView&) { EXPECT_EQ(References(press), before + 8); },
          Presses(kAdvanced), Presses(kAdvancedOk)});
    EXPECT_EQ(References(press), before + 12);
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(References(press), before);
}

// The dialog before.

TEST_F(CopyComponent, ASecondInitializeFreesTheFirstDialog)
{
    Open({Presses(kDeep)});
    const ComPtr<MemoryEnum> first = selection;
    Initialize({lathe});
    EXPECT_EQ(References(first), 1u) << "held by the test alone";
    EXPECT_EQ(References(selection), 2u);
    EXPECT_EQ(host.Config().References(), 1u);
    EXPECT_EQ(Clicked(), -1) << "of the second dialog";
}

std::string InWords(const std::string& name, bool taken, LONG count)
{
    return name + (taken ? " AddRef" : count > 0 ? " Release" : " gone");
}

TEST_F(CopyComponent, ASecondInitializeTakesBeforeItReleases)
{
    Calls calls;
    CountedEnum first([&](bool taken, LONG count) { calls.push_back(InWords("first", taken, count)); });
    CountedEnum second([&](bool taken, LONG count) { calls.push_back(InWords("second", taken, count)); });
    EXPECT_EQ(copy->Initialize(&first, nullptr), S_OK);
    EXPECT_EQ(copy->Initialize(&second, nullptr), S_OK);
    EXPECT_EQ(copy->Initialize(&second, nullptr), S_OK) << "the dialog has the only reference";
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(calls, (Calls{"first AddRef", "second AddRef", "first gone", "second AddRef", "second Release",
                            "second gone"}));
}

TEST_F(CopyComponent, ApplyTakesBeforeItReleases)
{
    Calls calls;
    CountedEnum objects([&](bool taken, LONG count) { calls.push_back(InWords("objects", taken, count)); });
    EXPECT_EQ(copy->Initialize(&objects, nullptr), S_OK);
    EXPECT_EQ(copy->ApplyEnhanceCopy(&objects), S_OK);
    EXPECT_EQ(calls, (Calls{"objects AddRef", "objects AddRef", "objects Release"}));
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(calls.back(), "objects gone");
}

TEST_F(CopyComponent, TwoComponentsHaveADialogEach)
{
    ComPtr<IQPCopyOptDlg> other;
    EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, other), S_OK);
    EXPECT_EQ(other->Initialize(nullptr, nullptr), S_OK);
    Open({Presses(kDeep)});
    LONG option = 77;
    EXPECT_EQ(other->GetButtonIDClicked(&option), S_OK);
    EXPECT_EQ(option, -1);
    EXPECT_EQ(other->DeleteObjects(), S_OK);
    EXPECT_EQ(Clicked(), 8);
}

// Failures, and the same dialog again.

TEST_F(CopyComponent, IsFalseIfTheDialogCannotBeCreated)
{
    Initialize({cell});
    host.calls.clear();
    {
        const NoDialogs none;
        EXPECT_EQ(copy->ShowDialog(), S_FALSE);
    }
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Clicked(), -1);
    EXPECT_EQ(Show({Presses(kDeep)}), S_OK) << "the dialog can be shown later";
    EXPECT_EQ(Clicked(), 8);
}

TEST_F(CopyComponent, IsFalseIfTheProgramIsQuitting)
{
    Initialize({});
    PostQuitMessage(3);
    EXPECT_EQ(Show({}), S_FALSE);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u) << "the program's own loop gets it";
}

// What the dialog remembers stays, its layout included: the second run begins in the other one.
TEST_F(CopyComponent, ShowsTheSameDialogAgainInTheOtherLayout)
{
    Open({Presses(kNormal)});
    EXPECT_EQ(Show({Sees(Visible(kGrid)), Sees(Hidden(kNormal)), Sees(Checked(kNormalRadio)),
                    Sees(Disabled(kGrid)), Closes()}),
              S_OK);
    EXPECT_EQ(Clicked(), 0) << "still that of the first run";
    EXPECT_EQ(Show({Sees(Hidden(kGrid)), Sees(Visible(kNormal)), Presses(kCancel)}), S_OK);
    EXPECT_EQ(Clicked(), -1);
}

TEST_F(CopyComponent, AdvancedOfTheSecondRunTakesTheOptionBack)
{
    Open({Presses(kDeep)});
    EXPECT_EQ(Show({Presses(kAdvanced), Closes()}), S_OK);
    EXPECT_EQ(Clicked(), -1);
}

TEST_F(CopyComponent, ValuesOutliveTheFirstOfTwoRuns)
{
    chosen = {press};
    Open(Steps{Presses(kAdvanced), Chooses(kPlanType, L"Station")} + OpensEditor(2) +
         Steps{TypesInEditor(L"kept"), Types("Return"), Sees(NoEditor()), Presses(kAdvancedCancel)});
    Show({Sees(Visible(kNormal)), Presses(kNormal)});
    EXPECT_EQ(Clicked(), 0);
    Apply({lathe});
    EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'kept'");
}
} // namespace
