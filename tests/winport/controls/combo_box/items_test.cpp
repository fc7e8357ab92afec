// Combo boxes: what holds for their items and their selection, with and without a field to type in.
#include "ComboHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

// Each rule holds for both kinds of box.
class ComboBoxItems : public testing::TestWithParam<DWORD>
{
protected:
    bool Editable() const { return GetParam() == (CBS_DROPDOWN | CBS_AUTOHSCROLL); }

    ComboHost m_box{GetParam(), {L"delta", L"Alpha", L"alpine", L"beta", L"ALPHA"}};
};

INSTANTIATE_TEST_SUITE_P(Box, ComboBoxItems,
                         testing::Values(CBS_DROPDOWNLIST, CBS_DROPDOWN | CBS_AUTOHSCROLL),
                         [](const testing::TestParamInfo<DWORD>& kind) {
                             return kind.param == CBS_DROPDOWNLIST ? "List" : "Field";
                         });
} // namespace

TEST(ComboBox, ANewBoxIsEmpty)
{
    ComboHost box(CBS_DROPDOWNLIST);
    EXPECT_EQ(box.Count(), 0);
    EXPECT_EQ(box.Selected(), -1);
    EXPECT_EQ(box.Text(), L"");
    EXPECT_FALSE(box.Open());
    EXPECT_EQ(box.Codes(), Codes{});
}

TEST(ComboBox, WithoutSortItemsAreAppended)
{
    const ComboHost box(CBS_DROPDOWNLIST);
    EXPECT_EQ(box.Add(L"beta"), 0);
    EXPECT_EQ(box.Add(L"alpha"), 1);
    EXPECT_EQ(box.Add(nullptr), 2);
    EXPECT_EQ(box.Items(), L"beta|alpha|");
}

TEST(ComboBox, WithSortItemsAreAddedInOrderIgnoringCase)
{
    const ComboHost box(CBS_DROPDOWNLIST | CBS_SORT);
    EXPECT_EQ(box.Add(L"beta"), 0);
    EXPECT_EQ(box.Add(L"Alpha"), 0);
    EXPECT_EQ(box.Add(L"Coop"), 2);
    EXPECT_EQ(box.Add(L"alpine"), 1);
    EXPECT_EQ(box.Add(L"B"), 2);
    EXPECT_EQ(box.Items(), L"Alpha|alpine|B|beta|Coop");
}

TEST(ComboBox, SortedDigitsComeBeforeLettersAndNothingBeforeDigits)
{
    const ComboHost box(CBS_DROPDOWN | CBS_SORT);
    for (const wchar_t* text : {L"b", L"10", L"A", L"", L"2", L"1", L"ab"})
        box.Add(text);
    EXPECT_EQ(box.Items(), L"|1|10|2|A|ab|b");
}

TEST(ComboBox, ManySortedItemsAreAllInOrder)
{
    const ComboHost box(CBS_DROPDOWNLIST | CBS_SORT);
    for (int i = 0; i < 500; ++i)
        box.Add(std::to_wstring(1000 + (i * 37) % 500).c_str());
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(box.Item(i), std::to_wstring(1000 + i));
}

TEST(ComboBox, InsertIgnoresTheSort)
{
    const ComboHost box(CBS_DROPDOWNLIST | CBS_SORT);
    box.Add(L"b");
    box.Add(L"c");
    EXPECT_EQ(box.Insert(1, L"z"), 1);
    EXPECT_EQ(box.Insert(-1, L"a"), 3);
    EXPECT_EQ(box.Items(), L"b|z|c|a");
}

TEST(ComboBox, TheSelectionOfASortedBoxFollowsItsItem)
{
    const ComboHost box(CBS_DROPDOWNLIST | CBS_SORT);
    box.Add(L"m");
    box.Select(0);
    box.Add(L"z");
    EXPECT_EQ(box.Selected(), 0);
    box.Add(L"a");
    EXPECT_EQ(box.Selected(), 1);
    EXPECT_EQ(box.Text(), L"m");
}

TEST_P(ComboBoxItems, FindStartsBehindTheIndexAndWraps)
{
    EXPECT_EQ(m_box.Find(-1, L"al"), 1);
    EXPECT_EQ(m_box.Find(1, L"al"), 2);
    EXPECT_EQ(m_box.Find(2, L"al"), 4);
    EXPECT_EQ(m_box.Find(4, L"al"), 1);
}

TEST_P(ComboBoxItems, FindLooksAtTheItemItStartsFromLast)
{
    EXPECT_EQ(m_box.Find(3, L"bet"), 3);
}

TEST_P(ComboBoxItems, FindPastTheEndStartsAtTheFirstItem)
{
    EXPECT_EQ(m_box.Find(50, L"al"), 1);
    m_box.Insert(0, L"alto");
    EXPECT_EQ(m_box.Find(50, L"al"), 0);
    EXPECT_EQ(m_box.Find(6, L"al"), 0);
    EXPECT_EQ(m_box.Find(-1, L"al"), 0);
}

TEST_P(ComboBoxItems, FindMatchesABeginningIgnoringCase)
{
    EXPECT_EQ(m_box.Find(-1, L"ALPI"), 2);
    EXPECT_EQ(m_box.Find(-1, L"lpha"), CB_ERR);
    EXPECT_EQ(m_box.Find(-1, L"alphas"), CB_ERR);
}

TEST_P(ComboBoxItems, NoTextMatchesNothing)
{
    m_box.Insert(-1, L"");
    m_box.Select(1);
    for (const wchar_t* nothing : {L"", static_cast<const wchar_t*>(nullptr)})
    {
        EXPECT_EQ(m_box.Find(-1, nothing), CB_ERR);
        EXPECT_EQ(m_box.SelectText(-1, nothing), CB_ERR);
    }
    EXPECT_EQ(m_box.Selected(), 1);
}

TEST_P(ComboBoxItems, NothingIsFoundInAnEmptyBox)
{
    m_box.Send(CB_RESETCONTENT);
    EXPECT_EQ(m_box.Find(-1, L"a"), CB_ERR);
    EXPECT_EQ(m_box.SelectText(0, L"a"), CB_ERR);
}

TEST_P(ComboBoxItems, SelectByTextSelectsCopiesTheTextAndIsSilent)
{
    EXPECT_EQ(m_box.SelectText(-1, L"AL"), 1);
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Text(), L"Alpha");
    EXPECT_EQ(m_box.SelectText(1, L"al"), 2);
    EXPECT_EQ(m_box.Text(), L"alpine");
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxItems, SelectingATextThatIsNotFoundChangesNothing)
{
    m_box.Select(3);
    EXPECT_EQ(m_box.SelectText(-1, L"zeta"), CB_ERR);
    EXPECT_EQ(m_box.Selected(), 3);
    EXPECT_EQ(m_box.Text(), L"beta");
}

TEST_P(ComboBoxItems, InsertAtMinusOneOrTheCountAppends)
{
    EXPECT_EQ(m_box.Insert(-1, L"x"), 5);
    EXPECT_EQ(m_box.Insert(6, L"y"), 6);
    EXPECT_EQ(m_box.Items(), L"delta|Alpha|alpine|beta|ALPHA|x|y");
}

TEST_P(ComboBoxItems, InsertOutOfRangeFails)
{
    EXPECT_EQ(m_box.Insert(6, L"x"), CB_ERR);
    EXPECT_EQ(m_box.Insert(-2, L"x"), CB_ERR);
    EXPECT_EQ(m_box.Count(), 5);
}

TEST_P(ComboBoxItems, InsertOfNoTextIsAnEmptyItem)
{
    EXPECT_EQ(m_box.Insert(0, nullptr), 0);
    EXPECT_EQ(m_box.Item(0), L"");
    EXPECT_EQ(m_box.Count(), 6);
}

TEST_P(ComboBoxItems, TheSelectionFollowsItsItemOnInsert)
{
    m_box.Select(2);
    m_box.Insert(0, L"zero");
    EXPECT_EQ(m_box.Selected(), 3);
    m_box.Insert(3, L"three");
    EXPECT_EQ(m_box.Selected(), 4);
    m_box.Insert(5, L"five");
    EXPECT_EQ(m_box.Selected(), 4);
    EXPECT_EQ(m_box.Text(), L"alpine");
}

TEST_P(ComboBoxItems, TheSelectionFollowsItsItemOnDelete)
{
    m_box.Select(2);
    EXPECT_EQ(m_box.Delete(4), 4);
    EXPECT_EQ(m_box.Selected(), 2);
    EXPECT_EQ(m_box.Delete(0), 3);
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Text(), L"alpine");
    EXPECT_EQ(m_box.Items(), L"Alpha|alpine|beta");
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxItems, DeletingTheSelectedItemLeavesNoneAndAFieldItsText)
{
    m_box.Select(2);
    EXPECT_EQ(m_box.Delete(2), 4);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), Editable() ? L"alpine" : L"");
}

TEST_P(ComboBoxItems, DeletingTheLastItemLeavesAFieldItsText)
{
    m_box.Select(0);
    for (int left = 4; left >= 0; --left)
        EXPECT_EQ(m_box.Delete(0), left);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), Editable() ? L"delta" : L"");
}

TEST_P(ComboBoxItems, DeletingWhatDoesNotExistFails)
{
    EXPECT_EQ(m_box.Delete(5), CB_ERR);
    EXPECT_EQ(m_box.Delete(-1), CB_ERR);
    EXPECT_EQ(m_box.Count(), 5);
}

TEST_P(ComboBoxItems, ResetTakesItemsSelectionAndText)
{
    m_box.Select(2);
    m_box.Send(CB_RESETCONTENT);
    EXPECT_EQ(m_box.Count(), 0);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), L"");
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxItems, SelectingReturnsTheIndexSetsTheTextAndIsSilent)
{
    EXPECT_EQ(m_box.Select(3), 3);
    EXPECT_EQ(m_box.Selected(), 3);
    EXPECT_EQ(m_box.Text(), L"beta");
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxItems, SelectingMinusOneClearsSelectionAndText)
{
    m_box.Select(3);
    EXPECT_EQ(m_box.Select(-1), CB_ERR);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), L"");
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxItems, ItemDataIsZeroAtFirst)
{
    EXPECT_EQ(m_box.Send(CB_GETITEMDATA, 0), 0);
}

TEST_P(ComboBoxItems, ItemDataTravelsWithItsItem)
{
    constexpr LPARAM value = 0x123456789ALL;
    EXPECT_NE(m_box.Send(CB_SETITEMDATA, 1, value), CB_ERR);
    m_box.Insert(0, L"front");
    EXPECT_EQ(m_box.Send(CB_GETITEMDATA, 0), 0);
    EXPECT_EQ(m_box.Send(CB_GETITEMDATA, 2), value);
    m_box.Delete(0);
    m_box.Delete(0);
    EXPECT_EQ(m_box.Send(CB_GETITEMDATA, 0), value);
}

TEST_P(ComboBoxItems, AnIndexThatDoesNotExistHasNeitherDataNorText)
{
    wchar_t text[20] = L"kept";
    EXPECT_EQ(m_box.Send(CB_GETITEMDATA, 5), CB_ERR);
    EXPECT_EQ(m_box.Send(CB_GETITEMDATA, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(m_box.Send(CB_SETITEMDATA, 5, 1), CB_ERR);
    EXPECT_EQ(m_box.Send(CB_GETLBTEXTLEN, 5), CB_ERR);
    EXPECT_EQ(m_box.Send(CB_GETLBTEXT, 5, reinterpret_cast<LPARAM>(text)), CB_ERR);
    EXPECT_STREQ(text, L"kept");
}

TEST_P(ComboBoxItems, AnItemHasATextAndItsLength)
{
    wchar_t text[20];
    EXPECT_EQ(m_box.Send(CB_GETLBTEXTLEN, 2), 6);
    EXPECT_EQ(m_box.Send(CB_GETLBTEXT, 2, reinterpret_cast<LPARAM>(text)), 6);
    EXPECT_STREQ(text, L"alpine");
}

TEST_P(ComboBoxItems, TenThousandCharactersAreKept)
{
    const std::wstring text(10000, L'q');
    m_box.Insert(0, text.c_str());
    m_box.Select(0);
    EXPECT_EQ(m_box.Item(0), text);
    EXPECT_EQ(m_box.Text(), text);
}
