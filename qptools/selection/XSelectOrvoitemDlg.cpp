#include "XSelectOrvoitemDlg.h"

#include "ObjectValue.h"

#include "MessageBoxes.h"
#include "Translation.h"
#include "WindowTranslation.h"
#include "XQPError.h"

#include <utility>

namespace qptools
{
namespace
{
constexpr UINT kTemplate = 204;
constexpr UINT kPlaceholder = 206;
constexpr DWORD kListStyle = 0x50800000;

/// The list has the placeholder's identifier, on purpose. It is reached only through its object: GetDlgItem
/// finds the placeholder, which comes first.
constexpr UINT kList = kPlaceholder;

/// No control has this identifier.
constexpr UINT kDoubleClicked = 203;
} // namespace

XSelectOrvoitemDlg::XSelectOrvoitemDlg(HWND parent, const wchar_t* itemType, IQP_BaseDataObject* dataObject,
                                       IQP_Query* query)
    : CDialog(kTemplate, parent), m_ptrDataObject(dataObject), m_ptrQuery(query), m_bstrItemType(itemType)
{
}

HRESULT XSelectOrvoitemDlg::GetSelectedObject(IQP_BaseDataObject** out) const
{
    return m_ptrSelected.copyTo(out);
}

HRESULT XSelectOrvoitemDlg::Report(HRESULT status, const wchar_t* message, ULONG line) noexcept
{
    return XQPError::HandleComError(status, L"QPTools", message, line, true, false);
}

const CMessageMap& XSelectOrvoitemDlg::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        // On purpose not the list's identifier: only the OK button ends the choice.
        OnNotify<&XSelectOrvoitemDlg::OnDoubleClick>(NM_DBLCLK, kDoubleClicked),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

bool XSelectOrvoitemDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    if (m_list.m_hWnd)
        m_list.Empty();
    const wchar_t* caption = CoTranslateText(L"Items");
    const wchar_t* boxTitle = CoTranslateText(L"Error");
    const wchar_t* boxMessage = CoTranslateText(L"Unknown error.");
    if (m_bstrItemType == L"script")
    {
        if (!CreateList())
            return false;
        const HRESULT status = GetScriptsFromProject(&m_list);
        if (status < 0)
        {
            Report(status, L"XSelectOrvoitemDlg::OnInitDialog  GetScriptsFromProject", 102);
            return false;
        }
        caption = CoTranslateText(L"Scripts");
        boxTitle = CoTranslateText(L"Select Script");
        boxMessage = CoTranslateText(L"No scripts available.");
    }
    if (!m_list.m_hWnd || m_list.GetItemCount() == 0)
    {
        CoInfoBox(nullptr, boxTitle, boxMessage, 0);
        OnCancel();
        return false;
    }
    // With the focus, so that the arrow keys start from there.
    m_list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SetWindowText(caption);
    CoTranslateWindow(m_hWnd);
    m_list.SetFocus();
    return false;
}

bool XSelectOrvoitemDlg::CreateList()
{
    if (!m_list.CreateInPlaceOf(*this, kPlaceholder, kListStyle, kList))
        return false;
    const int width = static_cast<int>(m_list.GetWindowRect().Width() * 0.2);
    const wchar_t* const captions[] = {CoTranslateText(L"Name"), CoTranslateText(L"Location"),
                                       CoTranslateText(L"Script Language"), CoTranslateText(L"Creation Date"),
                                       CoTranslateText(L"Modification Date")};
    int column = 0;
    for (const wchar_t* caption : captions)
        m_list.InsertColumn(column++, caption, LVCFMT_LEFT, width);
    m_list.InsertColumn(kScriptObject, L"", LVCFMT_LEFT, 0);
    return true;
}

void XSelectOrvoitemDlg::OnOK()
{
    m_ptrSelected.reset();
    ComPtr<IQP_BaseDataObject> selected;
    if (GetSelectionFromList(selected.put()) != S_OK)
    {
        CoInfoBox(nullptr, CoTranslateText(L"Execute script"), CoTranslateText(L"Please select a script."),
                  0);
        return;
    }
    m_ptrSelected = std::move(selected);
    // GetSelectionFromList has already ended the dialog. The second call has no effect and is kept on
    // purpose.
    CDialog::OnOK();
}

HRESULT XSelectOrvoitemDlg::GetSelectionFromList(IQP_BaseDataObject** out)
{
    XQPComVariant value;
    if (!m_list.GetSelData(kScriptObject, value))
        return S_FALSE;
    ComPtr<IQP_BaseDataObject> selected;
    selected.queryFrom(ObjectOf(value.Value()));
    if (!selected)
        return E_NOINTERFACE;
    *out = selected.detach();
    CDialog::OnOK();
    return S_OK;
}

void XSelectOrvoitemDlg::OnDoubleClick(NMHDR*, LRESULT*)
{
    OnOK();
}
} // namespace qptools
