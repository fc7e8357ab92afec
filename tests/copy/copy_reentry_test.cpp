// A host that calls the component again while it works: from inside its own methods, and while the dialog is
// open. The dialog in use stays valid until it is closed, and leaks nothing.
#include "CopyFixture.h"
#include "PatientSteps.h"

#include <ostream>
#include <utility>

namespace
{
using namespace copy_dialog;

/// What the host does meanwhile.
struct Meddling
{
    const char* name;
    void (*act)(ComPtr<IQPCopyOptDlg>& copy, MemoryEnum& others);
};

std::ostream& operator<<(std::ostream& stream, const Meddling& meddling)
{
    return stream << meddling.name;
}

std::string NameOfMeddling(const testing::TestParamInfo<Meddling>& info)
{
    return info.param.name;
}

void Apply(IQPCopyOptDlg& copy, IEnumBaseDataObject* objects)
{
    EXPECT_EQ(copy.ApplyEnhanceCopy(objects), S_OK);
}

constexpr Meddling kMeddlings[] = {{"DeleteObjects",
                                    [](ComPtr<IQPCopyOptDlg>& copy, MemoryEnum&) {
                                        EXPECT_EQ(copy->DeleteObjects(), S_OK);
                                    }},
                                   {"Initialize",
                                    [](ComPtr<IQPCopyOptDlg>& copy, MemoryEnum& others) {
                                        EXPECT_EQ(copy->Initialize(&others, nullptr), S_OK);
                                    }},
                                   {"ApplyToOthers",
                                    [](ComPtr<IQPCopyOptDlg>& copy, MemoryEnum& others) {
                                        Apply(*copy, &others);
                                    }},
                                   {"ApplyToNothing",
                                    [](ComPtr<IQPCopyOptDlg>& copy, MemoryEnum&) {
                                        Apply(*copy, nullptr);
                                    }},
                                   {"DeleteAndRelease",
                                    [](ComPtr<IQPCopyOptDlg>& copy, MemoryEnum&) {
                                        EXPECT_EQ(copy->DeleteObjects(), S_OK);
                                        copy.reset();
                                    }},
                                   {"EverythingInTurn", [](ComPtr<IQPCopyOptDlg>& copy, MemoryEnum& others) {
                                        Apply(*copy, &others);
                                        LONG option = 77;
                                        EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
                                        EXPECT_EQ(copy->Initialize(&others, nullptr), S_OK);
                                        Apply(*copy, nullptr);
                                        EXPECT_EQ(copy->DeleteObjects(), S_OK);
                                        EXPECT_EQ(copy->DeleteObjects(), S_OK);
                                    }}};

class CopyReentry : public CopyFixture, public testing::WithParamInterface<Meddling>
{
protected:
    ~CopyReentry() override { host.onCall = nullptr; }

    /// Lets the host meddle once, inside the first call that begins so.
    void MeddleAt(const std::string& start)
    {
        if (!copy)
        {
            EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
        }
        m_done = false;
        host.onCall = [this, start](const std::string& call) {
            if (call.starts_with(start))
                Meddle();
        };
    }

    void Meddle()
    {
        if (!std::exchange(m_done, true))
            GetParam().act(copy, *others);
    }

    /// It was done, and the component holds nothing any more. The test itself holds that many references to
    /// the press in its lists.
    void ExpectEnded(ULONG listed = 0)
    {
        host.onCall = nullptr;
        EXPECT_TRUE(m_done) << "there is no such call";
        if (copy)
        {
            EXPECT_EQ(copy->DeleteObjects(), S_OK);
        }
        EXPECT_EQ(References(selection), 1u);
        EXPECT_EQ(References(others), 1u);
        EXPECT_EQ(References(press), m_held + listed);
        EXPECT_EQ(host.Config().References(), 0u);
        others->Rewind();
    }

    /// The dialog in which all is done that calls the host.
    Steps Busy() const
    {
        return Steps{Presses(kAdvanced), Checks(kDeepRadio), ChoosesIfOffered(L"Station")} +
               EditsIfShown(L"Order", L"x") +
               Steps{CommitsIfOpen(), Presses(kAdvanced), Presses(kAdvanced), Presses(kAdvancedOk)};
    }

    const ComPtr<MemoryObject> spare = host.Node(L"spare", L"Station");
    const ComPtr<MemoryEnum> others = host.List({spare}, "others");

private:
    const ULONG m_held = References(press);
    bool m_done = false;
};

TEST_P(CopyReentry, InsideEachCallOfTheDialog)
{
    for (const char* call :
         {"selection.RemNext(1)", "cell.GetChildren(nodes)", "cell nodes.RemNext(1)", "selection.Reset()",
          "selection.GetSingleNext()", "Station.GetDisplayAttributeEnum(4)",
          "Station attributes.GetSingleNext()", "Order.GetProperty(3)"})
    {
        SCOPED_TRACE(call);
        MeddleAt(call);
        EXPECT_EQ(Open(Busy()), S_OK);
        ExpectEnded();
    }
}

TEST_P(CopyReentry, WhileTheDialogIsOpen)
{
    const Steps meddles = {[this](DialogView&) {
        Meddle();
    }};
    const Steps expanded = {Presses(kAdvanced), Checks(kDeepRadio), Chooses(kPlanType, L"Station")};
    const Steps goesOn = Steps{CommitsIfOpen(), ChoosesIfOffered(L"Cell"), ChoosesIfOffered(L"Station")} +
                         EditsIfShown(L"Order", L"y") + Steps{CommitsIfOpen(), Presses(kAdvancedOk)};
    for (const Steps& steps : {meddles + Busy(), expanded + meddles + goesOn,
                               expanded + EditsIfShown(L"Order", L"x") + meddles + goesOn})
    {
        MeddleAt("no call");
        EXPECT_EQ(Open(steps), S_OK);
        ExpectEnded();
    }
}

TEST_P(CopyReentry, InsideEachCallOfApply)
{
    for (const char* call : {"copies.GetSingleNext()", "press.GetAttribute(configtypename)",
                             "Station.Get(captionsingular)", "copies.Reset()", "press.SetAttributes("})
    {
        SCOPED_TRACE(call);
        press->Set(L"Order", L"");
        lathe->Set(L"Order", L"");
        MeddleAt("no call");
        chosen = {press};
        EXPECT_EQ(Open(Steps{Presses(kAdvanced), Chooses(kPlanType, L"Station")} +
                       EditsIfShown(L"Order", L"x") + Steps{CommitsIfOpen(), Presses(kAdvancedOk)}),
                  S_OK);
        MeddleAt(call);
        const auto copies = host.List({press, lathe}, "copies");
        EXPECT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
        EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'x'");
        EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'x'");
        ExpectEnded(3);
        EXPECT_EQ(References(copies), 1u);
    }
}

INSTANTIATE_TEST_SUITE_P(By, CopyReentry, testing::ValuesIn(kMeddlings), NameOfMeddling);

class CopyDialogs : public CopyFixture
{
};

TEST_F(CopyDialogs, TheOneThatIsOpenIsNotShownTwice)
{
    Open({[this](DialogView&) { EXPECT_EQ(copy->ShowDialog(), S_FALSE); }, Sees(Titled(kTitle)),
          Presses(kDeep)});
    EXPECT_EQ(Clicked(), 8);
}

TEST_F(CopyDialogs, ASecondOneOpensOverTheFirst)
{
    Open({[this](DialogView& first) {
              EXPECT_EQ(copy->Initialize(nullptr, nullptr), S_OK);
              dialogs.OnDialog({Sees(OwnedBy(first.Window())), Sees(OwnerDisabled()), Presses(kDeep)});
              EXPECT_EQ(copy->ShowDialog(), S_OK);
          },
          Presses(kNormal)});
    EXPECT_EQ(Clicked(), 8) << "that of the second one";
    EXPECT_EQ(References(selection), 1u) << "the first one is freed";
}

TEST_F(CopyDialogs, ValuesOfANestedApplyReachItsCopiesAsWell)
{
    chosen = {press};
    Open(Steps{Presses(kAdvanced), Chooses(kPlanType, L"Station")} + OpensEditor(2) +
         Steps{TypesInEditor(L"x"), Types("Return"), Sees(NoEditor()), Presses(kAdvancedOk)});
    const auto spare = host.Node(L"spare", L"Station");
    const auto others = host.List({spare}, "others");
    press->onWrite = [&] {
        EXPECT_EQ(copy->ApplyEnhanceCopy(others.get()), S_OK);
    };
    Apply({press, lathe});
    press->onWrite = nullptr;
    for (const auto& object : {press, lathe, spare})
        EXPECT_EQ(object->ValueText(L"Order"), "BSTR 'x'");
    EXPECT_EQ(References(others), 2u) << "those applied to last";
}
} // namespace
