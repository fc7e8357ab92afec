// Windows that record their messages.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Creates windows with short names and records their messages and the calls of the thread's hook, a line
/// each: "a WM_SIZE 30x40". One of these at a time. Windows that still exist are destroyed with it.
class WindowTrace
{
public:
    WindowTrace();
    ~WindowTrace();
    WindowTrace(const WindowTrace&) = delete;
    WindowTrace& operator=(const WindowTrace&) = delete;

    /// A window at 10, 20, 300 wide and 200 high. Its name is its text, too. The trace is not changed.
    HWND Make(const wchar_t* name, DWORD style, HWND parent = nullptr, DWORD exStyle = 0);

    /// The same, and the messages stay in the trace.
    HWND MakeTraced(const wchar_t* name, DWORD style, HWND parent = nullptr, DWORD exStyle = 0);

    /// The lines since the last call.
    std::vector<std::string> Take();

    /// The name of a window, which may be destroyed; "-" for null.
    std::string NameOf(HWND window) const;

    /// "active a, focus b".
    std::string Standing() const;

    /// The names of the thread's top-level windows, from top to bottom.
    std::string Order() const;

    /// Called first with each message; a value is the message's result.
    std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)> onMessage;

    /// Called with each call of the hook; 1 refuses.
    std::function<LRESULT(int, WPARAM, LPARAM)> onHook;

    /// The messages that are recorded; if empty, all that this class has a text for.
    std::vector<UINT> only;

    static const wchar_t* ClassName();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
    void Write(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool Wanted(UINT message) const;

    std::map<HWND, std::string> m_names;
    std::vector<std::string> m_lines;
    HHOOK m_hook = nullptr;
};
