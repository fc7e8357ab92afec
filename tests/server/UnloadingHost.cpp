#include "UnloadingHost.h"

#include "BuiltFiles.h"
#include "DialogDriver.h"
#include "MemoryHost.h"
#include "XQPComBSTR.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <new>

namespace
{
/// While it lives, the system creates no dialog window on this thread.
class NoDialogWindows
{
public:
    NoDialogWindows() : m_hook(SetWindowsHookExW(WH_CBT, &OnEvent, nullptr, GetCurrentThreadId())) {}
    ~NoDialogWindows() { UnhookWindowsHookEx(m_hook); }
    NoDialogWindows(const NoDialogWindows&) = delete;
    NoDialogWindows& operator=(const NoDialogWindows&) = delete;

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        wchar_t name[32] = {};
        if (code == HCBT_CREATEWND)
            GetClassNameW(reinterpret_cast<HWND>(window), name, 32);
        return std::wcscmp(name, L"#32770") == 0 ? 1 : CallNextHookEx(nullptr, code, window, details);
    }

    HHOOK m_hook;
};
} // namespace

void HaveExceptionCaught(IQPSelectOrvoItem& lookup)
{
    MemoryHost host;
    host.onCall = [](const std::string&) {
        throw std::bad_alloc();
    };
    const ComPtr<MemoryObject> object = host.Object("object");
    BSTR name = nullptr;
    EXPECT_EQ(lookup.GetTypeName(object.get(), &name), E_OUTOFMEMORY);
    EXPECT_FALSE(host.calls.empty());
}

UnloadingHost::UnloadingHost()
{
    EXPECT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), 0);
    const std::wstring manifest = ProgramFolder() + L"\\qptools_tests.manifest";
    ACTCTXW request = {};
    request.cbSize = sizeof(request);
    request.lpSource = manifest.c_str();
    m_context = CreateActCtxW(&request);
    EXPECT_TRUE(m_context != INVALID_HANDLE_VALUE && ActivateActCtx(m_context, &m_cookie));
}

UnloadingHost::~UnloadingHost()
{
    DeactivateActCtx(0, m_cookie);
    ReleaseActCtx(m_context);
    CoUninitialize();
}

template <class T>
ComPtr<T> UnloadingHost::Create(REFCLSID classId)
{
    ComPtr<T> object;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T), object.putVoid()), S_OK);
    return object;
}

void UnloadingHost::Work(bool shown)
{
    CatchException();
    WriteLog();
    if (shown)
        return CancelChoice();
    const NoDialogWindows refused;
    ChooseProject();
}

void UnloadingHost::CatchException()
{
    const auto lookup = Create<IQPSelectOrvoItem>(CLSID_QPSelectOrvoItem);
    HaveExceptionCaught(*lookup.get());
}

void UnloadingHost::WriteLog()
{
    const auto log = Create<IQPUserActionLog>(CLSID_QPUserActionLog);
    EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, XQPComBSTR(L"Robot"), nullptr), S_OK);
}

void UnloadingHost::ChooseProject()
{
    MemoryHost host;
    const ComPtr<MemoryObject> root = host.Object("root");
    root->Children(L"orvoproject", host.List({host.Named(L"Plant")}));
    const auto choice = Create<IQPProjectChoice>(CLSID_QPProjectChoice);
    LONG canceled = 0;
    IQP_BaseDataObject* selected = nullptr;
    EXPECT_EQ(choice->ShowDialog(root.get(), XQPComBSTR(L"Choose"), &canceled, &selected, 0), S_OK);
    EXPECT_EQ(canceled, 1);
}

void UnloadingHost::CancelChoice()
{
    DialogDriver user;
    user.OnDialog({[](DialogView& view) {
        view.Close();
    }});
    ChooseProject();
    EXPECT_TRUE(user.AllShown());
}

bool UnloadingHost::Unload()
{
    CoFreeUnusedLibrariesEx(0, 0);
    return !IsLoaded();
}

LoadedModule::LoadedModule(const std::wstring& path) : m_module(LoadLibraryW(path.c_str()))
{
    EXPECT_NE(m_module, nullptr) << GetLastError();
}

template <class T>
ComPtr<T> LoadedModule::Create(REFCLSID classId) const
{
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(m_module, "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(get(classId, __uuidof(IClassFactory), factory.putVoid()), S_OK);
    ComPtr<T> object;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(T), object.putVoid()), S_OK);
    return object;
}

void LoadedModule::CatchException() const
{
    HaveExceptionCaught(*Create<IQPSelectOrvoItem>(CLSID_QPSelectOrvoItem));
}

void LoadedModule::KeepCopyDialog(CountedList& objects) const
{
    EXPECT_EQ(Create<IQPCopyOptDlg>(CLSID_QPCopyOptDlg)->Initialize(&objects, nullptr), S_OK);
}

ULONG STDMETHODCALLTYPE CountedList::Release()
{
    if (--references == 0 && exitCode != 0)
        TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
    return static_cast<ULONG>(references);
}
