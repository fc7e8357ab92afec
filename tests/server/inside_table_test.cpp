#include "InsideModule.h"
#include "RegistrationFixture.h"

#include "ClassFactory.h"
#include "Registrar.h"

#include "qptools.h"

#include <algorithm>
#include <set>

using qptools::g_classTable;

TEST(ClassTable, HoldsTheSevenClassesInTheirOrderAndATerminator)
{
    for (int i = 0; i < 7; ++i)
    {
        ASSERT_NE(g_classTable[i].classId, nullptr);
        EXPECT_TRUE(*g_classTable[i].classId == kSevenClasses[i].Class()) << kSevenClasses[i];
    }
    const ObjectMapEntry& end = g_classTable[7];
    EXPECT_EQ(end.classId, nullptr);
    EXPECT_EQ(end.updateRegistry, nullptr);
    EXPECT_EQ(end.createFactory, nullptr);
    EXPECT_EQ(end.createInstance, nullptr);
    EXPECT_EQ(end.factory.load(), nullptr);
    EXPECT_EQ(end.registrationCookie, 0u);
    EXPECT_EQ(end.objectDescription, nullptr);
    EXPECT_EQ(end.categoryMap, nullptr);
    EXPECT_EQ(end.classInit, nullptr);
}

TEST(ClassTable, SharesTheFactoryCreatorAndNothingThatDiffers)
{
    std::set<RegistrationFunction> registrations;
    std::set<InstanceCreator> creators;
    for (int i = 0; i < 7; ++i)
    {
        EXPECT_EQ(g_classTable[i].createFactory, &ClassFactory::Create);
        registrations.insert(g_classTable[i].updateRegistry);
        creators.insert(g_classTable[i].createInstance);
    }
    EXPECT_EQ(registrations.size(), 7u);
    EXPECT_EQ(creators.size(), 7u);
}

namespace
{
/// The table's functions with the resources of the built module.
class EachEntry : public RegistrationFixture, public testing::WithParamInterface<ClassFacts>
{
};
INSTANTIATE_TEST_SUITE_P(Classes, EachEntry, testing::ValuesIn(kSevenClasses), ClassTestName);
} // namespace

TEST_P(EachEntry, RegistersItsOwnClassAndNothingElseAndTakesItOut)
{
    const ObjectMapEntry& entry = InsideModule::Entry(GetParam().Class());
    RegistrationReport report;
    Registrar registrar(module.Handle(), LIBID_QPTOOLSLib, report);
    ASSERT_EQ(entry.updateRegistry(registrar, true), S_OK);
    std::vector<std::wstring> expected = ExpectedOf(GetParam());
    expected.insert(expected.end(), {L"", L"CLSID"});
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(registry.Dump(), expected);

    EXPECT_EQ(entry.updateRegistry(registrar, false), S_OK);
    EXPECT_EQ(registry.Dump(), (std::vector<std::wstring>{L"", L"CLSID"}));
    registrar.Commit();
    EXPECT_TRUE(report.failures.empty());
}

TEST(ClassTable, HasNoDescriptionsCategoriesOrCookiesAndAnIdleHook)
{
    for (int i = 0; i < 7; ++i)
    {
        EXPECT_EQ(g_classTable[i].objectDescription(), nullptr);
        EXPECT_EQ(g_classTable[i].categoryMap(), nullptr);
        EXPECT_EQ(g_classTable[i].registrationCookie, 0u);
        g_classTable[i].classInit(true);
        g_classTable[i].classInit(false);
    }
}

TEST_F(InsideModule, AFactoryIsNullUntilItsFirstUse)
{
    ObjectMapEntry& entry = g_classTable[6];
    EXPECT_EQ(entry.factory.load(), nullptr);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(ComModule::Get().GetClassObject(*entry.classId, __uuidof(IClassFactory), factory.putVoid()),
              S_OK);
    EXPECT_EQ(entry.factory.load(), factory.get());
    EXPECT_EQ(g_classTable[5].factory.load(), nullptr);
}

TEST_F(InsideModule, EachLiveObjectRaisesTheLockCountByOne)
{
    for (int i = 0; i < 7; ++i)
    {
        ComPtr<IUnknown> one;
        ComPtr<IUnknown> two;
        ASSERT_EQ(Make(*g_classTable[i].classId, one), S_OK);
        EXPECT_EQ(ComModule::Get().LockCount(), 1);
        ASSERT_EQ(Make(*g_classTable[i].classId, two), S_OK);
        EXPECT_EQ(ComModule::Get().LockCount(), 2);
        one.reset();
        EXPECT_EQ(ComModule::Get().LockCount(), 1);
        two.reset();
        EXPECT_EQ(ComModule::Get().LockCount(), 0);
    }
}
