// The linguistic order of sorted combo boxes, which only the system's own boxes have.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

TEST(WindowsOnly_ComboBox, SortedItemsAreInLinguisticOrder)
{
    const HWND box = CreateWindowExW(0, L"ComboBox", L"", CBS_DROPDOWNLIST | CBS_SORT, 0, 0, 100, 100,
                                     nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(box);
    for (const wchar_t* text : {L"it's", L"co-op", L"\u00e9", L"b", L"a-b", L"10", L"_x", L"its", L"e",
                                L"coop", L"ab", L"a b", L"a", L"2", L"1", L" lead", L""})
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    std::wstring all;
    for (WPARAM i = 0; i < 17; ++i)
    {
        wchar_t text[20];
        SendMessageW(box, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
        all.append(text).append(L"|");
    }
    DestroyWindow(box);
    EXPECT_EQ(all, L"| lead|_x|1|10|2|a|a b|ab|a-b|b|coop|co-op|e|\u00e9|its|it's|");
}
