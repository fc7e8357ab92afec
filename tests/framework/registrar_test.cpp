#include "Registrar.h"
#include "Resources.h"
#include "TestRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace
{
const GUID kLibrary = {0x44444444, 4, 4, {4}};

class Registration : public testing::Test
{
protected:
    Registration() { registrar.emplace(nullptr, kLibrary, report); }

    HRESULT Add(const wchar_t* text) { return registrar->UpdateScriptText(text, L"script", true); }
    void RollBack() { registrar.reset(); }

    TestRegistry registry;
    RegistrationReport report;
    std::optional<Registrar> registrar;
};

/// Texts are REG_SZ; these bytes show that values of other types are restored with type and length.
const std::vector<BYTE> kOdd = {1, 0, 255};
} // namespace

TEST_F(Registration, WritesThePathOfTheModule)
{
    ASSERT_EQ(Add(L"HKCR { A = s '%MODULE%' }"), S_OK);
    EXPECT_EQ(registry.Text(L"A"), ModulePath(nullptr));
}

TEST_F(Registration, StaysWhenItIsCommitted)
{
    ASSERT_EQ(Add(L"HKCR { A = s 'x' }"), S_OK);
    registrar->Commit();
    RollBack();
    EXPECT_EQ(registry.Text(L"A"), L"x");
}

TEST_F(Registration, WithoutCommitNewKeysAreDeleted)
{
    const auto before = registry.Dump();
    ASSERT_EQ(Add(L"HKCR { A = s 'x' { B { C } } ForceRemove D { val V = d 1 } }"), S_OK);
    ASSERT_EQ(Add(L"HKCR { E }"), S_OK);
    RollBack();
    EXPECT_EQ(registry.Dump(), before);
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(Registration, WithoutCommitKeysAreRestored)
{
    registry.Put(L"A", L"old");
    registry.Put(L"A\\Gone", L"of another install");
    registry.Put(L"A\\Gone\\Deep", L"as well");
    registry.PutValue(L"A", L"Number", REG_DWORD, {1, 2, 3, 4});
    registry.PutValue(L"A", L"Odd", REG_BINARY, kOdd);
    registry.PutValue(L"A\\Gone", L"Nothing", REG_NONE, {});
    registry.Put(L"B", L"old");
    registry.Put(L"Deleted\\Deep", L"old");
    const auto before = registry.Dump();

    ASSERT_EQ(Add(L"HKCR { ForceRemove A = s 'new' { New val Number = s 'text now' }"
                  L"       B = s 'new' { val More = d 1 Beneath } Delete Deleted }"),
              S_OK);
    EXPECT_NE(registry.Dump(), before);
    RollBack();
    EXPECT_EQ(registry.Dump(), before);
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(Registration, WithoutCommitAKeyWrittenTwiceIsRestored)
{
    registry.Put(L"A", L"old");
    ASSERT_EQ(Add(L"HKCR { A = s 'one' }"), S_OK);
    ASSERT_EQ(Add(L"HKCR { A = s 'two' }"), S_OK);
    RollBack();
    EXPECT_EQ(registry.Text(L"A"), L"old");
}

TEST_F(Registration, WithoutCommitAFailedScriptIsUndoneToo)
{
    registry.Put(L"A", L"old");
    registry.Put(L"C", L"closed");
    const auto before = registry.Dump();
    registry.Deny(L"C");
    EXPECT_EQ(Add(L"HKCR { A = s 'new' B C = s 'new' D }"), E_ACCESSDENIED);
    RollBack();
    registry.Allow(L"C");
    EXPECT_EQ(registry.Dump(), before);
    ASSERT_EQ(report.failures.size(), 1u) << "the failure itself, none from putting things back";
    EXPECT_EQ(report.failures[0].key, L"HKCR\\C");
}

TEST_F(Registration, WithoutCommitAKeyThatWasHalfDeletedIsWholeAgain)
{
    registry.Put(L"A\\1\\Deep", L"one");
    registry.Put(L"A\\2", L"closed");
    registry.Put(L"A\\3", L"three");
    const auto before = registry.Dump();
    registry.Deny(L"A\\2");
    EXPECT_EQ(Add(L"HKCR { ForceRemove A = s 'new' }"), E_ACCESSDENIED);
    RollBack();
    registry.Allow(L"A\\2");
    EXPECT_EQ(registry.Dump(), before);
}

TEST_F(Registration, WithoutCommitAKeyThatCannotBeRestoredIsReported)
{
    registry.Put(L"A", L"old");
    ASSERT_EQ(Add(L"HKCR { A = s 'new' B }"), S_OK);
    registry.Deny(L"A");
    RollBack();
    registry.Allow(L"A");
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, L"HKCR\\A (putting it back)");
    EXPECT_EQ(report.failures[0].status, E_ACCESSDENIED);
    EXPECT_EQ(registry.Text(L"A"), L"new");
    EXPECT_FALSE(registry.Has(L"B")) << "the others are restored";
}

TEST_F(Registration, AroundKeysMarkedNoRemoveNothingIsTouched)
{
    registry.Put(L"CLSID\\{Other}", L"before");
    ASSERT_EQ(Add(L"HKCR { NoRemove CLSID { ForceRemove {X} = s 'x' } }"), S_OK);
    registry.Put(L"CLSID\\{Other}", L"changed meanwhile by someone else");
    RollBack();
    EXPECT_FALSE(registry.Has(L"CLSID\\{X}"));
    EXPECT_EQ(registry.Text(L"CLSID\\{Other}"), L"changed meanwhile by someone else");
}

TEST_F(Registration, RefusesValuesThatAFailureWouldNotRestore)
{
    const std::pair<const wchar_t*, const wchar_t*> scripts[] = {
        {L"HKCR { A val V = s 'x' }", L"script, HKCR"},
        {L"HKCU { } HKCR { val '' = s 'x' }", L"script, HKCR"},
        {L"HKCR { A NoRemove B = s 'x' }", L"script, HKCR\\B"},
        {L"HKCR { NoRemove B { val V = d 1 } }", L"script, HKCR\\B"},
        {L"HKCR { NoRemove B { NoRemove C { D NoRemove E = d 1 } } }", L"script, HKCR\\B\\C\\E"},
    };
    const auto before = registry.Dump();
    for (const auto& [text, where] : scripts)
    {
        report.failures.clear();
        EXPECT_EQ(Add(text), HRESULT_FROM_WIN32(ERROR_INVALID_DATA)) << text;
        ASSERT_EQ(report.failures.size(), 1u);
        EXPECT_EQ(report.failures[0].key, where);
        EXPECT_NE(report.failures[0].reason.find(L"never removed"), std::wstring::npos);
    }
    EXPECT_EQ(registry.Dump(), before) << "nothing was written before it was refused";
}

TEST_F(Registration, RefusesAKeyNamedByThePathOfTheModule)
{
    const auto before = registry.Dump();
    for (const wchar_t* text : {L"HKCR { '%MODULE%' }", L"HKCR { A { ForceRemove 'x%MODULE%' } }"})
        EXPECT_EQ(Add(text), HRESULT_FROM_WIN32(ERROR_INVALID_DATA)) << text;
    EXPECT_EQ(report.failures.size(), 2u);
    EXPECT_EQ(registry.Dump(), before);
    EXPECT_EQ(Add(L"HKCR { A { val '%MODULE%' = s 'x' } }"), S_OK) << "a value's name may be a path";
}

TEST_F(Registration, TakesValuesOfKeysBeneathKeysMarkedNoRemove)
{
    registry.Put(L"CLSID", {});
    const auto before = registry.Dump();
    EXPECT_EQ(Add(L"HKCR { NoRemove CLSID { ForceRemove {X} = s 'x' { val V = d 1 NoRemove Y = s 'y' } } }"),
              S_OK);
    RollBack();
    EXPECT_EQ(registry.Dump(), before);
}

TEST_F(Registration, AnInvalidScriptChangesNothingAndItsLineIsReported)
{
    const auto before = registry.Dump();
    EXPECT_EQ(Add(L"HKCR\n{\n    A = s 'x'\n    B = q\n}\n"), HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    EXPECT_EQ(registry.Dump(), before);
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, L"script, line 4");
    EXPECT_EQ(report.failures[0].reason, L"'s' or 'd' expected after '='");
}

TEST_F(Registration, AMissingScriptResourceIsReportedWithItsNumber)
{
    const HRESULT status = registrar->UpdateScript(999, true);
    EXPECT_LT(status, 0);
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].status, status);
    EXPECT_NE(report.failures[0].key.find(L", script 999"), std::wstring::npos);
}

TEST_F(Registration, AModuleWithoutATypeLibraryHasNoneToRegister)
{
    EXPECT_EQ(registrar->UpdateTypeLibrary(true), S_OK);
    EXPECT_EQ(registrar->UpdateTypeLibrary(false), S_OK);
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(Registration, RemovalIsNotUndone)
{
    registry.Put(L"A", L"x");
    EXPECT_EQ(registrar->UpdateScriptText(L"HKCR { A }", L"script", false), S_OK);
    RollBack();
    EXPECT_FALSE(registry.Has(L"A"));
}
