#include "Sight.h"

#include "BoxWindow.h"
#include "WindowTexts.h"

#include <utility>

namespace
{
std::string Quoted(const std::wstring& text)
{
    return "\"" + Utf8Text(text) + "\"";
}

std::string Quoted(const Texts& texts)
{
    std::string words;
    for (const std::wstring& text : texts)
        words += (words.empty() ? "" : ", ") + Quoted(text);
    return "{" + words + "}";
}

bool IsSame(const RECT& one, const RECT& other)
{
    return one.left == other.left && one.top == other.top && one.right == other.right &&
           one.bottom == other.bottom;
}

/// "105 shows ..."
Sight OfControl(int control, const std::string& words, std::function<bool(const DialogView&)> isSeen)
{
    return {std::to_string(control) + " " + words, std::move(isSeen)};
}

/// A message box has no list.
Sight OfList(std::string words, std::function<bool(const DialogView&, HWND list)> isSeen)
{
    return {std::move(words), [isSeen = std::move(isSeen)](const DialogView& view) {
                return !IsMessageBox(view.Window()) && isSeen(view, view.List());
            }};
}
} // namespace

Sight Titled(const std::wstring& title)
{
    return {"the title is " + Quoted(title), [title](const DialogView& view) {
                return view.Title() == title;
            }};
}

Sight OwnedBy(HWND owner)
{
    return {owner ? "the owner is the given window" : "there is no owner", [owner](const DialogView& view) {
                return GetWindow(view.Window(), GW_OWNER) == owner;
            }};
}

Sight OwnerDisabled()
{
    return {"the owner is disabled", [](const DialogView& view) {
                const HWND owner = GetWindow(view.Window(), GW_OWNER);
                return owner && !IsWindowEnabled(owner);
            }};
}

Sight Box(const std::wstring& title)
{
    return {"the box " + Quoted(title) + " is in front", [title](const DialogView& view) {
                return IsMessageBox(view.Window()) && view.Title() == title;
            }};
}

Sight FocusOn(int control)
{
    return OfControl(control, "has the focus",
                     [control](const DialogView& view) { return view.Focus() == control; });
}

Sight Shows(int control, const std::wstring& text)
{
    return OfControl(control, "shows " + Quoted(text),
                     [control, text](const DialogView& view) { return view.Text(control) == text; });
}

Sight Visible(int control)
{
    return OfControl(control, "is visible",
                     [control](const DialogView& view) { return view.IsVisible(control); });
}

Sight Hidden(int control)
{
    return OfControl(control, "is hidden", [control](const DialogView& view) {
        return view.Control(control) && !view.IsVisible(control);
    });
}

Sight Enabled(int control)
{
    return OfControl(control, "is enabled",
                     [control](const DialogView& view) { return view.IsEnabled(control); });
}

Sight Disabled(int control)
{
    return OfControl(control, "is disabled", [control](const DialogView& view) {
        return view.Control(control) && !view.IsEnabled(control);
    });
}

Sight Checked(int control)
{
    return OfControl(control, "is checked",
                     [control](const DialogView& view) { return view.IsChecked(control); });
}

Sight Unchecked(int control)
{
    return OfControl(control, "is not checked", [control](const DialogView& view) {
        return view.Control(control) && !view.IsChecked(control);
    });
}

Sight Offers(int combo, const Texts& items)
{
    return OfControl(combo, "offers " + Quoted(items),
                     [combo, items](const DialogView& view) { return view.Items(combo) == items; });
}

Sight Chosen(int combo, const std::wstring& item)
{
    return OfControl(combo, "has chosen " + Quoted(item), [combo, item](const DialogView& view) {
        const int index = view.Selected(combo);
        return index >= 0 && view.Items(combo).at(static_cast<std::size_t>(index)) == item;
    });
}

Sight NoneChosen(int combo)
{
    return OfControl(combo, "has no chosen item", [combo](const DialogView& view) {
        return view.Control(combo) && view.Selected(combo) == -1;
    });
}

Sight Dropped(int combo)
{
    return OfControl(combo, "is dropped down",
                     [combo](const DialogView& view) { return view.IsDropped(combo); });
}

Sight Undropped(int combo)
{
    return OfControl(combo, "is not dropped down", [combo](const DialogView& view) {
        return view.Control(combo) && !view.IsDropped(combo);
    });
}

Sight ListInPlaceOf(int control)
{
    return OfList("the list has the place of " + std::to_string(control),
                  [control](const DialogView& view, HWND list) {
                      const RECT place = view.Rect(list);
                      const RECT given = view.Rect(control);
                      return !view.IsVisible(control) && IsSame(place, given);
                  });
}

Sight RowCount(int count)
{
    return OfList("there are " + std::to_string(count) + " rows",
                  [count](const DialogView& view, HWND list) { return view.Rows(list) == count; });
}

Sight RowSelected(int row)
{
    return OfList("row " + std::to_string(row) + " is selected",
                  [row](const DialogView& view, HWND list) { return view.SelectedRow(list) == row; });
}

Sight NoRowSelected()
{
    return OfList("no row is selected",
                  [](const DialogView& view, HWND list) { return list && view.SelectedRow(list) == -1; });
}

Sight Selected(const std::wstring& text)
{
    return OfList(Quoted(text) + " is selected", [text](const DialogView& view, HWND list) {
        const int row = view.SelectedRow(list);
        return row >= 0 && view.Cell(list, row, 0) == text;
    });
}

Sight InColumn(int column, const Texts& texts)
{
    return OfList(
        "column " + std::to_string(column) + " has the texts " + Quoted(texts),
        [column, texts](const DialogView& view, HWND list) { return view.Column(list, column) == texts; });
}

Sight InRow(int row, const Texts& texts)
{
    return OfList("row " + std::to_string(row) + " has the texts " + Quoted(texts),
                  [row, texts](const DialogView& view, HWND list) { return view.Row(list, row) == texts; });
}

Sight Headings(const Texts& captions)
{
    return OfList("the headings are " + Quoted(captions), [captions](const DialogView& view, HWND list) {
        Texts shown;
        for (const ShownColumn& column : view.Columns(list))
            shown.push_back(column.caption);
        return shown == captions;
    });
}

Sight LabelEdited(const std::wstring& text)
{
    return OfList("a label is edited and reads " + Quoted(text), [text](const DialogView& view, HWND list) {
        const HWND editor = view.LabelEditor(list);
        return editor && TextOf(editor) == text;
    });
}
