// The state of the window system for each thread, and the functions that its parts share.
#pragma once

#include "window.h"

#include <deque>
#include <utility>

namespace winport
{
/// Flags of WM_WINDOWPOSCHANGED: the client area has kept its size, or its position.
constexpr UINT kSameClientSize = 0x0800;
constexpr UINT kSameClientPlace = 0x1000;
/// Flag of both messages about a window's place: it is maximised, minimised or restored.
constexpr UINT kStateChanged = 0x8000;

struct Hook
{
    std::uintptr_t id = 0; ///< increases with each hook
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

/// The state of one thread. Its windows are freed with it at the end of the thread, without messages.
struct ThreadState
{
    ThreadState();
    ~ThreadState();
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;

    Window desktop;     ///< its children are the thread's top-level windows
    Window messageOnly; ///< its children are the thread's message-only windows
    HWND active = nullptr;
    HWND deactivated = nullptr; ///< is being deactivated
    HWND focus = nullptr;
    HWND capture = nullptr;
    HCURSOR cursor = nullptr;
    BYTE keys[256] = {};
    std::deque<MSG> posted;
    bool quitting = false;
    int exitCode = 0;
    std::vector<Timer> timers;
    UINT_PTR lastTimer = 0;
    ULONGLONG now; ///< the clock of timers, in milliseconds; advances only while the thread waits
    std::vector<Hook> hooks;
    std::uintptr_t lastHook = 0;
    std::uintptr_t runningHook = 0;
    std::vector<std::unique_ptr<Window>> dying; ///< destroyed, but one of their handlers is still running
};

ThreadState& ThisThread();

/// Adds a new window to the table and assigns its handle.
Window& AddWindow();

/// Removes a window from the table and the tree. It is freed when its last handler has returned.
void RemoveWindow(Window& window);

/// Returns the window of a handle of the calling thread; null, with the last error set, if there is none. A
/// window of another thread ends the run with `what`.
Window* OwnWindow(HWND handle, const char* what);

/// Returns the window of a handle of any thread; null, with the last error set, if there is none.
Window* AnyWindow(HWND handle);

/// Calls a procedure for a window. The window is not freed before the call returns, even if it is destroyed.
LRESULT CallProcedure(Window& window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam);

/// The list of a window and its siblings.
std::vector<Window*>& SiblingsOf(Window& window);

/// The top-level window that contains a window, or the window itself.
Window& RootOf(Window& window);

/// True if `window` is `ancestor` or below it.
bool IsWithin(const Window& ancestor, const Window* window);

/// Moves a window in the z-order behind `after` (HWND_TOP, HWND_BOTTOM or a sibling). Owned windows stay
/// above their owners.
void Restack(Window& window, HWND after);

/// Sends WM_PARENTNOTIFY for the creation or destruction of a child window.
void NotifyParent(const Window& window, UINT event);

/// Sends WM_SIZE or WM_MOVE with the current position, if the window still exists.
void SendSize(HWND handle);
void SendMove(HWND handle);

/// The origin, in screen coordinates, of the position of a window.
POINT OriginOf(const Window& window);

/// Updates frame and caption to the current styles.
void Reframe(Window& window);

/// The styles of a window for the requested ones, as the system completes them.
DWORD CompleteStyle(const Window& window, DWORD style);
DWORD CompleteExStyle(DWORD style, DWORD exStyle);

/// Moves a window with everything in it.
void Place(Window& window, int x, int y, int width, int height);

/// Applies the minimum and maximum size of a window that has them: WM_GETMINMAXINFO is sent.
void KeepTrackSize(const Window& window, int* width, int* height);

/// Where every minimised window is.
constexpr RECT kMinimisedPlace{-32000, -32000, -32000 + 160, -32000 + 24};

/// Changes the state of a top-level window and shows it: maximised to the screen, minimised, or at its former
/// position.
void Maximise(HWND handle);
void Minimise(HWND handle);
void Restore(HWND handle);

/// Makes `next`, which may be null, the active window of the thread. Returns false if a hook refused.
bool Activate(HWND next);

/// Activates the next window if the active one is hidden or destroyed.
void ActivateNext(const Window& leaving);

/// Moves activation and focus elsewhere if a hidden window has them.
void TakeFocusFrom(HWND handle);

/// Calls the hooks of the thread. Returns 0 if none objects.
LRESULT CallHooks(int code, WPARAM wParam, LPARAM lParam);

/// Ends the run if the style has a bit outside of the closed set.
void CheckStyles(const Window& window, DWORD style, DWORD exStyle);

/// Ends the run if the name is, or starts like, that of a class that only Windows has.
void RefuseSystemClass(const std::wstring& name);

/// Ends the run with `what` and a description of all windows.
[[noreturn]] void Stuck(const char* what);
} // namespace winport
