// Sorting the rows of a list view by a comparison of their parameters.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
int CALLBACK Descending(LPARAM one, LPARAM other, LPARAM)
{
    return one < other ? 1 : one > other ? -1 : 0;
}

int CALLBACK ByTens(LPARAM one, LPARAM other, LPARAM sign)
{
    return static_cast<int>((one / 10 - other / 10) * sign);
}

int CALLBACK Equal(LPARAM, LPARAM, LPARAM)
{
    return 0;
}

BOOL Sort(const ListViewHost& list, PFNLVCOMPARE compare, LPARAM parameter = 1)
{
    return static_cast<BOOL>(
        list.Send(LVM_SORTITEMS, static_cast<WPARAM>(parameter), reinterpret_cast<LPARAM>(compare)));
}
} // namespace

TEST(ListViewSort, ComparesTheParametersOfTheItems)
{
    ListViewHost list(LVS_REPORT, 2);
    list.Fill(4);
    list.SetText(1, 1, L"sub");
    EXPECT_TRUE(Sort(list, Descending));
    EXPECT_EQ(list.Texts(), L"r3|r2|r1|r0");
    EXPECT_EQ(list.Texts(1), L"||sub|");
    EXPECT_EQ(list.ParamOf(0), 3);
}

TEST(ListViewSort, IsStable)
{
    const ListViewHost list;
    const int params[] = {21, 10, 22, 11, 20, 12, 23};
    for (int i = 0; i < 7; ++i)
        list.Insert(i, std::to_wstring(params[i]).c_str(), params[i]);
    EXPECT_TRUE(Sort(list, ByTens));
    EXPECT_EQ(list.Texts(), L"10|11|12|21|22|20|23");
    EXPECT_TRUE(Sort(list, Equal));
    EXPECT_EQ(list.Texts(), L"10|11|12|21|22|20|23");
}

TEST(ListViewSort, HandsItsParameterToTheComparison)
{
    const ListViewHost list;
    list.Insert(0, L"1", 10);
    list.Insert(1, L"2", 20);
    EXPECT_TRUE(Sort(list, ByTens, -1));
    EXPECT_EQ(list.Texts(), L"2|1");
}

TEST(ListViewSort, SelectionAndFocusTravelSilentlyWithTheirItems)
{
    ListViewHost list;
    list.Fill(4);
    list.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetState(1, LVIS_SELECTED | LVIS_FOCUSED);
    list.Trace();
    Sort(list, Descending);
    EXPECT_EQ(list.Selected(), "2 3");
    EXPECT_EQ(list.Focused(), 2);
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 2);
    EXPECT_EQ(list.Trace(), "");
}

TEST(ListViewSort, OfAnEmptyListIsGranted)
{
    const ListViewHost list;
    EXPECT_TRUE(Sort(list, Descending));
}

TEST(ListViewSort, OfAListSortedByTextGoesByTheComparison)
{
    const ListViewHost list(LVS_REPORT | LVS_SORTASCENDING);
    list.Insert(0, L"a", 1);
    list.Insert(0, L"b", 2);
    EXPECT_TRUE(Sort(list, Descending));
    EXPECT_EQ(list.Texts(), L"b|a");
}
