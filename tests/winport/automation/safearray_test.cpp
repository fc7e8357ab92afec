// Arrays of one and two dimensions: bounds, order, locks.
#include "ArrayTest.h"

#include <utility>
#include <vector>

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
        EXPECT_EQ(one.size, array->cbElements) << one.type;
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

    const CTestArray table(Create(VT_VARIANT, {0, 0}, {3, 0}));
    EXPECT_EQ(-1, Upper(table, 1));
    EXPECT_EQ(2, Upper(table, 2));
    CTestVariant variant;
    EXPECT_EQ(DISP_E_BADINDEX, GetAt(table, 0, 0, &variant));
    SAFEARRAY* copy = Copied(table);
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
    const auto* data = static_cast<const LONG*>(array->pvData);
    EXPECT_EQ((std::vector<LONG>{49, 59, 69, 50, 60, 70}), std::vector<LONG>(data, data + 6));
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
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroy(array));
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
    EXPECT_EQ(S_OK, SafeArrayDestroy(array));
}

TEST(SafeArrayLocks, DoNotHinderAccessToTheElements)
{
    const CTestArray array(VT_I4, 0, 2);
    EXPECT_EQ(S_OK, SafeArrayLock(array));
    LONG value = 3;
    EXPECT_EQ(S_OK, array.Put(1, &value));
    EXPECT_EQ(3, static_cast<const LONG*>(array->pvData)[1]);
    EXPECT_EQ(1u, array->cLocks);
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
    EXPECT_EQ(0u, array->cLocks);
    EXPECT_EQ(E_UNEXPECTED, SafeArrayUnlock(array));
    EXPECT_EQ(0u, array->cLocks);
}

TEST(SafeArrayLocks, DoNotHinderACopy)
{
    const CTestArray array(VT_I4, 0, 2);
    EXPECT_EQ(S_OK, SafeArrayLock(array));
    SAFEARRAY* copy = Copied(array);
    EXPECT_EQ(0u, copy->cLocks);
    EXPECT_EQ(S_OK, SafeArrayDestroy(copy));
    EXPECT_EQ(S_OK, SafeArrayUnlock(array));
}

TEST(SafeArrayNull, IsRefusedButDestroyed)
{
    EXPECT_EQ(S_OK, SafeArrayDestroy(nullptr));
    EXPECT_EQ(0u, SafeArrayGetDim(nullptr));
    LONG number = 0;
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetLBound(nullptr, 1, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetUBound(nullptr, 1, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetVartype(nullptr, &type));
    EXPECT_EQ(E_INVALIDARG, SafeArrayLock(nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayUnlock(nullptr));
    EXPECT_EQ(E_INVALIDARG, SafeArrayPutElement(nullptr, &number, &number));
    EXPECT_EQ(E_INVALIDARG, SafeArrayGetElement(nullptr, &number, &number));
}
