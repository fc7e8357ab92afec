// Characters typed in a list view, which search for a row by a prefix.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
// Rows: 0 alpha, 1 Beta, 2 gamma, 3 gate, 4 general, 5 1 one, 6 -dash, 7 ga x.
class LettersHost : public ListViewHost
{
public:
    explicit LettersHost(DWORD style = LVS_REPORT) : ListViewHost(style, 2)
    {
        for (const wchar_t* text :
             {L"alpha", L"Beta", L"gamma", L"gate", L"general", L"1 one", L"-dash", L"ga x"})
            Insert(Count(), text);
        Trace();
    }

    void StartAt(int row)
    {
        SetState(row, LVIS_SELECTED | LVIS_FOCUSED);
        Trace();
    }

    /// Types the letters. Returns the index of the row that is focused and the only selected one, -1 if there
    /// is none.
    int After(const wchar_t* letters)
    {
        Type(letters);
        const int focused = Focused();
        return Selected() == (focused < 0 ? "" : std::to_string(focused)) ? focused : -4711;
    }

    int AfterPause(const wchar_t* letters)
    {
        Sleep(600);
        return After(letters);
    }
};
} // namespace

TEST(ListViewLetters, ALetterSelectsTheNextRowThatBeginsWithIt)
{
    LettersHost list;
    EXPECT_EQ(list.After(L"g"), 2);
    EXPECT_EQ(list.AfterPause(L"g"), 3);
    EXPECT_EQ(list.AfterPause(L"g"), 4);
    EXPECT_EQ(list.AfterPause(L"g"), 7);
    EXPECT_EQ(list.AfterPause(L"g"), 2);
}

TEST(ListViewLetters, UpperAndLowerCaseAreAlike)
{
    EXPECT_EQ(LettersHost().After(L"b"), 1);
    EXPECT_EQ(LettersHost().After(L"G"), 2);
    EXPECT_EQ(LettersHost().After(L"GAT"), 3);
}

TEST(ListViewLetters, DigitsAndSignsAreSearchedForToo)
{
    EXPECT_EQ(LettersHost().After(L"1"), 5);
    EXPECT_EQ(LettersHost().After(L"-d"), 6);
}

TEST(ListViewLetters, LettersInQuickSuccessionFormAPrefix)
{
    LettersHost list;
    EXPECT_EQ(list.After(L"g"), 2);
    EXPECT_EQ(list.After(L"a"), 2);
    EXPECT_EQ(list.After(L"t"), 3);
    EXPECT_EQ(LettersHost().After(L"gen"), 4);
}

TEST(ListViewLetters, TheSearchWrapsAround)
{
    LettersHost list;
    list.StartAt(3);
    EXPECT_EQ(list.After(L"g"), 4);
    EXPECT_EQ(list.After(L"a"), 7);
    EXPECT_EQ(list.After(L"t"), 3);
}

TEST(ListViewLetters, AnUnknownPrefixChangesNothing)
{
    LettersHost list;
    EXPECT_EQ(list.After(L"z"), -1);
    EXPECT_EQ(list.After(L"g"), -1) << "zg is searched";
    EXPECT_EQ(list.AfterPause(L"gaz"), 2);
    list.Trace();
    EXPECT_EQ(list.After(L"z"), 2);
    EXPECT_EQ(list.Trace(), "");
}

TEST(ListViewLetters, APauseStartsANewPrefix)
{
    LettersHost list;
    EXPECT_EQ(list.After(L"ga"), 2);
    EXPECT_EQ(list.AfterPause(L"a"), 0);
}

TEST(ListViewLetters, BlanksAndControlCharactersAreIgnored)
{
    LettersHost list;
    EXPECT_EQ(list.After(L"g \b\r\x1b\ta"), 2);
    EXPECT_EQ(list.After(L"t"), 3);
}

TEST(ListViewLetters, NotificationsAreTheSameAsForAnArrow)
{
    LettersHost list(LVS_REPORT | LVS_SINGLESEL);
    list.StartAt(0);
    list.After(L"b");
    EXPECT_EQ(list.Trace(), "changing(0:3>1) changed(0:3>1) "
                            "changing(1:0>3) changing(0:1>0) changed(0:1>0) changed(1:0>3)");
}

TEST(ListViewLetters, ControlMovesTheFocusAlone)
{
    LettersHost list;
    list.StartAt(0);
    const HeldKeys keys(false, true);
    list.Type(L"g");
    EXPECT_EQ(list.Focused(), 2);
    EXPECT_EQ(list.Selected(), "0");
}

TEST(ListViewLetters, ShiftSelectsARange)
{
    LettersHost list;
    list.StartAt(0);
    const HeldKeys keys(true, false);
    list.Type(L"G");
    EXPECT_EQ(list.Focused(), 2);
    EXPECT_EQ(list.Selected(), "0 1 2");
}

TEST(ListViewLetters, TheRowIsScrolledIntoView)
{
    ListViewHost list;
    list.Fill(60);
    list.SetText(40, 0, L"z");
    list.Type(L"z");
    EXPECT_EQ(list.Focused(), 40);
    EXPECT_EQ(list.Top(), 41 - list.PerPage());
}

TEST(ListViewLetters, AnEmptyListIsSilent)
{
    ListViewHost list;
    list.Type(L"g");
    EXPECT_EQ(list.Trace(), "");
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewLetters, TheListMayBeDestroyedByTheHandlerOfTheChange)
{
    LettersHost list;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_ITEMCHANGED)
            DestroyWindow(list.Control());
        return 0;
    };
    list.Type(L"g");
    EXPECT_FALSE(IsWindow(list.Control()));
}
