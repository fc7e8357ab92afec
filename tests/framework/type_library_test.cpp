// What a registration does with the resources of its module: type library and scripts.
#include "Registrar.h"
#include "Resources.h"
#include "TestLibrary.h"
#include "TestRegistry.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{
const std::wstring kKey = L"TypeLib\\{3B1E7C52-6C0D-4E7B-9A7E-51D0F4A2C801}";
const std::wstring kVersion = kKey + L"\\1.0";
const std::wstring kPlatform = kVersion + L"\\0\\win64";

class ModuleRegistration : public testing::Test
{
protected:
    ModuleRegistration() { registrar.emplace(library.Module(), TestLibrary::kId, report); }

    void Register()
    {
        ASSERT_EQ(registrar->UpdateTypeLibrary(true), S_OK);
        registrar->Commit();
    }
    void RollBack() { registrar.reset(); }

    /// The one failure, which is that of the library.
    void ExpectReported(HRESULT status)
    {
        EXPECT_LT(status, 0);
        ASSERT_EQ(report.failures.size(), 1u);
        EXPECT_EQ(report.failures[0].key, L"HKCR\\" + kKey);
        EXPECT_EQ(report.failures[0].status, status);
    }

    const TestLibrary library;
    TestRegistry registry;
    RegistrationReport report;
    std::optional<Registrar> registrar;
};
} // namespace

TEST_F(ModuleRegistration, RegistersTheLibraryWithThePathOfTheModule)
{
    Register();
    RollBack();
    EXPECT_EQ(registry.Text(kPlatform), ModulePath(library.Module()));
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(ModuleRegistration, WithoutCommitTheLibraryIsNotRegistered)
{
    ASSERT_EQ(registrar->UpdateTypeLibrary(true), S_OK);
    EXPECT_TRUE(registry.Has(kPlatform));
    RollBack();
    EXPECT_FALSE(registry.Has(kKey));
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(ModuleRegistration, WithoutCommitAnOlderLibraryIsRestored)
{
    registry.Put(kPlatform, L"C:\\another\\module.dll");
    registry.Put(kKey + L"\\0.9", L"an old version");
    const auto before = registry.Dump();
    ASSERT_EQ(registrar->UpdateTypeLibrary(true), S_OK);
    EXPECT_NE(registry.Dump(), before);
    RollBack();
    EXPECT_EQ(registry.Dump(), before);
}

TEST_F(ModuleRegistration, RemovesTheRegistrationOfTheLibrary)
{
    Register();
    EXPECT_EQ(registrar->UpdateTypeLibrary(false), S_OK);
    EXPECT_FALSE(registry.Has(kVersion));
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(ModuleRegistration, RemovingALibraryThatIsNotRegisteredIsNoFailure)
{
    registry.Put(kKey + L"\\0.9", L"another version");
    EXPECT_EQ(registrar->UpdateTypeLibrary(false), S_OK);
    EXPECT_TRUE(registry.Has(kKey + L"\\0.9"));
    EXPECT_TRUE(report.failures.empty());
}

TEST_F(ModuleRegistration, ReportsALibraryThatCannotBeRegistered)
{
    registry.Put(kVersion, L"closed");
    const auto before = registry.Dump();
    registry.Deny(kVersion);
    ExpectReported(registrar->UpdateTypeLibrary(true));
    RollBack();
    registry.Allow(kVersion);
    EXPECT_EQ(registry.Dump(), before);
}

TEST_F(ModuleRegistration, ReportsALibraryThatCannotBeRemoved)
{
    Register();
    registry.Deny(kPlatform);
    ExpectReported(registrar->UpdateTypeLibrary(false));
    EXPECT_TRUE(registry.Has(kPlatform));
}

TEST_F(ModuleRegistration, RefusesAScriptThatIsNotUtf8)
{
    EXPECT_EQ(registrar->UpdateScript(8, true), HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, ModulePath(library.Module()) + L", script 8");
    EXPECT_EQ(report.failures[0].reason, L"the script is not UTF-8");
}

TEST_F(ModuleRegistration, ReadsTheScriptInTheResource)
{
    EXPECT_EQ(registrar->UpdateScript(7, true), HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    ASSERT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(report.failures[0].key, ModulePath(library.Module()) + L", script 7, line 1");
    EXPECT_EQ(report.failures[0].reason, L"unknown root key 'seven'");
}
