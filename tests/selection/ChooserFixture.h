// What the tests of the dialogs share: the module as a host loads it, a user, and one trace of all that
// happens.
#pragma once

#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "LogBook.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <vector>

using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;
using Steps = std::vector<DialogStep>;

inline Calls operator+(Calls first, const Calls& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

inline Steps operator+(Steps first, const Steps& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

template <class T>
ULONG References(const ComPtr<T>& object)
{
    object->AddRef();
    return object->Release();
}

/// A value that no method leaves behind.
template <class T>
T* Untouched()
{
    static int place;
    return reinterpret_cast<T*>(&place);
}

// What a user does.
inline DialogStep Presses(int button)
{
    return [button](DialogView& view)
    {
        view.Click(button);
    };
}
inline DialogStep Selects(int row)
{
    return [row](DialogView& view)
    {
        view.SelectRow(view.List(), row);
    };
}
inline DialogStep Types(WORD key, unsigned held = 0)
{
    return [key, held](DialogView& view)
    {
        view.Press(key, held);
    };
}

/// The cells of a column, from top to bottom.
inline Texts Column(const DialogView& view, int column)
{
    Texts texts;
    for (int row = 0; row < view.Rows(view.List()); ++row)
        texts.push_back(view.Cell(view.List(), row, column));
    return texts;
}

/// In pixels.
inline int Width(const RECT& rect)
{
    return static_cast<int>(rect.right - rect.left);
}

/// Clicks where the list has no row, which leaves none selected.
inline void ClickBesideTheRows(DialogView& view)
{
    const HWND list = view.List();
    RECT area{};
    GetClientRect(list, &area);
    const LPARAM point = MAKELPARAM(area.right - 3, area.bottom - 3);
    PostMessageW(list, WM_LBUTTONUP, 0, point);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    EXPECT_EQ(view.SelectedRow(list), -1);
}

/// While it lives, no list can be made on this thread.
class NoLists
{
public:
    NoLists() : m_hook(SetWindowsHookExW(WH_CBT, &NoLists::OnEvent, nullptr, GetCurrentThreadId())) {}
    ~NoLists() { UnhookWindowsHookEx(m_hook); }
    NoLists(const NoLists&) = delete;
    NoLists& operator=(const NoLists&) = delete;

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        wchar_t name[32] = {};
        if (code == HCBT_CREATEWND)
            GetClassNameW(reinterpret_cast<HWND>(window), name, 32);
        return std::wstring(name) == WC_LISTVIEWW ? 1 : CallNextHookEx(nullptr, code, window, details);
    }

    HHOOK m_hook;
};

class ChooserFixture : public ::testing::Test
{
protected:
    /// The next message box; the trace shows it as "box <title>: <text>".
    void ExpectBox(const std::wstring& title, const std::wstring& text)
    {
        boxes.Expect(title, text, IDOK,
                     [this, line = "box " + Utf8Of(XQPComBSTR(title.c_str())) + ": " +
                                   Utf8Of(XQPComBSTR(text.c_str()))] { host.calls.push_back(line); });
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
    ModuleUnderTest module;
    MemoryHost host; ///< its record of calls is the trace
    BoxAnswers boxes;
    DialogDriver dialogs;
};

/// The whole trace.
#define EXPECT_TRACE(...) EXPECT_EQ(host.calls, (__VA_ARGS__))
