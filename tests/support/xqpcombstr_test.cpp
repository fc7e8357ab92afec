#include "ComException.h"
#include "FixedText.h"
#include "XQPComBSTR.h"

#include <gtest/gtest.h>

#include <climits>
#include <cwchar>
#include <map>
#include <utility>

namespace
{
std::wstring_view Whole(BSTR text)
{
    return {text, SysStringLen(text)};
}
} // namespace

TEST(QPComBstr, IsEmptyByDefaultAndReadsAsAValidEmptyText)
{
    const XQPComBSTR text;
    EXPECT_EQ(text.Length(), 0);
    EXPECT_TRUE(text.IsEmpty());
    wchar_t* const raw = text;
    ASSERT_NE(raw, nullptr);
    EXPECT_EQ(raw[0], L'\0');
    EXPECT_EQ(SysStringLen(raw), 0u);
    EXPECT_EQ(SysStringByteLen(raw), 0u);
}

TEST(QPComBstr, CopiesTheTextItIsMadeFrom)
{
    wchar_t source[] = L"pump";
    const XQPComBSTR text(source);
    source[0] = L'j';
    EXPECT_STREQ(text, L"pump");
    EXPECT_EQ(text.Length(), 4);
    EXPECT_EQ(SysStringLen(text), 4u);
}

TEST(QPComBstr, CopiesAnotherOneAndStaysApartFromIt)
{
    XQPComBSTR first(L"pump");
    const XQPComBSTR second(first);
    first = L"valve";
    EXPECT_STREQ(second, L"pump");
    EXPECT_STREQ(first, L"valve");
}

TEST(QPComBstr, MovesWithoutCopying)
{
    XQPComBSTR first(L"pump");
    wchar_t* const raw = first;
    XQPComBSTR second(std::move(first));
    EXPECT_EQ(static_cast<wchar_t*>(second), raw);
    XQPComBSTR third(L"valve");
    third = std::move(second);
    EXPECT_EQ(static_cast<wchar_t*>(third), raw);
}

TEST(QPComBstr, AssignsFromWritableAndConstantTextAndItsOwnType)
{
    wchar_t changeable[] = L"changeable";
    const wchar_t* constant = L"constant";
    const XQPComBSTR own(L"own");
    XQPComBSTR text(L"before");
    text = changeable;
    EXPECT_STREQ(text, L"changeable");
    text = constant;
    EXPECT_STREQ(text, L"constant");
    text = own;
    EXPECT_STREQ(text, L"own");
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_EQ(text.Length(), 0);
}

TEST(QPComBstr, AssignsFromItselfAndFromAPartOfItself)
{
    XQPComBSTR text(L"name=value");
    const XQPComBSTR& same = text;
    text = same;
    EXPECT_STREQ(text, L"name=value");
    text = static_cast<wchar_t*>(text) + 5;
    EXPECT_STREQ(text, L"value");
    XQPComBSTR& target = text;
    target = std::move(text);
    EXPECT_STREQ(target, L"value");
}

TEST(QPComBstr, KeepsEmbeddedNulls)
{
    XQPComBSTR text(L"a\0b", 3);
    EXPECT_EQ(text.Length(), 3);
    const XQPComBSTR copy(text);
    EXPECT_EQ(copy.View(), std::wstring_view(L"a\0b", 3));
    text += copy;
    EXPECT_EQ(text.View(), std::wstring_view(L"a\0ba\0b", 6));
    EXPECT_FALSE(text == copy);
    EXPECT_FALSE(copy == L"a");
    EXPECT_TRUE(XQPComBSTR(L"a") < copy);
    EXPECT_EQ(copy.Find(L'b'), 2);
    EXPECT_EQ(copy.Find(L'\0'), 1);
    EXPECT_EQ(copy.Mid(1, 2).View(), std::wstring_view(L"\0b", 2));
}

TEST(QPComBstr, TakesNoCharactersForALengthBelowOneOrANullText)
{
    EXPECT_EQ(XQPComBSTR(L"abc", 0).Length(), 0);
    EXPECT_EQ(XQPComBSTR(L"abc", -1).Length(), 0);
    EXPECT_EQ(XQPComBSTR(nullptr, 3).Length(), 0);
}

TEST(QPComBstr, RefusesALengthThatNoTextHas)
{
    try
    {
        const XQPComBSTR text(L"short", INT_MAX);
        ADD_FAILURE() << "made";
    }
    catch (const ComException& failure)
    {
        EXPECT_EQ(failure.Status(), E_OUTOFMEMORY);
    }
}

TEST(QPComBstr, StaysWhereItIsIfNothingIsAppended)
{
    XQPComBSTR text(L"pump");
    wchar_t* const raw = text;
    text += L"";
    text += XQPComBSTR();
    EXPECT_EQ(static_cast<wchar_t*>(text), raw);
    EXPECT_STREQ(text, L"pump");
}

TEST(QPComBstr, TreatsNullAsEmpty)
{
    const XQPComBSTR null(static_cast<const wchar_t*>(nullptr));
    const wchar_t* const noText = nullptr;
    EXPECT_EQ(null.Length(), 0);
    EXPECT_TRUE(null == noText);
    EXPECT_TRUE(null == L"");
    EXPECT_TRUE(null == XQPComBSTR(L""));
    EXPECT_TRUE(XQPComBSTR(L"") == noText);
    EXPECT_FALSE(XQPComBSTR(L"a") == noText);
    EXPECT_FALSE(null < noText);
    EXPECT_FALSE(null < XQPComBSTR(L""));
    EXPECT_TRUE(null < L"a");
    EXPECT_EQ(null.Find(L'a'), -1);
    EXPECT_EQ(null.Mid(0, 1).Length(), 0);
    XQPComBSTR text(L"a");
    text += null;
    text += noText;
    EXPECT_STREQ(text, L"a");
    XQPComBSTR grown;
    grown += XQPComBSTR(L"b");
    EXPECT_STREQ(grown, L"b");
}

TEST(QPComBstr, ComparesExactly)
{
    const XQPComBSTR text(L"Pump");
    EXPECT_TRUE(text == L"Pump");
    EXPECT_FALSE(text == L"pump");
    EXPECT_FALSE(text == L"Pump ");
    EXPECT_FALSE(text == L"Pum");
    EXPECT_TRUE(text != L"pump");
    EXPECT_TRUE(L"Pump" == text);
    EXPECT_TRUE(text == XQPComBSTR(L"Pump"));
    EXPECT_TRUE(text != XQPComBSTR(L"Pumps"));
    wchar_t changeable[] = L"Pump";
    EXPECT_TRUE(text == changeable);
    EXPECT_TRUE(changeable == text);
    EXPECT_FALSE(text < changeable);
}

TEST(QPComBstr, OrdersByCodeUnitWhateverTheLanguage)
{
    // A dictionary would order: "10" "9" "a" "ä" "Z".
    const wchar_t* const ascending[] = {L"", L"10", L"9", L"Z", L"Za", L"a", L"\u00e4"};
    for (std::size_t first = 0; first < std::size(ascending); ++first)
        for (std::size_t second = 0; second < std::size(ascending); ++second)
        {
            EXPECT_EQ(XQPComBSTR(ascending[first]) < XQPComBSTR(ascending[second]), first < second);
            EXPECT_EQ(XQPComBSTR(ascending[first]) < ascending[second], first < second);
        }
}

TEST(QPComBstr, KeysAMap)
{
    std::map<XQPComBSTR, int> map;
    map[L"b"] = 2;
    map[L"a"] = 1;
    map[L"B"] = 3;
    map[L"a"] += 10;
    ASSERT_EQ(map.size(), 3u);
    auto entry = map.begin();
    EXPECT_TRUE(entry->first == L"B");
    EXPECT_TRUE((++entry)->first == L"a");
    EXPECT_EQ(entry->second, 11);
    EXPECT_TRUE((++entry)->first == L"b");
}

TEST(QPComBstr, KeysAMapAlsoAsAPartOfTheKey)
{
    std::map<std::pair<XQPComBSTR, int>, int> map;
    map[{L"b", 1}] = 4;
    map[{L"a", 2}] = 2;
    map[{L"b", 0}] = 3;
    map[{L"a", 1}] = 1;
    map[{L"a", 1}] += 0;
    ASSERT_EQ(map.size(), 4u) << "the texts count, not where they stand";
    int expected = 0;
    for (const auto& [key, value] : map)
        EXPECT_EQ(value, ++expected);
}

TEST(QPComBstr, Appends)
{
    XQPComBSTR text(L"Object ID: ");
    text += XQPComBSTR(L"$12");
    text += L"\n";
    EXPECT_STREQ(text, L"Object ID: $12\n");
    EXPECT_EQ(text.Length(), 15);
    text = L"ab";
    text += text;
    EXPECT_STREQ(text, L"abab");
    text += static_cast<const wchar_t*>(text) + 2;
    EXPECT_STREQ(text, L"ababab");
}

TEST(QPComBstr, FindsACharacterAtOrAfterTheStart)
{
    const XQPComBSTR text(L"a;b;c");
    EXPECT_EQ(text.Find(L';'), 1);
    EXPECT_EQ(text.Find(L';', 0), 1);
    EXPECT_EQ(text.Find(L';', 1), 1);
    EXPECT_EQ(text.Find(L';', 2), 3);
    EXPECT_EQ(text.Find(L';', 4), -1);
    EXPECT_EQ(text.Find(L'x', 0), -1);
    EXPECT_EQ(text.Find(L'a', -5), 0);
    EXPECT_EQ(text.Find(L'a', INT_MIN), 0);
    EXPECT_EQ(text.Find(L'c', 5), -1);
    EXPECT_EQ(text.Find(L'c', 6), -1);
    EXPECT_EQ(text.Find(L'c', INT_MAX), -1);
}

TEST(QPComBstr, FindsATextAtOrAfterTheStart)
{
    const XQPComBSTR text(L"one two one");
    EXPECT_EQ(text.Find(L"one", 0), 0);
    EXPECT_EQ(text.Find(L"one", 1), 8);
    EXPECT_EQ(text.Find(L"one", 8), 8);
    EXPECT_EQ(text.Find(L"one", 9), -1);
    EXPECT_EQ(text.Find(L"One", 0), -1);
    EXPECT_EQ(text.Find(L"one two one two", 0), -1);
    EXPECT_EQ(text.Find(L"two", -1), 4);
    EXPECT_EQ(text.Find(L"one", 100), -1);
}

TEST(QPComBstr, FindsTheEmptyTextWhereItStarts)
{
    const XQPComBSTR text(L"ab");
    EXPECT_EQ(text.Find(L"", 0), 0);
    EXPECT_EQ(text.Find(L"", 2), 2);
    EXPECT_EQ(text.Find(L"", 3), -1);
    EXPECT_EQ(text.Find(static_cast<const wchar_t*>(nullptr), 1), 1);
}

TEST(QPComBstr, MidTakesAStartAndACount)
{
    const XQPComBSTR text(L"0123456789");
    const struct
    {
        int first, count;
        const wchar_t* part;
    } cases[] = {{0, 10, L"0123456789"},
                 {0, 1, L"0"},
                 {3, 4, L"3456"},
                 {9, 1, L"9"},
                 {-1, 3, L"012"},
                 {INT_MIN, 2, L"01"},
                 {4, 0, L""},
                 {4, -1, L""},
                 {4, INT_MIN, L""},
                 {10, 1, L""},
                 {11, 1, L""},
                 {INT_MAX, INT_MAX, L""},
                 {8, 3, L"89"},
                 {1, INT_MAX, L"123456789"}};
    for (const auto& row : cases)
        EXPECT_STREQ(text.Mid(row.first, row.count), row.part) << row.first << ", " << row.count;
}

TEST(QPComBstr, MidWithACountOneTooLongKeepsTheDelimiter)
{
    const XQPComBSTR text(L"IQPObject: ($12) rest");
    const int delimiter = text.Find(L')', 12);
    ASSERT_EQ(delimiter, 15);
    EXPECT_STREQ(text.Mid(12, delimiter - 11), L"$12)");
}

TEST(QPComBstr, LowersInPlace)
{
    XQPComBSTR text(L"Pump STATION 7\u00c4\u00d6");
    EXPECT_EQ(text.ToLower(), 0);
    EXPECT_STREQ(text, L"pump station 7\u00e4\u00f6");
    XQPComBSTR empty;
    EXPECT_EQ(empty.ToLower(), 0);
    EXPECT_EQ(empty.Length(), 0);
    XQPComBSTR split(L"A\0B", 3);
    split.ToLower();
    EXPECT_EQ(split.View(), std::wstring_view(L"a\0b", 3));
}

TEST(QPComBstr, TakesAnOutArgumentAndFreesWhatItHeld)
{
    XQPComBSTR text(L"before");
    BSTR* const out = text.put();
    EXPECT_EQ(*out, nullptr);
    EXPECT_EQ(text.Length(), 0);
    *out = SysAllocString(L"after");
    EXPECT_STREQ(text, L"after");
}

TEST(QPComBstr, AttachesDetachesAndCopies)
{
    XQPComBSTR text(L"before");
    text.Attach(SysAllocString(L"after"));
    EXPECT_STREQ(text, L"after");
    const BSTR copy = text.Copy();
    EXPECT_EQ(Whole(copy), L"after");
    EXPECT_NE(copy, static_cast<wchar_t*>(text));
    const BSTR detached = text.Detach();
    EXPECT_EQ(Whole(detached), L"after");
    EXPECT_EQ(text.Length(), 0);
    EXPECT_EQ(text.Detach(), nullptr);
    const BSTR empty = text.Copy();
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(SysStringLen(empty), 0u);
    SysFreeString(copy);
    SysFreeString(detached);
    SysFreeString(empty);
}

TEST(QPComBstr, IsDestroyedThroughItsBase)
{
    static int destroyed = 0;
    struct Derived : XQPComBSTR
    {
        ~Derived() override { ++destroyed; }
    };
    destroyed = 0;
    XQPComBSTR* const text = new Derived;
    delete text;
    EXPECT_EQ(destroyed, 1);
}

TEST(FixedText, ReadsAsABstrOfItsLength)
{
    static constexpr FixedText names[] = {L"orvoproject", L"", L"a text of thirty-one characters"};
    EXPECT_EQ(Whole(names[0]), L"orvoproject");
    EXPECT_EQ(SysStringByteLen(names[0]), 11 * sizeof(wchar_t));
    EXPECT_EQ(Whole(names[1]), L"");
    EXPECT_EQ(Whole(names[2]), L"a text of thirty-one characters");
    EXPECT_EQ(SysStringLen(names[2]), FixedText::kMaxLength);
}

TEST(FixedText, IsCopiedLikeAnyText)
{
    static constexpr FixedText name(L"languagetype");
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = name;
    VARIANT copy{};
    ASSERT_EQ(VariantCopy(&copy, &value), S_OK);
    EXPECT_EQ(Whole(copy.bstrVal), L"languagetype");
    EXPECT_NE(copy.bstrVal, static_cast<BSTR>(name));
    VariantClear(&copy);
}
