// Conversions from numbers and truth values.
#include "ChangeTypeTest.h"

TEST(ChangeType, EmptyIsZeroAndEmptyText)
{
    CTestVariant empty;
    ExpectRow(empty, {L"0", L"0", L"''"});
    EXPECT_EQ(L"mismatch", Changed(empty, VT_UNKNOWN));
}

TEST(ChangeType, NullStaysNull)
{
    CTestVariant null = OfType(VT_NULL);
    EXPECT_EQ(L"null", Changed(null, VT_NULL));
    ExpectRow(null, {L"mismatch", L"mismatch", L"mismatch"});
    EXPECT_EQ(L"mismatch", Changed(null, VT_UNKNOWN));
}

TEST(ChangeType, WholeNumbers)
{
    ExpectRow(OfWhole(VT_I2, 0), {L"0", L"0", L"'0'"});
    ExpectRow(OfWhole(VT_I2, 255), {L"255", L"-1", L"'255'"});
    ExpectRow(OfWhole(VT_I2, 256), {L"256", L"-1", L"'256'"});
    ExpectRow(OfWhole(VT_I2, -1), {L"-1", L"-1", L"'-1'"});
    ExpectRow(OfI4(32767), {L"32767", L"-1", L"'32767'"});
    ExpectRow(OfI4(32768), {L"32768", L"-1", L"'32768'"});
    ExpectRow(OfI4(-32769), {L"-32769", L"-1", L"'-32769'"});
    ExpectRow(OfI4(2147483647), {L"2147483647", L"-1", L"'2147483647'"});
    ExpectRow(OfWhole(VT_INT, -7), {L"-7", L"-1", L"'-7'"});
    ExpectRow(OfWhole(VT_UI1, 200), {L"200", L"-1", L"'200'"});
    ExpectRow(OfWhole(VT_UI4, 7), {L"7", L"-1", L"'7'"});
    ExpectRow(OfWhole(VT_UI4, -1), {L"-1", L"-1", L"'4294967295'"});
    ExpectRow(OfWhole(VT_UINT, 70000), {L"70000", L"-1", L"'70000'"});
}

TEST(ChangeType, ARealNumberIsRoundedAndAHalfToEven)
{
    const std::pair<double, const wchar_t*> cases[] = {
        {0.0, L"0"},   {0.5, L"0"}, {1.5, L"2"}, {2.5, L"2"},   {-0.5, L"0"},    {-1.5, L"-2"},
        {-2.5, L"-2"}, {2.4, L"2"}, {2.6, L"3"}, {-0.6, L"-1"}, {254.5, L"254"}, {32766.5, L"32766"}};
    for (const auto& [value, expected] : cases)
    {
        EXPECT_EQ(expected, OfReal(value, VT_I4)) << value;
        EXPECT_EQ(expected, OfReal(value, VT_INT)) << value;
        EXPECT_EQ(expected, Changed(OfR8(value, VT_DATE), VT_I4)) << value;
    }
}

TEST(ChangeType, ARealNumberBeyondTheTypeOverflows)
{
    EXPECT_EQ(L"2147483647", OfReal(2147483647.4, VT_I4));
    EXPECT_EQ(L"overflow", OfReal(2147483647.5, VT_I4));
    EXPECT_EQ(L"-2147483648", OfReal(-2147483648.5, VT_I4));
    EXPECT_EQ(L"overflow", OfReal(-2147483648.6, VT_I4));
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

TEST(ChangeType, TruthIsMinusOne)
{
    ExpectRow(OfBool(VARIANT_FALSE), {L"0", L"0", L"'0'"});
    ExpectRow(OfBool(VARIANT_TRUE), {L"-1", L"-1", L"'-1'"});
}

TEST(ChangeType, TruthKeepsAnOddValue)
{
    EXPECT_EQ(L"5", Changed(OfBool(5), VT_BOOL));
    EXPECT_EQ(L"5", Changed(OfBool(5), VT_I4));
    EXPECT_EQ(L"'5'", Changed(OfBool(5), VT_BSTR));
}
