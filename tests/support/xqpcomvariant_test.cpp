#include "XQPComVariant.h"

#include "BorrowedValues.h"
#include "CountedUnknown.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace
{
VARIANT Real(double value)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_R8;
    variant.dblVal = value;
    return variant;
}

VARIANT Flag(bool value)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

VARIANT Null()
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_NULL;
    return variant;
}
} // namespace

TEST(QPComVariant, IsEmptyByDefault)
{
    XQPComVariant value;
    EXPECT_EQ(value.Type(), VT_EMPTY);
    EXPECT_EQ(value.GetInt(), 0);
    EXPECT_STREQ(value.GetString(), L"");
}

TEST(QPComVariant, CopiesTheTextItIsMadeFrom)
{
    wchar_t source[] = L"pump";
    XQPComVariant value(source);
    source[0] = L'j';
    EXPECT_EQ(value.Type(), VT_BSTR);
    EXPECT_STREQ(value.GetString(), L"pump");
}

TEST(QPComVariant, HoldsTheEmptyTextForANullText)
{
    const XQPComVariant value(static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(value.Type(), VT_BSTR);
    ASSERT_NE(value.Value().bstrVal, nullptr);
    EXPECT_EQ(SysStringLen(value.Value().bstrVal), 0u);
}

TEST(QPComVariant, CopiesAnotherOneAndStaysApartFromIt)
{
    XQPComVariant first(L"pump");
    XQPComVariant second(first);
    XQPComVariant third;
    third = first;
    first = L"valve";
    EXPECT_STREQ(second.GetString(), L"pump");
    EXPECT_STREQ(third.GetString(), L"pump");
    EXPECT_STREQ(first.GetString(), L"valve");
}

TEST(QPComVariant, CopiesAPlainVariantThatStaysTheCallers)
{
    CountedUnknown object;
    const VARIANT reference = ObjectReference(&object);
    {
        const XQPComVariant value(reference);
        XQPComVariant assigned;
        assigned = reference;
        EXPECT_EQ(object.References(), 3);
    }
    EXPECT_EQ(object.References(), 1);
}

TEST(QPComVariant, MovesWithoutCopying)
{
    CountedUnknown object;
    {
        XQPComVariant first(ObjectReference(&object));
        XQPComVariant second(std::move(first));
        XQPComVariant third(L"before");
        third = std::move(second);
        EXPECT_EQ(third.Type(), VT_UNKNOWN);
        EXPECT_EQ(object.References(), 2);
    }
    EXPECT_EQ(object.References(), 1);
}

TEST(QPComVariant, AssignsFromItselfAndFromItsOwnText)
{
    XQPComVariant value(L"name=value");
    const XQPComVariant& same = value;
    value = same;
    EXPECT_STREQ(value.GetString(), L"name=value");
    value = value.GetString() + 5;
    EXPECT_STREQ(value.GetString(), L"value");
}

TEST(QPComVariant, GivesTheAddressOfItsValueForAnOutArgument)
{
    CountedUnknown object;
    XQPComVariant value(ObjectReference(&object));
    VARIANT* const out = &value;
    EXPECT_EQ(object.References(), 1) << "what was held is released";
    EXPECT_EQ(out, std::addressof(value.Value()));
    EXPECT_EQ(out->vt, VT_EMPTY);
    *out = NumberValue(7);
    EXPECT_EQ(value.GetInt(), 7);
}

TEST(QPComVariant, IsPassedByValueAndStillOwnsWhatItHolds)
{
    CountedUnknown object;
    {
        const XQPComVariant value(ObjectReference(&object));
        const VARIANT passed = value;
        EXPECT_EQ(passed.vt, VT_UNKNOWN);
        EXPECT_EQ(passed.punkVal, &object);
        EXPECT_EQ(object.References(), 2);
    }
    EXPECT_EQ(object.References(), 1);
}

TEST(QPComVariant, ClearsAndDetaches)
{
    CountedUnknown object;
    XQPComVariant value(ObjectReference(&object));
    VARIANT detached = value.Detach();
    EXPECT_EQ(value.Type(), VT_EMPTY);
    EXPECT_EQ(object.References(), 2);
    value = detached;
    VariantClear(&detached);
    value.Clear();
    EXPECT_EQ(value.Type(), VT_EMPTY);
    EXPECT_EQ(object.References(), 1);
}

TEST(QPComVariant, ConvertsInPlace)
{
    XQPComVariant value(L"42");
    EXPECT_EQ(value.ChangeType(VT_I4), S_OK);
    EXPECT_EQ(value.Type(), VT_I4);
    EXPECT_EQ(value.Value().lVal, 42);
    EXPECT_EQ(value.ChangeType(VT_BSTR, nullptr), S_OK);
    EXPECT_STREQ(value.Value().bstrVal, L"42");
    EXPECT_EQ(value.ChangeType(VT_BSTR), S_OK) << "to the type it has";
    EXPECT_STREQ(value.Value().bstrVal, L"42");
}

TEST(QPComVariant, ConvertsFromASource)
{
    CountedUnknown object;
    XQPComVariant value(ObjectReference(&object));
    const VARIANT source = NumberValue(42);
    EXPECT_EQ(value.ChangeType(VT_BSTR, &source), S_OK);
    EXPECT_EQ(value.Type(), VT_BSTR);
    EXPECT_STREQ(value.GetString(), L"42");
    EXPECT_EQ(object.References(), 1);
    EXPECT_EQ(source.vt, VT_I4);
    EXPECT_EQ(source.lVal, 42);
    EXPECT_EQ(value.ChangeType(VT_I4, std::addressof(std::as_const(value).Value())), S_OK)
        << "from its own value";
    EXPECT_EQ(value.GetInt(), 42);
}

TEST(QPComVariant, KeepsItsValueWhenAConversionFails)
{
    XQPComVariant value(L"pump");
    EXPECT_EQ(value.ChangeType(VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_STREQ(value.GetString(), L"pump");
    const VARIANT source = Null();
    EXPECT_EQ(value.ChangeType(VT_BSTR, &source), DISP_E_TYPEMISMATCH);
    EXPECT_STREQ(value.GetString(), L"pump");
}

TEST(QPComVariant, ReadsNumbersAsIntegers)
{
    EXPECT_EQ(XQPComVariant(NumberValue(-7)).GetInt(), -7);
    EXPECT_EQ(XQPComVariant(NumberValue(2147483647)).GetInt(), 2147483647);
    EXPECT_EQ(XQPComVariant(Real(2.6)).GetInt(), 3);
    EXPECT_EQ(XQPComVariant(L"12").GetInt(), 12);
    EXPECT_EQ(XQPComVariant(L"-3").GetInt(), -3);
    EXPECT_EQ(XQPComVariant(Flag(true)).GetInt(), -1);
    EXPECT_EQ(XQPComVariant(Flag(false)).GetInt(), 0);
}

TEST(QPComVariant, ReadsAReferencedNumber)
{
    LONG number = 5;
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_I4 | VT_BYREF;
    reference.plVal = &number;
    XQPComVariant value(reference);
    EXPECT_EQ(value.GetInt(), 5);
    EXPECT_STREQ(value.GetString(), L"5");
}

TEST(QPComVariant, ReadsZeroFromWhatIsNoNumber)
{
    CountedUnknown object;
    EXPECT_EQ(XQPComVariant(L"pump").GetInt(), 0);
    EXPECT_EQ(XQPComVariant(L"").GetInt(), 0);
    EXPECT_EQ(XQPComVariant(L"12 pumps").GetInt(), 0);
    EXPECT_EQ(XQPComVariant(Null()).GetInt(), 0);
    EXPECT_EQ(XQPComVariant(Real(3e9)).GetInt(), 0) << "beyond an integer";
    EXPECT_EQ(XQPComVariant(ObjectReference(&object)).GetInt(), 0);
    EXPECT_EQ(XQPComVariant(ObjectReference(nullptr)).GetInt(), 0);
}

TEST(QPComVariant, LeavesItsTypeAloneWhenItIsRead)
{
    XQPComVariant value(L"12");
    EXPECT_EQ(value.GetInt(), 12);
    EXPECT_EQ(value.Type(), VT_BSTR);
    XQPComVariant number(NumberValue(12));
    EXPECT_STREQ(number.GetString(), L"12");
    EXPECT_EQ(number.Type(), VT_I4);
}

TEST(QPComVariant, ReadsItsValueAsTextThatItOwns)
{
    XQPComVariant value(L"pump");
    EXPECT_EQ(value.GetString(), value.Value().bstrVal);
    XQPComVariant number(NumberValue(-12));
    EXPECT_STREQ(number.GetString(), L"-12");
    number = L"13";
    EXPECT_STREQ(number.GetString(), L"13");
}

TEST(QPComVariant, ReadsTheEmptyTextFromWhatHasNoText)
{
    CountedUnknown object;
    VARIANT nullText;
    VariantInit(&nullText);
    nullText.vt = VT_BSTR;
    for (const VARIANT& odd : {Null(), ObjectReference(&object), ObjectReference(nullptr), nullText})
    {
        XQPComVariant value(odd);
        ASSERT_NE(value.GetString(), nullptr);
        EXPECT_STREQ(value.GetString(), L"");
    }
    XQPComVariant given;
    *&given = nullText; // as a host gives it: a copy would be an empty text
    ASSERT_EQ(given.Value().bstrVal, nullptr);
    EXPECT_STREQ(given.GetString(), L"");
    XQPComVariant was(NumberValue(5));
    EXPECT_STREQ(was.GetString(), L"5");
    was = Null();
    EXPECT_STREQ(was.GetString(), L"") << "not the text of the value before";
}

TEST(QPComVariant, CopiesAValueThatCannotBeCopiedAsAnEmptyOne)
{
    VARIANT odd;
    VariantInit(&odd);
    odd.vt = 0x0fff;
    XQPComVariant value(L"before");
    value = odd;
    EXPECT_EQ(value.Type(), VT_EMPTY);
    EXPECT_EQ(XQPComVariant(odd).Type(), VT_EMPTY);
}
