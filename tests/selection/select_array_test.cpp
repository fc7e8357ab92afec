// Which entries a parameter array makes.
#include "SelectDialogFixture.h"

#include "Bstr.h"

namespace
{
TEST_F(SelectDialog, NoneOrOneElementIsNoEntry)
{
    parameters.Object(L"Object0", Of(a)).Text(L"Prompt0", L"A");
    EXPECT_EQ(Rows(0, nullptr), Texts{});
    EXPECT_EQ(Rows(0, parameters.Values()), Texts{});
    EXPECT_EQ(Rows(1, parameters.Values()), Texts{});
    EXPECT_EQ(Rows(2, parameters.Values()), Texts{L"A"});
}

TEST_F(SelectDialog, ANullArrayHasNoEntriesWhateverItsCount)
{
    EXPECT_EQ(Rows(5, nullptr), Texts{});
    EXPECT_EQ(Rows(0xFFFFFFFF, nullptr), Texts{});
}

TEST_F(SelectDialog, HalfTheCountIsTheNumberOfEntriesDespiteACaption)
{
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b));
    EXPECT_EQ(Rows(), (Texts{L"A", L"B"}));
    parameters.Text(L"Caption", L"Title");
    EXPECT_EQ(Rows(), (Texts{L"A", L"B"}));
}

TEST_F(SelectDialog, AnEntryBeyondHalfTheCountIsNotLookedFor)
{
    parameters.Object(L"Object0", Of(a)).Object(L"Object1", Of(b)).Object(L"Object2", Of(c));
    EXPECT_EQ(Rows(), Texts{L""}) << "three elements are one entry";
}

TEST_F(SelectDialog, EntriesMayBeInAnyOrder)
{
    parameters.Object(L"Object1", Of(b)).Text(L"Prompt0", L"A").Text(L"Caption", L"Title");
    parameters.Object(L"Object0", Of(a)).Text(L"Prompt1", L"B");
    EXPECT_EQ(Rows(), (Texts{L"A", L"B"}));
}

TEST_F(SelectDialog, NumbersAreDecimal)
{
    std::vector<ComPtr<MemoryObject>> objects;
    Texts expected;
    for (int number = 0; number < 12; ++number)
    {
        objects.push_back(host.Object("object"));
        parameters.Entry(number, L"Row " + std::to_wstring(number), Of(objects.back()));
        expected.push_back(L"Row " + std::to_wstring(number));
    }
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Rows(), expected);
}

TEST_F(SelectDialog, NamesCountExactly)
{
    parameters.Text(L"prompt0", L"A")
        .Object(L"object0", Of(a))
        .Object(L"Object00", Of(b))
        .Text(L"Prompt01", L"B");
    EXPECT_EQ(Rows(), Texts{});
}

TEST_F(SelectDialog, AnEntryNeedsAnObjectButNoPrompt)
{
    parameters.Text(L"Prompt0", L"A")
        .Object(L"Object1", Of(b))
        .Text(L"Prompt2", L"C")
        .Object(L"Object2", Of(c));
    EXPECT_EQ(Rows(), (Texts{L""})) << "four elements are two entries";
    parameters.Text(L"Filler", L"").Text(L"Filler", L"");
    EXPECT_EQ(Rows(), (Texts{L"", L"C"}));
}

TEST_F(SelectDialog, PromptsAreConvertedAndWhatHasNoTextIsEmpty)
{
    XQPComVariant number;
    number.Value().vt = VT_I4;
    number.Value().lVal = -17;
    parameters.Add(L"Prompt0", number).Object(L"Object0", Of(a));
    parameters.Object(L"Prompt1", Of(b)).Object(L"Object1", Of(b));
    parameters.Add(L"Prompt2", XQPComVariant()).Object(L"Object2", Of(c));
    EXPECT_EQ(Rows(), (Texts{L"", L"", L"-17"}));
}

TEST_F(SelectDialog, WhatIsNoObjectIsDropped)
{
    XQPComVariant number;
    number.Value().vt = VT_I4;
    number.Value().lVal = 17;
    parameters.Text(L"Prompt0", L"A").Text(L"Object0", L"text");
    parameters.Text(L"Prompt1", L"B").Add(L"Object1", number);
    parameters.Text(L"Prompt2", L"C").Add(L"Object2", XQPComVariant());
    parameters.Text(L"Prompt3", L"D").Object(L"Object3", nullptr);
    EXPECT_EQ(Rows(), Texts{});
}

TEST_F(SelectDialog, ADispatchReferenceIsAsGood)
{
    parameters.Text(L"Prompt0", L"A").Object(L"Object0", Of(a), VT_DISPATCH);
    EXPECT_EQ(Show({Presses(IDOK)}), "a");
}

TEST_F(SelectDialog, ValuesMayComeByAddress)
{
    XQPComBSTR prompt(L"A");
    BSTR text = prompt;
    IUnknown* object = Of(a);
    const Bstr names[] = {Bstr(L"Prompt0"), Bstr(L"Object0")};
    tagINITVALUE values[2] = {{names[0].get(), {}}, {names[1].get(), {}}};
    values[0].varValue.vt = VT_BYREF | VT_BSTR;
    values[0].varValue.pbstrVal = &text;
    values[1].varValue.vt = VT_BYREF | VT_UNKNOWN;
    values[1].varValue.ppunkVal = &object;
    EXPECT_EQ(Rows(2, values), Texts{L"A"});
}

TEST_F(SelectDialog, AnObjectGivenTwiceHasOneRowWithItsFirstPrompt)
{
    parameters.Entry(0, L"first", Of(a)).Entry(1, L"other", Of(b)).Entry(2, L"second", Of(a));
    EXPECT_EQ(Rows(), (Texts{L"first", L"other"}));
}

TEST_F(SelectDialog, TheFirstPromptCountsThoughItIsEmpty)
{
    parameters.Object(L"Object0", Of(a)).Entry(1, L"second", Of(a)).Text(L"Filler", L"");
    EXPECT_EQ(Rows(), Texts{L""});
}

TEST_F(SelectDialog, AnObjectGivenTwiceInTwoKindsOfReferenceHasOneRow)
{
    parameters.Text(L"Prompt0", L"first").Object(L"Object0", Of(a), VT_DISPATCH).Entry(1, L"second", Of(a));
    EXPECT_EQ(Rows(), Texts{L"first"});
}

TEST_F(SelectDialog, ThousandsOfEntriesAreAllThere)
{
    static constexpr int kEntries = 3000;
    std::vector<ComPtr<MemoryObject>> objects;
    for (int number = 0; number < kEntries; ++number)
    {
        objects.push_back(host.Object("object"));
        parameters.Entry(number, std::to_wstring(number), Of(objects.back()));
    }
    Show({Sees(RowCount(kEntries)), Presses(IDCANCEL)});
}

TEST_F(SelectDialog, LongPromptsAndThoseOfOtherScriptsAreShownWhole)
{
    const std::wstring longPrompt(10'000, L'x');
    parameters.Entry(0, longPrompt, Of(a))
        .Entry(1, L"\u05d0\u05d1\u05d2", Of(b))
        .Entry(2, L"\u5de5\u5382", Of(c));
    EXPECT_EQ(Rows(), (Texts{longPrompt, L"\u05d0\u05d1\u05d2", L"\u5de5\u5382"}));
    EXPECT_EQ(Show({Selects(longPrompt), Presses(IDOK)}), "a");
}

TEST_F(SelectDialog, ALongCaptionIsTheWholeTitle)
{
    const std::wstring caption(10'000, L'x');
    parameters.Text(L"Caption", caption).Entry(0, L"A", Of(a));
    Show({Sees(Titled(caption)), Presses(IDCANCEL)});
}
} // namespace
