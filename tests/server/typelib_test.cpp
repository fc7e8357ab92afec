// The type library as its users load it: from the module's resource and from the SDK's file. The registered
// one is checked where the module is registered.
#include <gtest/gtest.h>

#include "BuiltFiles.h"
#include "TypeLibraryTable.h"
#include "TypeLibraryText.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{
ComPtr<ITypeLib> Load(const std::wstring& path)
{
    ComPtr<ITypeLib> library;
    EXPECT_EQ(S_OK, LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put())) << Narrow(path);
    return library;
}

std::string BytesOf(const std::wstring& path)
{
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The resource of that type and number in the module, or nothing.
std::string ResourceOf(const std::wstring& path, const wchar_t* type, int number)
{
    const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module)
        return {};
    std::string bytes;
    if (const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(number), type))
    {
        const auto* data = static_cast<const char*>(LockResource(LoadResource(module, resource)));
        bytes.assign(data, SizeofResource(module, resource));
    }
    FreeLibrary(module);
    return bytes;
}
} // namespace

TEST(TypeLibrary, OfTheSdkHasTheRightContent)
{
    const ComPtr<ITypeLib> library = Load(TypeLibraryPath());
    ASSERT_TRUE(library);
    ExpectWholeLibrary(library.get());
}

TEST(TypeLibrary, OfTheModuleHasTheRightContent)
{
    ComPtr<ITypeLib> library;
    ASSERT_EQ(S_OK, LoadTypeLib(BuiltModulePath().c_str(), library.put()));
    ExpectWholeLibrary(library.get());
}

TEST(TypeLibrary, IsResourceOneOfTheModuleAndEqualToTheSdksFile)
{
    const std::string resource = ResourceOf(BuiltModulePath(), L"TYPELIB", 1);
    EXPECT_FALSE(resource.empty());
    EXPECT_TRUE(BytesOf(TypeLibraryPath()) == resource);
}

TEST(TypeLibrary, HoldsNoTimeOfItsBuild)
{
    const std::string bytes = BytesOf(TypeLibraryPath());
    const size_t text = bytes.find("Created by WIDL version ");
    ASSERT_NE(std::string::npos, text);
    EXPECT_NE(std::string::npos, bytes.find(" at Thu Jan 01 00:00:00 1970", text));
}

TEST(TypeLibrary, DescribesTheHostsServicesNowhere)
{
    const ComPtr<ITypeLib> library = Load(TypeLibraryPath());
    ASSERT_TRUE(library);
    for (const wchar_t* name :
         {L"IQPIPDClient", L"IQPSessionDataManager", L"IQPHostSettings", L"IQPObjectRights",
          L"IQPExplorerView", L"IQPBrowserTreeExpander", L"IVBALoaderManager"})
    {
        EXPECT_FALSE(FindType(library.get(), name)) << Narrow(name);
    }
}
