// The life of a variant: empty, cleared, copied.
#include "AutomationTest.h"

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
