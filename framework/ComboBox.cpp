#include "ComboBox.h"

std::wstring CComboBox::GetLBText(int index) const
{
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, Index(index));
    if (length == CB_ERR)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = SendMessage(CB_GETLBTEXT, Index(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
    return text;
}
