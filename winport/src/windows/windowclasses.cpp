// Window classes: the built-in ones and those that a module registers.
#include "wpthread.h"

#include "base/wpimmortal.h"
#include "base/wpmodules.h"
#include "base/wptext.h"

#include <mutex>

namespace winport
{
namespace
{
constexpr DWORD kDialogStyles = DS_ABSALIGN | DS_3DLOOK | DS_FIXEDSYS | DS_SETFONT | DS_MODALFRAME |
                                DS_SETFOREGROUND | DS_CONTROL | DS_CENTER;
constexpr DWORD kListStyles = LVS_TYPEMASK | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SORTASCENDING |
                              LVS_SORTDESCENDING | LVS_SHAREIMAGELISTS | LVS_AUTOARRANGE | LVS_EDITLABELS |
                              LVS_NOCOLUMNHEADER | LVS_NOSORTHEADER;
constexpr DWORD kComboStyles = CBS_DROPDOWNLIST | CBS_AUTOHSCROLL | CBS_SORT | CBS_HASSTRINGS;
constexpr int kDialogExtra = 32;
constexpr DWORD kAnyStyle = 0xFFFF;

const WindowClass* BuiltInClass(const std::wstring& name)
{
    static const WindowClass classes[] = {
        {WC_BUTTONW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeButton,
         BS_TYPEMASK | BS_LEFTTEXT | BS_NOTIFY},
        {WC_STATICW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeStatic, SS_TYPEMASK | SS_NOPREFIX},
        {WC_EDITW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeEdit,
         ES_LEFT | ES_CENTER | ES_RIGHT | ES_AUTOHSCROLL},
        {WC_COMBOBOXW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeComboBox, kComboStyles},
        {WC_LISTVIEWW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeListView, kListStyles},
        {WC_HEADERW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeHeader,
         HDS_HORZ | HDS_BUTTONS | HDS_FULLDRAG},
        {DATETIMEPICK_CLASSW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeDatePicker, DTS_UPDOWN},
        {L"#32770", DefDlgProcW, nullptr, CS_DBLCLKS, kDialogExtra, nullptr, kDialogStyles},
        {L"#32769", DefWindowProcW, nullptr, 0, 0, nullptr, 0},
        {L"Message", DefWindowProcW, nullptr, 0, 0, nullptr, 0},
    };
    for (const WindowClass& windowClass : classes)
    {
        if (CompareNoCase(windowClass.name, name) == 0)
            return &windowClass;
    }
    return nullptr;
}

struct Registered
{
    WindowClass windowClass;
    ATOM atom = 0;
    int windows = 0;
};

struct Registry
{
    std::mutex mutex;
    std::vector<std::unique_ptr<Registered>> classes;
    ATOM nextAtom = 0xC100;

    auto Find(std::wstring_view name, HINSTANCE instance)
    {
        auto at = classes.begin();
        while (at != classes.end() && !((*at)->windowClass.instance == instance &&
                                        CompareNoCase((*at)->windowClass.name, name) == 0))
            ++at;
        return at;
    }
};

Registry& TheRegistry()
{
    return Immortal<Registry>();
}

// No instance and the program's are the same.
HINSTANCE Known(HINSTANCE instance)
{
    return instance ? instance : GetModuleHandleW(nullptr);
}

void CountWindows(const WindowClass* windowClass, int change)
{
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    for (const auto& registered : registry.classes)
    {
        if (&registered->windowClass == windowClass)
            registered->windows += change;
    }
}
} // namespace

Window::~Window()
{
    control.reset();
    if (windowClass && windowClass->instance)
        CountWindows(windowClass, -1);
}

void Window::SetClass(const WindowClass* of)
{
    windowClass = of;
    procedure = of->procedure;
    extra.resize(static_cast<std::size_t>(of->extraBytes + 7) / 8);
    if (of->instance)
        CountWindows(of, 1);
}

const WindowClass* FindWindowClass(const std::wstring& name, HINSTANCE instance)
{
    {
        Registry& registry = TheRegistry();
        const std::lock_guard lock(registry.mutex);
        const auto found = registry.Find(name, Known(instance));
        if (found != registry.classes.end())
            return &(*found)->windowClass;
    }
    return BuiltInClass(name);
}

void CheckStyles(const Window& window, DWORD style, DWORD exStyle)
{
    constexpr DWORD kGeneric = WS_POPUP | WS_CHILD | WS_VISIBLE | WS_DISABLED | WS_CLIPSIBLINGS |
                               WS_CLIPCHILDREN | WS_CAPTION | WS_VSCROLL | WS_HSCROLL | WS_SYSMENU |
                               WS_THICKFRAME | WS_GROUP | WS_TABSTOP;
    constexpr DWORD kExtended = WS_EX_DLGMODALFRAME | WS_EX_NOPARENTNOTIFY | WS_EX_TOOLWINDOW |
                                WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT | WS_EX_STATICEDGE;
    const DWORD own = window.windowClass->instance ? kAnyStyle : window.windowClass->controlStyles;
    if (const DWORD unknown = style & ~(kGeneric | own))
        Missing(&window, "style", unknown);
    if (const DWORD unknown = exStyle & ~kExtended)
        Missing(&window, "extended style", unknown);
}
} // namespace winport

using namespace winport;

ATOM RegisterClassW(const WNDCLASSW* description)
{
    if (!description->lpfnWndProc || !description->lpszClassName || !*description->lpszClassName)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    auto added = std::make_unique<Registered>();
    added->windowClass = {description->lpszClassName, description->lpfnWndProc, Known(description->hInstance),
                          description->style, description->cbWndExtra};
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    if (registry.Find(added->windowClass.name, added->windowClass.instance) != registry.classes.end())
    {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    added->atom = registry.nextAtom++;
    return registry.classes.emplace_back(std::move(added))->atom;
}

BOOL UnregisterClassW(LPCWSTR name, HINSTANCE instance)
{
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    const auto found = registry.Find(name, Known(instance));
    if (found == registry.classes.end())
    {
        SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
        return FALSE;
    }
    if ((*found)->windows > 0)
    {
        SetLastError(ERROR_CLASS_HAS_WINDOWS);
        return FALSE;
    }
    registry.classes.erase(found);
    return TRUE;
}

int GetClassNameW(HWND handle, LPWSTR buffer, int size)
{
    const Window* window = AnyWindow(handle);
    return window ? CopyText(window->windowClass->name, buffer, size) : 0;
}

// The common controls are there from the start.
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes)
{
    constexpr DWORD kKnown = ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES | ICC_STANDARD_CLASSES;
    if (!classes || classes->dwSize != sizeof(INITCOMMONCONTROLSEX))
        return FALSE;
    if (const DWORD unknown = classes->dwICC & ~kKnown)
        Missing(nullptr, "group of control classes", unknown);
    return TRUE;
}
