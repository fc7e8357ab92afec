// The grid of the enhanced copy dialog as its rules say, without a window.
#pragma once

#include "WindowTexts.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Rows, open editors, and the values by plan type and attribute. Editors lose the focus by Leave.
class GridModel
{
public:
    struct Attribute
    {
        std::wstring name;
        bool isDate = false;
    };
    using Types = std::map<std::wstring, std::vector<Attribute>>;
    using Texts = std::vector<std::wstring>;

    explicit GridModel(Types types) : m_types(std::move(types)) {}

    std::size_t Rows() const { return m_rows.size(); }
    Texts Names() const
    {
        Texts names;
        for (const Row& row : m_rows)
            names.push_back(row.attribute.name);
        return names;
    }
    Texts Cells() const
    {
        Texts cells;
        for (const Row& row : m_rows)
            cells.push_back(row.cell);
        return cells;
    }
    int Editors() const { return static_cast<int>(m_pickers.size()) + (m_edit ? 1 : 0); }
    bool IsEditing() const { return m_edit || m_entered; }
    const std::wstring& Text() const { return m_edit ? m_edit->text : m_enteredText; }

    /// A click in the value of a row that has the focus.
    void Open(int row)
    {
        Row& opened = m_rows[static_cast<std::size_t>(row)];
        if (opened.attribute.isDate)
            m_unseen.push_back(row);
        else
            m_edit = Edit{row, opened.cell};
        Set(row, L"X");
    }

    /// The windows of the pickers that were opened, in this order, once they can be seen.
    void See(const std::vector<HWND>& pickers)
    {
        for (const HWND picker : pickers)
            if (!m_pickers.contains(picker) && !m_unseen.empty())
            {
                m_pickers[picker] = m_unseen.front();
                m_unseen.erase(m_unseen.begin());
            }
    }

    /// Types over the text of the edit. Returns false if there is none.
    bool Type(const std::wstring& text)
    {
        if (m_edit)
            m_edit->text = text;
        return m_edit.has_value();
    }

    void Enter(HWND picker, std::wstring text)
    {
        m_entered = picker;
        m_enteredText = std::move(text);
    }

    /// The editor with the focus loses it.
    void Leave(bool cancelled = false)
    {
        if (m_edit)
        {
            const Edit left = *m_edit;
            m_edit.reset();
            if (!cancelled)
                Set(left.row, left.text);
        }
        else if (m_entered)
        {
            const int row = m_pickers.at(m_entered);
            m_pickers.erase(std::exchange(m_entered, nullptr));
            if (!cancelled)
                Set(row, m_enteredText);
        }
    }

    /// Editors of all rows go without their texts.
    void Delete(int row)
    {
        CloseAll();
        m_rows.erase(m_rows.begin() + row);
    }

    void Radio(int radio)
    {
        m_radio = radio;
        if (m_radio == m_filledFor)
            return;
        CloseAll();
        m_rows.clear();
        m_shown.clear();
    }

    void Choose(const std::wstring& type)
    {
        m_filledFor = m_radio;
        if (type == m_shown)
            return;
        CloseAll();
        m_shown = type;
        m_rows.clear();
        for (const Attribute& attribute : m_types.at(type))
            m_rows.push_back({attribute, L""});
        const Values& values = m_values[type];
        for (const Row& row : std::vector<Row>(m_rows))
            if (const auto found = values.find(row.attribute.name); found != values.end())
                m_rows[static_cast<std::size_t>(found->second.row)].cell = found->second.text;
    }

    /// As the record has them: "Mass = BSTR '5', Order = BSTR ''".
    std::string Written(const std::wstring& type) const
    {
        std::string written;
        const auto found = m_values.find(type);
        if (found != m_values.end())
            for (const auto& [name, value] : found->second)
                written +=
                    (written.empty() ? "" : ", ") + Utf8Text(name) + " = BSTR '" + Utf8Text(value.text) + "'";
        return written;
    }

private:
    struct Row
    {
        Attribute attribute;
        std::wstring cell;
    };
    struct Edit
    {
        int row;
        std::wstring text;
    };
    struct Value
    {
        int row; ///< where it was typed, and where it is shown again
        std::wstring text;
    };
    using Values = std::map<std::wstring, Value>;

    void Set(int row, const std::wstring& text)
    {
        Row& changed = m_rows[static_cast<std::size_t>(row)];
        changed.cell = text;
        m_values[m_shown][changed.attribute.name] = {row, text};
    }
    void CloseAll()
    {
        m_edit.reset();
        m_entered = nullptr;
        m_unseen.clear();
        m_pickers.clear();
    }

    const Types m_types;
    std::wstring m_shown;
    int m_radio = 0;
    int m_filledFor = -1;
    std::vector<Row> m_rows;
    std::optional<Edit> m_edit;
    std::vector<int> m_unseen;
    std::map<HWND, int> m_pickers;
    HWND m_entered = nullptr;
    std::wstring m_enteredText;
    std::map<std::wstring, Values> m_values;
};
