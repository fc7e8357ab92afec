// Windows that write down what they are told.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Makes windows with short names and keeps what they and the thread's hook hear, one line each: "a WM_SIZE
/// 30x40". One of these at a time. The windows that are left are destroyed with it.
class WindowTrace
{
public:
    WindowTrace();
    ~WindowTrace();
    WindowTrace(const WindowTrace&) = delete;
    WindowTrace& operator=(const WindowTrace&) = delete;

    /// A window at 10, 20, 300 wide and 200 high. Its name is its text, too. The trace is not changed.
    HWND Make(const wchar_t* name, DWORD style, HWND parent = nullptr, DWORD exStyle = 0);

    /// The same, and what is heard stays in the trace.
    HWND MakeTraced(const wchar_t* name, DWORD style, HWND parent = nullptr, DWORD exStyle = 0);

    /// What was heard since the last call.
    std::vector<std::string> Take();

    /// The name of a window, which may be gone; "-" for null.
    std::string NameOf(HWND window) const;

    /// "active a, focus b".
    std::string Standing() const;

    /// The names of the thread's top-level windows, from top to bottom.
    std::string Order() const;

    /// Called first with each message; what it gives is the answer.
    std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)> onMessage;

    /// Called with each call of the hook; 1 objects.
    std::function<LRESULT(int, WPARAM, LPARAM)> onHook;

    /// Which messages are written down; all that this class knows if it is empty.
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
