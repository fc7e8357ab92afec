// Linguistic order and characters of two units, which only the system's own automation supports.
#include "AutomationTest.h"

#include <gtest/gtest.h>

namespace
{
HRESULT CompareNames(const wchar_t* left, const wchar_t* right, ULONG flags = 0)
{
    const CTestText a(left);
    const CTestText b(right);
    return VarBstrCmp(a, b, 0x400, flags);
}
} // namespace

TEST(WindowsOnly_NameOrder, AnAccentCountsAfterTheLettersAndBeforeTheCase)
{
    EXPECT_EQ(VARCMP_LT, CompareNames(L"e", L"\u00e9"));
    EXPECT_EQ(VARCMP_LT, CompareNames(L"\u00e9", L"f"));
    EXPECT_EQ(VARCMP_LT, CompareNames(L"caf\u00e9", L"cafes"));
    EXPECT_EQ(VARCMP_LT, CompareNames(L"E", L"\u00e9"));
}

TEST(WindowsOnly_NameOrder, AComposedLetterEqualsItsParts)
{
    EXPECT_EQ(VARCMP_EQ, CompareNames(L"\u00e9", L"e\u0301"));
}

TEST(WindowsOnly_NameOrder, CaseReachesBeyondAscii)
{
    EXPECT_EQ(VARCMP_LT, CompareNames(L"\u00e4", L"\u00c4"));
    EXPECT_EQ(VARCMP_EQ, CompareNames(L"\u00e4", L"\u00c4", NORM_IGNORECASE));
}

TEST(WindowsOnly_NameOrder, OtherScriptsFollowLatin)
{
    EXPECT_EQ(VARCMP_LT, CompareNames(L"z", L"\u03b1"));
    EXPECT_EQ(VARCMP_LT, CompareNames(L"\u03b1", L"\u0430"));
}

TEST(WindowsOnly_Bstr, ACharacterBeyondTheBasicPlaneHasTwoUnits)
{
    const CTestText text(L"\U0001F600");
    EXPECT_EQ(2u, SysStringLen(text));
    EXPECT_EQ(4u, SysStringByteLen(text));
}
