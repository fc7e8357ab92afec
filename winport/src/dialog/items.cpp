// Access to the controls of a dialog by identifier.
#include "window/window.h"

#include <cwctype>
#include <limits>
#include <optional>

namespace winport
{
namespace
{
// Parses the number at the start of a text: white space, a sign, digits. Returns nothing if there is no digit
// or the number is out of range.
std::optional<UINT> NumberIn(const std::wstring& text, bool isSigned)
{
    std::size_t at = 0;
    while (at < text.size() && std::iswspace(static_cast<wint_t>(text[at])))
        ++at;
    const bool negative = at < text.size() && text[at] == L'-';
    if (negative || (at < text.size() && text[at] == L'+'))
        ++at;
    const std::size_t first = at;
    const long long most = isSigned ? std::numeric_limits<int>::max() : std::numeric_limits<UINT>::max();
    long long value = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at)
    {
        value = value * 10 + (text[at] - L'0');
        if (value > most + (negative ? 1 : 0))
            return std::nullopt;
    }
    return at == first ? std::nullopt : std::optional(static_cast<UINT>(negative ? -value : value));
}
} // namespace
} // namespace winport

using namespace winport;

HWND GetDlgItem(HWND dialog, int id)
{
    const Window* window = FindWindowOf(dialog);
    if (!window)
    {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    for (const Window* child : window->children)
    {
        if (static_cast<int>(child->id) == id)
            return child->handle;
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int GetDlgCtrlID(HWND window)
{
    return static_cast<int>(GetWindowLongPtrW(window, GWLP_ID));
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND item = GetDlgItem(dialog, id);
    return item ? SendMessageW(item, message, wParam, lParam) : 0;
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text)
{
    return SendDlgItemMessageW(dialog, id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned)
{
    const std::wstring text = isSigned ? std::to_wstring(static_cast<int>(value)) : std::to_wstring(value);
    return SetDlgItemTextW(dialog, id, text.c_str());
}

UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned)
{
    const HWND item = GetDlgItem(dialog, id);
    const std::optional<UINT> number = item ? NumberIn(TextOf(item), isSigned) : std::nullopt;
    if (translated)
        *translated = number.has_value();
    return number.value_or(0);
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int checked)
{
    const Window* window = FindWindowOf(dialog);
    if (!window)
        return FALSE;
    std::vector<std::pair<HWND, bool>> radios;
    for (const Window* child : window->children)
    {
        const int id = static_cast<int>(child->id);
        if (id >= first && id <= last &&
            (SendMessageW(child->handle, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON))
            radios.emplace_back(child->handle, id == checked);
    }
    for (const auto& [radio, marked] : radios)
        SendMessageW(radio, BM_SETCHECK, marked ? BST_CHECKED : BST_UNCHECKED, 0);
    return TRUE;
}
