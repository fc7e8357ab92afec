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
    void LookAtBoth(const DialogStep& look)
    {
        Show({look, Presses(kCreateNew)});
        ShowEx({look, Presses(kCreateNew)}, 1);
    }
};

TEST_F(ProjectChoiceDialog, HasTheHostsTitleAndButtonText)
{
    NameButton(L"&Another one");
    LookAtBoth([](DialogView& view) {
        EXPECT_EQ(view.Title(), L"Choose");
        EXPECT_EQ(view.Text(kCreateNew), L"&Another one");
        EXPECT_EQ(view.Text(IDOK), L"OK");
        EXPECT_EQ(view.Text(IDCANCEL), L"Cancel");
    });
}

TEST_F(ProjectChoiceDialog, HasAButtonWithoutATextUntilItIsNamed)
{
    ExpectBox(L"Information",
              L"You must either select a project and choose ok, \nor you must choose the '' button!");
    Show({[](DialogView& view) { EXPECT_EQ(view.Text(kCreateNew), L""); }, Presses(IDOK),
          Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, TheButtonsTextIsReplacedWhole)
{
    NameButton(L"A long text");
    NameButton(L"Short");
    Show({[](DialogView& view) { EXPECT_EQ(view.Text(kCreateNew), L"Short"); }, Presses(kCreateNew)});
    NameButton(nullptr);
    Show({[](DialogView& view) { EXPECT_EQ(view.Text(kCreateNew), L""); }, Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, ATitleThatIsNoneIsEmpty)
{
    dialogs.OnDialog({[](DialogView& view) { EXPECT_EQ(view.Title(), L""); }, Presses(kCreateNew)});
    LONG canceled = 0;
    EXPECT_EQ(choice->ShowDialog(root.get(), nullptr, &canceled, nullptr, 0), S_OK);
}

TEST_F(ProjectChoiceDialog, LongTextsOfTheHostAndThoseOfOtherScriptsAreShownWhole)
{
    const std::wstring longText(10'000, L'x');
    for (const std::wstring& text :
         {std::wstring(L"\u05d0\u05d1\u05d2"), std::wstring(L"\u5de5\u5382"), longText})
    {
        NameButton(text.c_str());
        ExpectBox(L"Information",
                  L"You must either select a project and choose ok, \nor you must choose the '" + text +
                      L"' button!");
        dialogs.OnDialog({[&](DialogView& view) {
                              EXPECT_EQ(view.Title(), text);
                              EXPECT_EQ(view.Text(kCreateNew), text);
                          },
                          Presses(IDOK), Presses(kCreateNew)});
        LONG canceled = 0;
        EXPECT_EQ(choice->ShowDialog(root.get(), XQPComBSTR(text.c_str()), &canceled, nullptr, 0), S_OK);
    }
}

TEST_F(ProjectChoiceDialog, ShowsCancelOnlyWhereItIsAskedFor)
{
    Show({[](DialogView& view) { EXPECT_FALSE(view.IsVisible(IDCANCEL)); }, Presses(kCreateNew)});
    ShowEx({[](DialogView& view) { EXPECT_TRUE(view.IsVisible(IDCANCEL)); }, Presses(kCreateNew)});
}

TEST_F(ProjectChoiceDialog, TheListStandsWhereTheFrameWas)
{
    LookAtBoth([](DialogView& view) {
        EXPECT_FALSE(view.IsVisible(kFrame));
        const RECT frame = view.Rect(kFrame);
        const RECT list = view.Rect(kList);
        EXPECT_EQ(list.left, frame.left);
        EXPECT_EQ(list.top, frame.top);
        EXPECT_EQ(list.right, frame.right);
        EXPECT_EQ(list.bottom, frame.bottom);
        EXPECT_EQ(view.List(), view.Control(kList));
        EXPECT_EQ(view.Style(kList) & 0x50800000, 0x50800000u);
    });
}

TEST_F(ProjectChoiceDialog, TheListHasAColumnOfNamesAndOneOfNoWidth)
{
    const auto look = [](const wchar_t* caption) {
        return [caption](DialogView& view) {
            const int width = static_cast<int>(std::floor(Width(view.Rect(kList)) * 0.95));
            EXPECT_EQ(view.Columns(kList), (std::vector<ShownColumn>{{caption, width}, {L"", 0}}));
            EXPECT_EQ(Column(view, 1), (Texts{L"", L"", L""}));
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
        LookAtBoth([list = list, column = column](DialogView& view) {
            EXPECT_EQ(Width(view.Rect(kList)), list);
            EXPECT_EQ(view.Columns(kList)[0].width, column);
        });
    }
}

TEST_F(ProjectChoiceDialog, WithoutAListStaysOpenAndAsksTheHostNothing)
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
    std::vector<int> order;
    const DialogStep note = [&](DialogView& view) {
        order.push_back(view.Focus());
    };
    const Steps round = {note,          Types(VK_TAB), note,          Types(VK_TAB), note,
                         Types(VK_TAB), note,          Types(VK_TAB), note,          Presses(kCreateNew)};
    ShowEx(round);
    EXPECT_EQ(order, (std::vector<int>{IDOK, kCreateNew, IDCANCEL, kList, IDOK}));
    order.clear();
    Show(round);
    EXPECT_EQ(order, (std::vector<int>{IDOK, kCreateNew, kList, IDOK, kCreateNew}));
}

TEST_F(ProjectChoiceDialog, ARowIsChosenWithoutAMouse)
{
    EXPECT_EQ(Show({Types(VK_TAB, DialogView::kShift), Types(VK_DOWN), Types(VK_DOWN),
                    [](DialogView& view) { EXPECT_EQ(view.SelectedRow(kList), 1); }, Types(VK_UP),
                    Types(VK_END), Types(VK_RETURN)})
                  .selected,
              "c");
}

TEST_F(ProjectChoiceDialog, EnterOnTheButtonForSomethingNewPressesThat)
{
    EXPECT_EQ(ShowEx({Types(VK_TAB), Types(VK_RETURN)}), (Outcome{S_OK, 0, 1, "null"}));
}

TEST_F(ProjectChoiceDialog, TheMnemonicOfTheButtonPressesIt)
{
    NameButton(L"&New");
    EXPECT_EQ(ShowEx({Types('N', DialogView::kAlt)}), (Outcome{S_OK, 0, 1, "null"}));
}

TEST_F(ProjectChoiceDialog, ADoubleClickOnARowEndsNothing)
{
    EXPECT_EQ(ShowEx({[](DialogView& view) { view.DoubleClick(kList, 1); }, Presses(IDCANCEL)}).canceled, 1);
}

// Owner.

TEST_F(ProjectChoiceDialog, BelongsToTheGivenWindowWhichIsDisabledMeanwhile)
{
    const OwnerWindow owner;
    const Steps look = {[&](DialogView& view) {
                            EXPECT_EQ(GetWindow(view.Window(), GW_OWNER), owner.get());
                            EXPECT_FALSE(IsWindowEnabled(owner.get()));
                        },
                        Presses(kCreateNew)};
    Show(look, root, owner.get());
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
    ShowEx(look, 1, root, owner.get());
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(ProjectChoiceDialog, BelongsToTheFrameOfAGivenChild)
{
    const OwnerWindow owner;
    const OwnerWindow child(WS_CHILD | WS_VISIBLE, owner.get());
    Show({[&](DialogView& view) { EXPECT_EQ(GetWindow(view.Window(), GW_OWNER), owner.get()); },
          Presses(kCreateNew)},
         root, child.get());
}

TEST_F(ProjectChoiceDialog, BelongsToNobodyIfTheNumberIsNoWindow)
{
    HWND gone = nullptr;
    {
        const OwnerWindow owner;
        gone = owner.get();
    }
    EXPECT_EQ(Show({[](DialogView& view) { EXPECT_EQ(GetWindow(view.Window(), GW_OWNER), nullptr); },
                    Presses(kCreateNew)},
                   root, gone),
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
