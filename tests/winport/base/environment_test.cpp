// Environment, command line, time, critical sections, locale.
#include "WinportSupport.h"

#include <gtest/gtest.h>
#include <shellapi.h>

#include <algorithm>
#include <thread>
#include <vector>

TEST(EnvironmentVariable, IsSetReadAndRemoved)
{
    ASSERT_TRUE(SetEnvironmentVariableW(L"WPTEST_VALUE", L"M\u00e4rz"));
    wchar_t buffer[8] = L"";
    EXPECT_EQ(GetEnvironmentVariableW(L"WPTEST_VALUE", buffer, 8), 4u);
    EXPECT_EQ(std::wstring(buffer), L"M\u00e4rz");
    ASSERT_TRUE(SetEnvironmentVariableW(L"WPTEST_VALUE", nullptr));
    SetLastError(0);
    EXPECT_EQ(GetEnvironmentVariableW(L"WPTEST_VALUE", buffer, 8), 0u);
    EXPECT_EQ(LastError(), ERROR_ENVVAR_NOT_FOUND);
}

TEST(EnvironmentVariable, ReturnsTheNeededSizeWithTheTerminator)
{
    ASSERT_TRUE(SetEnvironmentVariableW(L"WPTEST_VALUE", L"1234"));
    wchar_t buffer[8] = L"keep";
    EXPECT_EQ(GetEnvironmentVariableW(L"WPTEST_VALUE", nullptr, 0), 5u);
    EXPECT_EQ(GetEnvironmentVariableW(L"WPTEST_VALUE", buffer, 4), 5u);
    EXPECT_EQ(GetEnvironmentVariableW(L"WPTEST_VALUE", buffer, 5), 4u);
    EXPECT_EQ(std::wstring(buffer), L"1234");
    SetEnvironmentVariableW(L"WPTEST_VALUE", nullptr);
}

TEST(EnvironmentVariable, RefusesANameThatCannotBe)
{
    SetLastError(0);
    EXPECT_FALSE(SetEnvironmentVariableW(L"A=B", L"1"));
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    EXPECT_TRUE(SetEnvironmentVariableW(L"WPTEST_NEVER_SET", nullptr));
}

TEST(EnvironmentVariable, HasAFolderForLocalData)
{
    EXPECT_FALSE(Variable(L"LOCALAPPDATA").empty());
}

namespace
{
std::vector<std::wstring> Split(const wchar_t* line)
{
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(line, &count);
    std::vector<std::wstring> list(words, words + count);
    LocalFree(words);
    return list;
}

using Words = std::vector<std::wstring>;
} // namespace

TEST(CommandLineWords, SplitsAtBlanksAndTabs)
{
    EXPECT_EQ(Split(L"prog a  b\tc "), (Words{L"prog", L"a", L"b", L"c"}));
}

TEST(CommandLineWords, GroupsByQuotes)
{
    EXPECT_EQ(Split(L"\"C:\\a b\\prog\" \"x y\" z\"1 2\"z \"\""),
              (Words{L"C:\\a b\\prog", L"x y", L"z1 2z", L""}));
}

TEST(CommandLineWords, ReadsBackslashesBeforeQuotes)
{
    EXPECT_EQ(Split(L"p a\\b a\\\\b \\\"q \"a\\\\\" \"a\\\"b\" \\\\\\\"x"),
              (Words{L"p", L"a\\b", L"a\\\\b", L"\"q", L"a\\", L"a\"b", L"\\\"x"}));
}

TEST(CommandLineWords, ReadsTwoQuotesInsideQuotesAsOne)
{
    EXPECT_EQ(Split(L"p \"a\"\"b c\" d"), (Words{L"p", L"a\"b", L"c d"}));
    EXPECT_EQ(Split(L"p \"\"\"a\"\"\" b"), (Words{L"p", L"\"a\"", L"b"}));
}

TEST(CommandLineWords, LeavesBackslashesOfTheProgramAlone)
{
    EXPECT_EQ(Split(L"\"C:\\dir\\\" next"), (Words{L"C:\\dir\\", L"next"}));
    EXPECT_EQ(Split(L"C:\\dir\\p\\\"x next"), (Words{L"C:\\dir\\p\\\"x", L"next"}));
}

TEST(CommandLineWords, NamesTheProgramForAnEmptyLine)
{
    EXPECT_EQ(Split(L""), Words{ProgramPath()});
}

TEST(OwnCommandLine, StartsWithTheProgramAndHoldsItsArguments)
{
    const Words words = Split(GetCommandLineW());
    ASSERT_FALSE(words.empty());
    EXPECT_NE(words[0].find(L"winport_tests"), std::wstring::npos);
    EXPECT_EQ(GetCommandLineW(), GetCommandLineW());
}

TEST(Clock, IsLocalTime)
{
    SYSTEMTIME local{};
    GetLocalTime(&local);
    EXPECT_GE(local.wYear, 2024);
    EXPECT_TRUE(local.wMonth >= 1 && local.wMonth <= 12 && local.wDay >= 1 && local.wDay <= 31);
    EXPECT_TRUE(local.wHour < 24 && local.wMinute < 60 && local.wSecond <= 60 && local.wMilliseconds < 1000);
    EXPECT_LT(local.wDayOfWeek, 7);
}

TEST(Clock, RunsWhileAThreadSleeps)
{
    const ULONGLONG start = GetTickCount64();
    Sleep(30);
    const ULONGLONG passed = GetTickCount64() - start;
    EXPECT_GE(passed, 10u);
    EXPECT_LT(passed, 20000u);
}

TEST(Identity, IsTheThreadsAndTheProcesss)
{
    DWORD other = 0;
    const DWORD process = GetCurrentProcessId();
    std::thread([&] { other = GetCurrentThreadId(); }).join();
    EXPECT_NE(other, GetCurrentThreadId());
    EXPECT_EQ(process, GetCurrentProcessId());
    EXPECT_NE(process, 0u);
}

TEST(LastErrorCode, BelongsToTheThread)
{
    SetLastError(77);
    int other = 77;
    std::thread([&] { other = LastError(); }).join();
    EXPECT_NE(other, 77);
}

TEST(UserLocale, HasANumberAndAName)
{
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    wchar_t same[LOCALE_NAME_MAX_LENGTH] = L"";
    ASSERT_EQ(LCIDToLocaleName(LOCALE_USER_DEFAULT, name, LOCALE_NAME_MAX_LENGTH, 0), 6);
    EXPECT_EQ(std::wstring(name), L"en-US");
    EXPECT_EQ(GetUserDefaultUILanguage(), 0x0409);
    EXPECT_EQ(
        LCIDToLocaleName(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT), same, LOCALE_NAME_MAX_LENGTH, 0),
        6);
    EXPECT_EQ(std::wstring(same), name);
}

TEST(UserLocale, NamesALanguageByItsNumber)
{
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    EXPECT_EQ(LCIDToLocaleName(0x0407, name, LOCALE_NAME_MAX_LENGTH, 0), 6);
    EXPECT_EQ(std::wstring(name), L"de-DE");
    EXPECT_EQ(LCIDToLocaleName(0x0407, nullptr, 0, 0), 6);
    SetLastError(0);
    EXPECT_EQ(LCIDToLocaleName(0x0407, name, 3, 0), 0);
    EXPECT_EQ(LastError(), ERROR_INSUFFICIENT_BUFFER);
    SetLastError(0);
    EXPECT_EQ(LCIDToLocaleName(0xFFFE, name, LOCALE_NAME_MAX_LENGTH, 0), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
}
