// A dialog with a list and editors over the list's cells, which record what happens to them.
#pragma once

#include "TestDialog.h"

#include "DateTimeCtrl.h"
#include "Edit.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

constexpr UINT kTemplate = 302;
constexpr int kGrid = 310;
constexpr UINT kEditor = 1000;
constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD kPickerStyle = WS_CHILD | WS_VISIBLE | DTS_UPDOWN;
inline const RECT kCell{104, 20, 196, 40};

inline std::string Narrow(const std::wstring& text)
{
    return {text.begin(), text.end()};
}

/// Records the ends of its editors.
class Grid : public CListCtrl
{
public:
    explicit Grid(Events& events) : m_events(events) {}

    bool PreTranslateMessage(MSG& message) override
    {
        if (message.message == WM_KEYDOWN)
            m_events.emplace_back("list sees " + std::to_string(message.wParam));
        return false;
    }

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {OnReflected<&Grid::OnEndLabelEdit>(LVN_ENDLABELEDITW)};
        static const CMessageMap map{&CListCtrl::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnEndLabelEdit(NMHDR* header, LRESULT* result)
    {
        const LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
        m_events.emplace_back("list gets " + (item.pszText ? Narrow(item.pszText) : "nothing"));
        *result = 0;
    }

    Events& m_events;
};

/// An editor that notifies the list when it loses the focus, and then destroys its window: at once, or by a
/// message that it posts to itself.
template <class Base>
class CellEditor : public Base
{
public:
    CellEditor(Events& events, bool posts) : m_events(events), m_posts(posts) {}

    bool PreTranslateMessage(MSG& message) override
    {
        const bool own =
            message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
        if (!own)
            return false;
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return true;
    }

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {
            OnMessage<&CellEditor::OnKillFocus>(WM_KILLFOCUS),
            OnMessage<&CellEditor::OnKeyDown>(WM_KEYDOWN),
            OnReflected<&CellEditor::OnDateChange>(DTN_DATETIMECHANGE),
        };
        static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
        return map;
    }
    void PostNcDestroy() override { m_events.emplace_back("closed"); }

private:
    LRESULT OnKillFocus(WPARAM, LPARAM)
    {
        const LRESULT result = this->Default();
        Notify();
        if (m_posts)
            this->PostMessage(WM_CLOSE);
        else
            this->DestroyWindow();
        return result;
    }
    LRESULT OnKeyDown(WPARAM key, LPARAM)
    {
        m_cancelled = key == VK_ESCAPE;
        if (key != VK_RETURN && key != VK_ESCAPE)
            return this->Default();
        ::SetFocus(GetParent(this->m_hWnd));
        return 0;
    }
    void OnDateChange(NMHDR*, LRESULT*) { m_events.emplace_back("date changed"); }

    void Notify()
    {
        const HWND list = GetParent(this->m_hWnd);
        std::wstring text = this->GetWindowText();
        NMLVDISPINFOW end{};
        end.hdr = {list, kEditor, LVN_ENDLABELEDITW};
        end.item.mask = LVIF_TEXT;
        end.item.pszText = m_cancelled ? nullptr : text.data();
        ::SendMessageW(GetParent(list), WM_NOTIFY, static_cast<WPARAM>(GetDlgCtrlID(list)),
                       reinterpret_cast<LPARAM>(&end));
    }

    Events& m_events;
    bool m_posts;
    bool m_cancelled = false;
};

using CellEdit = CellEditor<CEdit>;
using CellPicker = CellEditor<CDateTimeCtrl>;

class GridDialog : public CDialog
{
public:
    explicit GridDialog(HWND parent = nullptr) : CDialog(kTemplate, parent) {}

    Events events;
    Grid list{events};
    std::vector<std::unique_ptr<CWnd>> editors;

    CellEdit& OpenEdit()
    {
        auto& editor = Add<CellEdit>(false);
        EXPECT_TRUE(editor.Create(kEditStyle, kCell, list.m_hWnd, kEditor));
        editor.SetWindowText(L"old");
        editor.SetFocus();
        editor.SetSel(0, -1);
        return editor;
    }
    CellPicker& OpenPicker(bool posts = true)
    {
        auto& editor = Add<CellPicker>(posts);
        EXPECT_TRUE(editor.Create(kPickerStyle, kCell, list.m_hWnd, kEditor));
        return editor;
    }

protected:
    // The list is bound twice on purpose: as often as a dialog may do so, nothing happens.
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Control(pDX, kGrid, list);
        DDX_Control(pDX, kGrid, list);
    }
    bool OnInitDialog() override
    {
        CDialog::OnInitDialog();
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, L"Value", LVCFMT_LEFT, 100);
        list.InsertItem(0, L"row");
        return true;
    }
    void OnOK() override { events.emplace_back("OK"); }
    void OnCancel() override
    {
        events.emplace_back("Cancel");
        CDialog::OnCancel();
    }

private:
    template <class Editor>
    Editor& Add(bool posts)
    {
        auto editor = std::make_unique<Editor>(events, posts);
        Editor& added = *editor;
        editors.push_back(std::move(editor));
        return added;
    }
};
