// Sample data with errors are refused with file, line and reason, and none of them are stored.
#include "PlantFixture.h"

#include "PlantCore.h"

#include <algorithm>
#include <fstream>
#include <map>

namespace
{
class SampleErrors : public EmptyPlant
{
protected:
    void Write(const char* file, const std::string& text) const
    {
        std::ofstream stream(folder.Path() / file, std::ios::binary);
        stream << text;
    }

    /// Loads the folder and returns the error's text.
    std::string Error() const { return ErrorOf(folder.Path()); }

    std::string ErrorOf(const std::filesystem::path& path) const
    {
        const auto before = Everything();
        try
        {
            plant->Load(path);
        }
        catch (const refhost::PlantError& error)
        {
            EXPECT_EQ(Everything(), before) << "the database has changed";
            return error.what();
        }
        return "<no error>";
    }

    /// Every row of every table of the database, column by column with its type: objects, values, masters,
    /// rights, settings and whatever else there may be.
    Lines Everything() const
    {
        refhost::Database& database = plant->Shared()->database;
        Lines tables;
        refhost::Statement names(database,
                                 "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
        while (names.Step())
            tables.push_back(names.Text(0));
        Lines all;
        for (const std::string& table : tables)
        {
            std::string row = "SELECT '" + table + "'";
            refhost::Statement columns(database, "SELECT name FROM pragma_table_info('" + table + "')");
            while (columns.Step())
                row += " || ' | ' || quote(\"" + columns.Text(0) + "\")";
            refhost::Statement rows(database, row + " FROM \"" + table + "\" ORDER BY rowid");
            while (rows.Step())
                all.push_back(rows.Text(0));
        }
        return all;
    }

    const Folder folder;
};

TEST_F(SampleErrors, good_data_get_in)
{
    Write("script.txt", "name\nA\n");
    EXPECT_EQ(Error(), "<no error>");
    EXPECT_TRUE(plant->Find(L"script", L"A"));
}

TEST_F(SampleErrors, what_is_compared_is_everything)
{
    plant->Load(refhost::SampleFolder());
    const Lines all = Everything();
    const auto has = [&](const std::string& table, const std::string& part) {
        return std::any_of(all.begin(), all.end(), [&](const std::string& row) {
            return row.starts_with(table + " | ") && row.find(part) != std::string::npos;
        });
    };
    EXPECT_TRUE(has("object", "'Welding'"));
    EXPECT_TRUE(has("scriptcommand", "'Once for all objects'"));
    EXPECT_TRUE(has("storekey", "'properties'"));
    EXPECT_TRUE(has("storevalue", "'enablemcmscriptactions'"));

    const ComPtr<IQP_BaseDataObject> welding = plant->Find(L"plantype", L"Welding");
    EXPECT_EQ(welding->SetAttribute(Text(L"master"), Value()), S_OK);
    const Lines withoutMaster = Everything();
    EXPECT_NE(withoutMaster, all);
    plant->SetRights(L"plantype", L"Welding", 4);
    EXPECT_NE(Everything(), withoutMaster);
}

TEST_F(SampleErrors, a_folder_that_is_not_there)
{
    const std::string error = ErrorOf(folder.Path() / "nowhere");
    EXPECT_NE(error.find("nowhere: the folder cannot be read"), std::string::npos) << error;
}

TEST_F(SampleErrors, a_folder_without_tables)
{
    Write("notes.md", "nothing\n");
    const std::string error = Error();
    EXPECT_NE(error.find(": the folder holds no table"), std::string::npos) << error;
}

TEST_F(SampleErrors, a_table_that_a_plant_does_not_have)
{
    Write("script.txt", "name\nA\n");
    Write("machine.txt", "name\nM\n");
    EXPECT_EQ(Error(), "machine.txt:1: a plant has no table of this name");
}

TEST_F(SampleErrors, a_file_without_a_header)
{
    Write("script.txt", "");
    EXPECT_EQ(Error(), "script.txt:1: there is no header");
    Write("script.txt", "# only a comment\n\n   \n");
    EXPECT_EQ(Error(), "script.txt:1: there is no header");
}

TEST_F(SampleErrors, a_column_that_the_table_does_not_have)
{
    Write("script.txt", "# scripts\n\nname | colour\nA | red\n");
    EXPECT_EQ(Error(), "script.txt:3: script has no column colour");
    Write("script.txt", "name | m_name\nA | B\n");
    EXPECT_EQ(Error(), "script.txt:1: script has no column m_name");
    Write("script.txt", "name\nA\n");
    Write("configtype.txt", "name | rights\nA | all\n");
    EXPECT_EQ(Error(), "configtype.txt:1: configtype has no column rights");
}

TEST_F(SampleErrors, a_column_twice_or_without_a_name)
{
    Write("script.txt", "name | rights | name\n");
    EXPECT_EQ(Error(), "script.txt:1: column name stands twice");
    Write("script.txt", "name | | rights\n");
    EXPECT_EQ(Error(), "script.txt:1: a column has no name");
}

TEST_F(SampleErrors, no_column_of_names)
{
    Write("script.txt", "key | rights\nA | all\n");
    EXPECT_EQ(Error(), "script.txt:1: column name is missing");
}

TEST_F(SampleErrors, too_few_or_too_many_cells)
{
    Write("script.txt", "name | rights\nA |\nB\n");
    EXPECT_EQ(Error(), "script.txt:3: 1 cells where the header names 2 columns");
    Write("script.txt", "name | rights\n\n# one\nA | all | x\n");
    EXPECT_EQ(Error(), "script.txt:4: 3 cells where the header names 2 columns");
}

TEST_F(SampleErrors, a_row_without_name_and_key)
{
    Write("script.txt", "name | rights\nA | all\n | all\n");
    EXPECT_EQ(Error(), "script.txt:3: the row has neither name nor key");
}

TEST_F(SampleErrors, a_name_twice)
{
    Write("script.txt", "name\nA\nB\nA\n");
    EXPECT_EQ(Error(), "script.txt:4: there are two of the name \"A\" in script");
    Write("script.txt", "key | name\nA | \n | A\n");
    EXPECT_EQ(Error(), "script.txt:3: there are two of the name \"A\" in script");
}

TEST_F(SampleErrors, a_name_that_the_database_holds_already)
{
    plant->Add(L"script", L"A");
    Write("script.txt", "name\nB\nA\n");
    EXPECT_EQ(Error(), "script.txt:3: there are two of the name \"A\" in script");
    EXPECT_FALSE(plant->Find(L"script", L"B"));
}

TEST_F(SampleErrors, a_reference_to_nothing)
{
    Write("script.txt", "name\nA\n");
    Write("scriptaction.txt", "name | script\nfirst | A\nsecond | a\n");
    EXPECT_EQ(Error(), "scriptaction.txt:3: script: no script is named \"a\"");
    Write("scriptaction.txt", "name | orvoplantype\nfirst | A\n");
    EXPECT_EQ(Error(), "scriptaction.txt:2: orvoplantype: no plantype is named \"A\"");
}

TEST_F(SampleErrors, a_bad_number)
{
    for (const char* bad :
         {"ten", "1.5", "1x", "0x10", "2147483648", "-2147483649", "99999999999999999999", "+1", "1 2"})
    {
        Write("scriptaction.txt", std::string("name | sequence\nA | 1\nB | ") + bad + "\n");
        EXPECT_EQ(Error(), std::string("scriptaction.txt:3: sequence: \"") + bad + "\" is no number");
    }
}

TEST_F(SampleErrors, a_bad_flag)
{
    for (const char* bad : {"1", "true", "Yes", "maybe"})
    {
        Write("scriptaction.txt", std::string("name | enabled\nA | yes\nB | ") + bad + "\n");
        EXPECT_EQ(Error(), std::string("scriptaction.txt:3: enabled: \"") + bad + "\" is neither yes nor no");
    }
}

TEST_F(SampleErrors, a_bad_right)
{
    Write("script.txt", "name | rights\nA | read execute\nB | read run\n");
    EXPECT_EQ(Error(), "script.txt:3: \"run\" is no right");
    Write("script.txt", "name | rights\nA | read norights\n");
    EXPECT_EQ(Error(), "script.txt:2: \"norights\" is no right");
}

TEST_F(SampleErrors, a_limit_for_a_column_that_is_not_there)
{
    Write("script.txt", "name | locked\nA | name colour\n");
    EXPECT_EQ(Error(), "script.txt:2: locked: script has no column colour");
    Write("script.txt", "name | hidden\nA |\nB | m_name\n");
    EXPECT_EQ(Error(), "script.txt:3: hidden: script has no column m_name");
}

TEST_F(SampleErrors, text_that_is_not_utf8)
{
    Write("script.txt", "name\nA\nB\xFC\n");
    EXPECT_EQ(Error(), "script.txt:3: the text is not UTF-8");
}

TEST_F(SampleErrors, settings_with_errors)
{
    const std::string header = "scope | key | name | type | value\n";
    const std::map<std::string, std::string> cases = {
        {"scope | key | name | type\n", "setting.txt:1: column value is missing"},
        {"scope | key | name | type | value | more\n", "setting.txt:1: settings have no column more"},
        {header + "one | k | n | text | v\n", "setting.txt:2: scope: \"one\" is no number"},
        {header + "1 | | n | text | v\n", "setting.txt:2: the row has no key"},
        {header + "1 | k | n | text | v\n1 | k | n | date | v\n",
         "setting.txt:3: type: \"date\" is none of text, number and flag"},
        {header + "1 | k | n | number | v\n", "setting.txt:2: value: \"v\" is no number"},
        {header + "1 | k | n | flag | 1\n", "setting.txt:2: value: \"1\" is neither yes nor no"},
    };
    for (const auto& [text, error] : cases)
    {
        Write("setting.txt", text);
        EXPECT_EQ(Error(), error);
    }
}

TEST_F(SampleErrors, an_error_in_the_last_file_leaves_a_plant_unchanged)
{
    plant->Load(refhost::SampleFolder());
    Write("plantypeset.txt", "name | master | rights\nNew Shop | Company Standards | read\n");
    Write("plantype.txt", "name | master | orvoplantypeset\nNew | Welding | New Shop\n");
    Write("setting.txt",
          "scope | key | name | type | value\n1 | properties | enablemcmscriptactions | flag | no\n"
          "1 | k | m | number | v\n");
    EXPECT_EQ(Error(), "setting.txt:3: value: \"v\" is no number");
}

TEST_F(SampleErrors, an_error_in_the_last_file_undoes_the_first)
{
    Write("project.txt", "name\nP\n");
    Write("script.txt", "name | dodefaultimpl\nA | P\n");
    Write("setting.txt", "scope | key | name | type | value\n1 | k | n | text | v\n1 | k | m | number | v\n");
    EXPECT_EQ(Error(), "setting.txt:3: value: \"v\" is no number");
    EXPECT_FALSE(plant->Find(L"project", L"P"));
    Write("setting.txt", "scope | key | name | type | value\n");
    EXPECT_EQ(Error(), "<no error>");
    EXPECT_TRUE(plant->Find(L"project", L"P"));
}
} // namespace
