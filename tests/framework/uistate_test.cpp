#include "UiState.h"

#include "WinApp.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace
{
class App final : public CWinApp
{
public:
    App() : CWinApp(L"a name") {}
    BOOL InitInstance() override
    {
        ++started;
        return answer;
    }
    int ExitInstance() override
    {
        ++ended;
        endedWithProcess = m_processEnds;
        return CWinApp::ExitInstance();
    }
    int started = 0;
    int ended = 0;
    bool endedWithProcess = false;
    BOOL answer = TRUE;
};

/// Represents the module: any handle will do, because nothing is looked up in it here.
int g_place = 0;
const HINSTANCE kModule = reinterpret_cast<HINSTANCE>(&g_place);
} // namespace

TEST(UiState, EnteringMakesTheModuleCurrentForAScope)
{
    App app;
    app.m_hInstance = kModule;
    EXPECT_EQ(CurrentModule(), nullptr);
    EXPECT_EQ(CUiState::Depth(), 0);
    {
        const CUiState state;
        EXPECT_EQ(CurrentModule(), kModule);
        EXPECT_EQ(CUiState::Depth(), 1);
        {
            const CUiState nested;
            EXPECT_EQ(CurrentModule(), kModule);
            EXPECT_EQ(CUiState::Depth(), 2);
        }
        EXPECT_EQ(CurrentModule(), kModule) << "leaving a nested entry restores the outer one";
        EXPECT_EQ(CUiState::Depth(), 1);
    }
    EXPECT_EQ(CurrentModule(), nullptr);
    EXPECT_EQ(CUiState::Depth(), 0);
    ReleaseModuleActivationContext();
}

TEST(UiState, AnExceptionLeavesIt)
{
    App app;
    app.m_hInstance = kModule;
    try
    {
        const CUiState state;
        const CUiState nested;
        throw std::runtime_error("out");
    }
    catch (const std::runtime_error&)
    {
        EXPECT_EQ(CUiState::Depth(), 0);
        EXPECT_EQ(CurrentModule(), nullptr);
    }
    ReleaseModuleActivationContext();
}

TEST(UiState, CountsEveryEntryNestedOnesToo)
{
    const unsigned before = CUiState::Entries();
    {
        const CUiState state;
        const CUiState nested;
    }
    EXPECT_EQ(CUiState::Entries(), before + 2);
}

TEST(UiState, BelongsToItsThread)
{
    const CUiState state;
    int depth = -1;
    unsigned entries = 99;
    std::thread([&] {
        depth = CUiState::Depth();
        entries = CUiState::Entries();
    }).join();
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(entries, 0u);
}

TEST(UiState, WithoutAManifestThereIsNoActivationContext)
{
    App app;
    app.m_hInstance = GetModuleHandleW(nullptr);
    ReleaseModuleActivationContext();
    EXPECT_EQ(ModuleActivationContext(), INVALID_HANDLE_VALUE);
    HANDLE before = nullptr;
    HANDLE inside = nullptr;
    GetCurrentActCtx(&before);
    {
        const CUiState state;
        GetCurrentActCtx(&inside);
    }
    EXPECT_EQ(inside, before);
    ReleaseModuleActivationContext();
}

TEST(WinApp, TheFirstObjectIsTheModulesAndKeepsItsName)
{
    App app;
    EXPECT_EQ(CWinApp::Get(), &app);
    EXPECT_STREQ(app.m_pszAppName, L"a name");
    {
        CWinApp another;
        EXPECT_EQ(another.m_pszAppName, nullptr);
        EXPECT_EQ(CWinApp::Get(), &app);
    }
    EXPECT_EQ(CWinApp::Get(), &app);
}

TEST(WinApp, TheBaseStartsAndEndsWithNothingToDo)
{
    CWinApp app;
    EXPECT_EQ(app.InitInstance(), TRUE);
    EXPECT_EQ(app.ExitInstance(), 0);
}

TEST(WinApp, LoadingSetsTheInstanceAndRunsInitInstance)
{
    App app;
    EXPECT_EQ(RunModuleEntry(kModule, DLL_PROCESS_ATTACH), TRUE);
    EXPECT_EQ(app.m_hInstance, kModule);
    EXPECT_EQ(app.started, 1);
    app.answer = FALSE;
    EXPECT_EQ(RunModuleEntry(kModule, DLL_PROCESS_ATTACH), FALSE);
}

TEST(WinApp, UnloadingRunsExitInstanceAndThreadReasonsAreIgnored)
{
    App app;
    EXPECT_EQ(RunModuleEntry(kModule, DLL_THREAD_ATTACH), TRUE);
    EXPECT_EQ(RunModuleEntry(kModule, DLL_THREAD_DETACH), TRUE);
    EXPECT_EQ(app.started + app.ended, 0);
    EXPECT_EQ(RunModuleEntry(kModule, DLL_PROCESS_DETACH), TRUE);
    EXPECT_EQ(app.ended, 1);
}

TEST(WinApp, AModuleWithoutAnApplicationIsLoadedAndUnloaded)
{
    ASSERT_EQ(CWinApp::Get(), nullptr);
    EXPECT_EQ(RunModuleEntry(kModule, DLL_PROCESS_ATTACH), TRUE);
    EXPECT_EQ(RunModuleEntry(kModule, DLL_PROCESS_DETACH), TRUE);
}

TEST(WinApp, ExitInstanceCanTellTheEndOfTheProcessFromUnloading)
{
    App app;
    RunModuleEntry(kModule, DLL_PROCESS_DETACH, true);
    EXPECT_TRUE(app.endedWithProcess);
    RunModuleEntry(kModule, DLL_PROCESS_DETACH, false);
    EXPECT_FALSE(app.endedWithProcess);
    RunModuleEntry(kModule, DLL_PROCESS_DETACH, true);
    RunModuleEntry(kModule, DLL_PROCESS_DETACH);
    EXPECT_FALSE(app.endedWithProcess);
    EXPECT_EQ(app.ended, 4);
}

TEST(WinApp, NoOtherReasonSaysThatTheProcessEnds)
{
    App app;
    for (const DWORD reason : {DLL_PROCESS_ATTACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH})
    {
        RunModuleEntry(kModule, reason, true);
        EXPECT_FALSE(app.m_processEnds) << reason;
    }
}

TEST(WinApp, ALiveWindowKeepsTheModuleLoaded)
{
    const CWinApp app;
    EXPECT_EQ(app.CanUnloadNow(), S_OK);
    {
        const CLiveWindow window;
        EXPECT_EQ(CLiveWindow::Count(), 1);
        EXPECT_EQ(app.CanUnloadNow(), S_FALSE);
        {
            const CLiveWindow another;
            EXPECT_EQ(CLiveWindow::Count(), 2);
        }
        EXPECT_EQ(app.CanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(app.CanUnloadNow(), S_OK);
}
