#include "XBaseListCtrl.h"

#include <utility>

namespace
{
constexpr DWORD kKindStyles = LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP;

/// What a cell shows of a value: a text as it stands, anything else as converted. `converted` keeps it.
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

bool XBaseListCtrl::AddEntry(std::vector<XQPComVariant> columns, int row, int)
{
    if (!m_hWnd || columns.empty())
        return false;
    m_rows.push_back(std::make_unique<Row>(std::move(columns)));
    const Row& values = *m_rows.back();
    XQPComVariant converted;
    const int made = InsertItem(row, ShownText(values[0], converted), reinterpret_cast<LPARAM>(&values));
    if (made < 0)
    {
        m_rows.pop_back();
        return false;
    }
    ShowTexts(made, values);
    return true;
}

void XBaseListCtrl::ShowTexts(int row, const Row& columns) const
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
    const auto* values = reinterpret_cast<const Row*>(GetItemData(selected));
    if (!values || column < 0 || static_cast<std::size_t>(column) >= values->size())
        return false;
    value = (*values)[static_cast<std::size_t>(column)];
    return true;
}

void XBaseListCtrl::Empty()
{
    DeleteAllItems();
    m_rows.clear();
}
