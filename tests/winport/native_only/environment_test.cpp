// Native counterparts of Windows facilities: the folder of local data, the user's language, the registry's
// reset.
#include "WinportSupport.h"

#include <winport_test.h>

#include <gtest/gtest.h>

namespace
{
// Sets a variable for the time of a test.
class CScopedVariable
{
public:
    CScopedVariable(const wchar_t* name, const wchar_t* value) : m_name(name), m_old(Variable(name))
    {
        SetEnvironmentVariableW(name, value);
    }
    ~CScopedVariable() { SetEnvironmentVariableW(m_name, m_old.empty() ? nullptr : m_old.c_str()); }
    CScopedVariable(const CScopedVariable&) = delete;
    CScopedVariable& operator=(const CScopedVariable&) = delete;

private:
    const wchar_t* m_name;
    std::wstring m_old;
};

std::wstring LocaleFor(const wchar_t* all, const wchar_t* messages, const wchar_t* lang)
{
    const CScopedVariable first(L"LC_ALL", all);
    const CScopedVariable second(L"LC_MESSAGES", messages);
    const CScopedVariable third(L"LANG", lang);
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    LCIDToLocaleName(LOCALE_USER_DEFAULT, name, LOCALE_NAME_MAX_LENGTH, 0);
    return name;
}
} // namespace

TEST(LocalDataFolder, IsTheStateFolder)
{
    const CScopedVariable local(L"LOCALAPPDATA", nullptr);
    const CScopedVariable home(L"HOME", L"/home/someone");
    {
        const CScopedVariable state(L"XDG_STATE_HOME", L"/var/state");
        EXPECT_EQ(Variable(L"LOCALAPPDATA"), L"/var/state");
    }
    const CScopedVariable state(L"XDG_STATE_HOME", nullptr);
    EXPECT_EQ(Variable(L"LOCALAPPDATA"), L"/home/someone/.local/state");
    const CScopedVariable own(L"LOCALAPPDATA", L"/own");
    EXPECT_EQ(Variable(L"LOCALAPPDATA"), L"/own");
}

TEST(UserLocale, ComesFromTheEnvironment)
{
    EXPECT_EQ(LocaleFor(L"C", L"de_DE", L"fr_FR"), L"en-US");
    EXPECT_EQ(LocaleFor(L"POSIX", nullptr, nullptr), L"en-US");
    EXPECT_EQ(LocaleFor(L"C.UTF-8", nullptr, nullptr), L"en-US");
    EXPECT_EQ(LocaleFor(L"de_AT.UTF-8@euro", L"it_IT", nullptr), L"de-AT");
    EXPECT_EQ(LocaleFor(nullptr, L"it_IT.UTF-8", L"fr_FR"), L"it-IT");
    EXPECT_EQ(LocaleFor(nullptr, nullptr, L"de"), L"de-DE");
    EXPECT_EQ(LocaleFor(nullptr, nullptr, L"xx_YY.UTF-8"), L"xx-YY");
    EXPECT_EQ(LocaleFor(nullptr, nullptr, nullptr), L"en-US");
}

TEST(UserLocale, WithoutANumberIsNamedAsTheUsers)
{
    const CScopedVariable all(L"LC_ALL", L"xx_YY.UTF-8");
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    EXPECT_EQ(GetUserDefaultUILanguage(), 0x1000);
    EXPECT_EQ(LCIDToLocaleName(GetUserDefaultUILanguage(), name, LOCALE_NAME_MAX_LENGTH, 0), 6);
    EXPECT_EQ(std::wstring(name), L"xx-YY");
}

TEST(Registry, CanBeEmptied)
{
    HKEY key = nullptr;
    HKEY other = nullptr;
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CLASSES_ROOT, L"Some", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
        ERROR_SUCCESS);
    WinportDenyKey(HKEY_CURRENT_USER, L"Closed", true);
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, L"Closed", 0, nullptr, 0, KEY_READ, nullptr, &other, nullptr),
        ERROR_ACCESS_DENIED);
    WinportClearRegistry();
    EXPECT_EQ(RegOpenKeyExW(key, L"x", 0, KEY_READ, &other), ERROR_KEY_DELETED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, L"Some", 0, KEY_READ, &other), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, L"CLSID", 0, KEY_READ, &other), ERROR_SUCCESS);
    RegCloseKey(other);
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, L"Closed", 0, nullptr, 0, KEY_READ, nullptr, &other, nullptr),
        ERROR_SUCCESS);
    RegCloseKey(other);
}

TEST(ActivationContext, IsLeftInOrderOnly)
{
    ULONG_PTR outer = 0;
    ULONG_PTR inner = 0;
    EXPECT_TRUE(ActivateActCtx(nullptr, &outer));
    EXPECT_TRUE(ActivateActCtx(nullptr, &inner));
    SetLastError(0);
    EXPECT_FALSE(DeactivateActCtx(0, outer));
    EXPECT_EQ(LastError(), ERROR_SXS_EARLY_DEACTIVATION);
    EXPECT_TRUE(DeactivateActCtx(0, inner));
    SetLastError(0);
    EXPECT_FALSE(DeactivateActCtx(0, inner));
    EXPECT_EQ(LastError(), ERROR_SXS_INVALID_DEACTIVATION);
    EXPECT_TRUE(DeactivateActCtx(0, outer));
}
