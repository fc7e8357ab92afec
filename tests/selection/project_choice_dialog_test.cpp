// The project choice as its user sees it: texts, places, keys, owner.
#include "ProjectChoiceFixture.h"

#include <cmath>

namespace
{
class ProjectChoiceDialog : public ProjectChoiceFixture
{
protected:
    ProjectChoiceDialog()
    {
        Has({Child("a", L"A"), Child("b", L"B"), Child("c", L"C")});
        root->Children(L"template", found);
    }

    /// What `look` sees of both dialogs, of projects without Cancel and of templates with it.
    void LookAtBoth(const Steps& look)
    {
        Show(look + Steps{Presses(kCreateNew)});
        ShowEx(look + Steps{Presses(kCreateNew)}, 1);
    }
};

TEST_F(ProjectChoiceDialog, HasTheHostsTitleAndButtonText)
{
    NameButton(L"&Another one");
    LookAtBoth({Sees(Titled(L"Choose")), Sees(Shows(kCreateNew, L"&Another one")), Sees(Shows(IDOK, L"OK")),
                Sees(Shows(IDCANCEL, L"Cancel"))});
}

TEST_F(ProjectChoiceDialog, HasAButtonWithoutATextUntilItIsNamed)
{
    ExpectBox(L"Information",
              L"You must either select a project and choose ok, \nor you must choose the '' button!");
    Show({Sees(Shows(kCreateNew, L"")), Presses(IDOK), Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, TheButtonsTextIsReplacedWhole)
{
    NameButton(L"A long text");
    NameButton(L"Short");
    Show({Sees(Shows(kCreateNew, L"Short")), Presses(kCreateNew)});
    NameButton(nullptr);
    Show({Sees(Shows(kCreateNew, L"")), Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, ANullTitleIsEmpty)
{
    dialogs.OnDialog({Sees(Titled(L"")), Presses(kCreateNew)});
    LONG canceled = 0;
    EXPECT_EQ(choice->ShowDialog(root.get(), nullptr, &canceled, nullptr, 0), S_OK);
}

TEST_F(ProjectChoiceDialog, LongTextsAndTextsInOtherScriptsAreShownWhole)
{
    const std::wstring longText(10'000, L'x');
    for (const std::wstring& text :
         {std::wstring(L"\u05d0\u05d1\u05d2"), std::wstring(L"\u5de5\u5382"), longText})
    {
        NameButton(text.c_str());
        ExpectBox(L"Information",
                  L"You must either select a project and choose ok, \nor you must choose the '" + text +
                      L"' button!");
        dialogs.OnDialog(
            {Sees(Titled(text)), Sees(Shows(kCreateNew, text)), Presses(IDOK), Presses(kCreateNew)});
        LONG canceled = 0;
        EXPECT_EQ(choice->ShowDialog(root.get(), XQPComBSTR(text.c_str()), &canceled, nullptr, 0), S_OK);
    }
}

TEST_F(ProjectChoiceDialog, ShowsCancelOnlyOnRequest)
{
    Show({Sees(Hidden(IDCANCEL)), Presses(kCreateNew)});
    ShowEx({Sees(Visible(IDCANCEL)), Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, TheListTakesThePositionOfTheFrame)
{
    LookAtBoth({Sees(ListInPlaceOf(kFrame)), [](DialogView& view) {
                    EXPECT_EQ(view.List(), view.Control(kList));
                    EXPECT_EQ(view.Style(kList) & 0x50800000, 0x50800000u);
                }});
}

TEST_F(ProjectChoiceDialog, TheListHasAColumnOfNamesAndOneOfNoWidth)
{
    const auto look = [](const wchar_t* caption) {
        return [caption](DialogView& view) {
            const int width = static_cast<int>(std::floor(Width(view.Rect(kList)) * 0.95));
            EXPECT_EQ(view.Columns(kList), (std::vector<ShownColumn>{{caption, width}, {L"", 0}}));
            EXPECT_EQ(view.Column(kList, 1), (Texts{L"", L"", L""}));
        };
    };
    Show({look(L"Project name"), Presses(kCreateNew)});
    ShowEx({look(L"Project name"), Presses(kCreateNew)}, 0);
    ShowEx({look(L"Template name"), Presses(kCreateNew)}, 1);
}

TEST_F(ProjectChoiceDialog, TheColumnIsRoundedDownToWholePixels)
{
    for (const auto& [list, column] : {std::pair(100, 95), std::pair(99, 94), std::pair(101, 95)})
    {
        const FrameWidth frame(list);
        LookAtBoth({[list = list, column = column](DialogView& view) {
            EXPECT_EQ(Width(view.Rect(kList)), list);
            EXPECT_EQ(view.Columns(kList)[0].width, column);
        }});
    }
}

TEST_F(ProjectChoiceDialog, WithoutAListStaysOpenAndCallsNoHost)
{
    NameButton(L"New");
    const NoLists noLists;
    ExpectBox(L"Information",
              L"You must either select a project and choose ok, \nor you must choose the 'New' button!");
    EXPECT_EQ(ShowEx({[](DialogView& view) {
                          EXPECT_EQ(GetDlgItem(view.Window(), kList), nullptr);
                          EXPECT_EQ(view.Title(), L"") << "no title was set";
                          EXPECT_EQ(view.Text(kCreateNew), L"&Create new");
                          EXPECT_TRUE(view.IsVisible(IDCANCEL));
                      },
                      Presses(IDOK), Presses(kCreateNew)}),
              (Outcome{S_OK, 0, 1, "null"}));
    EXPECT_TRACE(
        Calls{"root.GetChildren(orvoproject)",
              "box Information: You must either select a project and choose ok, \nor you must choose "
              "the 'New' button!"});
}

// Keys.

TEST_F(ProjectChoiceDialog, TabGoesRoundTheVisibleControls)
{
    ShowEx(GoesRound({IDOK, kCreateNew, IDCANCEL, kList}) + Steps{Presses(kCreateNew)});
    Show(GoesRound({IDOK, kCreateNew, kList}) + Steps{Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, ARowIsChosenWithoutAMouse)
{
    EXPECT_EQ(Show({Types("shift+Tab"), Types("Down"), Types("Down"), Sees(RowSelected(1)), Types("Up"),
                    Types("End"), Types("Return")})
                  .selected,
              "c");
}

TEST_F(ProjectChoiceDialog, TheMnemonicOfTheButtonPressesIt)
{
    NameButton(L"&New");
    EXPECT_EQ(ShowEx({Types("alt+n")}), (Outcome{S_OK, 0, 1, "null"}));
}

// Owner.

TEST_F(ProjectChoiceDialog, BelongsToTheGivenWindowWhichIsDisabledMeanwhile)
{
    const OwnerWindow owner;
    const Steps look = {Sees(OwnedBy(owner.get())), Sees(OwnerDisabled()), Presses(kCreateNew)};
    Show(look, root, owner.get());
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
    ShowEx(look, 1, root, owner.get());
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(ProjectChoiceDialog, BelongsToTheFrameOfAGivenChild)
{
    const OwnerWindow owner;
    const OwnerWindow child(WS_CHILD | WS_VISIBLE, owner.get());
    Show({Sees(OwnedBy(owner.get())), Presses(kCreateNew)}, root, child.get());
}

TEST_F(ProjectChoiceDialog, HasNoOwnerIfTheNumberIsNoWindow)
{
    HWND gone = nullptr;
    {
        const OwnerWindow owner;
        gone = owner.get();
    }
    EXPECT_EQ(Show({Sees(OwnedBy(nullptr)), Presses(kCreateNew)}, root, gone),
              (Outcome{S_OK, 0, kUnchanged, "null"}));
}

TEST_F(ProjectChoiceDialog, ItsMessagesBelongToIt)
{
    HWND window = nullptr;
    ExpectBox(L"Information",
              L"You must either select a project and choose ok, \nor you must choose the '' button!");
    Show({[&](DialogView& view) { window = view.Window(); }, Presses(IDOK), Presses(kCreateNew)});
    EXPECT_EQ(boxes.Shown()[0].owner, window);
}
} // namespace
