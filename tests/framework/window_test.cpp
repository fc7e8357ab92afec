// Objects and their windows, without a dialog.
#include "Wnd.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace
{
/// Runs what a test does in its handler of WM_APP.
class AskedWindow : public CWnd
{
public:
    using CWnd::Default;

    std::function<LRESULT()> onAsked;

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {OnMessage<&AskedWindow::OnAsked>(WM_APP)};
        static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
        return map;
    }

private:
    LRESULT OnAsked(WPARAM, LPARAM) { return onAsked(); }
};

class Window : public testing::Test
{
protected:
    ~Window() override
    {
        DestroyWindow(first);
        DestroyWindow(second);
    }

    static HWND Make()
    {
        return CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    }

    const HWND first = Make();
    const HWND second = Make();
    AskedWindow object;
};

WNDPROC g_below = nullptr;
LRESULT g_late = -1;

/// Sends the object's procedure one more message after its last one.
LRESULT CALLBACK Above(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CallWindowProcW(g_below, window, message, wParam, lParam);
    if (message == WM_NCDESTROY)
        g_late = CallWindowProcW(g_below, window, WM_APP, 0, 0);
    return result;
}
} // namespace

TEST_F(Window, HasOneObjectAndAnObjectOneWindow)
{
    ASSERT_TRUE(object.SubclassWindow(first));
    AskedWindow other;
    EXPECT_FALSE(other.SubclassWindow(first));
    EXPECT_EQ(other.m_hWnd, nullptr);
    EXPECT_FALSE(object.SubclassWindow(second));
    EXPECT_EQ(object.m_hWnd, first);
    EXPECT_EQ(CWnd::FromHandlePermanent(first), &object);
    EXPECT_EQ(CWnd::FromHandlePermanent(second), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
}

TEST_F(Window, ThatIsGoneTakesNoObject)
{
    DestroyWindow(first);
    EXPECT_FALSE(object.SubclassWindow(first));
    EXPECT_FALSE(object.SubclassWindow(nullptr));
    EXPECT_EQ(object.m_hWnd, nullptr);
}

TEST_F(Window, IsCreatedOnceForAnObject)
{
    const RECT place{0, 0, 10, 10};
    ASSERT_TRUE(object.Create(L"Static", L"one", WS_CHILD, place, first, 1));
    const HWND made = object.m_hWnd;
    EXPECT_FALSE(object.Create(L"Static", L"two", WS_CHILD, place, first, 2));
    EXPECT_EQ(object.m_hWnd, made);
    EXPECT_EQ(GetDlgItem(first, 2), nullptr) << "no window without an object";
}

TEST_F(Window, IsDestroyedOnce)
{
    ASSERT_TRUE(object.SubclassWindow(first));
    EXPECT_TRUE(object.DestroyWindow());
    EXPECT_FALSE(IsWindow(first));
    EXPECT_FALSE(object.DestroyWindow());
}

TEST_F(Window, AnswersZeroIfItsHandlerThrowsOutsideOfADialog)
{
    ASSERT_TRUE(object.SubclassWindow(first));
    object.onAsked = []() -> LRESULT {
        throw std::runtime_error("nobody to catch it");
    };
    EXPECT_EQ(object.SendMessage(WM_APP), 0);
    object.onAsked = [] {
        return LRESULT{5};
    };
    EXPECT_EQ(object.SendMessage(WM_APP), 5) << "it lives on";
}

TEST_F(Window, HasADefaultAfterItsHandlerDestroyedIt)
{
    ASSERT_TRUE(object.SubclassWindow(first));
    LRESULT byDefault = -1;
    object.onAsked = [&] {
        object.DestroyWindow();
        return byDefault = object.Default();
    };
    SendMessageW(first, WM_APP, 0, 0);
    EXPECT_EQ(byDefault, 0);
    EXPECT_EQ(object.m_hWnd, nullptr);
}

// A host may subclass a window of the module, too.
TEST_F(Window, HasADefaultForMessagesAfterItsLast)
{
    ASSERT_TRUE(object.SubclassWindow(first));
    int asked = 0;
    object.onAsked = [&] {
        return LRESULT{++asked};
    };
    g_below =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(first, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Above)));
    EXPECT_EQ(object.SendMessage(WM_APP), 1);
    ASSERT_TRUE(object.DestroyWindow());
    EXPECT_EQ(g_late, 0);
    EXPECT_EQ(asked, 1);
}
