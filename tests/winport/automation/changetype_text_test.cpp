// Conversions from text.
#include "ChangeTypeTest.h"

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
    }
    EXPECT_EQ(L"mismatch", OfBstr(nullptr, VT_I4));
    EXPECT_EQ(L"mismatch", OfBstr(nullptr, VT_BOOL));
}

TEST(ChangeType, TextBeyondTheTypeOverflows)
{
    EXPECT_EQ(L"2147483647", OfBstr(L"2147483647", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"2147483648", VT_I4));
    EXPECT_EQ(L"-2147483648", OfBstr(L"-2147483648", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"-2147483649", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"1e400", VT_I4));
    EXPECT_EQ(L"overflow", OfBstr(L"1e400", VT_BOOL));
}

TEST(ChangeType, HexadecimalTextFillsASignedType)
{
    EXPECT_EQ(L"-1", OfBstr(L"&HFFFFFFFF", VT_I4));
    EXPECT_EQ(L"65535", OfBstr(L"&HFFFF", VT_I4));
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
    EXPECT_EQ(L"mismatch", Changed(OfI4(1), VT_UNKNOWN));
    EXPECT_EQ(L"mismatch", Changed(OfBool(VARIANT_TRUE), VT_UNKNOWN));
}
