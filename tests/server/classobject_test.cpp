#include "ModuleUnderTest.h"
#include "SevenClasses.h"

#include "qptools.h"

#include <atomic>
#include <thread>
#include <vector>

namespace
{
const CLSID kNobody = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};

class ClassObject : public testing::Test
{
protected:
    HRESULT Get(REFCLSID classId, ComPtr<IClassFactory>& result)
    {
        return module.GetClassObject(classId, __uuidof(IClassFactory), result.putVoid());
    }

    ModuleUnderTest module;
};
} // namespace

TEST_F(ClassObject, ANullResultIsRefusedFirst)
{
    EXPECT_EQ(module.GetClassObject(CLSID_XBookMark, __uuidof(IClassFactory), nullptr), E_POINTER);
    EXPECT_EQ(module.GetClassObject(kNobody, __uuidof(IClassFactory), nullptr), E_POINTER);
    EXPECT_EQ(E_POINTER, static_cast<HRESULT>(0x80004003u));
}

TEST_F(ClassObject, AnUnknownClassIsNotAvailableAndTheResultIsNulled)
{
    void* result = this;
    EXPECT_EQ(module.GetClassObject(kNobody, __uuidof(IClassFactory), &result), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(result, nullptr);
}

TEST_F(ClassObject, EachOfTheSevenHasAFactoryOfItsOwnThatIsKept)
{
    std::vector<IClassFactory*> seen;
    for (const ClassFacts& facts : kSevenClasses)
    {
        ComPtr<IClassFactory> one;
        ComPtr<IClassFactory> two;
        ASSERT_EQ(Get(facts.Class(), one), S_OK) << facts;
        ASSERT_EQ(Get(facts.Class(), two), S_OK) << facts;
        EXPECT_EQ(one.get(), two.get()) << facts;
        for (const IClassFactory* other : seen)
            EXPECT_NE(one.get(), other) << facts;
        seen.push_back(one.get());
    }
}

TEST_F(ClassObject, TheFactorysAnswerToTheInterfaceIsReturned)
{
    void* result = this;
    EXPECT_EQ(module.GetClassObject(CLSID_XBookMark, __uuidof(IXBookMark), &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(module.GetClassObject(CLSID_XBookMark, __uuidof(IUnknown), unknown.putVoid()), S_OK);
}

TEST_F(ClassObject, ConcurrentFirstRequestsYieldOneFactory)
{
    constexpr int kThreads = 4;
    IClassFactory* found[kThreads] = {};
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (IClassFactory*& one : found)
    {
        threads.emplace_back([&] {
            ++ready;
            while (ready.load() < kThreads)
                std::this_thread::yield();
            module.GetClassObject(CLSID_QPSelectDlg, __uuidof(IClassFactory), reinterpret_cast<void**>(&one));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (IClassFactory* one : found)
    {
        ASSERT_NE(one, nullptr);
        EXPECT_EQ(one, found[0]);
    }
    // Four clients and the module's own reference: with two factories the count would differ.
    EXPECT_EQ(found[0]->AddRef(), kThreads + 2u);
    for (int i = 0; i < kThreads; ++i)
        found[0]->Release();
    EXPECT_EQ(found[0]->Release(), 1u);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST_F(ClassObject, AClientsFactoryLocksTheModuleUntilItsRelease)
{
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    factory.reset();
    EXPECT_EQ(module.CanUnloadNow(), S_OK) << "the factory that the module keeps is no lock";
}

TEST_F(ClassObject, CreateInstanceRefusesANullResult)
{
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
}

TEST_F(ClassObject, CreateInstanceNullsTheResultBeforeAnythingElse)
{
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    void* result = this;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IXBookMark), &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
}

TEST_F(ClassObject, AnObjectStartsWithOneReference)
{
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    ComPtr<IQPUserActionLog> log;
    ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(IQPUserActionLog), log.putVoid()), S_OK);
    EXPECT_EQ(log->AddRef(), 2u);
    EXPECT_EQ(log->Release(), 1u);
}

TEST_F(ClassObject, LockServerKeepsTheModuleLoadedUntilUnlocked)
{
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.reset();
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE) << "one of two is left";
    ASSERT_EQ(Get(CLSID_QPUserActionLog, factory), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST_F(ClassObject, EveryLiveObjectOfEveryClassHoldsTheModule)
{
    for (const ClassFacts& facts : kSevenClasses)
    {
        ComPtr<IUnknown> object;
        ASSERT_EQ(module.Create(facts.Class(), object), S_OK) << facts;
        EXPECT_EQ(module.CanUnloadNow(), S_FALSE) << facts;
        object.reset();
        EXPECT_EQ(module.CanUnloadNow(), S_OK) << facts;
    }
}

TEST_F(ClassObject, AfterAllObjectsItCanUnloadDespiteCachedFactories)
{
    std::vector<ComPtr<IUnknown>> objects;
    for (const ClassFacts& facts : kSevenClasses)
    {
        ComPtr<IUnknown> object;
        ASSERT_EQ(module.Create(facts.Class(), object), S_OK);
        objects.push_back(object);
    }
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    objects.pop_back();
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    objects.clear();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST(ModuleLife, AModuleThatIsLoadedAgainStartsAnew)
{
    for (int turn = 0; turn < 3; ++turn)
    {
        const ModuleUnderTest module;
        ComPtr<IUnknown> object;
        ASSERT_EQ(module.Create(CLSID_XBookMark, object), S_OK);
        object.reset();
        ASSERT_EQ(module.CanUnloadNow(), S_OK);
    }
}
