#include "XBaseListCtrl.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr DWORD kKindStyles = LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP;

/// Texts are not stored: GetSelData reads them back from the cell.
bool IsKept(const XQPComVariant& value)
{
    return value.Type() != VT_BSTR;
}

/// What a cell shows of a value: a text as it is, anything else converted. `converted` owns the result.
const wchar_t* ShownText(const XQPComVariant& value, XQPComVariant& converted)
{
    switch (value.Type())
    {
    case VT_BSTR:
        return value.Value().bstrVal ? value.Value().bstrVal : L"";
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return L"";
    default:
        return SUCCEEDED(converted.ChangeType(VT_BSTR, &value.Value())) && converted.Value().bstrVal
                   ? converted.Value().bstrVal
                   : L"";
    }
}
} // namespace

XBaseListCtrl::~XBaseListCtrl() = default;

bool XBaseListCtrl::Create(DWORD style, const RECT& rect, HWND parent, UINT id)
{
    if (!CListCtrl::Create(style | kKindStyles, rect, parent, id))
        return false;
    SetExtendedStyle(LVS_EX_FULLROWSELECT);
    return true;
}

bool XBaseListCtrl::CreateInPlaceOf(const CWnd& dialog, int frame, DWORD style, UINT id)
{
    CRect place;
    if (const HWND control = dialog.GetDlgItem(frame))
    {
        ::GetWindowRect(control, &place);
        place = dialog.ScreenToClient(place);
        ::ShowWindow(control, SW_HIDE);
    }
    return Create(style, place, dialog.m_hWnd, id);
}

const CMessageMap& XBaseListCtrl::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnReflected<&XBaseListCtrl::OnDeleteAllItems>(LVN_DELETEALLITEMS),
    };
    static const CMessageMap map{&CListCtrl::ClassMessageMap(), entries};
    return map;
}

/// TRUE: no LVN_DELETEITEM for each row, which no dialog handles.
void XBaseListCtrl::OnDeleteAllItems(NMHDR*, LRESULT* result)
{
    *result = TRUE;
}

bool XBaseListCtrl::AddEntry(std::vector<XQPComVariant> columns, int row, int)
{
    if (!m_hWnd || columns.empty())
        return false;
    m_rows.push_back(RowFor(columns));
    XQPComVariant converted;
    const int made =
        InsertItem(row, ShownText(columns[0], converted), reinterpret_cast<LPARAM>(&m_rows.back()));
    if (made < 0)
    {
        m_rows.pop_back();
        return false;
    }
    ShowTexts(made, columns);
    Keep(columns, m_rows.back());
    return true;
}

/// Allocates the room for the stored values, so that storing them in a row already shown cannot fail.
XBaseListCtrl::Row XBaseListCtrl::RowFor(const std::vector<XQPComVariant>& columns)
{
    Row row{static_cast<int>(columns.size()), {}};
    row.values.reserve(static_cast<std::size_t>(std::count_if(columns.begin(), columns.end(), IsKept)));
    return row;
}

void XBaseListCtrl::Keep(std::vector<XQPComVariant>& columns, Row& row) noexcept
{
    for (int column = 0; column < row.columns; ++column)
        if (XQPComVariant& value = columns[static_cast<std::size_t>(column)]; IsKept(value))
            row.values.emplace_back(column, std::move(value));
}

void XBaseListCtrl::ShowTexts(int row, const std::vector<XQPComVariant>& columns) const
{
    for (std::size_t column = 1; column < columns.size(); ++column)
    {
        XQPComVariant converted;
        const wchar_t* text = ShownText(columns[column], converted);
        if (*text)
            SetItemText(row, static_cast<int>(column), text);
    }
}

bool XBaseListCtrl::GetSelData(int column, XQPComVariant& value) const
{
    const int selected = m_hWnd ? GetNextItem(-1, LVNI_SELECTED) : -1;
    if (selected < 0)
        return false;
    const auto* row = reinterpret_cast<const Row*>(GetItemData(selected));
    if (!row || column < 0 || column >= row->columns)
        return false;
    const auto kept = std::find_if(row->values.begin(), row->values.end(),
                                   [column](const auto& entry) { return entry.first == column; });
    if (kept != row->values.end())
        value = kept->second;
    else
        value = GetItemText(selected, column).c_str();
    return true;
}

void XBaseListCtrl::Empty()
{
    DeleteAllItems();
    m_rows.clear();
}
