#include "ModuleUnderTest.h"
#include "SevenClasses.h"

namespace
{
/// An object that others are made part of.
class Outer final : public IUnknown
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        const bool known = IsEqualIID(iid, __uuidof(IUnknown));
        *result = known ? this : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_count; }

    ULONG m_count = 1;
};

class Aggregated : public testing::TestWithParam<ClassFacts>
{
protected:
    HRESULT Make(REFIID iid, void** result)
    {
        const HRESULT status = module.Factory(GetParam().Class(), factory);
        return status < 0 ? status : factory->CreateInstance(&outer, iid, result);
    }

    ModuleUnderTest module;
    Outer outer;
    ComPtr<IClassFactory> factory;
};
INSTANTIATE_TEST_SUITE_P(Classes, Aggregated, testing::ValuesIn(kSevenClasses), ClassTestName);
} // namespace

TEST_P(Aggregated, TakesAnOuterObjectOnlyTogetherWithIUnknown)
{
    void* made = this;
    EXPECT_EQ(Make(GetParam().Interface(), &made), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(CLASS_E_NOAGGREGATION, static_cast<HRESULT>(0x80040110u));
}

TEST_P(Aggregated, WithIUnknownIsCreatedOrRefusedByItsClass)
{
    ComPtr<IUnknown> inner;
    void* made = this;
    const HRESULT status = Make(__uuidof(IUnknown), &made);
    if (status == S_OK)
        inner.attach(static_cast<IUnknown*>(made));
    EXPECT_EQ(status, GetParam().aggregatable ? S_OK : CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made != nullptr, GetParam().aggregatable);
    EXPECT_EQ(outer.m_count, 1u);
    factory.reset();
    EXPECT_EQ(module.CanUnloadNow(), GetParam().aggregatable ? S_FALSE : S_OK) << "a refusal makes no object";
}

TEST_P(Aggregated, ReturnsItsNonDelegatingUnknownToTheOuterObject)
{
    if (!GetParam().aggregatable)
        return;
    ComPtr<IUnknown> inner;
    ASSERT_EQ(Make(__uuidof(IUnknown), inner.putVoid()), S_OK);
    ComPtr<IUnknown> own;
    ASSERT_EQ(inner->QueryInterface(GetParam().Interface(), own.putVoid()), S_OK);
    EXPECT_EQ(outer.m_count, 2u);
    ComPtr<IUnknown> identity;
    ASSERT_EQ(identity.queryFrom(own.get()), S_OK);
    EXPECT_EQ(identity.get(), static_cast<IUnknown*>(&outer));
    void* refused = this;
    EXPECT_EQ(own->QueryInterface(GetParam().Interface(), &refused), E_NOINTERFACE)
        << "the outer object answers";
}

TEST_P(Aggregated, IsDestroyedWithTheLastReferenceOfItsOuterObject)
{
    if (!GetParam().aggregatable)
        return;
    ComPtr<IUnknown> inner;
    ASSERT_EQ(Make(__uuidof(IUnknown), inner.putVoid()), S_OK);
    factory.reset();
    inner.reset();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}
