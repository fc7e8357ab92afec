// Registration by regsvr32, in the real registry: every key and value, the way back, and a registration that
// fails.
#include <gtest/gtest.h>

#include "BuiltFiles.h"
#include "RegistrySnapshot.h"
#include "RunProgram.h"
#include "TypeLibraryTable.h"
#include "TypeLibraryText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{
const wchar_t* const kLibraryId = L"{B59FF2AB-0C7E-46F3-8FF1-2D951BC82743}";

/// One class as its registration must leave it.
struct RegisteredClass
{
    std::wstring name;
    std::wstring id;     ///< as spelled in the registry
    std::wstring prefix; ///< of the ProgIDs that stand as values
    bool apartment;
    bool programmable;
};

const std::vector<RegisteredClass> kRegistered = {
    {L"QPProjectChoice", L"{F8A2B382-E9EF-4E5E-8D6C-A169B64DDEC8}", L"Qptools.", false, false},
    {L"QPSelectOrvoItem", L"{ADB28D5A-6131-45CD-A245-EE026CA93ED6}", L"Qptools.", true, true},
    {L"QPSelectDlg", L"{445B9A00-C2E4-49AE-A61F-D901593BF9B4}", L"Qptools.", true, false},
    {L"QPUserActionLog", L"{C298C4A0-29FF-4F40-9BB6-FF201B491C42}", L"Qptools.", true, true},
    {L"XScriptActionAndCommandManager", L"{777C4939-912A-4F56-BFA1-3EACD0BDD16C}", L"Qptools.", true, true},
    {L"QPCopyOptDlg", L"{9F79747B-EC88-48ad-9865-1C079A8C9221}", L"QPTools.", true, false},
    {L"XBookMark", L"{369A9D25-58F3-4217-8D7A-6B136CDF3923}", L"Qptools.", false, false}};

using Snapshot = std::map<std::wstring, std::wstring>;

std::wstring ProgId(const RegisteredClass& component)
{
    return L"Qptools." + component.name;
}

std::wstring ClassKey(const RegisteredClass& component)
{
    return L"CLSID\\" + component.id;
}

/// The keys that registration makes, apart from the type library's.
std::vector<std::wstring> KeysOf(const RegisteredClass& component)
{
    return {ProgId(component) + L".1", ProgId(component), ClassKey(component)};
}

Snapshot ModuleSnapshot()
{
    Snapshot all = ClassesSnapshot(std::wstring(L"TypeLib\\") + kLibraryId);
    for (const RegisteredClass& component : kRegistered)
    {
        for (const std::wstring& key : KeysOf(component))
            all.merge(ClassesSnapshot(key));
    }
    return all;
}

Snapshot ExpectedFor(const RegisteredClass& component)
{
    const std::wstring plain = ProgId(component);
    const std::wstring versioned = plain + L".1";
    const std::wstring key = ClassKey(component);
    const std::wstring title = component.name + L" Class";
    Snapshot expected = {
        {versioned, L"key"},
        {versioned + L" -> (default)", title},
        {versioned + L"\\CLSID", L"key"},
        {versioned + L"\\CLSID -> (default)", component.id},
        {plain, L"key"},
        {plain + L" -> (default)", title},
        {plain + L"\\CLSID", L"key"},
        {plain + L"\\CLSID -> (default)", component.id},
        {plain + L"\\CurVer", L"key"},
        {plain + L"\\CurVer -> (default)", component.prefix + component.name + L".1"},
        {key, L"key"},
        {key + L" -> (default)", title},
        {key + L" -> TypeLib", kLibraryId},
        {key + L"\\ProgID", L"key"},
        {key + L"\\ProgID -> (default)", component.prefix + component.name + L".1"},
        {key + L"\\VersionIndependentProgID", L"key"},
        {key + L"\\VersionIndependentProgID -> (default)", component.prefix + component.name},
        {key + L"\\InprocServer32", L"key"},
        {key + L"\\InprocServer32 -> (default)", BuiltModulePath()}};
    if (component.apartment)
        expected[key + L"\\InprocServer32 -> ThreadingModel"] = L"Apartment";
    if (component.programmable)
        expected[key + L"\\Programmable"] = L"key";
    return expected;
}

std::string Printed(const Snapshot& snapshot)
{
    std::string text;
    for (const auto& [place, value] : snapshot)
        text += Narrow(place) + " = " + Narrow(value) + "\n";
    return text;
}

GUID Identifier(const std::string& text)
{
    GUID id{};
    EXPECT_EQ(S_OK, IIDFromString(std::wstring(text.begin(), text.end()).c_str(), &id));
    return id;
}

/// What regsvr32 answers when the module's own registration failed.
constexpr int kRegistrationFailed = 5;

/// Runs regsvr32 silently on the module and returns its exit code.
int Regsvr(const std::wstring& options)
{
    const auto code = RunProgram(L"regsvr32.exe /s " + options + L" \"" + BuiltModulePath() + L"\"");
    return code ? static_cast<int>(*code) : -1;
}

/// Each test begins and ends with a registry without the module, and has a log folder of its own.
class Regsvr32 : public testing::Test
{
protected:
    void SetUp() override
    {
        m_logs = std::filesystem::temp_directory_path() /
                 ("qptools-regsvr-" + std::to_string(GetCurrentProcessId()));
        std::filesystem::create_directories(m_logs);
        SetEnvironmentVariableW(L"QPTOOLS_LOG_DIR", m_logs.c_str());
        CoInitialize(nullptr);
        RemoveAll();
        ASSERT_EQ("", Printed(ModuleSnapshot()));
    }
    void TearDown() override
    {
        RemoveAll();
        CoUninitialize();
        SetEnvironmentVariableW(L"QPTOOLS_LOG_DIR", nullptr);
        std::error_code ignored;
        std::filesystem::remove_all(m_logs, ignored);
    }

    std::string LogBook() const
    {
        std::ifstream file(m_logs / L"logbook.log", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    static void RemoveAll()
    {
        for (const RegisteredClass& component : kRegistered)
        {
            for (const std::wstring& key : KeysOf(component))
                DeleteClassesKey(key);
        }
        DeleteClassesKey(std::wstring(L"TypeLib\\") + kLibraryId);
    }

    std::filesystem::path m_logs;
};
} // namespace

TEST_F(Regsvr32, WritesEveryKeyAndValueOfEveryClass)
{
    ASSERT_EQ(0, Regsvr(L""));
    for (const RegisteredClass& component : kRegistered)
    {
        Snapshot found;
        for (const std::wstring& key : KeysOf(component))
            found.merge(ClassesSnapshot(key));
        EXPECT_EQ(Printed(ExpectedFor(component)), Printed(found));
    }
    EXPECT_EQ("", LogBook());
}

TEST_F(Regsvr32, KeepsTheSpellingOfEveryKey)
{
    ASSERT_EQ(0, Regsvr(L""));
    for (const RegisteredClass& component : kRegistered)
    {
        EXPECT_EQ(component.id, SpellingOf(L"CLSID", component.id));
        EXPECT_EQ(ProgId(component), SpellingOf(L"", ProgId(component)));
        EXPECT_EQ(ProgId(component) + L".1", SpellingOf(L"", ProgId(component) + L".1"));
    }
}

TEST_F(Regsvr32, WritesTheSameWhenRunTwice)
{
    ASSERT_EQ(0, Regsvr(L""));
    const Snapshot first = ModuleSnapshot();
    ASSERT_EQ(0, Regsvr(L""));
    EXPECT_EQ(Printed(first), Printed(ModuleSnapshot()));
}

TEST_F(Regsvr32, ReplacesWhatStoodUnderAClassKeyBefore)
{
    const std::wstring key = ClassKey(kRegistered[0]);
    MakeClassesKey(key + L"\\LocalServer32", L"old.exe");
    ASSERT_EQ(0, Regsvr(L""));
    EXPECT_TRUE(ClassesSnapshot(key + L"\\LocalServer32").empty());
}

TEST_F(Regsvr32, RegistersTheTypeLibrary)
{
    ASSERT_EQ(0, Regsvr(L""));
    const std::wstring key = std::wstring(L"TypeLib\\") + kLibraryId + L"\\1.0";
    const Snapshot found = ClassesSnapshot(key);
    ASSERT_TRUE(found.count(key + L" -> (default)"));
    EXPECT_EQ(L"qptools 1.0 Type Library", found.at(key + L" -> (default)"));
    ASSERT_TRUE(found.count(key + L"\\0\\win64 -> (default)")) << Printed(found);
    EXPECT_EQ(0, _wcsicmp(BuiltModulePath().c_str(), found.at(key + L"\\0\\win64 -> (default)").c_str()));

    ComPtr<ITypeLib> library;
    ASSERT_EQ(S_OK, LoadRegTypeLib(Identifier(Narrow(kLibraryId)), 1, 0, LOCALE_NEUTRAL, library.put()));
    ExpectWholeLibrary(library.get());
}

TEST_F(Regsvr32, MakesEveryClassCreatableByProgId)
{
    ASSERT_EQ(0, Regsvr(L""));
    for (size_t i = 0; i < kClasses.size(); ++i)
    {
        SCOPED_TRACE(Narrow(kClasses[i].name));
        CLSID plain{};
        CLSID versioned{};
        EXPECT_EQ(S_OK, CLSIDFromProgID(ProgId(kRegistered[i]).c_str(), &plain));
        EXPECT_EQ(S_OK, CLSIDFromProgID((ProgId(kRegistered[i]) + L".1").c_str(), &versioned));
        EXPECT_EQ(kClasses[i].id, TextOf(plain));
        EXPECT_EQ(kClasses[i].id, TextOf(versioned));
        ComPtr<IUnknown> object;
        EXPECT_EQ(S_OK, CoCreateInstance(plain, nullptr, CLSCTX_INPROC_SERVER,
                                         Identifier(kComponentInterfaces[i].id), object.putVoid()));
        EXPECT_TRUE(object);
    }
    const std::wstring path = ModulePath(GetModuleHandleW(L"qptools.dll"));
    EXPECT_EQ(0, _wcsicmp(BuiltModulePath().c_str(), path.c_str())) << Narrow(path.c_str());
}

TEST_F(Regsvr32, FindsOneClassUnderBothSpellingsOfItsProgId)
{
    ASSERT_EQ(0, Regsvr(L""));
    for (const wchar_t* progId : {L"Qptools.QPCopyOptDlg", L"QPTools.QPCopyOptDlg", L"Qptools.QPCopyOptDlg.1",
                                  L"QPTools.QPCopyOptDlg.1"})
    {
        CLSID id{};
        EXPECT_EQ(S_OK, CLSIDFromProgID(progId, &id)) << Narrow(progId);
        EXPECT_EQ("{9F79747B-EC88-48AD-9865-1C079A8C9221}", TextOf(id)) << Narrow(progId);
    }
}

TEST_F(Regsvr32, TakesEverythingOutAgainButTheListOfClasses)
{
    const std::wstring foreign = L"CLSID\\{5C1A4B0E-8B0B-4D7E-9D53-7F5A0F7B3C11}";
    MakeClassesKey(foreign, L"Somebody else's class");
    const Snapshot foreignBefore = ClassesSnapshot(foreign);
    ASSERT_EQ(0, Regsvr(L""));
    ASSERT_EQ(0, Regsvr(L"/u"));
    EXPECT_EQ("", Printed(ModuleSnapshot()));
    EXPECT_EQ(Printed(foreignBefore), Printed(ClassesSnapshot(foreign)));
    DeleteClassesKey(foreign);
    HKEY classes = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CLASSES_ROOT, L"CLSID", 0, KEY_READ, &classes));
    RegCloseKey(classes);
}

TEST_F(Regsvr32, UnregistersWithoutARegistration)
{
    EXPECT_EQ(0, Regsvr(L"/u"));
    EXPECT_EQ("", Printed(ModuleSnapshot()));
}

TEST_F(Regsvr32, FailsOnAKeyThatCannotBeWrittenAndRestoresAll)
{
    MakeClassesKey(ProgId(kRegistered[0]), L"Somebody else's component");
    MakeClassesKey(ProgId(kRegistered[0]) + L"\\Extra", L"kept");
    MakeClassesKey(ClassKey(kRegistered[1]), L"An older registration");
    MakeClassesKey(ClassKey(kRegistered[1]) + L"\\LocalServer32", L"old.exe");
    const CLockedClassesKey locked(ClassKey(kRegistered.back()));
    const Snapshot before = ModuleSnapshot();
    ASSERT_EQ(L"unreadable", before.at(ClassKey(kRegistered.back())));

    EXPECT_EQ(kRegistrationFailed, Regsvr(L""));

    EXPECT_EQ(Printed(before), Printed(ModuleSnapshot()));
    const std::string logged = LogBook();
    const std::string said =
        "CLSID\\\\{369A9D25-58F3-4217-8D7A-6B136CDF3923}: access denied: run as administrator";
    EXPECT_NE(std::string::npos, logged.find(said)) << logged;
    EXPECT_EQ(1, std::count(logged.begin(), logged.end(), '\n')) << logged;
}

TEST_F(Regsvr32, GivesTheSystemsOwnCodeOfAFailure)
{
    const CLockedClassesKey locked(ClassKey(kRegistered.front()));
    const HMODULE module = LoadLibraryW(BuiltModulePath().c_str());
    ASSERT_NE(nullptr, module);
    using Register = HRESULT(STDAPICALLTYPE*)();
    const auto run =
        reinterpret_cast<Register>(reinterpret_cast<void*>(GetProcAddress(module, "DllRegisterServer")));
    ASSERT_NE(nullptr, run);
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), run());
    FreeLibrary(module);
    EXPECT_NE(std::string::npos, LogBook().find("80070005"));
}
