// Automation without memory: every allocation fails once, nothing leaks, and nothing is half done.
#include "AutomationTest.h"

#include <gtest/gtest.h>

#include <winport_alloc.h>

#include <functional>

namespace
{
int g_left = 0;

bool Grant() noexcept
{
    return g_left-- > 0;
}

// Runs `body` with only `grants` allocations.
template <class F>
auto WithAllocations(int grants, F&& body)
{
    g_left = grants;
    WinportSetAllocHook(Grant);
    auto result = body();
    WinportSetAllocHook(nullptr);
    return result;
}

// The number of allocations that `body` needs to succeed. With fewer it must return E_OUTOFMEMORY.
int AllocationsNeeded(const std::function<HRESULT()>& body)
{
    for (int grants = 0; grants < 100; ++grants)
    {
        const HRESULT status = WithAllocations(grants, body);
        if (status == S_OK)
            return grants;
        EXPECT_EQ(E_OUTOFMEMORY, status) << grants;
    }
    ADD_FAILURE() << "never succeeds";
    return -1;
}
} // namespace

TEST(WithoutMemory, NoStringIsMade)
{
    EXPECT_EQ(nullptr, WithAllocations(0, [] { return SysAllocString(L"a"); }));
    EXPECT_EQ(nullptr, WithAllocations(0, [] { return SysAllocStringLen(L"abc", 3); }));
}

TEST(WithoutMemory, AVariantCopyLeavesTheTargetEmpty)
{
    CTestVariant source = OfText(L"text");
    CTestVariant target = OfI4(5);
    EXPECT_EQ(E_OUTOFMEMORY, WithAllocations(0, [&] { return VariantCopy(&target, &source); }));
    EXPECT_EQ(VT_EMPTY, V_VT(&target));
    EXPECT_EQ(1, AllocationsNeeded([&] { return VariantCopy(&target, &source); }));
}

TEST(WithoutMemory, AConversionLeavesTheTargetAsItWas)
{
    CTestVariant source = OfI4(7);
    CTestVariant target = OfText(L"old");
    EXPECT_EQ(E_OUTOFMEMORY,
              WithAllocations(0, [&] { return VariantChangeType(&target, &source, 0, VT_BSTR); }));
    EXPECT_EQ(L"old", Content(V_BSTR(&target)));
    CTestVariant text = OfText(L"7");
    EXPECT_EQ(1, AllocationsNeeded([&] { return VariantChangeType(&target, &text, 0, VT_I4); }));
}

TEST(WithoutMemory, NoArrayIsMade)
{
    SAFEARRAYBOUND bound{2, 0};
    for (const int grants : {0, 1})
        EXPECT_EQ(nullptr, WithAllocations(grants, [&] { return SafeArrayCreate(VT_VARIANT, 1, &bound); }));
    EXPECT_EQ(nullptr, WithAllocations(0, [] { return SafeArrayCreateVector(VT_VARIANT, 0, 2); }));
}

TEST(WithoutMemory, AnElementStaysAsItWas)
{
    SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 0, 1);
    const CTestText first(L"first");
    const CTestText second(L"second");
    LONG index = 0;
    EXPECT_EQ(S_OK, SafeArrayPutElement(texts, &index, first));
    EXPECT_EQ(E_OUTOFMEMORY, WithAllocations(0, [&] { return SafeArrayPutElement(texts, &index, second); }));
    BSTR out = nullptr;
    EXPECT_EQ(E_OUTOFMEMORY, WithAllocations(0, [&] { return SafeArrayGetElement(texts, &index, &out); }));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(S_OK, SafeArrayGetElement(texts, &index, &out));
    EXPECT_EQ(L"first", Content(out));
    SysFreeString(out);
    EXPECT_EQ(0u, texts->cLocks);
    EXPECT_EQ(S_OK, SafeArrayDestroy(texts));
}

TEST(WithoutMemory, AnArrayIsCopiedWholeOrNotAtAll)
{
    CCountedObject object;
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 4);
    for (LONG index = 0; index < 4; ++index)
    {
        CTestVariant value = index % 2 ? OfText(L"text") : OfObject(&object);
        EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, &value));
    }
    EXPECT_EQ(3, object.m_references);
    VARIANT source{};
    V_VT(&source) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&source) = array;
    SAFEARRAY* copy = nullptr;
    const int needed = AllocationsNeeded([&] {
        VARIANT target{};
        const HRESULT status = VariantCopy(&target, &source);
        copy = V_VT(&target) == VT_EMPTY ? nullptr : V_ARRAY(&target);
        EXPECT_EQ(status == S_OK, copy != nullptr);
        EXPECT_EQ(status == S_OK ? 5 : 3, object.m_references);
        return status;
    });
    EXPECT_EQ(5, needed);
    EXPECT_EQ(S_OK, SafeArrayDestroy(copy));
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
    EXPECT_EQ(1, object.m_references);
}

TEST(NativeArray, LargerThanAnyMayBeIsNotMade)
{
    SAFEARRAYBOUND bounds[] = {{0x10000, 0}, {0x10000, 0}};
    EXPECT_EQ(nullptr, SafeArrayCreate(VT_I4, 2, bounds));
    EXPECT_EQ(nullptr, SafeArrayCreateVector(VT_VARIANT, 0, 0x7fffffff));
}

TEST(NativeNull, ArgumentsAreRefused)
{
    CTestVariant variant;
    EXPECT_EQ(E_INVALIDARG, VariantClear(nullptr));
    EXPECT_EQ(E_INVALIDARG, VariantCopy(nullptr, &variant));
    EXPECT_EQ(E_INVALIDARG, VariantCopy(&variant, nullptr));
    EXPECT_EQ(E_INVALIDARG, VariantCopyInd(&variant, nullptr));
    EXPECT_EQ(E_INVALIDARG, VariantChangeType(&variant, nullptr, 0, VT_I4));
    EXPECT_EQ(E_INVALIDARG, VariantChangeType(nullptr, &variant, 0, VT_I4));
    EXPECT_EQ(E_INVALIDARG, VarCmp(nullptr, &variant, 0x400, 0));
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 1);
    LONG index = 0;
    EXPECT_EQ(E_INVALIDARG, SafeArrayPutElement(array, &index, nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetElement(array, &index, nullptr));
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
}

TEST(NativeConversion, ToAnotherTypeEndsTheRun)
{
    CTestVariant source = OfText(L"1/2/2003");
    CTestVariant target;
    EXPECT_DEATH(VariantChangeType(&target, &source, 0, VT_DATE), "no conversion to the variant type 0x7");
    EXPECT_DEATH(VariantChangeType(&target, &source, 2, VT_BSTR), "no conversion with the flags 0x2");
}

TEST(NativeTypeLibrary, IsNotThere)
{
    auto* library = reinterpret_cast<ITypeLib*>(1);
    EXPECT_EQ(TYPE_E_CANTLOADLIBRARY, LoadTypeLib(L"any.tlb", &library));
    EXPECT_EQ(nullptr, library);
    EXPECT_EQ(TYPE_E_LIBNOTREGISTERED, LoadRegTypeLib(IID_NULL, 1, 0, 0, &library));
    EXPECT_EQ(nullptr, library);
}
