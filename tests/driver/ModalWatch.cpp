#include "ModalWatch.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace
{
constexpr UINT kCall = WM_APP + 1;
constexpr UINT_PTR kBound = 1;
constexpr const wchar_t* kReceiverClass = L"QptoolsModalWatch";
constexpr const wchar_t* kDialogClass = L"#32770";

// One hook serves all watches of the thread.
thread_local std::vector<ModalWatch*> t_watches;
thread_local HHOOK t_hook = nullptr;
} // namespace

ModalWatch::ModalWatch()
{
    WNDCLASSW receiver{};
    receiver.lpfnWndProc = OnMessage;
    receiver.hInstance = GetModuleHandleW(nullptr);
    receiver.lpszClassName = kReceiverClass;
    RegisterClassW(&receiver); // fails from the second time on, which is as good
    m_receiver = CreateWindowExW(0, kReceiverClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                 receiver.hInstance, nullptr);
    SetWindowLongPtrW(m_receiver, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    if (t_watches.empty())
        t_hook = SetWindowsHookExW(WH_CBT, OnEvent, nullptr, GetCurrentThreadId());
    t_watches.push_back(this);
    EXPECT_TRUE(m_receiver && t_hook);
}

ModalWatch::~ModalWatch()
{
    t_watches.erase(std::remove(t_watches.begin(), t_watches.end(), this), t_watches.end());
    if (t_watches.empty())
        UnhookWindowsHookEx(t_hook);
    DestroyWindow(m_receiver);
}

void ModalWatch::CallLater()
{
    if (!m_waiting)
        m_waiting = PostMessageW(m_receiver, kCall, 0, 0) != FALSE;
}

void ModalWatch::SetBound(UINT milliseconds)
{
    if (milliseconds)
        SetTimer(m_receiver, kBound, milliseconds, nullptr);
    else
        KillTimer(m_receiver, kBound);
}

LRESULT CALLBACK ModalWatch::OnEvent(int code, WPARAM window, LPARAM details)
{
    const auto target = reinterpret_cast<HWND>(window);
    const std::vector<ModalWatch*> watches = t_watches;
    for (ModalWatch* watch : watches)
    {
        if (code == HCBT_ACTIVATE && ClassOf(target) == kDialogClass)
            watch->OnActivated(target);
        if (code == HCBT_DESTROYWND)
            watch->OnGoing(target);
    }
    return CallNextHookEx(nullptr, code, window, details);
}

LRESULT CALLBACK ModalWatch::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* watch = reinterpret_cast<ModalWatch*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!watch || (message != kCall && message != WM_TIMER))
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_TIMER)
    {
        watch->SetBound(0);
        watch->OnTimeUp();
        return 0;
    }
    watch->m_waiting = false;
    watch->OnCall();
    return 0;
}
