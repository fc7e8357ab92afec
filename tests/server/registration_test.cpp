#include "RegistrationFixture.h"

#include "Resources.h"

#include <algorithm>
#include <iterator>

namespace
{
class Registration : public RegistrationFixture
{
protected:
    std::vector<std::wstring> ExpectedOfAll() const
    {
        std::vector<std::wstring> lines = {L"", L"CLSID"};
        for (const ClassFacts& facts : kSevenClasses)
        {
            const auto more = ExpectedOf(facts);
            lines.insert(lines.end(), more.begin(), more.end());
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// The registry of a machine that has an earlier version of the module and other programs.
    void PutOtherInstall()
    {
        registry.Put(L"CLSID\\{00000000-0000-0000-0000-000000000001}", L"someone else's");
        for (const ClassFacts& facts : kSevenClasses)
        {
            registry.Put(ClassKey(facts), L"earlier");
            registry.Put(ClassKey(facts) + L"\\InprocServer32", L"C:\\earlier\\qptools.dll");
            registry.PutValue(ClassKey(facts) + L"\\InprocServer32", L"Loads", REG_DWORD, {9, 0, 0, 0});
            registry.Put(ClassKey(facts) + L"\\Earlier\\Deep", L"x");
            registry.Put(facts.ProgId(), L"earlier");
            registry.PutValue(facts.ProgId(), L"Blob", REG_BINARY, {1, 0, 2});
        }
    }
};

TEST_F(Registration, WritesExactlyTheKeysAndValuesOfTheSevenClasses)
{
    EXPECT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(Classes(), ExpectedOfAll());
    EXPECT_EQ(logs.Book(), "");
}

TEST_F(Registration, GivesEveryClassItsNameAsDefaultValue)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(registry.Text(L"Qptools.XBookMark"), L"XBookMark Class");
    for (const ClassFacts& facts : kSevenClasses)
        EXPECT_EQ(registry.Text(ClassKey(facts)), std::wstring(facts.name) + L" Class");
}

TEST_F(Registration, GivesAThreadingModelToAggregatableClassesOnly)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    for (const ClassFacts& facts : kSevenClasses)
    {
        EXPECT_EQ(facts.apartment, facts.aggregatable);
        EXPECT_EQ(registry.Text(ClassKey(facts) + L"\\InprocServer32", L"ThreadingModel"),
                  facts.apartment ? L"Apartment" : L"(none)");
    }
}

TEST_F(Registration, KeepsTheMixedSpellingOfTheCopyDialogsProgIds)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    const auto lines = registry.Dump();
    const auto has = [&](const wchar_t* line) {
        return std::count(lines.begin(), lines.end(), line) == 1;
    };
    EXPECT_TRUE(has(L"Qptools.QPCopyOptDlg"));
    EXPECT_TRUE(has(L"Qptools.QPCopyOptDlg.1"));
    EXPECT_TRUE(has(L"Qptools.QPCopyOptDlg\\CurVer [] 1:QPTools.QPCopyOptDlg.1"));
    EXPECT_TRUE(has(L"CLSID\\{9F79747B-EC88-48ad-9865-1C079A8C9221}\\ProgID [] 1:QPTools.QPCopyOptDlg.1"));
    EXPECT_TRUE(has(L"CLSID\\{9F79747B-EC88-48ad-9865-1C079A8C9221}\\VersionIndependentProgID [] "
                    L"1:QPTools.QPCopyOptDlg"));
    EXPECT_EQ(registry.Text(L"QPTools.QPCopyOptDlg\\CLSID"), registry.Text(L"Qptools.QPCopyOptDlg\\CLSID"));
}

TEST_F(Registration, PutsTheTypeLibraryAsAValueAndTheProgIdsAsKeys)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    for (const ClassFacts& facts : kSevenClasses)
    {
        EXPECT_EQ(registry.Text(ClassKey(facts), L"TypeLib"), kLibraryId);
        EXPECT_FALSE(registry.Has(ClassKey(facts) + L"\\TypeLib"));
        EXPECT_TRUE(registry.Has(ClassKey(facts) + L"\\ProgID"));
    }
}

TEST_F(Registration, ReplacesWhatAnEarlierInstallLeftInTheClassKeys)
{
    PutOtherInstall();
    ASSERT_EQ(module.RegisterServer(), S_OK);
    for (const ClassFacts& facts : kSevenClasses)
    {
        EXPECT_FALSE(registry.Has(ClassKey(facts) + L"\\Earlier")) << facts;
        EXPECT_EQ(registry.Text(ClassKey(facts) + L"\\InprocServer32"), ModulePath(module.Handle()));
    }
    EXPECT_EQ(registry.Text(L"CLSID\\{00000000-0000-0000-0000-000000000001}"), L"someone else's");
}

TEST_F(Registration, TwiceIsTheSameAsOnce)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    const auto once = registry.Dump();
    EXPECT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(registry.Dump(), once);
}

TEST_F(Registration, UnregisteringLeavesNothingButTheListOfClasses)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    const std::vector<std::wstring> left = {L"", L"CLSID"};
    EXPECT_EQ(Classes(), left);
    EXPECT_FALSE(registry.Has(TypeLibraryKey() + L"\\1.0"));
    EXPECT_EQ(logs.Book(), "");
}

TEST_F(Registration, UnregisteringWithoutARegistrationSucceeds)
{
    const auto before = registry.Dump();
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    EXPECT_EQ(registry.Dump(), before);
    EXPECT_EQ(logs.Book(), "");
}

TEST_F(Registration, UnregisteringContinuesAfterAFailureAndNamesTheKey)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    registry.Deny(ClassKey(kSevenClasses[2]));
    EXPECT_EQ(module.UnregisterServer(), E_ACCESSDENIED);
    for (const ClassFacts& facts : kSevenClasses)
    {
        EXPECT_EQ(registry.Has(ClassKey(facts)), facts.name == kSevenClasses[2].name) << facts;
        EXPECT_FALSE(registry.Has(facts.ProgId())) << facts;
    }
    EXPECT_NE(logs.Book().find("DllUnregisterServer"), std::string::npos);
    EXPECT_NE(logs.Book().find("{445B9A00-C2E4-49AE-A61F-D901593BF9B4}: access denied: run as administrator"),
              std::string::npos);
}

TEST_F(Registration, AFailureReturnsTheSystemsCodeAndReportsTheKey)
{
    registry.Put(ClassKey(kSevenClasses[4]), L"closed");
    registry.Deny(ClassKey(kSevenClasses[4]));
    EXPECT_EQ(module.RegisterServer(), static_cast<HRESULT>(0x80070005u));
    const std::string book = logs.Book();
    EXPECT_EQ(std::count(book.begin(), book.end(), '\n'), 1) << book;
    for (const char* part : {"error", "QPTools", "DllRegisterServer", "80070005", "HKCR", "CLSID",
                             "{777C4939-912A-4F56-BFA1-3EACD0BDD16C}: access denied: run as administrator"})
        EXPECT_NE(book.find(part), std::string::npos) << part << " in " << book;
}

TEST_F(Registration, IsRemovedInTheOrderOfTheClasses)
{
    for (const ClassFacts& facts : kSevenClasses)
        Close(facts);
    EXPECT_EQ(module.UnregisterServer(), E_ACCESSDENIED);
    std::size_t last = 0;
    for (const ClassFacts& facts : kSevenClasses)
    {
        const std::size_t place = logs.Book().find(LoggedKey(facts));
        ASSERT_NE(place, std::string::npos) << facts;
        EXPECT_GT(place, last) << facts;
        last = place;
    }
}

/// For every class: its key is the one that cannot be written.
class FailedRegistration : public Registration, public testing::WithParamInterface<ClassFacts>
{
};
INSTANTIATE_TEST_SUITE_P(Classes, FailedRegistration, testing::ValuesIn(kSevenClasses), ClassTestName);

TEST_P(FailedRegistration, EndsAtTheFirstClassInOrderThatCannotBeWritten)
{
    const ClassFacts* closed = kSevenClasses;
    while (closed->script != GetParam().script)
        ++closed;
    for (; closed != std::end(kSevenClasses); ++closed)
        Close(*closed);
    EXPECT_EQ(module.RegisterServer(), E_ACCESSDENIED);
    const std::string book = logs.Book();
    EXPECT_EQ(std::count(book.begin(), book.end(), '\n'), 1) << book;
    EXPECT_NE(book.find(LoggedKey(GetParam())), std::string::npos) << book;
}

TEST_P(FailedRegistration, LeavesAFreshMachineAsItWas)
{
    registry.Put(ClassKey(GetParam()), L"closed");
    const auto before = registry.Dump();
    registry.Deny(ClassKey(GetParam()));
    EXPECT_EQ(module.RegisterServer(), E_ACCESSDENIED);
    registry.Allow(ClassKey(GetParam()));
    EXPECT_EQ(registry.Dump(), before);
}

TEST_P(FailedRegistration, RestoresAnEarlierRegistration)
{
    PutOtherInstall();
    const auto before = registry.Dump();
    registry.Deny(ClassKey(GetParam()) + L"\\InprocServer32");
    EXPECT_EQ(module.RegisterServer(), E_ACCESSDENIED);
    registry.Allow(ClassKey(GetParam()) + L"\\InprocServer32");
    EXPECT_EQ(registry.Dump(), before);
}

TEST_P(FailedRegistration, OfAProgIdPutsEverythingBackToo)
{
    PutOtherInstall();
    const auto before = registry.Dump();
    registry.Deny(GetParam().ProgId());
    EXPECT_EQ(module.RegisterServer(), E_ACCESSDENIED);
    registry.Allow(GetParam().ProgId());
    EXPECT_EQ(registry.Dump(), before);
}
} // namespace
