#include "TestComponents.h"

#include "ComPtr.h"

#include <oaidl.h>

#include <gtest/gtest.h>

namespace
{
ULONG CountOf(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}
} // namespace

TEST(ComObject, IsCreatedWithOneReferenceAndEndsWithTheLastRelease)
{
    void* made = nullptr;
    ASSERT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), &made), S_OK);
    auto* number = static_cast<ITestNumber*>(made);
    EXPECT_EQ(CountOf(number), 1u);
    EXPECT_EQ(number->AddRef(), 2u);
    EXPECT_EQ(number->Release(), 1u);
    EXPECT_EQ(TestComponent::s_alive, 1);
    EXPECT_EQ(number->Release(), 0u);
    EXPECT_EQ(TestComponent::s_alive, 0);
}

TEST(ComObject, AnswersIUnknownAndItsListedInterfacesOnly)
{
    ComPtr<ITestNumber> number;
    ASSERT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), number.putVoid()), S_OK);
    ComPtr<ITestName> name;
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(name.queryFrom(number.get()), S_OK);
    EXPECT_EQ(unknown.queryFrom(number.get()), S_OK);
    LONG length = 0;
    EXPECT_EQ(name->GetNameLength(&length), S_OK);
    EXPECT_EQ(length, 7);

    void* other = &length;
    EXPECT_EQ(number->QueryInterface(__uuidof(ISupportErrorInfo), &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    other = &length;
    EXPECT_EQ(number->QueryInterface(__uuidof(IDispatch), &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(number->QueryInterface(__uuidof(ITestName), nullptr), E_POINTER);
}

TEST(ComObject, HasOneIdentity)
{
    ComPtr<ITestNumber> number;
    ASSERT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), number.putVoid()), S_OK);
    ComPtr<ITestName> name;
    ASSERT_EQ(name.queryFrom(number.get()), S_OK);
    ComPtr<IUnknown> one;
    ComPtr<IUnknown> two;
    ASSERT_EQ(one.queryFrom(number.get()), S_OK);
    ASSERT_EQ(two.queryFrom(name.get()), S_OK);
    EXPECT_EQ(one.get(), two.get());
    ComPtr<ITestNumber> back;
    ASSERT_EQ(back.queryFrom(name.get()), S_OK);
    EXPECT_EQ(back.get(), number.get());
}

TEST(ComObject, HoldsTheModuleFromConstructionToDestruction)
{
    const LONG before = ComModule::Get().LockCount();
    ComPtr<ITestNumber> one;
    ComPtr<ITestNumber> two;
    ASSERT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), one.putVoid()), S_OK);
    EXPECT_EQ(ComModule::Get().LockCount(), before + 1);
    ASSERT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), two.putVoid()), S_OK);
    EXPECT_EQ(ComModule::Get().LockCount(), before + 2);
    two = one; // a reference more is no object more
    EXPECT_EQ(ComModule::Get().LockCount(), before + 1);
    one.reset();
    two.reset();
    EXPECT_EQ(ComModule::Get().LockCount(), before);
}

TEST(ComObject, IsDeletedIfItDoesNotAnswerTheInterfaceAskedFor)
{
    const LONG before = ComModule::Get().LockCount();
    void* made = &made;
    EXPECT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(IDispatch), &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(TestComponent::s_alive, 0);
    EXPECT_EQ(ComModule::Get().LockCount(), before);
}

TEST(ComObject, ANullResultIsRefusedBeforeAnythingIsMade)
{
    EXPECT_EQ(CreateComObject<TestComponent>(nullptr, __uuidof(ITestNumber), nullptr), E_POINTER);
    EXPECT_EQ(TestComponent::s_alive, 0);
}

TEST(ComObject, TheFailureOfFinalConstructIsWhatTheCreatorGets)
{
    TestConstructed::s_answer = E_ABORT;
    void* made = &made;
    EXPECT_EQ(CreateComObject<TestConstructed>(nullptr, __uuidof(ITestNumber), &made), E_ABORT);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(TestConstructed::s_alive, 0) << "deleted, and once only, though it used a reference to itself";
}

TEST(ComObject, FinalConstructRunsAtCountZeroAndMayAddReferences)
{
    TestConstructed::s_answer = S_OK;
    TestConstructed::s_called = false;
    TestConstructed::s_countSeen = 99;
    ComPtr<ITestNumber> made;
    ASSERT_EQ(CreateComObject<TestConstructed>(nullptr, __uuidof(ITestNumber), made.putVoid()), S_OK);
    EXPECT_TRUE(TestConstructed::s_called);
    EXPECT_EQ(TestConstructed::s_countSeen, 0u);
    EXPECT_EQ(TestConstructed::s_alive, 1) << "giving that reference back did not end the object";
    EXPECT_EQ(CountOf(made.get()), 1u);
    made.reset();
    EXPECT_EQ(TestConstructed::s_alive, 0);
}

TEST(ComObject, IsDeletedOnceIfTheQueryFailsAfterASelfReference)
{
    const LONG before = ComModule::Get().LockCount();
    TestConstructed::s_answer = S_OK;
    void* made = &made;
    EXPECT_EQ(CreateComObject<TestConstructed>(nullptr, __uuidof(ITestName), &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(TestConstructed::s_alive, 0);
    EXPECT_EQ(ComModule::Get().LockCount(), before);
}

TEST(ComObject, AnExceptionOfTheConstructorBecomesAStatus)
{
    const LONG before = ComModule::Get().LockCount();
    void* made = &made;
    TestThrowing::s_way = TestThrowing::Way::BadAlloc;
    EXPECT_EQ(CreateComObject<TestThrowing>(nullptr, __uuidof(ITestNumber), &made), E_OUTOFMEMORY);
    EXPECT_EQ(made, nullptr);
    TestThrowing::s_way = TestThrowing::Way::Other;
    EXPECT_EQ(CreateComObject<TestThrowing>(nullptr, __uuidof(ITestNumber), &made), E_FAIL);
    EXPECT_EQ(ComModule::Get().LockCount(), before);
}

TEST(ComObject, AggregatedGivesTheOuterObjectItsNonDelegatingUnknown)
{
    TestOuter outer;
    ComPtr<IUnknown> inner;
    ASSERT_EQ(CreateComObject<TestComponent>(&outer, __uuidof(IUnknown), inner.putVoid()), S_OK);
    EXPECT_EQ(outer.m_asked, 0);
    EXPECT_EQ(outer.m_count, 1u) << "an inner object does not count its outer one";
    EXPECT_EQ(CountOf(inner.get()), 1u);
    EXPECT_EQ(outer.m_count, 1u) << "the non-delegating count is the inner object's own";

    ComPtr<ITestName> name;
    ASSERT_EQ(name.queryFrom(inner.get()), S_OK);
    EXPECT_EQ(outer.m_asked, 0);
    EXPECT_EQ(outer.m_count, 2u) << "a reference to an inner interface is one to the outer object";
    EXPECT_EQ(CountOf(inner.get()), 1u);
    name.reset();
    EXPECT_EQ(outer.m_count, 1u);
    inner.reset();
    EXPECT_EQ(TestComponent::s_alive, 0);
}

TEST(ComObject, AggregatedLetsTheOuterObjectAnswerForItsInterfaces)
{
    TestOuter outer;
    ComPtr<IUnknown> inner;
    ASSERT_EQ(CreateComObject<TestComponent>(&outer, __uuidof(IUnknown), inner.putVoid()), S_OK);
    ComPtr<ITestName> name;
    ASSERT_EQ(name.queryFrom(inner.get()), S_OK);
    ComPtr<IUnknown> identity;
    ASSERT_EQ(identity.queryFrom(name.get()), S_OK);
    EXPECT_EQ(identity.get(), static_cast<IUnknown*>(&outer));
    ComPtr<ITestNumber> number;
    ASSERT_EQ(number.queryFrom(name.get()), S_OK);
    LONG value = 0;
    number->GetNumber(&value);
    EXPECT_EQ(value, 1000) << "the outer object's number, not the inner one's";
}

TEST(ComObject, RefusesAnOuterObjectWithoutAllocating)
{
    TestOuter outer;
    void* made = &made;
    EXPECT_EQ((CreateComObject<TestComponent, Aggregation::Refused>(&outer, __uuidof(IUnknown), &made)),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(TestComponent::s_alive, 0);
    ComPtr<ITestNumber> plain;
    EXPECT_EQ((CreateComObject<TestComponent, Aggregation::Refused>(nullptr, __uuidof(ITestNumber),
                                                                    plain.putVoid())),
              S_OK);
}
