#include "SampleLoader.h"

#include "HostDate.h"
#include "HostText.h"
#include "KeyStore.h"
#include "ObjectStore.h"
#include "PlantCore.h"
#include "PlantError.h"
#include "SampleTable.h"

#include <oleauto.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>
#include <utility>

namespace refhost
{
namespace
{
constexpr const char* kSettingFile = "setting";

struct RightWord
{
    const char* word;
    long bits;
};

constexpr std::array<RightWord, 11> kRightWords = {{{"none", 0},
                                                    {"all", kAllRights},
                                                    {"read", 2},
                                                    {"execute", 4},
                                                    {"change", 8},
                                                    {"create", 16},
                                                    {"erase", 32},
                                                    {"take_ownership", 64},
                                                    {"change_rights", 128},
                                                    {"add_child", 256},
                                                    {"remove_child", 512}}};

/// The table of a kind, and the numbers of the objects created from its rows.
struct LoadedTable
{
    const Kind* kind;
    SampleTable table;
    std::vector<long long> ids;
};

class Loader
{
public:
    Loader(Database& database, const std::filesystem::path& folder);
    void Run();

private:
    void CheckColumns(const LoadedTable& loaded) const;
    void MakeObjects(LoadedTable& loaded);
    void LimitAttributes(const LoadedTable& loaded, const char* column, Limit limit);
    void FillColumn(const LoadedTable& loaded, std::size_t column);
    SqlValue ValueOf(const SampleTable& table, int line, const Attribute& attribute, const std::string& cell);
    long long Referred(const SampleTable& table, int line, const Attribute& attribute,
                       const std::string& key);
    void LoadSettings(const SampleTable& table);

    Database& m_database;
    std::vector<LoadedTable> m_tables;
    std::optional<SampleTable> m_settings;
};

std::optional<long long> NumberIn(const std::string& text)
{
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || stop != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<bool> FlagIn(const std::string& text)
{
    if (text != "yes" && text != "no")
        return std::nullopt;
    return text == "yes";
}

/// std::nullopt: no rights service.
std::optional<long> RightsOf(const SampleTable& table, int line, const std::string& text)
{
    if (text == "norights")
        return std::nullopt;
    long bits = 0;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        const auto* known = std::find_if(kRightWords.begin(), kRightWords.end(),
                                         [&](const RightWord& r) { return word == r.word; });
        if (known == kRightWords.end())
            table.Fail(line, "\"" + word + "\" is no right");
        bits |= known->bits;
    }
    return bits;
}

const std::optional<std::string>& CellOf(const SampleTable::Row& row, std::optional<std::size_t> column)
{
    static const std::optional<std::string> none;
    return column ? row.cells[*column] : none;
}

/// The text tables of the folder.
std::vector<std::filesystem::path> TablesIn(const std::filesystem::path& folder)
{
    std::error_code error;
    std::vector<std::filesystem::path> files;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
    {
        if (entry->path().extension() == ".txt")
            files.push_back(entry->path());
    }
    if (error)
        throw PlantError(PathText(folder) + ": the folder cannot be read");
    if (files.empty())
        throw PlantError(PathText(folder) + ": the folder holds no table");
    return files;
}

Loader::Loader(Database& database, const std::filesystem::path& folder) : m_database(database)
{
    std::vector<std::filesystem::path> files = TablesIn(folder);
    // In the order of the kinds, so that the numbers of objects do not depend on the file system.
    for (const Kind& kind : Kinds())
    {
        const auto found = std::find_if(files.begin(), files.end(),
                                        [&](const auto& file) { return file.stem() == kind.table; });
        if (found == files.end())
            continue;
        m_tables.push_back({&kind, SampleTable(*found), {}});
        files.erase(found);
    }
    for (const auto& file : files)
    {
        const SampleTable table(file);
        if (file.stem() != kSettingFile)
            table.Fail(1, "a plant has no table of this name");
        m_settings = table;
    }
}

void Loader::Run()
{
    Transaction transaction(m_database);
    for (LoadedTable& loaded : m_tables)
        CheckColumns(loaded);
    for (LoadedTable& loaded : m_tables)
        MakeObjects(loaded);
    for (const LoadedTable& loaded : m_tables)
    {
        LimitAttributes(loaded, "locked", Limit::Locked);
        LimitAttributes(loaded, "hidden", Limit::Hidden);
        LimitAttributes(loaded, "keyonly", Limit::KeyOnly);
        for (std::size_t column = 0; column < loaded.table.Columns().size(); ++column)
            FillColumn(loaded, column);
    }
    if (m_settings)
        LoadSettings(*m_settings);
    transaction.Commit();
}

void Loader::CheckColumns(const LoadedTable& loaded) const
{
    const SampleTable& table = loaded.table;
    for (const std::string& column : table.Columns())
    {
        const bool known = column == "key" || column == "locked" || column == "hidden" ||
                           column == "keyonly" || (column == "rights" && loaded.kind->hasRights) ||
                           loaded.kind->FindColumn(column);
        if (!known)
            table.Fail(table.HeaderLine(), std::string(loaded.kind->table) + " has no column " + column);
    }
    if (!table.Find("name"))
        table.Fail(table.HeaderLine(), "column name is missing");
}

void Loader::MakeObjects(LoadedTable& loaded)
{
    const SampleTable& table = loaded.table;
    const auto rights = table.Find("rights");
    for (const SampleTable::Row& row : table.Rows())
    {
        const auto& given = CellOf(row, table.Find("key"));
        const auto& key = given ? given : CellOf(row, table.Find("name"));
        if (!key)
            table.Fail(row.line, "the row has neither name nor key");
        try
        {
            loaded.ids.push_back(InsertObject(m_database, *loaded.kind, *key));
        }
        catch (const PlantError& error)
        {
            table.Fail(row.line, error.what());
        }
        if (loaded.kind->hasRights)
            StoreRights(m_database, loaded.ids.back(),
                        RightsOf(table, row.line, CellOf(row, rights).value_or("all")));
    }
}

/// The cells of `column` name attributes by their columns, separated by blanks.
void Loader::LimitAttributes(const LoadedTable& loaded, const char* column, Limit limit)
{
    const SampleTable& table = loaded.table;
    for (std::size_t i = 0; i < loaded.ids.size(); ++i)
    {
        const SampleTable::Row& row = table.Rows()[i];
        std::istringstream words(CellOf(row, table.Find(column)).value_or(""));
        for (std::string word; words >> word;)
        {
            const Attribute* attribute = loaded.kind->FindColumn(word);
            if (!attribute)
                table.Fail(row.line,
                           std::string(column) + ": " + loaded.kind->table + " has no column " + word);
            StoreLimit(m_database, loaded.ids[i], *attribute, limit);
        }
    }
}

void Loader::FillColumn(const LoadedTable& loaded, std::size_t column)
{
    const Attribute* attribute = loaded.kind->FindColumn(loaded.table.Columns()[column]);
    if (!attribute)
        return;
    Statement update(m_database, "UPDATE " + Quoted(loaded.kind->table) + " SET " +
                                     Quoted(attribute->column) + " = ?1 WHERE \"id\" = ?2");
    for (std::size_t i = 0; i < loaded.ids.size(); ++i)
    {
        const SampleTable::Row& row = loaded.table.Rows()[i];
        if (!row.cells[column])
            continue;
        update.Bind(1, ValueOf(loaded.table, row.line, *attribute, *row.cells[column]))
            .Bind(2, loaded.ids[i])
            .Step();
        update.Again();
    }
}

SqlValue Loader::ValueOf(const SampleTable& table, int line, const Attribute& attribute,
                         const std::string& cell)
{
    if (attribute.type == ColumnType::Object)
        return Referred(table, line, attribute, cell);
    if (attribute.type == ColumnType::Number)
    {
        if (const auto number = NumberIn(cell))
            return *number;
        table.Fail(line, std::string(attribute.column) + ": \"" + cell + "\" is no number");
    }
    if (attribute.type == ColumnType::Flag)
    {
        if (const auto flag = FlagIn(cell))
            return static_cast<long long>(*flag);
        table.Fail(line, std::string(attribute.column) + ": \"" + cell + "\" is neither yes nor no");
    }
    if (attribute.type == ColumnType::Date)
    {
        if (const auto date = StoredDate(cell))
            return *date;
        table.Fail(line, std::string(attribute.column) + ": \"" + cell + "\" is no date");
    }
    return cell;
}

long long Loader::Referred(const SampleTable& table, int line, const Attribute& attribute,
                           const std::string& key)
{
    Statement statement(m_database, R"(SELECT "id" FROM "object" WHERE "kind" = ?1 AND "key" = ?2)");
    statement.Bind(1, std::string(attribute.target)).Bind(2, key);
    if (!statement.Step())
        table.Fail(line,
                   std::string(attribute.column) + ": no " + attribute.target + " is named \"" + key + "\"");
    return statement.Integer(0);
}

/// Columns scope, key, name, type (text, number or flag) and value, all of them.
void Loader::LoadSettings(const SampleTable& table)
{
    constexpr std::array<const char*, 5> columns = {"scope", "key", "name", "type", "value"};
    for (const std::string& column : table.Columns())
    {
        if (std::find(columns.begin(), columns.end(), column) == columns.end())
            table.Fail(table.HeaderLine(), "settings have no column " + column);
    }
    for (const char* column : columns)
    {
        if (!table.Find(column))
            table.Fail(table.HeaderLine(), std::string("column ") + column + " is missing");
    }
    KeyStore store(m_database);
    for (const SampleTable::Row& row : table.Rows())
    {
        const auto cell = [&](const char* column) {
            return CellOf(row, table.Find(column)).value_or(std::string());
        };
        const auto scope = NumberIn(cell("scope"));
        if (!scope)
            table.Fail(row.line, "scope: \"" + cell("scope") + "\" is no number");
        if (cell("key").empty())
            table.Fail(row.line, "the row has no key");
        StoredValue value{VT_BSTR, cell("value")};
        const std::string type = cell("type");
        if (type == "number")
            value = {VT_I4, ValueOf(table, row.line, {"", "value", ColumnType::Number}, cell("value"))};
        else if (type == "flag")
            value = {VT_BOOL, ValueOf(table, row.line, {"", "value", ColumnType::Flag}, cell("value"))};
        else if (type != "text")
            table.Fail(row.line, "type: \"" + type + "\" is none of text, number and flag");
        store.Set(static_cast<long>(*scope), cell("key"), cell("name"), value);
    }
}
} // namespace

void LoadSample(Database& database, const std::filesystem::path& folder)
{
    Loader(database, folder).Run();
}
} // namespace refhost
