// The order of values and of names.
#include "AutomationTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace
{
constexpr LCID kUserLocale = 0x400;

HRESULT CompareNames(const std::wstring& left, const std::wstring& right, ULONG flags = 0,
                     LCID lcid = kUserLocale)
{
    const CTestText a(left.c_str(), static_cast<UINT>(left.size()));
    const CTestText b(right.c_str(), static_cast<UINT>(right.size()));
    return VarBstrCmp(a, b, lcid, flags);
}

HRESULT Mirrored(HRESULT result)
{
    return result == VARCMP_LT ? VARCMP_GT : result == VARCMP_GT ? VARCMP_LT : result;
}

void ExpectAscending(const std::vector<std::wstring>& names, ULONG flags = 0, LCID lcid = kUserLocale)
{
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        for (std::size_t j = 0; j < names.size(); ++j)
        {
            const HRESULT expected = i < j ? VARCMP_LT : i > j ? VARCMP_GT : VARCMP_EQ;
            EXPECT_EQ(expected, CompareNames(names[i], names[j], flags, lcid))
                << "'" << names[i] << "' '" << names[j] << "'";
        }
    }
}

HRESULT Compare(const VARIANT& left, const VARIANT& right)
{
    VARIANT a = left;
    VARIANT b = right;
    return VarCmp(&a, &b, kUserLocale, 0);
}

// Both ways round.
void ExpectOrder(HRESULT expected, const VARIANT& left, const VARIANT& right)
{
    EXPECT_EQ(expected, Compare(left, right));
    EXPECT_EQ(Mirrored(expected), Compare(right, left));
}

CTestVariant Whole(VARTYPE type, LONG value)
{
    CTestVariant result = OfI4(value);
    V_VT(&result) = type;
    return result;
}
} // namespace

TEST(NameOrder, DigitsThenLettersAndLowerCaseFirstOnATie)
{
    ExpectAscending({L"",   L"0",    L"1",    L"10",   L"11",    L"1a",    L"2",     L"9",    L"a",
                     L"A",  L"a1",   L"A1",   L"aa",   L"aA",    L"Aa",    L"AA",    L"ab",   L"aB",
                     L"Ab", L"AB",   L"abc",  L"abC",  L"aBc",   L"ABC",   L"abcd",  L"ABCD", L"b",
                     L"B",  L"copy", L"Copy", L"COPY", L"copya", L"CopyB", L"copyc", L"z",    L"Z"});
}

TEST(NameOrder, EveryLetterLiesBetweenItsNeighbours)
{
    std::vector<std::wstring> names;
    for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
        names.push_back({digit});
    for (wchar_t letter = L'a'; letter <= L'z'; ++letter)
    {
        names.push_back({letter});
        names.push_back({static_cast<wchar_t>(letter - L'a' + L'A')});
    }
    ExpectAscending(names);
}

TEST(NameOrder, ALaterLetterOutweighsAnEarlierCase)
{
    ExpectAscending({L"Aa", L"aB", L"AC", L"ad"});
    ExpectAscending({L"name one", L"Name one", L"name two", L"Name two"});
}

TEST(NameOrder, AShorterNameComesBeforeALongerOneThatBeginsWithIt)
{
    ExpectAscending({L"plan", L"Plan", L"plan ", L"plan 2", L"plan2", L"plana"});
}

TEST(NameOrder, PunctuationComesBeforeDigits)
{
    ExpectAscending({L" ", L"!", L"\"", L"#", L"$", L"%", L"&", L"(",  L")", L"*", L",",
                     L".", L"/", L":",  L";", L"?", L"@", L"[", L"\\", L"]", L"^", L"_",
                     L"`", L"{", L"|",  L"}", L"~", L"+", L"<", L"=",  L">", L"0", L"a"});
    ExpectAscending(
        {L"name  1", L"name (1)", L"name 1", L"name 2", L"name.1", L"name_1", L"name1", L"namea"});
}

TEST(NameOrder, HyphenAndApostropheCountLast)
{
    ExpectAscending({L"coop", L"co-op", L"Coop", L"CO-OP", L"coos", L"co-ot"});
    ExpectAscending({L"aa", L"a'a", L"a-a", L"ab", L"a'b", L"a-b"});
    ExpectAscending({L"'", L"-", L" ", L"a", L"A", L"-A"});
    ExpectAscending({L"ab", L"ab'", L"ab-", L"a'b", L"a-b", L"a-b-"});
}

TEST(NameOrder, StringSortCountsHyphenAndApostropheAsPunctuation)
{
    ExpectAscending({L"'", L"-", L" ", L"a'b", L"a-b", L"a b", L"aa", L"ab", L"co-os", L"coop"},
                    SORT_STRINGSORT);
}

TEST(NameOrder, ControlCharactersAreMinor)
{
    ExpectAscending({L"aa", L"ab",
                     L"a\x01"
                     L"b",
                     L"a\x1f"
                     L"b",
                     L"a'b", L"ac"});
}

TEST(NameOrder, ZerosInsideAreComparedBeyond)
{
    EXPECT_EQ(VARCMP_LT, CompareNames(std::wstring(L"a\0b", 3), std::wstring(L"a\0c", 3)));
    EXPECT_EQ(VARCMP_GT, CompareNames(std::wstring(L"a\0b", 3), L"a"));
    EXPECT_EQ(VARCMP_EQ, CompareNames(std::wstring(L"a\0b", 3), L"ab"));
}

TEST(NameOrder, IgnoresCaseIfAsked)
{
    EXPECT_EQ(VARCMP_EQ, CompareNames(L"abc", L"ABC", NORM_IGNORECASE));
    EXPECT_EQ(VARCMP_EQ, CompareNames(L"Z9", L"z9", NORM_IGNORECASE));
    EXPECT_EQ(VARCMP_LT, CompareNames(L"ABC", L"abd", NORM_IGNORECASE));
    EXPECT_EQ(VARCMP_GT, CompareNames(L"ABD", L"abc", NORM_IGNORECASE));
    EXPECT_EQ(VARCMP_GT, CompareNames(L"A-B", L"ab", NORM_IGNORECASE));
    EXPECT_EQ(VARCMP_EQ, CompareNames(L"a-", L"A-", NORM_IGNORECASE));
}

TEST(NameOrder, NullEqualsEmptyAndComesFirst)
{
    const CTestText empty(L"");
    const CTestText name(L"a");
    EXPECT_EQ(VARCMP_EQ, VarBstrCmp(nullptr, nullptr, kUserLocale, 0));
    EXPECT_EQ(VARCMP_EQ, VarBstrCmp(nullptr, empty, kUserLocale, 0));
    EXPECT_EQ(VARCMP_EQ, VarBstrCmp(empty, nullptr, kUserLocale, 0));
    EXPECT_EQ(VARCMP_LT, VarBstrCmp(nullptr, name, kUserLocale, 0));
    EXPECT_EQ(VARCMP_GT, VarBstrCmp(name, nullptr, kUserLocale, 0));
    EXPECT_EQ(VARCMP_LT, VarBstrCmp(empty, name, kUserLocale, 0));
}

TEST(NameOrder, WithoutALocaleGoesByCharacterValues)
{
    ExpectAscending({L"", L" ", L"-", L"1", L"10", L"9", L"A", L"AB", L"B", L"_", L"a", L"ab", L"b"}, 0, 0);
}

TEST(NameOrder, IsTheSameInAnyNamedLocaleOfThisTest)
{
    EXPECT_EQ(VARCMP_LT, CompareNames(L"abc", L"ABC", 0, 0x409));
    EXPECT_EQ(VARCMP_LT, CompareNames(L"a", L"B", 0, 0x409));
}

TEST(NameOrder, IsTransitiveOverManyNames)
{
    const std::wstring characters = L"aAbB1_-'. ";
    std::vector<std::wstring> names;
    for (const wchar_t first : characters)
    {
        for (const wchar_t second : characters)
            names.push_back({first, second});
    }
    std::stable_sort(names.begin(), names.end(), [](const std::wstring& left, const std::wstring& right) {
        return CompareNames(left, right) == VARCMP_LT;
    });
    ExpectAscending(names);
}

TEST(ValueOrder, NumbersCompareByValueAcrossTypes)
{
    CTestVariant five = OfI4(5);
    ExpectOrder(VARCMP_EQ, five, OfI4(5));
    ExpectOrder(VARCMP_LT, OfI4(-1), five);
    ExpectOrder(VARCMP_EQ, five, Whole(VT_I2, 5));
    ExpectOrder(VARCMP_EQ, five, Whole(VT_UI1, 5));
    ExpectOrder(VARCMP_EQ, five, OfR8(5));
    ExpectOrder(VARCMP_GT, five, OfR8(4.5));
    ExpectOrder(VARCMP_LT, five, OfR8(5.5));
    ExpectOrder(VARCMP_EQ, five, OfR8(5, VT_DATE));
    ExpectOrder(VARCMP_LT, OfR8(4.5), OfR8(5, VT_DATE));
    ExpectOrder(VARCMP_LT, Whole(VT_I2, -1), Whole(VT_UI1, 5));
}

TEST(ValueOrder, TrueIsMinusOne)
{
    ExpectOrder(VARCMP_EQ, OfBool(VARIANT_TRUE), OfI4(-1));
    ExpectOrder(VARCMP_LT, OfBool(VARIANT_TRUE), OfBool(VARIANT_FALSE));
    ExpectOrder(VARCMP_EQ, OfBool(VARIANT_FALSE), OfI4(0));
    ExpectOrder(VARCMP_EQ, OfBool(VARIANT_TRUE), OfBool(VARIANT_TRUE));
    ExpectOrder(VARCMP_EQ, OfBool(VARIANT_TRUE), OfR8(-1));
}

TEST(ValueOrder, TheMachinesIntegerIsKnownOnTheLeftOnly)
{
    EXPECT_EQ(VARCMP_EQ, Compare(Whole(VT_INT, 5), OfI4(5)));
    EXPECT_EQ(VARCMP_GT, Compare(Whole(VT_INT, 5), OfR8(4.5)));
    EXPECT_EQ(VARCMP_LT, Compare(Whole(VT_INT, 5), OfText(L"1")));
    EXPECT_EQ(VARCMP_NULL, Compare(Whole(VT_INT, 5), OfType(VT_NULL)));
    EXPECT_EQ(DISP_E_BADVARTYPE, Compare(OfI4(5), Whole(VT_INT, 5)));
    EXPECT_EQ(DISP_E_BADVARTYPE, Compare(Whole(VT_INT, 5), Whole(VT_INT, 5)));
}

TEST(ValueOrder, EmptyEqualsZeroAndEmptyText)
{
    CTestVariant empty;
    ExpectOrder(VARCMP_EQ, empty, OfType(VT_EMPTY));
    ExpectOrder(VARCMP_EQ, empty, OfI4(0));
    ExpectOrder(VARCMP_LT, empty, OfI4(1));
    ExpectOrder(VARCMP_GT, empty, OfI4(-1));
    ExpectOrder(VARCMP_EQ, empty, OfR8(0));
    ExpectOrder(VARCMP_EQ, empty, OfBool(VARIANT_FALSE));
    ExpectOrder(VARCMP_EQ, empty, OfText(L""));
    ExpectOrder(VARCMP_EQ, empty, OfText(nullptr));
    ExpectOrder(VARCMP_LT, empty, OfText(L"0"));
}

TEST(ValueOrder, NullIsNeitherLessNorEqualNorGreater)
{
    CTestVariant null = OfType(VT_NULL);
    ExpectOrder(VARCMP_NULL, null, OfType(VT_NULL));
    ExpectOrder(VARCMP_NULL, null, OfType(VT_EMPTY));
    ExpectOrder(VARCMP_NULL, null, OfI4(0));
    ExpectOrder(VARCMP_NULL, null, OfText(L"a"));
}

TEST(ValueOrder, TextComparesAsNames)
{
    ExpectOrder(VARCMP_LT, OfText(L"abc"), OfText(L"ABC"));
    ExpectOrder(VARCMP_LT, OfText(L"a"), OfText(L"B"));
    ExpectOrder(VARCMP_LT, OfText(L"10"), OfText(L"9"));
    ExpectOrder(VARCMP_EQ, OfText(L"same"), OfText(L"same"));
    ExpectOrder(VARCMP_EQ, OfText(nullptr), OfText(L""));
    CTestVariant lower = OfText(L"abc");
    CTestVariant upper = OfText(L"ABC");
    EXPECT_EQ(VARCMP_EQ, VarCmp(&lower, &upper, kUserLocale, NORM_IGNORECASE));
}

TEST(ValueOrder, TextComesAfterAnyNumber)
{
    CTestVariant text = OfText(L"5");
    ExpectOrder(VARCMP_GT, text, OfI4(5));
    ExpectOrder(VARCMP_GT, text, OfI4(100));
    ExpectOrder(VARCMP_GT, text, OfR8(5.5));
    ExpectOrder(VARCMP_GT, text, OfBool(VARIANT_TRUE));
    ExpectOrder(VARCMP_GT, text, OfR8(5, VT_DATE));
    ExpectOrder(VARCMP_GT, OfText(L""), OfI4(5));
}

TEST(ValueOrder, ObjectsAndSomeUnsignedNumbersHaveNone)
{
    CCountedObject object;
    CTestVariant unknown = OfObject(&object);
    ExpectOrder(DISP_E_TYPEMISMATCH, unknown, unknown);
    ExpectOrder(DISP_E_TYPEMISMATCH, unknown, OfI4(1));
    ExpectOrder(DISP_E_TYPEMISMATCH, unknown, OfType(VT_NULL));
    ExpectOrder(DISP_E_TYPEMISMATCH, unknown, OfType(VT_EMPTY));
    ExpectOrder(DISP_E_TYPEMISMATCH, OfObject(&object, VT_DISPATCH), OfText(L"a"));
    ExpectOrder(DISP_E_TYPEMISMATCH, Whole(VT_UI4, 5), OfI4(5));
    ExpectOrder(DISP_E_TYPEMISMATCH, Whole(VT_UI2, 5), Whole(VT_UI2, 5));
    ExpectOrder(DISP_E_TYPEMISMATCH, Whole(VT_ERROR, 5), OfI4(5));
    EXPECT_EQ(2, object.m_references);
}

TEST(ValueOrder, RefusesArraysReferencesAndUnknownTypes)
{
    LONG value = 5;
    VARIANT reference;
    VariantInit(&reference);
    V_VT(&reference) = VT_BYREF | VT_I4;
    V_I4REF(&reference) = &value;
    ExpectOrder(DISP_E_BADVARTYPE, reference, OfI4(5));
    VARIANT array;
    VariantInit(&array);
    V_VT(&array) = VT_ARRAY | VT_I4;
    ExpectOrder(DISP_E_BADVARTYPE, array, OfI4(5));
    VARIANT odd;
    VariantInit(&odd);
    V_VT(&odd) = 99;
    ExpectOrder(DISP_E_BADVARTYPE, odd, OfType(VT_NULL));
    ExpectOrder(DISP_E_BADVARTYPE, Whole(VT_UINT, 5), OfI4(5));
}
