// Window classes: the built-in ones and those that a module registers.
#include "thread.h"

#include "base/immortal.h"
#include "base/modules.h"
#include "base/text.h"

#include <deque>
#include <mutex>

namespace winport
{
namespace
{
constexpr DWORD kDialogStyles = DS_ABSALIGN | DS_3DLOOK | DS_FIXEDSYS | DS_SETFONT | DS_MODALFRAME |
                                DS_SETFOREGROUND | DS_CONTROL | DS_CENTER;
constexpr DWORD kListStyles = LVS_TYPEMASK | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SORTASCENDING |
                              LVS_EDITLABELS | LVS_NOCOLUMNHEADER;
constexpr DWORD kComboStyles = CBS_DROPDOWNLIST | CBS_AUTOHSCROLL | CBS_SORT | CBS_HASSTRINGS;
constexpr int kDialogExtra = 32;
constexpr DWORD kAnyStyle = 0xFFFF;

const WindowClass* BuiltInClass(const std::wstring& name)
{
    static const WindowClass classes[] = {
        {WC_BUTTONW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeButton, BS_TYPEMASK | BS_LEFTTEXT, 0x00F0,
         0x00F8},
        {WC_STATICW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeStatic, SS_TYPEMASK | SS_NOPREFIX, 0x0170,
         0x0174},
        {WC_EDITW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeEdit, ES_LEFT | ES_AUTOHSCROLL, 0x00B0,
         0x00DF},
        {WC_COMBOBOXW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeComboBox, kComboStyles, 0x0140, 0x016F},
        {WC_LISTVIEWW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeListView, kListStyles},
        {WC_HEADERW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeHeader,
         HDS_HORZ | HDS_BUTTONS | HDS_FULLDRAG},
        {DATETIMEPICK_CLASSW, ControlProcedure, nullptr, CS_DBLCLKS, 0, MakeDatePicker,
         DTS_UPDOWN | DTS_SHOWNONE | DTS_RIGHTALIGN},
        {L"#32770", DialogProcedure, nullptr, CS_DBLCLKS, kDialogExtra, nullptr, kDialogStyles},
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

struct Registry
{
    std::mutex mutex;
    std::deque<WindowClass> classes;

    const WindowClass* Find(std::wstring_view name, HINSTANCE instance) const
    {
        for (const WindowClass& registered : classes)
        {
            if (registered.instance == instance && CompareNoCase(registered.name, name) == 0)
                return &registered;
        }
        return nullptr;
    }
};

Registry& TheRegistry()
{
    return Immortal<Registry>();
}

// A null instance is the program.
HINSTANCE Known(HINSTANCE instance)
{
    return instance ? instance : GetModuleHandleW(nullptr);
}
} // namespace

void Window::SetClass(const WindowClass* of)
{
    windowClass = of;
    procedure = of->procedure;
    extra.resize(static_cast<std::size_t>(of->extraBytes + 7) / 8);
}

const WindowClass* FindWindowClass(const std::wstring& name, HINSTANCE instance)
{
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    const WindowClass* found = registry.Find(name, Known(instance));
    return found ? found : BuiltInClass(name);
}

void RefuseSystemClass(const std::wstring& name)
{
    constexpr const wchar_t* kOthers[] = {L"ListBox",       L"ScrollBar",        L"MDIClient",
                                          L"ComboBoxEx32",  L"RichEdit",         L"ToolbarWindow32",
                                          L"ReBarWindow32", L"tooltips_class32", L"Sys",
                                          L"msctls_",       L"NativeFontCtl"};
    for (const std::wstring_view other : kOthers)
    {
        if (CompareNoCase(std::wstring_view(name).substr(0, other.size()), other) == 0)
            Stuck(("winport has no window class " + Utf8(name) + ". The windows are:").c_str());
    }
}

void CheckStyles(const Window& window, DWORD style, DWORD exStyle)
{
    constexpr DWORD kGeneric = WS_POPUP | WS_CHILD | WS_VISIBLE | WS_DISABLED | WS_CLIPSIBLINGS |
                               WS_CLIPCHILDREN | WS_CAPTION | WS_VSCROLL | WS_HSCROLL | WS_SYSMENU |
                               WS_THICKFRAME | WS_GROUP | WS_TABSTOP;
    constexpr DWORD kExtended = WS_EX_DLGMODALFRAME | WS_EX_NOPARENTNOTIFY | WS_EX_TOOLWINDOW |
                                WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT | WS_EX_STATICEDGE;
    const DWORD own = window.windowClass->instance ? kAnyStyle : window.windowClass->controlStyles;
    RefuseBits(&window, "style", style & ~(kGeneric | own));
    RefuseBits(&window, "extended style", exStyle & ~kExtended);
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
    constexpr std::size_t kFirstAtom = 0xC100;
    const HINSTANCE instance = Known(description->hInstance);
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    if (registry.Find(description->lpszClassName, instance))
    {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    registry.classes.push_back({description->lpszClassName, description->lpfnWndProc, instance,
                                description->style, description->cbWndExtra});
    return static_cast<ATOM>(kFirstAtom + registry.classes.size());
}

int GetClassNameW(HWND handle, LPWSTR buffer, int size)
{
    const Window* window = AnyWindow(handle);
    return window ? CopyText(window->windowClass->name, buffer, size) : 0;
}

// The classes are registered from the start.
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes)
{
    constexpr DWORD kKnown = ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES | ICC_STANDARD_CLASSES;
    if (!classes || classes->dwSize != sizeof(INITCOMMONCONTROLSEX))
        return FALSE;
    RefuseBits(nullptr, "group of control classes", classes->dwICC & ~kKnown);
    return TRUE;
}
