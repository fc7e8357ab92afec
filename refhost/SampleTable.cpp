#include "SampleTable.h"

#include "HostText.h"
#include "PlantError.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace refhost
{
namespace
{
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Trims before it resolves escapes, so that an escaped character is never trimmed.
std::optional<std::string> CellOf(std::string_view raw)
{
    const std::string_view text = Trimmed(raw);
    if (text.empty())
        return std::nullopt;
    if (text == "\"\"")
        return std::string();
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool escape =
            text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == '|' || text[i + 1] == '\\');
        value += escape ? text[++i] : text[i];
    }
    return value;
}

std::vector<std::optional<std::string>> CellsOf(std::string_view line)
{
    std::vector<std::optional<std::string>> cells;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= line.size(); ++i)
    {
        if (i < line.size() && line[i] == '\\')
            ++i;
        else if (i == line.size() || line[i] == '|')
        {
            cells.push_back(CellOf(line.substr(start, i - start)));
            start = i + 1;
        }
    }
    return cells;
}
} // namespace

SampleTable::SampleTable(const std::filesystem::path& file) : m_file(PathText(file.filename()))
{
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream.is_open() || stream.bad())
        Fail(1, "the file cannot be read");
    Read(text);
}

void SampleTable::Fail(int line, const std::string& reason) const
{
    throw PlantError(m_file + ":" + std::to_string(line) + ": " + reason);
}

void SampleTable::Read(const std::string& text)
{
    std::string_view rest = text;
    if (rest.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        rest.remove_prefix(kByteOrderMark.size());
    for (int number = 1; !rest.empty(); ++number)
    {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (!IsUtf8(line))
            Fail(number, "the text is not UTF-8");
        const std::string_view content = Trimmed(line);
        if (content.empty() || content[0] == '#')
            continue;
        Row row{number, CellsOf(line)};
        if (m_columns.empty())
            ReadHeader(row);
        else if (row.cells.size() != m_columns.size())
            Fail(number, std::to_string(row.cells.size()) + " cells where the header names " +
                             std::to_string(m_columns.size()) + " columns");
        else
            m_rows.push_back(std::move(row));
    }
    if (m_columns.empty())
        Fail(1, "there is no header");
}

void SampleTable::ReadHeader(const Row& row)
{
    m_headerLine = row.line;
    for (const auto& cell : row.cells)
    {
        if (!cell)
            Fail(row.line, "a column has no name");
        if (Find(*cell))
            Fail(row.line, "column " + *cell + " stands twice");
        m_columns.push_back(*cell);
    }
}

std::optional<std::size_t> SampleTable::Find(std::string_view column) const
{
    const auto found = std::find(m_columns.begin(), m_columns.end(), column);
    if (found == m_columns.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - m_columns.begin());
}
} // namespace refhost
