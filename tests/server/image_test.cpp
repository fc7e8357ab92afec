// The module as a file: what it imports and exports, how it may be loaded, what stands in its resources.
#include <gtest/gtest.h>

#include "BuiltFiles.h"
#include "PortableImage.h"
#include "TypeLibraryText.h"
#include "qptools_version.h"

#include <imagehlp.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <set>

namespace
{
/// What every Windows x64 has.
const std::set<std::string> kSystemDlls = {"advapi32.dll", "comctl32.dll", "gdi32.dll",    "kernel32.dll",
                                           "msvcrt.dll",   "ole32.dll",    "oleaut32.dll", "shell32.dll",
                                           "user32.dll",   "version.dll"};

/// What COM and regsvr32 call.
const std::vector<std::string> kEntryPoints = {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                               "DllUnregisterServer"};

/// The public members of the two classes that hosts use without COM. The compiler makes two functions of a
/// constructor and three of a virtual destructor.
const std::vector<std::string> kMembers = {
    "qptools::CEnhanceCopyListCtrl::ApplyRadioButtonLogic(int, int)",
    "qptools::CEnhanceCopyListCtrl::AttributeOf(int) const",
    "qptools::CEnhanceCopyListCtrl::CEnhanceCopyListCtrl()",
    "qptools::CEnhanceCopyListCtrl::CEnhanceCopyListCtrl()",
    "qptools::CEnhanceCopyListCtrl::Create(unsigned long, tagRECT const&, HWND__*, unsigned int)",
    "qptools::CEnhanceCopyListCtrl::HitTestEx(CPoint const&, int*) const",
    "qptools::CEnhanceCopyListCtrl::InsertAttribute(wchar_t const*, IQPAttribute*)",
    "qptools::CEnhanceCopyListCtrl::OnLvnEndlabeledit(tagNMHDR*, long long*)",
    "qptools::CEnhanceCopyListCtrl::ShowInPlaceControls(int, int)",
    "qptools::CEnhanceCopyListCtrl::~CEnhanceCopyListCtrl()",
    "qptools::CEnhanceCopyListCtrl::~CEnhanceCopyListCtrl()",
    "qptools::CEnhanceCopyListCtrl::~CEnhanceCopyListCtrl()",
    "qptools::CEnhancedCopyDialog::ApplyEnhanceCopy(IEnumBaseDataObject*)",
    "qptools::CEnhancedCopyDialog::CEnhancedCopyDialog(IEnumBaseDataObject*, IQPConfigFactory*)",
    "qptools::CEnhancedCopyDialog::CEnhancedCopyDialog(IEnumBaseDataObject*, IQPConfigFactory*)",
    "qptools::CEnhancedCopyDialog::DoModal()",
    "qptools::CEnhancedCopyDialog::GetButtonClicked() const",
    "qptools::CEnhancedCopyDialog::SetButtonClicked(int)",
    "qptools::CEnhancedCopyDialog::UpdateDataContainer(int, int)",
    "qptools::CEnhancedCopyDialog::~CEnhancedCopyDialog()",
    "qptools::CEnhancedCopyDialog::~CEnhancedCopyDialog()",
    "qptools::CEnhancedCopyDialog::~CEnhancedCopyDialog()"};

/// The C++ name; the name itself if it is none.
std::string Demangled(const std::string& name)
{
    int status = 0;
    char* text = abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status);
    const std::string demangled = text ? text : name;
    std::free(text);
    return demangled;
}

/// The module that QP_MODULE names, for the tests of the packages, else the built one.
std::wstring ModuleFile()
{
    const wchar_t* path = _wgetenv(L"QP_MODULE");
    return path ? path : BuiltModulePath();
}

const CPortableImage& Module()
{
    static const CPortableImage image(ModuleFile());
    return image;
}

#pragma pack(push, 2)
/// One image of an icon group, as it stands in the group's resource.
struct IconEntry
{
    BYTE width;
    BYTE height;
    BYTE colours;
    BYTE reserved;
    WORD planes;
    WORD bits;
    DWORD size;
    WORD id;
};
struct IconGroup
{
    WORD reserved;
    WORD type;
    WORD count;
};
#pragma pack(pop)

class ModuleResources : public testing::Test
{
protected:
    ModuleResources()
        : m_module(LoadLibraryExW(ModuleFile().c_str(), nullptr,
                                  LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE))
    {
    }
    ~ModuleResources() override
    {
        if (m_module)
            FreeLibrary(m_module);
    }
    void SetUp() override { ASSERT_NE(nullptr, m_module) << GetLastError(); }

    /// The resource's bytes; a missing one is a failure and empty.
    std::string Bytes(const wchar_t* type, int number) const
    {
        const HRSRC resource = FindResourceW(m_module, MAKEINTRESOURCEW(number), type);
        if (!resource)
        {
            ADD_FAILURE() << "no resource " << number;
            return {};
        }
        return {static_cast<const char*>(LockResource(LoadResource(m_module, resource))),
                SizeofResource(m_module, resource)};
    }

    std::vector<IconEntry> IconsOfGroup(int number) const
    {
        const std::string bytes = Bytes(RT_GROUP_ICON, number);
        IconGroup group{};
        if (bytes.size() < sizeof group)
            return {};
        std::memcpy(&group, bytes.data(), sizeof group);
        EXPECT_EQ(1, group.type);
        std::vector<IconEntry> entries(group.count);
        EXPECT_EQ(sizeof group + group.count * sizeof(IconEntry), bytes.size());
        std::memcpy(entries.data(), bytes.data() + sizeof group, bytes.size() - sizeof group);
        return entries;
    }

    std::wstring VersionText(const std::wstring& name) const
    {
        const std::wstring path = ModuleFile();
        DWORD ignored = 0;
        std::vector<BYTE> block(GetFileVersionInfoSizeW(path.c_str(), &ignored));
        WORD* translation = nullptr;
        wchar_t* text = nullptr;
        UINT length = 0;
        if (!GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) ||
            !VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation",
                            reinterpret_cast<void**>(&translation), &length))
            return L"no version block";
        wchar_t key[100];
        swprintf(key, 100, L"\\StringFileInfo\\%04x%04x\\%ls", translation[0], translation[1], name.c_str());
        if (!VerQueryValueW(block.data(), key, reinterpret_cast<void**>(&text), &length))
            return L"no such text";
        return text;
    }

    HMODULE m_module;
};
} // namespace

TEST(ModuleImage, TakesNoTlsSlotAndWatchesNoExceptionsOfTheProcess)
{
    for (const char* import : {"TlsAlloc", "AddVectoredExceptionHandler"})
        EXPECT_EQ(Module().Bytes().find(import), std::string::npos) << import;
    EXPECT_NE(Module().Bytes().find("FlsFree"), std::string::npos);
}

TEST(ModuleImage, ImportsSystemDllsOnly)
{
    const std::vector<std::string> imported = Module().ImportedDlls();
    EXPECT_FALSE(imported.empty());
    for (const std::string& name : imported)
        EXPECT_EQ(1u, kSystemDlls.count(name)) << name;
}

TEST(ModuleImage, ExportsTheFourEntryPointsUndecorated)
{
    const std::vector<std::string> names = Module().ExportedNames();
    ASSERT_LE(kEntryPoints.size(), names.size());
    EXPECT_EQ(kEntryPoints, (std::vector<std::string>{names.begin(), names.begin() + 4}));
}

TEST(ModuleImage, ExportsThePublicMembersOfTheCopyClassesAndNothingElse)
{
    std::vector<std::string> members;
    for (const std::string& name : Module().ExportedNames())
        if (std::find(kEntryPoints.begin(), kEntryPoints.end(), name) == kEntryPoints.end())
            members.push_back(Demangled(name));
    std::sort(members.begin(), members.end());
    EXPECT_EQ(kMembers, members);
    EXPECT_EQ(kEntryPoints.size() + kMembers.size(), Module().ExportedFunctions()) << "some have no name";
}

TEST(ModuleImage, IsALibraryForX64)
{
    EXPECT_EQ(IMAGE_FILE_MACHINE_AMD64, Module().Headers().FileHeader.Machine);
    EXPECT_TRUE(Module().Headers().FileHeader.Characteristics & IMAGE_FILE_DLL);
}

TEST(ModuleImage, MayBeLoadedAnywhereAndRunsNoData)
{
    const WORD flags = Module().Headers().OptionalHeader.DllCharacteristics;
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA);
    EXPECT_TRUE(Module().Headers().FileHeader.Characteristics & IMAGE_FILE_LARGE_ADDRESS_AWARE);
    EXPECT_FALSE(Module().Headers().FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED);
    EXPECT_NE(0u, Module().DirectorySize(IMAGE_DIRECTORY_ENTRY_BASERELOC));
}

TEST(ModuleImage, HasNoSectionThatIsWritableAndExecutable)
{
    int code = 0;
    for (const IMAGE_SECTION_HEADER& section : Module().Sections())
    {
        const bool executable = section.Characteristics & (IMAGE_SCN_MEM_EXECUTE | IMAGE_SCN_CNT_CODE);
        const bool writable = section.Characteristics & IMAGE_SCN_MEM_WRITE;
        EXPECT_FALSE(executable && writable) << std::string(reinterpret_cast<const char*>(section.Name), 8);
        code += executable;
    }
    EXPECT_EQ(1, code) << "sections with code";
}

TEST(ModuleImage, HasTheCheckSumOfItsBytes)
{
    DWORD stated = 0;
    DWORD computed = 0;
    ASSERT_EQ(static_cast<DWORD>(CHECKSUM_SUCCESS),
              MapFileAndCheckSumW(ModuleFile().c_str(), &stated, &computed));
    EXPECT_EQ(computed, stated);
    EXPECT_EQ(stated, Module().Headers().OptionalHeader.CheckSum);
}

TEST(ModuleImage, KeepsItsDebugInformationElsewhere)
{
    EXPECT_EQ(0u, Module().DirectorySize(IMAGE_DIRECTORY_ENTRY_DEBUG));
    EXPECT_EQ(0u, Module().Headers().FileHeader.NumberOfSymbols);
    EXPECT_EQ(std::string::npos, Module().Bytes().find(".debug_info"));
    EXPECT_NE(std::string::npos, Module().Bytes().find("qptools.dll.debug")) << "the link to it";
}

TEST(ModuleImage, IsForTheSubsystemOfWindows)
{
    const WORD subsystem = Module().Headers().OptionalHeader.Subsystem;
    EXPECT_TRUE(subsystem == IMAGE_SUBSYSTEM_WINDOWS_GUI || subsystem == IMAGE_SUBSYSTEM_WINDOWS_CUI)
        << subsystem;
}

TEST(ModuleImage, HoldsNoTimeOfItsBuild)
{
    EXPECT_EQ(0u, Module().Headers().FileHeader.TimeDateStamp);
    EXPECT_EQ(0u, Module().ExportTime());
    EXPECT_EQ(0u, Module().ResourceTime());
}

TEST_F(ModuleResources, HoldTheSevenRegistryScripts)
{
    const struct
    {
        int number;
        const char* name;
    } scripts[] = {{102, "QPProjectChoice"},
                   {103, "QPSelectOrvoItem"},
                   {105, "QPSelectDlg"},
                   {106, "QPUserActionLog"},
                   {107, "XScriptActionAndCommandManager"},
                   {108, "QPCopyOptDlg"},
                   {384, "XBookMark"}};
    for (const auto& script : scripts)
    {
        const std::string text = Bytes(L"REGISTRY", script.number);
        EXPECT_NE(std::string::npos, text.find(std::string("'") + script.name + " Class'")) << script.number;
        EXPECT_NE(std::string::npos, text.find("%MODULE%")) << script.number;
    }
}

TEST_F(ModuleResources, SpellOneScriptsClassInMixedCaseAsItIsKept)
{
    EXPECT_NE(std::string::npos, Bytes(L"REGISTRY", 108).find("{9F79747B-EC88-48ad-9865-1C079A8C9221}"));
    EXPECT_EQ(std::string::npos, Bytes(L"REGISTRY", 108).find("48AD"));
}

TEST_F(ModuleResources, HoldTheTypeLibraryAsNumberOne)
{
    EXPECT_EQ("MSFT", Bytes(L"TYPELIB", 1).substr(0, 4));
}

TEST_F(ModuleResources, NameTheModuleInString100)
{
    wchar_t text[50] = {};
    EXPECT_EQ(7, LoadStringW(m_module, 100, text, 50));
    EXPECT_STREQ(L"qptools", text);
}

TEST_F(ModuleResources, HoldAnIconInThreeSizesAndThreeDepths)
{
    std::set<std::pair<int, int>> shapes;
    for (const IconEntry& entry : IconsOfGroup(385))
    {
        EXPECT_EQ(entry.width, entry.height);
        EXPECT_EQ(entry.bits == 4 ? 16 : 0, entry.colours);
        shapes.insert({entry.width, entry.bits});
    }
    EXPECT_EQ(9u, IconsOfGroup(385).size());
    const std::set<std::pair<int, int>> expected = {{48, 4},  {48, 8}, {48, 32}, {32, 4}, {32, 8},
                                                    {32, 32}, {16, 4}, {16, 8},  {16, 32}};
    EXPECT_EQ(expected, shapes);
}

TEST_F(ModuleResources, HoldEveryImageOfTheIconAsTheGroupDescribesIt)
{
    for (const IconEntry& entry : IconsOfGroup(385))
    {
        const std::string image = Bytes(RT_ICON, entry.id);
        ASSERT_EQ(entry.size, image.size());
        BITMAPINFOHEADER header;
        ASSERT_GE(image.size(), sizeof header);
        std::memcpy(&header, image.data(), sizeof header);
        ASSERT_EQ(sizeof header, header.biSize) << "not a bitmap: " << entry.id;
        EXPECT_EQ(entry.width, header.biWidth);
        EXPECT_EQ(2 * entry.height, header.biHeight) << "colours and mask";
        EXPECT_EQ(entry.bits, header.biBitCount);
    }
}

TEST_F(ModuleResources, LoadTheIconInEachSize)
{
    for (const int size : {48, 32, 16})
    {
        const auto icon =
            static_cast<HICON>(LoadImageW(m_module, MAKEINTRESOURCEW(385), IMAGE_ICON, size, size, 0));
        EXPECT_NE(nullptr, icon) << size;
        DestroyIcon(icon);
    }
}

TEST_F(ModuleResources, GiveTheVersionInTexts)
{
    EXPECT_EQ(L"" QP_VERSION_WITH_COMMAS, VersionText(L"FileVersion"));
    EXPECT_EQ(L"" QP_VERSION_WITH_COMMAS, VersionText(L"ProductVersion"));
    EXPECT_EQ(L"qptools Module", VersionText(L"FileDescription"));
    EXPECT_EQ(L"qptools", VersionText(L"InternalName"));
    EXPECT_EQ(L"qptools.DLL", VersionText(L"OriginalFilename"));
    EXPECT_EQ(L"qptools Module", VersionText(L"ProductName"));
}

TEST_F(ModuleResources, GiveTheVersionInNumbers)
{
    const std::wstring path = ModuleFile();
    DWORD ignored = 0;
    std::vector<BYTE> block(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &length));
    EXPECT_EQ(MAKELONG(QP_VERSION_MINOR, QP_VERSION_MAJOR), static_cast<LONG>(info->dwFileVersionMS));
    EXPECT_EQ(MAKELONG(0, QP_VERSION_PATCH), static_cast<LONG>(info->dwFileVersionLS));
    EXPECT_EQ(MAKELONG(QP_VERSION_MINOR, QP_VERSION_MAJOR), static_cast<LONG>(info->dwProductVersionMS));
    EXPECT_EQ(MAKELONG(0, QP_VERSION_PATCH), static_cast<LONG>(info->dwProductVersionLS));
    EXPECT_EQ(static_cast<DWORD>(VFT_DLL), info->dwFileType);
    EXPECT_EQ(static_cast<DWORD>(VOS_NT_WINDOWS32), info->dwFileOS);
    EXPECT_EQ(0u, info->dwFileFlags & info->dwFileFlagsMask) << "a debug or test version";
}

TEST_F(ModuleResources, AskForTheNewCommonControls)
{
    const std::string manifest = Bytes(RT_MANIFEST, 2);
    EXPECT_NE(std::string::npos, manifest.find("Microsoft.Windows.Common-Controls"));
    EXPECT_NE(std::string::npos, manifest.find("6.0.0.0"));
}
