// The module in a folder other than the program's, as in an installed host: its catalogues are beside it, and
// loading it reads none of them.
#include "BuiltFiles.h"
#include "LogFolder.h"

#include "Bstr.h"
#include "ComPtr.h"

#include "qptools.h"

#include <objbase.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{
namespace fs = std::filesystem;

/// A language that the program's folder has no catalogue of.
constexpr const wchar_t* kOtherLanguage = L"qx";

class MovedModule : public testing::Test
{
protected:
    MovedModule()
        : m_folder(fs::temp_directory_path() / ("qptools-moved-" + std::to_string(GetCurrentProcessId())))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
        fs::copy_file(BuiltModulePath(), m_folder / "qptools.dll");
    }
    ~MovedModule() override
    {
        Unload();
        SetEnvironmentVariableW(L"QPTOOLS_LANG", nullptr);
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

    fs::path Catalogue(const fs::path& folder, const std::wstring& language) const
    {
        return folder / "locale" / language / "qptools.mo";
    }

    /// The path of a catalogue beside the module; creates its folder.
    fs::path NewCatalogue(const std::wstring& language) const
    {
        const fs::path place = Catalogue(m_folder, language);
        fs::create_directories(place.parent_path());
        return place;
    }

    void Load()
    {
        m_module = LoadLibraryW((m_folder / "qptools.dll").c_str());
        ASSERT_NE(m_module, nullptr) << GetLastError();
        ASSERT_TRUE(fs::equivalent(ModulePath(m_module), m_folder / "qptools.dll"))
            << "another module was loaded";
    }

    void Unload()
    {
        if (m_module)
            FreeLibrary(m_module);
        m_module = nullptr;
    }

    /// The line of the user action log that follows the user's language.
    std::string NameLine() const
    {
        using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        const auto get = reinterpret_cast<GetClassObject>(
            reinterpret_cast<void*>(GetProcAddress(m_module, "DllGetClassObject")));
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(get(CLSID_QPUserActionLog, __uuidof(IClassFactory), factory.putVoid()), S_OK);
        ComPtr<IQPUserActionLog> log;
        EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IQPUserActionLog), log.putVoid()), S_OK);
        EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, Bstr(L"Robot").get(), nullptr), S_OK);
        const std::string text = logs.Bytes();
        const std::size_t end = text.find("Robot\n");
        const std::size_t start = text.rfind('\n', end) + 1;
        return end == std::string::npos ? text : text.substr(start, end - start);
    }

    LogFolder logs;
    const fs::path m_folder;
    HMODULE m_module = nullptr;
};
} // namespace

TEST_F(MovedModule, TranslatesByTheCatalogueBesideItself)
{
    ASSERT_FALSE(fs::exists(Catalogue(ProgramFolder(), kOtherLanguage)));
    fs::copy_file(Catalogue(ProgramFolder(), L"de"), NewCatalogue(kOtherLanguage));
    SetEnvironmentVariableW(L"QPTOOLS_LANG", kOtherLanguage);
    Load();
    EXPECT_EQ(NameLine(), "Konfigurierter Name des Objekts: ");
}

TEST_F(MovedModule, DoesNotTranslateByTheProgramsCatalogue)
{
    ASSERT_TRUE(fs::exists(Catalogue(ProgramFolder(), L"de")));
    SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de");
    Load();
    EXPECT_EQ(NameLine(), "Configured Name of Object: ");
}

TEST_F(MovedModule, ReadsNoCatalogueWhileItIsLoadedOrUnloaded)
{
    std::ofstream(NewCatalogue(L"de")) << "no catalogue, which whoever reads it says in the log book";
    SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de");
    Load();
    Unload();
    EXPECT_EQ(logs.Book(), "");
    Load();
    EXPECT_EQ(logs.Book(), "");
    NameLine();
    EXPECT_NE(logs.Book().find("qptools.mo"), std::string::npos) << "it was not read at all: " << logs.Book();
}

TEST_F(MovedModule, FindsACatalogueThatCameAfterItWasLoaded)
{
    SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de");
    Load();
    fs::copy_file(Catalogue(ProgramFolder(), L"de"), NewCatalogue(L"de"));
    EXPECT_EQ(NameLine(), "Konfigurierter Name des Objekts: ");
}
