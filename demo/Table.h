// A plain text table whose columns are as wide as their widest cell.
#pragma once

#include <string>
#include <vector>

class CTable
{
public:
    explicit CTable(std::vector<std::wstring> headings);

    /// Adds a row with one cell per heading.
    void AddRow(std::vector<std::wstring> cells);

    size_t RowCount() const { return m_rows.size() - 1; }

    /// Prints the table as UTF-8, indented by two blanks; a table without rows prints a line that says so.
    void Print() const;

private:
    std::vector<std::vector<std::wstring>> m_rows;
};

/// Prints a line as UTF-8.
void PrintLine(const std::wstring& text);

/// Prints a line of UTF-8.
void PrintUtf8(const std::string& line);
