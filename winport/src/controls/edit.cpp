#include "edit.h"

#include "window/thread.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr std::size_t kGreatestLimit = 0x7FFFFFFE;

// Characters of Control with C, V, X, Z and Backspace.
constexpr wchar_t kCopy = 0x03;
constexpr wchar_t kPaste = 0x16;
constexpr wchar_t kCut = 0x18;
constexpr wchar_t kUndo = 0x1A;
constexpr wchar_t kRubOut = 0x7F;
} // namespace

LRESULT CEdit::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_NCCREATE:
        TakeBorder();
        return Default(message, wParam, lParam);
    case WM_SETTEXT:
        SetContent(reinterpret_cast<const wchar_t*>(lParam));
        return TRUE;
    case WM_GETDLGCODE:
        return DialogCode(reinterpret_cast<const MSG*>(lParam));
    case WM_SETFOCUS:
        NotifyCommand(EN_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        NotifyCommand(EN_KILLFOCUS);
        return 0;
    case WM_CHAR:
        OnChar(static_cast<wchar_t>(wParam));
        return 0;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (ComboTakes(wParam))
            return SendMessageW(Combo(), message, wParam, lParam);
        if (message == WM_SYSKEYDOWN)
            return Default(message, wParam, lParam);
        OnKey(wParam);
        return 0;
    case WM_LBUTTONDOWN:
        OnClick(wParam, static_cast<short>(LOWORD(lParam)));
        return 0;
    case WM_LBUTTONDBLCLK:
        SelectWord(static_cast<short>(LOWORD(lParam)));
        return 0;
    default:
        return HandleOwn(message, wParam, lParam);
    }
}

LRESULT CEdit::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case EM_GETSEL:
        return GetSelection(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
    case EM_SETSEL:
        SetSelection(static_cast<int>(wParam), static_cast<int>(lParam));
        return TRUE;
    case EM_REPLACESEL:
        Replace(lParam ? reinterpret_cast<const wchar_t*>(lParam) : L"");
        return 0;
    case EM_SETLIMITTEXT:
        m_limit = wParam ? std::min<std::size_t>(wParam, kGreatestLimit) : kGreatestLimit;
        return 0;
    case EM_GETLIMITTEXT:
        return static_cast<LRESULT>(m_limit);
    default:
        return Default(message, wParam, lParam);
    }
}

// The control draws the border inside its client area and removes the style.
void CEdit::TakeBorder()
{
    m_window.style &= ~WS_BORDER;
    Reframe(m_window);
}

// The keys that close an open combo box are handled by it, not by the dialog.
LRESULT CEdit::DialogCode(const MSG* message) const
{
    constexpr LRESULT code = DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_HASSETSEL;
    const bool closes = message && message->message == WM_KEYDOWN &&
                        (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    return closes && Combo() && SendMessageW(Combo(), CB_GETDROPPEDSTATE, 0, 0) ? code | DLGC_WANTMESSAGE
                                                                                : code;
}

// Returns the combo box to which this edit control belongs, or null.
HWND CEdit::Combo() const
{
    const Window* parent = m_window.parent;
    return parent && parent->windowClass->make == MakeComboBox ? parent->handle : nullptr;
}

bool CEdit::ComboTakes(WPARAM key) const
{
    return Combo() && (key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT || key == VK_F4);
}

// The field of a combo box does not notify its parent.
void CEdit::SetContent(const wchar_t* text)
{
    m_window.text = text ? text : L"";
    m_anchor = m_caret = 0;
    if (!Combo() && NotifyCommand(EN_UPDATE))
        NotifyCommand(EN_CHANGE);
}

LRESULT CEdit::GetSelection(DWORD* first, DWORD* last) const
{
    if (first)
        *first = static_cast<DWORD>(First());
    if (last)
        *last = static_cast<DWORD>(Last());
    return Last() > 0xFFFF ? -1 : MAKELONG(First(), Last());
}

void CEdit::SetSelection(int first, int last)
{
    const std::size_t length = m_window.text.size();
    const auto within = [length](int at) {
        return at < 0 ? length : std::min(static_cast<std::size_t>(at), length);
    };
    m_anchor = first == -1 ? m_caret : within(first);
    m_caret = first == -1 ? m_caret : within(last);
}

// Truncates what exceeds the limit.
void CEdit::Replace(std::wstring_view text)
{
    const std::size_t selected = Last() - First();
    const std::size_t kept = m_window.text.size() - selected;
    const std::size_t room = m_limit > kept ? m_limit - kept : 0;
    if (text.size() > room)
    {
        text = text.substr(0, room);
        if (!NotifyCommand(EN_MAXTEXT))
            return;
    }
    if (text.empty() && selected == 0)
        return;
    m_window.text.replace(First(), selected, text);
    m_anchor = m_caret = First() + text.size();
    if (NotifyCommand(EN_UPDATE))
        NotifyCommand(EN_CHANGE);
}

void CEdit::OnChar(wchar_t character)
{
    const bool closing = character == VK_RETURN || character == VK_ESCAPE;
    if (closing && Combo())
        SendMessageW(Combo(), WM_KEYDOWN, static_cast<WPARAM>(character), 0);
    if (closing || character == VK_TAB)
        return;
    if (character == VK_BACK)
        DeleteTo(m_caret > 0 ? m_caret - 1 : 0);
    else if (character == kCopy || character == kPaste || character == kCut || character == kUndo)
        Missing(&m_window, "character", static_cast<unsigned>(character));
    else if (character >= L' ' && character != kRubOut)
        Replace({&character, 1});
}

// Deletes the selection, or the text between the caret and `end` if nothing is selected.
void CEdit::DeleteTo(std::size_t end)
{
    if (m_anchor == m_caret)
        m_anchor = end;
    Replace({});
}

void CEdit::OnKey(WPARAM key)
{
    const std::size_t length = m_window.text.size();
    const bool control = IsHeld(VK_CONTROL);
    switch (key)
    {
    case VK_HOME:
        return MoveTo(0);
    case VK_END:
        return MoveTo(length);
    case VK_LEFT:
    case VK_UP:
        return MoveTo(control ? PreviousWord(m_caret) : m_caret - (m_caret > 0));
    case VK_RIGHT:
    case VK_DOWN:
        return MoveTo(control ? NextWord(m_caret) : m_caret + (m_caret < length));
    case L'A':
        return control ? SetSelection(0, -1) : void();
    case VK_DELETE:
    case VK_INSERT:
        if (IsHeld(VK_SHIFT) || (control && key == VK_INSERT))
            Missing(&m_window, "clipboard key", key);
        if (key == VK_DELETE)
            DeleteTo(control ? length : std::min(m_caret + 1, length));
        return;
    default:
        return;
    }
}

void CEdit::MoveTo(std::size_t caret)
{
    m_caret = caret;
    if (!IsHeld(VK_SHIFT))
        m_anchor = caret;
}

// Returns the start of the next word, or the end of the text.
std::size_t CEdit::NextWord(std::size_t from) const
{
    const std::wstring& text = m_window.text;
    return std::min(text.find_first_not_of(L' ', std::min(text.find(L' ', from), text.size())), text.size());
}

std::size_t CEdit::PreviousWord(std::size_t from) const
{
    const std::wstring& text = m_window.text;
    const std::size_t last = from ? text.find_last_not_of(L' ', from - 1) : std::wstring::npos;
    const std::size_t blank = last == std::wstring::npos ? last : text.rfind(L' ', last);
    return blank == std::wstring::npos ? 0 : blank + 1;
}

std::size_t CEdit::CharacterAt(int x) const
{
    const int character = (std::max(x, 0) + kCharacterWidth / 2) / kCharacterWidth;
    return std::min(static_cast<std::size_t>(character), m_window.text.size());
}

void CEdit::OnClick(WPARAM keys, int x)
{
    m_caret = CharacterAt(x);
    if (!(keys & MK_SHIFT))
        m_anchor = m_caret;
    SetFocus(Handle());
}

// Selects the word with the blanks after it.
void CEdit::SelectWord(int x)
{
    const std::size_t at = CharacterAt(x);
    m_anchor = PreviousWord(std::min(at + 1, m_window.text.size()));
    m_caret = NextWord(at);
}

std::unique_ptr<Control> MakeEdit(Window& window)
{
    return std::make_unique<CEdit>(window);
}
} // namespace winport
