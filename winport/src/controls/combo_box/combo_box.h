// The combo box: items, a selection, a list that drops down; as a drop-down also a field to type in, which is
// a child window of the class Edit. The list itself has no window.
#pragma once

#include "window/window.h"

namespace winport
{
class CComboBox final : public Control
{
public:
    explicit CComboBox(Window& window);

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using Control::Handle;

    struct Item
    {
        std::wstring text;
        LPARAM data = 0;
    };

    int Count() const { return static_cast<int>(m_items.size()); }
    bool Has(WPARAM index) const { return index < m_items.size(); }
    Item& At(WPARAM index) { return m_items[index]; }

    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleItem(UINT message, WPARAM index, LPARAM lParam);
    LRESULT HandleFocus(UINT message);
    LRESULT HandleText(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT ToField(UINT message, WPARAM wParam, LPARAM lParam) const;

    void Create();
    void KeepClosedHeight(WINDOWPOS* place);
    void PlaceField() const;
    RECT FieldPlace() const;
    LRESULT DialogCode(const MSG* message) const;

    LRESULT Add(const wchar_t* text);
    LRESULT Insert(int at, const wchar_t* text);
    LRESULT Delete(WPARAM index);
    LRESULT Reset();
    int Find(int after, const wchar_t* text) const;
    LRESULT Select(int index);
    void ShowSelected();
    void MatchField(bool select);
    void SetShownText(const std::wstring& text);
    std::wstring TextOfField() const;

    void Open();
    void Close(bool accepted);
    bool OnListKey(WPARAM key, bool alt);
    int TargetOf(WPARAM key) const;
    void Pick(int index);
    void Search(wchar_t character);
    void OnClick(int x);
    void OnCharacter(WPARAM character);
    void OnFieldCommand(int code);
    void LoseFocus();

    std::vector<Item> m_items;
    int m_selected = -1;
    int m_caret =
        0;          ///< the index from which letters go on; a key goes to it first if it is not the selection
    int m_rows = 0; ///< that the open list shows
    bool m_open = false;
    bool m_picked = false; ///< by a key; the next text that is typed leaves the selection as it is
    HWND m_field = nullptr;
};
} // namespace winport
