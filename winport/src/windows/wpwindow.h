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
};

struct Window
{
    Window() = default;
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void SetClass(const WindowClass* of);

    HWND handle = nullptr;
    const WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT rect{};                   ///< the whole window, in pixels of the screen
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
    HWND lastActivePopup = nullptr;
    bool messageOnly = false;
    bool destroying = false;
    bool placeUntold = false; ///< WM_SIZE and WM_MOVE come when it is shown first
    bool gone = false;        ///< destroyed, and kept only while one of its handlers runs
    int calls = 0;            ///< how many of its handlers run

    bool Visible() const; ///< with all its parents
    bool Enabled() const { return (style & WS_DISABLED) == 0; }
    RECT ClientOnScreen() const; ///< without frame, caption and border
};

/// The state and the behaviour of a built-in control. A message below WM_USER that is no message of the
/// control's own goes to Default; one of its own that it does not know goes to Unsupported.
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

    /// WM_COMMAND to the parent. The window may be gone when it returns: ask Alive().
    void NotifyCommand(WORD code);

    /// WM_NOTIFY to the parent; fills in the header.
    LRESULT Notify(NMHDR& header, UINT code);

    [[noreturn]] void Unsupported(UINT message) const;

    HWND Handle() const { return m_window.handle; }
    DWORD Style() const { return m_window.style; }
    RECT ClientSize() const; ///< left and top are 0

    Window& m_window;
};

/// The window of a handle, or null. Handles are not used twice, so that a stale one is always noticed.
Window* FindWindowOf(HWND window);

/// True while the window of this handle lives and is not being destroyed.
bool Alive(HWND window);

/// Ends the run and names what is not there: `what` is "message", "style" ..., the window may be null.
[[noreturn]] void Missing(const Window* window, const char* what, unsigned long long number);

/// The whole tree beneath a window with classes, identifiers, styles, texts: for messages.
std::string DumpOf(const Window& window);

/// The calling thread's windows without a parent, from top to bottom.
const std::vector<Window*>& TopLevelWindows();

/// The class of that name: registered by `instance` or built in. Null if there is none.
const WindowClass* FindWindowClass(const std::wstring& name, HINSTANCE instance);

/// The procedure of every built-in control: makes and ends its state and hands messages to it.
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// How wide a text is in the one font.
inline int TextWidth(std::wstring_view text)
{
    return static_cast<int>(text.size()) * kCharacterWidth;
}

/// Copies a text as WM_GETTEXT does: at most `size` characters with the closing null. Returns what was copied
/// without the null.
int CopyText(std::wstring_view text, LPWSTR buffer, int size);

/// The order of texts in sorted controls: that of names (see docs/winport.md), ignoring case. Less than,
/// equal to, greater than 0.
int CompareShownTexts(const std::wstring& one, const std::wstring& other);

/// True if `text` begins with `prefix`, ignoring case.
bool BeginsWith(const std::wstring& text, const std::wstring& prefix);

// Made by the sources of the controls, and named in the table of the built-in classes.
std::unique_ptr<Control> MakeButton(Window& window);
std::unique_ptr<Control> MakeStatic(Window& window);
std::unique_ptr<Control> MakeEdit(Window& window);
std::unique_ptr<Control> MakeComboBox(Window& window);
std::unique_ptr<Control> MakeListView(Window& window);
std::unique_ptr<Control> MakeHeader(Window& window);
std::unique_ptr<Control> MakeDatePicker(Window& window);
} // namespace winport
