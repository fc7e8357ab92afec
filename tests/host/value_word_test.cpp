// What counts as a set value, by variant type.
#include <gtest/gtest.h>

#include "ValueWord.h"

#include <cstring>

using qptools::ValueWord;

namespace
{
/// A variant of `type` whose every other byte is set, so that a read beyond the type's own bytes is seen.
VARIANT Dirty(VARTYPE type)
{
    VARIANT value;
    std::memset(&value, 0xFF, sizeof value);
    value.vt = type;
    return value;
}

/// An object that is looked at and never called.
IUnknown* SomeObject()
{
    static int place;
    return reinterpret_cast<IUnknown*>(&place);
}
} // namespace

/// The word of a variant of `type` with `member` set, all other bytes dirty; and the same through a
/// reference.
#define EXPECT_WORD(expected, type, member, number)                                                          \
    {                                                                                                        \
        VARIANT plain = Dirty(type);                                                                         \
        plain.member = number;                                                                               \
        EXPECT_EQ(expected, ValueWord(plain));                                                               \
        VARIANT reference = Dirty(VT_BYREF | (type));                                                        \
        reference.byref = &plain.member;                                                                     \
        EXPECT_EQ(expected, ValueWord(reference));                                                           \
        VARIANT outer = Dirty(VT_BYREF | VT_VARIANT);                                                        \
        outer.pvarVal = &plain;                                                                              \
        EXPECT_EQ(expected, ValueWord(outer));                                                               \
    }

TEST(ValueWord, NothingAndNullAreNotSet)
{
    EXPECT_EQ(0, ValueWord(Dirty(VT_EMPTY)));
    EXPECT_EQ(0, ValueWord(Dirty(VT_NULL)));
}

TEST(ValueWord, BooleansAndIntegersAreTheirValue)
{
    EXPECT_WORD(-1, VT_BOOL, boolVal, VARIANT_TRUE);
    EXPECT_WORD(0, VT_BOOL, boolVal, VARIANT_FALSE);
    EXPECT_WORD(7, VT_I4, lVal, 7);
    EXPECT_WORD(-7, VT_I4, lVal, -7);
    EXPECT_WORD(0, VT_I4, lVal, 0);
    EXPECT_WORD(-2, VT_INT, intVal, -2);
    EXPECT_WORD(0, VT_INT, intVal, 0);
    EXPECT_WORD(4294967295LL, VT_UI4, ulVal, 4294967295u);
    EXPECT_WORD(0, VT_UI4, ulVal, 0u);
    EXPECT_WORD(4294967295LL, VT_UINT, uintVal, 4294967295u);
    EXPECT_WORD(-3, VT_I2, iVal, -3);
    EXPECT_WORD(0, VT_I2, iVal, 0);
    EXPECT_WORD(65535, VT_UI2, uiVal, 65535);
    EXPECT_WORD(-4, VT_I1, cVal, -4);
    EXPECT_WORD(255, VT_UI1, bVal, 255);
    EXPECT_WORD(0, VT_UI1, bVal, 0);
    EXPECT_WORD(0x100000000LL, VT_I8, llVal, 0x100000000LL);
    EXPECT_WORD(0, VT_I8, llVal, 0);
    EXPECT_WORD(1LL << 40, VT_UI8, ullVal, 1ULL << 40);
    EXPECT_WORD(static_cast<LONGLONG>(E_FAIL), VT_ERROR, scode, E_FAIL);
    EXPECT_WORD(0, VT_ERROR, scode, S_OK);
}

TEST(ValueWord, FloatingPointCountsByItsBits)
{
    EXPECT_WORD(0, VT_R4, fltVal, 0.0F);
    EXPECT_WORD(1, VT_R4, fltVal, 0.25F);
    EXPECT_WORD(1, VT_R4, fltVal, -0.0F);
    EXPECT_WORD(0, VT_R8, dblVal, 0.0);
    EXPECT_WORD(1, VT_R8, dblVal, 0.25);
    EXPECT_WORD(1, VT_R8, dblVal, -0.0);
    EXPECT_WORD(0, VT_DATE, date, 0.0);
    EXPECT_WORD(1, VT_DATE, date, 45000.5);
    EXPECT_WORD(0, VT_CY, cyVal.int64, 0);
    EXPECT_WORD(1, VT_CY, cyVal.int64, 1LL << 40);
}

TEST(ValueWord, ATextIsSetWhenItIsThereEvenIfEmpty)
{
    const BSTR empty = SysAllocString(L"");
    const BSTR text = SysAllocString(L"0");
    EXPECT_WORD(1, VT_BSTR, bstrVal, empty);
    EXPECT_WORD(1, VT_BSTR, bstrVal, text);
    EXPECT_WORD(0, VT_BSTR, bstrVal, nullptr);
    SysFreeString(empty);
    SysFreeString(text);
}

TEST(ValueWord, AnObjectIsSetWhenTheReferenceIsNotNull)
{
    EXPECT_WORD(1, VT_UNKNOWN, punkVal, SomeObject());
    EXPECT_WORD(0, VT_UNKNOWN, punkVal, nullptr);
    EXPECT_WORD(1, VT_DISPATCH, byref, SomeObject());
    EXPECT_WORD(0, VT_DISPATCH, byref, nullptr);
}

TEST(ValueWord, AnArrayIsSetWhenItIsThere)
{
    SAFEARRAYBOUND bound = {0, 0};
    SAFEARRAY* array = SafeArrayCreate(VT_I4, 1, &bound);
    EXPECT_WORD(1, VT_ARRAY | VT_I4, parray, array);
    EXPECT_WORD(0, VT_ARRAY | VT_VARIANT, parray, nullptr);
    SafeArrayDestroy(array);
}

TEST(ValueWord, ADecimalIsSetWhenItsDigitsAreNotZero)
{
    VARIANT value{};
    value.decVal.Lo64 = 0;
    value.decVal.Hi32 = 0;
    value.decVal.scale = 4;
    value.vt = VT_DECIMAL;
    EXPECT_EQ(0, ValueWord(value));
    value.decVal.Lo64 = 1;
    EXPECT_EQ(1, ValueWord(value));
    value.decVal.Lo64 = 0;
    value.decVal.Hi32 = 1;
    EXPECT_EQ(1, ValueWord(value));
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_DECIMAL;
    reference.pdecVal = &value.decVal;
    EXPECT_EQ(1, ValueWord(reference));
}

TEST(ValueWord, ANullReferenceIsNotSet)
{
    for (const int type : {VT_I4, VT_BSTR, VT_UNKNOWN, VT_VARIANT, VT_R8})
    {
        VARIANT value = Dirty(static_cast<VARTYPE>(VT_BYREF | type));
        value.byref = nullptr;
        EXPECT_EQ(0, ValueWord(value)) << type;
    }
}

TEST(ValueWord, AReferenceToAReferenceIsFollowed)
{
    LONG number = 9;
    VARIANT inner = Dirty(VT_BYREF | VT_I4);
    inner.plVal = &number;
    VARIANT outer = Dirty(VT_BYREF | VT_VARIANT);
    outer.pvarVal = &inner;
    EXPECT_EQ(9, ValueWord(outer));
}

TEST(ValueWord, AReferenceToItselfIsNotSet)
{
    VARIANT ring = Dirty(VT_BYREF | VT_VARIANT);
    ring.pvarVal = &ring;
    EXPECT_EQ(0, ValueWord(ring));
}

TEST(ValueWord, ATypeThatNoVariantHoldsIsNotSet)
{
    EXPECT_EQ(0, ValueWord(Dirty(VT_VOID)));
    EXPECT_EQ(0, ValueWord(Dirty(0x0FFF)));
}
