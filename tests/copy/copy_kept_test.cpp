// A component that is released without DeleteObjects: the module keeps its dialog, with the host's objects,
// in a list and frees it when it is unloaded.
#include "CopyWords.h"
#include "CountedEnum.h"
#include "DialogDriver.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "Untouched.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <vector>

namespace
{
class CopyKept : public testing::Test
{
protected:
    ComPtr<IQPCopyOptDlg> Component(const ComPtr<MemoryEnum>& objects)
    {
        ComPtr<IQPCopyOptDlg> copy;
        EXPECT_EQ(module->Create(CLSID_QPCopyOptDlg, copy), S_OK);
        EXPECT_EQ(copy->Initialize(objects.get(), &host.Config()), S_OK);
        return copy;
    }

    ULONG Held() { return References(first) + References(second) + host.Config().References() - 2; }

    MemoryHost host; ///< outlives the module
    const ComPtr<MemoryObject> station = host.Node(L"station", L"Station");
    const ComPtr<MemoryEnum> first = host.List({station}, "first");
    const ComPtr<MemoryEnum> second = host.List({station}, "second");
    std::optional<ModuleUnderTest> module{std::in_place};
};

TEST_F(CopyKept, UntilTheModuleEnds)
{
    Component(first);
    EXPECT_EQ(Held(), 2u) << "the objects and the factory";
    Component(second);
    Component(first);
    EXPECT_EQ(Held(), 6u);
    EXPECT_EQ(module->CanUnloadNow(), S_OK) << "a kept dialog does not keep the module";
    module.reset();
    EXPECT_EQ(Held(), 0u);
}

TEST_F(CopyKept, OverAModuleThatIsLoadedAgain)
{
    for (int load = 0; load < 3; ++load)
    {
        Component(first);
        EXPECT_EQ(Held(), 2u);
        module.reset();
        EXPECT_EQ(Held(), 0u);
        module.emplace();
    }
}

TEST_F(CopyKept, OnlyWithoutDeleteObjects)
{
    EXPECT_EQ(Component(first)->DeleteObjects(), S_OK);
    EXPECT_EQ(Held(), 0u);
}

TEST_F(CopyKept, OnlyThatOfTheLastInitialize)
{
    const auto copy = Component(first);
    EXPECT_EQ(copy->Initialize(second.get(), nullptr), S_OK);
    EXPECT_EQ(Held(), 1u);
}

TEST_F(CopyKept, WithWhatItsWalksFound)
{
    const ULONG before = References(station);
    auto copy = Component(first);
    {
        DialogDriver user;
        user.OnDialog({Presses(copy_dialog::kAdvanced), Presses(copy_dialog::kAdvancedOk)});
        EXPECT_EQ(copy->ShowDialog(), S_OK);
    }
    copy.reset();
    EXPECT_EQ(References(station), before + 2) << "one for each walk";
    module.reset();
    EXPECT_EQ(References(station), before);
}

TEST_F(CopyKept, IfReleasedWhileItIsOpen)
{
    auto copy = Component(first);
    {
        DialogDriver user;
        user.OnDialog({[&](DialogView&) { copy.reset(); }, Presses(copy_dialog::kAdvanced),
                       Presses(copy_dialog::kAdvancedOk)});
        EXPECT_EQ(copy->ShowDialog(), S_OK);
    }
    EXPECT_EQ(Held(), 2u);
    module.reset();
    EXPECT_EQ(Held(), 0u);
}

TEST_F(CopyKept, FromSeveralApartments)
{
    constexpr int threads = 4;
    constexpr int components = 200;
    CountedEnum objects;
    const auto create = [&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(module->GetClassObject(CLSID_QPCopyOptDlg, __uuidof(IClassFactory), factory.putVoid()),
                  S_OK);
        for (int component = 0; component < components; ++component)
        {
            ComPtr<IQPCopyOptDlg> copy;
            EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IQPCopyOptDlg), copy.putVoid()), S_OK);
            EXPECT_EQ(copy->Initialize(&objects, nullptr), S_OK);
        }
        factory.reset();
        CoUninitialize();
    };
    std::vector<std::thread> apartments;
    for (int thread = 0; thread < threads; ++thread)
        apartments.emplace_back(create);
    for (std::thread& apartment : apartments)
        apartment.join();
    EXPECT_EQ(objects.Count(), threads * components);
    module.reset();
    EXPECT_EQ(objects.Count(), 0);
}

// The last one, because the module stays loaded from here on. Nothing is freed at the end of the process, and
// a leak checker finds the dialog in the module's list.
TEST_F(CopyKept, AtTheEndOfTheProcessToo)
{
    static auto* const endless = new MemoryHost;
    LoadLibraryW(L"qptools.dll");
    ComPtr<IQPCopyOptDlg> copy;
    EXPECT_EQ(module->Create(CLSID_QPCopyOptDlg, copy), S_OK);
    EXPECT_EQ(copy->Initialize(nullptr, &endless->Config()), S_OK);
    copy.reset();
    module.reset();
    EXPECT_EQ(endless->Config().References(), 1u);
}
} // namespace
