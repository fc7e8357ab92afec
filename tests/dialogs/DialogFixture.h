// What tests of dialogs share: the module as a host loads it, a user, and one trace of calls and boxes.
#pragma once

#include "BoxAnswers.h"
#include "Calls.h"
#include "DialogDriver.h"
#include "LogBook.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "Story.h"
#include "Untouched.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

/// In pixels.
inline int Width(const RECT& rect)
{
    return static_cast<int>(rect.right - rect.left);
}

/// While it lives, no window of that class can be created on this thread.
class NoneOf
{
public:
    explicit NoneOf(const wchar_t* className)
        : m_hook(SetWindowsHookExW(WH_CBT, &NoneOf::OnEvent, nullptr, GetCurrentThreadId()))
    {
        s_className = className;
    }
    ~NoneOf() { UnhookWindowsHookEx(m_hook); }
    NoneOf(const NoneOf&) = delete;
    NoneOf& operator=(const NoneOf&) = delete;

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        wchar_t name[32] = {};
        if (code == HCBT_CREATEWND)
            GetClassNameW(reinterpret_cast<HWND>(window), name, 32);
        return s_className == name ? 1 : CallNextHookEx(nullptr, code, window, details);
    }

    static inline std::wstring s_className;
    HHOOK m_hook;
};

/// No dialog and no message box.
class NoDialogs : public NoneOf
{
public:
    NoDialogs() : NoneOf(L"#32770") {}
};

/// A window of the host's.
class OwnerWindow
{
public:
    explicit OwnerWindow(DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, HWND parent = nullptr)
        : m_window(
              CreateWindowExW(0, L"Static", L"", style, 0, 0, 100, 100, parent, nullptr, nullptr, nullptr))
    {
    }
    ~OwnerWindow() { DestroyWindow(m_window); }
    OwnerWindow(const OwnerWindow&) = delete;
    OwnerWindow& operator=(const OwnerWindow&) = delete;
    HWND get() const { return m_window; }

private:
    HWND m_window;
};

class DialogFixture : public ::testing::Test
{
protected:
    void TearDown() override
    {
        if (host.calls != m_told)
            story.Tell(host.calls);
        for (const std::string& entry : logBook.Entries())
            story.Tell("report " + entry);
#ifdef QP_TRACES
        story.Check(QP_TRACES);
#endif
    }

    /// Call this with the result of each call that shows a dialog.
    template <class Result>
    void Ended(const Result& result)
    {
        std::ostringstream line;
        line << (resultFollowsAddresses ? "a result by address" : "result ");
        if (!resultFollowsAddresses)
            line << result;
        story.Tell(host.calls);
        story.Tell(line.str());
        m_told = host.calls;
    }

    /// The next message box, and the button that the user presses in it; the trace shows it as
    /// "box <title>: <text>".
    void ExpectBox(const std::wstring& title, const std::wstring& text, int answer = IDOK)
    {
        boxes.Expect(title, text, answer,
                     [this, line = "box " + Utf8Of(XQPComBSTR(title.c_str())) + ": " +
                                   Utf8Of(XQPComBSTR(text.c_str()))] { host.calls.push_back(line); });
    }

    /// The boxes of a record, which shows each as ExpectBox does. Their texts are ASCII.
    void ExpectBoxes(const Calls& record)
    {
        for (const std::string& line : record)
        {
            const std::size_t colon = line.find(": ");
            if (line.starts_with("box "))
                ExpectBox({line.begin() + 4, line.begin() + static_cast<std::ptrdiff_t>(colon)},
                          {line.begin() + static_cast<std::ptrdiff_t>(colon) + 2, line.end()});
        }
    }

    std::string TakeOver(IQP_BaseDataObject* result)
    {
        if (result == Untouched<IQP_BaseDataObject>())
            return "untouched";
        ComPtr<IQP_BaseDataObject> owned;
        owned.attach(result);
        return host.NameOf(result);
    }

    LogBook logBook;
    MemoryHost
        host; ///< its record of calls is the trace; the module holds objects of it until it is unloaded
    ModuleUnderTest module;
    BoxAnswers boxes;
    DialogDriver dialogs;
    Story story;

    /// The order of the rows, and so the result, follows the objects' addresses.
    bool resultFollowsAddresses = false;

private:
    Calls m_told;
};

/// The whole trace.
#define EXPECT_TRACE(...) EXPECT_EQ(host.calls, (__VA_ARGS__))
