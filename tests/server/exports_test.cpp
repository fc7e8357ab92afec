// The application object and the entry points alone: the base class and the list of kept copy dialogs are
// doubles that record their calls, and the table has one class whose registration does what the test says.
#include "CQPCopyOptDlg.h"
#include "ClassTable.h"
#include "LogFolder.h"
#include "WinAppDouble.h"
#include "XBookmarkManager.h"

#include "ComModule.h"
#include "Registrar.h"
#include "UiState.h"
#include "WinApp.h"

#include "qptools.h"

#include <objbase.h>
#include <olectl.h>

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

namespace
{
const CLSID kClass = {0x11111111, 1, 1, {1}};

std::function<HRESULT(Registrar& registrar, bool add)> g_registration;

HRESULT Registration(Registrar& registrar, bool add)
{
    return g_registration(registrar, add);
}

void NothingToInit(bool) {}

using BaseCalls = std::vector<BaseCall>;

class Exports : public testing::Test
{
protected:
    void SetUp() override { g_base = {}; }
    void TearDown() override { ComModule::Get().Term(); }

    /// The application object in the state after loading.
    static CWinApp* App()
    {
        CWinApp::Get()->m_hInstance = GetModuleHandleW(nullptr);
        return CWinApp::Get();
    }

    /// The log book without the time of each line.
    std::string Book() const
    {
        const std::string book = logs.Book();
        std::string lines;
        for (std::size_t start = 0; start < book.size(); start = book.find('\n', start) + 1)
            lines += book.substr(book.find('\t', start) + 1, book.find('\n', start) - book.find('\t', start));
        return lines;
    }

    LogFolder logs;
};
} // namespace

void qptools::FreeKeptCopyDialogs() noexcept
{
    g_base.calls.push_back(
        {"FreeKeptCopyDialogs", CUiState::Depth(), ComModule::Get().LibraryId() != nullptr});
}

void qptools::XBookmarkManager::Release() noexcept
{
    g_base.calls.push_back({"Release", CUiState::Depth(), ComModule::Get().LibraryId() != nullptr});
}

ObjectMapEntry qptools::g_classTable[8] = {
    {&kClass, &Registration, nullptr, nullptr, nullptr, 0, nullptr, nullptr, &NothingToInit},
};

TEST_F(Exports, InitInstanceStartsTheModuleObjectThenTheBase)
{
    for (const BOOL answer : {TRUE, FALSE, 7})
    {
        g_base = {};
        g_base.init = answer;
        EXPECT_EQ(App()->InitInstance(), answer);
        EXPECT_EQ(g_base.calls, (BaseCalls{{"InitInstance", 0, true}}));
        ComModule::Get().Term();
    }
}

TEST_F(Exports, InitInstanceCallsTheBaseEvenIfTheModuleObjectFails)
{
    App()->m_hInstance = nullptr; // which the module object refuses
    for (const BOOL answer : {TRUE, FALSE})
    {
        g_base = {};
        g_base.init = answer;
        EXPECT_EQ(CWinApp::Get()->InitInstance(), answer);
        EXPECT_EQ(g_base.calls, (BaseCalls{{"InitInstance", 0, false}}));
    }
}

TEST_F(Exports, ExitInstanceReleasesTheHostThenEndsTheModuleThenTheBase)
{
    for (const int answer : {0, 3, -1})
    {
        App()->InitInstance();
        g_base = {};
        g_base.exit = answer;
        EXPECT_EQ(App()->ExitInstance(), answer);
        EXPECT_EQ(
            g_base.calls,
            (BaseCalls{{"FreeKeptCopyDialogs", 0, true}, {"Release", 0, true}, {"ExitInstance", 0, false}}));
    }
}

TEST_F(Exports, ExitInstanceFreesNoCopyDialogWhenTheProcessEnds)
{
    App()->InitInstance();
    g_base = {};
    App()->m_processEnds = true;
    EXPECT_EQ(App()->ExitInstance(), 0);
    App()->m_processEnds = false;
    EXPECT_EQ(g_base.calls, (BaseCalls{{"ExitInstance", 0, false}}));
}

TEST_F(Exports, UnloadCallsTheBaseOnceInsideTheUiState)
{
    App()->InitInstance();
    g_base.calls.clear();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    EXPECT_EQ(g_base.calls, (BaseCalls{{"CanUnloadNow", 1, true}}));
    EXPECT_EQ(CUiState::Depth(), 0);
}

TEST_F(Exports, UnloadIsAllowedByTheBasesOkAloneAndNothingHeld)
{
    App()->InitInstance();
    for (const HRESULT answer : {S_OK, S_FALSE, E_FAIL, static_cast<HRESULT>(2)})
    {
        g_base.unload = answer;
        EXPECT_EQ(DllCanUnloadNow(), answer == S_OK ? S_OK : S_FALSE) << answer;
        ComModule::Get().Lock();
        EXPECT_EQ(DllCanUnloadNow(), S_FALSE) << answer;
        ComModule::Get().Unlock();
    }
}

TEST_F(Exports, DllMainPassesItsArgumentsOnAndReturnsTheResult)
{
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    for (const DWORD reason : {DLL_PROCESS_ATTACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH, DLL_PROCESS_DETACH})
    {
        for (const BOOL answer : {TRUE, FALSE})
        {
            g_base = {};
            g_base.entry = answer;
            EXPECT_EQ(DllMain(instance, reason, nullptr), answer);
            EXPECT_EQ(g_base.calls, (BaseCalls{{"RunModuleEntry", 0, false}}));
            EXPECT_EQ(g_base.entryInstance, instance);
            EXPECT_EQ(g_base.entryReason, reason);
        }
    }
}

// The system passes a value that is not null at the end of the process, null when the module is unloaded.
TEST_F(Exports, DllMainTellsTheEndOfTheProcessFromUnloading)
{
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    for (const bool ends : {true, false, true})
    {
        DllMain(instance, DLL_PROCESS_DETACH, ends ? instance : nullptr);
        EXPECT_EQ(g_base.entryProcessEnds, ends);
    }
}

TEST_F(Exports, RegistrationPassesItsDirectionOnAndLogsNoSuccess)
{
    App()->InitInstance();
    std::string asked;
    g_registration = [&](Registrar&, bool add) {
        asked += add ? '+' : '-';
        return S_OK;
    };
    EXPECT_EQ(DllRegisterServer(), S_OK);
    EXPECT_EQ(DllUnregisterServer(), S_OK);
    EXPECT_EQ(asked, "+-");
    EXPECT_EQ(Book(), "");
}

TEST_F(Exports, RegistrationOfAModuleThatDidNotStartIsLogged)
{
    EXPECT_EQ(DllRegisterServer(), E_UNEXPECTED);
    EXPECT_EQ(DllUnregisterServer(), E_UNEXPECTED);
    const std::string said = "\t0x8000FFFF\t-\tmodule: it has not been started and knows no classes\n";
    EXPECT_EQ(Book(), "error\tQPTools\tDllRegisterServer\t41" + said +
                          "error\tQPTools\tDllUnregisterServer\t47" + said);
}

TEST_F(Exports, RegistrationWithoutMemoryIsLogged)
{
    App()->InitInstance();
    g_registration = [](Registrar&, bool) -> HRESULT {
        throw std::bad_alloc();
    };
    EXPECT_EQ(DllRegisterServer(), E_OUTOFMEMORY);
    EXPECT_EQ(DllUnregisterServer(), E_OUTOFMEMORY);
    EXPECT_EQ(Book(), "error\tQPTools\tDllRegisterServer\t41\t0x8007000E\t-\tout of memory\n"
                      "error\tQPTools\tDllUnregisterServer\t47\t0x8007000E\t-\tout of memory\n");
}

TEST_F(Exports, RegistrationThatFailsAtNoKeyIsLogged)
{
    App()->InitInstance();
    g_registration = [](Registrar&, bool) -> HRESULT {
        throw std::runtime_error("anything else");
    };
    EXPECT_EQ(DllRegisterServer(), E_FAIL);
    g_registration = [](Registrar&, bool) {
        return TYPE_E_REGISTRYACCESS;
    };
    EXPECT_EQ(DllUnregisterServer(), TYPE_E_REGISTRYACCESS);
    EXPECT_EQ(Book(), "error\tQPTools\tDllRegisterServer\t41\t0x80004005\t-\tfailed at no key\n"
                      "error\tQPTools\tDllUnregisterServer\t47\t0x8002801C\t-\tfailed at no key\n");
}

TEST_F(Exports, AFailureAtAKeyDoesNotHideTheFinalOne)
{
    App()->InitInstance();
    g_registration = [](Registrar& registrar, bool add) -> HRESULT {
        static_cast<void>(registrar.UpdateScriptText(L"no script", L"here", add));
        throw std::bad_alloc();
    };
    EXPECT_EQ(DllUnregisterServer(), E_OUTOFMEMORY);
    const std::string book = Book();
    EXPECT_EQ(book.find("error\tQPTools\tDllUnregisterServer\t47\t0x8007000D\t-\there, line 1: "), 0u)
        << book;
    EXPECT_EQ(book.substr(book.find('\n') + 1),
              "error\tQPTools\tDllUnregisterServer\t47\t0x8007000E\t-\tout of memory\n");
}
