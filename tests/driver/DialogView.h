// A dialog as its user sees and operates it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

using Texts = std::vector<std::wstring>;

/// A control of a dialog: by its identifier, or by its window where two share an identifier.
class DialogControl
{
public:
    DialogControl(int id) : m_id(id) {}                       // NOLINT: either is what a caller has
    DialogControl(HWND window) : m_id(0), m_window(window) {} // NOLINT
    int Id() const { return m_id; }
    HWND In(HWND dialog) const { return m_window ? m_window : GetDlgItem(dialog, m_id); }

private:
    int m_id;
    HWND m_window = nullptr;
};

/// A column of a list.
struct ShownColumn
{
    std::wstring caption;
    int width = 0; ///< in pixels
    bool operator==(const ShownColumn&) const = default;
};

/// A control that does not exist, or that no user could use (hidden, disabled), fails the test: nothing is
/// done then and an empty value is returned.
class DialogView
{
public:
    /// Keys that are held while another is pressed.
    static constexpr unsigned kShift = 1;
    static constexpr unsigned kControl = 2;
    static constexpr unsigned kAlt = 4;

    explicit DialogView(HWND dialog) : m_dialog(dialog) {}

    HWND Window() const { return m_dialog; }
    std::wstring Title() const;

    /// The window of a control; null, and the test fails, if the dialog has none.
    HWND Control(DialogControl control) const;

    /// The controls in the order of the Tab key.
    std::vector<HWND> Controls() const;

    // What is to be seen.
    std::wstring Text(DialogControl control) const;
    bool IsVisible(DialogControl control) const;
    bool IsEnabled(DialogControl control) const;
    bool IsChecked(DialogControl control) const;
    DWORD Style(DialogControl control) const;
    DWORD ExStyle(DialogControl control) const;

    /// In pixels of the dialog's client area.
    RECT Rect(DialogControl control) const;

    /// The identifier of the control that has the focus: of the combo box for its edit field. 0 for none.
    int Focus() const;

    // What a user does.
    /// Presses a button, or clicks into the middle of another control. Returns when all that the click leads
    /// to is done, dialogs and message boxes included.
    void Click(DialogControl control) const;

    /// Gives the control the focus, as Tab and the mouse do.
    void GiveFocus(DialogControl control) const;

    /// Types characters behind what is there, or over it where everything is selected.
    void Type(DialogControl control, const std::wstring& text) const;

    /// Replaces the text by typing over it; an empty text deletes it.
    void SetText(DialogControl control, const std::wstring& text) const;

    /// Presses and releases a key in the control that has the focus. The dialog gets it after this step:
    /// pressing a key is the last act of a step.
    void Press(WORD key, unsigned held = 0) const;

    /// Presses the close box.
    void Close() const;

    // Combo boxes.
    Texts Items(DialogControl combo) const;
    int Selected(DialogControl combo) const; ///< -1 for none
    bool IsDropped(DialogControl combo) const;
    void DropDown(DialogControl combo) const;

    /// Opens the box, goes to the item by an arrow key and takes it by Enter.
    void Choose(DialogControl combo, int index) const;
    void Choose(DialogControl combo, const std::wstring& item) const;

    // Lists.
    /// The one list that is shown.
    HWND List() const;
    int Rows(DialogControl list) const;
    std::wstring Cell(DialogControl list, int row, int column) const;
    Texts Column(DialogControl list, int column) const; ///< the cells from top to bottom
    Texts Row(DialogControl list, int row) const;       ///< the cells from left to right
    std::vector<ShownColumn> Columns(DialogControl list) const;
    int SelectedRow(DialogControl list) const; ///< -1 for none
    void SelectRow(DialogControl list, int row) const;
    void DoubleClick(DialogControl list, int row) const;

    /// Clicks where no row is. A list that is full has no such place: the test fails.
    void ClickBesideRows(DialogControl list) const;

    /// Begins to edit a row's label, as the second click on a selected row does after a while, and types
    /// characters over it. The list ends the editing like any other: by Enter, Escape, or with the focus.
    void EditLabel(DialogControl list, int row, const std::wstring& text) const;

    /// The editor of the label that is being edited; null if there is none.
    HWND LabelEditor(DialogControl list) const;

    /// All that the dialog shows, in UTF-8.
    std::string Dump() const;

    /// Releases the keys that Press holds in this thread.
    static void LetGoOfKeys();

private:
    void ComeToFront() const;
    HWND Usable(DialogControl control) const;
    HWND Typing(DialogControl control) const;
    void TypeInto(HWND window, const std::wstring& text) const;
    bool MayClickRow(HWND list, int row) const;
    void ClickRow(HWND list, int row, UINT downMessage) const;
    std::string Line(HWND control) const;

    HWND m_dialog;
};
