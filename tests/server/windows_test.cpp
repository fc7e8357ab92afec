// What only Windows can answer: the type library.
#include "RegistrationFixture.h"
#include "VtableSlot.h"

#include "qptools.h"

#include <oleauto.h>

namespace
{
class TypeLibraryRegistration : public RegistrationFixture
{
};
} // namespace

TEST_F(TypeLibraryRegistration, IsWrittenAfterTheClassesAndRemoved)
{
    ASSERT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(registry.Text(TypeLibraryKey() + L"\\1.0"), L"qptools 1.0 Type Library");
    EXPECT_TRUE(registry.Has(TypeLibraryKey() + L"\\1.0\\0\\win64"));
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    EXPECT_FALSE(registry.Has(TypeLibraryKey()));
}

TEST_F(TypeLibraryRegistration, ThatFailsTakesTheClassesBack)
{
    registry.Put(TypeLibraryKey() + L"\\1.0", L"closed");
    registry.Put(TypeLibraryKey() + L"\\0.9", L"earlier");
    const auto before = registry.Dump();
    registry.Deny(TypeLibraryKey() + L"\\1.0");
    EXPECT_LT(module.RegisterServer(), 0);
    registry.Allow(TypeLibraryKey() + L"\\1.0");
    auto after = registry.Dump();
    std::erase(after, L"CLSID"); // the key of all classes belongs to no module and stays
    EXPECT_EQ(after, before);
    EXPECT_NE(logs.Book().find("TypeLib\\\\{B59FF2AB-0C7E-46F3-8FF1-2D951BC82743}"), std::string::npos)
        << logs.Book();
}

TEST_F(TypeLibraryRegistration, ComesAfterAllClasses)
{
    registry.Put(TypeLibraryKey() + L"\\1.0", L"closed");
    registry.Deny(TypeLibraryKey() + L"\\1.0");
    Close(kSevenClasses[6]);
    EXPECT_EQ(module.RegisterServer(), E_ACCESSDENIED);
    const std::string book = logs.Book();
    EXPECT_EQ(book.find("TypeLib"), std::string::npos)
        << "the last class ended it before the library: " << book;
    EXPECT_NE(book.find(LoggedKey(kSevenClasses[6])), std::string::npos) << book;
}

TEST_F(TypeLibraryRegistration, OfAnEarlierInstallIsPutBackByAFailure)
{
    registry.Put(TypeLibraryKey() + L"\\1.0", L"earlier");
    registry.Put(TypeLibraryKey() + L"\\1.0\\0\\win64", L"C:\\earlier\\qptools.dll");
    registry.Put(TypeLibraryKey() + L"\\1.0\\FLAGS", L"9");
    registry.Put(TypeLibraryKey() + L"\\1.0\\HELPDIR", L"C:\\earlier");
    registry.Put(L"CLSID", {});
    const auto before = registry.Dump();
    registry.Deny(TypeLibraryKey() + L"\\1.0\\HELPDIR");
    EXPECT_LT(module.RegisterServer(), 0);
    registry.Allow(TypeLibraryKey() + L"\\1.0\\HELPDIR");
    EXPECT_EQ(registry.Dump(), before);
}

TEST_F(TypeLibraryRegistration, TheScriptServiceHasTheTypeInformationOfItsInterface)
{
    ComPtr<IScriptActionAndCommandManager> manager;
    ASSERT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(CallSlot(manager.get(), 7, UINT{0}, LCID{0}, info.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == __uuidof(IScriptActionAndCommandManager));
    EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
    EXPECT_EQ(attributes->cFuncs, 3);
    info->ReleaseTypeAttr(attributes);
}
