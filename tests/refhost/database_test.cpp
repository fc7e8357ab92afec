// Plants in files: created, stored, reopened, refused.
#include "PlantFixture.h"

#include <fstream>

namespace
{
std::string OpenError(const std::filesystem::path& file)
{
    try
    {
        refhost::Plant::Open(file);
    }
    catch (const refhost::PlantError& error)
    {
        return error.what();
    }
    return "<no error>";
}

TEST(PlantFile, is_made_and_opened_again)
{
    const AllReleased released;
    const Folder folder;
    const auto file = folder.Path() / u8"pl\u00E4ne.db";
    {
        const auto plant = refhost::Plant::Open(file);
        plant->Load(refhost::SampleFolder());
        plant->Add(L"script", L"kept");
    }
    EXPECT_TRUE(std::filesystem::exists(file));
    const auto plant = refhost::Plant::Open(file);
    EXPECT_TRUE(plant->Find(L"script", L"kept"));
    EXPECT_EQ(ReadText(plant->Find(L"scriptcommand", L"Check clamps").get(), L"prompt"), L"Check");
    EXPECT_THROW(plant->Load(refhost::SampleFolder()), refhost::PlantError) << "the names are taken";
}

TEST(PlantFile, in_a_folder_that_is_not_there_is_refused)
{
    const Folder folder;
    const std::string error = OpenError(folder.Path() / "none" / "plant.db");
    EXPECT_NE(error.find("plant.db: unable to open database file"), std::string::npos) << error;
}

TEST(PlantFile, of_another_kind_is_refused_and_unchanged)
{
    const Folder folder;
    const auto file = folder.Path() / "text.db";
    const std::string content(2000, 'x');
    std::ofstream(file) << content;
    EXPECT_NE(OpenError(file).find("text.db: file is not a database"), std::string::npos) << OpenError(file);
    std::ifstream in(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), content);
}

TEST(PlantFile, of_another_database_is_refused)
{
    const Folder folder;
    const auto file = folder.Path() / "other.db";
    {
        refhost::Plant::Open(file)->Add(L"script", L"S");
    }
    // The file's header has the mark of a plant in the four bytes from 68 on, and its version from 60 on.
    const auto patch = [&](int offset) {
        std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
        stream.seekp(offset + 3);
        stream.put(9);
    };
    patch(60);
    EXPECT_NE(OpenError(file).find("other.db: the plant was written by another version"), std::string::npos);
    patch(68);
    EXPECT_NE(OpenError(file).find("other.db: the database is not a plant"), std::string::npos);
}

TEST(PlantInMemory, starts_with_a_root_and_nothing_else)
{
    const AllReleased released;
    const auto plant = refhost::Plant::OpenMemory();
    EXPECT_TRUE(plant->Find(L"root", L"root"));
    EXPECT_FALSE(plant->Find(L"project", L"root"));
}

TEST(PlantInMemory, is_one_of_its_own)
{
    const auto first = refhost::Plant::OpenMemory();
    const auto second = refhost::Plant::OpenMemory();
    first->Add(L"script", L"S");
    EXPECT_FALSE(second->Find(L"script", L"S"));
}

TEST(PlantInMemory, has_one_object_of_a_name_in_a_table)
{
    const AllReleased released;
    const auto plant = refhost::Plant::OpenMemory();
    plant->Add(L"script", L"S");
    plant->Add(L"project", L"S");
    EXPECT_THROW(plant->Add(L"script", L"S"), refhost::PlantError);
    plant->Add(L"script", L"s");
    EXPECT_TRUE(plant->Find(L"script", L"s"));
}

TEST(PlantInMemory, has_no_other_tables)
{
    const auto plant = refhost::Plant::OpenMemory();
    EXPECT_THROW(plant->Add(L"scripts", L"S"), refhost::PlantError);
    EXPECT_THROW(plant->Find(L"object", L"S"), refhost::PlantError);
}

TEST(LiveObjects, are_counted_from_making_to_the_last_release)
{
    const long before = refhost::Plant::LiveObjects();
    {
        const auto plant = refhost::Plant::OpenMemory();
        EXPECT_EQ(refhost::Plant::LiveObjects(), before);
        const ComPtr<IQP_Query> query = plant->NewQuery();
        const ComPtr<IQP_BaseDataObject> script = plant->Add(L"script", L"S");
        ComPtr<IQP_BaseDataObject> copy;
        EXPECT_EQ(script.copyTo(copy.put()), S_OK);
        EXPECT_EQ(refhost::Plant::LiveObjects(), before + 2);
    }
    EXPECT_EQ(refhost::Plant::LiveObjects(), before);
}
} // namespace
