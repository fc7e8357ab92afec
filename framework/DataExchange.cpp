#include "DataExchange.h"

#include "Wnd.h"

#include <climits>
#include <cwchar>
#include <optional>

namespace
{
/// Calls `visit` for the radio buttons from `first` to the end of its group; other controls are skipped.
template <class Visit>
void ForEachRadio(HWND first, Visit&& visit)
{
    int place = 0;
    for (HWND item = first; item; item = GetWindow(item, GW_HWNDNEXT))
    {
        if (item != first && (GetWindowLongW(item, GWL_STYLE) & static_cast<LONG>(WS_GROUP)))
            break;
        if (SendMessageW(item, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON)
            visit(item, place++);
    }
}

/// The control `id`; null if there is no such control or the exchange has failed.
HWND ItemOf(const CDataExchange& exchange, int id)
{
    return exchange.Failed() ? nullptr : GetDlgItem(exchange.Dialog(), id);
}

/// The number that the whole text is: decimal digits, with or without a sign and blanks around. The system's
/// GetDlgItemInt would take "12x" for 12.
std::optional<int> NumberIn(const std::wstring& text)
{
    wchar_t* end = nullptr;
    const long long number = std::wcstoll(text.c_str(), &end, 10);
    const auto length = static_cast<std::size_t>(end - text.c_str());
    const bool isWhole = length > 0 && text.find_first_not_of(L" \t", length) == std::wstring::npos;
    const bool isInRange = number >= INT_MIN && number <= INT_MAX;
    return isWhole && isInRange ? std::optional(static_cast<int>(number)) : std::nullopt;
}
} // namespace

void DDX_Control(CDataExchange* pDX, int id, CWnd& control)
{
    if (!control.m_hWnd)
        control.SubclassDlgItem(static_cast<UINT>(id), pDX->Dialog());
}

void DDX_Text(CDataExchange* pDX, int id, std::wstring& value)
{
    const HWND item = ItemOf(*pDX, id);
    if (!item)
        return;
    if (pDX->m_bSaveAndValidate)
        value = WindowText(item);
    else
        SetWindowTextW(item, value.c_str());
}

void DDX_Text(CDataExchange* pDX, int id, int& value)
{
    const HWND item = ItemOf(*pDX, id);
    if (!item)
        return;
    if (!pDX->m_bSaveAndValidate)
    {
        SetDlgItemInt(pDX->Dialog(), id, static_cast<UINT>(value), TRUE);
        return;
    }
    if (const std::optional<int> number = NumberIn(WindowText(item)))
        value = *number;
    else
        pDX->Fail();
}

void DDX_Check(CDataExchange* pDX, int id, int& value)
{
    const HWND item = ItemOf(*pDX, id);
    if (!item)
        return;
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(SendMessageW(item, BM_GETCHECK, 0, 0));
    else
        SendMessageW(item, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDX_Radio(CDataExchange* pDX, int id, int& value)
{
    const HWND first = ItemOf(*pDX, id);
    if (first && pDX->m_bSaveAndValidate)
        value = -1;
    ForEachRadio(first, [&](HWND radio, int place) {
        if (!pDX->m_bSaveAndValidate)
            SendMessageW(radio, BM_SETCHECK, place == value ? BST_CHECKED : BST_UNCHECKED, 0);
        else if (SendMessageW(radio, BM_GETCHECK, 0, 0) == BST_CHECKED)
            value = place;
    });
}
