// What the window system keeps for each thread, and what its parts ask of each other.
#pragma once

#include "window.h"

#include <deque>
#include <utility>

namespace winport
{
/// Flags of WM_WINDOWPOSCHANGED: the inside of the window is as large, or where it was.
constexpr UINT kSameClientSize = 0x0800;
constexpr UINT kSameClientPlace = 0x1000;
/// Flag of both messages about a window's place: it is maximised or restored.
constexpr UINT kStateChanged = 0x8000;

struct Hook
{
    std::uintptr_t id = 0; ///< greater than that of every older one
    HOOKPROC procedure = nullptr;
};

struct Timer
{
    HWND window = nullptr;
    UINT_PTR id = 0;
    UINT period = 0;
    TIMERPROC procedure = nullptr;
    ULONGLONG due = 0;
};

/// The state of one thread. It ends with the thread, and with it the thread's windows, silently.
struct ThreadState
{
    ThreadState();
    ~ThreadState();
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;

    Window desktop;     ///< its children are the thread's top-level windows
    Window messageOnly; ///< its children are the thread's message-only windows
    HWND active = nullptr;
    HWND deactivated = nullptr; ///< which is told so at the moment
    HWND focus = nullptr;
    HWND capture = nullptr;
    HCURSOR cursor = nullptr;
    BYTE keys[256] = {};
    std::deque<MSG> posted;
    bool quitting = false;
    int exitCode = 0;
    std::vector<Timer> timers;
    UINT_PTR lastTimer = 0;
    ULONGLONG now; ///< the clock of timers, in milliseconds: it runs only while the thread waits
    std::vector<Hook> hooks;
    std::uintptr_t lastHook = 0;
    std::uintptr_t runningHook = 0;
    std::vector<std::unique_ptr<Window>> dying; ///< gone, but still in one of their own handlers
};

ThreadState& ThisThread();

/// Puts a new window into the table and gives it its handle.
Window& AddWindow();

/// Takes a window out of everything that knows it. Its memory stays until its last handler has returned.
void RemoveWindow(Window& window);

/// The window of a handle of the calling thread. Null with the last error set if there is none; a window of
/// another thread ends the run with `what`.
Window* OwnWindow(HWND handle, const char* what);

/// The window of any thread; null with the last error set if there is none.
Window* AnyWindow(HWND handle);

/// Calls a procedure for a window, which lives on until the call returns, destroyed or not.
LRESULT CallProcedure(Window& window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam);

/// The list in which a window stands among its siblings.
std::vector<Window*>& SiblingsOf(Window& window);

/// The window itself or the outermost of its parents.
Window& RootOf(Window& window);

/// True if `window` is `ancestor` or stands somewhere beneath it.
bool IsWithin(const Window& ancestor, const Window* window);

/// Takes a window out of its siblings' order and puts it in behind `after` (HWND_TOP, HWND_BOTTOM or a
/// sibling). Owned windows stay above their owners.
void Restack(Window& window, HWND after);

/// Tells the parent of a child window of its beginning or end.
void NotifyParent(const Window& window, UINT event);

/// WM_SIZE and WM_MOVE by the window's place, if it still lives.
void SendSize(HWND handle);
void SendMove(HWND handle);

/// The point of the screen from which the place of a window is counted.
POINT OriginOf(const Window& window);

/// The frame follows the styles of now.
void Reframe(Window& window);

/// What the system makes of the styles asked for.
DWORD CompleteStyle(const Window& window, DWORD style);
DWORD CompleteExStyle(DWORD style, DWORD exStyle);

/// Puts a window elsewhere, everything in it included.
void Place(Window& window, int x, int y, int width, int height);

/// Keeps a size within the bounds of a window that has any: WM_GETMINMAXINFO is sent.
void KeepTrackSize(const Window& window, int* width, int* height);

/// Makes a window fill the screen, or gives it its former place again; shows it.
void Maximise(HWND handle);
void Restore(HWND handle);

/// Makes `next`, which may be null, the thread's active window. False if a hook refused.
bool Activate(HWND next);

/// Makes the window that follows an active window which goes away the active one.
void ActivateNext(const Window& leaving);

/// Gives activation and focus away if the window, which was hidden, has them.
void TakeFocusFrom(HWND handle);

/// Asks the thread's hooks. 0 if none of them objects.
LRESULT CallHooks(int code, WPARAM wParam, LPARAM lParam);

/// Ends the run if the style has a bit outside of the closed set.
void CheckStyles(const Window& window, DWORD style, DWORD exStyle);

/// Ends the run if the name is, or begins like, that of a class which only Windows has.
void RefuseSystemClass(const std::wstring& name);

/// The same as Missing for what belongs to no window.
[[noreturn]] void Stuck(const char* what);
} // namespace winport
