// A host that dispatches messages from inside its methods, so that the user goes on while the dialog waits
// for an answer. The dialog can be closed then, and leaks nothing.
#include "CopyMessages.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "PatientUser.h"
#include "Untouched.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

namespace
{
using namespace copy_dialog;

/// What the user does meanwhile, and the option in the end.
struct Impatience
{
    const char* name;
    UINT message;
    int control; ///< that gets the message; 0 for the dialog
    LONG option;
};

std::ostream& operator<<(std::ostream& stream, const Impatience& act)
{
    return stream << act.name;
}

std::string NameOfAct(const testing::TestParamInfo<Impatience>& info)
{
    return info.param.name;
}

class CopyPumping : public testing::TestWithParam<Impatience>
{
protected:
    CopyPumping()
    {
        EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
        for (const wchar_t* attribute : {L"Order", L"Mass"})
            host.Config().Find(L"Station")->Attribute(attribute);
    }
    ~CopyPumping() override { host.onCall = nullptr; }

    /// The user acts once, inside the first call of that name.
    void ActAt(const std::string& call)
    {
        m_acted = false;
        host.onCall = [this, call](const std::string& made) {
            if (made != call || !m_dialog || std::exchange(m_acted, true))
                return;
            const Impatience& act = GetParam();
            const HWND window = act.control ? GetDlgItem(m_dialog, act.control) : m_dialog;
            PostMessageW(window, act.message, 0, 0);
            MSG message;
            while (PeekMessageW(&message, window, act.message, act.message, PM_REMOVE))
                DispatchMessageW(&message);
        };
    }

    LONG Run()
    {
        PatientUser::Steps steps = {[this](HWND dialog) { m_dialog = dialog; },
                                    &PressThis<kAdvanced>,
                                    &ChooseNext,
                                    &ClickFirstValue,
                                    &ClickFirstValue,
                                    &TypeAndReturn,
                                    &PressThis<kDeepRadio>,
                                    &PressThis<kAdvancedOk>};
        const PatientUser user(std::move(steps));
        EXPECT_EQ(copy->Initialize(selection.get(), nullptr), S_OK);
        EXPECT_EQ(copy->ShowDialog(), S_OK);
        m_dialog = nullptr;
        LONG option = 77;
        EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
        EXPECT_EQ(copy->DeleteObjects(), S_OK);
        EXPECT_TRUE(m_acted) << "there is no such call";
        return option;
    }

    ModuleUnderTest module;
    MemoryHost host;
    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryEnum> selection = host.List({press}, "selection");
    ComPtr<IQPCopyOptDlg> copy;

private:
    HWND m_dialog = nullptr;
    bool m_acted = false;
};

TEST_P(CopyPumping, InsideEachCallOfTheDialog)
{
    const ULONG held = References(press);
    for (const char* call : {"selection.RemNext(1)", "press.GetChildren(nodes)", "selection.Reset()",
                             "selection.GetSingleNext()", "Station.GetDisplayAttributeEnum(4)",
                             "Order.GetProperty(54)", "Mass.GetProperty(3)"})
    {
        SCOPED_TRACE(call);
        selection->Rewind();
        ActAt(call);
        EXPECT_EQ(Run(), GetParam().option);
        EXPECT_EQ(References(press), held);
        EXPECT_EQ(References(selection), 1u);
    }
}

INSTANTIATE_TEST_SUITE_P(User, CopyPumping,
                         testing::Values(Impatience{"Cancels", BM_CLICK, kAdvancedCancel, -1},
                                         Impatience{"Accepts", BM_CLICK, kAdvancedOk, 0},
                                         Impatience{"ClosesTheDialog", WM_CLOSE, 0, -1},
                                         Impatience{"PressesAdvanced", BM_CLICK, kAdvanced, 8},
                                         Impatience{"PressesDeep", BM_CLICK, kDeepRadio, 8}),
                         NameOfAct);
} // namespace
