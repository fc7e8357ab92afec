// Values copied out of references.
#include "AutomationTest.h"

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
