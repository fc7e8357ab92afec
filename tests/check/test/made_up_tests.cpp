// Tests that do what the name of the program's file says: "failing_tests.exe" fails one test, "crashing..."
// crashes in one, "hanging..." never ends one, "leaving..." ends with an exit code of its own.
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <string>

namespace
{
bool IsCalled(const std::wstring& word)
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring whole = path;
    return whole.find(word, whole.find_last_of(L'\\')) != std::wstring::npos;
}

/// A copy of this program that never ends and keeps the log open.
void StartAnother()
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(path) + L"\" --gtest_filter=A.Hangs --gtest_repeat=2";
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
}

TEST(A, Passes)
{
    if (IsCalled(L"leaving"))
        std::atexit([] { ExitProcess(7); });
}

TEST(A, Fails)
{
    EXPECT_FALSE(IsCalled(L"failing")) << "by its name";
}

TEST(A, Crashes)
{
    if (IsCalled(L"crashing"))
        *static_cast<volatile int*>(nullptr) = 1;
}

TEST(A, Hangs)
{
    if (!IsCalled(L"hanging"))
        return;
    if (::testing::GTEST_FLAG(repeat) == 1)
        StartAnother();
    Sleep(INFINITE);
}

TEST(A, PassesAfterTheOthers) {}
} // namespace
