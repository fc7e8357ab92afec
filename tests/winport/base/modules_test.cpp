// Modules, their resources, and activation contexts.
#include "WinportSupport.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{
// The test module, loaded while one of these lives.
class CTestModule
{
public:
    CTestModule() : m_module(LoadLibraryW(L"wptestmodule.dll")) {}
    ~CTestModule()
    {
        if (m_module)
            FreeLibrary(m_module);
    }
    CTestModule(const CTestModule&) = delete;
    CTestModule& operator=(const CTestModule&) = delete;
    HMODULE Get() const { return m_module; }

private:
    HMODULE m_module;
};

class Modules : public testing::Test
{
protected:
    void SetUp() override
    {
        SetEnvironmentVariableW(L"WPTEST_EVENTS", L"");
        SetEnvironmentVariableW(L"WPTEST_REFUSE", nullptr);
    }
    void TearDown() override { EXPECT_EQ(GetModuleHandleW(L"wptestmodule.dll"), nullptr); }
    static std::wstring Events() { return Variable(L"WPTEST_EVENTS"); }
};

using Resources = Modules;
using ActivationContexts = Modules;

std::string Content(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    HRSRC resource = FindResourceW(module, name, type);
    if (!resource)
        return "?";
    const void* data = LockResource(LoadResource(module, resource));
    return {static_cast<const char*>(data), SizeofResource(module, resource)};
}

std::wstring String(HMODULE module, UINT id)
{
    wchar_t text[64] = L"unset";
    const int length = LoadStringW(module, id, text, 64);
    EXPECT_EQ(length, static_cast<int>(std::wcslen(text)));
    return text;
}

HANDLE ManifestContext(HMODULE module, WORD id)
{
    ACTCTXW parameters{};
    parameters.cbSize = sizeof(parameters);
    parameters.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    parameters.hModule = module;
    parameters.lpResourceName = MAKEINTRESOURCEW(id);
    return CreateActCtxW(&parameters);
}

HANDLE Current()
{
    HANDLE current = nullptr;
    EXPECT_TRUE(GetCurrentActCtx(&current));
    if (current)
        ReleaseActCtx(current);
    return current;
}
} // namespace

TEST_F(Modules, AreAttachedOnceAndDetachedWithTheLastHandle)
{
    HMODULE first = LoadLibraryW(L"wptestmodule.dll");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(Events(), L"A");
    HMODULE second = LoadLibraryW(L"WPTESTMODULE");
    EXPECT_EQ(first, second);
    EXPECT_EQ(Events(), L"A");
    EXPECT_TRUE(FreeLibrary(second));
    EXPECT_EQ(Events(), L"A");
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_EQ(Events(), L"AD");
    EXPECT_NE(LoadLibraryW(L"wptestmodule.dll"), nullptr);
    EXPECT_TRUE(FreeLibrary(first = GetModuleHandleW(L"wptestmodule.dll")));
    EXPECT_EQ(Events(), L"ADAD");
}

TEST_F(Modules, AreKnownOnlyWhileLoaded)
{
    SetLastError(0);
    EXPECT_EQ(GetModuleHandleW(L"wptestmodule.dll"), nullptr);
    EXPECT_EQ(LastError(), ERROR_MOD_NOT_FOUND);
    const CTestModule module;
    EXPECT_EQ(GetModuleHandleW(L"wptestmodule.dll"), module.Get());
    EXPECT_EQ(GetModuleHandleW(L"WpTestModule"), module.Get());
}

TEST_F(Modules, MayRefuseToStart)
{
    SetEnvironmentVariableW(L"WPTEST_REFUSE", L"1");
    SetLastError(0);
    EXPECT_EQ(LoadLibraryW(L"wptestmodule.dll"), nullptr);
    EXPECT_EQ(LastError(), ERROR_DLL_INIT_FAILED);
    EXPECT_EQ(Events(), L"AD");
    SetEnvironmentVariableW(L"WPTEST_REFUSE", nullptr);
    const CTestModule module;
    EXPECT_NE(module.Get(), nullptr);
}

TEST_F(Modules, ThatDoNotExistAreNotFound)
{
    SetLastError(0);
    EXPECT_EQ(LoadLibraryW(L"wpnosuchmodule.dll"), nullptr);
    EXPECT_EQ(LastError(), ERROR_MOD_NOT_FOUND);
}

TEST_F(Modules, HaveExportsByName)
{
    const CTestModule module;
    using Answer = int (*)();
    const auto answer =
        reinterpret_cast<Answer>(reinterpret_cast<void*>(GetProcAddress(module.Get(), "WptestAnswer")));
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    EXPECT_EQ(GetProcAddress(module.Get(), "WptestOther"), GetProcAddress(module.Get(), "WptestAnswer"));
    EXPECT_NE(GetProcAddress(module.Get(), "DllGetClassObject"), nullptr);
    EXPECT_NE(GetProcAddress(module.Get(), "DllCanUnloadNow"), nullptr);
    for (const char* name : {"WptestGetClassObject", "wptestanswer", "DllRegisterServer", "DllMain"})
    {
        SetLastError(0);
        EXPECT_EQ(GetProcAddress(module.Get(), name), nullptr);
        EXPECT_EQ(LastError(), ERROR_PROC_NOT_FOUND);
    }
}

TEST_F(Modules, LieBesideTheProgram)
{
    const CTestModule module;
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(module.Get(), path, MAX_PATH);
    EXPECT_EQ(length, std::wcslen(path));
    EXPECT_EQ(std::wstring(path), TestModulePath());
    EXPECT_EQ(LoadLibraryW(path), module.Get());
    FreeLibrary(module.Get());
}

TEST_F(Modules, CutAPathThatDoesNotFit)
{
    wchar_t path[6] = L"xxxxx";
    SetLastError(0);
    EXPECT_EQ(GetModuleFileNameW(nullptr, path, 5), 5u);
    EXPECT_EQ(LastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::wstring(path, 4), ProgramPath().substr(0, 4));
}

TEST_F(Modules, AreFoundByAnAddressInside)
{
    const CTestModule module;
    HMODULE found = nullptr;
    const auto address = reinterpret_cast<LPCWSTR>(GetProcAddress(module.Get(), "WptestAnswer"));
    constexpr DWORD kByAddress = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;
    EXPECT_TRUE(
        GetModuleHandleExW(kByAddress | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, address, &found));
    EXPECT_EQ(found, module.Get());
    EXPECT_TRUE(GetModuleHandleExW(kByAddress | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                   reinterpret_cast<LPCWSTR>(&String), &found));
    EXPECT_EQ(found, GetModuleHandleW(nullptr));
    SetLastError(0);
    EXPECT_FALSE(GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(16), &found));
    EXPECT_EQ(LastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(found, nullptr);
}

TEST_F(Modules, AreCountedByExtendedHandles)
{
    HMODULE module = LoadLibraryW(L"wptestmodule.dll");
    HMODULE same = nullptr;
    EXPECT_TRUE(GetModuleHandleExW(0, L"wptestmodule.dll", &same));
    EXPECT_EQ(same, module);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(Events(), L"A");
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(Events(), L"AD");
}

TEST_F(Modules, TellTheProgramApart)
{
    HMODULE program = nullptr;
    EXPECT_TRUE(GetModuleHandleExW(0, nullptr, &program));
    EXPECT_EQ(program, GetModuleHandleW(nullptr));
    EXPECT_NE(program, nullptr);
    EXPECT_TRUE(FreeLibrary(program));
    EXPECT_EQ(GetModuleHandleW(nullptr), program);
}

TEST_F(Resources, AreFoundByNumberAndByName)
{
    const CTestModule module;
    EXPECT_EQ(Content(module.Get(), MAKEINTRESOURCEW(7), L"REGISTRY"), "seven");
    EXPECT_EQ(Content(module.Get(), MAKEINTRESOURCEW(7), L"Registry"), "seven");
    EXPECT_EQ(Content(module.Get(), L"#7", L"REGISTRY"), "seven");
    EXPECT_EQ(Content(module.Get(), L"NAMED", L"registry"), "named");
    EXPECT_EQ(Content(module.Get(), L"named", L"registry"), "named");
    EXPECT_EQ(Content(module.Get(), MAKEINTRESOURCEW(7), RT_RCDATA), "raw");
    EXPECT_EQ(Content(module.Get(), MAKEINTRESOURCEW(7), L"#10"), "raw");
    EXPECT_EQ(Content(module.Get(), MAKEINTRESOURCEW(8), L"REGISTRY"), "\x34\x12\x78\x56\xbc\x9a");
}

TEST_F(Resources, AreNotFoundForAReason)
{
    const CTestModule module;
    SetLastError(0);
    EXPECT_EQ(FindResourceW(module.Get(), MAKEINTRESOURCEW(9), L"REGISTRY"), nullptr);
    EXPECT_EQ(LastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    SetLastError(0);
    EXPECT_EQ(FindResourceW(module.Get(), MAKEINTRESOURCEW(7), L"NOSUCHTYPE"), nullptr);
    EXPECT_EQ(LastError(), ERROR_RESOURCE_TYPE_NOT_FOUND);
    SetLastError(0);
    EXPECT_EQ(FindResourceW(nullptr, MAKEINTRESOURCEW(7), L"REGISTRY"), nullptr);
    EXPECT_NE(LastError(), 0);
}

TEST_F(Resources, OfIconsAreLoadedOnce)
{
    const CTestModule module;
    const HICON icon = LoadIconW(module.Get(), MAKEINTRESOURCEW(50));
    EXPECT_NE(icon, nullptr);
    EXPECT_EQ(LoadIconW(module.Get(), MAKEINTRESOURCEW(50)), icon);
    EXPECT_NE(LoadIconW(nullptr, IDI_HAND), icon);
    EXPECT_EQ(LoadIconW(module.Get(), MAKEINTRESOURCEW(60)), nullptr); // its picture alone
}

TEST_F(Resources, OfStringsAreLoaded)
{
    const CTestModule module;
    EXPECT_EQ(String(module.Get(), 16), L"first of its block");
    EXPECT_EQ(String(module.Get(), 17), L"Ma\u00df f\u00fcr Ma\u00df");
    EXPECT_EQ(String(module.Get(), 31), L"last of its block");
    EXPECT_EQ(String(module.Get(), 33), L"twelve chars");
}

TEST_F(Resources, OfStringsThatAreMissingAreEmpty)
{
    const CTestModule module;
    EXPECT_EQ(String(module.Get(), 18), L"");
    EXPECT_EQ(String(module.Get(), 32), L"");
    wchar_t text[4] = L"abc";
    EXPECT_EQ(LoadStringW(module.Get(), 4711, text, 4), 0);
}

TEST_F(Resources, OfStringsAreCutToTheBuffer)
{
    const CTestModule module;
    wchar_t text[7] = L"xxxxxx";
    EXPECT_EQ(LoadStringW(module.Get(), 33, text, 7), 6);
    EXPECT_EQ(std::wstring(text), L"twelve");
}

TEST_F(ActivationContexts, AreActivatedOneInsideTheOther)
{
    const CTestModule module;
    HANDLE outer = ManifestContext(module.Get(), 2);
    HANDLE inner = ManifestContext(module.Get(), 2);
    ASSERT_NE(outer, INVALID_HANDLE_VALUE);
    ASSERT_NE(outer, inner);
    HANDLE before = Current();
    ULONG_PTR outerCookie = 0;
    ULONG_PTR innerCookie = 0;
    EXPECT_TRUE(ActivateActCtx(outer, &outerCookie));
    EXPECT_EQ(Current(), outer);
    EXPECT_TRUE(ActivateActCtx(inner, &innerCookie));
    EXPECT_EQ(Current(), inner);
    EXPECT_TRUE(DeactivateActCtx(0, innerCookie));
    EXPECT_EQ(Current(), outer);
    EXPECT_TRUE(DeactivateActCtx(0, outerCookie));
    EXPECT_EQ(Current(), before);
    ReleaseActCtx(outer);
    ReleaseActCtx(inner);
}

TEST_F(ActivationContexts, MayBeLeftSeveralAtOnce)
{
    const CTestModule module;
    HANDLE context = ManifestContext(module.Get(), 2);
    HANDLE before = Current();
    ULONG_PTR outerCookie = 0;
    ULONG_PTR innerCookie = 0;
    EXPECT_TRUE(ActivateActCtx(context, &outerCookie));
    EXPECT_TRUE(ActivateActCtx(context, &innerCookie));
    EXPECT_NE(outerCookie, innerCookie);
    EXPECT_TRUE(DeactivateActCtx(DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION, outerCookie));
    EXPECT_EQ(Current(), before);
    ReleaseActCtx(context);
}

TEST_F(ActivationContexts, LiveAsLongAsSomeoneHoldsThem)
{
    const CTestModule module;
    HANDLE context = ManifestContext(module.Get(), 2);
    ULONG_PTR cookie = 0;
    EXPECT_TRUE(ActivateActCtx(context, &cookie));
    ReleaseActCtx(context);
    EXPECT_EQ(Current(), context);
    EXPECT_TRUE(DeactivateActCtx(0, cookie));
}

TEST_F(ActivationContexts, NeedAManifest)
{
    const CTestModule module;
    SetLastError(0);
    EXPECT_EQ(ManifestContext(module.Get(), 3), INVALID_HANDLE_VALUE);
    EXPECT_EQ(LastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    SetLastError(0);
    EXPECT_EQ(CreateActCtxW(nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    ACTCTXW wrong{};
    EXPECT_EQ(CreateActCtxW(&wrong), INVALID_HANDLE_VALUE);
}
