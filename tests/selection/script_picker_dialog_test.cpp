// The choice of a script as its user sees it: texts, places, keys.
#include "ScriptPickerFixture.h"

namespace
{
class ScriptPickerDialog : public ScriptPickerFixture
{
protected:
    /// The cells that are shown of one script.
    Texts RowOfOnly(const ComPtr<MemoryObject>& script)
    {
        Finds({script});
        Texts cells;
        Show({[&](DialogView& view) {
                  ASSERT_EQ(view.Rows(view.List()), 1);
                  cells = view.Row(view.List(), 0);
              },
              Presses(IDCANCEL)});
        return cells;
    }

    void LookAt(const Steps& look)
    {
        Finds({Script("a"), Script("b"), Script("c")});
        Show(look + Steps{Presses(IDCANCEL)});
    }
};

TEST_F(ScriptPickerDialog, ShowsWhatTheHostGivesInFiveColumns)
{
    auto script = Script("Check weld spots");
    script->Set(L"m_pDODefaultImpl", project)->Set(L"languagetype", L"basic");
    script->Set(L"creationdate", L"2019-01-01")->Set(L"modificationdate", L"2021-05-25");
    EXPECT_EQ(RowOfOnly(script),
              (Texts{L"Check weld spots", L"Project Lib", L"basic", L"2019-01-01", L"2021-05-25", L""}));
}

TEST_F(ScriptPickerDialog, AScriptOfNoProjectIsInTheLibrary)
{
    EXPECT_EQ(RowOfOnly(Script("s")), (Texts{L"s", L"Library", L"", L"", L"", L""}));
}

TEST_F(ScriptPickerDialog, ALanguageThatIsANumberIsShownAsOne)
{
    auto script = Script("s");
    script->Set(L"languagetype", LONG{-3});
    EXPECT_EQ(RowOfOnly(script)[2], L"-3");
}

TEST_F(ScriptPickerDialog, WhatCannotBeReadIsAnEmptyCell)
{
    auto script = Script("s");
    script->Fail(L"name", E_FAIL)->Fail(L"m_pDODefaultImpl", E_FAIL)->Fail(L"languagetype", E_ACCESSDENIED);
    script->Fail(L"creationdate", E_FAIL)->Set(L"modificationdate", L"2021");
    EXPECT_EQ(RowOfOnly(script), (Texts{L"", L"Library", L"", L"", L"2021", L""}));
}

TEST_F(ScriptPickerDialog, LongNamesAndThoseOfOtherScriptsAreShownWhole)
{
    for (const std::wstring& name :
         {std::wstring(10'000, L'x'), std::wstring(L"\u05d0\u05d1\u05d2"), std::wstring(L"\u5de5\u5382")})
    {
        auto script = host.Object("s");
        script->Set(L"name", name.c_str());
        EXPECT_EQ(RowOfOnly(script)[0], name);
    }
}

TEST_F(ScriptPickerDialog, AnObjectFoundTwiceHasOneRow)
{
    const auto script = Script("s");
    Finds({script, Script("t"), script});
    Show({Sees(RowCount(2)), Presses(IDCANCEL)});
}

TEST_F(ScriptPickerDialog, IsCalledScripts)
{
    LookAt({Sees(Titled(L"Scripts"))});
}

TEST_F(ScriptPickerDialog, FiveColumnsHaveAFifthOfTheWidthAndTheSixthNone)
{
    LookAt({[](DialogView& view) {
        const int fifth = static_cast<int>(Width(view.Rect(view.List())) * 0.2);
        EXPECT_GT(fifth, 0);
        EXPECT_EQ(view.Columns(view.List()), (std::vector<ShownColumn>{{L"Name", fifth},
                                                                       {L"Location", fifth},
                                                                       {L"Script Language", fifth},
                                                                       {L"Creation Date", fifth},
                                                                       {L"Modification Date", fifth},
                                                                       {L"", 0}}));
    }});
}

TEST_F(ScriptPickerDialog, AFifthIsCutToWholePixelsAndTheRestStaysUnused)
{
    for (const auto& [frame, fifth] : {std::pair(100, 20), std::pair(99, 19), std::pair(104, 20)})
    {
        const FrameWidth width(frame);
        LookAt({[frame = frame, fifth = fifth](DialogView& view) {
            EXPECT_EQ(Width(view.Rect(view.List())), frame);
            for (int column = 0; column < 5; ++column)
                EXPECT_EQ(view.Columns(view.List())[static_cast<std::size_t>(column)].width, fifth);
        }});
    }
}

TEST_F(ScriptPickerDialog, LongTextsAndThoseOfOtherScriptsAreShownWhole)
{
    const std::wstring longText(10'000, L'x');
    for (const std::wstring& text :
         {std::wstring(L"\u05d0\u05d1\u05d2"), std::wstring(L"\u5de5\u5382"), longText})
    {
        const auto script = Script("s");
        script->Set(L"name", text.c_str())->Set(L"languagetype", text.c_str());
        script->Set(L"creationdate", text.c_str())->Set(L"modificationdate", text.c_str());
        EXPECT_EQ(RowOfOnly(script), (Texts{text, L"Library", text, text, text, L""}));
        EXPECT_EQ(Show({Presses(IDOK)}), (Outcome{S_OK, "s"}));
    }
}

TEST_F(ScriptPickerDialog, ANameThatIsNoTextIsShownAsConvertedOrNotAtAll)
{
    auto script = Script("s");
    script->Set(L"name", LONG{42});
    EXPECT_EQ(RowOfOnly(script)[0], L"42");
    script->Set(L"name", project);
    EXPECT_EQ(RowOfOnly(script)[0], L"");
    EXPECT_EQ(Show({Presses(IDOK)}), (Outcome{S_OK, "s"}));
}

TEST_F(ScriptPickerDialog, TheListHasThePositionAndIdentifierOfTheFrame)
{
    LookAt({Sees(ListInPlaceOf(kFrame)), [](DialogView& view) {
                const HWND list = view.List();
                EXPECT_EQ(GetDlgCtrlID(list), kFrame);
                EXPECT_NE(view.Control(kFrame), list) << "the identifier stands for the frame";
                EXPECT_EQ(view.Style(list) & 0x50800000, 0x50800000u);
            }});
}

TEST_F(ScriptPickerDialog, TheListHasTheKeyboardFromTheStart)
{
    LookAt({[](DialogView& view) {
        EXPECT_EQ(GetFocus(), view.List());
    }});
}

TEST_F(ScriptPickerDialog, BelongsToTheActiveWindowWhichIsDisabledMeanwhile)
{
    const OwnerWindow owner;
    SetActiveWindow(owner.get());
    LookAt({Sees(OwnedBy(owner.get())), Sees(OwnerDisabled())});
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(ScriptPickerDialog, HasNoOwnerIfNoWindowIsActive)
{
    SetActiveWindow(nullptr);
    LookAt({Sees(OwnedBy(nullptr))});
}

TEST_F(ScriptPickerDialog, ARowIsChosenWithoutAMouse)
{
    resultFollowsAddresses = true;
    Finds({Script("a"), Script("b"), Script("c")});
    EXPECT_EQ(Show({Sees(RowSelected(0)), Types("Down", RowSelected(1)), Types("End", RowSelected(2)),
                    Types("Up", RowSelected(1)), Types("Home", RowSelected(0)), Types("Return")})
                  .status,
              S_OK);
}

TEST_F(ScriptPickerDialog, TabGoesRoundTheVisibleControls)
{
    Finds({Script("a")});
    Show(GoesRound({kFrame, IDOK, IDCANCEL}) + Steps{Presses(IDCANCEL)});
}

TEST_F(ScriptPickerDialog, EnterOnCancelCancels)
{
    Finds({Script("a")});
    EXPECT_EQ(Show({Types("Tab"), Types("Tab"), Types("Return")}), (Outcome{S_FALSE, "untouched"}));
}

TEST_F(ScriptPickerDialog, WaitsVisiblyWhileTheScriptsAreCollected)
{
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR waiting = LoadCursorW(nullptr, IDC_WAIT);
    SetCursor(arrow);
    int seen = 0;
    host.onCall = [&](const std::string& call) {
        EXPECT_EQ(GetCursor(), waiting) << call;
        ++seen;
    };
    LookAt({[&](DialogView&) {
        EXPECT_NE(GetCursor(), waiting);
    }});
    EXPECT_EQ(seen, 7 + 3 * 6);
}
} // namespace
