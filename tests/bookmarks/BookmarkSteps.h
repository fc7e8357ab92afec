// What users do with the list of bookmarks, beyond the words of all dialogs.
#pragma once

#include "BookmarkWords.h"
#include "Steps.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

namespace bookmark_dialog
{
inline HWND HeaderOf(const DialogView& view)
{
    return reinterpret_cast<HWND>(SendMessageW(view.List(), LVM_GETHEADER, 0, 0));
}

inline RECT HeadingRect(const DialogView& view, int column)
{
    RECT rect{};
    SendMessageW(HeaderOf(view), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&rect));
    return rect;
}

inline DialogStep ClicksHeading(int column)
{
    return {"clicks the heading of column " + std::to_string(column), [column](DialogView& view) {
                const RECT rect = HeadingRect(view, column);
                const LPARAM point = MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
                SendMessageW(HeaderOf(view), WM_LBUTTONDOWN, MK_LBUTTON, point);
                SendMessageW(HeaderOf(view), WM_LBUTTONUP, 0, point);
            }};
}

/// Drags the right border of a heading to that width.
inline DialogStep DragsBorder(int column, int width)
{
    return {"drags column " + std::to_string(column) + " to " + std::to_string(width), [=](DialogView& view) {
                const RECT rect = HeadingRect(view, column);
                const int y = (rect.top + rect.bottom) / 2;
                const HWND header = HeaderOf(view);
                SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(rect.right - 1, y));
                const LPARAM end = MAKELPARAM(rect.left + width - 1, y);
                SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, end);
                SendMessageW(header, WM_LBUTTONUP, 0, end);
            }};
}

inline Sight ColumnWidths(int first, int second)
{
    return {"the columns are " + std::to_string(first) + " and " + std::to_string(second) + " wide",
            [=](const DialogView& view) {
                const std::vector<ShownColumn> columns = view.Columns(view.List());
                return columns.size() == 2 && columns[0].width == first && columns[1].width == second;
            }};
}

/// Clicks a row while keys are held: MK_CONTROL, MK_SHIFT.
inline DialogStep ClicksRow(const std::wstring& text, WPARAM held)
{
    return {"clicks a row with held keys", [=](DialogView& view) {
                const HWND list = view.List();
                const Texts names = view.Column(list, 0);
                RECT rect{};
                rect.left = LVIR_LABEL;
                for (std::size_t row = 0; row < names.size(); ++row)
                    if (names[row] == text)
                        SendMessageW(list, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&rect));
                ASSERT_GT(rect.bottom, 0);
                const LPARAM point = MAKELPARAM(rect.left + 2, (rect.top + rect.bottom) / 2);
                PostMessageW(list, WM_LBUTTONUP, held, point);
                SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON | held, point);
            }};
}

inline Sight SelectedCount(int count)
{
    return {std::to_string(count) + " rows are selected", [count](const DialogView& view) {
                return SendMessageW(view.List(), LVM_GETSELECTEDCOUNT, 0, 0) == count;
            }};
}

/// Types over the label that is being edited.
inline DialogStep TypesLabel(const std::wstring& text)
{
    return {"types over the label", [text](DialogView& view) {
                const HWND editor = view.LabelEditor(view.List());
                ASSERT_NE(editor, nullptr);
                view.SetText(editor, text);
            }};
}

inline Sight NoLabelEdited()
{
    return {"no label is edited", [](const DialogView& view) {
                return !view.LabelEditor(view.List());
            }};
}

/// The texts of the labels and buttons, in the order of the template.
inline DialogStep SeesTexts(const Texts& expected)
{
    return {"sees the texts of labels and buttons", [expected](DialogView& view) {
                Texts texts;
                for (const HWND control : view.Controls())
                    if (const int id = GetDlgCtrlID(control); id != kProject && id != kList)
                        texts.push_back(view.Text(control));
                EXPECT_EQ(texts, expected);
            }};
}

/// The cells of both columns, from top to bottom.
inline Steps SeesRows(const Texts& names, const Texts& components)
{
    return {Sees(InColumn(0, names)), Sees(InColumn(1, components))};
}
} // namespace bookmark_dialog
