#include "InsideModule.h"

#include "CQptoolsApp.h"
#include "MemoryHost.h"
#include "UiState.h"

#include "qptools.h"

#include <objbase.h>

#include <type_traits>

using qptools::CQptoolsApp;

namespace
{
CQptoolsApp* App()
{
    return dynamic_cast<CQptoolsApp*>(CWinApp::Get());
}

/// The module in use by a host that released its copy options without DeleteObjects.
class KeptCopyDialogs : public InsideModule
{
protected:
    void Keep()
    {
        ComPtr<IQPCopyOptDlg> copy;
        ASSERT_EQ(Make(CLSID_QPCopyOptDlg, copy), S_OK);
        ASSERT_EQ(copy->Initialize(host.List({}).get(), &host.Config()), S_OK);
    }

    MemoryHost host;
};
} // namespace

TEST(QptoolsApp, OneInstanceExistsFromTheLoadOnWithoutAName)
{
    ASSERT_NE(App(), nullptr);
    EXPECT_EQ(App()->m_pszAppName, nullptr);
}

TEST(QptoolsApp, AddsNoDataToItsBase)
{
    EXPECT_EQ(sizeof(CQptoolsApp), sizeof(CWinApp));
    EXPECT_TRUE((std::is_base_of_v<CWinApp, CQptoolsApp>));
}

TEST(QptoolsApp, InitInstanceInitialisesTheModuleObject)
{
    App()->m_hInstance = GetModuleHandleW(nullptr);
    EXPECT_EQ(App()->InitInstance(), TRUE);
    EXPECT_EQ(ComModule::Get().Instance(), GetModuleHandleW(nullptr));
    ASSERT_NE(ComModule::Get().LibraryId(), nullptr);
    EXPECT_TRUE(*ComModule::Get().LibraryId() == LIBID_QPTOOLSLib);
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(ComModule::Get().GetClassObject(CLSID_XBookMark, __uuidof(IClassFactory), factory.putVoid()),
              S_OK);
    factory.reset();
    EXPECT_EQ(App()->ExitInstance(), 0);
}

TEST(QptoolsApp, InitInstanceSucceedsIfTheModuleObjectFails)
{
    App()->m_hInstance = nullptr; // which the module object refuses
    EXPECT_EQ(App()->InitInstance(), TRUE);
    EXPECT_EQ(ComModule::Get().LibraryId(), nullptr);
    void* result = &result;
    EXPECT_EQ(ComModule::Get().GetClassObject(CLSID_XBookMark, __uuidof(IClassFactory), &result),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(App()->ExitInstance(), 0);
}

TEST(QptoolsApp, ExitInstanceEndsTheModuleObjectAndThenTheBase)
{
    App()->m_hInstance = GetModuleHandleW(nullptr);
    App()->InitInstance();
    EXPECT_EQ(App()->ExitInstance(), 0);
    EXPECT_EQ(ComModule::Get().LibraryId(), nullptr);
    for (const ObjectMapEntry& entry : qptools::g_classTable)
        EXPECT_EQ(entry.factory.load(), nullptr);
}

TEST_F(InsideModule, UnloadCallsTheFrameworkInsideTheUiState)
{
    const unsigned before = CUiState::Entries();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    EXPECT_EQ(CUiState::Entries(), before + 1);
    EXPECT_EQ(CUiState::Depth(), 0);
}

TEST_F(InsideModule, UnloadIsRefusedWhileAWindowOfTheModuleLives)
{
    {
        const CLiveWindow window;
        EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(InsideModule, UnloadIsRefusedWhileAnythingIsHeld)
{
    ComModule::Get().Lock();
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    ComModule::Get().Unlock();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(InsideModule, GettingAClassObjectDoesNotEnterTheUiState)
{
    const unsigned before = CUiState::Entries();
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(DllGetClassObject(CLSID_XBookMark, __uuidof(IClassFactory), factory.putVoid()), S_OK);
    EXPECT_EQ(DllGetClassObject(CLSID_XBookMark, __uuidof(IClassFactory), nullptr), E_POINTER);
    EXPECT_EQ(CUiState::Entries(), before);
    EXPECT_EQ(ComModule::Get().LockCount(), 1);
}

TEST_F(KeptCopyDialogs, HoldTheHostsObjectsAndLetTheModuleBeUnloaded)
{
    Keep();
    Keep();
    EXPECT_EQ(host.LiveObjects(), 2);
    EXPECT_EQ(host.Config().References(), 2u);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(KeptCopyDialogs, AreFreedWhenTheModuleIsUnloaded)
{
    Keep();
    Keep();
    RunModuleEntry(GetModuleHandleW(nullptr), DLL_PROCESS_DETACH, false);
    EXPECT_EQ(host.LiveObjects(), 0);
    EXPECT_EQ(host.Config().References(), 0u);
}

TEST_F(KeptCopyDialogs, AreNotFreedWhenTheProcessEnds)
{
    Keep();
    RunModuleEntry(GetModuleHandleW(nullptr), DLL_PROCESS_DETACH, true);
    EXPECT_EQ(host.LiveObjects(), 1) << "the host's modules may be gone already";
    EXPECT_EQ(host.Config().References(), 1u);
    RunModuleEntry(GetModuleHandleW(nullptr), DLL_PROCESS_DETACH, false);
    EXPECT_EQ(host.LiveObjects(), 0);
}

TEST_F(KeptCopyDialogs, AreNotThoseThatDeleteObjectsFreed)
{
    ComPtr<IQPCopyOptDlg> copy;
    ASSERT_EQ(Make(CLSID_QPCopyOptDlg, copy), S_OK);
    ASSERT_EQ(copy->Initialize(host.List({}).get(), &host.Config()), S_OK);
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(host.LiveObjects(), 0);
    EXPECT_EQ(host.Config().References(), 0u);
}
