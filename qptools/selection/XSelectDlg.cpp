#include "XSelectDlg.h"

#include "ObjectValue.h"

#include "MessageBoxes.h"
#include "Translation.h"
#include "WindowTranslation.h"

#include <utility>
#include <vector>

namespace qptools
{
namespace
{
constexpr UINT kTemplate = 207;
constexpr UINT kPlaceholder = 206;
constexpr UINT kList = 6666;
constexpr DWORD kListStyle = 0x50800008;

/// The column of width 0 that carries the object.
constexpr int kObjectColumn = 1;

/// The width that the list's frame takes from the first column.
constexpr int kFrame = 5;
} // namespace

XSelectDlg::XSelectDlg(Entries entries, const wchar_t* title)
    : CDialog(kTemplate), m_entries(std::move(entries)), m_title(title)
{
}

const CMessageMap& XSelectDlg::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        // On purpose the hidden placeholder and not the list: only the OK button ends the choice.
        OnNotify<&XSelectDlg::OnDoubleClick>(NM_DBLCLK, kPlaceholder),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

bool XSelectDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    if (!CreateList())
        return false;
    FillList();
    SetWindowText(m_title);
    CoTranslateWindow(m_hWnd);
    return true;
}

bool XSelectDlg::CreateList()
{
    if (!m_list.CreateInPlaceOf(*this, kPlaceholder, kListStyle, kList))
        return false;
    const int width = m_list.GetWindowRect().Width() - kFrame;
    m_list.InsertColumn(0, CoTranslateText(L"Name"), LVCFMT_LEFT, width);
    m_list.InsertColumn(kObjectColumn, L"", LVCFMT_LEFT, 0);
    return true;
}

void XSelectDlg::FillList()
{
    int row = 0;
    for (const auto& [pointer, entry] : m_entries)
    {
        std::vector<XQPComVariant> columns;
        columns.reserve(2);
        columns.emplace_back(CoTranslateText(entry.prompt));
        columns.emplace_back(BorrowedObject(pointer));
        m_list.AddEntry(std::move(columns), row++, -1);
    }
    // With the focus, so that the arrow keys start from there.
    if (m_list.GetItemCount() > 0)
        m_list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void XSelectDlg::OnOK()
{
    XQPComVariant object;
    if (!m_list.GetSelData(kObjectColumn, object))
    {
        CoOkBox(nullptr, CoTranslateText(L"Attention !"),
                CoTranslateText(L"Select a ParentChildRelation, please."), 0);
        return;
    }
    m_ptrSelected = ComPtr<IUnknown>(ObjectOf(object.Value()));
    if (m_ptrSelected)
        EndDialog(IDOK);
}

void XSelectDlg::OnDoubleClick(NMHDR*, LRESULT*)
{
    OnOK();
}
} // namespace qptools
