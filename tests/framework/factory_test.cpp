#include "TestComponents.h"

#include "ClassFactory.h"
#include "ComPtr.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
IUnknown* g_outerSeen = nullptr;
int g_created = 0;

HRESULT Record(IUnknown* outer, REFIID iid, void** result)
{
    g_outerSeen = outer;
    ++g_created;
    return CreateComObject<TestComponent>(outer, iid, result);
}

class Factory : public testing::Test
{
protected:
    void SetUp() override
    {
        g_created = 0;
        g_outerSeen = nullptr;
        before = ComModule::Get().LockCount();
        ASSERT_EQ(ClassFactory::Create(&Record, __uuidof(IClassFactory), factory.putVoid()), S_OK);
    }
    LONG Locks() const { return ComModule::Get().LockCount() - before; }

    LONG before = 0;
    ComPtr<IClassFactory> factory; // the one reference that a module keeps
};
} // namespace

TEST_F(Factory, OnlyASecondReferenceLocksTheModule)
{
    EXPECT_EQ(Locks(), 0);
    EXPECT_EQ(factory->AddRef(), 2u);
    EXPECT_EQ(Locks(), 1);
    EXPECT_EQ(factory->AddRef(), 3u);
    EXPECT_EQ(Locks(), 1) << "one lock however many clients there are";
    EXPECT_EQ(factory->Release(), 2u);
    EXPECT_EQ(Locks(), 1);
    EXPECT_EQ(factory->Release(), 1u);
    EXPECT_EQ(Locks(), 0);
}

TEST_F(Factory, AnswersIUnknownAndIClassFactoryOnly)
{
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(unknown.queryFrom(factory.get()), S_OK);
    EXPECT_EQ(unknown.get(), factory.get());
    void* other = &other;
    EXPECT_EQ(factory->QueryInterface(__uuidof(ITestNumber), &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(factory->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
}

TEST_F(Factory, IsNotCreatedForAnInterfaceThatItLacks)
{
    void* made = &made;
    EXPECT_EQ(ClassFactory::Create(&Record, __uuidof(ITestNumber), &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(ClassFactory::Create(&Record, __uuidof(IUnknown), nullptr), E_POINTER);
}

TEST_F(Factory, CreateInstanceRefusesANullResult)
{
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
    EXPECT_EQ(g_created, 0);
}

TEST_F(Factory, CreateInstanceNullsTheResultOfAFailure)
{
    void* made = &made;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IClassFactory), &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(TestComponent::s_alive, 0);
}

TEST_F(Factory, AnOuterObjectIsForIUnknownOnly)
{
    TestOuter outer;
    void* made = &made;
    EXPECT_EQ(factory->CreateInstance(&outer, __uuidof(ITestNumber), &made), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(g_created, 0);
}

TEST_F(Factory, HandsTheOuterObjectToTheClass)
{
    TestOuter outer;
    ComPtr<IUnknown> inner;
    EXPECT_EQ(factory->CreateInstance(&outer, __uuidof(IUnknown), inner.putVoid()), S_OK);
    EXPECT_EQ(g_outerSeen, &outer);
}

TEST_F(Factory, LockServerRaisesAndLowersTheLockCount)
{
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(Locks(), 1);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(Locks(), 2);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(Locks(), 0);
}

TEST_F(Factory, LockServerCountsAnyTrueValueAsOneLock)
{
    factory->LockServer(17);
    EXPECT_EQ(Locks(), 1);
    factory->LockServer(FALSE);
}

#ifdef NDEBUG
TEST_F(Factory, TheLockCountIsSignedAndNotClampedAtZero)
{
    ASSERT_EQ(ComModule::Get().LockCount(), 0);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(ComModule::Get().LockCount(), -1);
    factory->LockServer(TRUE);
    EXPECT_EQ(ComModule::Get().LockCount(), 0) << "one too many is found again, not forgotten";
}
#else
TEST_F(Factory, ALockCountBelowZeroIsAssertedInADebugBuild)
{
    ASSERT_EQ(ComModule::Get().LockCount(), 0);
    EXPECT_DEATH(factory->LockServer(FALSE), "left >= 0");
}
#endif

TEST_F(Factory, KeepsItsCountWhenManyThreadsTakeAndGiveReferences)
{
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back([this] {
            for (int turn = 0; turn < 20000; ++turn)
            {
                factory->AddRef();
                factory->Release();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(Locks(), 0);
    EXPECT_EQ(factory->AddRef(), 2u);
    EXPECT_EQ(factory->Release(), 1u);
}
