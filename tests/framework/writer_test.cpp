#include "RegistryWriter.h"
#include "TestRegistry.h"

#include <gtest/gtest.h>

namespace
{
class Writer : public testing::Test
{
protected:
    HRESULT Apply(std::wstring_view text) { return Run(text, true); }
    HRESULT Remove(std::wstring_view text) { return Run(text, false); }

    HRESULT Run(std::wstring_view text, bool add)
    {
        RegistryScriptError error;
        const auto script = ParseRegistryScript(text, error);
        EXPECT_TRUE(script);
        RegistryWriter writer(modulePath, report);
        return add ? writer.Apply(*script) : writer.Remove(*script);
    }

    TestRegistry registry;
    RegistrationReport report;
    std::wstring modulePath = L"C:\\it's here\\module.dll";
};
} // namespace

TEST_F(Writer, MakesKeysDefaultValuesAndNamedValues)
{
    EXPECT_EQ(Apply(L"HKCR { A = s 'default' { B { val T = s 'text' val N = d 7 } } }"), S_OK);
    const std::vector<std::wstring> expected = {L"A", L"A [] 1:default", L"A\\B", L"A\\B [N] 4:7,0,0,0,",
                                                L"A\\B [T] 1:text"};
    EXPECT_EQ(registry.Dump(L"A"), expected);
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(Writer, ReplacesTheModuleAndNothingElse)
{
    EXPECT_EQ(Apply(L"HKCR { A = s '%MODULE%' { val V = s '<%MODULE%|%MODULE%>' val W = s '%OTHER% 50% "
                    L"%module%' } }"),
              S_OK);
    EXPECT_EQ(registry.Text(L"A"), modulePath);
    EXPECT_EQ(registry.Text(L"A", L"V"), L"<" + modulePath + L"|" + modulePath + L">");
    EXPECT_EQ(registry.Text(L"A", L"W"), L"%OTHER% 50% %module%");
}

TEST_F(Writer, DoesNotReplaceInsideAReplacement)
{
    modulePath = L"C:\\%MODULE%\\a.dll";
    EXPECT_EQ(Apply(L"HKCR { A = s '%MODULE%' }"), S_OK);
    EXPECT_EQ(registry.Text(L"A"), modulePath);
}

TEST_F(Writer, APlainKeyKeepsWhatItHeld)
{
    registry.Put(L"A\\Old", L"kept");
    EXPECT_EQ(Apply(L"HKCR { A = s 'new' { B } }"), S_OK);
    EXPECT_EQ(registry.Text(L"A\\Old"), L"kept");
    EXPECT_EQ(registry.Text(L"A"), L"new");
    EXPECT_TRUE(registry.Has(L"A\\B"));
}

TEST_F(Writer, AForcedKeyLosesWhatItHeld)
{
    registry.Put(L"A\\Old\\Deep", L"gone");
    EXPECT_EQ(Apply(L"HKCR { ForceRemove A = s 'new' { B } }"), S_OK);
    EXPECT_FALSE(registry.Has(L"A\\Old"));
    EXPECT_TRUE(registry.Has(L"A\\B"));
}

TEST_F(Writer, ADeletedKeyIsRemovedWhenTheScriptIsApplied)
{
    registry.Put(L"Old\\Deep", L"x");
    EXPECT_EQ(Apply(L"HKCR { Delete Old Delete NeverThere }"), S_OK);
    EXPECT_FALSE(registry.Has(L"Old"));
    registry.Put(L"Old", L"x");
    EXPECT_EQ(Remove(L"HKCR { Delete Old }"), S_OK);
    EXPECT_TRUE(registry.Has(L"Old")) << "nothing to undo";
}

TEST_F(Writer, RemovalTakesForcedKeysWithEverythingBeneathThem)
{
    const wchar_t* script = L"HKCR { NoRemove CLSID { ForceRemove {X} = s 'x' { A } } }";
    ASSERT_EQ(Apply(script), S_OK);
    registry.Put(L"CLSID\\{X}\\Added later\\Deep", L"x");
    registry.Put(L"CLSID\\{Y}", L"another");
    EXPECT_EQ(Remove(script), S_OK);
    EXPECT_FALSE(registry.Has(L"CLSID\\{X}"));
    EXPECT_EQ(registry.Text(L"CLSID\\{Y}"), L"another");
}

TEST_F(Writer, RemovalLeavesAKeyMarkedNoRemoveEvenIfItIsEmpty)
{
    const wchar_t* script = L"HKCR { NoRemove CLSID { ForceRemove {X} } }";
    ASSERT_EQ(Apply(script), S_OK);
    EXPECT_EQ(Remove(script), S_OK);
    EXPECT_TRUE(registry.Has(L"CLSID"));
}

TEST_F(Writer, RemovalTakesAPlainKeyOnceNothingIsLeftBeneathIt)
{
    const wchar_t* script = L"HKCR { A = s 'x' { B { C } } }";
    ASSERT_EQ(Apply(script), S_OK);
    EXPECT_EQ(Remove(script), S_OK);
    EXPECT_FALSE(registry.Has(L"A"));

    ASSERT_EQ(Apply(script), S_OK);
    registry.Put(L"A\\Someone else's", L"kept");
    EXPECT_EQ(Remove(script), S_OK);
    EXPECT_TRUE(registry.Has(L"A\\Someone else's"));
    EXPECT_FALSE(registry.Has(L"A\\B"));
}

TEST_F(Writer, RemovalTakesNamedValuesOfKeysThatStay)
{
    const wchar_t* script = L"HKCR { NoRemove A { val V = s 'x' } }";
    ASSERT_EQ(Apply(script), S_OK);
    EXPECT_EQ(Remove(script), S_OK);
    EXPECT_EQ(registry.Text(L"A", L"V"), L"(none)");
    EXPECT_TRUE(registry.Has(L"A"));
}

TEST_F(Writer, RemovalOfMissingKeysIsNoFailure)
{
    EXPECT_EQ(Remove(L"HKCR { A = s 'x' { B } NoRemove C { ForceRemove D { E } val V = s 'x' } }"), S_OK);
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(Writer, ApplyingTwiceGivesTheSameAsOnce)
{
    const wchar_t* script =
        L"HKCR { A = s 'x' { val V = s 'y' } NoRemove C { ForceRemove D = s 'z' { E } } }";
    ASSERT_EQ(Apply(script), S_OK);
    const auto once = registry.Dump();
    EXPECT_EQ(Apply(script), S_OK);
    EXPECT_EQ(registry.Dump(), once);
}

TEST_F(Writer, TheFirstFailureStopsItAndIsReported)
{
    registry.Put(L"B", L"closed");
    registry.Deny(L"B");
    EXPECT_EQ(Apply(L"HKCR { A B = s 'x' C }"), E_ACCESSDENIED);
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, L"HKCR\\B");
    EXPECT_EQ(report.failures[0].reason, L"access denied: run as administrator");
    EXPECT_EQ(report.failures[0].status, E_ACCESSDENIED);
    EXPECT_TRUE(registry.Has(L"A"));
    EXPECT_FALSE(registry.Has(L"C"));
}

TEST_F(Writer, ReportsTheSubKeyThatAForcedKeyCannotDelete)
{
    registry.Put(L"A\\B\\C", L"closed");
    registry.Deny(L"A\\B\\C");
    EXPECT_EQ(Apply(L"HKCR { ForceRemove A }"), E_ACCESSDENIED);
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, L"HKCR\\A\\B\\C");
}

TEST_F(Writer, RemovalContinuesAfterAFailureAndReturnsTheFirst)
{
    ASSERT_EQ(Apply(L"HKCR { A B C }"), S_OK);
    registry.Deny(L"B");
    EXPECT_EQ(Remove(L"HKCR { A B C }"), E_ACCESSDENIED);
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, L"HKCR\\B");
    EXPECT_FALSE(registry.Has(L"A"));
    EXPECT_FALSE(registry.Has(L"C"));
}

TEST_F(Writer, RemovalContinuesAfterAFailureBeneathAKey)
{
    ASSERT_EQ(Apply(L"HKCR { NoRemove P { A B } C }"), S_OK);
    registry.Deny(L"P\\A");
    EXPECT_EQ(Remove(L"HKCR { NoRemove P { A B } C }"), E_ACCESSDENIED);
    EXPECT_FALSE(registry.Has(L"P\\B"));
    EXPECT_FALSE(registry.Has(L"C"));
}

TEST_F(Writer, BacksUpWhatItCreatesOrDeletesAndNoValueOfAKeyThatStays)
{
    RegistryScriptError error;
    const auto script = ParseRegistryScript(
        L"HKCR { NoRemove P { val V = s 'x' A { Deep } ForceRemove B } Delete C }", error);
    ASSERT_TRUE(script);
    EXPECT_EQ(RegistryWriter(modulePath, report).BackUp(*script).size(), 3u);
}

TEST(RegistrationReport, SaysWhatToDoIfAccessIsDeniedElseTheStatus)
{
    RegistrationReport report;
    EXPECT_EQ(report.AddSystemError(L"A", ERROR_ACCESS_DENIED), E_ACCESSDENIED);
    EXPECT_EQ(report.AddSystemError(L"B", ERROR_FILE_NOT_FOUND), static_cast<HRESULT>(0x80070002u));
    EXPECT_EQ(report.Add(L"C", L"why", E_ABORT), E_ABORT);
    ASSERT_EQ(report.failures.size(), 3u);
    EXPECT_EQ(report.failures[0].reason, L"access denied: run as administrator");
    EXPECT_EQ(report.failures[1].reason, L"failed with 0x80070002");
    EXPECT_EQ(report.failures[2].reason, L"why");
}
