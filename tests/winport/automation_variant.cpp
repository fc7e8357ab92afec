// The life of a variant: empty, cleared, copied, copied out of a reference.
#include "automationtest.h"

#include <gtest/gtest.h>

namespace
{
SAFEARRAY* ArrayWith(CCountedObject* object)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
    LONG index = 0;
    EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, object));
    return array;
}

// A reference of any type to `place`.
VARIANT ReferenceTo(VARTYPE type, void* place)
{
    VARIANT result;
    VariantInit(&result);
    V_VT(&result) = static_cast<VARTYPE>(type | VT_BYREF);
    V_BYREF(&result) = place;
    return result;
}
} // namespace

TEST(VariantShape, IsThatOfTheSystem)
{
    EXPECT_EQ(24u, sizeof(VARIANT));
    VARIANT variant;
    EXPECT_EQ(static_cast<void*>(&variant), static_cast<void*>(&V_VT(&variant)));
    EXPECT_EQ(8, reinterpret_cast<char*>(&V_I4(&variant)) - reinterpret_cast<char*>(&variant));
}

TEST(VariantInit, MakesGarbageEmpty)
{
    VARIANT variant;
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = reinterpret_cast<BSTR>(1);
    VariantInit(&variant);
    EXPECT_EQ(VT_EMPTY, V_VT(&variant));
}

TEST(VariantClear, EmptiesPlainValues)
{
    for (const VARTYPE type :
         {VT_EMPTY, VT_NULL, VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DATE, VT_ERROR, VT_BOOL, VT_DECIMAL, VT_I1,
          VT_UI1, VT_UI2, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT})
    {
        VARIANT variant;
        VariantInit(&variant);
        V_VT(&variant) = type;
        EXPECT_EQ(S_OK, VariantClear(&variant)) << type;
        EXPECT_EQ(VT_EMPTY, V_VT(&variant)) << type;
    }
}

TEST(VariantClear, FreesAString)
{
    VARIANT variant;
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = SysAllocString(L"text");
    EXPECT_EQ(S_OK, VariantClear(&variant));
    EXPECT_EQ(VT_EMPTY, V_VT(&variant));
}

TEST(VariantClear, TakesNullStringsObjectsAndArrays)
{
    for (const int type :
         {VT_BSTR + 0, VT_UNKNOWN + 0, VT_DISPATCH + 0, VT_ARRAY | VT_I4, VT_ARRAY | VT_VARIANT})
    {
        VARIANT variant;
        VariantInit(&variant);
        V_VT(&variant) = static_cast<VARTYPE>(type);
        V_UNKNOWN(&variant) = nullptr;
        EXPECT_EQ(S_OK, VariantClear(&variant)) << type;
        EXPECT_EQ(VT_EMPTY, V_VT(&variant)) << type;
    }
}

TEST(VariantClear, ReleasesAnObjectOnce)
{
    CCountedObject object;
    for (const VARTYPE type : {VT_UNKNOWN, VT_DISPATCH})
    {
        VARIANT variant;
        V_VT(&variant) = type;
        V_UNKNOWN(&variant) = &object;
        object.AddRef();
        EXPECT_EQ(S_OK, VariantClear(&variant));
        EXPECT_EQ(1, object.m_references);
        EXPECT_EQ(S_OK, VariantClear(&variant));
        EXPECT_EQ(1, object.m_references);
    }
}

TEST(VariantClear, DestroysAnArrayWithItsElements)
{
    CCountedObject object;
    VARIANT variant;
    V_VT(&variant) = VT_ARRAY | VT_UNKNOWN;
    V_ARRAY(&variant) = ArrayWith(&object);
    EXPECT_EQ(2, object.m_references);
    EXPECT_EQ(S_OK, VariantClear(&variant));
    EXPECT_EQ(VT_EMPTY, V_VT(&variant));
    EXPECT_EQ(1, object.m_references);
}

TEST(VariantClear, RefusesALockedArray)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 2);
    EXPECT_EQ(S_OK, SafeArrayLock(array));
    VARIANT variant;
    V_VT(&variant) = VT_ARRAY | VT_I4;
    V_ARRAY(&variant) = array;
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, VariantClear(&variant));
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
}

TEST(VariantClear, LeavesWhatAReferenceNames)
{
    CCountedObject object;
    IUnknown* pointer = &object;
    VARIANT variant = ReferenceTo(VT_UNKNOWN, &pointer);
    EXPECT_EQ(S_OK, VariantClear(&variant));
    EXPECT_EQ(VT_EMPTY, V_VT(&variant));
    EXPECT_EQ(1, object.m_references);

    CTestText text(L"hey");
    variant = ReferenceTo(VT_BSTR, text.Address());
    EXPECT_EQ(S_OK, VariantClear(&variant));
    EXPECT_EQ(L"hey", Content(text));
}

TEST(VariantClear, RefusesTypesThatNoVariantHas)
{
    for (const int type : {15, 99, VT_VECTOR | VT_I4, VT_RESERVED | VT_I4, VT_BYREF | VT_EMPTY,
                           VT_BYREF | VT_NULL, VT_ARRAY | VT_EMPTY, VT_ARRAY | VT_NULL})
    {
        VARIANT variant;
        VariantInit(&variant);
        V_VT(&variant) = static_cast<VARTYPE>(type);
        EXPECT_EQ(DISP_E_BADVARTYPE, VariantClear(&variant)) << type;
        EXPECT_EQ(type, V_VT(&variant));
    }
}

TEST(VariantCopy, CopiesPlainValues)
{
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopy(&target, &OfI4(7).Clear()));
    EXPECT_EQ(VT_EMPTY, V_VT(&target));
    CTestVariant source = OfI4(7);
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_EQ(VT_I4, V_VT(&target));
    EXPECT_EQ(7, V_I4(&target));
    CTestVariant real = OfR8(1.5);
    EXPECT_EQ(S_OK, VariantCopy(&target, &real));
    EXPECT_EQ(1.5, V_R8(&target));
    CTestVariant truth = OfBool(VARIANT_TRUE);
    EXPECT_EQ(S_OK, VariantCopy(&target, &truth));
    EXPECT_EQ(VARIANT_TRUE, V_BOOL(&target));
}

TEST(VariantCopy, CopiesAStringWithItsZeros)
{
    CTestVariant source;
    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = SysAllocStringLen(L"a\0b", 3);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_NE(V_BSTR(&source), V_BSTR(&target));
    EXPECT_EQ(std::wstring(L"a\0b", 3), Content(V_BSTR(&target)));
}

TEST(VariantCopy, GivesAnEmptyStringForANullOne)
{
    CTestVariant source = OfText(nullptr);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_EQ(VT_BSTR, V_VT(&target));
    EXPECT_EQ(0u, SysStringLen(V_BSTR(&target)));
}

TEST(VariantCopy, CountsAReference)
{
    CCountedObject object;
    {
        CTestVariant source = OfObject(&object);
        CTestVariant target;
        EXPECT_EQ(S_OK, VariantCopy(&target, &source));
        EXPECT_EQ(VT_UNKNOWN, V_VT(&target));
        EXPECT_EQ(3, object.m_references);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(VariantCopy, CopiesANullObject)
{
    CTestVariant source = OfObject(nullptr, VT_DISPATCH);
    CTestVariant target = OfI4(1);
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_EQ(VT_DISPATCH, V_VT(&target));
    EXPECT_EQ(nullptr, V_DISPATCH(&target));
}

TEST(VariantCopy, CopiesAnArrayWithItsElements)
{
    CCountedObject object;
    {
        CTestVariant source;
        V_VT(&source) = VT_ARRAY | VT_UNKNOWN;
        V_ARRAY(&source) = ArrayWith(&object);
        CTestVariant target;
        EXPECT_EQ(S_OK, VariantCopy(&target, &source));
        EXPECT_EQ(VT_ARRAY | VT_UNKNOWN, V_VT(&target));
        EXPECT_NE(V_ARRAY(&source), V_ARRAY(&target));
        EXPECT_EQ(3, object.m_references);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(VariantCopy, CopiesANullArray)
{
    CTestVariant source;
    V_VT(&source) = VT_ARRAY | VT_I4;
    V_ARRAY(&source) = nullptr;
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_EQ(VT_ARRAY | VT_I4, V_VT(&target));
    EXPECT_EQ(nullptr, V_ARRAY(&target));
}

TEST(VariantCopy, KeepsAReferenceAReference)
{
    LONG value = 5;
    VARIANT source = ReferenceTo(VT_I4, &value);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_EQ(VT_BYREF | VT_I4, V_VT(&target));
    EXPECT_EQ(&value, V_I4REF(&target));
}

TEST(VariantCopy, ClearsTheTargetFirst)
{
    CCountedObject object;
    CTestVariant target = OfObject(&object);
    CTestVariant source = OfI4(1);
    EXPECT_EQ(S_OK, VariantCopy(&target, &source));
    EXPECT_EQ(1, object.m_references);
}

TEST(VariantCopy, OntoItselfChangesNothing)
{
    CTestVariant variant = OfText(L"same");
    BSTR before = V_BSTR(&variant);
    EXPECT_EQ(S_OK, VariantCopy(&variant, &variant));
    EXPECT_EQ(before, V_BSTR(&variant));
    EXPECT_EQ(L"same", Content(V_BSTR(&variant)));
}

TEST(VariantCopy, RefusesABadSourceAndKeepsTheTarget)
{
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = 99;
    CTestVariant target = OfI4(3);
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantCopy(&target, &source));
    EXPECT_EQ(VT_I4, V_VT(&target));
    EXPECT_EQ(3, V_I4(&target));
}

TEST(VariantCopy, RefusesABadTarget)
{
    VARIANT target;
    VariantInit(&target);
    V_VT(&target) = 99;
    CTestVariant source = OfI4(3);
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantCopy(&target, &source));
}

TEST(VariantCopyInd, ReadsPlainValues)
{
    CTestVariant target;
    BYTE small = 200;
    SHORT half = -2;
    LONG whole = 5;
    ULONG positive = 4000000000u;
    INT machine = -7;
    double real = 2.5;
    DATE date = 36526.25;
    VARIANT_BOOL truth = VARIANT_TRUE;
    SCODE status = E_FAIL;

    VARIANT source = ReferenceTo(VT_UI1, &small);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_UI1, V_VT(&target));
    EXPECT_EQ(200, V_UI1(&target));
    source = ReferenceTo(VT_I2, &half);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_I2, V_VT(&target));
    EXPECT_EQ(-2, V_I2(&target));
    source = ReferenceTo(VT_I4, &whole);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_I4, V_VT(&target));
    EXPECT_EQ(5, V_I4(&target));
    source = ReferenceTo(VT_UI4, &positive);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_UI4, V_VT(&target));
    EXPECT_EQ(4000000000u, V_UI4(&target));
    source = ReferenceTo(VT_INT, &machine);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_INT, V_VT(&target));
    EXPECT_EQ(-7, V_INT(&target));
    source = ReferenceTo(VT_R8, &real);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_R8, V_VT(&target));
    EXPECT_EQ(2.5, V_R8(&target));
    source = ReferenceTo(VT_DATE, &date);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_DATE, V_VT(&target));
    EXPECT_EQ(36526.25, V_DATE(&target));
    source = ReferenceTo(VT_BOOL, &truth);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_BOOL, V_VT(&target));
    EXPECT_EQ(VARIANT_TRUE, V_BOOL(&target));
    source = ReferenceTo(VT_ERROR, &status);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_ERROR, V_VT(&target));
    EXPECT_EQ(E_FAIL, V_ERROR(&target));
}

TEST(VariantCopyInd, CopiesTheStringBehindAReference)
{
    CTestText text(L"hey");
    VARIANT source = ReferenceTo(VT_BSTR, text.Address());
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_BSTR, V_VT(&target));
    EXPECT_NE(static_cast<BSTR>(text), V_BSTR(&target));
    EXPECT_EQ(L"hey", Content(V_BSTR(&target)));
}

TEST(VariantCopyInd, GivesAnEmptyStringForANullOne)
{
    BSTR text = nullptr;
    VARIANT source = ReferenceTo(VT_BSTR, &text);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_BSTR, V_VT(&target));
    EXPECT_EQ(0u, SysStringLen(V_BSTR(&target)));
}

TEST(VariantCopyInd, CountsTheObjectBehindAReference)
{
    CCountedObject object;
    IUnknown* pointer = &object;
    VARIANT source = ReferenceTo(VT_UNKNOWN, &pointer);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_UNKNOWN, V_VT(&target));
    EXPECT_EQ(2, object.m_references);

    IDispatch* dispatch = &object;
    source = ReferenceTo(VT_DISPATCH, &dispatch);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_DISPATCH, V_VT(&target));
    EXPECT_EQ(2, object.m_references);

    pointer = nullptr;
    source = ReferenceTo(VT_UNKNOWN, &pointer);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_UNKNOWN, V_VT(&target));
    EXPECT_EQ(nullptr, V_UNKNOWN(&target));
    EXPECT_EQ(1, object.m_references);
}

TEST(VariantCopyInd, CopiesTheArrayBehindAReference)
{
    CCountedObject object;
    SAFEARRAY* array = ArrayWith(&object);
    VARIANT source = ReferenceTo(VT_ARRAY | VT_UNKNOWN, &array);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_ARRAY | VT_UNKNOWN, V_VT(&target));
    EXPECT_NE(array, V_ARRAY(&target));
    EXPECT_EQ(3, object.m_references);
    target.Clear();
    EXPECT_EQ(2, object.m_references);
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
    EXPECT_EQ(1, object.m_references);

    array = nullptr;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_ARRAY | VT_UNKNOWN, V_VT(&target));
    EXPECT_EQ(nullptr, V_ARRAY(&target));
}

TEST(VariantCopyInd, ReadsTheVariantBehindAReference)
{
    CTestVariant inner = OfText(L"inner");
    VARIANT source = ReferenceTo(VT_VARIANT, &inner);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_BSTR, V_VT(&target));
    EXPECT_EQ(L"inner", Content(V_BSTR(&target)));
    EXPECT_NE(V_BSTR(&inner), V_BSTR(&target));

    V_VT(&inner.Clear()) = VT_NULL;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_NULL, V_VT(&target));
    inner.Clear();
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_EMPTY, V_VT(&target));
}

TEST(VariantCopyInd, FollowsAVariantThatIsItselfAReference)
{
    LONG value = 11;
    VARIANT inner = ReferenceTo(VT_I4, &value);
    VARIANT source = ReferenceTo(VT_VARIANT, &inner);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_I4, V_VT(&target));
    EXPECT_EQ(11, V_I4(&target));
}

TEST(VariantCopyInd, RefusesASecondStepBetweenVariants)
{
    CTestVariant innermost = OfI4(9);
    VARIANT inner = ReferenceTo(VT_VARIANT, &innermost);
    VARIANT source = ReferenceTo(VT_VARIANT, &inner);
    CTestVariant target;
    EXPECT_EQ(E_INVALIDARG, VariantCopyInd(&target, &source));
    EXPECT_EQ(VT_EMPTY, V_VT(&target));
}

TEST(VariantCopyInd, WorksInPlace)
{
    LONG value = 5;
    VARIANT variant = ReferenceTo(VT_I4, &value);
    EXPECT_EQ(S_OK, VariantCopyInd(&variant, &variant));
    EXPECT_EQ(VT_I4, V_VT(&variant));
    EXPECT_EQ(5, V_I4(&variant));
    EXPECT_EQ(S_OK, VariantCopyInd(&variant, &variant));
    EXPECT_EQ(5, V_I4(&variant));
}

TEST(VariantCopyInd, CopiesWhatIsNoReference)
{
    CCountedObject object;
    CTestVariant source = OfObject(&object);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(3, object.m_references);
}

TEST(VariantCopyInd, ClearsTheTargetFirst)
{
    CCountedObject object;
    LONG value = 1;
    VARIANT source = ReferenceTo(VT_I4, &value);
    CTestVariant target = OfObject(&object);
    EXPECT_EQ(S_OK, VariantCopyInd(&target, &source));
    EXPECT_EQ(1, object.m_references);
}

TEST(VariantCopyInd, RefusesReferencesToNothing)
{
    LONG value = 0;
    for (const VARTYPE type :
         {static_cast<VARTYPE>(VT_EMPTY), static_cast<VARTYPE>(VT_NULL), static_cast<VARTYPE>(99)})
    {
        VARIANT source = ReferenceTo(type, &value);
        CTestVariant target;
        EXPECT_EQ(E_INVALIDARG, VariantCopyInd(&target, &source)) << type;
    }
}

TEST(VariantCopyInd, RefusesBadTypes)
{
    CTestVariant target;
    VARIANT bad;
    VariantInit(&bad);
    V_VT(&bad) = 99;
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantCopyInd(&target, &bad));
    VARIANT source = ReferenceTo(VT_VARIANT, &bad);
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantCopyInd(&target, &source));
    LONG value = 0;
    VARIANT good = ReferenceTo(VT_I4, &value);
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantCopyInd(&bad, &good));
}
