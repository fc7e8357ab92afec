// Modules registered by hand, with resources and type libraries that are damaged.
#include "WinportSupport.h"

#include <winport_module.h>
#include <winport_test.h>

#include <gtest/gtest.h>

#include <oleauto.h>

#include <cstring>
#include <vector>

namespace
{
void Add(std::string& bytes, ULONGLONG value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<char>(value >> (8 * i)));
}

// One resource as the compiler writes it: sizes, type and name, the fixed rest of the header, data, padding.
void AddResource(std::string& bytes, WORD type, const std::string& name, WORD language,
                 const std::string& data)
{
    const std::size_t start = bytes.size();
    Add(bytes, static_cast<DWORD>(data.size()), 4);
    Add(bytes, 0, 4);
    Add(bytes, 0xFFFF, 2);
    Add(bytes, type, 2);
    for (const char character : name + '\0')
        Add(bytes, static_cast<unsigned char>(character), 2);
    bytes.resize((bytes.size() + 3) & ~std::size_t{3});
    Add(bytes, 0, 4);
    Add(bytes, 0, 2);
    Add(bytes, language, 2);
    Add(bytes, 0, 8);
    const auto headerSize = static_cast<DWORD>(bytes.size() - start);
    std::memcpy(bytes.data() + start + 4, &headerSize, 4);
    bytes += data;
    bytes.resize((bytes.size() + 3) & ~std::size_t{3});
}

// Registers a module of these resources, which it keeps; its name is its own.
std::wstring Register(const std::string& resources)
{
    static int count = 0;
    const std::string name = "wphand" + std::to_string(++count) + ".dll";
    auto* bytes = new std::string(resources);
    static std::vector<std::string*>& kept = *new std::vector<std::string*>;
    kept.push_back(bytes);
    kept.push_back(new std::string(name));
    static std::vector<WinportModule*>& modules = *new std::vector<WinportModule*>;
    modules.push_back(new WinportModule{kept.back()->c_str(), nullptr, nullptr, 0,
                                        reinterpret_cast<const unsigned char*>(bytes->data()),
                                        bytes->size()});
    WinportRegisterModule(modules.back());
    return {name.begin(), name.end()};
}

std::string Content(HMODULE module, LPCWSTR name, WORD type)
{
    HRSRC resource = FindResourceW(module, name, MAKEINTRESOURCEW(type));
    if (!resource)
        return "?" + std::to_string(GetLastError());
    return {static_cast<const char*>(LockResource(LoadResource(module, resource))),
            SizeofResource(module, resource)};
}

std::string Sample()
{
    std::string bytes;
    AddResource(bytes, 0, "", 0, "");
    AddResource(bytes, 10, "ONE", 0x0409, "english");
    AddResource(bytes, 10, "ONE", 0x0407, "deutsch");
    AddResource(bytes, 10, "TWO", 0, "neutral");
    return bytes;
}
} // namespace

TEST(HandMadeModule, NeedsNeitherEntryPointNorExports)
{
    const std::wstring name = Register(Sample());
    HMODULE module = LoadLibraryW(name.c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetProcAddress(module, "DllGetClassObject"), nullptr);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(GetModuleHandleW(name.c_str()), nullptr);
}

TEST(HandMadeModule, HasTheFirstLanguageOfAResource)
{
    HMODULE module = LoadLibraryW(Register(Sample()).c_str());
    EXPECT_EQ(Content(module, L"one", 10), "english");
    EXPECT_EQ(Content(module, L"two", 10), "neutral");
    EXPECT_EQ(Content(module, L"three", 10), "?" + std::to_string(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(Content(module, L"one", 11), "?" + std::to_string(ERROR_RESOURCE_TYPE_NOT_FOUND));
    FreeLibrary(module);
}

TEST(HandMadeModule, WithoutResourcesHasNone)
{
    HMODULE module = LoadLibraryW(Register(std::string()).c_str());
    EXPECT_EQ(Content(module, L"one", 10), "?" + std::to_string(ERROR_RESOURCE_DATA_NOT_FOUND));
    FreeLibrary(module);
}

TEST(DamagedResources, EndWhereTheyAreCut)
{
    const std::string whole = Sample();
    std::string lastFound = "?";
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        HMODULE module = LoadLibraryW(Register(whole.substr(0, size)).c_str());
        const std::string found = Content(module, L"ONE", 10);
        EXPECT_TRUE(found == "english" || found[0] == '?');
        lastFound = Content(module, L"TWO", 10);
        EXPECT_EQ(lastFound == "neutral", size >= whole.size() - 1) << size;
        FreeLibrary(module);
    }
    EXPECT_EQ(lastFound, "neutral");
}

TEST(DamagedResources, OfAnySizeAreNotReadBeyond)
{
    for (const DWORD size : {0xFFFFFFFFu, 0x7FFFFFFFu, 0xFFFFFFF0u, 20u})
    {
        std::string bytes = Sample();
        std::memcpy(bytes.data() + 32, &size, 4);
        HMODULE module = LoadLibraryW(Register(bytes).c_str());
        EXPECT_EQ(Content(module, L"ONE", 10)[0], size == 20u ? 'e' : '?');
        FreeLibrary(module);
    }
}

TEST(DamagedStrings, EndWithTheirBlock)
{
    // A block of two strings, of which the second claims to be longer than the block.
    std::string block;
    Add(block, 2, 2);
    Add(block, 'o', 2);
    Add(block, 'k', 2);
    Add(block, 9, 2);
    Add(block, 'x', 2);
    std::string bytes;
    AddResource(bytes, 0, "", 0, "");
    const std::size_t start = bytes.size();
    AddResource(bytes, 6, "?", 0, block);
    // The name is the number 1 instead of a text of the same length.
    bytes.replace(start + 12, 4, std::string("\xFF\xFF\x01\x00", 4));
    HMODULE module = LoadLibraryW(Register(bytes).c_str());
    wchar_t text[16];
    EXPECT_EQ(LoadStringW(module, 0, text, 16), 2);
    EXPECT_EQ(std::wstring(text), L"ok");
    EXPECT_EQ(LoadStringW(module, 1, text, 16), 0);
    EXPECT_EQ(LoadStringW(module, 2, text, 16), 0);
    EXPECT_EQ(LoadStringW(module, 0, nullptr, 0), 0);
    FreeLibrary(module);
}

TEST(DamagedTypeLibraries, AreRefused)
{
    const CScratchFolder folder;
    HMODULE module = LoadLibraryW(L"wptestmodule.dll");
    HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB");
    const std::string whole(static_cast<const char*>(LockResource(LoadResource(module, resource))),
                            SizeofResource(module, resource));
    FreeLibrary(module);
    ITypeLib* library = nullptr;
    WriteWhole(folder / L"a", whole);
    ASSERT_EQ(LoadTypeLib((folder / L"a").c_str(), &library), S_OK);
    EXPECT_EQ(library->GetTypeInfoCount(), 0u);
    ITypeInfo* info = nullptr;
    EXPECT_EQ(library->GetTypeInfo(0, &info), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library->GetTypeInfoOfGuid(GUID{}, &info), TYPE_E_ELEMENTNOTFOUND);
    library->Release();
    for (const std::size_t size : {0u, 3u, 0x20u, 0x53u, 0x57u, 0xA8u, 0x22Cu, 0x230u})
    {
        WriteWhole(folder / L"a", whole.substr(0, size));
        EXPECT_EQ(LoadTypeLib((folder / L"a").c_str(), &library), TYPE_E_CANTLOADLIBRARY) << size;
        EXPECT_EQ(library, nullptr);
    }
    std::string wild = whole;
    std::memset(wild.data() + 0x20, 0xFF, 4);
    WriteWhole(folder / L"a", wild);
    EXPECT_EQ(LoadTypeLib((folder / L"a").c_str(), &library), TYPE_E_CANTLOADLIBRARY);
}

TEST(TypeLibraries, CannotBeRegisteredWhereAKeyRefuses)
{
    ITypeLib* library = nullptr;
    ASSERT_EQ(LoadTypeLib(L"wptestmodule.dll", &library), S_OK);
    EXPECT_EQ(RegisterTypeLib(nullptr, L"x", nullptr), E_INVALIDARG);
    EXPECT_EQ(RegisterTypeLib(library, nullptr, nullptr), E_INVALIDARG);
    WinportDenyKey(HKEY_CLASSES_ROOT, L"TypeLib", true);
    EXPECT_EQ(RegisterTypeLib(library, L"x", nullptr), TYPE_E_REGISTRYACCESS);
    library->Release();
    EXPECT_EQ(LoadTypeLibEx(L"wptestmodule.dll", REGKIND_REGISTER, &library), TYPE_E_REGISTRYACCESS);
    EXPECT_EQ(library, nullptr);
    WinportDenyKey(HKEY_CLASSES_ROOT, L"TypeLib", false);
    const GUID guid = {0x3B1E7C52, 0x6C0D, 0x4E7B, {0x9A, 0x7E, 0x51, 0xD0, 0xF4, 0xA2, 0xC8, 0x01}};
    EXPECT_EQ(UnRegisterTypeLib(guid, 1, 0, 0, SYS_WIN64), TYPE_E_REGISTRYACCESS);
}
