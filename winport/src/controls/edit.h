// The edit control, of a single line: text, caret, selection, limit.
#pragma once

#include "window/window.h"

#include <algorithm>

namespace winport
{
class CEdit final : public Control
{
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using Control::Handle;

    std::size_t First() const { return std::min(m_anchor, m_caret); }
    std::size_t Last() const { return std::max(m_anchor, m_caret); }

    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT DialogCode(const MSG* message) const;
    void TakeBorder();

    void SetContent(const wchar_t* text);
    LRESULT GetSelection(DWORD* first, DWORD* last) const;
    void SetSelection(int first, int last);
    void Replace(std::wstring_view text);
    void DeleteTo(std::size_t end);

    void OnChar(wchar_t character);
    void OnKey(WPARAM key);
    void OnClick(WPARAM keys, int x);
    void SelectWord(int x);
    void MoveTo(std::size_t caret);
    std::size_t NextWord(std::size_t from) const;
    std::size_t PreviousWord(std::size_t from) const;
    std::size_t CharacterAt(int x) const;

    HWND Combo() const;
    bool ComboTakes(WPARAM key) const;

    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
    std::size_t m_limit = 30000;
};
} // namespace winport
