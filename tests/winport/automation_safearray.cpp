// Arrays of one and two dimensions.
#include "automationtest.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace
{
// The elements stand in one block with the descriptor; no public header names it.
constexpr USHORT kVector = 0x2000;

// An array that is destroyed at its end.
class CTestArray
{
public:
    explicit CTestArray(SAFEARRAY* array) : m_array(array) {}
    CTestArray(VARTYPE type, LONG lower, ULONG count) : m_array(SafeArrayCreateVector(type, lower, count)) {}
    ~CTestArray() { EXPECT_EQ(S_OK, SafeArrayDestroy(m_array)); }
    CTestArray(const CTestArray&) = delete;
    CTestArray& operator=(const CTestArray&) = delete;
    operator SAFEARRAY*() const { return m_array; }
    SAFEARRAY* operator->() const { return m_array; }

    HRESULT Put(LONG index, void* value) const { return SafeArrayPutElement(m_array, &index, value); }
    HRESULT Get(LONG index, void* value) const { return SafeArrayGetElement(m_array, &index, value); }

private:
    SAFEARRAY* m_array;
};

SAFEARRAY* Create(VARTYPE type, SAFEARRAYBOUND first)
{
    return SafeArrayCreate(type, 1, &first);
}

SAFEARRAY* Create(VARTYPE type, SAFEARRAYBOUND first, SAFEARRAYBOUND second)
{
    SAFEARRAYBOUND bounds[] = {first, second};
    return SafeArrayCreate(type, 2, bounds);
}

HRESULT PutAt(SAFEARRAY* array, LONG first, LONG second, void* value)
{
    LONG indices[] = {first, second};
    return SafeArrayPutElement(array, indices, value);
}

HRESULT GetAt(SAFEARRAY* array, LONG first, LONG second, void* value)
{
    LONG indices[] = {first, second};
    return SafeArrayGetElement(array, indices, value);
}

LONG Lower(SAFEARRAY* array, UINT dimension)
{
    LONG bound = -99;
    EXPECT_EQ(S_OK, SafeArrayGetLBound(array, dimension, &bound));
    return bound;
}

LONG Upper(SAFEARRAY* array, UINT dimension)
{
    LONG bound = -99;
    EXPECT_EQ(S_OK, SafeArrayGetUBound(array, dimension, &bound));
    return bound;
}
} // namespace

TEST(SafeArrayMake, KnowsItsTypeAndTheSizeOfItsElements)
{
    struct Case
    {
        VARTYPE type;
        UINT size;
        USHORT features;
    };
    const Case cases[] = {{VT_I2, 2, FADF_HAVEVARTYPE},
                          {VT_I4, 4, FADF_HAVEVARTYPE},
                          {VT_R8, 8, FADF_HAVEVARTYPE},
                          {VT_DATE, 8, FADF_HAVEVARTYPE},
                          {VT_BOOL, 2, FADF_HAVEVARTYPE},
                          {VT_UI1, 1, FADF_HAVEVARTYPE},
                          {VT_UI4, 4, FADF_HAVEVARTYPE},
                          {VT_INT, 4, FADF_HAVEVARTYPE},
                          {VT_BSTR, 8, FADF_HAVEVARTYPE | FADF_BSTR},
                          {VT_VARIANT, 24, FADF_HAVEVARTYPE | FADF_VARIANT},
                          {VT_UNKNOWN, 8, FADF_HAVEIID | FADF_UNKNOWN},
                          {VT_DISPATCH, 8, FADF_HAVEIID | FADF_DISPATCH}};
    for (const Case& one : cases)
    {
        const CTestArray array(Create(one.type, {2, 0}));
        ASSERT_NE(nullptr, static_cast<SAFEARRAY*>(array)) << one.type;
        VARTYPE type = VT_EMPTY;
        EXPECT_EQ(S_OK, SafeArrayGetVartype(array, &type));
        EXPECT_EQ(one.type, type);
        EXPECT_EQ(one.size, SafeArrayGetElemsize(array)) << one.type;
        EXPECT_EQ(one.features, array->fFeatures) << one.type;
        EXPECT_EQ(1u, SafeArrayGetDim(array));
        EXPECT_EQ(0u, array->cLocks);

        const CTestArray vector(one.type, 0, 2);
        EXPECT_EQ(one.features | kVector, vector->fFeatures) << one.type;
        EXPECT_EQ(S_OK, SafeArrayGetVartype(vector, &type));
        EXPECT_EQ(one.type, type);
    }
}

TEST(SafeArrayMake, RefusesTypesThatNoElementHas)
{
    for (const int type : {VT_EMPTY + 0, VT_NULL + 0, 15, VT_BYREF | VT_I4, VT_ARRAY | VT_I4, 99})
    {
        EXPECT_EQ(nullptr, Create(static_cast<VARTYPE>(type), {1, 0})) << type;
        EXPECT_EQ(nullptr, SafeArrayCreateVector(static_cast<VARTYPE>(type), 0, 1)) << type;
    }
}

TEST(SafeArrayMake, RefusesNoDimensions)
{
    SAFEARRAYBOUND bound{1, 0};
    EXPECT_EQ(nullptr, SafeArrayCreate(VT_I4, 0, &bound));
}

TEST(SafeArrayMake, ElementsBeginAsZeros)
{
    const CTestArray array(Create(VT_VARIANT, {2, 0}, {2, 0}));
    CTestVariant value = OfI4(5);
    EXPECT_EQ(S_OK, GetAt(array, 1, 1, &value));
    EXPECT_EQ(VT_EMPTY, V_VT(&value));
    const CTestArray numbers(VT_I4, 0, 1);
    LONG number = 7;
    EXPECT_EQ(S_OK, numbers.Get(0, &number));
    EXPECT_EQ(0, number);
}

TEST(SafeArrayBounds, CountFromAnyLowerBound)
{
    const CTestArray array(Create(VT_I4, {3, 5}, {2, -1}));
    EXPECT_EQ(2u, SafeArrayGetDim(array));
    EXPECT_EQ(5, Lower(array, 1));
    EXPECT_EQ(7, Upper(array, 1));
    EXPECT_EQ(-1, Lower(array, 2));
    EXPECT_EQ(0, Upper(array, 2));
    // The last dimension's bound is stored first.
    EXPECT_EQ(2u, array->rgsabound[0].cElements);
    EXPECT_EQ(-1, array->rgsabound[0].lLbound);
}

TEST(SafeArrayBounds, RefuseDimensionsThatAreNot)
{
    const CTestArray array(Create(VT_I4, {3, 5}, {2, -1}));
    LONG bound = 77;
    for (const UINT dimension : {0u, 3u})
    {
        EXPECT_EQ(DISP_E_BADINDEX, SafeArrayGetLBound(array, dimension, &bound));
        EXPECT_EQ(DISP_E_BADINDEX, SafeArrayGetUBound(array, dimension, &bound));
    }
    EXPECT_EQ(77, bound);
}

TEST(SafeArrayBounds, OfNoElementsEndBeforeTheyBegin)
{
    const CTestArray vector(VT_I4, 3, 0);
    EXPECT_EQ(3, Lower(vector, 1));
    EXPECT_EQ(2, Upper(vector, 1));
    LONG value = 0;
    EXPECT_EQ(DISP_E_BADINDEX, vector.Get(3, &value));
    void* data = nullptr;
    EXPECT_EQ(S_OK, SafeArrayAccessData(vector, &data));
    EXPECT_EQ(S_OK, SafeArrayUnaccessData(vector));

    const CTestArray table(Create(VT_VARIANT, {0, 0}, {3, 0}));
    EXPECT_EQ(-1, Upper(table, 1));
    EXPECT_EQ(2, Upper(table, 2));
    CTestVariant variant;
    EXPECT_EQ(DISP_E_BADINDEX, GetAt(table, 0, 0, &variant));
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(S_OK, SafeArrayCopy(table, &copy));
    EXPECT_EQ(-1, Upper(copy, 1));
    EXPECT_EQ(S_OK, SafeArrayDestroy(copy));
}

TEST(SafeArrayOrder, TheFirstIndexVariesFastest)
{
    const CTestArray array(Create(VT_I4, {3, 5}, {2, -1}));
    for (LONG row = 5; row <= 7; ++row)
    {
        for (LONG column = -1; column <= 0; ++column)
        {
            LONG value = row * 10 + column;
            EXPECT_EQ(S_OK, PutAt(array, row, column, &value));
        }
    }
    LONG* data = nullptr;
    ASSERT_EQ(S_OK, SafeArrayAccessData(array, reinterpret_cast<void**>(&data)));
    EXPECT_EQ((std::vector<LONG>{49, 59, 69, 50, 60, 70}), std::vector<LONG>(data, data + 6));
    LONG indices[] = {6, 0};
    void* element = nullptr;
    EXPECT_EQ(S_OK, SafeArrayPtrOfIndex(array, indices, &element));
    EXPECT_EQ(data + 4, element);
    EXPECT_EQ(S_OK, SafeArrayUnaccessData(array));
    LONG value = 0;
    EXPECT_EQ(S_OK, GetAt(array, 7, -1, &value));
    EXPECT_EQ(69, value);
}

TEST(SafeArrayOrder, IndicesOutsideAreRefused)
{
    const CTestArray array(Create(VT_I4, {3, 5}, {2, -1}));
    for (const auto& [first, second] : {std::pair<LONG, LONG>{4, 0}, {8, 0}, {5, -2}, {5, 1}})
    {
        LONG value = 1;
        EXPECT_EQ(DISP_E_BADINDEX, PutAt(array, first, second, &value));
        EXPECT_EQ(DISP_E_BADINDEX, GetAt(array, first, second, &value));
        LONG indices[] = {first, second};
        void* element = nullptr;
        EXPECT_EQ(DISP_E_BADINDEX, SafeArrayPtrOfIndex(array, indices, &element));
        EXPECT_EQ(1, value);
    }
    EXPECT_EQ(0u, array->cLocks);
}

TEST(SafeArrayPlain, HoldsSmallAndLargeNumbers)
{
    const CTestArray bytes(VT_UI1, 0, 3);
    BYTE byte = 200;
    EXPECT_EQ(S_OK, bytes.Put(1, &byte));
    const CTestArray shorts(VT_I2, 1, 2);
    SHORT half = -300;
    EXPECT_EQ(S_OK, shorts.Put(2, &half));
    const CTestArray reals(VT_R8, 0, 2);
    double real = 2.5;
    EXPECT_EQ(S_OK, reals.Put(0, &real));
    const CTestArray truths(VT_BOOL, 0, 2);
    VARIANT_BOOL truth = VARIANT_TRUE;
    EXPECT_EQ(S_OK, truths.Put(1, &truth));

    byte = 0;
    half = 0;
    real = 0;
    truth = VARIANT_FALSE;
    EXPECT_EQ(S_OK, bytes.Get(1, &byte));
    EXPECT_EQ(200, byte);
    EXPECT_EQ(S_OK, bytes.Get(2, &byte));
    EXPECT_EQ(0, byte);
    EXPECT_EQ(S_OK, shorts.Get(2, &half));
    EXPECT_EQ(-300, half);
    EXPECT_EQ(S_OK, reals.Get(0, &real));
    EXPECT_EQ(2.5, real);
    EXPECT_EQ(S_OK, truths.Get(1, &truth));
    EXPECT_EQ(VARIANT_TRUE, truth);
}

TEST(SafeArrayLocks, KeepAnArrayAlive)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 2);
    EXPECT_EQ(S_OK, SafeArrayLock(array));
    EXPECT_EQ(S_OK, SafeArrayLock(array));
    EXPECT_EQ(2u, array->cLocks);
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroy(array));
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroyData(array));
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroy(array));
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
}

TEST(SafeArrayLocks, AreCountedByAccessToTheData)
{
    const CTestArray array(VT_I4, 0, 2);
    void* data = nullptr;
    EXPECT_EQ(S_OK, SafeArrayAccessData(array, &data));
    EXPECT_NE(nullptr, data);
    EXPECT_EQ(1u, array->cLocks);
    LONG value = 3;
    EXPECT_EQ(S_OK, array.Put(1, &value));
    EXPECT_EQ(3, static_cast<LONG*>(data)[1]);
    EXPECT_EQ(1u, array->cLocks);
    EXPECT_EQ(S_OK, SafeArrayUnaccessData(array));
    EXPECT_EQ(0u, array->cLocks);
    EXPECT_EQ(E_UNEXPECTED, SafeArrayUnlock(array));
    EXPECT_EQ(E_UNEXPECTED, SafeArrayUnaccessData(array));
    EXPECT_EQ(0u, array->cLocks);
}

TEST(SafeArrayLocks, DoNotHinderACopy)
{
    const CTestArray array(VT_I4, 0, 2);
    EXPECT_EQ(S_OK, SafeArrayLock(array));
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(S_OK, SafeArrayCopy(array, &copy));
    EXPECT_EQ(0u, copy->cLocks);
    EXPECT_EQ(S_OK, SafeArrayDestroy(copy));
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
}

TEST(SafeArrayNull, IsRefusedButDestroyedAndCopied)
{
    EXPECT_EQ(S_OK, SafeArrayDestroy(nullptr));
    EXPECT_EQ(0u, SafeArrayGetDim(nullptr));
    EXPECT_EQ(0u, SafeArrayGetElemsize(nullptr));
    SAFEARRAY* copy = reinterpret_cast<SAFEARRAY*>(1);
    EXPECT_EQ(S_OK, SafeArrayCopy(nullptr, &copy));
    EXPECT_EQ(nullptr, copy);
    LONG number = 0;
    VARTYPE type = VT_EMPTY;
    void* data = &number;
    EXPECT_EQ(E_INVALIDARG, SafeArrayDestroyData(nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetLBound(nullptr, 1, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetUBound(nullptr, 1, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetVartype(nullptr, &type));
    EXPECT_EQ(E_INVALIDARG, SafeArrayLock(nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayUnlock(nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayAccessData(nullptr, &data));
    EXPECT_EQ(E_INVALIDARG, SafeArrayUnaccessData(nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayPutElement(nullptr, &number, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetElement(nullptr, &number, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayPtrOfIndex(nullptr, &number, &data));
}

TEST(SafeArrayOfText, CopiesInAndOut)
{
    const CTestArray array(VT_BSTR, 0, 2);
    const CTestText source(L"a\0b", 3);
    EXPECT_EQ(S_OK, array.Put(0, source));
    CTestText out;
    EXPECT_EQ(S_OK, array.Get(0, out.Address()));
    EXPECT_NE(static_cast<BSTR>(source), static_cast<BSTR>(out));
    EXPECT_EQ(std::wstring(L"a\0b", 3), Content(out));
    BSTR* data = nullptr;
    ASSERT_EQ(S_OK, SafeArrayAccessData(array, reinterpret_cast<void**>(&data)));
    EXPECT_NE(static_cast<BSTR>(source), data[0]);
    EXPECT_NE(static_cast<BSTR>(out), data[0]);
    EXPECT_EQ(S_OK, SafeArrayUnaccessData(array));
}

TEST(SafeArrayOfText, AnElementNeverSetIsNull)
{
    const CTestArray array(VT_BSTR, 0, 2);
    BSTR out = reinterpret_cast<BSTR>(1);
    EXPECT_EQ(S_OK, array.Get(1, &out));
    EXPECT_EQ(nullptr, out);
    SAFEARRAY* made = nullptr;
    ASSERT_EQ(S_OK, SafeArrayCopy(array, &made));
    const CTestArray copy(made);
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
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(S_OK, SafeArrayCopy(array, &copy));
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

TEST(SafeArrayOfObjects, GivesThemBackWithTheData)
{
    CCountedObject object;
    SAFEARRAY* array = Create(VT_UNKNOWN, {1, 0});
    LONG index = 0;
    EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, static_cast<IUnknown*>(&object)));
    EXPECT_EQ(S_OK, SafeArrayDestroyData(array));
    EXPECT_EQ(1, object.m_references);
    EXPECT_EQ(nullptr, array->pvData);
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));

    // The elements of a vector stand in its own block, which stays.
    SAFEARRAY* vector = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
    EXPECT_EQ(S_OK, SafeArrayPutElement(vector, &index, static_cast<IUnknown*>(&object)));
    EXPECT_EQ(S_OK, SafeArrayDestroyData(vector));
    EXPECT_EQ(1, object.m_references);
    EXPECT_NE(nullptr, vector->pvData);
    EXPECT_EQ(S_OK, SafeArrayDestroy(vector));
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
    SAFEARRAY* made = nullptr;
    ASSERT_EQ(S_OK, SafeArrayCopy(array, &made));
    const CTestArray copy(made);
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
    SAFEARRAY* made = nullptr;
    ASSERT_EQ(S_OK, SafeArrayCopy(numbers, &made));
    const CTestArray copiedNumbers(made);
    number = 0;
    EXPECT_EQ(S_OK, copiedNumbers.Get(3, &number));
    EXPECT_EQ(17, number);

    const CTestArray texts(VT_BSTR, 0, 2);
    const CTestText text(L"x");
    EXPECT_EQ(S_OK, texts.Put(1, text));
    ASSERT_EQ(S_OK, SafeArrayCopy(texts, &made));
    const CTestArray copiedTexts(made);
    CTestText out;
    EXPECT_EQ(S_OK, copiedTexts.Get(1, out.Address()));
    EXPECT_EQ(L"x", Content(out));
}
