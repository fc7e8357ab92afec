#include "TestComponents.h"

#include "ClassFactory.h"
#include "ComPtr.h"
#include "RegistrationReport.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
const CLSID kFirst = {0x11111111, 1, 1, {1}};
const CLSID kSecond = {0x22222222, 2, 2, {2}};
const CLSID kUnknownClass = {0x33333333, 3, 3, {3}};
const GUID kLibrary = {0x44444444, 4, 4, {4}};

std::atomic<int> g_factories{0};
int g_starts = 0;
int g_ends = 0;

HRESULT CountFactory(InstanceCreator create, REFIID iid, void** result)
{
    ++g_factories;
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // gives a second thread its chance
    return ClassFactory::Create(create, iid, result);
}

HRESULT NoFactory(InstanceCreator, REFIID, void**)
{
    ++g_factories;
    return E_OUTOFMEMORY;
}

std::string g_registered; ///< a letter for each class registered, a small one for each class unregistered
char g_failing = 0;

template <char Letter>
HRESULT Register(Registrar&, bool add)
{
    g_registered += add ? Letter : static_cast<char>(Letter - 'A' + 'a');
    return Letter == g_failing ? E_ACCESSDENIED : S_OK;
}

void CountInit(bool starting)
{
    ++(starting ? g_starts : g_ends);
}

LPCWSTR NoDescription()
{
    return nullptr;
}

const CategoryEntry* NoCategories()
{
    return nullptr;
}

class Module : public testing::Test
{
protected:
    void SetUp() override
    {
        g_factories = g_starts = g_ends = 0;
        g_registered.clear();
        g_failing = 0;
        ASSERT_EQ(ComModule::Get().Init(map, GetModuleHandleW(nullptr), &kLibrary), S_OK);
    }
    void TearDown() override { ComModule::Get().Term(); }

    template <class T>
    HRESULT Get(REFCLSID classId, ComPtr<T>& result)
    {
        return ComModule::Get().GetClassObject(classId, __uuidof(T), result.putVoid());
    }

    ObjectMapEntry map[4] = {{&kFirst, &Register<'A'>, &CountFactory, &CreateComObject<TestComponent>,
                              nullptr, 0, &NoDescription, &NoCategories, &CountInit},
                             {&kSecond, &Register<'B'>, &NoFactory, &CreateComObject<TestComponent>, nullptr,
                              0, &NoDescription, &NoCategories, &CountInit},
                             {},
                             {&kUnknownClass, &Register<'X'>, &CountFactory, &CreateComObject<TestComponent>,
                              nullptr, 0, &NoDescription, &NoCategories, &CountInit}};
};
} // namespace

TEST_F(Module, InitRefusesAMissingTableInstanceOrLibrary)
{
    ComModule module;
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    EXPECT_EQ(module.Init(nullptr, instance, &kLibrary), E_INVALIDARG);
    EXPECT_EQ(module.Init(map, nullptr, &kLibrary), E_INVALIDARG);
    EXPECT_EQ(module.Init(map, instance, nullptr), E_INVALIDARG);
    EXPECT_EQ(module.Instance(), nullptr);
    EXPECT_EQ(module.LibraryId(), nullptr);
}

TEST_F(Module, InitStoresItsArgumentsAndRunsEachClassHookOnce)
{
    EXPECT_EQ(ComModule::Get().Instance(), GetModuleHandleW(nullptr));
    EXPECT_EQ(ComModule::Get().LibraryId(), &kLibrary);
    EXPECT_EQ(g_starts, 2);
    EXPECT_EQ(ComModule::Get().Init(map, GetModuleHandleW(nullptr), &kLibrary), E_UNEXPECTED);
    EXPECT_EQ(g_starts, 2);
}

TEST_F(Module, TermReleasesTheFactoriesAndResetsTheTable)
{
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(kFirst, factory), S_OK);
    ComModule::Get().Term();
    EXPECT_EQ(g_ends, 2);
    EXPECT_EQ(map[0].factory.load(), nullptr);
    factory->AddRef();
    EXPECT_EQ(factory->Release(), 1u) << "what is left is the client's own reference";
    EXPECT_EQ(Get(kFirst, factory), CLASS_E_CLASSNOTAVAILABLE);
    ComModule::Get().Term();
    EXPECT_EQ(g_ends, 2);
}

TEST_F(Module, ANullResultIsRefusedWhateverTheClass)
{
    EXPECT_EQ(ComModule::Get().GetClassObject(kFirst, __uuidof(IClassFactory), nullptr), E_POINTER);
    EXPECT_EQ(ComModule::Get().GetClassObject(kUnknownClass, __uuidof(IClassFactory), nullptr), E_POINTER);
    EXPECT_EQ(g_factories, 0);
}

TEST_F(Module, TheWalkStopsAtTheTerminator)
{
    void* result = &result;
    EXPECT_EQ(ComModule::Get().GetClassObject(kUnknownClass, __uuidof(IClassFactory), &result),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(g_factories, 0) << "the entry behind the terminator is not reached";
}

TEST_F(Module, AFactoryIsMadeAtTheFirstRequestAndKept)
{
    EXPECT_EQ(map[0].factory.load(), nullptr);
    ComPtr<IClassFactory> one;
    ComPtr<IClassFactory> two;
    ASSERT_EQ(Get(kFirst, one), S_OK);
    EXPECT_EQ(map[0].factory.load(), one.get());
    ASSERT_EQ(Get(kFirst, two), S_OK);
    EXPECT_EQ(one.get(), two.get());
    EXPECT_EQ(g_factories, 1);
}

TEST_F(Module, OnlyAClientsReferenceToAFactoryLocksTheModule)
{
    const LONG before = ComModule::Get().LockCount();
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(kFirst, factory), S_OK);
    EXPECT_EQ(ComModule::Get().LockCount(), before + 1);
    factory.reset();
    EXPECT_EQ(ComModule::Get().LockCount(), before);
    EXPECT_NE(map[0].factory.load(), nullptr);
}

TEST_F(Module, TheFactorysAnswerToTheInterfaceIsReturned)
{
    void* result = &result;
    EXPECT_EQ(ComModule::Get().GetClassObject(kFirst, __uuidof(ITestNumber), &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(Get(kFirst, unknown), S_OK);
}

TEST_F(Module, AFactoryThatCannotBeMadeIsNotKeptAndIsTriedAgain)
{
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(Get(kSecond, factory), E_OUTOFMEMORY);
    EXPECT_EQ(factory.get(), nullptr);
    EXPECT_EQ(Get(kSecond, factory), E_OUTOFMEMORY);
    EXPECT_EQ(g_factories, 2);
    EXPECT_EQ(map[1].factory.load(), nullptr);
}

TEST_F(Module, TwoFirstRequestsAtOnceYieldOneFactory)
{
    ComPtr<IClassFactory> found[2];
    {
        std::atomic<int> ready{0};
        std::vector<std::thread> threads;
        for (ComPtr<IClassFactory>& one : found)
        {
            threads.emplace_back([&] {
                ++ready;
                while (ready.load() < 2)
                    std::this_thread::yield();
                Get(kFirst, one);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
    ASSERT_NE(found[0].get(), nullptr);
    EXPECT_EQ(found[0].get(), found[1].get());
    EXPECT_EQ(g_factories, 1);
}

TEST_F(Module, RegistrationBeforeInitIsRefused)
{
    ComModule module;
    RegistrationReport report;
    EXPECT_EQ(module.RegisterServer(true, nullptr, report), E_UNEXPECTED);
    EXPECT_EQ(report.failures.size(), 1u);
    EXPECT_EQ(module.UnregisterServer(true, nullptr, report), E_UNEXPECTED);
    ASSERT_EQ(report.failures.size(), 2u);
    for (const RegistrationFailure& failure : report.failures)
    {
        EXPECT_EQ(failure.key, L"module");
        EXPECT_EQ(failure.reason, L"it has not been started and knows no classes");
        EXPECT_EQ(failure.status, E_UNEXPECTED);
    }
}

TEST_F(Module, RegistersClassesInTheTablesOrderUpToTheTerminator)
{
    RegistrationReport report;
    EXPECT_EQ(ComModule::Get().RegisterServer(true, nullptr, report), S_OK);
    EXPECT_EQ(ComModule::Get().UnregisterServer(true, nullptr, report), S_OK);
    EXPECT_EQ(g_registered, "ABab");
}

TEST_F(Module, RegistersOneClassIfOneIsNamed)
{
    RegistrationReport report;
    EXPECT_EQ(ComModule::Get().RegisterServer(false, &kSecond, report), S_OK);
    EXPECT_EQ(ComModule::Get().UnregisterServer(false, &kSecond, report), S_OK);
    EXPECT_EQ(g_registered, "Bb");
}

TEST_F(Module, AFailedRegistrationEndsThere)
{
    g_failing = 'A';
    RegistrationReport report;
    EXPECT_EQ(ComModule::Get().RegisterServer(true, nullptr, report), E_ACCESSDENIED);
    EXPECT_EQ(g_registered, "A");
}

TEST_F(Module, AFailedRemovalDoesNotStopTheOthers)
{
    g_failing = 'A';
    RegistrationReport report;
    EXPECT_EQ(ComModule::Get().UnregisterServer(true, nullptr, report), E_ACCESSDENIED);
    EXPECT_EQ(g_registered, "ab");
}
