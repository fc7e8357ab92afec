// Conversions between variant types.
#include "automationtest.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

namespace
{
// What a conversion gave, as text: the status if it failed, else the value.
std::wstring Value(const VARIANT& variant)
{
    switch (V_VT(&variant))
    {
    case VT_EMPTY:
        return L"empty";
    case VT_NULL:
        return L"null";
    case VT_I2:
        return std::to_wstring(V_I2(&variant));
    case VT_I4:
        return std::to_wstring(V_I4(&variant));
    case VT_INT:
        return std::to_wstring(V_INT(&variant));
    case VT_UI1:
        return std::to_wstring(V_UI1(&variant));
    case VT_UI4:
        return std::to_wstring(V_UI4(&variant));
    case VT_UINT:
        return std::to_wstring(V_UINT(&variant));
    case VT_BOOL:
        return std::to_wstring(V_BOOL(&variant));
    case VT_BSTR:
        return V_BSTR(&variant) ? L"'" + Content(V_BSTR(&variant)) + L"'" : L"(null)";
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return V_UNKNOWN(&variant) ? L"object" : L"null object";
    default:
        return L"type " + std::to_wstring(V_VT(&variant));
    }
}

std::wstring StatusName(HRESULT status)
{
    const std::pair<HRESULT, const wchar_t*> names[] = {{DISP_E_TYPEMISMATCH, L"mismatch"},
                                                        {DISP_E_OVERFLOW, L"overflow"},
                                                        {DISP_E_BADVARTYPE, L"bad type"},
                                                        {E_NOINTERFACE, L"no interface"},
                                                        {E_INVALIDARG, L"bad argument"}};
    for (const auto& [known, name] : names)
    {
        if (known == status)
            return name;
    }
    return L"status " + std::to_wstring(status);
}

std::wstring Changed(const VARIANT& source, VARTYPE type, USHORT flags = 0)
{
    CTestVariant target;
    VARIANT from = source;
    const HRESULT status = VariantChangeType(&target, &from, flags, type);
    if (status != S_OK)
        return StatusName(status);
    EXPECT_EQ(type, V_VT(&target));
    return Value(target);
}

double ChangedReal(const VARIANT& source, VARTYPE type)
{
    CTestVariant target;
    VARIANT from = source;
    EXPECT_EQ(S_OK, VariantChangeType(&target, &from, 0, type));
    EXPECT_EQ(type, V_VT(&target));
    return V_R8(&target);
}

std::wstring OfBstr(const wchar_t* text, VARTYPE type)
{
    return Changed(OfText(text), type);
}

std::wstring OfReal(double value, VARTYPE type)
{
    return Changed(OfR8(value), type);
}

CTestVariant Whole(VARTYPE type, LONG value)
{
    CTestVariant result = OfI4(value);
    V_VT(&result) = type;
    return result;
}

constexpr VARTYPE kNumbers[] = {VT_I2, VT_I4, VT_INT, VT_UI1, VT_UI4, VT_UINT};

// What a source becomes as I2, I4, INT, UI1, UI4, UINT, BOOL and BSTR.
struct Row
{
    const wchar_t* i2;
    const wchar_t* i4;
    const wchar_t* ui1;
    const wchar_t* ui4;
    const wchar_t* truth;
    const wchar_t* text;
};

void ExpectRow(const VARIANT& source, const Row& row)
{
    EXPECT_EQ(row.i2, Changed(source, VT_I2)) << Value(source);
    EXPECT_EQ(row.i4, Changed(source, VT_I4)) << Value(source);
    EXPECT_EQ(row.i4, Changed(source, VT_INT)) << Value(source);
    EXPECT_EQ(row.ui1, Changed(source, VT_UI1)) << Value(source);
    EXPECT_EQ(row.ui4, Changed(source, VT_UI4)) << Value(source);
    EXPECT_EQ(row.ui4, Changed(source, VT_UINT)) << Value(source);
    EXPECT_EQ(row.truth, Changed(source, VT_BOOL)) << Value(source);
    EXPECT_EQ(row.text, Changed(source, VT_BSTR)) << Value(source);
}
} // namespace

TEST(ChangeType, EmptyIsZeroAndEmptyText)
{
    CTestVariant empty;
    ExpectRow(empty, {L"0", L"0", L"0", L"0", L"0", L"''"});
    EXPECT_EQ(0.0, ChangedReal(empty, VT_R8));
    EXPECT_EQ(0.0, ChangedReal(empty, VT_DATE));
    EXPECT_EQ(L"empty", Changed(empty, VT_EMPTY));
    EXPECT_EQ(L"null", Changed(empty, VT_NULL));
    EXPECT_EQ(L"mismatch", Changed(empty, VT_UNKNOWN));
    EXPECT_EQ(L"mismatch", Changed(empty, VT_DISPATCH));
}

TEST(ChangeType, NullStaysNull)
{
    CTestVariant null = OfType(VT_NULL);
    EXPECT_EQ(L"null", Changed(null, VT_NULL));
    ExpectRow(null, {L"mismatch", L"mismatch", L"mismatch", L"mismatch", L"mismatch", L"mismatch"});
    for (const VARTYPE type : {VT_EMPTY, VT_R8, VT_DATE, VT_UNKNOWN, VT_DISPATCH})
        EXPECT_EQ(L"mismatch", Changed(null, type)) << type;
}

TEST(ChangeType, AnythingElseBecomesEmptyOrNull)
{
    CCountedObject object;
    for (const VARTYPE type : {VT_EMPTY, VT_NULL})
    {
        const wchar_t* expected = type == VT_EMPTY ? L"empty" : L"null";
        EXPECT_EQ(expected, Changed(OfI4(5), type));
        EXPECT_EQ(expected, Changed(OfR8(5), type));
        EXPECT_EQ(expected, Changed(OfBool(VARIANT_TRUE), type));
        EXPECT_EQ(expected, Changed(OfText(L"abc"), type));
        EXPECT_EQ(expected, Changed(OfR8(5, VT_DATE), type));
        EXPECT_EQ(expected, Changed(OfObject(&object), type));
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(ChangeType, WholeNumbers)
{
    ExpectRow(Whole(VT_I2, 0), {L"0", L"0", L"0", L"0", L"0", L"'0'"});
    ExpectRow(Whole(VT_I2, 255), {L"255", L"255", L"255", L"255", L"-1", L"'255'"});
    ExpectRow(Whole(VT_I2, 256), {L"256", L"256", L"overflow", L"256", L"-1", L"'256'"});
    ExpectRow(Whole(VT_I2, -1), {L"-1", L"-1", L"overflow", L"overflow", L"-1", L"'-1'"});
    ExpectRow(OfI4(32767), {L"32767", L"32767", L"overflow", L"32767", L"-1", L"'32767'"});
    ExpectRow(OfI4(32768), {L"overflow", L"32768", L"overflow", L"32768", L"-1", L"'32768'"});
    ExpectRow(OfI4(-32769), {L"overflow", L"-32769", L"overflow", L"4294934527", L"-1", L"'-32769'"});
    ExpectRow(OfI4(2147483647),
              {L"overflow", L"2147483647", L"overflow", L"2147483647", L"-1", L"'2147483647'"});
    ExpectRow(Whole(VT_INT, -7), {L"-7", L"-7", L"overflow", L"4294967289", L"-1", L"'-7'"});
    ExpectRow(Whole(VT_UI1, 200), {L"200", L"200", L"200", L"200", L"-1", L"'200'"});
    ExpectRow(Whole(VT_UI4, 7), {L"7", L"7", L"7", L"7", L"-1", L"'7'"});
    ExpectRow(Whole(VT_UI4, -1), {L"overflow", L"-1", L"overflow", L"4294967295", L"-1", L"'4294967295'"});
    ExpectRow(Whole(VT_UINT, 70000), {L"overflow", L"70000", L"overflow", L"70000", L"-1", L"'70000'"});
}

TEST(ChangeType, WholeNumbersAsRealOnes)
{
    EXPECT_EQ(-5.0, ChangedReal(OfI4(-5), VT_R8));
    EXPECT_EQ(4294967295.0, ChangedReal(Whole(VT_UI4, -1), VT_R8));
    EXPECT_EQ(-2.0, ChangedReal(Whole(VT_I2, -2), VT_R8));
    EXPECT_EQ(36526.0, ChangedReal(OfI4(36526), VT_DATE));
    EXPECT_EQ(-1.0, ChangedReal(OfBool(VARIANT_TRUE), VT_R8));
    EXPECT_EQ(L"overflow", Changed(OfI4(2147483647), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfI4(-700000), VT_DATE));
    EXPECT_EQ(2958465.0, ChangedReal(OfI4(2958465), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfI4(2958466), VT_DATE));
    EXPECT_EQ(-657434.0, ChangedReal(OfI4(-657434), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfI4(-657435), VT_DATE));
}

TEST(ChangeType, ARealNumberIsRoundedAndAHalfGoesToTheEvenOne)
{
    const std::pair<double, const wchar_t*> cases[] = {
        {0.0, L"0"},   {0.5, L"0"}, {1.5, L"2"}, {2.5, L"2"},   {-0.5, L"0"},    {-1.5, L"-2"},
        {-2.5, L"-2"}, {2.4, L"2"}, {2.6, L"3"}, {-0.6, L"-1"}, {254.5, L"254"}, {32766.5, L"32766"}};
    for (const auto& [value, expected] : cases)
    {
        EXPECT_EQ(expected, OfReal(value, VT_I2)) << value;
        EXPECT_EQ(expected, OfReal(value, VT_I4)) << value;
        EXPECT_EQ(expected, OfReal(value, VT_INT)) << value;
        EXPECT_EQ(expected, Changed(OfR8(value, VT_DATE), VT_I4)) << value;
    }
}

TEST(ChangeType, ARealNumberBeyondTheTypeOverflows)
{
    EXPECT_EQ(L"32767", OfReal(32767.4, VT_I2));
    EXPECT_EQ(L"overflow", OfReal(32767.5, VT_I2));
    EXPECT_EQ(L"-32768", OfReal(-32768.5, VT_I2));
    EXPECT_EQ(L"overflow", OfReal(-32768.6, VT_I2));
    EXPECT_EQ(L"2147483647", OfReal(2147483647.4, VT_I4));
    EXPECT_EQ(L"overflow", OfReal(2147483647.5, VT_I4));
    EXPECT_EQ(L"-2147483648", OfReal(-2147483648.5, VT_I4));
    EXPECT_EQ(L"overflow", OfReal(-2147483648.6, VT_I4));
    EXPECT_EQ(L"255", OfReal(255.4, VT_UI1));
    EXPECT_EQ(L"overflow", OfReal(255.5, VT_UI1));
    EXPECT_EQ(L"0", OfReal(-0.5, VT_UI1));
    EXPECT_EQ(L"overflow", OfReal(-0.6, VT_UI1));
    EXPECT_EQ(L"4294967295", OfReal(4294967295.4, VT_UI4));
    EXPECT_EQ(L"overflow", OfReal(4294967295.5, VT_UI4));
    EXPECT_EQ(L"overflow", OfReal(-1, VT_UI4));
    for (const VARTYPE type : kNumbers)
    {
        EXPECT_EQ(L"overflow", OfReal(1e10, type)) << type;
        EXPECT_EQ(L"overflow", OfReal(-1e300, type)) << type;
    }
}

TEST(ChangeType, ARealNumberIsTrueUnlessZero)
{
    EXPECT_EQ(L"0", OfReal(0, VT_BOOL));
    EXPECT_EQ(L"-1", OfReal(0.1, VT_BOOL));
    EXPECT_EQ(L"-1", OfReal(-5, VT_BOOL));
}

TEST(ChangeType, ARealNumberIsWrittenWithFifteenDigits)
{
    const std::pair<double, const wchar_t*> cases[] = {{0.0, L"'0'"},
                                                       {-0.0, L"'0'"},
                                                       {100.0, L"'100'"},
                                                       {1.5, L"'1.5'"},
                                                       {-2.5, L"'-2.5'"},
                                                       {0.1, L"'0.1'"},
                                                       {0.1 + 0.2, L"'0.3'"},
                                                       {1.0 / 3, L"'0.333333333333333'"},
                                                       {123456789.125, L"'123456789.125'"},
                                                       {0.0001, L"'0.0001'"},
                                                       {0.00001, L"'1E-05'"},
                                                       {0.00001234, L"'1.234E-05'"},
                                                       {1e14, L"'100000000000000'"},
                                                       {999999999999999.0, L"'999999999999999'"},
                                                       {1e15, L"'1E+15'"},
                                                       {1234567890123456.0, L"'1.23456789012346E+15'"},
                                                       {1e300, L"'1E+300'"},
                                                       {-1e-300, L"'-1E-300'"}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(expected, OfReal(value, VT_BSTR));
}

TEST(ChangeType, ARealNumberIsADateWithinTheCalendar)
{
    EXPECT_EQ(36526.25, ChangedReal(OfR8(36526.25), VT_DATE));
    EXPECT_EQ(36526.25, ChangedReal(OfR8(36526.25, VT_DATE), VT_R8));
    EXPECT_EQ(2958465.5, ChangedReal(OfR8(2958465.5), VT_DATE));
    EXPECT_EQ(-657434.5, ChangedReal(OfR8(-657434.5), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfR8(2958466), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfR8(-657435), VT_DATE));
    EXPECT_EQ(3e9, ChangedReal(OfR8(3e9, VT_DATE), VT_DATE));
}

TEST(ChangeType, TruthIsMinusOneUnlessAWordIsAskedFor)
{
    ExpectRow(OfBool(VARIANT_FALSE), {L"0", L"0", L"0", L"0", L"0", L"'0'"});
    ExpectRow(OfBool(VARIANT_TRUE), {L"-1", L"-1", L"255", L"4294967295", L"-1", L"'-1'"});
    for (const USHORT flag : {VARIANT_ALPHABOOL, VARIANT_LOCALBOOL})
    {
        EXPECT_EQ(L"'True'", Changed(OfBool(VARIANT_TRUE), VT_BSTR, flag));
        EXPECT_EQ(L"'False'", Changed(OfBool(VARIANT_FALSE), VT_BSTR, flag));
        EXPECT_EQ(L"'True'", Changed(OfBool(5), VT_BSTR, flag));
    }
}

TEST(ChangeType, TruthKeepsAnOddValue)
{
    EXPECT_EQ(L"5", Changed(OfBool(5), VT_BOOL));
    EXPECT_EQ(L"5", Changed(OfBool(5), VT_I4));
    EXPECT_EQ(L"'5'", Changed(OfBool(5), VT_BSTR));
}

TEST(ChangeType, TextThatIsAWholeNumber)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"0", L"0"},        {L"1", L"1"},        {L"-1", L"-1"},         {L"12", L"12"},
        {L"0012", L"12"},    {L"+12", L"12"},     {L" 12", L"12"},        {L"12 ", L"12"},
        {L" 12 ", L"12"},    {L"\t12", L"12"},    {L"12\r\n", L"12"},     {L"- 12", L"-12"},
        {L"12-", L"-12"},    {L"(12)", L"-12"},   {L"( 12 )", L"-12"},    {L"1,234", L"1234"},
        {L"12,34", L"1234"}, {L"5,", L"5"},       {L"$12", L"12"},        {L"12$", L"12"},
        {L"-$12", L"-12"},   {L"$-12", L"-12"},   {L"1e3", L"1000"},      {L"1E+3", L"1000"},
        {L"1e-3", L"0"},     {L"12.5e1", L"125"}, {L"12.4", L"12"},       {L"12.5", L"12"},
        {L"13.5", L"14"},    {L"-0.6", L"-1"},    {L".5", L"0"},          {L"5.", L"5"},
        {L"-0", L"0"},       {L"00", L"0"},       {L"&H10", L"16"},       {L"&hFF", L"255"},
        {L"&O17", L"15"},    {L" &H10 ", L"16"},  {L"$1,234.50", L"1234"}};
    for (const auto& [text, expected] : cases)
    {
        EXPECT_EQ(expected, OfBstr(text, VT_I4)) << text;
        EXPECT_EQ(expected, OfBstr(text, VT_INT)) << text;
        EXPECT_EQ(expected, OfBstr(text, VT_I2)) << text;
    }
}

TEST(ChangeType, TextThatIsNoNumberIsAMismatch)
{
    for (const wchar_t* text :
         {L"",    L" ",   L"abc",  L"12abc", L"12 34", L"1.5.2", L"--1", L".",    L"-",   L"+",
          L"1e",  L"1E+", L"1e 3", L".e3",   L"12%",   L"0x10",  L"&H",  L"&O8",  L"&",   L"(12",
          L"12)", L"()",  L"$",    L",5",    L"inf",   L"nan",   L"1d3", L"true", L"yes", L"1/2/2003"})
    {
        for (const VARTYPE type : kNumbers)
            EXPECT_EQ(L"mismatch", OfBstr(text, type)) << text;
        EXPECT_EQ(L"mismatch", OfBstr(text, VT_R8)) << text;
    }
    EXPECT_EQ(L"mismatch", OfBstr(nullptr, VT_I4));
    EXPECT_EQ(L"mismatch", OfBstr(nullptr, VT_BOOL));
    EXPECT_EQ(L"mismatch", OfBstr(nullptr, VT_R8));
    EXPECT_EQ(L"mismatch", OfBstr(nullptr, VT_DATE));
}

TEST(ChangeType, TextBeyondTheTypeOverflows)
{
    EXPECT_EQ(L"32767", OfBstr(L"32767", VT_I2));
    EXPECT_EQ(L"overflow", OfBstr(L"32768", VT_I2));
    EXPECT_EQ(L"-32768", OfBstr(L"-32768", VT_I2));
    EXPECT_EQ(L"2147483647", OfBstr(L"2147483647", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"2147483648", VT_I4));
    EXPECT_EQ(L"-2147483648", OfBstr(L"-2147483648", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"-2147483649", VT_I4));
    EXPECT_EQ(L"255", OfBstr(L"255", VT_UI1));
    EXPECT_EQ(L"overflow", OfBstr(L"256", VT_UI1));
    EXPECT_EQ(L"overflow", OfBstr(L"-1", VT_UI1));
    EXPECT_EQ(L"4294967295", OfBstr(L"4294967295", VT_UI4));
    EXPECT_EQ(L"overflow", OfBstr(L"4294967296", VT_UI4));
    EXPECT_EQ(L"overflow", OfBstr(L"-1", VT_UI4));
    EXPECT_EQ(L"overflow", OfBstr(L"1e400", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"1e400", VT_R8));
    EXPECT_EQ(L"overflow", OfBstr(L"1e400", VT_BOOL));
}

TEST(ChangeType, HexadecimalTextFillsASignedType)
{
    EXPECT_EQ(L"-1", OfBstr(L"&HFFFFFFFF", VT_I4));
    EXPECT_EQ(L"-1", OfBstr(L"&HFFFF", VT_I2));
    EXPECT_EQ(L"65535", OfBstr(L"&HFFFF", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"&HFFFFFFFF", VT_I2));
    EXPECT_EQ(L"overflow", OfBstr(L"&HFFFFFFFF", VT_R8));
    EXPECT_EQ(65535.0, ChangedReal(OfText(L"&HFFFF"), VT_R8));
}

TEST(ChangeType, TextThatIsARealNumber)
{
    const std::pair<const wchar_t*, double> cases[] = {{L"0", 0},
                                                       {L"12.5", 12.5},
                                                       {L"-12.25", -12.25},
                                                       {L" 12.5 ", 12.5},
                                                       {L"(12.5)", -12.5},
                                                       {L".5", 0.5},
                                                       {L"5.", 5},
                                                       {L"1e3", 1000},
                                                       {L"1.e3", 1000},
                                                       {L"1e-3", 0.001},
                                                       {L"1,2,3.5", 123.5},
                                                       {L"0.1", 0.1},
                                                       {L"1e-400", 0},
                                                       {L"$1,234.50", 1234.5},
                                                       {L"3.14159265358979", 3.14159265358979},
                                                       {L"123456789012345", 123456789012345.0}};
    for (const auto& [text, expected] : cases)
        EXPECT_DOUBLE_EQ(expected, ChangedReal(OfText(text), VT_R8)) << text;
}

TEST(ChangeType, TextIsReadUpToAZero)
{
    CTestVariant source;
    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = SysAllocStringLen(L"1\0x", 3);
    EXPECT_EQ(L"1", Changed(source, VT_I4));
}

TEST(ChangeType, TextThatSaysTrueOrFalse)
{
    for (const wchar_t* text : {L"True", L"true", L"TRUE", L"tRuE", L"#TRUE#", L"1", L"-1", L"0.1", L"12"})
        EXPECT_EQ(L"-1", OfBstr(text, VT_BOOL)) << text;
    for (const wchar_t* text :
         {L"False", L"false", L"FALSE", L"fAlSe", L"#FALSE#", L"0", L"00", L"0.0", L"-0"})
        EXPECT_EQ(L"0", OfBstr(text, VT_BOOL)) << text;
    for (const wchar_t* text :
         {L"", L" true", L"true ", L"#true#", L"yes", L"no", L"on", L"truest", L"tru", L"abc"})
        EXPECT_EQ(L"mismatch", OfBstr(text, VT_BOOL)) << text;
}

TEST(ChangeType, TextStaysTextAndNullBecomesEmpty)
{
    EXPECT_EQ(L"' abc '", OfBstr(L" abc ", VT_BSTR));
    EXPECT_EQ(L"''", OfBstr(L"", VT_BSTR));
    EXPECT_EQ(L"''", OfBstr(nullptr, VT_BSTR));
}

TEST(ChangeType, TextIsNoObject)
{
    EXPECT_EQ(L"mismatch", OfBstr(L"abc", VT_UNKNOWN));
    EXPECT_EQ(L"mismatch", OfBstr(L"", VT_DISPATCH));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_UNKNOWN));
    EXPECT_EQ(L"mismatch", Changed(OfR8(1), VT_DISPATCH));
    EXPECT_EQ(L"mismatch", Changed(OfBool(VARIANT_TRUE), VT_UNKNOWN));
}

TEST(ChangeType, ADateIsWrittenWithTheHalvesItHas)
{
    const std::pair<double, const wchar_t*> cases[] = {{0, L"'12:00:00 AM'"},
                                                       {0.5, L"'12:00:00 PM'"},
                                                       {-0.5, L"'12:00:00 PM'"},
                                                       {1.0 / 24, L"'1:00:00 AM'"},
                                                       {0.99999, L"'11:59:59 PM'"},
                                                       {1, L"'12/31/1899'"},
                                                       {-1, L"'12/29/1899'"},
                                                       {2, L"'1/1/1900'"},
                                                       {60, L"'2/28/1900'"},
                                                       {61, L"'3/1/1900'"},
                                                       {36526, L"'1/1/2000'"},
                                                       {36526.25, L"'1/1/2000 6:00:00 AM'"},
                                                       {36526.5, L"'1/1/2000 12:00:00 PM'"},
                                                       {36526.75, L"'1/1/2000 6:00:00 PM'"},
                                                       {36526.01, L"'1/1/2000 12:14:24 AM'"},
                                                       {-1.25, L"'12/29/1899 6:00:00 AM'"},
                                                       {-36526.25, L"'12/28/1799 6:00:00 AM'"},
                                                       {2958465, L"'12/31/9999'"},
                                                       {2958465.5, L"'12/31/9999 12:00:00 PM'"},
                                                       {-657434, L"'1/1/100'"}};
    for (const auto& [date, expected] : cases)
        EXPECT_EQ(expected, Changed(OfR8(date, VT_DATE), VT_BSTR)) << date;
}

TEST(ChangeType, ADateIsRoundedToTheSecond)
{
    EXPECT_EQ(L"'1/1/2000 12:00:29 PM'", Changed(OfR8(36526.5 + 29.4 / 86400, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"'1/1/2000 12:00:30 PM'", Changed(OfR8(36526.5 + 29.6 / 86400, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"'1/2/2000 12:00:00 AM'", Changed(OfR8(36526.99999999, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"'12:00:00 AM'", Changed(OfR8(0.9999999, VT_DATE), VT_BSTR));
}

TEST(ChangeType, ADateOutsideTheCalendarIsNotWritten)
{
    EXPECT_EQ(L"bad argument", Changed(OfR8(2958466, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"bad argument", Changed(OfR8(-657435, VT_DATE), VT_BSTR));
}

TEST(ChangeType, TextThatIsADate)
{
    const double afternoon = 15.0 / 24 + 4.0 / 1440;
    const std::pair<const wchar_t*, double> cases[] = {{L"1/2/2003", 37623},
                                                       {L" 1/2/2003 ", 37623},
                                                       {L"1-2-2003", 37623},
                                                       {L"1 / 2 / 2003", 37623},
                                                       {L"12/31/1999", 36525},
                                                       {L"2003-01-02", 37623},
                                                       {L"2003/1/2", 37623},
                                                       {L"2003/13/2", 37665},
                                                       {L"13/1/2003", 37634},
                                                       {L"31/12/1999", 36525},
                                                       {L"1/2/03", 37623},
                                                       {L"1/2/00", 36527},
                                                       {L"1/2/49", 54425},
                                                       {L"1/2/50", 18265},
                                                       {L"1/2/99", 36162},
                                                       {L"2/29/2004", 38046},
                                                       {L"12/31/9999", 2958465},
                                                       {L"1/1/100", -657434},
                                                       {L"1899-12-30", 0},
                                                       {L"Jan 2, 2003", 37623},
                                                       {L"January 2, 2003", 37623},
                                                       {L"jan 2 2003", 37623},
                                                       {L"2 January 2003", 37623},
                                                       {L"02-Jan-2003", 37623},
                                                       {L"31-Dec-1999", 36525},
                                                       {L"Mon 1/2/2003", 37623},
                                                       {L"15:04", afternoon},
                                                       {L"15.04", afternoon},
                                                       {L"15.4", afternoon},
                                                       {L"3:04 PM", afternoon},
                                                       {L"15:04:00 PM", afternoon},
                                                       {L"3 PM", 15.0 / 24},
                                                       {L"0:00", 0},
                                                       {L"12:00 AM", 0},
                                                       {L"12:00 PM", 0.5},
                                                       {L"12:30 am", 0.5 / 24},
                                                       {L"23:59:59", 86399.0 / 86400},
                                                       {L"1/2/2003 15:04", 37623 + afternoon},
                                                       {L"1/2/2003 3:04 pm", 37623 + afternoon},
                                                       {L"3:04:00 PM 1/2/2003", 37623 + afternoon},
                                                       {L"2003-01-02 15:04:00", 37623 + afternoon},
                                                       {L"12/29/1899 6:00 AM", -1.25}};
    for (const auto& [text, expected] : cases)
        EXPECT_DOUBLE_EQ(expected, ChangedReal(OfText(text), VT_DATE)) << text;
}

TEST(ChangeType, TextThatIsNoDateIsAMismatch)
{
    for (const wchar_t* text : {L"",
                                L" ",
                                L"abc",
                                L"2/30/2003",
                                L"2/29/2003",
                                L"13/13/2003",
                                L"0/1/2003",
                                L"1/0/2003",
                                L"1/32/2003",
                                L"12/31/99999",
                                L"24:00",
                                L"23:60",
                                L"23:59:60",
                                L"PM",
                                L"12",
                                L"12.",
                                L"1.2.2003",
                                L"12/31/1999 24:00",
                                L"1/2/2003 1/2/2003",
                                L"2003-01-02T03:04:05"})
        EXPECT_EQ(L"mismatch", OfBstr(text, VT_DATE)) << text;
}

TEST(ChangeType, AWrittenDateReadsAsItself)
{
    for (double date = -657434; date < 2958465; date += 100003.0 + 1.0 / 86400)
    {
        const double days = std::trunc(date);
        CTestVariant source = OfR8(days, VT_DATE);
        CTestVariant text;
        ASSERT_EQ(S_OK, VariantChangeType(&text, &source, 0, VT_BSTR));
        EXPECT_EQ(days, ChangedReal(text, VT_DATE)) << Content(V_BSTR(&text));
    }
}

TEST(ChangeType, AnObjectBecomesAnObjectOfTheOtherKind)
{
    CCountedObject object;
    {
        CTestVariant target;
        CTestVariant unknown = OfObject(&object);
        EXPECT_EQ(S_OK, VariantChangeType(&target, &unknown, 0, VT_UNKNOWN));
        EXPECT_EQ(3, object.m_references);
        EXPECT_EQ(S_OK, VariantChangeType(&target, &unknown, 0, VT_DISPATCH));
        EXPECT_EQ(VT_DISPATCH, V_VT(&target));
        EXPECT_EQ(3, object.m_references);
        CTestVariant dispatch = OfObject(&object, VT_DISPATCH);
        EXPECT_EQ(S_OK, VariantChangeType(&target, &dispatch, 0, VT_UNKNOWN));
        EXPECT_EQ(VT_UNKNOWN, V_VT(&target));
        EXPECT_EQ(4, object.m_references);
    }
    EXPECT_EQ(1, object.m_references);
}

TEST(ChangeType, AnObjectWithoutTheInterfaceSaysSo)
{
    CCountedObject object(false);
    EXPECT_EQ(L"no interface", Changed(OfObject(&object), VT_DISPATCH));
    EXPECT_EQ(1, object.m_references);
}

TEST(ChangeType, ANullObjectStaysNull)
{
    EXPECT_EQ(L"null object", Changed(OfObject(nullptr), VT_UNKNOWN));
    EXPECT_EQ(L"null object", Changed(OfObject(nullptr), VT_DISPATCH));
    EXPECT_EQ(L"null object", Changed(OfObject(nullptr, VT_DISPATCH), VT_UNKNOWN));
}

TEST(ChangeType, AnObjectIsNoValue)
{
    CCountedObject object;
    ExpectRow(OfObject(&object),
              {L"mismatch", L"mismatch", L"mismatch", L"mismatch", L"mismatch", L"mismatch"});
    ExpectRow(OfObject(nullptr),
              {L"mismatch", L"mismatch", L"mismatch", L"mismatch", L"mismatch", L"mismatch"});
    EXPECT_EQ(L"mismatch", Changed(OfObject(&object), VT_R8));
    EXPECT_EQ(L"mismatch", Changed(OfObject(&object), VT_DATE));
    EXPECT_EQ(0, object.m_calls);
}

TEST(ChangeType, AnAutomationObjectStandsForItsDefaultProperty)
{
    CCountedObject object;
    object.m_hasValue = true;
    CTestVariant source = OfObject(&object, VT_DISPATCH);
    ExpectRow(source, {L"42", L"42", L"42", L"42", L"-1", L"'42'"});
    EXPECT_EQ(42.0, ChangedReal(source, VT_R8));
    EXPECT_EQ(L"mismatch", Changed(source, VT_I4, VARIANT_NOVALUEPROP));
    object.m_hasValue = false;
    EXPECT_EQ(L"mismatch", Changed(source, VT_I4));
    EXPECT_EQ(L"bad type", Changed(OfObject(nullptr, VT_DISPATCH), VT_I4));
    EXPECT_EQ(2, object.m_references);
}

TEST(ChangeType, AnErrorIsNothingElse)
{
    CTestVariant error = Whole(VT_ERROR, static_cast<LONG>(DISP_E_PARAMNOTFOUND));
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I4, VT_R8, VT_BOOL, VT_BSTR, VT_DATE, VT_UNKNOWN})
        EXPECT_EQ(L"mismatch", Changed(error, type)) << type;
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantChangeType(&target, &error, 0, VT_ERROR));
    EXPECT_EQ(DISP_E_PARAMNOTFOUND, V_ERROR(&target));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_ERROR));
}

TEST(ChangeType, AnArrayStaysTheArrayItIs)
{
    CTestVariant source;
    V_VT(&source) = VT_ARRAY | VT_I4;
    V_ARRAY(&source) = SafeArrayCreateVector(VT_I4, 0, 2);
    CTestVariant target;
    EXPECT_EQ(S_OK, VariantChangeType(&target, &source, 0, VT_ARRAY | VT_I4));
    EXPECT_EQ(VT_ARRAY | VT_I4, V_VT(&target));
    EXPECT_NE(V_ARRAY(&source), V_ARRAY(&target));
    EXPECT_EQ(L"mismatch", Changed(source, VT_ARRAY | VT_VARIANT));
    EXPECT_EQ(L"mismatch", Changed(source, VT_I4));
    EXPECT_EQ(L"mismatch", Changed(source, VT_BSTR));
    EXPECT_EQ(L"mismatch", Changed(source, VT_EMPTY));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_ARRAY | VT_I4));
}

TEST(ChangeType, RefusesTypesThatNoVariantHas)
{
    for (const VARTYPE type :
         {static_cast<VARTYPE>(15), static_cast<VARTYPE>(99), static_cast<VARTYPE>(VT_CLSID)})
        EXPECT_EQ(L"bad type", Changed(OfI4(1), type)) << type;
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_VARIANT));
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_BYREF | VT_I4));
    VARIANT bad;
    VariantInit(&bad);
    V_VT(&bad) = 99;
    EXPECT_EQ(L"bad type", Changed(bad, VT_I4));
    CTestVariant source = OfI4(1);
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantChangeType(&bad, &source, 0, VT_BSTR));
    EXPECT_EQ(99, V_VT(&bad));
}

TEST(ChangeType, LooksThroughReferences)
{
    LONG value = 7;
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_BYREF | VT_I4;
    V_I4REF(&source) = &value;
    EXPECT_EQ(L"'7'", Changed(source, VT_BSTR));
    EXPECT_EQ(L"7", Changed(source, VT_I4));
    CTestVariant inner = OfText(L"33");
    V_VT(&source) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&source) = &inner;
    EXPECT_EQ(L"33", Changed(source, VT_I4));
}

TEST(ChangeType, WorksInPlace)
{
    CTestVariant variant = OfText(L"12");
    EXPECT_EQ(S_OK, VariantChangeType(&variant, &variant, 0, VT_I4));
    EXPECT_EQ(VT_I4, V_VT(&variant));
    EXPECT_EQ(12, V_I4(&variant));
    EXPECT_EQ(S_OK, VariantChangeType(&variant, &variant, 0, VT_BSTR));
    EXPECT_EQ(L"12", Content(V_BSTR(&variant)));
}

TEST(ChangeType, AFailureLeavesTheTargetAsItWas)
{
    CTestVariant target = OfText(L"old");
    CTestVariant source = OfText(L"abc");
    EXPECT_EQ(DISP_E_TYPEMISMATCH, VariantChangeType(&target, &source, 0, VT_I4));
    EXPECT_EQ(VT_BSTR, V_VT(&target));
    EXPECT_EQ(L"old", Content(V_BSTR(&target)));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, VariantChangeType(&source, &source, 0, VT_I4));
    EXPECT_EQ(VT_BSTR, V_VT(&source));
    EXPECT_EQ(L"abc", Content(V_BSTR(&source)));
}

TEST(ChangeType, ASuccessClearsTheTargetFirst)
{
    CCountedObject object;
    CTestVariant target = OfObject(&object);
    CTestVariant source = OfI4(1);
    EXPECT_EQ(S_OK, VariantChangeTypeEx(&target, &source, 0x409, 0, VT_R8));
    EXPECT_EQ(1, object.m_references);
    EXPECT_EQ(1.0, V_R8(&target));
}

TEST(VariantTime, IsDaysSinceTheEndOf1899)
{
    struct Case
    {
        SYSTEMTIME time;
        double expected;
    };
    const Case cases[] = {{{1899, 12, 0, 30, 0, 0, 0, 0}, 0},
                          {{1899, 12, 0, 30, 6, 0, 0, 0}, 0.25},
                          {{1899, 12, 0, 29, 6, 0, 0, 0}, -1.25},
                          {{2000, 1, 0, 1, 0, 0, 0, 0}, 36526},
                          {{2003, 1, 0, 2, 3, 4, 5, 678}, 37623.127835648149},
                          {{2000, 2, 0, 29, 0, 0, 0, 0}, 36585},
                          {{9999, 12, 0, 31, 0, 0, 0, 0}, 2958465},
                          {{49, 1, 0, 1, 0, 0, 0, 0}, 54424},
                          {{50, 1, 0, 1, 0, 0, 0, 0}, 18264},
                          {{2003, 2, 0, 30, 0, 0, 0, 0}, 37682},
                          {{2003, 1, 0, 1, 24, 0, 0, 0}, 37623}};
    for (const Case& one : cases)
    {
        SYSTEMTIME time = one.time;
        double date = -5;
        EXPECT_TRUE(SystemTimeToVariantTime(&time, &date));
        EXPECT_DOUBLE_EQ(one.expected, date) << time.wYear << ' ' << time.wMonth << ' ' << time.wDay;
    }
}

TEST(VariantTime, RefusesWhatIsNoDate)
{
    for (SYSTEMTIME time : {SYSTEMTIME{2003, 13, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{2003, 1, 0, 32, 0, 0, 0, 0},
                            SYSTEMTIME{10000, 1, 0, 1, 0, 0, 0, 0}})
    {
        double date = 0;
        EXPECT_FALSE(SystemTimeToVariantTime(&time, &date))
            << time.wYear << ' ' << time.wMonth << ' ' << time.wDay;
    }
    SYSTEMTIME time{};
    EXPECT_FALSE(VariantTimeToSystemTime(-657435, &time));
    EXPECT_FALSE(VariantTimeToSystemTime(2958466, &time));
}

TEST(VariantTime, GivesTheCalendarBack)
{
    SYSTEMTIME time{};
    EXPECT_TRUE(VariantTimeToSystemTime(37623.62783564815, &time));
    EXPECT_EQ(2003, time.wYear);
    EXPECT_EQ(1, time.wMonth);
    EXPECT_EQ(2, time.wDay);
    EXPECT_EQ(4, time.wDayOfWeek);
    EXPECT_EQ(15, time.wHour);
    EXPECT_EQ(4, time.wMinute);
    EXPECT_EQ(5, time.wSecond);
    EXPECT_EQ(0, time.wMilliseconds);
    EXPECT_TRUE(VariantTimeToSystemTime(-36526.25, &time));
    EXPECT_EQ(1799, time.wYear);
    EXPECT_EQ(12, time.wMonth);
    EXPECT_EQ(28, time.wDay);
    EXPECT_EQ(6, time.wDayOfWeek);
    EXPECT_EQ(6, time.wHour);
}
