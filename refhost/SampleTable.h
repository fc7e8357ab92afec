// One text table of sample data: a header with the names of the columns, then one row per object.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refhost
{
/// Cells are separated by "|" and trimmed; "\|" is a bar and "\\" a backslash. An empty cell is no value, ""
/// the empty text. Lines that start with "#" and blank lines are ignored. The text is UTF-8.
class SampleTable
{
public:
    struct Row
    {
        int line = 0;
        std::vector<std::optional<std::string>> cells;
    };

    /// Reads the file. Throws PlantError "file:line: reason" for a file that cannot be read or is not UTF-8,
    /// for duplicate or missing column names, and for a row whose number of cells differs from the header's.
    explicit SampleTable(const std::filesystem::path& file);

    const std::string& File() const { return m_file; }
    int HeaderLine() const { return m_headerLine; }
    const std::vector<std::string>& Columns() const { return m_columns; }
    const std::vector<Row>& Rows() const { return m_rows; }

    /// The index of a column; std::nullopt if there is no such column.
    std::optional<std::size_t> Find(std::string_view column) const;

    /// Throws PlantError "file:line: reason".
    [[noreturn]] void Fail(int line, const std::string& reason) const;

private:
    void Read(const std::string& text);
    void ReadHeader(const Row& row);

    std::string m_file;
    int m_headerLine = 1;
    std::vector<std::string> m_columns;
    std::vector<Row> m_rows;
};
} // namespace refhost
