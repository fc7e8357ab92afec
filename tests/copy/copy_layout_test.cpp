// The two layouts of the enhanced copy dialog: what is shown, sized and reached in each.
#include "CopyFixture.h"

namespace
{
using namespace copy_dialog;

const std::vector<int> kContractedOnes = {kNormal, kDeep, kCancel};
const std::vector<int> kExpandedOnes = {kNormalRadio, kDeepRadio, kPlanType, kGrid};
const std::vector<int> kInBoth = {kGroup, kAdvanced, kAdvancedOk, kAdvancedCancel};

constexpr int kGridStyle = 0x201;

class CopyLayout : public CopyFixture
{
protected:
    CopyLayout() { chosen.clear(); }

    /// Which controls are shown and enabled, one with the other.
    static DialogStep SeesOnly(const std::vector<int>& shown, const std::vector<int>& hidden)
    {
        return {"sees one layout's controls", [=](DialogView& view) {
                    for (const int control : shown)
                        EXPECT_TRUE(view.IsVisible(control) && view.IsEnabled(control)) << control;
                    for (const int control : hidden)
                        EXPECT_FALSE(view.IsVisible(control) || view.IsEnabled(control)) << control;
                    for (const int control : kInBoth)
                        EXPECT_TRUE(view.IsVisible(control) && view.IsEnabled(control)) << control;
                }};
    }

    static RECT WindowRect(HWND window)
    {
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect;
    }

    static int HeightOf(const DialogView& view)
    {
        const RECT window = WindowRect(view.Window());
        return static_cast<int>(window.bottom - window.top);
    }

    /// The client area of the template is 209 units high.
    static int FullHeight(const DialogView& view)
    {
        RECT units{0, 0, 199, 209};
        MapDialogRect(view.Window(), &units);
        RECT client{};
        GetClientRect(view.Window(), &client);
        return static_cast<int>(HeightOf(view) - client.bottom + units.bottom);
    }

    static int ContractedHeight(const DialogView& view)
    {
        return static_cast<int>(WindowRect(view.Control(kGroup)).bottom - WindowRect(view.Window()).top) + 12;
    }

    static DialogStep SeesHeight(int (*height)(const DialogView&))
    {
        return {"sees the height", [=](DialogView& view) {
                    EXPECT_EQ(HeightOf(view), height(view));
                }};
    }

    /// The contracted or the expanded form, whole.
    static Steps Contracted()
    {
        return {SeesOnly(kContractedOnes, kExpandedOnes), SeesHeight(&ContractedHeight),
                Sees(Shows(kAdvanced, L"Advanced >>"))};
    }
    static Steps Expanded()
    {
        return {SeesOnly(kExpandedOnes, kContractedOnes), SeesHeight(&FullHeight),
                Sees(Shows(kAdvanced, L"Advanced <<"))};
    }

    /// The default button by its looks: the only one with that style.
    static DialogStep SeesDefault(int button)
    {
        return {"sees the default button", [=](DialogView& view) {
                    for (const int id : {kNormal, kDeep, kCancel, kAdvanced, kAdvancedOk, kAdvancedCancel})
                        EXPECT_EQ(view.Style(id) & 0xF,
                                  static_cast<DWORD>(id == button ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON))
                            << id;
                }};
    }
};

TEST_F(CopyLayout, OpensContractedWithNormalChecked)
{
    Open(Steps{Sees(Titled(kTitle))} + Contracted() +
         Steps{Sees(Checked(kNormalRadio)), Sees(Unchecked(kDeepRadio)), Sees(NoneChosen(kPlanType)),
               Sees(FocusOn(kNormal)), SeesDefault(kNormal), Presses(kCancel)});
}

TEST_F(CopyLayout, ItsTextsAreThoseOfTheTemplate)
{
    Open({[](DialogView& view) {
              Texts texts;
              for (const HWND control : view.Controls())
                  if (!view.Text(control).empty())
                      texts.push_back(view.Text(control));
              EXPECT_EQ(texts, (Texts{L"Please select a copy option.", L"Normal =", L"Parent component only",
                                      L"Deep   =", L"Parent and child components", L"Normal", L"Deep",
                                      L"Cancel", L"Advanced >>", L"Normal", L"Deep", L"OK", L"Cancel"}));
          },
          Presses(kCancel)});
}

TEST_F(CopyLayout, TheGridHasItsColumnsAndStyleFromTheStart)
{
    Open({[](DialogView& view) {
              const HWND grid = view.Control(kGrid);
              EXPECT_EQ(view.Columns(grid), (std::vector<ShownColumn>{{L"Available attributes", 120},
                                                                      {L"Set to dynamic value", 200}}));
              EXPECT_EQ(SendMessageW(grid, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0), kGridStyle);
              for (const WPARAM column : {0, 1})
              {
                  LVCOLUMNW format{};
                  format.mask = LVCF_FMT;
                  EXPECT_TRUE(SendMessageW(grid, LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(&format)));
                  EXPECT_EQ(format.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
              }
              EXPECT_EQ(view.Rows(grid), 0);
          },
          Presses(kCancel)});
}

TEST_F(CopyLayout, AdvancedExpandsAndContracts)
{
    Open(Steps{Presses(kAdvanced)} + Expanded() + Steps{Presses(kAdvanced)} + Contracted() +
         Steps{Presses(kAdvanced)} + Expanded() + Steps{Presses(kAdvanced)} + Contracted() +
         Steps{Presses(kCancel)});
}

TEST_F(CopyLayout, OnlyTheHeightChanges)
{
    RECT first{};
    Open({[&](DialogView& view) { first = WindowRect(view.Window()); }, Presses(kAdvanced),
          [&](DialogView& view) {
              const RECT now = WindowRect(view.Window());
              EXPECT_EQ(now.left, first.left);
              EXPECT_EQ(now.top, first.top);
              EXPECT_EQ(now.right, first.right);
              EXPECT_GT(now.bottom, first.bottom);
          },
          Presses(kAdvanced),
          [&](DialogView& view) {
              const RECT now = WindowRect(view.Window());
              EXPECT_EQ(now.right, first.right);
              EXPECT_EQ(now.bottom, first.bottom);
          },
          Presses(kCancel)});
}

TEST_F(CopyLayout, StaysWhereTheUserMovedIt)
{
    Open({[](DialogView& view) {
              SetWindowPos(view.Window(), nullptr, 33, 44, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
          },
          Presses(kAdvanced),
          [](DialogView& view) {
              EXPECT_EQ(WindowRect(view.Window()).left, 33);
              EXPECT_EQ(WindowRect(view.Window()).top, 44);
          },
          SeesHeight(&FullHeight), Presses(kAdvanced), SeesHeight(&ContractedHeight), Presses(kCancel)});
}

TEST_F(CopyLayout, AnEmptyGridIsEnabledByExpanding)
{
    Open({Presses(kAdvanced), Sees(RowCount(0)), Sees(Enabled(kGrid)), Presses(kAdvancedCancel)});
}

TEST_F(CopyLayout, TheButtonsLieWhereTheRadioButtonsDo)
{
    Open({[](DialogView& view) {
              for (const auto& [button, radio] : {std::pair(kNormal, kNormalRadio), {kDeep, kDeepRadio}})
              {
                  const RECT outer = view.Rect(button);
                  const RECT inner = view.Rect(radio);
                  EXPECT_TRUE(inner.left > outer.left && inner.left < outer.right) << radio;
                  EXPECT_TRUE(inner.top > outer.top && inner.top < outer.bottom) << radio;
              }
          },
          Presses(kCancel)});
}

TEST_F(CopyLayout, HasNoOwnerWithoutAnActiveWindow)
{
    Open({Sees(OwnedBy(nullptr)), Presses(kCancel)});
}

TEST_F(CopyLayout, BelongsToTheActiveWindowWhichIsDisabled)
{
    const OwnerWindow owner;
    SetActiveWindow(owner.get());
    Open({Sees(OwnedBy(owner.get())), Sees(OwnerDisabled()), Presses(kCancel)});
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

// Keys.

TEST_F(CopyLayout, TabGoesRoundTheContractedForm)
{
    Open(GoesRound({kNormal, kDeep, kCancel, kAdvanced, kAdvancedOk, kAdvancedCancel}) +
         Steps{Presses(kCancel)});
}

TEST_F(CopyLayout, TabGoesRoundTheExpandedForm)
{
    Open(Steps{Types("Tab Tab Tab", FocusOn(kAdvanced)), Types("space", Shows(kAdvanced, L"Advanced <<"))} +
         GoesRound({kAdvanced, kNormalRadio, kPlanType, kGrid, kAdvancedOk, kAdvancedCancel}) +
         Steps{Presses(kAdvancedCancel)});
}

TEST_F(CopyLayout, TabGoesToTheRadioButtonThatIsChecked)
{
    Open({Presses(kAdvanced), Checks(kDeepRadio), [](DialogView& view) { view.GiveFocus(kAdvanced); },
          Types("Tab", FocusOn(kDeepRadio)), Types("Tab", FocusOn(kPlanType)), Presses(kAdvancedCancel)});
}

TEST_F(CopyLayout, EnterOnAdvancedExpandsAndContracts)
{
    Open({Types("Tab Tab Tab", FocusOn(kAdvanced)), SeesDefault(kAdvanced),
          Types("Return", Shows(kAdvanced, L"Advanced <<")), Sees(FocusOn(kAdvanced)),
          Types("Return", Shows(kAdvanced, L"Advanced >>")), Sees(FocusOn(kAdvanced)),
          Types("Tab", FocusOn(kAdvancedOk)), Presses(kCancel)});
}

TEST_F(CopyLayout, EnterOnNoButtonOfTheExpandedFormDoesNothing)
{
    for (const int control : {kNormalRadio, kPlanType, kGrid})
        Open({Presses(kAdvanced), [=](DialogView& view) { view.GiveFocus(control); }, Types("Return"),
              Sees(Visible(kGrid)), Sees(FocusOn(control)), Presses(kAdvancedCancel)});
}

TEST_F(CopyLayout, EscapeLeavesTheExpandedFormFromEveryControl)
{
    for (const int control : {kAdvanced, kNormalRadio, kPlanType, kGrid, kAdvancedOk, kAdvancedCancel})
    {
        Open({Presses(kAdvanced), [=](DialogView& view) { view.GiveFocus(control); }, Types("Escape")});
        EXPECT_EQ(Clicked(), -1) << control;
    }
}
} // namespace
