#include "CEnhanceCopyListCtrl.h"

#include "CEnhancedCopyDialog.h"
#include "CInPlaceDateTime.h"
#include "CInPlaceEdit.h"
#include "ReadNumber.h"

#include "HostConstants.h"

#include "ComPtr.h"
#include "UiState.h"

#include <algorithm>
#include <utility>

namespace qptools
{
namespace
{
constexpr UINT kEditorId = 1000;
constexpr wchar_t kMark[] = L"X";

/// A narrower column is not edited.
constexpr int kLeastWidth = 5;
/// Pixels between the left edge of a cell and its editor, and what the editor is narrower than the column.
constexpr int kEditorIndent = 4;
constexpr int kEditorShortfall = 3;

/// Type codes of attributes whose values are dates.
constexpr int kDateType = 4;
constexpr int kDateTimeType = 16;

constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD kPickerStyle = WS_CHILD | WS_VISIBLE | DTS_UPDOWN;

/// The alignment of a column as style bits of its editor. On purpose they are those of an edit control, also
/// for the picker, which takes the right one for "may be without a date".
DWORD AlignmentBits(int format)
{
    return format == LVCFMT_LEFT ? 0 : format == LVCFMT_RIGHT ? 2 : 1;
}
} // namespace

CEnhanceCopyListCtrl::CEnhanceCopyListCtrl() = default;

// Here the window still finds the handlers of this class, which release the attributes of the rows.
CEnhanceCopyListCtrl::~CEnhanceCopyListCtrl()
{
    DestroyWindow();
}

bool CEnhanceCopyListCtrl::Create(DWORD style, const RECT& rect, HWND parent, UINT id)
{
    const CUiState uiState;
    return CListCtrl::Create(style, rect, parent, id);
}

const CMessageMap& CEnhanceCopyListCtrl::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnMessage<&CEnhanceCopyListCtrl::OnLButtonDown>(WM_LBUTTONDOWN),
        OnMessage<&CEnhanceCopyListCtrl::OnFocusTaking>(WM_SIZE),
        OnMessage<&CEnhanceCopyListCtrl::OnFocusTaking>(WM_VSCROLL),
        OnMessage<&CEnhanceCopyListCtrl::OnFocusTaking>(WM_HSCROLL),
        OnMessage<&CEnhanceCopyListCtrl::OnFocusTaking>(WM_MOUSEWHEEL),
        OnMessage<&CEnhanceCopyListCtrl::OnDeleteItem>(LVM_DELETEITEM),
        OnMessage<&CEnhanceCopyListCtrl::OnDeleteAllItems>(LVM_DELETEALLITEMS),
        OnMessage<&CEnhanceCopyListCtrl::OnDeleteAllItems>(WM_DESTROY),
        OnReflected<&CEnhanceCopyListCtrl::OnLvnEndlabeledit>(LVN_ENDLABELEDITW),
    };
    static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
    return map;
}

// Rows.

void CEnhanceCopyListCtrl::InsertAttribute(LPCWSTR name, IQPAttribute* attribute)
{
    m_attributes.emplace_back(attribute);
    if (InsertItem(0, name, reinterpret_cast<LPARAM>(attribute)) < 0)
        m_attributes.pop_back();
}

IQPAttribute* CEnhanceCopyListCtrl::AttributeOf(int row) const noexcept
{
    return reinterpret_cast<IQPAttribute*>(GetItemData(row));
}

// Attributes are released after their rows: a host may call back then.

LRESULT CEnhanceCopyListCtrl::OnDeleteItem(WPARAM row, LPARAM)
{
    AbandonEditors();
    ComPtr<IQPAttribute> released;
    const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [attribute = AttributeOf(static_cast<int>(row))](const auto& held) {
                                        return held.get() == attribute;
                                    });
    if (found != m_attributes.end())
    {
        released = std::move(*found);
        m_attributes.erase(found);
    }
    return Default();
}

LRESULT CEnhanceCopyListCtrl::OnDeleteAllItems(WPARAM, LPARAM)
{
    AbandonEditors();
    const auto released = std::exchange(m_attributes, {});
    return Default();
}

// Where the user clicks.

LRESULT CEnhanceCopyListCtrl::OnLButtonDown(WPARAM, LPARAM lParam)
{
    const LRESULT result = Default();
    int column = 0;
    const int row = HitTestEx(CPoint::FromMessage(lParam), &column);
    if (row == -1)
        return result;
    if (GetItemState(row, LVIS_FOCUSED))
        ShowInPlaceControls(row, column);
    else
        SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return result;
}

int CEnhanceCopyListCtrl::HitTestEx(const CPoint& point, int* column) const noexcept
{
    const int hit = HitTest(point);
    if (column)
        *column = 0;
    if ((GetStyle() & LVS_TYPEMASK) != LVS_REPORT)
        return hit;
    // The row past the last one has no rectangle and is never hit.
    const int last = std::min(GetTopIndex() + GetCountPerPage(), GetItemCount());
    for (int row = GetTopIndex(); row <= last; ++row)
    {
        CRect bounds;
        if (!GetItemRect(row, LVIR_BOUNDS, bounds) || !bounds.Contains(point))
            continue;
        const int found = ColumnAt(bounds, point);
        if (found < 0)
            continue;
        if (column)
            *column = found;
        return row;
    }
    return -1;
}

int CEnhanceCopyListCtrl::ColumnAt(const CRect& row, const CPoint& point) const noexcept
{
    int left = row.left;
    for (int column = 0; column < GetColumnCount(); ++column)
    {
        const int right = left + GetColumnWidth(column);
        if (point.x >= left && point.x <= right)
            return column;
        left = right;
    }
    return -1;
}

// So that no editor is left behind where its cell was.
LRESULT CEnhanceCopyListCtrl::OnFocusTaking(WPARAM, LPARAM)
{
    if (!HasFocus())
        SetFocus();
    return Default();
}

// Editors.

void CEnhanceCopyListCtrl::ShowInPlaceControls(int row, int column)
{
    const CUiState uiState;
    if (column == 0 || !EnsureVisible(row, true) || column >= GetColumnCount() ||
        GetColumnWidth(column) < kLeastWidth)
        return;
    const CRect place = EditorPlace(row, column);
    const ComPtr attribute(AttributeOf(row));
    if (!attribute)
        return;
    int type = 0;
    ReadNumber(attribute.get(), kAttributeMemberTypeCode, type);
    if (AttributeOf(row) != attribute.get())
        return; // the rows changed while the host answered
    std::erase_if(m_editors, [](const auto& editor) { return !editor->IsOpen(); });
    if (type == kDateType || type == kDateTimeType)
        OpenPicker(row, column, place);
    else
        OpenEdit(row, column, place);
}

/// Scrolls so that the cell begins inside the grid. Returns where its editor goes, in client coordinates.
CRect CEnhanceCopyListCtrl::EditorPlace(int row, int column) const noexcept
{
    int distance = 0;
    for (int before = 0; before < column; ++before)
        distance += GetColumnWidth(before);
    CRect bounds;
    GetItemRect(row, LVIR_BOUNDS, bounds);
    const LONG edge = GetClientRect().right;
    LONG left = bounds.left + distance;
    if (left < 0 || left > edge)
    {
        Scroll(left, 0);
        left = 0;
    }
    left += kEditorIndent;
    const LONG right = std::min(left + GetColumnWidth(column) - kEditorShortfall, edge);
    return {left, bounds.top, right, bounds.bottom};
}

void CEnhanceCopyListCtrl::OpenPicker(int row, int column, const CRect& place)
{
    auto picker = std::make_unique<CInPlaceDateTime>(row, column, GetItemText(row, column));
    if (!picker->Create(kPickerStyle | AlignmentBits(GetColumnFormat(column)), place, m_hWnd, kEditorId))
        return;
    m_editors.push_back(std::move(picker));
    ApplyRadioButtonLogic(row, column);
}

// An edit control ignores the alignment of the column, on purpose.
void CEnhanceCopyListCtrl::OpenEdit(int row, int column, const CRect& place)
{
    auto edit = std::make_unique<CInPlaceEdit>(row, column, GetItemText(row, column));
    CInPlaceEdit& opened = *edit;
    m_editors.push_back(std::move(edit));
    if (opened.Create(kEditStyle, place, m_hWnd, kEditorId))
        ApplyRadioButtonLogic(row, column);
}

void CEnhanceCopyListCtrl::ApplyRadioButtonLogic(int row, int column)
{
    constexpr int columns = 4;
    const bool isMarked = column >= 1 && column < columns;
    if (isMarked)
        SetItemText(row, column, kMark);
    for (int other = 1; other <= (isMarked ? columns : columns - 1); ++other)
        if (other != column)
            SetItemText(row, other, L"");
    UpdateContainer(row, column);
}

void CEnhanceCopyListCtrl::OnLvnEndlabeledit(NMHDR* notification, LRESULT* result)
{
    const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW*>(notification)->item;
    *result = 0;
    if (!item.pszText)
        return;
    SetItemText(item.iItem, item.iSubItem, item.pszText);
    UpdateContainer(item.iItem, item.iSubItem);
}

void CEnhanceCopyListCtrl::UpdateContainer(int row, int column) const
{
    if (auto* dialog = dynamic_cast<CEnhancedCopyDialog*>(FromHandlePermanent(GetParent(m_hWnd))))
        dialog->UpdateDataContainer(row, column);
}

// An editor of a row that goes is not asked for its text: it would be taken for that of another row.
void CEnhanceCopyListCtrl::AbandonEditors() noexcept
{
    for (const auto& editor : m_editors)
        editor->Abandon();
}
} // namespace qptools
