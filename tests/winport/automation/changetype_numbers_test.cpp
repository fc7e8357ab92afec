// Conversions from numbers and truth values.
#include "ChangeTypeTest.h"

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
    ExpectRow(OfWhole(VT_I2, 0), {L"0", L"0", L"0", L"0", L"0", L"'0'"});
    ExpectRow(OfWhole(VT_I2, 255), {L"255", L"255", L"255", L"255", L"-1", L"'255'"});
    ExpectRow(OfWhole(VT_I2, 256), {L"256", L"256", L"overflow", L"256", L"-1", L"'256'"});
    ExpectRow(OfWhole(VT_I2, -1), {L"-1", L"-1", L"overflow", L"overflow", L"-1", L"'-1'"});
    ExpectRow(OfI4(32767), {L"32767", L"32767", L"overflow", L"32767", L"-1", L"'32767'"});
    ExpectRow(OfI4(32768), {L"overflow", L"32768", L"overflow", L"32768", L"-1", L"'32768'"});
    ExpectRow(OfI4(-32769), {L"overflow", L"-32769", L"overflow", L"4294934527", L"-1", L"'-32769'"});
    ExpectRow(OfI4(2147483647),
              {L"overflow", L"2147483647", L"overflow", L"2147483647", L"-1", L"'2147483647'"});
    ExpectRow(OfWhole(VT_INT, -7), {L"-7", L"-7", L"overflow", L"4294967289", L"-1", L"'-7'"});
    ExpectRow(OfWhole(VT_UI1, 200), {L"200", L"200", L"200", L"200", L"-1", L"'200'"});
    ExpectRow(OfWhole(VT_UI4, 7), {L"7", L"7", L"7", L"7", L"-1", L"'7'"});
    ExpectRow(OfWhole(VT_UI4, -1), {L"overflow", L"-1", L"overflow", L"4294967295", L"-1", L"'4294967295'"});
    ExpectRow(OfWhole(VT_UINT, 70000), {L"overflow", L"70000", L"overflow", L"70000", L"-1", L"'70000'"});
}

TEST(ChangeType, WholeNumbersAsRealOnes)
{
    EXPECT_EQ(-5.0, ChangedReal(OfI4(-5), VT_R8));
    EXPECT_EQ(4294967295.0, ChangedReal(OfWhole(VT_UI4, -1), VT_R8));
    EXPECT_EQ(-2.0, ChangedReal(OfWhole(VT_I2, -2), VT_R8));
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
