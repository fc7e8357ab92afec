#include "Steps.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace
{
std::string Name(int number)
{
    return std::to_string(number);
}

std::string Quoted(const std::wstring& text)
{
    return "\"" + Utf8Text(text) + "\"";
}

void Turn(DialogView& view, int button, bool on)
{
    if (view.IsChecked(button) == on)
        ADD_FAILURE() << button << (on ? " is checked already in\n" : " is not checked in\n") << view.Dump();
    else
        view.Click(button);
}

/// The row with this text in its first column; -1, and the test fails, if there is none.
int RowOf(const DialogView& view, const std::wstring& text)
{
    const Texts rows = view.Column(view.List(), 0);
    const auto found = std::find(rows.begin(), rows.end(), text);
    if (found != rows.end())
        return static_cast<int>(found - rows.begin());
    ADD_FAILURE() << "no row shows " << Quoted(text) << " in\n" << view.Dump();
    return -1;
}
} // namespace

DialogStep Sees(Sight sight)
{
    return DialogStep(std::move(sight));
}

DialogStep Types(const std::string& keys)
{
    return DialogStep(keys, std::nullopt, false);
}

DialogStep Types(const std::string& keys, Sight until)
{
    return DialogStep(keys, std::move(until), false);
}

DialogStep Ends(const std::string& keys)
{
    return DialogStep(keys, std::nullopt, true);
}

Steps GoesRound(const std::vector<int>& controls)
{
    Steps steps = {Sees(FocusOn(controls.front()))};
    for (std::size_t next = 1; next <= controls.size(); ++next)
        steps.push_back(Types("Tab", FocusOn(controls[next % controls.size()])));
    for (std::size_t left = controls.size(); left > 0; --left)
        steps.push_back(Types("shift+Tab", FocusOn(controls[left - 1])));
    return steps;
}

DialogStep Presses(int button)
{
    return {"presses " + Name(button), [button](DialogView& view) {
                view.Click(button);
            }};
}

DialogStep Checks(int button)
{
    return {"checks " + Name(button), [button](DialogView& view) {
                Turn(view, button, true);
            }};
}

DialogStep Unchecks(int box)
{
    return {"unchecks " + Name(box), [box](DialogView& view) {
                Turn(view, box, false);
            }};
}

DialogStep Types(int edit, const std::wstring& text)
{
    return {"types " + Quoted(text) + " into " + Name(edit), [edit, text](DialogView& view) {
                view.Type(edit, text);
            }};
}

DialogStep Enters(int edit, const std::wstring& text)
{
    return {"enters " + Quoted(text) + " in " + Name(edit), [edit, text](DialogView& view) {
                view.SetText(edit, text);
            }};
}

DialogStep Drops(int combo)
{
    return {"drops " + Name(combo), [combo](DialogView& view) {
                view.DropDown(combo);
            }};
}

DialogStep Chooses(int combo, const std::wstring& item)
{
    return {"chooses " + Quoted(item) + " in " + Name(combo), [combo, item](DialogView& view) {
                view.Choose(combo, item);
            }};
}

DialogStep Chooses(int combo, int index)
{
    return {"chooses item " + Name(index) + " of " + Name(combo), [combo, index](DialogView& view) {
                view.Choose(combo, index);
            }};
}

DialogStep Selects(int row)
{
    return {"selects row " + Name(row), [row](DialogView& view) {
                view.SelectRow(view.List(), row);
            }};
}

DialogStep Selects(const std::wstring& text)
{
    return {"selects the row " + Quoted(text), [text](DialogView& view) {
                if (const int row = RowOf(view, text); row >= 0)
                    view.SelectRow(view.List(), row);
            }};
}

DialogStep SelectsNone()
{
    return {"clicks beside the rows", [](DialogView& view) {
                view.ClickBesideRows(view.List());
                EXPECT_EQ(view.SelectedRow(view.List()), -1);
            }};
}

DialogStep DoubleClicks(int row)
{
    return {"double-clicks row " + Name(row), [row](DialogView& view) {
                view.DoubleClick(view.List(), row);
            }};
}

DialogStep DoubleClicks(const std::wstring& text)
{
    return {"double-clicks the row " + Quoted(text), [text](DialogView& view) {
                if (const int row = RowOf(view, text); row >= 0)
                    view.DoubleClick(view.List(), row);
            }};
}

DialogStep EditsLabel(int row, const std::wstring& text)
{
    return {"edits the label of row " + Name(row) + " to " + Quoted(text), [row, text](DialogView& view) {
                view.EditLabel(view.List(), row, text);
            }};
}

DialogStep Closes()
{
    return {"presses the close box", [](DialogView& view) {
                view.Close();
            }};
}
