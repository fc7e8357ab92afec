// The combo box that shows a stored entry at first and its whole list from the first drop-down on.
#include "OnDemandComboBox.h"

#include "TestDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using qptools::OnDemandComboBox;
using qptools::SelectByPrefix;

namespace
{
using Names = std::vector<std::wstring>;

class OnDemandBox : public ::testing::Test
{
protected:
    OnDemandBox()
    {
        dialog.exchange = [this](CDataExchange* pDX) {
            DDX_Control(pDX, kCombo, box);
        };
    }

    /// Runs `test` while the dialog is open.
    template <class Test>
    void InDialog(Test&& test)
    {
        driver.OnDialog({[&](DialogView& view) { test(view); }, Presses(IDCANCEL)});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }

    void Fill(const Names& names) const
    {
        box.Refill([&]() -> auto& { return names; });
    }

    std::wstring Selected() const { return box.HasSelection() ? box.GetLBText(box.GetCurSel()) : L"none"; }

    /// What is selected when the list of these names is read behind that stored entry.
    std::wstring SelectedAfter(const std::wstring& stored, const Names& names)
    {
        std::wstring selected;
        InDialog([&](DialogView&) {
            box.ResetContent();
            box.ShowStored(stored);
            Fill(names);
            selected = Selected();
        });
        return selected;
    }

    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
    TestDialog dialog;
    OnDemandComboBox box;
};

TEST_F(OnDemandBox, ShowsTheStoredEntryAlone)
{
    InDialog([&](DialogView& view) {
        box.ResetContent();
        EXPECT_FALSE(box.HasSelection());
        box.ShowStored(L"Drill");
        EXPECT_EQ(view.Items(kCombo), Texts{L"Drill"});
        EXPECT_EQ(Selected(), L"Drill");
        EXPECT_TRUE(box.HasSelection());
    });
}

TEST_F(OnDemandBox, AnEmptyEntryIsASelectionToo)
{
    InDialog([&](DialogView&) {
        box.ResetContent();
        box.ShowStored(L"");
        EXPECT_TRUE(box.HasSelection());
        EXPECT_EQ(box.GetCount(), 1);
    });
}

TEST_F(OnDemandBox, DeselectsWithoutLosingItsEntries)
{
    InDialog([&](DialogView& view) {
        box.ResetContent();
        box.ShowStored(L"Drill");
        box.Deselect();
        EXPECT_FALSE(box.HasSelection());
        EXPECT_EQ(view.Items(kCombo), Texts{L"Drill"});
        EXPECT_EQ(box.GetWindowText(), L"");
    });
}

TEST_F(OnDemandBox, RefillsAndSelectsWhatWasSelected)
{
    EXPECT_EQ(SelectedAfter(L"b", {L"a", L"b", L"c"}), L"b");
}

TEST_F(OnDemandBox, FindsTheFirstEntryLast)
{
    EXPECT_EQ(SelectedAfter(L"a", {L"a", L"b"}), L"a");
}

TEST_F(OnDemandBox, PrefersALongerNameToTheFirst)
{
    EXPECT_EQ(SelectedAfter(L"Plan", {L"Plan", L"Plan A"}), L"Plan A");
}

TEST_F(OnDemandBox, SelectsByPrefixWhateverTheCase)
{
    EXPECT_EQ(SelectedAfter(L"MILL", {L"Assembly", L"milling"}), L"milling");
}

TEST_F(OnDemandBox, SelectsNothingThatDoesNotBeginSo)
{
    EXPECT_EQ(SelectedAfter(L"x", {L"a", L"ax"}), L"none");
}

TEST_F(OnDemandBox, SelectsNothingForAnEmptyText)
{
    EXPECT_EQ(SelectedAfter(L"", {L"a", L"b"}), L"none");
}

TEST_F(OnDemandBox, IsEmptyAfterAnEmptyList)
{
    InDialog([&](DialogView&) {
        box.ResetContent();
        box.ShowStored(L"Drill");
        Fill({});
        EXPECT_EQ(box.GetCount(), 0);
        EXPECT_FALSE(box.HasSelection());
        EXPECT_EQ(box.GetWindowText(), L"");
    });
}

TEST_F(OnDemandBox, TakesTheNamesOfAMap)
{
    const std::map<std::wstring, int> list = {{L"one", 1}, {L"two", 2}};
    InDialog([&](DialogView& view) {
        box.Refill([&]() -> auto& { return list; });
        EXPECT_EQ(view.Items(kCombo), (Texts{L"one", L"two"}));
    });
}

TEST_F(OnDemandBox, ReadsTheListAfterItRemembersTheText)
{
    InDialog([&](DialogView&) {
        box.ResetContent();
        box.ShowStored(L"b");
        const Names names = {L"a", L"b"};
        int count = -1;
        box.Refill([&]() -> auto& {
            count = box.GetCount();
            return names;
        });
        EXPECT_EQ(count, 0) << "the entries go before the list is read";
        EXPECT_EQ(Selected(), L"b");
    });
}

TEST_F(OnDemandBox, ShowsAllIfItHasAsManyEntriesAsTheList)
{
    InDialog([&](DialogView&) {
        Names list = {L"a", L"b"};
        box.ResetContent();
        EXPECT_FALSE(box.ShowsAll(list));
        EXPECT_FALSE(box.ShowsAll(Names{}));
        Fill(list);
        EXPECT_TRUE(box.ShowsAll(list));
        list.emplace_back(L"c");
        EXPECT_FALSE(box.ShowsAll(list));
    });
}

TEST_F(OnDemandBox, SelectByPrefixSearchesFromTheGivenEntry)
{
    InDialog([&](DialogView&) {
        box.ResetContent();
        Fill({L"Plan", L"Plan A", L"Plan B"});
        SelectByPrefix(box, -1, L"Plan");
        EXPECT_EQ(Selected(), L"Plan");
        SelectByPrefix(box, 1, L"plan");
        EXPECT_EQ(Selected(), L"Plan B");
        SelectByPrefix(box, 2, L"Plan");
        EXPECT_EQ(Selected(), L"Plan");
    });
}

TEST_F(OnDemandBox, SelectByPrefixKeepsTheSelectionIfNothingFits)
{
    InDialog([&](DialogView&) {
        box.ResetContent();
        Fill({L"a", L"b"});
        box.SetCurSel(1);
        for (const wchar_t* text : {L"", L"c", L"ab"})
        {
            SelectByPrefix(box, -1, text);
            EXPECT_EQ(Selected(), L"b");
        }
    });
}
} // namespace
