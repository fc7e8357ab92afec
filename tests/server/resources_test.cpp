// The module's resources, as the platform reads them from the module.
#include "ModuleUnderTest.h"
#include "SevenClasses.h"

#include "Resources.h"
#include "qptools_version.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <tuple>

namespace
{
/// Resources hold their texts in 16-bit units, in both builds.
std::string Utf16(const char* text)
{
    std::string units;
    for (; *text; ++text)
        units += {*text, '\0'};
    return units + std::string(2, '\0');
}

class ModuleResource : public testing::Test
{
protected:
    std::string_view Bytes(UINT id, LPCWSTR type) const { return ResourceBytes(module.Handle(), id, type); }

    ModuleUnderTest module;
};
} // namespace

TEST_F(ModuleResource, String100IsTheNameOfTheModule)
{
    wchar_t text[32] = {};
    EXPECT_EQ(LoadStringW(module.Handle(), 100, text, 32), 7);
    EXPECT_STREQ(text, L"qptools");
}

TEST_F(ModuleResource, EachClassHasItsRegistryScriptUnderItsNumber)
{
    for (const ClassFacts& facts : kSevenClasses)
    {
        const std::string script(Bytes(static_cast<UINT>(facts.script), L"REGISTRY"));
        const std::wstring name = facts.name;
        const std::wstring classId = facts.classId;
        EXPECT_NE(script.find("Qptools." + std::string(name.begin(), name.end()) + ".1 = s"),
                  std::string::npos)
            << facts;
        EXPECT_NE(script.find("ForceRemove " + std::string(classId.begin(), classId.end())),
                  std::string::npos)
            << facts;
    }
    EXPECT_TRUE(Bytes(101, L"REGISTRY").empty());
    EXPECT_TRUE(Bytes(104, L"REGISTRY").empty());
}

TEST_F(ModuleResource, OnlyTheModulesPathIsToBeReplacedInTheScripts)
{
    for (const ClassFacts& facts : kSevenClasses)
    {
        std::string script(Bytes(static_cast<UINT>(facts.script), L"REGISTRY"));
        EXPECT_EQ(std::count(script.begin(), script.end(), '%'), 2) << facts;
        EXPECT_NE(script.find("InprocServer32 = s '%MODULE%'"), std::string::npos) << facts;
    }
}

TEST_F(ModuleResource, WithoutAThreadingModelTheServersBlockIsEmpty)
{
    for (const ClassFacts& facts : kSevenClasses)
    {
        std::string script(Bytes(static_cast<UINT>(facts.script), L"REGISTRY"));
        const std::size_t server = script.find("InprocServer32");
        const std::string block =
            script.substr(script.find('{', server), script.find('}', server) - script.find('{', server));
        const bool empty = block.find_first_not_of("{ \r\n") == std::string::npos;
        EXPECT_EQ(empty, facts.script == 102 || facts.script == 384) << facts;
    }
}

TEST_F(ModuleResource, OnlyScript108WritesItsIdentifierWithSmallLetters)
{
    for (const ClassFacts& facts : kSevenClasses)
    {
        std::string script(Bytes(static_cast<UINT>(facts.script), L"REGISTRY"));
        EXPECT_EQ(script.find("48ad") != std::string::npos, facts.script == 108) << facts;
        EXPECT_EQ(script.find("48AD"), std::string::npos) << facts;
        EXPECT_EQ(script.find("QPTools.") != std::string::npos, facts.script == 108) << facts;
    }
}

TEST_F(ModuleResource, Icon385HasNineImagesInThreeSizesAndThreeDepths)
{
    const std::string_view group = Bytes(385, RT_GROUP_ICON);
    ASSERT_GE(group.size(), 6u);
    const auto word = [&](std::size_t at) {
        return static_cast<unsigned char>(group[at]) | static_cast<unsigned char>(group[at + 1]) << 8;
    };
    ASSERT_EQ(word(4), 9);
    ASSERT_EQ(group.size(), 6u + 9 * 14);
    std::set<std::tuple<int, int, int>> images;
    for (std::size_t at = 6; at < group.size(); at += 14)
        images.insert({group[at], group[at + 1], word(at + 6)});
    const std::set<std::tuple<int, int, int>> expected = {{48, 48, 4}, {48, 48, 8}, {48, 48, 32},
                                                          {32, 32, 4}, {32, 32, 8}, {32, 32, 32},
                                                          {16, 16, 4}, {16, 16, 8}, {16, 16, 32}};
    EXPECT_EQ(images, expected);
}

TEST_F(ModuleResource, TheVersionBlockNamesTheModule)
{
    const std::string_view version = Bytes(1, RT_VERSION);
    const auto holds = [&](const char* name, const char* value) {
        const std::size_t at = version.find(Utf16(name));
        return at != std::string_view::npos && version.find(Utf16(value), at) < at + 80;
    };
    EXPECT_TRUE(holds("FileVersion", QP_VERSION_WITH_COMMAS));
    EXPECT_TRUE(holds("ProductVersion", QP_VERSION_WITH_COMMAS));
    EXPECT_TRUE(holds("FileDescription", "qptools Module"));
    EXPECT_TRUE(holds("InternalName", "qptools"));
    EXPECT_TRUE(holds("OriginalFilename", "qptools.DLL"));
}

TEST_F(ModuleResource, TheManifestRequiresVersion6OfTheCommonControls)
{
    const std::string_view manifest = Bytes(2, RT_MANIFEST);
    EXPECT_NE(manifest.find("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""),
              std::string_view::npos);
    EXPECT_NE(manifest.find("publicKeyToken=\"6595b64144ccf1df\""), std::string_view::npos);
}

TEST_F(ModuleResource, TheManifestAndTheVersionBlockNameOneVersion)
{
    const std::string_view manifest = Bytes(2, RT_MANIFEST);
    EXPECT_NE(manifest.find("name=\"qptools\" version=\"" QP_VERSION ".0\""), std::string_view::npos);
}

TEST_F(ModuleResource, TheCatalogueBesideTheProgramNamesTheSameVersion)
{
    const auto path =
        std::filesystem::path(ModulePath(nullptr)).parent_path() / "locale" / "de" / "qptools.mo";
    std::ifstream file(path, std::ios::binary);
    const std::string catalogue{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(catalogue.find("Project-Id-Version: qptools " QP_VERSION "\n"), std::string::npos);
}
