// A combo box that shows a stored entry when its dialog opens, and its whole list from the first drop-down
// on.
#pragma once

#include "ComboBox.h"

#include <iterator>
#include <string>
#include <utility>

namespace qptools
{
/// Selects the first item after `after` that begins with `text`, ignoring case; the search wraps around, and
/// -1 searches the whole list. An empty text, or one that no item begins with, leaves the selection as it is.
void SelectByPrefix(const CComboBox& box, int after, const std::wstring& text);

class OnDemandComboBox : public CComboBox
{
public:
    /// Adds `text` and selects the first item. To be called at most once, while the box is empty.
    void ShowStored(const std::wstring& text) const
    {
        AddString(text.c_str());
        SetCurSel(0);
    }

    bool HasSelection() const noexcept { return GetCurSel() != CB_ERR; }
    void Deselect() const noexcept { SetCurSel(-1); }

    /// Whether the list has been read, is not empty, and has as many entries as the box has items.
    template <class List>
    bool ShowsAll(const List& list) const noexcept
    {
        return !list.empty() && std::ssize(list) == GetCount();
    }

    /// Replaces the items by the names that `load()` returns, a range of texts or of pairs that begin with a
    /// text, and selects what was selected before, by prefix. On purpose the search begins after the first
    /// item: of "Plan" and "Plan A" the second is selected if "Plan" was.
    template <class Load>
    void Refill(Load&& load) const
    {
        const std::wstring selected = GetWindowText();
        ResetContent();
        for (const auto& entry : load())
            AddString(NameOf(entry).c_str());
        SelectByPrefix(*this, 0, selected);
    }

private:
    static const std::wstring& NameOf(const std::wstring& name) noexcept { return name; }
    template <class Value>
    static const std::wstring& NameOf(const std::pair<const std::wstring, Value>& entry) noexcept
    {
        return entry.first;
    }
};
} // namespace qptools
