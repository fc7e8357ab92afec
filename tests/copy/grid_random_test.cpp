// Thousands of random acts in the grid, compared with a model of its cells, editors and values.
#include "GridModel.h"

#include "GridFixture.h"

#include "WindowTexts.h"

#include <map>
#include <random>
#include <utility>

namespace
{
using namespace copy_dialog;

/// Fewer where windows are the system's.
constexpr int kSequences = sizeof(wchar_t) == 4 ? 10'000 : 200;
constexpr int kActs = 5; ///< of a sequence
constexpr const wchar_t* kTexts[] = {L"a", L"", L"two words", L"X", L"\u7d44\u7acb", L"1234567890"};

class GridAtRandom : public GridFixture
{
protected:
    GridAtRandom()
    {
        Station().Attribute(L"Begin", 16);
        host.Config().Find(L"Cell")->Attribute(L"Area", 3);
        host.recording = false;
    }

    unsigned Below(std::size_t bound) { return m_random() % static_cast<unsigned>(bound); }

    /// One act, on the dialog and on the model. Acts for which nothing is there do nothing.
    void Act(DialogView& view)
    {
        using Method = bool (GridAtRandom::*)(DialogView&);
        static constexpr std::pair<const char*, Method> acts[] = {
            {"click value", &GridAtRandom::ClickValue}, {"click value", &GridAtRandom::ClickValue},
            {"click value", &GridAtRandom::ClickValue}, {"click value", &GridAtRandom::ClickValue},
            {"type", &GridAtRandom::TypeText},          {"type", &GridAtRandom::TypeText},
            {"return", &GridAtRandom::Return},          {"return", &GridAtRandom::Return},
            {"return", &GridAtRandom::Return},          {"escape", &GridAtRandom::Escape},
            {"escape", &GridAtRandom::Escape},          {"escape", &GridAtRandom::Escape},
            {"click name", &GridAtRandom::ClickName},   {"scroll", &GridAtRandom::Scroll},
            {"delete row", &GridAtRandom::DeleteRow},   {"choose", &GridAtRandom::ChooseType},
            {"choose", &GridAtRandom::ChooseType},      {"radio", &GridAtRandom::Radio},
            {"contract", &GridAtRandom::Contract},      {"enter picker", &GridAtRandom::EnterPicker}};
        const auto& [name, method] = acts[Below(std::size(acts))];
        done[name] += (this->*method)(view) ? 1 : 0;
    }

    void ClickAt(DialogView& view, int row, int column)
    {
        const HWND grid = GridOf(view);
        SendMessageW(grid, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        const RECT cell = CellPlace(grid, row, column);
        const LPARAM place = MAKELPARAM(cell.left + 2, cell.top + 2);
        PostMessageW(grid, WM_LBUTTONUP, 0, place);
        SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, place);
    }
    bool ClickValue(DialogView& view)
    {
        if (model.Rows() == 0)
            return false;
        const auto focused = static_cast<int>(
            SendMessageW(GridOf(view), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
        const int row = focused >= 0 && Below(2) ? focused : static_cast<int>(Below(model.Rows()));
        const bool opens = row == focused;
        model.Leave();
        ClickAt(view, row, 1);
        if (opens)
            model.Open(row);
        return opens;
    }
    bool ClickName(DialogView& view)
    {
        if (model.Rows() == 0)
            return false;
        model.Leave();
        ClickAt(view, static_cast<int>(Below(model.Rows())), 0);
        return true;
    }
    bool TypeText(DialogView& view)
    {
        const std::wstring text = kTexts[Below(std::size(kTexts))];
        if (!model.Type(text))
            return false;
        view.SetText(GetFocus(), text);
        return true;
    }
    bool Return(DialogView&) { return Key(VK_RETURN, false); }
    bool Escape(DialogView&) { return Key(VK_ESCAPE, true); }
    bool Key(WORD key, bool cancels)
    {
        if (!model.IsEditing())
            return false;
        model.Leave(cancels);
        SendMessageW(GetFocus(), WM_CHAR, key, 1);
        return true;
    }
    bool Scroll(DialogView& view)
    {
        model.Leave();
        SendMessageW(GridOf(view), Below(2) ? WM_VSCROLL : WM_HSCROLL, Below(4), 0);
        return true;
    }
    // Seldom: rows come back with a plan type only.
    bool DeleteRow(DialogView& view)
    {
        if (model.Rows() == 0 || Below(4) != 0)
            return false;
        const int row = static_cast<int>(Below(model.Rows()));
        model.Delete(row);
        SendMessageW(GridOf(view), LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
        return true;
    }
    bool ChooseType(DialogView& view)
    {
        const wchar_t* type = Below(3) ? L"Station" : L"Cell";
        model.Leave();
        view.Choose(kPlanType, type);
        model.Choose(type);
        return true;
    }
    bool Radio(DialogView& view)
    {
        const int radio = Below(2) ? kDeepRadio : kNormalRadio;
        model.Leave();
        view.Click(radio);
        model.Radio(radio);
        return true;
    }
    // Seldom: each click collects the objects again.
    bool Contract(DialogView& view)
    {
        if (Below(8) != 0)
            return false;
        model.Leave();
        view.Click(kAdvanced);
        view.Click(kAdvanced);
        return true;
    }
    bool EnterPicker(DialogView& view)
    {
        std::vector<HWND> pickers = Pickers(view);
        std::erase(pickers, GetFocus());
        if (pickers.empty())
            return false;
        const HWND picker = pickers[Below(pickers.size())];
        model.Leave();
        SetFocus(picker);
        model.Enter(picker, view.Text(picker));
        return true;
    }

    static std::vector<HWND> Pickers(const DialogView& view)
    {
        std::vector<HWND> pickers = GridEditors(view);
        std::erase_if(pickers, [](HWND editor) { return ClassOf(editor) != DATETIMEPICK_CLASSW; });
        return pickers;
    }

    /// What the dialog shows is what the model has.
    void Compare(const DialogView& view)
    {
        model.See(Pickers(view));
        ASSERT_EQ(view.Column(kGrid, 0), model.Names());
        ASSERT_EQ(view.Column(kGrid, 1), model.Cells());
        ASSERT_EQ(static_cast<int>(GridEditors(view).size()), model.Editors());
        if (!model.IsEditing())
            return;
        ASSERT_EQ(view.Text(GetFocus()), model.Text());
    }

    /// A call without the rows that have no value, and without the bracket at its end.
    static std::string WithValues(const std::string& call)
    {
        return call.substr(0, std::min(call.find(",  = EMPTY"), call.size() - 1));
    }

    GridModel model{{{L"Station", {{L"Begin", true}, {L"Due", true}, {L"Mass", false}, {L"Order", false}}},
                     {L"Cell", {{L"Area", false}, {L"Order", false}}}}};

    std::map<std::string, int> done;

private:
    std::minstd_rand m_random{20'240'229};
};
} // namespace

TEST_F(GridAtRandom, ItsCellsEditorsAndValuesAreThoseOfTheModel)
{
    Initialize({press, cell});
    Steps steps = {Presses(kAdvanced), Chooses(kPlanType, L"Station")};
    model.Radio(kNormalRadio);
    model.Choose(L"Station");
    for (int act = 0; act < kSequences * kActs; ++act)
    {
        steps.push_back([this](DialogView& view) { Act(view); });
        steps.push_back([this](DialogView& view) { Compare(view); });
    }
    steps.push_back([this](DialogView&) { model.Leave(); });
    EXPECT_EQ(Show(steps + Steps{Presses(kAdvancedOk)}), S_OK);
    EXPECT_EQ(done.size(), 11u);
    for (const auto& [name, times] : done)
        EXPECT_GE(times, kSequences / 100) << name;
    host.recording = true;
    Apply({press, cell});
    Calls applied;
    for (const std::string& call : host.calls)
        if (call.starts_with("press.SetAttributes") || call.starts_with("cell.SetAttributes"))
            applied.push_back(WithValues(call));
    // Types come in the order of their addresses. The press is also in the cell, for Deep.
    std::sort(applied.begin(), applied.end());
    applied.erase(std::unique(applied.begin(), applied.end()), applied.end());
    EXPECT_EQ(applied, (Calls{"cell.SetAttributes(" + model.Written(L"Cell"),
                              "press.SetAttributes(" + model.Written(L"Station")}));
}
