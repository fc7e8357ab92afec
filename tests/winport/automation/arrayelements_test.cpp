// The elements of arrays: text, objects, variants, and whole copies.
#include "ArrayTest.h"

TEST(SafeArrayOfText, CopiesInAndOut)
{
    const CTestArray array(VT_BSTR, 0, 2);
    const CTestText source(L"a\0b", 3);
    EXPECT_EQ(S_OK, array.Put(0, source));
    CTestText out;
    EXPECT_EQ(S_OK, array.Get(0, out.Address()));
    EXPECT_NE(static_cast<BSTR>(source), static_cast<BSTR>(out));
    EXPECT_EQ(std::wstring(L"a\0b", 3), Content(out));
    const auto* data = static_cast<const BSTR*>(array->pvData);
    EXPECT_NE(static_cast<BSTR>(source), data[0]);
    EXPECT_NE(static_cast<BSTR>(out), data[0]);
}

TEST(SafeArrayOfText, AnElementNeverSetIsNull)
{
    const CTestArray array(VT_BSTR, 0, 2);
    BSTR out = reinterpret_cast<BSTR>(1);
    EXPECT_EQ(S_OK, array.Get(1, &out));
    EXPECT_EQ(nullptr, out);
    const CTestArray copy(Copied(array));
    out = reinterpret_cast<BSTR>(1);
    EXPECT_EQ(S_OK, copy.Get(1, &out));
    EXPECT_EQ(nullptr, out);
}

TEST(SafeArrayOfText, NullIsPutInAsAnEmptyString)
{
    const CTestArray array(VT_BSTR, 0, 2);
    const CTestText text(L"x");
    EXPECT_EQ(S_OK, array.Put(0, text));
    for (const LONG index : {0, 1})
    {
        EXPECT_EQ(S_OK, array.Put(index, nullptr));
        CTestText out;
        EXPECT_EQ(S_OK, array.Get(index, out.Address()));
        EXPECT_EQ(L"", Content(out));
    }
}

TEST(SafeArrayOfText, ReplacesWhatWasThere)
{
    const CTestArray array(Create(VT_BSTR, {2, 0}, {2, 0}));
    const CTestText first(L"first");
    const CTestText second(L"second");
    EXPECT_EQ(S_OK, PutAt(array, 1, 0, first));
    EXPECT_EQ(S_OK, PutAt(array, 1, 0, second));
    CTestText out;
    EXPECT_EQ(S_OK, GetAt(array, 1, 0, out.Address()));
    EXPECT_EQ(L"second", Content(out));
}

TEST(SafeArrayOfObjects, CountsReferences)
{
    CCountedObject object;
    {
        const CTestArray array(VT_UNKNOWN, 0, 2);
        EXPECT_EQ(S_OK, array.Put(0, static_cast<IUnknown*>(&object)));
        EXPECT_EQ(2, object.m_references);
        IUnknown* out = nullptr;
        EXPECT_EQ(S_OK, array.Get(0, &out));
        EXPECT_EQ(&object, out);
        EXPECT_EQ(3, object.m_references);
        out->Release();
        EXPECT_EQ(S_OK, array.Put(0, static_cast<IUnknown*>(&object)));
        EXPECT_EQ(2, object.m_references);
        EXPECT_EQ(S_OK, array.Put(1, static_cast<IUnknown*>(&object)));
        EXPECT_EQ(3, object.m_references);
        EXPECT_EQ(S_OK, array.Put(0, nullptr));
        EXPECT_EQ(2, object.m_references);
        out = &object;
        EXPECT_EQ(S_OK, array.Get(0, &out));
        EXPECT_EQ(nullptr, out);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(SafeArrayOfObjects, CountsReferencesInTwoDimensions)
{
    CCountedObject object;
    SAFEARRAY* array = Create(VT_UNKNOWN, {2, 0}, {2, 1});
    for (LONG row = 0; row < 2; ++row)
    {
        for (LONG column = 1; column < 3; ++column)
            EXPECT_EQ(S_OK, PutAt(array, row, column, static_cast<IUnknown*>(&object)));
    }
    EXPECT_EQ(5, object.m_references);
    SAFEARRAY* copy = Copied(array);
    EXPECT_EQ(9, object.m_references);
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
    EXPECT_EQ(5, object.m_references);
    EXPECT_EQ(S_OK, SafeArrayDestroy(copy));
    EXPECT_EQ(1, object.m_references);
}

TEST(SafeArrayOfObjects, HoldsAutomationObjects)
{
    CCountedObject object;
    {
        const CTestArray array(VT_DISPATCH, 0, 1);
        EXPECT_EQ(S_OK, array.Put(0, static_cast<IDispatch*>(&object)));
        EXPECT_EQ(2, object.m_references);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(SafeArrayOfVariants, CopiesInAndOut)
{
    CCountedObject object;
    {
        const CTestArray array(Create(VT_VARIANT, {2, 0}, {3, 0}));
        CTestVariant source = OfObject(&object);
        EXPECT_EQ(S_OK, PutAt(array, 1, 2, &source));
        EXPECT_EQ(3, object.m_references);
        CTestVariant out;
        EXPECT_EQ(S_OK, GetAt(array, 1, 2, &out));
        EXPECT_EQ(VT_UNKNOWN, V_VT(&out));
        EXPECT_EQ(4, object.m_references);
        CTestVariant text = OfText(L"macro");
        EXPECT_EQ(S_OK, PutAt(array, 1, 2, &text));
        EXPECT_EQ(3, object.m_references);
        out.Clear();
        EXPECT_EQ(S_OK, GetAt(array, 1, 2, &out));
        EXPECT_EQ(L"macro", Content(V_BSTR(&out)));
        EXPECT_NE(V_BSTR(&text), V_BSTR(&out));
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(SafeArrayOfVariants, OverwritesTheReadersVariantWithoutClearingIt)
{
    const CTestArray array(VT_VARIANT, 0, 1);
    CCountedObject object;
    CTestVariant source = OfI4(8);
    EXPECT_EQ(S_OK, array.Put(0, &source));
    VARIANT out;
    V_VT(&out) = VT_UNKNOWN;
    V_UNKNOWN(&out) = &object;
    EXPECT_EQ(S_OK, array.Get(0, &out));
    EXPECT_EQ(VT_I4, V_VT(&out));
    EXPECT_EQ(8, V_I4(&out));
    EXPECT_EQ(1, object.m_references);
    V_VT(&out) = 99;
    EXPECT_EQ(S_OK, array.Get(0, &out));
    EXPECT_EQ(VT_I4, V_VT(&out));
}

TEST(SafeArrayOfVariants, RefusesABadVariant)
{
    const CTestArray array(VT_VARIANT, 0, 1);
    VARIANT bad;
    VariantInit(&bad);
    V_VT(&bad) = 99;
    EXPECT_EQ(DISP_E_BADVARTYPE, array.Put(0, &bad));
    EXPECT_EQ(0u, array->cLocks);
}

TEST(SafeArrayOfVariants, HoldsArrays)
{
    CCountedObject object;
    {
        const CTestArray outer(VT_VARIANT, 0, 1);
        CTestVariant inner;
        V_VT(&inner) = VT_ARRAY | VT_UNKNOWN;
        V_ARRAY(&inner) = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
        LONG index = 0;
        EXPECT_EQ(S_OK, SafeArrayPutElement(V_ARRAY(&inner), &index, static_cast<IUnknown*>(&object)));
        EXPECT_EQ(S_OK, outer.Put(0, &inner));
        EXPECT_EQ(3, object.m_references);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(SafeArrayCopy, HasTheSameShapeAndItsOwnElements)
{
    const CTestArray array(Create(VT_VARIANT, {3, 5}, {2, -1}));
    CTestVariant value = OfText(L"one");
    EXPECT_EQ(S_OK, PutAt(array, 6, 0, &value));
    const CTestArray copy(Copied(array));
    EXPECT_EQ(2u, SafeArrayGetDim(copy));
    EXPECT_EQ(5, Lower(copy, 1));
    EXPECT_EQ(7, Upper(copy, 1));
    EXPECT_EQ(-1, Lower(copy, 2));
    EXPECT_EQ(0, Upper(copy, 2));
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(S_OK, SafeArrayGetVartype(copy, &type));
    EXPECT_EQ(VT_VARIANT, type);
    CTestVariant other = OfText(L"two");
    EXPECT_EQ(S_OK, PutAt(array, 6, 0, &other));
    CTestVariant out;
    EXPECT_EQ(S_OK, GetAt(copy, 6, 0, &out));
    EXPECT_EQ(L"one", Content(V_BSTR(&out)));
}

TEST(SafeArrayCopy, CopiesNumbersAndText)
{
    const CTestArray numbers(VT_I4, 1, 3);
    LONG number = 17;
    EXPECT_EQ(S_OK, numbers.Put(3, &number));
    const CTestArray copiedNumbers(Copied(numbers));
    number = 0;
    EXPECT_EQ(S_OK, copiedNumbers.Get(3, &number));
    EXPECT_EQ(17, number);

    const CTestArray texts(VT_BSTR, 0, 2);
    const CTestText text(L"x");
    EXPECT_EQ(S_OK, texts.Put(1, text));
    const CTestArray copiedTexts(Copied(texts));
    CTestText out;
    EXPECT_EQ(S_OK, copiedTexts.Get(1, out.Address()));
    EXPECT_EQ(L"x", Content(out));
}
