// The combo box: items, a selection, a drop-down list. With CBS_DROPDOWN it also has a field to type in, a
// child window of the class Edit. The list has no window.
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
    /// Index from which the search for a typed letter starts. A key selects it first if it is not the
    /// selection.
    int m_caret = 0;
    int m_rows = 0; ///< number of rows of the open list
    bool m_open = false;
    bool m_picked = false; ///< a key has selected an item; the next change of the field keeps the selection
    HWND m_field = nullptr;
};
} // namespace winport
