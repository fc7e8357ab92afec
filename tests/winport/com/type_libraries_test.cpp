// Registering the type library of a module.
#include "WinportSupport.h"

#include <gtest/gtest.h>

#include <oleauto.h>

namespace
{
const GUID kLibrary = {0x3B1E7C52, 0x6C0D, 0x4E7B, {0x9A, 0x7E, 0x51, 0xD0, 0xF4, 0xA2, 0xC8, 0x01}};
const wchar_t kKey[] = L"TypeLib\\{3B1E7C52-6C0D-4E7B-9A7E-51D0F4A2C801}";

// The default value of a key beneath the library's; "?" if there is none.
std::wstring Registered(const wchar_t* path)
{
    wchar_t text[MAX_PATH] = L"";
    DWORD size = sizeof(text);
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, (std::wstring(kKey) + path).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS)
        return L"?";
    const LSTATUS status =
        RegQueryValueExW(key, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(key);
    return status == ERROR_SUCCESS ? text : L"?";
}
} // namespace

TEST(TypeLibraries, AreRegisteredAndUnregistered)
{
    std::wstring path = TestModulePath();
    ITypeLib* library = nullptr;
    ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library), S_OK);
    ASSERT_EQ(RegisterTypeLib(library, path.data(), nullptr), S_OK);
    library->Release();
    EXPECT_EQ(Registered(L"\\1.0"), L"winport test library");
    EXPECT_EQ(Registered(L"\\1.0\\0\\win64"), path);
    EXPECT_EQ(Registered(L"\\1.0\\FLAGS"), L"8");
    EXPECT_EQ(UnRegisterTypeLib(kLibrary, 1, 0, 0, SYS_WIN64), S_OK);
    EXPECT_EQ(Registered(L""), L"?");
    EXPECT_EQ(Registered(L"\\1.0"), L"?");
    EXPECT_LT(UnRegisterTypeLib(kLibrary, 1, 0, 0, SYS_WIN64), 0);

    // Once more, by loading alone.
    ASSERT_EQ(LoadTypeLibEx((path + L"\\1").c_str(), REGKIND_REGISTER, &library), S_OK);
    library->Release();
    EXPECT_NE(Registered(L"\\1.0\\0\\win64"), L"?");
    EXPECT_EQ(UnRegisterTypeLib(kLibrary, 1, 0, 0, SYS_WIN64), S_OK);
}

TEST(TypeLibraries, AreLoadedOnlyWhereTheyAre)
{
    auto* library = reinterpret_cast<ITypeLib*>(16);
    EXPECT_LT(LoadTypeLib((TestModulePath() + L"\\2").c_str(), &library), 0);
    EXPECT_EQ(library, nullptr);
    EXPECT_EQ(LoadTypeLib(L"wpnosuchmodule.dll", &library), TYPE_E_CANTLOADLIBRARY);
    EXPECT_EQ(LoadTypeLib(nullptr, &library), E_INVALIDARG);
    EXPECT_EQ(LoadTypeLib(L"wptestmodule.dll", nullptr), E_INVALIDARG);
    EXPECT_EQ(LoadRegTypeLib(UniqueGuid(), 1, 0, 0, &library), TYPE_E_LIBNOTREGISTERED);
}
