// ApplyEnhanceCopy: which objects get the values, by which calls, and when it does nothing.
#include "BareList.h"
#include "ValuesFixture.h"

namespace
{
using namespace copy_dialog;

class ApplyCalls : public ValuesFixture
{
protected:
    /// Types one value for the stations and ends with this button of the contracted form.
    void EnterOrder(int button = kNormal)
    {
        Initialize({press});
        Show(ShowsGrid(L"Station") + Sets(kOrder, L"next") +
             Steps{Presses(kAdvanced), Forgets(), Presses(button)});
    }

    /// The calls that record an object in a walk.
    static Calls Recording(const std::string& name, const std::string& type)
    {
        return {name + ".GetAttribute(configtypename)", name + ".GetTypeName()",
                name + ".GetType(node, " + type + ")", type + ".Get(captionsingular)"};
    }

    const std::string order = "(Order = BSTR 'next')";
};

TEST_F(ApplyCalls, WalkAndWriteToEachCopyOnce)
{
    EnterOrder();
    host.recordingQueries = true;
    Apply({press, cell, lathe});
    EXPECT_TRACE(Calls{"copies.GetSingleNext()"} + Recording("press", "Station") +
                 Calls{"copies.GetSingleNext()"} + Recording("cell", "Cell") +
                 Calls{"copies.GetSingleNext()"} + Recording("lathe", "Station") +
                 Calls{"copies.GetSingleNext()", "copies.Reset()", "press.SetAttributes" + order,
                       "lathe.SetAttributes" + order});
    EXPECT_EQ(lathe->written, "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'next'");
}

TEST_F(ApplyCalls, ReachWhatADeepCopyHasBelow)
{
    EnterOrder(kDeep);
    Apply({cell});
    EXPECT_EQ(host.calls[host.calls.size() - 4], "copies.RemNext(1)");
    EXPECT_EQ(host.calls[host.calls.size() - 3], "copies.Reset()");
    EXPECT_EQ(host.calls[host.calls.size() - 2], "press.SetAttributes" + order);
    EXPECT_EQ(host.calls[host.calls.size() - 1], "lathe.SetAttributes" + order);
}

TEST_F(ApplyCalls, ReachOnlyTheCopiesThemselvesOfANormalOne)
{
    EnterOrder();
    Apply({cell});
    EXPECT_TRACE(Calls{"copies.GetSingleNext()"} + Recording("cell", "Cell") +
                 Calls{"copies.GetSingleNext()", "copies.Reset()"});
}

TEST_F(ApplyCalls, WriteTwiceToACopyThatIsFoundTwice)
{
    EnterOrder();
    Apply({press, press});
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "press.SetAttributes" + order), 2);
}

TEST_F(ApplyCalls, WriteToTheTargetOfARelationship)
{
    EnterOrder(kDeep);
    Apply({host.Relationship(L"link", L"Uses", lathe)});
    EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(host.calls.back(), "lathe.SetAttributes" + order);
}

TEST_F(ApplyCalls, WriteToARelationshipOfItsTypeInANormalCopy)
{
    EnterOrder();
    const auto link = host.Relationship(L"link", L"Station", lathe);
    Apply({link});
    EXPECT_EQ(link->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(lathe->ValueText(L"Order"), "EMPTY");
}

TEST_F(ApplyCalls, PassOverATypeWithoutValues)
{
    EnterOrder();
    Apply({cell, gauge});
    EXPECT_EQ(cell->written, "");
    EXPECT_EQ(gauge->written, "");
    EXPECT_EQ(host.calls.back(), "copies.Reset()");
}

TEST_F(ApplyCalls, WalkButWriteNothingIfNothingWasTyped)
{
    EnterForStations({Sees(InColumn(1, {L"", L"", L""}))});
    Apply({press});
    EXPECT_TRACE(Calls{"copies.GetSingleNext()"} + Recording("press", "Station") +
                 Calls{"copies.GetSingleNext()", "copies.Reset()"});
}

TEST_F(ApplyCalls, AreNoneIfNoPlanTypeWasShown)
{
    Initialize({press});
    Show({Presses(kAdvanced), Presses(kAdvancedOk)});
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(ApplyCalls, AreNoneIfThePlanTypeHadNoRows)
{
    Initialize({host.Node(L"bare", L"Bare")});
    ExpectBox(L"qptools", kNoAttributes);
    Show({Presses(kAdvanced), Chooses(kPlanType, L"Bare"), Presses(kAdvancedOk)});
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(ApplyCalls, AreNoneAfterCancel)
{
    EnterOrder(kCancel);
    EXPECT_EQ(Clicked(), -1);
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(ApplyCalls, AreNoneAfterTheCloseBox)
{
    Initialize({press});
    Show(ShowsGrid(L"Station") + Sets(kOrder, L"next") + Steps{Closes()});
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(ApplyCalls, AreNoneForNoCopies)
{
    EnterOrder();
    host.calls.clear();
    EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
    EXPECT_TRACE(Calls{});
    Apply({});
    EXPECT_TRACE(Calls{"copies.GetSingleNext()", "copies.Reset()"});
}

TEST_F(ApplyCalls, AreNoneBeforeTheDialog)
{
    Apply({press});
    EXPECT_TRACE(Calls{});
    Initialize({press});
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(ApplyCalls, AreNoneAfterDeleteObjects)
{
    EnterOrder();
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    Apply({press});
    EXPECT_TRACE(Calls{});
}

TEST_F(ApplyCalls, WriteTheSameValuesEachTime)
{
    EnterOrder();
    Apply({press});
    Apply({lathe});
    EXPECT_EQ(lathe->written, press->written);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "press.SetAttributes" + order), 0)
        << "the copies of before are forgotten";
}

TEST_F(ApplyCalls, BeginWhereTheListStands)
{
    EnterOrder();
    const auto copies = host.List({press, lathe}, "copies");
    ComPtr<IQP_BaseDataObject> first;
    copies->GetSingleNext(first.put());
    EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
    EXPECT_EQ(press->written, "");
    EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(copies->GetSingleNext(first.put()), S_OK) << "and leave it at its beginning";
    EXPECT_EQ(host.NameOf(first.get()), "press");
}

TEST_F(ApplyCalls, TakeNoNoticeOfAFailedReset)
{
    EnterOrder();
    const auto copies = host.List({press}, "copies");
    copies->resetStatus = E_FAIL;
    EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'next'");
}

// What the dialog holds.

TEST_F(ApplyCalls, EachClickOnAdvancedHoldsEveryObjectOnceMore)
{
    const ULONG before = References(press);
    const ULONG cellBefore = References(cell);
    Initialize({cell});
    Show({Presses(kAdvanced),
          [&](DialogView&) {
              EXPECT_EQ(References(press), before + 1);
              EXPECT_EQ(References(cell), cellBefore + 3) << "the list, and both walks";
          },
          Presses(kAdvanced), Presses(kAdvanced),
          [&](DialogView&) {
              EXPECT_EQ(References(press), before + 3);
              EXPECT_EQ(References(cell), cellBefore + 7);
          },
          Presses(kAdvancedOk)});
    EXPECT_EQ(References(press), before + 3) << "also when the window is gone";
    copy->DeleteObjects();
    selection.reset();
    EXPECT_EQ(References(press), before);
    EXPECT_EQ(References(cell), cellBefore);
}

TEST_F(ApplyCalls, TheObjectsOfTheDialogAreReleasedBeforeTheFirstCall)
{
    const ULONG before = References(press);
    const ULONG station = References(ComPtr<MemoryType>(host.Config().Find(L"Station")));
    EnterOrder();
    selection.reset();
    EXPECT_GT(References(press), before);
    ULONG held = 0;
    host.onCall = [&](const std::string& call) {
        if (call == "copies.GetSingleNext()" && held == 0)
            held = References(press);
    };
    Apply({lathe});
    host.onCall = nullptr;
    EXPECT_EQ(held, before);
    EXPECT_EQ(References(ComPtr<MemoryType>(host.Config().Find(L"Station"))), station + 1)
        << "the type of the copies";
}

TEST_F(ApplyCalls, WithoutAWalkTheObjectsOfTheDialogAreReleasedAllTheSame)
{
    const ULONG before = References(press);
    EnterOrder(kCancel);
    selection.reset();
    Apply({lathe});
    EXPECT_EQ(References(press), before);
}

TEST_F(ApplyCalls, TheCopiesAreHeldUntilDeleteObjects)
{
    const ULONG before = References(lathe);
    EnterOrder();
    const auto copies = host.List({lathe}, "copies");
    const ULONG list = References(copies);
    EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
    EXPECT_EQ(References(lathe), before + 2) << "the list, and the record";
    EXPECT_EQ(References(copies), list + 1);
    copy->DeleteObjects();
    EXPECT_EQ(References(lathe), before + 1);
    EXPECT_EQ(References(copies), list);
}

// The array itself.

/// A copy that notes the address of the array.
class NotingCopy final : public BareObject
{
public:
    explicit NotingCopy(MemoryType* type) : m_type(type) {}

    std::vector<SAFEARRAY*> arrays;

    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType** type) override
    {
        return ComPtr<IQPType>(m_type).copyTo(type);
    }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY** pairs, SAFEARRAY** results) override
    {
        EXPECT_EQ(*results, nullptr);
        arrays.push_back(*pairs);
        return S_OK;
    }

private:
    MemoryType* const m_type;
};

TEST_F(ApplyCalls, AllCopiesOfATypeGetTheSameArray)
{
    EnterOrder();
    NotingCopy noting(host.Config().Find(L"Station"));
    BareList copies({&noting, &noting, &noting});
    EXPECT_EQ(copy->ApplyEnhanceCopy(&copies), S_OK);
    ASSERT_EQ(noting.arrays.size(), 3u);
    EXPECT_NE(noting.arrays[0], nullptr);
    EXPECT_EQ(noting.arrays[1], noting.arrays[0]);
    EXPECT_EQ(noting.arrays[2], noting.arrays[0]);
    copy->DeleteObjects();
    EXPECT_EQ(noting.Count(), 0u);
}
} // namespace
