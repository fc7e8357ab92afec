// What the two editors of a grid cell have in common.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

#include <string>
#include <utility>

namespace qptools
{
/// A cell under edit, as a notification of the end of the edit tells it.
struct InPlaceCell
{
    int row;
    int column;
    std::wstring text; ///< when the editor opened
};

/// Sends the grid's own notification of an edited label, LVN_ENDLABELEDITW with the number `editorId`, to the
/// parent of `grid`. A null `text` is a cancelled edit.
void NotifyEdited(HWND grid, int editorId, const InPlaceCell& cell, std::wstring* text);

/// Whether the key belongs to the editor alone, so that the dialog's default button does not take it.
bool IsEditorKey(const MSG& message);

/// An editor in the grid's list of them. Its object outlives its window, until the grid needs it no more.
class OpenEditor
{
public:
    virtual ~OpenEditor() = default;

    /// Whether it has a window or is still reporting its end, which calls the host.
    virtual bool IsOpen() const noexcept = 0;

    /// Destroys the window, and reports nothing.
    virtual void Abandon() noexcept = 0;
};

/// A child of the grid over one cell. It ends when it loses the focus: with its text, or without one after
/// Escape.
template <class Control>
class InPlaceEditor : public Control, public OpenEditor
{
public:
    bool IsOpen() const noexcept override { return this->m_hWnd || m_reporting; }
    void Abandon() noexcept override
    {
        m_ended = true;
        this->DestroyWindow();
    }

    bool PreTranslateMessage(MSG& message) override
    {
        if (!IsEditorKey(message))
            return Control::PreTranslateMessage(message);
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return true;
    }

protected:
    InPlaceEditor(int row, int column, std::wstring text) : m_cell{row, column, std::move(text)} {}

    HWND Grid() const noexcept { return GetParent(this->m_hWnd); }
    HFONT GridFont() const noexcept
    {
        return reinterpret_cast<HFONT>(::SendMessageW(Grid(), WM_GETFONT, 0, 0));
    }
    const std::wstring& InitialText() const noexcept { return m_cell.text; }

    /// Handles Return and Escape, which give the focus to the grid. Returns false for any other character.
    bool TakesCharacter(WPARAM character)
    {
        if (character != VK_RETURN && character != VK_ESCAPE)
            return false;
        m_cancelled = m_cancelled || character == VK_ESCAPE;
        ::SetFocus(Grid());
        return true;
    }

    /// Runs the control's own handling of WM_KILLFOCUS and reports the end of the edit. Returns false if the
    /// edit had ended before: it is reported once.
    bool Leave()
    {
        this->Default();
        if (std::exchange(m_ended, true))
            return false;
        std::wstring text = this->GetWindowText();
        m_reporting = true;
        NotifyEdited(Grid(), GetDlgCtrlID(this->m_hWnd), m_cell, m_cancelled ? nullptr : &text);
        m_reporting = false;
        return true;
    }

private:
    const InPlaceCell m_cell;
    bool m_cancelled = false;
    bool m_ended = false;
    bool m_reporting = false;
};
} // namespace qptools
