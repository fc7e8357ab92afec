// Creates all classes of the module as hosts do, by identifier and by ProgID, and says from where they came:
//   create_seven [--log] [--context FOLDER] [--hold NAME]
//     --log               writes a name, in the user's language, to the user action log
//     --context FOLDER    keeps the objects, and creates all again in an activation context with the assembly
//     in that folder,
//                         by the host.exe.manifest there
//     --hold NAME         keeps the objects, creates the file NAME.ready, waits until NAME.release exists,
//     and creates
//                         all again
// It prints a line for each module, "7 classes of 5.19.3 in C:\folder\qptools.dll", and one for each failure.
// The exit code is the number of failures.
#include "Bstr.h"
#include "ComPtr.h"
#include "Resources.h"
#include "Utf8.h"

#include "qptools.h"

#include <windows.h>

#include <oleauto.h>
#include <shellapi.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace
{
struct ClassName
{
    const wchar_t* name;
    const CLSID& id;
    const IID& interfaceId;
};

const ClassName kClasses[] = {
    {L"QPProjectChoice", CLSID_QPProjectChoice, IID_IQPProjectChoice},
    {L"QPSelectOrvoItem", CLSID_QPSelectOrvoItem, IID_IQPSelectOrvoItem},
    {L"QPSelectDlg", CLSID_QPSelectDlg, IID_IQPSelectDlg},
    {L"QPUserActionLog", CLSID_QPUserActionLog, IID_IQPUserActionLog},
    {L"XScriptActionAndCommandManager", CLSID_XScriptActionAndCommandManager,
     IID_IScriptActionAndCommandManager},
    {L"QPCopyOptDlg", CLSID_QPCopyOptDlg, IID_IQPCopyOptDlg},
    {L"XBookMark", CLSID_XBookMark, IID_IXBookMark},
};

int failures = 0;

void Print(const std::wstring& line)
{
    std::printf("%s\n", Utf8FromWide(line).c_str());
    std::fflush(stdout);
}

/// Returns true if `status` is S_OK, otherwise counts and prints a failure.
bool Succeeded(const std::wstring& what, HRESULT status)
{
    if (status == S_OK)
        return true;
    wchar_t code[16];
    std::swprintf(code, 16, L"0x%08X", static_cast<unsigned>(status));
    Print(what + L" failed: " + code);
    ++failures;
    return false;
}

/// "major.minor.patch" of a file's version block, "no version" without one.
std::wstring VersionOf(const std::wstring& file)
{
    std::vector<BYTE> block(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    void* found = nullptr;
    UINT size = 0;
    if (block.empty() ||
        !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) ||
        !VerQueryValueW(block.data(), L"\\", &found, &size))
        return L"no version";
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return std::to_wstring(HIWORD(fixed.dwFileVersionMS)) + L"." +
           std::to_wstring(LOWORD(fixed.dwFileVersionMS)) + L"." +
           std::to_wstring(HIWORD(fixed.dwFileVersionLS));
}

/// The module whose code the object runs.
std::wstring ModuleOf(IUnknown* object)
{
    HMODULE module = nullptr;
    const void* code = **reinterpret_cast<void***>(object);
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(code), &module);
    return module ? ModulePath(module) : L"no module";
}

ComPtr<IUnknown> CreateById(const std::wstring& what, const CLSID& id, const IID& interfaceId)
{
    ComPtr<IUnknown> object;
    Succeeded(what, CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interfaceId, object.putVoid()));
    return object;
}

/// The identifier that a ProgID stands for is not the one of the class where a manifest declares it.
ComPtr<IUnknown> CreateByProgId(const std::wstring& progId, const IID& interfaceId)
{
    CLSID id = {};
    if (!Succeeded(progId, CLSIDFromProgID(progId.c_str(), &id)))
        return nullptr;
    return CreateById(progId, id, interfaceId);
}

/// An object of the class, which both its ProgIDs and its identifier must bring from one module.
ComPtr<IUnknown> Create(const ClassName& component)
{
    const std::wstring progId = std::wstring(L"Qptools.") + component.name;
    const ComPtr<IUnknown> versioned = CreateByProgId(progId + L".1", component.interfaceId);
    const ComPtr<IUnknown> plain = CreateByProgId(progId, component.interfaceId);
    ComPtr<IUnknown> object = CreateById(component.name, component.id, component.interfaceId);
    if (!versioned || !plain || !object)
        return nullptr;
    const std::wstring module = ModuleOf(object.get());
    const bool same = ModuleOf(versioned.get()) == module && ModuleOf(plain.get()) == module;
    return Succeeded(progId + L" by one module", same ? S_OK : E_UNEXPECTED) ? object : nullptr;
}

void WriteLog(IUnknown* object)
{
    const Bstr name(L"Robot");
    auto* log = static_cast<IQPUserActionLog*>(object);
    Succeeded(L"the log", log->WriteUserActionInfo(nullptr, nullptr, nullptr, name.get(), nullptr));
}

void LoadTypeLibrary()
{
    ComPtr<ITypeLib> library;
    Succeeded(L"the type library", LoadRegTypeLib(LIBID_QPTOOLSLib, 1, 0, LOCALE_NEUTRAL, library.put()));
}

using Objects = std::vector<ComPtr<IUnknown>>;

void CreateAll(Objects& objects, bool writesLog)
{
    std::map<std::wstring, int> classes;
    for (const ClassName& component : kClasses)
    {
        ComPtr<IUnknown> object = Create(component);
        if (!object)
            continue;
        ++classes[ModuleOf(object.get())];
        if (writesLog && IsEqualCLSID(component.id, CLSID_QPUserActionLog))
            WriteLog(object.get());
        objects.push_back(std::move(object));
    }
    LoadTypeLibrary();
    for (const auto& [module, count] : classes)
        Print(std::to_wstring(count) + L" classes of " + VersionOf(module) + L" in " + module);
}

HRESULT LastError()
{
    return HRESULT_FROM_WIN32(GetLastError());
}

/// The assembly is looked for in the parent of its folder, as if the program were there.
HANDLE ContextOf(const std::wstring& folder)
{
    const std::wstring manifest = folder + L"\\host.exe.manifest";
    const std::wstring parent = folder.substr(0, folder.find_last_of(L'\\'));
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    description.lpSource = manifest.c_str();
    description.lpAssemblyDirectory = parent.c_str();
    return CreateActCtxW(&description);
}

void CreateAllInContext(const std::wstring& folder, Objects& objects, bool writesLog)
{
    const HANDLE context = ContextOf(folder);
    ULONG_PTR cookie = 0;
    if (!Succeeded(folder, context == INVALID_HANDLE_VALUE ? LastError() : S_OK))
        return;
    if (Succeeded(folder, ActivateActCtx(context, &cookie) ? S_OK : LastError()))
    {
        CreateAll(objects, writesLog);
        DeactivateActCtx(0, cookie);
    }
    ReleaseActCtx(context);
}

bool Exists(const std::wstring& file)
{
    return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Waits a minute at most.
void Hold(const std::wstring& name)
{
    const HANDLE ready =
        CreateFileW((name + L".ready").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (!Succeeded(name + L".ready", ready == INVALID_HANDLE_VALUE ? LastError() : S_OK))
        return;
    CloseHandle(ready);
    for (int tries = 0; tries < 1200 && !Exists(name + L".release"); ++tries)
        Sleep(50);
    Succeeded(name + L".release", Exists(name + L".release") ? S_OK : HRESULT_FROM_WIN32(ERROR_TIMEOUT));
}

struct Arguments
{
    bool log = false;
    std::wstring context;
    std::wstring hold;
};

bool Read(Arguments& arguments)
{
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    bool known = words != nullptr;
    for (int index = 1; known && index < count; ++index)
    {
        const std::wstring word = words[index];
        const bool hasValue = index + 1 < count;
        if (word == L"--log")
            arguments.log = true;
        else if (word == L"--context" && hasValue)
            arguments.context = words[++index];
        else if (word == L"--hold" && hasValue)
            arguments.hold = words[++index];
        else
            known = false;
    }
    LocalFree(words);
    return known;
}

void Run(const Arguments& arguments)
{
    Objects objects;
    CreateAll(objects, arguments.log);
    if (!arguments.context.empty())
        CreateAllInContext(arguments.context, objects, arguments.log);
    if (!arguments.hold.empty())
    {
        Hold(arguments.hold);
        CreateAll(objects, arguments.log);
    }
}
} // namespace

int main()
{
    Arguments arguments;
    if (!Read(arguments))
    {
        Print(L"usage: create_seven [--log] [--context FOLDER] [--hold NAME]");
        return 100;
    }
    if (!Succeeded(L"CoInitialize", CoInitialize(nullptr)))
        return failures;
    Run(arguments);
    CoUninitialize();
    return failures;
}
