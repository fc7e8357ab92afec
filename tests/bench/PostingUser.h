// A user of dialogs who is no slower than the dialog: all that he does is posted at once.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cwchar>
#include <functional>
#include <utility>

/// While it lives, `acts` is called with each dialog of the thread that comes up; it posts messages, of which
/// the last one ends the dialog. One at a time.
class PostingUser
{
public:
    /// `counting` is sent to the control `counted` when the dialog ends.
    PostingUser(std::function<void(HWND dialog)> acts, int counted, UINT counting)
        : m_hook(SetWindowsHookExW(WH_CBT, &PostingUser::OnEvent, nullptr, GetCurrentThreadId()))
    {
        s_acts = std::move(acts);
        s_counted = counted;
        s_counting = counting;
        s_items = 0;
    }
    ~PostingUser() { UnhookWindowsHookEx(m_hook); }
    PostingUser(const PostingUser&) = delete;
    PostingUser& operator=(const PostingUser&) = delete;

    /// The count at the end of the last dialog.
    static std::size_t Items() { return s_items; }

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        const auto dialog = reinterpret_cast<HWND>(window);
        wchar_t name[32] = {};
        if ((code == HCBT_ACTIVATE || code == HCBT_DESTROYWND) && GetClassNameW(dialog, name, 32) &&
            std::wcscmp(name, L"#32770") == 0)
        {
            if (code == HCBT_DESTROYWND)
                s_items = static_cast<std::size_t>(SendDlgItemMessageW(dialog, s_counted, s_counting, 0, 0));
            else
                s_acts(dialog);
        }
        return CallNextHookEx(nullptr, code, window, details);
    }

    static inline std::function<void(HWND dialog)> s_acts;
    static inline int s_counted = 0;
    static inline UINT s_counting = 0;
    static inline std::size_t s_items = 0;
    HHOOK m_hook;
};
