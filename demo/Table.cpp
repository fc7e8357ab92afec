#include "Table.h"

#include "Utf8.h"

#include <algorithm>
#include <cstdio>

namespace
{
std::wstring Padded(std::wstring text, size_t width)
{
    if (text.size() < width)
        text.append(width - text.size(), L' ');
    return text;
}

std::wstring WithoutTrailingBlanks(std::wstring text)
{
    text.erase(text.find_last_not_of(L' ') + 1);
    return text;
}
} // namespace

CTable::CTable(std::vector<std::wstring> headings)
{
    m_rows.push_back(std::move(headings));
}

void CTable::AddRow(std::vector<std::wstring> cells)
{
    cells.resize(m_rows.front().size());
    m_rows.push_back(std::move(cells));
}

void CTable::Print() const
{
    if (RowCount() == 0)
    {
        PrintLine(L"  (nothing)");
        return;
    }
    std::vector<size_t> widths(m_rows.front().size());
    for (const auto& row : m_rows)
    {
        for (size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], row[column].size());
    }
    for (size_t index = 0; index < m_rows.size(); ++index)
    {
        std::wstring line = L"  ";
        std::wstring rule = L"  ";
        for (size_t column = 0; column < widths.size(); ++column)
        {
            line += Padded(m_rows[index][column], widths[column]) + L"  ";
            rule += std::wstring(widths[column], L'-') + L"  ";
        }
        PrintLine(WithoutTrailingBlanks(line));
        if (index == 0)
            PrintLine(WithoutTrailingBlanks(rule));
    }
}

void PrintLine(const std::wstring& text)
{
    PrintUtf8(Utf8FromWide(text));
}

void PrintUtf8(const std::string& line)
{
    std::puts(line.c_str());
}
