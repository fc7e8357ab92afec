// Windows in memory: what a window is, and what the parts of the window system ask of each other.
#pragma once

#include <commctrl.h>
#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace winport
{
class Control;
struct Window;

/// Every character of the one font, in pixels, which are the base units of dialogs, too.
constexpr int kCharacterWidth = 6;
constexpr int kCharacterHeight = 13;

/// How a built-in class makes the state of a new window.
using MakeControl = std::unique_ptr<Control> (*)(Window&);

struct WindowClass
{
    std::wstring name;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr; ///< null for a built-in class
    UINT style = 0;
    int extraBytes = 0;
    MakeControl make = nullptr; ///< built-in controls only
    DWORD controlStyles = 0;    ///< which of the low 16 style bits a built-in control knows
    UINT firstOwn = 0;          ///< the messages below WM_USER that the real control has for itself
    UINT lastOwn = 0;
};

struct Window
{
    void SetClass(const WindowClass* of);

    HWND handle = nullptr;
    const WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT rect{};                   ///< the whole window, in pixels of the screen
    RECT restored{};               ///< the same before it was maximised
    int frame = 0;                 ///< how wide the frame is around the inside
    int caption = 0;               ///< how high the caption is
    Window* parent = nullptr;      ///< of a child window; null for a top-level one
    Window* owner = nullptr;       ///< of a top-level window
    std::vector<Window*> children; ///< from top to bottom, which is the order of the Tab key
    LONG_PTR id = 0;
    std::wstring text;
    LONG_PTR userData = 0;
    std::vector<LONG_PTR> extra; ///< what cbWndExtra asked for, by eight bytes
    HFONT font = nullptr;
    std::unique_ptr<Control> control;
    DWORD thread = 0;
    HICON icons[2] = {}; ///< small, big
    bool messageOnly = false;
    bool destroying = false;
    bool placeUntold = false; ///< WM_SIZE and WM_MOVE come when it is shown first
    bool gone = false;        ///< destroyed, and kept only while one of its handlers runs
    int calls = 0;            ///< how many of its handlers run

    bool Visible() const; ///< with all its parents
    bool Enabled() const { return (style & WS_DISABLED) == 0; }
    RECT ClientOnScreen() const; ///< without frame, caption and border
};

/// The state and the behaviour of a built-in control. What it does not answer itself goes to Default, which
/// ends the run at a message of the control's own.
class Control
{
public:
    explicit Control(Window& window) : m_window(window) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;

protected:
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

    /// WM_COMMAND to the parent. False if the window is gone when it returns.
    bool NotifyCommand(WORD code);

    /// WM_NOTIFY to the parent; fills in the header, or sends nothing but it.
    LRESULT Notify(NMHDR& header, UINT code);
    LRESULT Notify(UINT code);

    HWND Handle() const { return m_window.handle; }
    DWORD Style() const { return m_window.style; }
    RECT ClientSize() const; ///< left and top are 0

    Window& m_window;
};

/// The point of a mouse message.
inline POINT PointOf(LPARAM point)
{
    return {static_cast<SHORT>(LOWORD(point)), static_cast<SHORT>(HIWORD(point))};
}

inline bool IsHeld(int key)
{
    return GetKeyState(key) < 0;
}

/// The window of a handle, or null. Handles are not used twice, so that a stale one is always noticed.
Window* FindWindowOf(HWND window);

/// True while the window of this handle lives and is not being destroyed.
bool Alive(HWND window);

/// Ends the run and names what is not there: `what` is "message", "style" ..., the window may be null.
[[noreturn]] void Missing(const Window* window, const char* what, unsigned long long number);

/// The same, if any bit is left of those that are known.
inline void RefuseBits(const Window* window, const char* what, unsigned long long unknown)
{
    if (unknown)
        Missing(window, what, unknown);
}

/// The whole tree beneath a window with classes, identifiers, styles, texts: for messages.
std::string DumpOf(const Window& window);

/// The calling thread's windows without a parent, from top to bottom.
const std::vector<Window*>& TopLevelWindows();

/// The class of that name: registered by `instance` or built in. Null if there is none.
const WindowClass* FindWindowClass(const std::wstring& name, HINSTANCE instance);

/// The procedure of every built-in control: makes and ends its state and hands messages to it.
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Copies a text as WM_GETTEXT does: at most `size` characters with the closing null. Returns what was copied
/// without the null.
int CopyText(std::wstring_view text, LPWSTR buffer, int size);

/// What a window answers when it is asked for its text.
std::wstring TextOf(HWND window);

/// The handles of windows, some of which may end while the rest is gone through.
std::vector<HWND> HandlesOf(const std::vector<Window*>& windows);

// Made by the sources of the controls, and named in the table of the built-in classes.
std::unique_ptr<Control> MakeButton(Window& window);
std::unique_ptr<Control> MakeStatic(Window& window);
std::unique_ptr<Control> MakeEdit(Window& window);
std::unique_ptr<Control> MakeComboBox(Window& window);
std::unique_ptr<Control> MakeListView(Window& window);
std::unique_ptr<Control> MakeHeader(Window& window);
std::unique_ptr<Control> MakeDatePicker(Window& window);
} // namespace winport
