// Windows in memory, and the functions that the parts of the window system share.
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

/// The size of every character of the one font, in pixels; also the base units of dialogs.
constexpr int kCharacterWidth = 6;
constexpr int kCharacterHeight = 13;

/// The screen, and the width of a vertical scroll bar, in pixels.
constexpr int kScreenWidth = 1024;
constexpr int kScreenHeight = 768;
constexpr int kScrollBarWidth = 17;

/// Creates the state of a new window of a built-in class.
using MakeControl = std::unique_ptr<Control> (*)(Window&);

struct WindowClass
{
    std::wstring name;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr; ///< null for a built-in class
    UINT style = 0;
    int extraBytes = 0;
    MakeControl make = nullptr; ///< built-in controls only
    DWORD controlStyles = 0;    ///< the low 16 style bits that a built-in control supports
    UINT firstOwn = 0;          ///< the first of the messages below WM_USER that the real control defines
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
    RECT rect{};                      ///< the whole window, in pixels of the screen
    RECT restored{};                  ///< its position before it was maximised or minimised
    bool restoresToMaximised = false; ///< it was maximised when it was minimised
    int frame = 0;                    ///< width of the frame
    int caption = 0;                  ///< height of the caption
    Window* parent = nullptr;         ///< of a child window; null for a top-level one
    Window* owner = nullptr;          ///< of a top-level window
    std::vector<Window*> children;    ///< from top to bottom; also the order of the Tab key
    LONG_PTR id = 0;
    std::wstring text;
    LONG_PTR userData = 0;
    std::vector<LONG_PTR> extra; ///< the extra bytes of cbWndExtra, in units of eight
    HFONT font = nullptr;
    std::unique_ptr<Control> control;
    DWORD thread = 0;
    HICON icons[2] = {}; ///< small, big
    bool messageOnly = false;
    bool destroying = false;
    bool placeUntold = false; ///< WM_SIZE and WM_MOVE are sent when it is first shown
    bool gone = false;        ///< destroyed, but one of its handlers is still running
    int calls = 0;            ///< number of running handlers

    bool Visible() const; ///< true if all parents are visible, too
    bool Enabled() const { return (style & WS_DISABLED) == 0; }
    RECT ClientOnScreen() const; ///< without frame, caption and border
};

/// State and behaviour of a built-in control. Messages that it does not handle go to Default, which ends the
/// run for a message that the real control defines.
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

    /// Sends WM_COMMAND to the parent. Returns false if the window was destroyed meanwhile.
    bool NotifyCommand(WORD code);

    /// Sends WM_NOTIFY to the parent, with the header filled in; the second form sends a header alone.
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

/// Returns the window of a handle, or null. Handles are not reused, so a stale one is always detected.
Window* FindWindowOf(HWND window);

/// True if the window of this handle exists and is not being destroyed.
bool Alive(HWND window);

/// Ends the run and names what winport does not support: `what` is "message", "style" ...; the window may be
/// null.
[[noreturn]] void Missing(const Window* window, const char* what, unsigned long long number);

/// The same, if a bit outside of the known ones is set.
inline void RefuseBits(const Window* window, const char* what, unsigned long long unknown)
{
    if (unknown)
        Missing(window, what, unknown);
}

/// Describes a window and everything below it, with classes, identifiers, styles and texts.
std::string DumpOf(const Window& window);

/// The top-level windows of the calling thread, from top to bottom.
const std::vector<Window*>& TopLevelWindows();

/// Returns the class with this name, registered by `instance` or built in; null if there is none.
const WindowClass* FindWindowClass(const std::wstring& name, HINSTANCE instance);

/// The window procedure of all built-in controls: creates and destroys the state and passes messages to it.
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// The window procedure of the class of dialogs.
LRESULT CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// Copies a text as WM_GETTEXT does: at most `size` characters with the terminator. Returns the length
/// without it.
int CopyText(std::wstring_view text, LPWSTR buffer, int size);

/// The text of a window, asked by WM_GETTEXT.
std::wstring TextOf(HWND window);

/// The handles of windows, for a walk during which some may be destroyed.
std::vector<HWND> HandlesOf(const std::vector<Window*>& windows);

// Defined by the sources of the controls, used by the table of built-in classes.
std::unique_ptr<Control> MakeButton(Window& window);
std::unique_ptr<Control> MakeStatic(Window& window);
std::unique_ptr<Control> MakeEdit(Window& window);
std::unique_ptr<Control> MakeComboBox(Window& window);
std::unique_ptr<Control> MakeListView(Window& window);
std::unique_ptr<Control> MakeHeader(Window& window);
std::unique_ptr<Control> MakeDatePicker(Window& window);
} // namespace winport
